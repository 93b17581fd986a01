// Reduction of observations: the experiments of a plan on observations, their regression and what is printed
// of them.
#include <algorithm>

#include "core/arithmetic.h"
#include "core/clock.h"
#include "core/numbers.h"
#include "forms/observations_form.h"
#include "stats/stat.h"

namespace tarvex {

namespace {

constexpr double responseColumn = 8.5, regressionColumn = 11.5, coefficientColumn = 20;
constexpr double firstResponse = 10.5;  ///< below the top of the graph
constexpr double factorColumn = 1.1;    ///< width

std::string cutText(double value, double scale) { return toText(Fix(value * scale) / scale); }

}  // namespace

void ObservationsForm::printResponse(int k) {
    residualGraph.text(responseColumn, graphTop() - firstResponse - k / 2.0, toText(cut6(lab.plan.Yu.at(k))));
}

/// Brings the plan and its results into sight.
void ObservationsForm::lookAtExperiments() {
    residualGraph.lookAt(graphTop(), graphTop() - firstResponse - (lab.plan.Nplan + 1) / 2.0);
}

void ObservationsForm::runExperiments() {
    if (running_) return;
    lookAtExperiments();
    PlanBlock& plan = lab.plan;
    ReductionState& r = lab.reduction;
    const auto bounds = [this, &plan](int& first, int& last) {
        first = firstExperiment.int32();
        last = lastExperiment.int32();
        if (first < 1 || last > plan.Nplan)
            throw SubscriptFailure("экспериментов с " + std::to_string(first) + " по " +
                                   std::to_string(last) + " в плане нет");
    };
    int first = 0, last = 0;
    if (testRegression.on()) {
        bounds(first, last);
        screenOf<ObservationPlanScreen>(desk()).showCodedLevels();
        runTestOfRegression(plan, first, last);
        for (int k = first; k <= last; ++k) printResponse(k);
        return;
    }
    if (!ReadRunParams()) return;
    bounds(first, last);
    layOutExperiments(plan, last);
    if (first != stoppedAt_) firstOfBatch_ = first;  // otherwise a stopped batch goes on
    stoppedAt_ = 0;
    for (int k = first; k <= last; ++k) {
        firstExperiment.show(k);
        r.experiment = k;
        startPasses(reduction());
        pass();
        if (r.NObs > 0) printResponse(k);
        if (lab.s.kodStop == 1) {
            stoppedAt_ = k;
            break;
        }
        if (!r.choices.tables) r.file.rewind();
    }
    if (stoppedAt_ == 0) firstExperiment.show(firstOfBatch_);  // the next press runs them all again
    restoreStart();
    if (soundAtEnd.on()) desk().screen().notify("Эксперименты выполнены");
}

void ObservationsForm::findRegression() {
    PlanBlock& plan = lab.plan;
    fitResponses(plan);
    lookAtExperiments();
    const double top = graphTop() - firstResponse;
    printCoefficients(residualGraph, plan, coefficientColumn, top);
    for (int k = 1; k <= plan.Nplan; ++k)
        residualGraph.text(regressionColumn, top - k / 2.0, toText(cut6(plan.Yras[k])), regressionColor);
}

/// The report of the regression, on an empty graph.
void ObservationsForm::qualityReport() {
    const auto lines = quality.fill(lab.plan, !testRegression.on());
    clearGraph();
    residualGraph.lookAt(graphTop(), graphTop() - static_cast<double>(lines.size()) * planLine);
    printLines(residualGraph, lines, graphTop());
}

bool ObservationsForm::sourceChosen() const {
    return fromTables.on() ? !tableChoice(0).on() : !observatoryChoice(0).on();
}

std::optional<double> ObservationsForm::criterion() const {
    if (distanceCriterion.text().empty()) return std::nullopt;
    return (judgeByLongitude.on() ? longitudeCriterion : distanceCriterion).number();
}

void ObservationsForm::showFirstDay(std::int32_t firstYear, std::int32_t firstMonth, double firstDay) {
    year.show(firstYear);
    month.show(firstMonth);
    day.show(firstDay);
}

void ObservationsForm::takeDate() { dateSignal.setText(timeOfDay()); }

void ObservationsForm::showPlan() { planSignal.setText(timeOfDay()); }

void ObservationsForm::showOptimum() {
    PlanBlock& plan = lab.plan;
    constexpr double belowPlan = 24, afterSystem = 12;
    const double top = graphTop() - belowPlan;
    residualGraph.lookAt(top, top - (plan.Nf + 3) * 2 * planLine);
    printOptimum(residualGraph, plan, planLeft, top);
    for (int f = 1; f <= plan.Nf; ++f)
        residualGraph.text(afterSystem, top - (f + 1) * planLine, toText(plan.Xopt[f]));
}

/// More points for the plan; they are run next.
void ObservationsForm::growPlanAround(const std::vector<double>& centre, double half) {
    firstExperiment.show(quality.add(lab.plan, centre, half));
    lastExperiment.show(lab.plan.Nplan);
    ShowPlanSummary();
}

void ObservationsForm::plotFactors() {
    PlanBlock& plan = lab.plan;
    if (plan.Nplan < 1) throw Failure("план не создан");
    const auto [least, most] = std::minmax_element(plan.Yu.begin() + 1, plan.Yu.begin() + 1 + plan.Nplan);
    plan.Ymin = *least;
    plan.Ymax = *most;
    plan.Mcrit = (plan.Ymax - plan.Ymin) / 10;
    page_.showPlots(residualGraph);
    plotAlongFactors(
        residualGraph, plan, [&plan](int i) { return plan.Xopt[i]; }, regressionColor);
}

/// The plan as it stands: levels and optimum of the factors, speeds, the table of its points.
void ObservationsForm::ShowPlanSummary() {
    const PlanBlock& plan = lab.plan;
    const ReductionState& r = lab.reduction;
    clearGraph();
    double y = graphTop();
    lookAtExperiments();
    const auto print = [&](const std::string& text) {
        residualGraph.text(planLeft, y, text);
        y -= planLine;
    };
    std::string second = r.header;
    for (const bool skip : {true, false}) {
        const auto end = second.find("\r\n");
        second = skip ? (end == std::string::npos ? "" : second.substr(end + 2)) : second.substr(0, end);
    }
    print(second);
    print(std::to_string(lab.s.God0) + " по " + std::to_string(r.GodK));
    print("Нулевые уровни, интервалы варьирования и оптимальные значения параметров");
    for (int i = 1; i <= 9; ++i)
        print("X" + std::to_string(i) + "   " + cutText(plan.Xnul[i], 1e9) + "   " + toText(plan.dXvar[i]) +
              "            Xopt" + std::to_string(i) + "   " + cutText(plan.Xopt[i], 1e6) + "   " +
              cutText(plan.XoptR[i], 1e9));
    print("Скорость Солнечной системы по осям X Y Z км/с и прецессия (угл. сек.) за 100 лет и вес точки");
    const ToolVelocity::Value system = lab.reduction.velocity.of(lab.s);
    print(toText(system.X) + "   " + toText(system.Y) + "   " + toText(system.Z) + "   " +
          toText(r.choices.Precess) + "   " + cutText(plan.Xnul[8], 1e6));
    print("Номер эксперимента, уровни и значение критерия (экспериментальное и расчетное)");
    for (int k = 1; k <= plan.Nplan; ++k) {
        const double line = graphTop() - firstResponse - k / 2.0;
        residualGraph.text(planLeft, line, std::to_string(k));
        for (int f = 1; f <= plan.Nf; ++f)
            residualGraph.text(planLeft + factorColumn * f, line, cutText(plan.PlanX[f][k], 100));
    }
}

}  // namespace tarvex
