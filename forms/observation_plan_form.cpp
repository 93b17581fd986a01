#include "forms/observation_plan_form.h"

#include "core/arithmetic.h"
#include "core/clock.h"
#include "core/numbers.h"
#include "numeric/records.h"
#include "reduction/observation_plan.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7";
constexpr int terms = 8;  ///< of the perturbations by one body

std::string cutText(double value, double scale) { return toText(Fix(value * scale) / scale); }

}  // namespace

ObservationPlanForm::ObservationPlanForm(Laboratory& lab_) : ObservationPlanControls(lab_.desk), lab(lab_) {
    const Shown badPlan = orShow("Задайте правильно данные для плана", box);
    createPlan.onPress([this] { CreatePlan13(); }, badPlan);
    loadPlan.onPress([this] { LoadPlan13(); }, orShow("Введите правильно номер плана и опыта", box));
    savePlan.onPress([this] { SavePlan13(); }, orShow("Задайте правильно номер плана и опыта", box));
    optimize.onPress([this] { OptimizePlan13(); },
                     orShow("Ошибка при решение системы линейных уравнений", box));
    optimumToLevels.onPress(
        [this] {
            for (int f = 1; f <= lab.plan.Nf; ++f)
                zeroLevel(lab.plan.Nfact[f]).setText(naturalOptimum(lab.plan.Nfact[f]).text());
        },
        badPlan);
    clearOptimum.onPress([this] {
        for (int i = 1; i <= factors; ++i) codedOptimum(i).setText("0");
    });
    addOptimum.onPress([this] { AddOptimumRecord(); }, orShow("Введите правильно данные", box));
    sendPerturbations.onPress([this] { SendToForm22(); }, badPlan);
    readSignal.onChange([this] { ReadPlanFields(); }, badPlan);
    opens(openStatistics, "Form6");
    closeForm.onPress([this] { close(); });
}

void ObservationPlanForm::load() {
    planOfPerturbations.setEnabled(!data().planetByPlan());
    planNumber.setText("1");
    testNumber.setText("1");
    if (desk().calculating("Form10") || desk().calculating("Form15")) {  // it works on the plan as it stands
        ShowPlanFields();
        return;
    }
    createPlan.press();
    loadPlan.press();
}

void ObservationPlanForm::activate() {
    addOptimum.setCaption("Добавить параметры в файл Tarvex" + std::to_string(planetOfPlan(data().body())) +
                          "Nab.txt");
}

void ObservationPlanForm::CreatePlan13() {
    PlanBlock& plan = lab.plan;
    plan.kodPlan = rotatable.on() ? planRoto : planOrtho;
    std::int16_t count = 0;
    plan.Nfact.fill(0);
    for (int i = 1; i <= factors; ++i)
        if (factorChosen(i).on()) plan.Nfact[++count] = static_cast<std::int16_t>(i);
    plan.Nf = count;
    if (count < 2 || count > maxFactors) throw Refusal("К-во факторов должно быть от 2 до 6", box);
    PlanCenterCount(plan);
    BuildPlan(plan);
    PlanCoefficients(plan);
    data().showExperiments(plan.Nplan);
}

std::string ObservationPlanForm::testFile() {
    return planTestFileName(lab.s, lab.s.IplSel, data().observedFile(), testNumber_);
}

/// Numbers of plan and test, and the body.
void ObservationPlanForm::readNumbers() {
    lab.s.NPlan = planNumber.int16();
    testNumber_ = testNumber.int32();
    const std::int32_t body = data().body();
    if (body < 0 || body > rowMoon) throw SubscriptFailure("нет тела № " + std::to_string(body));
    lab.s.IplSel = body;
}

void ObservationPlanForm::LoadPlan13() {
    readNumbers();
    if (fileSource.on())
        fromFile();
    else
        stage("Ошибка при расчете параметров для шаблона", box, [this] { fromTemplate(); });
    lab.reduction.planEpoch = lab.s.JDepoha;
    showSource();
    ShowPlanFields();
    data().showPlan();
}

void ObservationPlanForm::fromTemplate() {
    ModelState& s = lab.s;
    s.God0 = data().firstYear();
    lab.reduction.GodK = toInt32(s.God0 + 20.0);
    data().showLastYear(lab.reduction.GodK);
    data().takeDate();
    s.JDepoha = s.JD;
    s.JDut = 1000;
    planTemplate(s, lab.reduction, lab.plan, data().epochOfPlanJ2000());
}

void ObservationPlanForm::fromFile() {
    ModelState& s = lab.s;
    if (!data().sourceChosen()) throw Refusal("Выберете источник данных", box);
    const std::string name = testFile();
    try {
        loadPlanTest(s, lab.reduction, lab.plan, lab.tree, name);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл\r\n" + name, box);
    } catch (const std::exception&) {
        throw Refusal("Ошибка чтения данных из файла\r\n" + name, box);
    }
    data().showFirstDay(s.God0, s.Mes0, s.Den0);
    data().showLastYear(lab.reduction.GodK);
    data().takeDate();
    s.JDepoha = s.JD;
}

void ObservationPlanForm::showSource() {
    const ModelState& s = lab.s;
    sourceCaption.setCaption(s.NameData + std::to_string(s.IplSel) + "  (с " + toText(s.Den0) + "." +
                             std::to_string(s.Mes0) + "." + std::to_string(s.God0) + " по " +
                             std::to_string(lab.reduction.GodK) + ")");
}

void ObservationPlanForm::ShowPlanFields() {
    const PlanBlock& plan = lab.plan;
    for (int i = factors; i >= 2; --i) {
        zeroLevel(i).setText(cutText(plan.Xnul[i], 1e9));
        interval(i).show(plan.dXvar[i]);
        codedOptimum(i).show(cut6(plan.Xopt[i]));
        naturalOptimum(i).show(cut6(plan.XoptR[i]));
    }
    zeroLevel(1).show(cut6(plan.Xnul[1] / MK));
    interval(1).show(plan.dXvar[1] / MK);
    codedOptimum(1).show(cut6(plan.Xopt[1]));
    naturalOptimum(1).show(cut6(plan.XoptR[1] / MK));
    const ToolVelocity::Value system = lab.reduction.velocity.of(lab.s);
    systemVX.show(system.X);
    systemVY.show(system.Y);
    systemVZ.show(system.Z);
    data().showPrecession(lab.reduction.PrecSek);
}

void ObservationPlanForm::ReadPlanFields() {
    PlanBlock& plan = lab.plan;
    for (int i = factors; i >= 1; --i) {
        const double unit = i == 1 ? MK : 1;
        plan.Xnul[i] = finite(zeroLevel(i).number() * unit);
        plan.dXvar[i] = finite(interval(i).number() * unit);
        plan.Xopt[i] = codedOptimum(i).number();
        plan.XoptR[i] = finite(naturalOptimum(i).number() * unit);
    }
    lab.reduction.velocity.set(lab.s, {systemVX.number(), systemVY.number(), systemVZ.number()});
    lab.reduction.PrecSek = data().precession();
    lab.reduction.kodDLplan = planOfPerturbations.on() ? 1 : 0;
    lab.reduction.NplDL = secondPerturber.on() ? 2 : 1;
}

void ObservationPlanForm::SavePlan13() {
    const ObservationsScreen& from = data();
    readNumbers();
    if (!from.sourceChosen()) throw Refusal("Выберете источник данных наблюдений", box);
    stage("Задайте правильно данные для плана", box, [this] { ReadPlanFields(); });
    criterion_ = from.criterion().value_or(criterion_);
    const std::string name = testFile();
    stage("Ошибка при записи данных в файл " + name, box, [&] {
        savePlanTest(
            lab.s, lab.reduction, lab.plan, lab.tree, name, testNumber_,
            {from.epochOfPlanJ2000(), from.byDistance(), from.rootMeanSquares(), criterion_, todayText()});
    });
}

void ObservationPlanForm::OptimizePlan13() {
    const PlanBlock& plan = lab.plan;
    data().showOptimum();
    for (int f = 1; f <= plan.Nf; ++f) {
        const int i = plan.Nfact.at(f);
        const double natural = plan.Xopt[f] * plan.dXvar[i] + plan.Xnul[i];
        codedOptimum(i).show(cut6(plan.Xopt[f]));
        if (i == 1 && f == 1)
            naturalOptimum(1).show(Fix(natural) / MK);
        else
            naturalOptimum(i).setText(cutText(natural, 1e9));
    }
}

void ObservationPlanForm::SendToForm22() {
    const int planet = planetOfPlan(data().body());
    lab.reduction.NplDL = secondPerturber.on() ? 2 : 1;
    if (planet < 1 || planet > 4)
        throw SubscriptFailure("нет возмущений планеты № " + std::to_string(planet));
    auto& amplitudes = lab.s.kLp;
    for (int c = 1; c <= terms; ++c)
        amplitudes[lab.reduction.NplDL][planet * 10 + c] = zeroLevel(c + 1).number();
    auto* perturbations = loadedScreen<PlanetPerturbationsScreen>(desk());
    if (perturbations == nullptr) throw Refusal("Загрузите форму 22 (dLp)", box);
    perturbations->showAmplitudes(planet);
}

void ObservationPlanForm::AddOptimumRecord() {
    ModelState& s = lab.s;
    const int planet = planetOfPlan(data().body());
    s.NPlan = planNumber.int16();
    std::array<double, factors + 1> level{};
    for (const int i : {4, 5, 3, 2, 6, 7, 8, 9, 1}) level[i] = zeroLevel(i).number();
    const double date = s.JDepoha;
    const Record record = optimumRecord(level, lab.plan.Xnul[10], 2 * (s.JDut - date));

    desk().show(StatisticsScreen::formName);
    screenOf<StatisticsScreen>(desk()).chooseOptima(s.NPlan, planet);

    const std::string name = optimumFile(s.NPlan, planet);
    OptimumSeries changed = [&] {
        try {
            return readOptimumSeries(lab.tree, lab.series, s.NPlan, planet, todayText());
        } catch (const OpenFailure&) {
            throw Refusal("Не могу найти файл\r\n" + name, box);
        } catch (const Refusal&) {
            throw;
        } catch (const std::exception& failure) {
            desk().tell({"Ошибка чтения данных из файла\r\n" + name, box, causeOf(failure), true});
            throw Refusal("Ошибка записи данных в файл\r\n" + name, box);
        }
    }();
    const int at = enterOptimum(changed.series, date, record, [&](int there) {
        return desk().ask("Точка №  " + std::to_string(there) + "  с такой датой уже есть\r\n" +
                              "Заменить параметры этой точки?",
                          box);
    });
    stage("Ошибка записи данных в файл\r\n" + name, box, [&] { writeSeries(lab.tree, changed.series); });
    lab.series = changed.series;
    screenOf<StatisticsScreen>(desk()).printPage(static_cast<double>(changed.series.NP1max()) / 2 + 10,
                                                 optimumLines(changed, at));
}

void ObservationPlanForm::allowPerturbations(bool may) {
    if (!may) planOfPerturbations.set(false);
    planOfPerturbations.setEnabled(may);
}

void ObservationPlanForm::takeLevels() { readSignal.setText(timeOfDay()); }

void ObservationPlanForm::showCodedLevels() {
    for (int f = 1; f <= lab.plan.Nf; ++f) {
        zeroLevel(lab.plan.Nfact[f]).setText("0");
        interval(lab.plan.Nfact[f]).setText("1");
    }
}

}  // namespace tarvex
