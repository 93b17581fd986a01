#include "stats/drift_verdict.h"

#include <cmath>

#include "core/numbers.h"
#include "stats/quantiles.h"

namespace tarvex {

namespace {

std::string join(const std::vector<std::string>& parts, const char* between) {
    std::string out;
    for (const std::string& part : parts) out += (out.empty() ? "" : between) + part;
    return out;
}

/// A number to three digits of its error, or to six digits without one.
std::string rounded(double value, double error) {
    if (!(error > 0)) error = std::abs(value) / 1000;
    if (!(error > 0)) return toText(value);
    const double unit = std::pow(10, std::floor(std::log10(error)) - 1);
    return toText(toNumber(Format(std::round(value / unit) * unit, "0.000000000000")));
}

std::string withError(double value, double error) {
    return rounded(value, error) + " ± " + rounded(error, error);
}

bool hasVelocity(const DriftProblem& problem) {
    for (int i = 1; i < factorVgr; ++i)
        if (problem.unknown(i) || problem.levels[static_cast<std::size_t>(i)] != 0) return true;
    return false;
}

/// Velocities that are no unknowns: what the plan holds fast.
std::vector<std::string> givenVelocities(const DriftProblem& problem) {
    std::vector<std::string> names;
    for (int i = 1; i < factorVgr; ++i)
        if (!problem.unknown(i)) names.emplace_back(factorName(i));
    return names;
}

/// "только V/Vgr", where velocities and Vgr can grow together.
std::string ratioOnly(const DriftProblem& problem, const DriftSolution& solution) {
    if (!problem.unknown(factorVgr) || !hasVelocity(problem)) return "";
    const auto given = givenVelocities(problem);
    if (!given.empty()) return "определено только V/Vgr: заданы " + join(given, ", ");
    return solution.scaleLoose || !solution.inverseVgr ? "определено только V/Vgr" : "";
}

std::string found(const DriftSolution& solution) {
    std::vector<std::string> sure, lost;
    for (const SolvedFactor& one : solution.factors) {
        const std::string name = factorName(one.factor);
        if (!one.value)
            lost.push_back(name);
        else
            sure.push_back(name + " = " +
                           (one.error ? withError(*one.value, *one.error) : rounded(*one.value, 0)));
    }
    std::vector<std::string> parts;
    if (!sure.empty()) parts.push_back("найдено " + join(sure, ", "));
    if (!lost.empty()) parts.push_back("не определено " + join(lost, ", "));
    return join(parts, "; ");
}

std::string gravity(const DriftSolution& solution) {
    if (!solution.inverseVgr) return "";
    const SolvedRatio& u = *solution.inverseVgr;
    if (solution.lowestVgr)
        return "1/Vgr = " + withError(u.value, u.error) + " не отличается от 0: Vgr не меньше " +
               rounded(*solution.lowestVgr, *solution.lowestVgr / 100) + " Vsv (95 %)";
    if (u.value <= 0) return "1/Vgr = " + withError(u.value, u.error) + " меньше 0: такого Vgr нет";
    return "";
}

std::string agreement(const DriftSolution& solution) {
    if (!solution.errorsKnown)
        return "погрешности смещений не заданы" +
               std::string(solution.freedom > 0 ? ": взяты по разбросу" : "");
    if (solution.freedom < 1) return "степеней свободы нет, согласие смещений не проверено";
    const double chance = chiSquareTail(solution.chiSquare, solution.freedom);
    return chance < 0.05
               ? "смещения между собой не согласуются (вероятность " + Format(chance, "0.0000") + ")"
               : "смещения согласуются";
}

}  // namespace

const char* factorName(int factor) {
    constexpr const char* names[] = {"", "VX", "VY", "VZ", "Vgr", "kPgr1", "m0/m5", "m0/m2"};
    return names[factor];
}

std::string verdictText(const DriftProblem& problem, const DriftSolution& solution) {
    std::vector<std::string> parts;
    const int unknowns = static_cast<int>(problem.factors.size());
    if (solution.determined < unknowns)
        parts.push_back("Смещений " + std::to_string(problem.drifts.size()) + ", неизвестных " +
                        std::to_string(unknowns) + ": определено сочетаний " +
                        std::to_string(solution.determined) + " из " + std::to_string(unknowns));
    for (const std::string& part :
         {ratioOnly(problem, solution), gravity(solution), found(solution), agreement(solution)})
        if (!part.empty()) parts.push_back(part);
    // directions that a whole velocity or interval moves by less than the errors
    for (std::size_t i = 0; i < solution.singular.size(); ++i)
        if (static_cast<int>(i) < solution.determined && solution.singular[i] < 1 && solution.errorsKnown) {
            parts.push_back("слабо определено: изменение на целый уровень меньше погрешностей");
            break;
        }
    std::string text = join(parts, "; ");
    return text + ".";
}

}  // namespace tarvex
