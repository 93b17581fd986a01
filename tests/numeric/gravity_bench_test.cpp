#include "numeric/gravity_bench.h"

#include "tests/support/test_system.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

/// A run's right-hand side with the debug text on, which leaves its state for the bench.
Motion runForBench(ModelState& s, int kodDX, bool pressed) {
    Motion m;
    m.kodVgr = m.kodDiffurV = m.kodDebug = 1;
    m.kodDX = static_cast<std::int16_t>(kodDX);
    m.kodPgr = pressed ? 6 : 0;
    m.kPgr1 = 1.25, m.kPgr2 = 0.75;
    m.Vgr = 0.4 * Vsv;  // the delay of Jupiter lies in the trace, that of Mercury within the step
    m.dTstage = m.dTstageSave = 1800;
    m.AX[5] = 2e-4, m.AY[3] = -6e-3, m.AX[3] = 1e-3;
    if (kodDX == 3) {
        fillTrace(s, m);
        for (int n = 0; n <= m.NSled; ++n) m.SledX.at(n, 5) += 1e6 * n * n;  // not a straight flight
        m.SledXsave = m.SledX, m.SledYsave = m.SledY, m.SledZsave = m.SledZ;
    }
    test::pack(s, m);
    Diffur(s, m);
    return m;
}

}  // namespace

/// Two iterations of the bench are the two iterations of the right-hand side: the same force on each body.
TEST(GravityBenchTest, ForcesAreThoseOfTheRightHandSide) {
    for (const bool pressed : {false, true})
        for (const int kodDX : {0, 1, 2, 3})
            for (const auto& [first, second] : {std::pair{3, 5}, std::pair{0, 1}}) {
                ModelState s = test::solarSystem();
                const Motion m = runForBench(s, kodDX, pressed);
                for (int i = 0; i < bodies; ++i) s.X[i] = s.VY[i] = -1;  // the bench brings the state back
                Motion again = m;
                again.AX.fill(9);
                benchRestore(s, again);
                GravityBench b;
                b.N1 = first;
                b.N2 = second;
                b.useTrace = true;
                b.usePressure = pressed;
                benchPresent(s, again, b);
                benchIterate(s, again, b);
                benchIterate(s, again, b);
                const auto expectEqual = [&](const GravityBench::Action& a, int i, int k) {
                    for (const auto& [got, wanted] : {std::pair{a.F, m.Fik[i][k]},
                                                      {a.FX, m.FXik[i][k]},
                                                      {a.FY, m.FYik[i][k]},
                                                      {a.FZ, m.FZik[i][k]}})
                        EXPECT_NEAR(got, wanted, 1e-12 * std::fabs(m.Fik[i][k]))
                            << kodDX << pressed << i << k;
                    EXPECT_NEAR(a.L, m.Rik[i][k], 1e-14 * a.L) << kodDX << pressed << i << k;
                };
                expectEqual(b.a12, first, second);
                expectEqual(b.a21, second, first);
            }
}

TEST(GravityBenchTest, AStartClearsTheTraceOfTheRunBefore) {
    ModelState s = test::solarSystem();
    Motion m = runForBench(s, 3, false);
    const int before = m.SledXsave.size();
    EXPECT_NE(m.SledXsave.at(1, 5), 0);
    m.Vgr *= 2;
    fillTrace(s, m);
    EXPECT_LT(m.SledXsave.size(), before);
    EXPECT_EQ(m.SledXsave.size(), m.NSled + 1);
    for (const Trace* copy : {&m.SledXsave, &m.SledYsave, &m.SledZsave})
        for (int n = 0; n <= m.NSled; ++n) ASSERT_EQ(copy->at(n, 5), 0);
}

TEST(GravityBenchTest, TraceOfARunIsSearchedWithItsStrictBounds) {
    ModelState s;
    s.gamma = 66.7259e-12;
    s.JD = 2451545;
    s.Dt = 3600;
    Motion m;
    benchPlace(s, m, 3, 0.7);
    benchPlace(s, m, 5, 3.9);
    EXPECT_NEAR(std::hypot(s.VX[3], s.VY[3], s.VZ[3]), 29785, 60);
    EXPECT_NEAR(s.X[3] * s.VX[3] + s.Y[3] * s.VY[3], 0, 1e-3 * 1.5e11 * 29785);
    const double before = s.VY[5];
    GravityBench b = benchPair({false, false, false, true, false, true});
    benchAddVelocity(s, b, 0, 3, 0);
    EXPECT_DOUBLE_EQ(s.VY[5], before + 3000);
    EXPECT_THROW(benchPair({true, true, true}), Refusal);
    EXPECT_THROW(benchPair({true}), Failure);
    b.useTrace = true;
    m.Vgr = 0.01 * Vsv;
    m.kodVgr = 1;
    m.kodDX = 3;
    m.NSled = 200;
    m.dTstageSave = 1800;
    benchPresent(s, m, b);
    EXPECT_THROW(benchIterate(s, m, b), SubscriptFailure);  // never filled
    for (Trace* t : {&m.SledXsave, &m.SledYsave, &m.SledZsave}) t->resize(m.NSled);
    for (int n = 0; n <= m.NSled; ++n)
        for (const int i : {3, 5}) {
            // straight flight: every form of the trace must give the straight one
            const double back = 1800 + 3600.0 * n;
            m.SledXsave.at(n, i) = s.X[i] - s.VX[i] * back;
            m.SledYsave.at(n, i) = s.Y[i] - s.VY[i] * back;
            m.SledZsave.at(n, i) = s.Z[i] - s.VZ[i] * back;
        }
    for (const double Vgr :
         {0.01 * Vsv, 0.001 * Vsv, 10 * Vsv}) {  // in the trace, beyond it, within the stage
        m.Vgr = Vgr;
        benchPresent(s, m, b);
        const double T = b.present.T;
        benchIterate(s, m, b);
        EXPECT_NEAR(b.trace1.X, s.X[3] - s.VX[3] * T, 1e-3 * std::abs(s.VX[3] * T)) << Vgr;
    }
    m.Vgr = 0;
    EXPECT_THROW(benchPresent(s, m, b), ArithmeticFailure);
    b.N2 = b.N1;
    m.Vgr = Vsv;
    EXPECT_THROW(benchPresent(s, m, b), ArithmeticFailure);
}

}  // namespace tarvex
