#include "stats/drift_solution.h"

#include "tests/support/testing.h"

#include <random>

namespace tarvex {

namespace {

/// A plan of three levels in every unknown around the levels.
void setFactorial(DriftProblem& problem) {
    const std::size_t k = problem.factors.size();
    for (int point = 0; point < std::pow(3, k); ++point) {
        FactorValues values = problem.levels;
        for (std::size_t i = 0, rest = point; i < k; ++i, rest /= 3) {
            const auto f = static_cast<std::size_t>(problem.factors[i]);
            values[f] += (static_cast<int>(rest % 3) - 1) * problem.intervals[f];
        }
        problem.experiments.push_back(values);
    }
}

DriftProblem gravityProblem(std::vector<int> factors) {
    DriftProblem problem;
    problem.factors = std::move(factors);
    problem.levels = {0, 200, 200, 50, 220, 0, 1047.3486, 408523.71};
    problem.intervals = {0, 50, 50, 50, 40, 1, 1, 1};
    setFactorial(problem);
    return problem;
}

/// Drift of a planet that goes with V/Vgr strongly and with 1/Vgr faintly, and bends a little.
double truth(const FactorValues& v, int drift) {
    const double phase = 0.9 * drift, size = 60 + 10 * drift;
    const double x = v[1] / v[4], y = v[2] / v[4], z = v[3] / v[4];
    return 500 + 20 * drift + size * (x * std::cos(phase) + y * std::sin(phase)) +
           25 * z * std::cos(2 * phase) + 40 / v[4] * (1 + drift % 2) + 0.5 * x * y;
}

void setDrifts(DriftProblem& problem, int count, const FactorValues& at, double error, std::mt19937& random) {
    std::normal_distribution<double> normal;
    problem.drifts.clear();
    for (int d = 0; d < count; ++d) {
        Drift one{.planet = 1 + d / 2, .param = 1 + d % 2, .observedError = error};
        one.observed = truth(at, d) + error * normal(random);
        for (const FactorValues& v : problem.experiments)
            one.calculated.push_back(truth(v, d) + 0.05 * normal(random));
        problem.drifts.push_back(one);
    }
}

}  // namespace

TEST(Drifts, NineRunsOfMercuryGiveTheAnswerThatTheirSquaredCriterionMisses) {
    // perihelion and node of the nine runs of the shipped main road, and the shifts of JPL0
    constexpr double perihelion[] = {572.139217, 593.514435, 567.630908, 585.996819, 580.216243,
                                     575.066935, 570.559925, 588.790980, 577.457217},
                     node[] = {-430.885317, -421.748457, -457.489174, -461.861812, -427.528786,
                               -459.046919, -444.563604, -441.858646, -443.220997};
    constexpr int codes[][2] = {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}, {0, 0}};
    DriftProblem problem;
    problem.factors = {1, 4};
    problem.levels = {0, 200, 200, 0, 220, 0, 1047.3486, 408523.71};
    problem.intervals = {0, 50, 1, 1, 40, 1, 1, 1};
    for (const auto& code : codes) {
        problem.experiments.push_back(problem.levels);
        problem.experiments.back()[1] += 50 * code[0];
        problem.experiments.back()[4] += 40 * code[1];
    }
    problem.drifts = {{.planet = 1, .param = 1, .observed = 577.715253, .calculatedError = 0.7},
                      {.planet = 1, .param = 2, .observed = -451.243912, .calculatedError = 0.7}};
    problem.drifts[0].calculated.assign(std::begin(perihelion), std::end(perihelion));
    problem.drifts[1].calculated.assign(std::begin(node), std::end(node));
    const DriftSolution s = solveDrifts(problem);
    EXPECT_NEAR(*s.factors[0].value, 175.3, 1);
    EXPECT_NEAR(*s.factors[1].value, 214.7, 1);
    EXPECT_NEAR(s.chiSquare, 0, 1e-12);
    EXPECT_EQ(s.freedom, 0);
    EXPECT_NE(s.verdict.find("определено только V/Vgr: заданы VY, VZ"), std::string::npos) << s.verdict;
    // what the solution rests on: the same ratios at twice the velocities are as good
    EXPECT_NEAR(predictDrifts(problem, {0, *s.factors[0].value, 200, 0, *s.factors[1].value, 0, 1, 1})[0],
                577.715253, 1e-6);

    problem.model = DriftModel::Quadratic;  // nearly as good, as the drifts themselves are no squares
    const DriftSolution q = solveDrifts(problem);
    EXPECT_NEAR(*q.factors[0].value, 175.3, 5);
    EXPECT_NEAR(*q.factors[1].value, 214.7, 5);

    const auto map = profileMap(problem, s);
    ASSERT_TRUE(map);
    EXPECT_FALSE(map->contour(contour68()).empty());
    for (const auto& piece : map->contour(contour95()))  // a contour lies outside the errors of one unknown
        EXPECT_GT(std::hypot((piece.x1 - *s.factors[0].value) / *s.factors[0].error,
                             (piece.y1 - *s.factors[1].value) / *s.factors[1].error),
                  1);
}

TEST(Drifts, KnownParametersComeBackWithinTheirErrors) {
    std::mt19937 random(99);
    const FactorValues at = {0, 185, 200, 50, 230, 0, 1047.3486, 408523.71};
    for (const DriftModel model : {DriftModel::Ratio, DriftModel::Quadratic}) {
        DriftProblem problem = gravityProblem({1, 4});
        problem.model = model;
        int within = 0, all = 0;
        double chi = 0, left = 0;
        for (int trial = 0; trial < 200; ++trial) {
            setDrifts(problem, 6, at, 1, random);
            const DriftSolution s = solveDrifts(problem);
            for (const SolvedFactor& f : s.factors) {
                within += std::abs(*f.value - at[static_cast<std::size_t>(f.factor)]) <= 2 * *f.error;
                ++all;
            }
            chi += s.chiSquare / 200;
            for (const LeftOutDrift& one : leaveOnePlanetOut(problem))
                left += std::pow(*one.residual, 2) / 1200;
        }
        EXPECT_NEAR(within, 0.954 * all, 0.025 * all);  // of the normal distribution, by 200 trials
        EXPECT_NEAR(chi, 4, 0.6);                       // its degrees of freedom
        EXPECT_NEAR(left, 1, 0.15);  // a planet that took no part is predicted within its error
    }
}

TEST(Drifts, WhatIsNotDeterminedIsNotCalledSo) {
    std::mt19937 random(3);
    const FactorValues at = {0, 185, 210, 40, 230, 0, 1047.3486, 408523.71};
    DriftProblem four = gravityProblem({1, 2, 3, 4});
    setDrifts(four, 2, at, 1, random);
    const DriftSolution two = solveDrifts(four);
    EXPECT_EQ(two.determined, 2);
    for (const SolvedFactor& f : two.factors) EXPECT_FALSE(f.value || f.error) << f.factor;
    EXPECT_NE(two.verdict.find("Смещений 2, неизвестных 4"), std::string::npos) << two.verdict;
    EXPECT_NE(two.verdict.find("не определено VX, VY, VZ, Vgr"), std::string::npos) << two.verdict;

    // eight drifts, enough in number: the ratios come out, their scale does not
    setDrifts(four, 8, at, 1, random);
    const DriftSolution eight = solveDrifts(four);
    EXPECT_EQ(eight.determined, 4);
    EXPECT_TRUE(eight.scaleLoose);
    EXPECT_FALSE(eight.factors[3].value);
    EXPECT_GT(*eight.lowestVgr, 0);
    EXPECT_NEAR(eight.ratios[0].value, 185.0 / 230, 3 * eight.ratios[0].error);
    EXPECT_LT(eight.ratios[0].error, 0.1);
    EXPECT_NE(eight.verdict.find("определено только V/Vgr"), std::string::npos) << eight.verdict;
    EXPECT_NE(eight.verdict.find("Vgr не меньше"), std::string::npos) << eight.verdict;
    double before = 0, after = 0;  // velocities and Vgr doubled
    const auto once = predictDrifts(four, at),
               twice = predictDrifts(four, {0, 370, 420, 80, 460, 0, 1047.3486, 408523.71});
    for (std::size_t d = 0; d < 8; ++d) {
        before += std::pow(four.drifts[d].observed - once[d], 2);
        after += std::pow(four.drifts[d].observed - twice[d], 2);
    }
    EXPECT_LT(std::abs(after - before), 1);
    ASSERT_TRUE(profileMap(four, eight, 4, 11)->ratios);

    for (Drift& d : four.drifts) d.calculated.resize(4);
    four.experiments.resize(4);
    EXPECT_THROW(solveDrifts(four), Refusal);
    four.drifts.clear();
    EXPECT_THROW(solveDrifts(four), Refusal);
}

}  // namespace tarvex
