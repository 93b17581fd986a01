#include "numeric/measurement.h"

#include "theories/longitudes.h"

#include "tests/support/test_run.h"

namespace tarvex {

using test::TestRun;

namespace {

/// Mercury alone with a Sun of a hundred million Mercuries on a known orbit, degrees and metres.
struct KeplerOrbit {
    double P, U, B, e, a;
};

void onKeplerOrbit(TestRun& t, const KeplerOrbit& o) {
    test::tick(t.s, 1);
    t.s.m[1] = t.s.m[0] * 1e-12;
    t.s.AlfaP0[1] = o.P / kUgol, t.s.AlfaU0[1] = o.U / kUgol, t.s.Betta0[1] = o.B / kUgol;
    t.s.Eks0[1] = o.e, t.s.R0sr[1] = o.a, t.s.AlfaL[1] = t.s.AlfaP0[1] + 2.0;
    t.s.Ipl = 1;
    t.s.kodBary = 0;
    ElementsToXYZ(t.s);
    ElementsToVXYZ(t.s);
    t.s.X0[1] = t.s.X[1], t.s.Y0[1] = t.s.Y[1], t.s.Z0[1] = t.s.Z[1];
    t.s.VX0[1] = t.s.VX[1], t.s.VY0[1] = t.s.VY[1], t.s.VZ0[1] = t.s.VZ[1];
    const double start[] = {0, t.s.AlfaP0[1], t.s.AlfaU0[1], t.s.Betta0[1], o.e, o.a};
    for (int k = 1; k <= 5; ++k) t.s.ElemStart[k][1] = start[k];
    t.settings.lastYear = 1802;
    t.settings.stepDivider = 200;
}

}  // namespace

TEST(Measurement, FindsTheElementsOfAKeplerOrbit) {
    const KeplerOrbit orbits[] = {
        {77.4, 48.3, 7.0, 0.2056, 57.9e9},
        {0.05, 300, 4, 0.1, 70e9},  // perihelion at the wrap of the longitude
        {359.95, 100, 4, 0.1, 70e9},
        {200, 359.96, 6, 0.15, 60e9},  // node at the wrap
        {120, 180.02, 3, 0.3, 65e9},   // descending node at the wrap
    };
    for (const KeplerOrbit& o : orbits) {
        TestRun t;
        struct Keep : RunPort {
            explicit Keep(RunState& r) : run(r) {}
            void passed(const Passage& seen) override {
                if (seen.apse) Betta = run.Betta;
            }
            RunState& run;
            double Betta = 0;
        } port{t.run};
        onKeplerOrbit(t, o);
        t.start();
        RunLoop(t.experiment(), port);
        EXPECT_NEAR(port.Betta * kUgol, o.B, 1e-4) << o.P;  // the largest latitude between apses
        const double period = 2 * Pi * std::sqrt(o.a * o.a * o.a / (t.s.gamma * t.s.m[0])) / sekD;
        EXPECT_NEAR(std::remainder(t.run.AlfaP - o.P, 360), 0, 2e-3) << o.P;
        EXPECT_NEAR(std::remainder(t.run.AlfaU - o.U, 360), 0, 2e-3) << o.U;
        EXPECT_NEAR(t.run.Eks, o.e, 1e-7);
        EXPECT_NEAR(t.s.Rr[1] / o.a, 1, 1e-7);
        EXPECT_NEAR(t.run.Period, period, 0.02);
        EXPECT_GE(t.run.AlfaP, 0);
        EXPECT_LE(t.run.AlfaP, 360);
        EXPECT_GE(t.run.NZamer, 5);
    }
}

TEST(Measurement, WindowsWrapThroughZero) {
    EXPECT_TRUE(inWindow(1, 2, 359));
    EXPECT_TRUE(inWindow(359.5, 2, 359));
    EXPECT_FALSE(inWindow(180, 2, 359));
    EXPECT_TRUE(inWindow(5, 5, 5));  // equal bounds wrap: everything is inside
    EXPECT_TRUE(inWindow(200, 5, 5));
    EXPECT_FALSE(inWindow(359.5, 1, -1));  // a negative lower bound does not wrap
    EXPECT_TRUE(inWindow(0.5, 1, -1));
}

TEST(Measurement, BaselinesAreTakenAgainAfterTheFirstTurns) {
    for (const bool renew : {false, true}) {
        TestRun t;
        t.settings.boxes.renewBaselines = renew;
        t.settings.stepDivider = 50;
        t.settings.lastYear = 1801;
        t.start();
        const double Eks = t.run.Eks;
        EXPECT_EQ(t.run.EksNach, Eks);
        EXPECT_EQ(t.run.PeriodNach, 87.96926);
        t.go();
        EXPECT_EQ(t.run.EksNach != Eks, renew);
        EXPECT_EQ(t.run.PeriodNach != 87.96926, renew);
        EXPECT_EQ(t.run.BettaNach != t.s.ElemStart[3][1], renew);
        EXPECT_NE(t.run.AlfaPnach,
                  t.s.ElemStart[1][1] * kUgol);  // the first perihelion, with or without the box
    }
}

// Relativity moves the perihelion of Mercury by 42.98 arc seconds a century beyond the classical law.  All
// else acts alike in both runs, so the drift of the difference of their perihelia is what is left of it.
TEST(Measurement, RelativityMovesThePerihelionOfMercury) {
    using Points = std::vector<std::array<double, 2>>;  // centuries, arc seconds
    struct Aphelia : RunPort {
        explicit Aphelia(TestRun& run_) : t(run_) {}
        void passed(const Passage& seen) override {
            if (seen.apse && t.run.kodPeri == 0)
                points.push_back({t.run.Tmod / sekD / 36525, t.run.AlfaP * 3600});
        }
        TestRun& t;
        Points points;
    };
    const auto aphelia = [](bool relativistic) {
        TestRun t;
        t.settings.relativistic = relativistic;
        t.settings.stepper = Stepper::Order8;
        t.settings.step = 86400;
        t.settings.lastYear = 1825;
        Aphelia port(t);
        t.start();
        RunLoop(t.experiment(), port);
        return port.points;
    };
    const Points classical = aphelia(false), relativistic = aphelia(true);
    ASSERT_EQ(classical.size(), relativistic.size());
    double n = 0, sx = 0, sy = 0, sxx = 0, sxy = 0;
    for (std::size_t k = 0; k < classical.size(); ++k) {
        const double x = classical[k][0], y = relativistic[k][1] - classical[k][1];
        n += 1, sx += x, sy += y, sxx += x * x, sxy += x * y;
    }
    const double drift = (n * sxy - sx * sy) / (n * sxx - sx * sx);
    RecordProperty("drift", std::to_string(drift));
    EXPECT_NEAR(drift, 42.98, 0.02);
}

}  // namespace tarvex
