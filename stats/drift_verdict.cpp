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
std::string ratioOnly(const Answer& answer) {
    if (!answer.seeksVgr || !answer.hasVelocity) return "";
    if (!answer.given.empty()) return "определено только V/Vgr: заданы " + join(answer.given, ", ");
    return answer.scaleLoose || !answer.inverseVgr ? "определено только V/Vgr" : "";
}

std::string found(const Answer& answer) {
    std::vector<std::string> sure, lost;
    for (const Answer::Value& one : answer.values) {
        if (!one.value)
            lost.push_back(one.name);
        else
            sure.push_back(one.name + " = " +
                           (one.error ? roundedWithError(*one.value, *one.error) : rounded(*one.value, 0)));
    }
    std::vector<std::string> parts;
    if (!sure.empty()) parts.push_back("найдено " + join(sure, ", "));
    if (!lost.empty()) parts.push_back("не определено " + join(lost, ", "));
    return join(parts, "; ");
}

std::string gravity(const Answer& answer) {
    if (!answer.inverseVgr) return "";
    const SolvedRatio& u = *answer.inverseVgr;
    if (answer.lowestVgr)
        return "1/Vgr = " + roundedWithError(u.value, u.error) + " не отличается от 0: Vgr не меньше " +
               rounded(*answer.lowestVgr, *answer.lowestVgr / 100) + " Vsv (95 %)";
    if (u.value <= 0) return "1/Vgr = " + roundedWithError(u.value, u.error) + " меньше 0: такого Vgr нет";
    return "";
}

std::string agreement(const Answer& answer) {
    if (!answer.errorsKnown)
        return "погрешности смещений не заданы" +
               std::string(answer.freedom > 0 ? ": взяты по разбросу" : "");
    if (answer.freedom < 1) return "степеней свободы нет, согласие смещений не проверено";
    const double chance = chiSquareTail(answer.chiSquare, answer.freedom);
    return answer.agreeing +
           (chance < 0.05 ? " между собой не согласуются (вероятность " + Format(chance, "0.0000") + ")"
                          : " согласуются");
}

}  // namespace

const char* factorName(int factor) {
    constexpr const char* names[] = {"", "VX", "VY", "VZ", "Vgr", "kPgr1", "m0/m5", "m0/m2"};
    return names[factor];
}

std::string rounded(double value, double error) {
    if (!(error > 0)) error = std::abs(value) / 1000;
    if (!(error > 0)) return toText(value);
    const double unit = std::pow(10, std::floor(std::log10(error)) - 1);
    return toText(toNumber(Format(std::round(value / unit) * unit, "0.000000000000")));
}

std::string roundedWithError(double value, double error) {
    return rounded(value, error) + " ± " + rounded(error, error);
}

std::string verdictText(const Answer& answer) {
    std::vector<std::string> parts;
    if (answer.determined < answer.unknowns)
        parts.push_back(answer.measured + ", неизвестных " + std::to_string(answer.unknowns) +
                        ": определено сочетаний " + std::to_string(answer.determined) + " из " +
                        std::to_string(answer.unknowns));
    for (const std::string& part : {ratioOnly(answer), gravity(answer), found(answer), agreement(answer)})
        if (!part.empty()) parts.push_back(part);
    if (answer.weak) parts.emplace_back("слабо определено: изменение на целый уровень меньше погрешностей");
    return join(parts, "; ") + ".";
}

std::string verdictText(const DriftProblem& problem, const DriftSolution& solution) {
    Answer answer;
    answer.measured = "Смещений " + std::to_string(problem.drifts.size());
    answer.agreeing = "смещения";
    answer.unknowns = static_cast<int>(problem.factors.size());
    answer.determined = solution.determined;
    for (const SolvedFactor& one : solution.factors)
        answer.values.push_back({factorName(one.factor), one.value, one.error});
    answer.seeksVgr = problem.unknown(factorVgr);
    answer.hasVelocity = hasVelocity(problem);
    answer.given = givenVelocities(problem);
    answer.scaleLoose = solution.scaleLoose;
    answer.inverseVgr = solution.inverseVgr;
    answer.lowestVgr = solution.lowestVgr;
    answer.errorsKnown = solution.errorsKnown;
    // directions that a whole velocity or interval moves by less than the errors
    for (int i = 0; i < solution.determined; ++i)
        answer.weak =
            answer.weak || (solution.errorsKnown && solution.singular[static_cast<std::size_t>(i)] < 1);
    answer.chiSquare = solution.chiSquare;
    answer.freedom = solution.freedom;
    return verdictText(answer);
}

}  // namespace tarvex
