#include "stats/drift_results.h"

#include <algorithm>
#include <cmath>

#include "core/name_table.h"
#include "core/numbers.h"
#include "stats/drift_verdict.h"

namespace tarvex {

namespace {

std::string four(double v) { return Format(v, "0.0000"); }
std::string two(double v) { return Format(v, "0.00"); }

const char* paramName(int param) {
    constexpr const char* names[] = {"", "dAlfaP", "dAlfaU", "dBetta", "dEks", "dRsr", "dW"};
    return names[param];
}

}  // namespace

void addNames(NameTable& table, const DriftResults& r) {
    table.add("SolvedCorrelation", r.SolvedCorrelation);
    table.add("SolvedResidual", r.SolvedResidual);
    table.add("LeftOut", r.LeftOut);
    table.add("Predicted", r.Predicted);
    table.add("Measured", r.Measured);
}

void keepSolution(const DriftProblem& problem, const DriftSolution& solution,
                  const std::vector<LeftOutDrift>& leftOut, DriftResults& results) {
    results = {};
    for (std::size_t i = 0; i < problem.factors.size(); ++i)
        for (std::size_t j = 0; j < problem.factors.size(); ++j)
            results.SolvedCorrelation[static_cast<std::size_t>(problem.factors[i])]
                                     [static_cast<std::size_t>(problem.factors[j])] =
                solution.correlation[i][j];
    for (std::size_t d = 0; d < problem.drifts.size(); ++d) {
        const auto planet = static_cast<std::size_t>(problem.drifts[d].planet),
                   param = static_cast<std::size_t>(problem.drifts[d].param);
        results.SolvedResidual[planet][param] = solution.residual[d];
        results.Predicted[planet][param] = solution.predicted[d];
        results.LeftOut[planet][param] = leftOut[d].residual.value_or(0);
    }
}

DriftProblem problemOf(const PlanBlock& p, const ShiftTables& t, const std::vector<int>& planets,
                       const std::vector<int>& params, DriftModel model) {
    DriftProblem problem;
    problem.model = model;
    for (int i = 1; i <= p.Nf; ++i) problem.factors.push_back(p.Nfact[i]);
    for (int i = 1; i <= gravityFactors; ++i) {
        const auto at = static_cast<std::size_t>(i);
        problem.levels[at] = p.Xnul[at];
        problem.intervals[at] = p.dXvar[at];
    }
    for (int u = 1, last = experiments(p); u <= last; ++u) {
        FactorValues values{};
        for (int i = 1; i <= gravityFactors; ++i) values[static_cast<std::size_t>(i)] = p.XU[i][u];
        problem.experiments.push_back(values);
    }
    for (const int planet : planets)
        for (const int param : params) {
            Drift drift;
            drift.planet = planet;
            drift.param = param;
            drift.observed = t.dNab[planet][param];
            drift.observedError = t.dNabErr[planet][param];
            for (int u = 1; u <= p.Nplan; ++u) {
                drift.calculated.push_back(t.dRas[planet][param][u]);
                drift.calculatedError += std::pow(t.dRasErr[planet][param][u], 2) / p.Nplan;
            }
            drift.calculatedError = std::sqrt(drift.calculatedError);
            problem.drifts.push_back(std::move(drift));
        }
    return problem;
}

std::vector<std::string> solutionLines(const DriftProblem& problem, const DriftSolution& solution,
                                       const std::vector<LeftOutDrift>& leftOut) {
    std::vector<std::string> lines = {"Решение по смещениям: хи-квадрат = " + four(solution.chiSquare) +
                                      "   степеней свободы " + std::to_string(solution.freedom)};
    for (std::size_t i = 0; i < solution.factors.size(); ++i) {
        const SolvedFactor& one = solution.factors[i];
        std::string line =
            std::string(factorName(one.factor)) + " = " +
            (one.value ? four(*one.value) + (one.error ? " ± " + four(*one.error) : "") : "не определено") +
            "   корреляции";
        for (std::size_t j = 0; j < solution.factors.size(); ++j)
            line += "  " + Format(solution.correlation[i][j], "0.000");
        lines.push_back(line);
    }
    std::size_t velocity = 0;
    for (const SolvedRatio& one : solution.ratios) {
        while (velocity < problem.factors.size() && problem.factors[velocity] >= factorVgr) ++velocity;
        lines.push_back(std::string(factorName(problem.factors[velocity++])) + "/Vgr = " +
                        Format(one.value, "0.000000") + " ± " + Format(one.error, "0.000000") + " км/с");
    }
    if (solution.inverseVgr)
        lines.push_back("1/Vgr = " + Format(solution.inverseVgr->value, "0.00000000") + " ± " +
                        Format(solution.inverseVgr->error, "0.00000000"));
    std::string line = "сингулярные числа, изменение смещений в погрешностях:";
    for (const double one : solution.singular) line += "  " + four(one);
    lines.push_back(line);
    lines.emplace_back(
        "планета, параметр: наблюдаемое, по модели, разность в погрешностях; без этой планеты");
    for (std::size_t d = 0; d < problem.drifts.size(); ++d) {
        const Drift& drift = problem.drifts[d];
        lines.push_back(std::to_string(drift.planet) + " " + paramName(drift.param) + ":  " +
                        four(drift.observed) + "   " + four(solution.predicted[d]) + " ± " +
                        four(solution.sigma[d]) + "   " + two(solution.residual[d]) + ";   " +
                        (leftOut[d].residual ? four(*leftOut[d].predicted) + "   " + two(*leftOut[d].residual)
                                             : "не определено"));
    }
    for (std::size_t from = 0; from < solution.verdict.size();) {  // a long sentence, part by part
        const std::size_t end = std::min(solution.verdict.find("; ", from), solution.verdict.size() - 1) + 1;
        lines.push_back(solution.verdict.substr(from, end - from));
        from = end + (end < solution.verdict.size() ? 1 : 0);
    }
    return lines;
}

}  // namespace tarvex
