#include "forms/plan_form.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "core/arithmetic.h"
#include "stats/gravity_plan.h"
#include "stats/plan_file.h"
#include "stats/plan_growth.h"
#include "stats/quality.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7m";
constexpr double planTop = 19;        ///< the plan is printed this far below the top of the picture
constexpr double observedTop = 12.2;  ///< and the observed shifts above it, below the levels

std::string cut2(double v) { return toText(Fix(100 * v) / 100); }
std::string cut3(double v) { return toText(Fix(1000 * v) / 1000); }
double cut4(double v) { return Fix(10000 * v) / 10000; }

constexpr const char* noCoefficients = "Ошибка при рассчете коэффициентов";
constexpr const char* noOptimum = "Ошибка при решение системы линейных уравнений";

/// Runs a step; where it fails for want of an earlier one, the cause names that one.
template <class Step>
void after(bool made, const char* failed, const char* missing, Step step) try {
    step();
} catch (const std::exception&) {
    if (made) throw;
    throw Refusal(failed, box, missing);
}

}  // namespace

PlanForm::PlanForm(Laboratory& lab_)
    : PlanControls(lab_.desk, formName, "Оптимизация скорости гравитации      Tarvex7m - форма 15"),
      lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", box);
    createPlan.onPress([this] { CreatePlan15(); }, badData);
    loadPlan.onPress([this] { LoadPlan15(); }, badData);
    savePlan.onPress([this] { SavePlan15(); }, orShow("Задайте правильно номер плана", box));
    loadObservedShifts.onPress([this] { LoadObserved15(); }, badData);
    runExperiments.onPress([this] { RunExperiments(); }, orShow("Ошибка при выполнение плана", box));
    findCriterion.onPress([this] { ComputeCriterion(); }, orShow("Ошибка при обработке данных", box));
    fitCoefficients.onPress(
        [this] {
            const auto& Y = lab.plan.Yu;
            const bool computed = std::any_of(Y.begin(), Y.end(), [](double y) { return y != 0; });
            after(computed, noCoefficients, "критерий еще не рассчитан: сначала команда 4-2",
                  [this] { Fit15(); });
        },
        orShow(noCoefficients, box));
    optimizeFactors.onPress(
        [this] {
            after(fittedCriterion != std::array<double, 100>{}, noOptimum,
                  "уравнение регрессии еще не найдено: сначала команда 5", [this] { Optimize15(); });
        },
        orShow(noOptimum, box));
    moveToOptimum.onPress([this] {
        for (int i = 1; i <= gravityFactors; ++i) zeroLevel(i).setText(optimum(i).text());
    });
    drawPlots.onPress([this] { Plot15(); },
                      orShow("Ошибка при построение графиков\r\nПопробуйте увеличить масштаб", box));
    quality.report.onPress([this] { qualityReport(); }, orShow("Ошибка при обработке данных", box));
    quality.onGrowth(
        lab.plan, [this](int i) { return codedOptimum(lab.plan.Nfact[i]).number(); },
        [this](const auto& centre, double half) { growPlanAround(centre, half); }, badData);
    solveShifts.onPress([this] { SolveShifts(); }, orShow("Ошибка при решении по смещениям", box));
    confirmSolution.onPress([this] { ConfirmSolution(); }, orShow("Ошибка при выполнение плана", box));
    nextPlan.onPress([this] { NextPlan(); }, badData);
    clearDrawing.onPress([this] { page.drawEmpty(picture, true); });
    picture.onWipe([this] { page.drawEmpty(picture, true); });
    closeForm.onPress([this] { close(); });
    opens(openWeights, "Form19");
    opens(openFiles, "Form9");
    experimentEnd.onChange(
        [this] {
            if (confirming || telling) return;
            firstExperiment.show(lab.plan.Nexp + 1);
            runFromNext();
        },
        orShow("Ошибка при выполнение плана", box));
    layOut();
}

void PlanForm::load() {
    lab.series.kodData = dataNone;
    CreatePlan15();
}

void PlanForm::activate() { tellState(); }

CriterionForm PlanForm::criterionForm() const {
    if (criterionIsDifference.on()) return CriterionForm::dY;
    if (criterionIsSquare.on()) return CriterionForm::dY2;
    return criterionIsModulus.on() ? CriterionForm::AbsDY : CriterionForm::Y;
}

void PlanForm::tellState() {
    std::string text = planRead;
    if (observedLoaded && lab.shifts.dNab != observedAtLoad)
        text += std::string(text.empty() ? "" : ". ") +
                "Наблюдаемые смещения изменились после \"3-Загрузить\": загрузите их снова";
    planStatus.setCaption(text.empty() ? " " : text);
}

void PlanForm::CreatePlan15() {
    buildPlan();
    page = PlanPage::of(lab.plan.Nf, 58);
    lastExperiment.show(lab.plan.Nplan);
    page.drawEmpty(picture, true);
    printPlan();
}

/// The plan of the ticked factors and kind, with no points added.
void PlanForm::buildPlan() {
    PlanBlock& p = lab.plan;
    fittedCriterion = {};
    std::vector<int> factors;
    for (int i = 1; i <= gravityFactors; ++i)
        if (useFactor(i).on()) factors.push_back(i);
    createGravityPlan(p, rotatablePlan.on() ? planRoto : planOrtho, factors);
}

/// Brings the plan and the criterion beside it into sight.
void PlanForm::showPlan() {
    picture.lookAt(page.rows - planTop, page.rows - planTop - 1 - lab.plan.Nplan / 2.0);
}

void PlanForm::printPlan() {
    const PlanBlock& p = lab.plan;
    showPlan();
    picture.text(planLeft, page.rows - planTop,
                 "Номер эксперимента, уровни плана и значение критерия (экспериментальное и расчетное)");
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        const double y = page.rows - planTop - 0.5 - u / 2.0;
        picture.text(planLeft, y, std::to_string(u));
        for (int i = 1; i <= p.Nf; ++i) picture.text(i + 1, y, cut2(p.PlanX[i][u]));
    }
}

void PlanForm::printColumn(double x, const std::array<double, 100>& values) {
    for (int u = 1, last = experiments(lab.plan); u <= last; ++u)
        picture.text(x, page.rows - planTop - 0.5 - u / 2.0, cut3(values[u]));
}

std::string PlanForm::planFileName(int N, bool withBlank) const {
    std::string name = files::plan(N);
    if (withBlank) name.insert(name.rfind('\\'), " ");  // one of the messages has a blank here
    return name;
}

void PlanForm::showPlanOf(int plan) {
    if (plan > 0) planNumber.show(plan);
    std::error_code none;
    if (std::filesystem::exists(lab.tree.at(files::plan(planNumber.int16())), none)) loadPlan.press();
}

void openFreshPlan(Laboratory& lab, int plan) {
    const bool fresh = !lab.session.keeper.used(PlanForm::formName);
    lab.desk.show(PlanForm::formName);
    if (fresh) screenOf<PlanScreen>(lab.desk).showPlanOf(plan);
}

void PlanForm::LoadPlan15() {
    PlanBlock& p = lab.plan;
    const int N = planNumber.int16();
    PlanFileHead head;
    try {
        head = readPlanFile(lab.tree, N, p, lab.shifts);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + planFileName(N, false), box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка при чтении данных из файла " + planFileName(N, false), box);
    }
    takeAdded(head.added);
    double y = page.rows - 0.3;
    picture.lookAt(page.rows, page.rows - observedTop);
    const auto print = [&](const std::string& text) {
        picture.text(planLeft, y, text);
        y -= 0.55;
    };
    print(head.levels);
    print(head.kind);
    for (int i = 1; i <= gravityFactors; ++i) {
        zeroLevel(i).show(p.Xnul[i]);
        interval(i).show(p.dXvar[i]);
        currentLevel(i).show(p.Xnul[i] + (useFactor(i).on() ? p.dXvar[i] : 0));
        codedOptimum(i).show(p.Xopt[i]);
        optimum(i).show(p.XoptR[i]);
        print("X" + std::to_string(i) + "             " + toText(p.Xnul[i]) + "          " +
              toText(p.dXvar[i]) + "            Xopt" + std::to_string(i) + "             " +
              toText(p.Xopt[i]) + "          " + toText(p.XoptR[i]));
    }
    print(head.weights);
    for (int i = 1; i <= weightPlanets; ++i) {
        std::string text = "планета  " + std::to_string(i) + "           ";
        for (int c = 1; c <= shiftParams; ++c) text += (c > 1 ? "    " : "") + toText(lab.shifts.Ves[i][c]);
        print(text);
    }
}

/// A plan that had grown when it was saved grows again.
void PlanForm::takeAdded(const std::vector<std::vector<double>>& points) {
    if (points.empty()) return;
    if (static_cast<int>(points.front().size()) != lab.plan.Nf) {
        setStatus("Добавленные точки в файле плана - для " +
                  toText(static_cast<double>(points.front().size())) + " факторов, в плане их " +
                  toText(lab.plan.Nf));
        return;
    }
    buildPlan();
    addPoints(lab.plan, points);
    lastExperiment.show(lab.plan.Nplan);
    page.drawEmpty(picture, true);
    printPlan();
}

void PlanForm::readLevels() {
    for (int i = 1; i <= gravityFactors; ++i) {
        lab.plan.Xnul[i] = zeroLevel(i).number();
        lab.plan.dXvar[i] = interval(i).number();
    }
}

void PlanForm::SavePlan15() {
    PlanBlock& p = lab.plan;
    const int N = planNumber.int16();
    readLevels();
    for (int i = 1; i <= gravityFactors; ++i) {
        p.Xopt[i] = codedOptimum(i).number();
        p.XoptR[i] = optimum(i).number();
    }
    stage("Ошибка при записи данных в файл " + planFileName(N, true), box, [&] {
        const bool roto = p.kodPlan == planAugmented ? rotatablePlan.on() : p.kodPlan == planRoto;
        PlanFileHead head = PlanFileHead::of(N, roto, p.Nf);
        head.added = addedPoints(p);
        writePlanFile(lab.tree, N, head, p, lab.shifts);
    });
}

void PlanForm::LoadObserved15() {
    SeriesData& d = lab.series;
    d.kodData = dataNone;
    d.DirImit = jplImitator.on() ? "\\JPL" : ownImitator.on() ? "\\Ser" : "\\NEW";
    const std::string name = files::shifts(d.DirImit);
    ShiftFileHead head;
    try {
        head = readObservedShifts(lab.tree, d.DirImit, weightPlanets, lab.shifts);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, box);
    } catch (const FileFailure&) {
        throw Refusal("Ошибка при чтении данных из файла " + name, box);
    }
    stage("Ошибка при чтении данных из файла " + files::shiftErrors(d.DirImit), box,
          [&] { readObservedErrors(lab.tree, d.DirImit, lab.shifts); });
    d.kodData = dataImitatorShifts;
    observedAtLoad = lab.shifts.dNab;
    observedErrorsAtLoad = lab.shifts.dNabErr;
    observedLoaded = true;
    tellState();
    double y = page.rows - observedTop;
    picture.lookAt(y, page.rows - planTop);
    const auto print = [&](const std::string& text) {
        picture.text(planLeft, y, text);
        y -= 0.5;
    };
    print(head.title);
    print(
        "№ планеты      перигелий        угол восходящего узла       наклон орбиты"
        "               эксцентриситет    большая полуось эллипса    угловая скорость");
    constexpr const char* labels[] = {"",
                                      "    dAlfaP100  = ",
                                      "    dAlfaU100  = ",
                                      "    dBetta100  = ",
                                      "    dEks100  = ",
                                      "    dRsr100  = ",
                                      "    dW100  = "};
    constexpr const char* patterns[] = {"",         "0000.0000", "0000.0000", "000.00000",
                                        "000.0000", "0000.0000", "000.0000"};
    for (int i = 1; i <= weightPlanets; ++i) {
        std::string text = std::to_string(i);
        for (int c = 1; c <= shiftParams; ++c)
            text += labels[c] + Format(cut4(lab.shifts.dNab[i][c]), patterns[c]);
        print(text);
    }
}

void PlanForm::ComputeCriterion() {
    PlanBlock& p = lab.plan;
    p.b.fill(1);
    fittedCriterion = {};
    if (testExperiments.on())
        testCriterionOfPlan();
    else
        modelCriterion();
    findExtremes(p);
    criterionScale.show(cut6(p.Mcrit));
    criterionMinimum.show(cut6(p.Ymin));
    showPlan();
    printColumn(p.Nf + 2.5, p.Yu);
    plotExperiments(picture, p, p.Yu, 0.1, experimentColor);
}

void PlanForm::testCriterionOfPlan() {
    PlanBlock& p = lab.plan;
    for (int i = 1; i <= p.Nf; ++i) {
        const int factor = p.Nfact[i];
        zeroLevel(factor).setText("0");
        interval(factor).setText("1");
        p.Xnul[factor] = 0;
        p.dXvar[factor] = 1;
    }
    codedTest(p, criterionForm());
    planNumber.show(p.Z[1]);  // the test tells its value in the field of the plan number
}

void PlanForm::modelCriterion() {
    PlanBlock& p = lab.plan;
    if (lab.series.kodData == dataNone) throw Refusal("Загрузите данные наблюдений", box);
    const int N = lab.s.NPlan;  // as last set by any form: 0 after a batch
    planRead = "Критерий по файлам плана № " + toText(N);
    if (planNumber.text() != toText(N)) planRead += " (в поле плана № " + planNumber.text() + ")";
    tellState();
    const std::vector<int> planets = tickedPlanets(), params = tickedParameters();
    for (const int planet : planets) {
        const std::string name = files::planShifts(N, planet);
        std::int16_t count = 0;
        try {
            stage("Ошибка чтения данных из файла " + name, box,
                  [&] { readPlanShifts(lab.tree, N, planet, lab.shifts, count); });
        } catch (const Refusal& refusal) {
            const int plan =
                N == 0 ? typedPlan() : N;  // after a batch none is chosen: its records have that number
            leadToShifts(plan, planet);
            throw Refusal(refusal.text, refusal.title,
                          refusal.cause +
                              "; сделайте файл на форме 6: для имитатора \"Смещение в файле =\", "
                              "затем для модели, план № " +
                              toText(plan) + ", \"все из плана\" и \"Изменить смещение в файле\"");
        }
        if (count != p.Nplan)
            throw Refusal("К-во экспериментов в плане не равно к-ву в файле \r\n" + name, box);
    }
    for (int u = 1, last = experiments(p); u <= last; ++u)
        p.Yu[u] = shiftCriterion(lab.shifts, planets, params, u, criterionForm());
}

/// The number in the field of the plan; 0 where it holds none.
int PlanForm::typedPlan() const {
    int plan = 0;
    const std::string& typed = planNumber.text();
    std::from_chars(typed.data(), typed.data() + typed.size(), plan);
    return plan;
}

/// To the form that makes the shifts, set for it where the user has not done anything there yet.
void PlanForm::leadToShifts(int plan, int planet) {
    const auto observed = lab.series.kodData;  // a form that opens forgets the data
    const bool fresh = !lab.session.keeper.used(StatisticsScreen::formName);
    desk().show(StatisticsScreen::formName);
    if (fresh) screenOf<StatisticsScreen>(desk()).offerPlan(plan, planet);
    lab.series.kodData = observed;
}

void PlanForm::Fit15() {
    PlanBlock& p = lab.plan;
    FitRegression(p);
    evaluatePlan(p);
    fittedCriterion = p.Yu;
    fitQuality.setCaption(fitQualityText(p));
    const double y = page.rows - planTop - 0.6;
    showPlan();
    picture.text(p.Nf + 9, y, "Номер коэффициента уравнения регрессии и его значение");
    printCoefficients(picture, p, p.Nf + 9, y - planLine);
    printColumn(p.Nf + 5, p.Yras);
    drawLegend(picture);
    plotExperiments(picture, p, p.Yras, 0.2, regressionColor);
}

void PlanForm::Optimize15() {
    PlanBlock& p = lab.plan;
    const double top = page.rows - planTop - 1.5 - p.Nplan / 2.0;
    picture.lookAt(top, top - (p.Nf + 3) * 2 * planLine);
    printOptimum(picture, p, planLeft, top);
    for (int i = 1; i <= p.Nf; ++i) {
        const int factor = p.Nfact[i];
        codedOptimum(factor).show(cut6(p.Xopt[i]));
        optimum(factor).show(cut6(p.Xopt[i] * p.dXvar[factor] + p.Xnul[factor]));
    }
    stationaryPoint.setCaption(stationaryText(p));
}

void PlanForm::Plot15() {
    PlanBlock& p = lab.plan;
    p.Mcrit = criterionScale.number();
    p.Ymin = criterionMinimum.number();
    const Color color{lab.s.ColorR[1], lab.s.ColorG[1], lab.s.ColorB[1]};
    page.showPlots(picture);
    if (p.Mcrit == 0) {
        desk().suspect(criterionScale);
        throw Failure("масштаб M - нуль: критерий всех экспериментов почти один; задайте M больше нуля");
    }
    plotAlongFactors(
        picture, p, [&](int i) { return plotThroughOptimum.on() ? codedOptimum(p.Nfact[i]).number() : 0; },
        color);
}

void PlanForm::qualityReport() {
    PlanBlock p = lab.plan;
    if (fittedCriterion != std::array<double, 100>{}) p.Yu = fittedCriterion;
    quality.show(p, criterionIsSquare.on() || criterionIsModulus.on(), picture, page);
}

void PlanForm::growPlanAround(const std::vector<double>& centre, double half) {
    const int first = quality.add(lab.plan, centre, half);
    firstExperiment.show(first);
    lastExperiment.show(lab.plan.Nplan);
    page.drawEmpty(picture, true);
    printPlan();
}

}  // namespace tarvex
