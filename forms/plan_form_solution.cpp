// The plan: the answer by drifts.  Solves for the factors, shows what is determined, draws the contours of
// profile likelihood, and confirms the solution by an experiment.

#include "core/arithmetic.h"
#include "forms/plan_form.h"
#include "stats/drift_verdict.h"
#include "stats/gravity_plan.h"
#include "stats/series_shift.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7m";
constexpr Color red{250, 0, 0}, blue{0, 0, 250}, grey{150, 150, 150};

void set(TextField& field, const std::optional<double>& value) {
    if (value)
        field.show(cut6(*value));
    else
        field.setText("");
}

}  // namespace

std::vector<int> PlanForm::tickedPlanets() const {
    std::vector<int> planets;
    for (int planet = 1; planet <= weightPlanets; ++planet)
        if (usePlanet(planet).on()) planets.push_back(planet);
    return planets;
}

std::vector<int> PlanForm::tickedParameters() const {
    std::vector<int> params;
    for (int c = 1; c <= shiftParams; ++c)
        if (useParameter(c).on()) params.push_back(c);
    return params;
}

/// The plan of the form with its files of shifts, and the observed shifts as "3-" has read them: fits write
/// over the table of the observed ones.
DriftProblem PlanForm::problemOfPlan() {
    PlanBlock& p = lab.plan;
    if (!observedLoaded) throw Refusal("Загрузите данные наблюдений", box);
    const int N = planNumber.int16();
    readLevels();
    setNaturalLevels(p);
    const std::vector<int> planets = tickedPlanets(), params = tickedParameters();
    for (const int planet : planets) {
        const std::string name = files::planShifts(N, planet);
        std::int16_t count = 0;
        stage("Ошибка чтения данных из файла " + name, box,
              [&] { readPlanShifts(lab.tree, N, planet, lab.shifts, count); });
        if (count != p.Nplan)
            throw Refusal("К-во экспериментов в плане не равно к-ву в файле \r\n" + name, box);
        stage("Ошибка чтения данных из файла " + files::planShiftErrors(N, planet), box,
              [&] { readPlanErrors(lab.tree, N, planet, lab.shifts); });
    }
    ShiftTables tables = lab.shifts;
    tables.dNab = observedAtLoad;
    tables.dNabErr = pairedErrors.on() ? ShiftTable{} : observedErrorsAtLoad;
    return problemOf(p, tables, planets, params,
                     solveModel(1).on() ? DriftModel::Quadratic : DriftModel::Ratio);
}

void PlanForm::SolveShifts() {
    solution.reset();
    for (SolvedFields* one :
         {&solvedVX, &solvedVY, &solvedVZ, &solvedVgr, &solvedKPgr1, &solvedM5, &solvedM2}) {
        one->value.setText("");
        one->error.setText("");
    }
    for (TextField* field : {&solvedVgrLow, &chiSquare, &freedom, &verdict}) field->setText("");
    lab.answer = {};
    solvedProblem = problemOfPlan();
    DriftSolution found = solveDrifts(solvedProblem);
    const auto leftOut = leaveOnePlanetOut(solvedProblem);
    keepSolution(solvedProblem, found, leftOut, lab.answer);
    solution = std::move(found);
    showSolution(leftOut);
}

void PlanForm::showSolution(const std::vector<LeftOutDrift>& leftOut) {
    SolvedFields* const fields[] = {nullptr,    &solvedVX,    &solvedVY, &solvedVZ,
                                    &solvedVgr, &solvedKPgr1, &solvedM5, &solvedM2};
    for (const SolvedFactor& one : solution->factors) {
        set(fields[one.factor]->value, one.value);
        set(fields[one.factor]->error, one.error);
    }
    set(solvedVgrLow, solution->lowestVgr);
    chiSquare.show(cut6(solution->chiSquare));
    freedom.show(solution->freedom);
    verdict.setText(solution->verdict);
    page.drawEmpty(picture, true);
    const auto lines = solutionLines(solvedProblem, *solution, leftOut);
    picture.lookAt(page.rows, page.rows - 16 - static_cast<double>(lines.size()) * planLine);
    const double below = printLines(picture, lines, page.rows - 0.3);
    if (const auto map = profileMap(solvedProblem, *solution)) drawContours(*map, below - 1.5);
}

/// Contours that hold both unknowns with 68 (red) and 95 % (blue), below `top`.
void PlanForm::drawContours(const ProfileMap& map, double top) {
    constexpr double left = 4, right = 24;
    const double bottom = top - 12;
    const auto x = [&](double v) {
        return left + (right - left) * ratio(v - map.x.front(), map.x.back() - map.x.front());
    };
    const auto y = [&](double v) {
        return bottom + (top - bottom) * ratio(v - map.y.front(), map.y.back() - map.y.front());
    };
    for (const double side : {left, right}) picture.line(side, bottom, side, top, grey);
    for (const double side : {bottom, top}) picture.line(left, side, right, side, grey);
    for (const bool wide : {false, true})
        for (const auto& piece : map.contour(wide ? contour95() : contour68()))
            picture.line(x(piece.x1), y(piece.y1), x(piece.x2), y(piece.y2), wide ? blue : red);
    picture.disc((left + right) / 2, (bottom + top) / 2, 0.1, red);
    const std::string across = std::string(factorName(map.first)) + (map.ratios ? "/Vgr, км/с" : ""),
                      up = map.ratios ? "1/Vgr" : factorName(map.second);
    picture.text(left, bottom - 0.1, toText(cut6(map.x.front())));
    picture.text(right - 2, bottom - 0.1, toText(cut6(map.x.back())));
    picture.text((left + right) / 2 - 1, bottom - 0.1, across);
    picture.text(left - 3, bottom + 0.5, toText(cut6(map.y.front())));
    picture.text(left - 3, top, toText(cut6(map.y.back())));
    picture.text(left - 3, (bottom + top) / 2, up);
    picture.text(left, top + 0.6, "Правдоподобие по профилю: 68 % (красный), 95 % (синий)");
}

void PlanForm::ConfirmSolution() {
    if (!solution) throw Refusal("Сначала решите по смещениям", box);
    FactorValues values = solvedProblem.levels;
    for (const SolvedFactor& one : solution->factors) {
        if (!one.value) throw Refusal("Решение не определено, проверять нечего", box);
        values[static_cast<std::size_t>(one.factor)] = *one.value;
    }
    const int number = experiments(lab.plan) + 1;
    if (number > maxPoints) throw Refusal("В плане не может быть больше 91 эксперимента", box);
    lab.answer.Measured = {};
    for (const int planet : tickedPlanets()) {
        if (!runSolution(values, planet, number)) return;
        measureSolution(planet, number);
    }
    std::vector<std::string> lines = {
        "Проверка решения: планета, параметр, по модели, измерено, разность в погрешностях"};
    for (std::size_t d = 0; d < solvedProblem.drifts.size(); ++d) {
        const Drift& drift = solvedProblem.drifts[d];
        const double measured =
            lab.answer
                .Measured[static_cast<std::size_t>(drift.planet)][static_cast<std::size_t>(drift.param)];
        lines.push_back(std::to_string(drift.planet) + "  " + std::to_string(drift.param) + "   " +
                        Format(solution->predicted[d], "0.0000") + "   " + Format(measured, "0.0000") +
                        "   " + Format(ratio(measured - solution->predicted[d], solution->sigma[d]), "0.00"));
    }
    page.drawEmpty(picture, true);
    picture.lookAt(page.rows, page.rows - static_cast<double>(lines.size()) * planLine);
    printLines(picture, lines, page.rows - 0.3);
}

/// Shifts of a planet in the experiment at the solution, lines through all its passages; with the periodic
/// terms of the planets where the screen of statistics fits with them.
void PlanForm::measureSolution(int planet, int number) {
    SeriesData series;
    const std::string name = files::runRecord(planNumber.int16(), planet, number);
    stage("Ошибка чтения данных из файла " + name, box,
          [&] { readSeries(lab.tree, name, dataModel, series); });
    series.kodData = dataModel;
    series.Npl = planet;
    const auto* statistics = loadedScreen<StatisticsScreen>(desk());
    for (const int param : tickedParameters())
        lab.answer.Measured[static_cast<std::size_t>(planet)][static_cast<std::size_t>(param)] =
            seriesShift(series, param, statistics != nullptr && statistics->fitsPeriods()).shift;
}

void PlanForm::NextPlan() {
    if (!solution) throw Refusal("Сначала решите по смещениям", box);
    bool moved = false;
    for (const SolvedFactor& one : solution->factors) {
        if (!one.value) continue;
        const double before = interval(one.factor).number();
        zeroLevel(one.factor).show(cut6(*one.value));
        interval(one.factor).show(cut6(std::min(before, std::max(before / 2, 2 * one.error.value_or(0)))));
        moved = true;
    }
    if (!moved) throw Refusal("Решение не определено, план двигать некуда", box);
}

}  // namespace tarvex
