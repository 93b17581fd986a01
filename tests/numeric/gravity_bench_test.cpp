#include "numeric/gravity_bench.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/failure.h"

namespace tarvex {

namespace {

/// The Earth and Jupiter on their circles, with speeds that matter.
struct Pair {
    Pair(int kodDX, int kodPgr) {
        s.gamma = 66.7259e-12;
        s.JD = 2451545;
        s.Dt = 3600;
        benchPlace(s, motion, 3, 0.7);
        benchPlace(s, motion, 5, 3.9);
        motion.Vgr = 0.01 * Vsv;
        motion.kodVgr = 1;
        motion.kodDX = static_cast<std::int16_t>(kodDX);
        motion.kodPgr = static_cast<std::int16_t>(kodPgr);
        motion.kodDiffurV = 1;
        motion.kPgr1 = motion.kPgr2 = 1;
        motion.AX[3] = 3e-3, motion.AY[3] = -5e-3, motion.AZ[5] = 1e-5;
        b.N1 = 3;
        b.N2 = 5;
        b.useTrace = kodDX > 0;
        b.usePressure = kodPgr > 0;
    }
    ModelState s;
    Motion motion;
    GravityBench b;
};

}  // namespace

/// Two iterations of the bench are the two iterations of the right-hand side: the same force on each body.
TEST(GravityBenchTest, ForcesAreThoseOfTheRightHandSide) {
    for (const int kodDX : {0, 1, 2}) {
        for (const int kodPgr : {0, 6}) {
            Pair p(kodDX, kodPgr);
            for (int i = 0; i < bodies; ++i) {
                p.motion.U[i] = p.s.X[i], p.motion.U[i + 11] = p.s.Y[i], p.motion.U[i + 22] = p.s.Z[i];
                p.motion.U[i + 33] = p.s.VX[i], p.motion.U[i + 44] = p.s.VY[i], p.motion.U[i + 55] = p.s.VZ[i];
                if (i != 3 && i != 5) p.motion.U[i] = 1e13 * (i + 1), p.motion.U[i + 11] = 2e12 * i + 1;   // far and unticked
            }
            p.s.kodPair[3][5] = p.s.kodPair[5][3] = 1;
            benchPresent(p.s, p.motion, p.b);
            benchIterate(p.s, p.motion, p.b);
            benchIterate(p.s, p.motion, p.b);
            Diffur(p.s, p.motion);
            for (const auto& [a, i, k] : {std::tuple{&p.b.a12, 3, 5}, std::tuple{&p.b.a21, 5, 3}}) {
                EXPECT_NEAR(a->FX / p.motion.FXik[i][k], 1, 1e-10) << kodDX << kodPgr;
                EXPECT_NEAR(a->FY / p.motion.FYik[i][k], 1, 1e-10) << kodDX << kodPgr;
                EXPECT_NEAR(a->L / p.motion.Rik[i][k], 1, 1e-12) << kodDX << kodPgr;
            }
        }
    }
}

TEST(GravityBenchTest, WithoutTraceAndPressureTheForceIsNewtons) {
    Pair p(0, 0);
    benchPresent(p.s, p.motion, p.b);
    benchIterate(p.s, p.motion, p.b);
    EXPECT_DOUBLE_EQ(p.b.a12.F, p.b.a21.F);
    EXPECT_NEAR(p.b.a12.F / p.b.present.F, 1, 1e-15);
    EXPECT_NEAR(std::hypot(p.s.VX[3], p.s.VY[3], p.s.VZ[3]), 29785, 60);
    EXPECT_NEAR(p.s.X[3] * p.s.VX[3] + p.s.Y[3] * p.s.VY[3], 0, 1e-3 * 1.5e11 * 29785);
}

TEST(GravityBenchTest, TraceOfARunIsSearchedWithItsStrictBounds) {
    Pair p(3, 0);
    Motion& m = p.motion;
    m.NSled = 200;
    m.dTstageSave = 1800;
    benchPresent(p.s, m, p.b);
    EXPECT_THROW(benchIterate(p.s, m, p.b), SubscriptFailure);      // never filled
    for (Trace* t : {&m.SledXsave, &m.SledYsave, &m.SledZsave}) t->resize(m.NSled);
    for (int n = 0; n <= m.NSled; ++n)
        for (const int i : {3, 5}) {
            // straight flight: every form of the trace must give the straight one
            const double back = 1800 + 3600.0 * n;
            m.SledXsave.at(n, i) = p.s.X[i] - p.s.VX[i] * back;
            m.SledYsave.at(n, i) = p.s.Y[i] - p.s.VY[i] * back;
            m.SledZsave.at(n, i) = p.s.Z[i] - p.s.VZ[i] * back;
        }
    m.AX = m.AY = m.AZ = {};
    for (const double Vgr : {0.01 * Vsv, 0.001 * Vsv, 10 * Vsv}) {  // in the trace, beyond it, within the stage
        m.Vgr = Vgr;
        benchPresent(p.s, m, p.b);
        const double T = p.b.present.T;
        benchIterate(p.s, m, p.b);
        EXPECT_NEAR(p.b.trace1.X, p.s.X[3] - p.s.VX[3] * T, 1e-3 * std::abs(p.s.VX[3] * T)) << Vgr;
    }
    m.Vgr = 0;
    EXPECT_THROW(benchPresent(p.s, m, p.b), ArithmeticFailure);
    p.b.N2 = p.b.N1;
    m.Vgr = Vsv;
    EXPECT_THROW(benchPresent(p.s, m, p.b), ArithmeticFailure);
}

}  // namespace tarvex
