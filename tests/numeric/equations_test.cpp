#include "core/arithmetic.h"
#include "core/name_table.h"
#include "numeric/motion.h"
#include "tests/support/equations_oracle.h"
#include "tests/support/test_system.h"
#include "tests/support/testing.h"

namespace tarvex {
namespace {

/// The same experiment by the kernels and by the literal equations.  The state vector is that of the kernels
/// in both; what the pressure laws carry from step to step each side keeps for itself.
struct Twin {
    ModelState s = test::solarSystem();
    Motion motion;
    literal::Equations plain;
    bool relativistic = false;
    double Tsec = 0;
    double worst = 0;      ///< largest error of an acceleration, of the size of that body's acceleration
    double worstPair = 0;  ///< largest error of a pair force, of the size of that force

    Twin() { plain.s = &s; }

    void start() {
        test::pack(s, motion);
        motion.DtOld = plain.DtOld = s.DtCur;
        copyTo();
        plain.unpack();
        if (motion.kodDX == 3) {
            fillTrace(s, motion);
            plain.fillTrace();
        }
    }

    /// State and codes of the kernels for the literal side.
    void copyTo() {
        std::copy_n(motion.U.begin(), 66, plain.U);
        for (int i = 0; i < bodies; ++i)
            plain.AX[i] = motion.AX[i], plain.AY[i] = motion.AY[i], plain.AZ[i] = motion.AZ[i];
        std::tie(plain.kodVgr, plain.kodDX, plain.kodPgr, plain.kodDiffurV, plain.kodAA, plain.kodLVsimple) =
            std::tie(motion.kodVgr, motion.kodDX, motion.kodPgr, motion.kodDiffurV, motion.kodAA,
                     motion.kodLVsimple);
        std::tie(plain.kPgr1, plain.kPgr2, plain.Vgr, plain.nR, plain.dTstage) =
            std::tie(motion.kPgr1, motion.kPgr2, motion.Vgr, motion.nR, motion.dTstage);
    }

    void call() {
        copyTo();
        if (relativistic) {
            DiffurOTO(s, motion);
            plain.DiffurOTO();
        } else {
            Diffur(s, motion);
            plain.Diffur();
        }
        compare();
    }

    void compare() {
        formPairs(motion);
        for (int i = 0; i < bodies; ++i) {
            const double size = std::hypot(plain.dU[33 + i], plain.dU[44 + i], plain.dU[55 + i]);
            for (const int n : {33 + i, 44 + i, 55 + i})
                worst = std::max(worst, std::fabs(motion.dU[n] - plain.dU[n]) / size);
            for (const int n : {i, 11 + i, 22 + i}) ASSERT_EQ(motion.dU[n], plain.dU[n]);
            for (int j = 0; j < bodies; ++j) {
                if (i == j) continue;
                const double force = std::hypot(plain.FXik[i][j], plain.FYik[i][j], plain.FZik[i][j]);
                const double off =
                    std::hypot(plain.FXik[i][j] - motion.FXik[i][j], plain.FYik[i][j] - motion.FYik[i][j],
                               plain.FZik[i][j] - motion.FZik[i][j]);
                if (force > 0)
                    worstPair = std::max(worstPair, off / force);
                else
                    EXPECT_EQ(off, 0);
            }
        }
    }

    /// One Runge-Kutta step of the classical scheme, the speed update and the trace.
    void step() {
        const auto U0 = motion.U;
        const double h = s.DtCur;
        std::array<double, 66> sum{};
        motion.NDiffur = 0;
        plain.NDiffur = 0;
        for (int stage = 1; stage <= 4; ++stage) {
            motion.dTstage = stage == 1 ? 0 : stage == 4 ? h : h / 2;
            call();
            const double weight = stage == 1 || stage == 4 ? 1 : 2, next = stage < 3 ? h / 2 : h;
            for (int n = 0; n < 66; ++n) {
                sum[n] += weight * motion.dU[n];
                motion.U[n] = U0[n] + next * motion.dU[n];
            }
        }
        for (int n = 0; n < 66; ++n) motion.U[n] = U0[n] + h * sum[n] / 6;
        for (int i = 0; i < bodies; ++i) {
            int n = i;
            for (auto* row : {&s.X, &s.Y, &s.Z, &s.VX, &s.VY, &s.VZ}) (*row)[i] = motion.U[n], n += 11;
            motion.AX[i] = sum[i + 33] / 6;
            motion.AY[i] = sum[i + 44] / 6;
            motion.AZ[i] = sum[i + 55] / 6;
        }
        copyTo();
        plain.unpack();
        SpeedUpdate(s, motion);
        plain.SpeedUpdate();
        Tsec += h;
        pushTrace(s, motion, Tsec);
        plain.pushTrace(Tsec);
    }
};

std::string label(const Motion& m) {
    return "kodPgr " + std::to_string(m.kodPgr) + " kodDX " + std::to_string(m.kodDX) + " kodDiffurV " +
           std::to_string(m.kodDiffurV) + " kodAA " + std::to_string(m.kodAA) + " kodLVsimple " +
           std::to_string(m.kodLVsimple);
}

}  // namespace

/// Every law with every form of retardation, over steps that shorten and lengthen again.
class EveryLaw : public testing::TestWithParam<int> {};

TEST_P(EveryLaw, AgreesWithTheLiteralEquations) {
    const int law = GetParam();
    for (int code = 0; code < 64; ++code) {
        Twin twin;
        Motion& m = twin.motion;
        m.kodVgr = 1;
        m.kodPgr = static_cast<std::int16_t>(law);
        m.kodDX = static_cast<std::int16_t>(code & 3);
        m.kodDiffurV = (code >> 2) & 1;
        m.kodAA = (code >> 3) & 1;
        m.kodLVsimple = (code >> 4) & 1;
        if ((code >> 5) & 1) {
            m.nR = 2.00000016;
            twin.s.m[4] = -twin.s.m[4];  // a negative product of masses turns every force of a pair round
        }
        if ((law != 5 && m.kodLVsimple == 1) || (law == 0 && (m.kodDiffurV == 1 || m.kodAA == 1))) continue;
        m.kPgr1 = law == 2 ? 0.5 : law == 3 || law == 4 ? 3 : law == 7 ? 0 : 1;
        m.kPgr2 = law == 2 ? 1 : law == 3 || law == 4 ? 6 : law == 7 ? 0 : 1;
        m.Vgr = 0.5 * Vsv;  // delays within the step, within the trace and beyond it
        twin.start();
        for (int step = 0; step < 12; ++step) {
            if (step == 5) twin.s.DtCur = twin.s.Dt / 10;
            if (step == 9) twin.s.DtCur = twin.s.Dt;
            twin.step();
        }
        EXPECT_LT(twin.worst, 1e-12) << label(m);
        EXPECT_LT(twin.worstPair, 1e-12) << label(m);
    }
}

INSTANTIATE_TEST_SUITE_P(Equations, EveryLaw, testing::Values(0, 2, 3, 4, 5, 6, 7));

TEST(Equations, RelativisticAgreesWithTheLiteralEquations) {
    Twin twin;
    twin.relativistic = true;
    twin.s.kodPair[4][5] = 0;  // read the other way round than in the classical model
    twin.s.kodPair[0][9] = 0;
    twin.start();
    for (int step = 0; step < 12; ++step) twin.step();
    EXPECT_LT(twin.worst, 1e-13);
    EXPECT_LT(twin.worstPair, 1e-13);
    EXPECT_EQ(twin.motion.FXik[5][4], 0);
    EXPECT_NE(twin.motion.FXik[4][5], 0);
    EXPECT_NE(twin.motion.dU[33], 0);
    // beside the classical forces of any law: what relativity has beyond Newton, between present places
    Motion& m = twin.motion;
    twin.s.kodPair[4][5] = twin.s.kodPair[0][9] = 1;
    DiffurOTO(twin.s, m);
    const auto einstein = m.dU;
    Diffur(twin.s, m);
    const auto newton = m.dU;
    m.kodVgr = 1, m.Vgr = 50 * Vsv;
    for (const int law : {0, 4, 5})
        for (const int delay : {0, 1, 2}) {
            m.kodPgr = static_cast<std::int16_t>(law), m.kodDX = static_cast<std::int16_t>(delay);
            m.kodRelativity = 0;
            Diffur(twin.s, m);
            const auto plain = m.dU;
            const auto pairs = std::pair(m.DXp, m.FXik);
            m.kodRelativity = 1;
            Diffur(twin.s, m);
            EXPECT_EQ(std::pair(m.DXp, m.FXik), pairs);
            for (int n = 33; n < 66; ++n)
                EXPECT_NEAR(m.dU[n] - plain[n], einstein[n] - newton[n], 3e-15 * std::fabs(newton[n])) << n;
        }
}

TEST(Equations, LinesAlongTheAxes) {
    // DXp = 0 turns the line round in the speeds; retarded speeds may change their sign against the present
    // ones
    for (const int law : {4, 5, 6, 7}) {
        Twin twin;
        ModelState& s = twin.s;
        Motion& m = twin.motion;
        m.kodVgr = m.kodDiffurV = 1;
        m.kodPgr = static_cast<std::int16_t>(law);
        m.kPgr1 = m.kPgr2 = 1;
        s.X[1] = s.X[0] = s.X[2] = 0;  // along Y, both directions, with Z
        s.Y[0] = s.Z[0] = 0;
        s.Y[2] = -std::fabs(s.Y[2]);
        s.Y[3] = s.Z[3] = 0;  // along X
        s.Z[4] = 0;
        s.VX[5] = 0, s.VY[6] = -0.0, s.VZ[7] = 0;
        m.AX[5] = 1e-3, m.AY[6] = 1e-3, m.AZ[7] = -1e-3;
        twin.start();
        twin.call();
        EXPECT_LT(twin.worstPair, 1e-12) << label(m);
        SpeedUpdate(s, m);
        twin.plain.SpeedUpdate();
        EXPECT_NE(m.dV2[0][1], 0);
        EXPECT_NEAR(m.dVY2[0][1], -(s.Y[1] > 0 ? 1 : -1) * s.VY[1] * std::fabs(s.Y[1]) / m.Rik[0][1], 1e-6);
        m.kodDX = 2;
        m.Vgr = 1e6;
        twin.call();
        EXPECT_LT(twin.worstPair, 1e-10) << label(m);
    }
}

TEST(Equations, NoSpeedOfGravityMeansNewton) {
    Twin twin;
    ModelState& s = twin.s;
    Motion& m = twin.motion;
    twin.start();
    twin.call();
    const auto newton = m.dU;
    const double r = std::hypot(m.DXp[0][3], m.DYp[0][3], m.DZp[0][3]);
    EXPECT_NEAR(m.Fik[0][3] / (s.gamma * s.m[0] * s.m[3] / r / r), 1, 1e-15);
    EXPECT_EQ(m.NDiffur, 0);
    m.kodPgr = 5, m.kodDX = 3, m.kPgr1 = 7, m.kPgr2 = 8, m.Vgr = 1;
    Diffur(s, m);
    EXPECT_EQ(m.dU, newton);
    EXPECT_EQ(m.NDiffur, 0);
    m.kodVgr = 1, m.kodPgr = 0, m.kodDX = 0;
    Diffur(s, m);
    EXPECT_EQ(m.dU, newton);

    // an unticked pair has no force, but counts as potential in the relativistic model
    DiffurOTO(s, m);
    const auto Phi = m.Phi;
    s.kodPair[0][3] = s.kodPair[3][0] = 0;
    Diffur(s, m);
    formPairs(m);
    EXPECT_EQ(m.FXik[0][3], 0);
    EXPECT_NE(m.FXik[0][4], 0);
    DiffurOTO(s, m);
    EXPECT_EQ(m.Phi, Phi);
}

TEST(Equations, PlainPairsComeLateAndSumUpInTheirOrderInEveryBit) {
    Twin twin;
    ModelState& s = twin.s;
    Motion& m = twin.motion;
    twin.start();
    for (int round = 0; round < 3; ++round) {
        if (round == 1) s.m[4] = -3e23, s.kodPair[2][7] = s.kodPair[7][2] = 0;
        if (round == 2) s.kodPair[5][1] = 0, s.kodPair[6][0] = 3;  // no longer the same both ways
        Diffur(s, m);
        EXPECT_EQ(m.weights.symmetric, round < 2);
        const auto dU = m.dU;
        s.m[5] *= 2;  // what is changed since plays no part in the pairs of that call
        DiffurOTO(s, m);
        Diffur(s, m);
        s.m[5] /= 2;
        Diffur(s, m);
        ASSERT_EQ(m.dU, dU);
        formPairs(m);
        for (int j = 0; j < bodies; ++j) {
            double x = 0, y = 0, z = 0;
            for (int i = 0; i < bodies; ++i)
                if (i != j) x += m.FXik[i][j], y += m.FYik[i][j], z += m.FZik[i][j];
            EXPECT_EQ(dU[33 + j], x * (1 / s.m[j])) << j;
            EXPECT_EQ(dU[44 + j], y * (1 / s.m[j])) << j;
            EXPECT_EQ(dU[55 + j], z * (1 / s.m[j])) << j;
        }
    }
}

TEST(Equations, ATimeOnTheGridOfTheTraceKeepsTheDifferences) {
    Twin twin;
    ModelState& s = twin.s;
    Motion& m = twin.motion;
    m.kodVgr = 1;
    m.kodDX = 3;
    m.Vgr = 1e8;
    s.X[0] = s.Y[0] = s.Z[0] = 0;
    s.X[3] = 2 * 3600 * 1e8;  // the pull of the Sun needs exactly two base steps
    s.Y[3] = s.Z[3] = 0;
    s.VX[3] = 1000;
    twin.start();
    m.SledX.at(2, 0) = 5e9;
    twin.plain.SledX[2][0] = 5e9;
    twin.call();
    EXPECT_EQ(m.DXp[0][3], s.X[3]);
    EXPECT_LT(twin.worstPair, 1e-13);
    s.X[3] += 1e7;  // a little later it comes from between the points 2 and 3
    test::pack(s, m);
    twin.call();
    EXPECT_LT(m.DXp[0][3], s.X[3] - 4e9);
    EXPECT_LT(twin.worstPair, 1e-13);
}

TEST(Equations, FailuresAreToldAndLeaveNoBadNumbers) {
    struct Case {
        const char* what;
        void (*spoil)(Twin&);
        bool classicalOnly;
    };
    const Case cases[] = {
        {"no speed of gravity", [](Twin& t) { t.motion.Vgr = 0; }, true},
        {"one place", [](Twin& t) { t.s.X[4] = t.s.X[2], t.s.Y[4] = t.s.Y[2], t.s.Z[4] = t.s.Z[2]; }, false},
        {"one above the other", [](Twin& t) { t.s.X[4] = t.s.X[2], t.s.Y[4] = t.s.Y[2], t.s.Z[4] = 5; },
         true},
        {"zero mass", [](Twin& t) { t.s.m[7] = 0; }, true},
        {"too far", [](Twin& t) { t.s.X[9] = 1e200; }, false},
        {"exponent beyond all numbers", [](Twin& t) { t.motion.nR = 60; }, true},
    };
    for (const Case& c : cases)
        for (const bool relativistic : {false, true}) {
            if (relativistic && c.classicalOnly) continue;
            for (const int law : {0, 3, 5}) {
                Twin twin;
                twin.motion.kodVgr = 1;
                twin.motion.kodDX = 2;
                twin.motion.kodDiffurV = 1;
                twin.motion.kodPgr = static_cast<std::int16_t>(law);
                c.spoil(twin);
                test::pack(twin.s, twin.motion);
                EXPECT_THROW(relativistic ? DiffurOTO(twin.s, twin.motion) : Diffur(twin.s, twin.motion),
                             ArithmeticFailure)
                    << c.what;
                const Motion& m = twin.motion;
                for (const double v : m.dU) EXPECT_TRUE(std::isfinite(v)) << c.what;
                for (const PairArray* a : std::initializer_list<const PairArray*>{
                         &m.DXp, &m.Rik, &m.Fik, &m.FXik, &m.FZik, &m.dV1, &m.d2R})
                    for (const auto& row : *a)
                        for (const double v : row) EXPECT_TRUE(std::isfinite(v)) << c.what;
            }
        }
    Twin still;
    still.motion.kodPgr = 2;
    still.motion.DtOld = still.s.DtCur = 0;
    EXPECT_THROW(SpeedUpdate(still.s, still.motion), ArithmeticFailure);
    still.motion.kodVgr = 1;
    still.motion.kodDX = 3;  // chosen in the middle of a run: there is no trace
    test::pack(still.s, still.motion);
    EXPECT_THROW(Diffur(still.s, still.motion), SubscriptFailure);
}

TEST(Equations, IdleLanesRaiseNoFlag) {
    for (const int law : {0, 2, 3, 4, 5, 6, 7, 8}) {
        for (const int form : {0, 1, 2, 3}) {
            Twin twin;
            Motion& m = twin.motion;
            m.kodVgr = m.kodDiffurV = 1;
            m.kodPgr = static_cast<std::int16_t>(law == 8 ? 0 : law);
            m.kodDX = static_cast<std::int16_t>(form);
            twin.relativistic = law == 8;
            m.Vgr = 1e5;  // slower than the speeds of bodies are squared
            m.kPgr1 = m.kPgr2 = 1;
            twin.start();
            const ArithmeticGuard guard;
            for (int step = 0; step < 2; ++step) {
                m.NDiffur = 0;
                for (int stage = 0; stage < 4; ++stage) law == 8 ? DiffurOTO(twin.s, m) : Diffur(twin.s, m);
                SpeedUpdate(twin.s, m);
            }
            EXPECT_NO_THROW(guard.check()) << label(m);
        }
    }
}

TEST(Equations, AnglesByName) {
    Twin twin;
    twin.motion.kodVgr = twin.motion.kodDiffurV = 1;
    twin.motion.kodPgr = 6;
    NameTable names;
    addNames(names, twin.motion);
    twin.start();
    twin.call();
    const auto& plain = twin.plain;
    for (const auto& [name, value] : {std::pair{"AlfaIK(5,2)", plain.AlfaIK[5][2]},
                                      {"BettaIK(6,2)", plain.BettaIK[6][2]},
                                      {"dAlfaVX1(1,2)", plain.dAlfaVX1[1][2]},
                                      {"dAlfaVY2(8,3)", plain.dAlfaVY2[8][3]},
                                      {"dBettaVZ2(8,3)", plain.dBettaVZ2[8][3]}})
        EXPECT_NEAR(std::stod(names.value(name)), value, 1e-12) << name;
    EXPECT_EQ(names.value("Rik(4,4)"), "0");
    EXPECT_THROW(names.value("Rik(4,11)"), SubscriptFailure);
    EXPECT_THROW(names.value("SledX(0,0)"), SubscriptFailure);
}

}  // namespace tarvex
