#include "forms/observation_plan_form.h"

#include "core/arithmetic.h"
#include "core/clock.h"
#include "core/numbers.h"
#include "forms/observations_form.h"
#include "forms/planet_perturbations_form.h"
#include "forms/statistics_form.h"
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
    planOfPerturbations.setEnabled(!lab.desk.get<ObservationsForm>().planetByPlan.on());
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
    addOptimum.setCaption("Добавить параметры в файл Tarvex" +
                          std::to_string(planetOfPlan(lab.desk.get<ObservationsForm>().bodyNumber.int32())) +
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
    lab.desk.get<ObservationsForm>().lastExperiment.show(plan.Nplan);
}

bool ObservationPlanForm::sourceChosen(const ObservationsForm& data) const {
    return data.fromTables.on() ? !data.tableChoice(0).on() : !data.observatoryChoice(0).on();
}

std::string ObservationPlanForm::testFile(const ObservationsForm& data) const {
    return planTestFileName(lab.s, lab.s.IplSel, data.fromObservatories.on() ? data.fileNumber.text() : "",
                            testNumber_);
}

/// Numbers of plan and test, and the body.
void ObservationPlanForm::readNumbers() {
    lab.s.NPlan = planNumber.int16();
    testNumber_ = testNumber.int32();
    const std::int32_t body = lab.desk.get<ObservationsForm>().bodyNumber.int32();
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
    lab.desk.get<ObservationsForm>().planSignal.setText(timeOfDay());
}

void ObservationPlanForm::fromTemplate() {
    ObservationsForm& data = lab.desk.get<ObservationsForm>();
    ModelState& s = lab.s;
    s.God0 = data.year.int32();
    lab.reduction.GodK = toInt32(s.God0 + 20.0);
    data.showLastYear(lab.reduction.GodK);
    data.dateSignal.setText(timeOfDay());  // the date into JD
    s.JDepoha = s.JD;
    s.JDut = 1000;
    planTemplate(s, lab.reduction, lab.plan, data.planEpochJ2000.on());
}

void ObservationPlanForm::fromFile() {
    ObservationsForm& data = lab.desk.get<ObservationsForm>();
    ModelState& s = lab.s;
    if (!sourceChosen(data)) throw Refusal("Выберете источник данных", box);
    const std::string name = testFile(data);
    try {
        loadPlanTest(s, lab.reduction, lab.plan, lab.tree, name);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл\r\n" + name, box);
    } catch (const std::exception&) {
        throw Refusal("Ошибка чтения данных из файла\r\n" + name, box);
    }
    data.year.show(s.God0);
    data.month.show(s.Mes0);
    data.day.show(s.Den0);
    data.showLastYear(lab.reduction.GodK);
    data.dateSignal.setText(timeOfDay());
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
    lab.desk.get<ObservationsForm>().precessionRate.show(lab.reduction.PrecSek);
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
    lab.reduction.PrecSek = lab.desk.get<ObservationsForm>().precessionRate.number();
    lab.reduction.kodDLplan = planOfPerturbations.on() ? 1 : 0;
    lab.reduction.NplDL = secondPerturber.on() ? 2 : 1;
}

void ObservationPlanForm::SavePlan13() {
    ObservationsForm& data = lab.desk.get<ObservationsForm>();
    readNumbers();
    if (!sourceChosen(data)) throw Refusal("Выберете источник данных наблюдений", box);
    stage("Задайте правильно данные для плана", box, [this] { ReadPlanFields(); });
    if (!data.distanceCriterion.text().empty())
        criterion_ = (data.judgeByLongitude.on() ? data.longitudeCriterion : data.distanceCriterion).number();
    const std::string name = testFile(data);
    stage("Ошибка при записи данных в файл " + name, box, [&] {
        savePlanTest(lab.s, lab.reduction, lab.plan, lab.tree, name, testNumber_,
                     {data.planEpochJ2000.on(), data.judgeByDistance.on(), data.rootMeanSquare.on(),
                      criterion_, todayText()});
    });
}

void ObservationPlanForm::OptimizePlan13() {
    PlanBlock& plan = lab.plan;
    Picture& picture = lab.desk.get<ObservationsForm>().residualGraph;
    constexpr double belowPlan = 24, afterSystem = 12;
    const double top = lab.desk.get<ObservationsForm>().graphTop() - belowPlan;
    picture.lookAt(top, top - (plan.Nf + 3) * 2 * planLine);
    printOptimum(picture, plan, planLeft, top);
    for (int f = 1; f <= plan.Nf; ++f) {
        const int i = plan.Nfact.at(f);
        const double natural = plan.Xopt[f] * plan.dXvar[i] + plan.Xnul[i];
        picture.text(afterSystem, top - (f + 1) * planLine, toText(plan.Xopt[f]));
        codedOptimum(i).show(cut6(plan.Xopt[f]));
        if (i == 1 && f == 1)
            naturalOptimum(1).show(Fix(natural) / MK);
        else
            naturalOptimum(i).setText(cutText(natural, 1e9));
    }
}

void ObservationPlanForm::SendToForm22() {
    const int planet = planetOfPlan(lab.desk.get<ObservationsForm>().bodyNumber.int32());
    lab.reduction.NplDL = secondPerturber.on() ? 2 : 1;
    if (planet < 1 || planet > 4)
        throw SubscriptFailure("нет возмущений планеты № " + std::to_string(planet));
    auto& amplitudes = lab.s.kLp;
    for (int c = 1; c <= terms; ++c)
        amplitudes[lab.reduction.NplDL][planet * 10 + c] = zeroLevel(c + 1).number();
    if (!lab.desk.isLoaded("Form22")) throw Refusal("Загрузите форму 22 (dLp)", box);
    auto& form = lab.desk.get<PlanetPerturbationsForm>();
    for (int c = 1; c <= terms; ++c) {
        form.amplitude(planet * 10 + c).show(amplitudes[1][planet * 10 + c]);
        form.amplitude(planet * 10 + 40 + c).show(amplitudes[2][planet * 10 + c]);
    }
}

void ObservationPlanForm::AddOptimumRecord() {
    ModelState& s = lab.s;
    const int planet = planetOfPlan(lab.desk.get<ObservationsForm>().bodyNumber.int32());
    s.NPlan = planNumber.int16();
    std::array<double, factors + 1> level{};
    for (const int i : {4, 5, 3, 2, 6, 7, 8, 9, 1}) level[i] = zeroLevel(i).number();
    const double date = s.JDepoha;
    const Record record = optimumRecord(level, lab.plan.Xnul[10], 2 * (s.JDut - date));

    lab.desk.show("Form6");
    auto& form = lab.desk.get<StatisticsForm>();
    form.fromImitator.choose();
    form.ownImitator.choose();
    form.planNumber.show(s.NPlan);
    form.planet(planet).choose();

    const std::string name = optimumFile(s.NPlan, planet);
    OptimumSeries changed = [&] {
        try {
            return readOptimumSeries(lab.tree, lab.series, s.NPlan, planet, todayText());
        } catch (const OpenFailure&) {
            throw Refusal("Не могу найти файл\r\n" + name, box);
        } catch (const Refusal&) {
            throw;
        } catch (const std::exception& failure) {
            lab.desk.tell({"Ошибка чтения данных из файла\r\n" + name, box, causeOf(failure), true});
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
    printSeries(changed, at);
}

/// On the picture of the statistics.
void ObservationPlanForm::printSeries(const OptimumSeries& changed, int marked) {
    auto& form = lab.desk.get<StatisticsForm>();
    const double rows = changed.series.NP1max() / 2.0 + 10;
    form.drawEmpty(rows, 52, false);
    double y = rows - 0.3;
    for (const std::string& line : optimumLines(changed, marked)) {
        form.picture.text(0.3, y, line);
        y -= 0.5;
    }
}

}  // namespace tarvex
