#include "stats/fit.h"

#include "tests/support/testing.h"

#include <random>

namespace tarvex {

namespace {

/// Records every 100 days from T0 on with value(T), T in centuries.
template <class Value>
SeriesData seriesOf(int count, Value value, DataKind kind = dataModel) {
    SeriesData d;
    d.JD0 = 2400000.5;
    d.kodData = kind;
    for (int i = 1; i <= count; ++i) {
        Record r{.dTd = 100.0 * i, .ddTd = 50};
        r.Par[parAlfaP] = value(r.dTd / 36525);
        r.Par[parVes] = 0.25 * (1 + i % 3);
        d.records.push_back(r);
    }
    return d;
}

FitSettings settingsOf(const SeriesData& d, Equation equation) {
    FitSettings s;
    s.equation = equation;
    s.last = d.NP1max();
    s.T0 = d.JD0;
    return s;
}

FitResult fitted(const SeriesData& d, const FitSettings& s, int NCP) {
    FitResult fit;
    formGroups(d, s, NCP, fit);
    fitGroups(s.equation, fit);
    return fit;
}

}  // namespace

TEST(Fit, KnownSeriesAreFound) {
    struct Case {
        Equation equation;
        double b0, b1, b2;
    };
    for (const Case& c :
         {Case{Equation::Constant, 3, 0, 0}, {Equation::Line, 3, 2, 0}, {Equation::Parabola, 3, 2, -5}}) {
        const SeriesData d = seriesOf(25, [&](double T) { return c.b0 + c.b1 * T + c.b2 * T * T; });
        const FitResult fit = fitted(d, settingsOf(d, c.equation), 1);
        EXPECT_NEAR(fit.b[0], c.b0, 1e-9);
        EXPECT_NEAR(fit.b[1], c.b1, 1e-7);
        EXPECT_NEAR(fit.b[2], c.b2, 1e-5);
        EXPECT_NEAR(fit.Sigma, 0, 1e-9);
        EXPECT_NEAR(shiftAt(c.equation, fit, 0.5), c.b1 + c.b2, 1e-5);
    }
}

TEST(Fit, LeftOverRecordsAreDroppedAndGroupsStandInTheirMiddle) {
    SeriesData d = seriesOf(26, [](double T) { return 1 + T; });
    d.records[25].Par[parAlfaP] = 1e9;  // the 26th takes no part
    const FitResult fit = fitted(d, settingsOf(d, Equation::Line), 5);
    ASSERT_EQ(fit.groups.size(), 5u);
    EXPECT_DOUBLE_EQ(fit.groups[1].T, 800 / 36525.0);
    EXPECT_DOUBLE_EQ(fit.groups[1].Y, 1 + 800 / 36525.0);
    EXPECT_NEAR(fit.b[1], 1, 1e-9);
    EXPECT_EQ(fit.VesSum, 5);

    FitSettings s = settingsOf(d, Equation::Line);
    s.last = 27;
    EXPECT_THROW(fitted(d, s, 5), SubscriptFailure);
    s.last = 26;
    s.first = 0;
    EXPECT_THROW(fitted(d, s, 5), SubscriptFailure);
    s.first = 1;
    EXPECT_THROW(fitted(d, s, 0), SubscriptFailure);
}

TEST(Fit, LongRecordsBringWeightAndTimeOfTheLastRecord) {
    SeriesData d = seriesOf(
        12, [](double T) { return T; }, dataLong);
    FitSettings s = settingsOf(d, Equation::Line);
    FitResult fit = fitted(d, s, 2);
    EXPECT_DOUBLE_EQ(fit.groups[0].T, (200 + 25) / 36525.0);
    EXPECT_EQ(fit.VesMax, 0.75);  // records 2, 4 .. 12: weights .75 .5 .25 .75 .5 .25
    EXPECT_DOUBLE_EQ(fit.VesSum, 4);
    EXPECT_DOUBLE_EQ(fit.groups[2].W, 1 / 3.0);
    s.unitWeights = true;
    fit = fitted(d, s, 2);
    EXPECT_EQ(fit.VesSum, 6);
    d.Nparam = parAlfaL0;  // taken at the moment of the record
    fit = fitted(d, s, 2);
    EXPECT_DOUBLE_EQ(fit.groups[0].T, 200 / 36525.0);
    d.Nparam = parAlfaP;
    d.Npl = 11;
    EXPECT_DOUBLE_EQ(fitted(d, s, 2).groups[0].T, 200 / 36525.0);
    for (Record& r : d.records) r.Par[parVes] = 0;
    s.unitWeights = false;
    EXPECT_THROW(fitted(d, s, 2), ArithmeticFailure);
}

TEST(Fit, WeightEntersSigmaSquared) {
    // constant through 0 and 3 with weights 1 and 1/2 (read as 2 and 1): b0 = 1; residuals -1 and 2
    SeriesData d = seriesOf(
        2, [](double) { return 0; }, dataLong);
    d.records[1].Par[parAlfaP] = 3;
    d.records[0].Par[parVes] = 2;
    d.records[1].Par[parVes] = 1;
    const FitResult fit = fitted(d, settingsOf(d, Equation::Constant), 1);
    EXPECT_DOUBLE_EQ(fit.b[0], 1);
    EXPECT_DOUBLE_EQ(fit.Sigma, std::sqrt(2.0));  // 1*1 + (2/2)^2, one degree of freedom
}

TEST(Fit, SingularTimesThrow) {
    SeriesData d = seriesOf(6, [](double T) { return T; });
    FitSettings s = settingsOf(d, Equation::Line);
    s.T0 = d.JD0 + 350;  // times symmetric about the origin: no sum of them
    EXPECT_THROW(fitted(d, s, 1), ArithmeticFailure);
    for (Record& r : d.records) r.dTd = 0;
    EXPECT_THROW(fitted(d, settingsOf(d, Equation::Parabola), 1), ArithmeticFailure);
}

TEST(Fit, LineAgreesWithMeansAndDeviations) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> noise(-0.5, 0.5);
    const SeriesData d = seriesOf(60, [&](double T) { return 1 + 4 * T + noise(random); });
    const FitSettings s = settingsOf(d, Equation::Line);
    ASSERT_EQ(s.size() / s.leastGroups(), 20);
    for (int NCP = 1; NCP <= 20; ++NCP) {
        const FitResult fit = fitted(d, s, NCP);
        // the line again, from means and deviations
        const auto n = static_cast<double>(fit.groups.size());
        double T = 0, Y = 0, TT = 0, TY = 0, residual = 0;
        for (const Group& g : fit.groups) T += g.T / n, Y += g.Y / n;
        for (const Group& g : fit.groups) TT += (g.T - T) * (g.T - T), TY += (g.T - T) * (g.Y - Y);
        for (const Group& g : fit.groups) residual += std::pow(g.Y - Y - TY / TT * (g.T - T), 2);
        EXPECT_NEAR(fit.b[1], TY / TT, 1e-9) << NCP;
        EXPECT_NEAR(fit.Sigma, std::sqrt(residual / (n - 2)), 1e-12) << NCP;
    }
}

TEST(GroupSearch, BandBreaksWhereAnIntervalMissesIt) {
    //                                  size 1: 0+-1   2: 3+-1   3: -4+-2   4: 0+-1 (equal limits: the first
    //                                  wins)
    const GroupSearch found = searchGroups({0, 0, 3, -4, 0}, {0, 1, 1, 2, 1}, 1, 4);
    EXPECT_EQ(found.best, 1);
    ASSERT_EQ(found.band.size(), 3u);
    EXPECT_TRUE(found.band[0].raised);
    EXPECT_EQ(found.band[0].from, 0);
    EXPECT_EQ(found.band[0].to, 2);
    EXPECT_EQ(found.band[0].Hi, 1);
    EXPECT_FALSE(found.band[1].raised);
    EXPECT_EQ(found.band[1].from, 2);
    EXPECT_EQ(found.band[1].Hi, 2);
    EXPECT_EQ(found.band[2].Lo, -2);
    EXPECT_EQ(found.band[2].from, 0);
    EXPECT_EQ(found.mean.shift, -0.25);
    EXPECT_EQ(found.mean.limit, 1.25);
    EXPECT_EQ(found.min.shift, 0);
    EXPECT_EQ(found.maxmin.shift, 0);
    EXPECT_EQ(found.maxmin.limit, 2);
}

}  // namespace tarvex
