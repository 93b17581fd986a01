#include "stats/regression_report.h"

#include "stats/bench.h"
#include "stats/plan_growth.h"
#include "stats/stat.h"
#include "stats/stationary_point.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

PlanBlock builtPlan(int kind, int Nf, int N0) {
    PlanBlock p;
    p.kodPlan = static_cast<std::int16_t>(kind);
    p.Nf = static_cast<std::int16_t>(Nf);
    p.N0 = static_cast<std::int16_t>(N0);
    BuildPlan(p);
    PlanCoefficients(p);
    for (int i = 1; i <= Nf; ++i) p.Nfact[i] = static_cast<std::int16_t>(i);
    return p;
}

/// A criterion with a known surface and something on it that is no noise but looks like it.
void measure(PlanBlock& p) {
    for (int u = 1; u <= p.Nplan; ++u) {
        const double x = p.PlanX[1][u], y = p.PlanX[2][u];
        p.Yu[u] = 10 + 2 * x - y + 1.5 * x * y + x * x + std::sin(7.0 * u);
    }
}

}  // namespace

TEST(RegressionReport, FiguresAreThoseOfR) {
    // R 4.2.2: lm, summary, anova of the nested models, hatvalues, lm of a column on the others
    struct Case {
        int kind, Nf, N0;
        double b0, error0, square, errorSquare, tSquare, chanceSquare;
        double F[3], chance[3], sum[3];
        double R2, adjusted, predictive, inflationSquare, lackF, lackChance;
    };
    const Case cases[] = {{planOrtho,
                           2,
                           1,
                           9.160178597,
                           0.6664582626,
                           1.671057845,
                           0.6322578226,
                           2.643000665,
                           0.0774565364362,
                           {21.69891, 8.13522, 3.95169},
                           {0.016441, 0.064990, 0.144324},
                           {34.6965602016, 6.5041050507, 6.3187544622},
                           0.9519511279,
                           0.8718696745,
                           0.6315229088,
                           1,
                           0,
                           0},
                          {planRoto,
                           3,
                           5,
                           9.809311553973,
                           0.3682383073,
                           1.151860455079,
                           0.2231284980,
                           5.162318867734,
                           5.932432335e-04,
                           {42.19598, 9.44347, 9.53937},
                           {1.2582e-05, 0.0038439, 0.0037168},
                           {86.0283958004, 19.2531813651, 19.4486874300},
                           0.9532556072,
                           0.9065112145,
                           0.7564648182,
                           1.03908287,
                           1.13973,
                           0.4625},
                          {planOrtho,
                           4,
                           1,
                           9.805197940908,
                           0.3622092319,
                           1.011256143594,
                           0.2134338367,
                           4.73803104120,
                           7.944704054e-04,
                           {54.44734, 17.36703, 7.92760},
                           {9.4254e-07, 9.2921e-05, 0.0038031},
                           {79.3694197283, 37.9746037051, 11.5562849699},
                           0.9725049574,
                           0.9340118977,
                           0.8366732792,
                           1,
                           0,
                           0}};
    for (const Case& c : cases) {
        PlanBlock p = builtPlan(c.kind, c.Nf, c.N0);
        measure(p);
        FitRegression(p);
        const RegressionReport report = reportRegression(p);
        EXPECT_LT(report.awayFromPlan, 1e-12);
        EXPECT_NEAR(report.coefficients[0].value, c.b0, 1e-8);
        EXPECT_NEAR(*report.coefficients[0].error, c.error0, 1e-9);
        const CoefficientReport& square =
            report.coefficients[static_cast<std::size_t>(squareColumn(c.Nf, 1))];
        EXPECT_NEAR(square.value, c.square, 1e-8);
        EXPECT_NEAR(*square.error, c.errorSquare, 1e-9);
        EXPECT_NEAR(*square.t, c.tSquare, 1e-8);
        EXPECT_NEAR(*square.chance, c.chanceSquare, 1e-9);
        EXPECT_NEAR(*square.inflation, c.inflationSquare, 1e-7);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(report.variance[i].sum, c.sum[i], 1e-9);
            EXPECT_NEAR(*report.variance[i].F, c.F[i], 1e-5);
            EXPECT_NEAR(*report.variance[i].chance / c.chance[i], 1, 1e-4);
        }
        EXPECT_NEAR(*report.R2, c.R2, 1e-10);
        EXPECT_NEAR(*report.adjustedR2, c.adjusted, 1e-10);
        EXPECT_NEAR(*report.predictiveR2, c.predictive, 1e-10);
        EXPECT_EQ(report.trueReplicates, c.lackF > 0);
        if (report.trueReplicates) {
            EXPECT_NEAR(*report.variance[4].F, c.lackF, 1e-5);
            EXPECT_NEAR(*report.variance[4].chance, c.lackChance, 1e-4);
        }
    }
    PlanBlock idle = builtPlan(planRoto, 2, 3);  // the model repeats itself: these are no replicates
    for (int u = 1; u <= idle.Nplan; ++u) idle.Yu[u] = std::sin(idle.PlanX[1][u] + 2 * idle.PlanX[2][u]);
    const RegressionReport report = reportRegression(idle);
    EXPECT_TRUE(report.idleReplicates);
    EXPECT_FALSE(report.trueReplicates);
    EXPECT_EQ(report.variance.size(), 4u);
}

TEST(RegressionReport, SurfaceAroundItsStationaryPoint) {
    // Y = 2 (X1 - 0.5)^2 + (X2 + 0.2)^2 - 1 and a little noise: a square that is predicted negative
    PlanBlock p = builtPlan(planRoto, 2, 5);
    for (int u = 1; u <= p.Nplan; ++u)
        p.Yu[u] = 2 * std::pow(p.PlanX[1][u] - 0.5, 2) + std::pow(p.PlanX[2][u] + 0.2, 2) - 1 +
                  0.01 * std::sin(9.0 * u);
    const RegressionReport report = reportRegression(p);
    const StationaryReport s = stationaryReport(p, report);
    EXPECT_NEAR(s.point[0], 0.5, 0.02);
    EXPECT_NEAR(s.point[1], -0.2, 0.02);
    EXPECT_NEAR(s.value, -1, 0.02);
    EXPECT_NEAR(s.axes[0].curvature, 1, 0.02);
    EXPECT_NEAR(std::abs(s.axes[1].direction[0]), 1, 0.01);
    EXPECT_NEAR(*s.cuts[0].up - *s.cuts[0].down, 2 * 3.4 * s.error[0],
                1.5 * s.error[0]);                 // root of 2 F(2, 7)
    for (const double radius : {0.2, 0.7, 1.4}) {  // no point of the circle lies lower
        const auto ridge = ridgePoint(p, report, radius);
        EXPECT_NEAR(std::hypot(ridge[0], ridge[1]), radius, 1e-9);
        for (double angle = 0; angle < 6.3; angle += 0.1)
            EXPECT_GE(predictedAt(report, {radius * std::cos(angle), radius * std::sin(angle)}) + 1e-9,
                      predictedAt(report, ridge));
    }
    EXPECT_EQ(regressionWarnings(p, report, true).size(), 1u);
    EXPECT_TRUE(regressionWarnings(p, report, false).empty());
    for (int u = 1; u <= p.Nplan; ++u) p.Yu[u] = std::sin(40.0 * u * u);
    EXPECT_FALSE(regressionWarnings(p, reportRegression(p), false).empty());
}

TEST(PlanGrowth, AddedPointsTellMostAndAreFittedByLeastSquares) {
    PlanBlock p = builtPlan(planOrtho, 2, 1);
    const auto added = dOptimalPoints(p, candidatesAround({0, 0}, 1), 4);
    for (const auto& point : added) EXPECT_EQ(std::abs(point[0] * point[1]), 1);  // the corners
    addPoints(p, added);
    addPoints(p, dOptimalPoints(p, candidatesAround({0.4, -0.3}, 0.5), 3));
    ASSERT_EQ(p.Nplan, 16);
    measure(p);
    for (int u = 1; u <= p.Nplan; ++u) p.Yu[u] -= std::sin(7.0 * u);
    FitRegression(p);
    const double expected[] = {10, 2, -1, 1.5, 1, 0};
    for (int c = 0; c <= 5; ++c) EXPECT_NEAR(p.b[c], expected[c], 1e-12);
    evaluatePoint(p, 16);
    EXPECT_NEAR(p.Z[16], p.Yu[16], 1e-12);
    EXPECT_THROW(addPoints(p, std::vector(76, std::vector<double>{0, 0})), Refusal);
    EXPECT_EQ(p.Nplan, 16);
}

}  // namespace tarvex
