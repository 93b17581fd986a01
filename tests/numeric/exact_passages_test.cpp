#include "numeric/exact_passages.h"

#include "numeric/integrator.h"
#include "tests/support/ephemeris_files.h"
#include "tests/support/reference_orbit.h"
#include "tests/support/test_run.h"

namespace tarvex {

using test::TestRun;

namespace {

struct Apse {
    double time, perihelion, node, distance;
    bool atPerihelion;
    double period;
};

/// Keeps the apses of a run as its screen is told of them.
struct Apses : RunPort {
    explicit Apses(TestRun& run) : t(run) {}
    void passed(const Passage& seen) override {
        const bool atPerihelion = t.run.kodPeri == 1;
        if (seen.apse)
            all.push_back({t.run.Tsec, t.run.AlfaP, t.run.AlfaU, atPerihelion ? t.run.Rmin : t.run.Rmax,
                           atPerihelion, t.run.Period});
    }
    TestRun& t;
    std::vector<Apse> all;
};

std::vector<Apse> apsesOf(TestRun& t) {
    Apses port(t);
    RunLoop(t.experiment(), port);
    return port.all;
}

test::ReferenceOrbit referenceOf(const TestRun& t) {
    std::vector<double> gm;
    test::ReferenceOrbit::State place, speed;
    for (int i = 0; i < bodies; ++i) {
        gm.push_back(t.s.kodPl[i] * t.s.gamma * t.s.m[i]);
        place.push_back({t.s.X[i], t.s.Y[i], t.s.Z[i]});
        speed.push_back({t.s.VX[i], t.s.VY[i], t.s.VZ[i]});
    }
    place.insert(place.end(), speed.begin(), speed.end());
    return {gm, place, t.motion.kodOTO == 1 ? Vsv * Vsv : 0};
}

/// The giants and the Sun in rows 0..4.
void onlyGiants(TestRun& t) {
    ModelState& s = t.s;
    for (int i = 1; i <= 4; ++i) {
        s.m[i] = s.m[i + 4];
        for (Rows* row : {&s.X0, &s.Y0, &s.Z0, &s.VX0, &s.VY0, &s.VZ0}) (*row)[i] = (*row)[i + 4];
        for (int k = 1; k <= 7; ++k) s.ElemStart[k][i] = s.ElemStart[k][i + 4];
        s.X0[i + 4] += 1e14, s.Y0[i + 4] += 1e14;  // out of the way
    }
    test::tick(s, 4);
}

/// Sun, Earth and Moon in rows 0, 3 and 10, the Moon as seen from the Earth.
void earthAndMoon(TestRun& t) {
    ModelState& s = t.s;
    test::tick(s, 10);
    for (int i = 0; i < bodies; ++i)
        for (int j = 0; j < bodies; ++j) {
            s.kodPl[i] = i == 0 || i == 3 || i == 10;
            s.kodPair[i][j] = s.kodPl[i] * (j == 0 || j == 3 || j == 10);
        }
    s.kodMoon = 1;
    s.m[13] = s.m[0] / 332946, s.m[11] = s.m[13] / 81.3;
    s.X0[10] = s.X0[3] + 3.633e8, s.Y0[10] = s.Y0[3], s.Z0[10] = s.Z0[3];
    s.VX0[10] = s.VX0[3], s.VY0[10] = s.VY0[3] + 1070, s.VZ0[10] = s.VZ0[3] + 96;
    const double start[] = {0, 0, 0, 0.09, 0.055, 3.844e8};
    for (int k = 1; k <= 5; ++k) s.ElemStart[k][10] = start[k];
    t.settings.boxes.originEarth = true;
}

}  // namespace

// Another integrator, which finds passages by stepping to them, measures by the same definitions.  What is
// left is the truncation of the steps: of an hour for Mercury by the fourth order, of six for the Moon by the
// eighth.
TEST(ExactPassages, AgreeWithAnIndependentSolution) {
    struct Case {
        const char* name;
        int body;
        double step;
        int lastYear;
        Stepper stepper;
        bool relativistic, back;
        double referenceStep;
        std::size_t least;
        void (*system)(TestRun&) = nullptr;
    };
    constexpr double arcSeconds = 2e-3;
    constexpr Stepper four = Stepper::RungeKutta4, eight = Stepper::Order8;
    const Case cases[] = {
        {"Mercury", 1, 3600, 1806, four, false, false, 2, 49},
        {"Mercury back, relativity", 1, 86400, 1791, eight, true, true, 2, 80},
        {"Venus", 2, 3600, 1808, four, false, false, 4, 25},
        {"Earth", 3, 3600, 1808, four, false, false, 4, 15},
        {"Mars", 4, 86400, 1820, eight, false, false, 4, 20},
        {"Jupiter", 1, 432000, 2000, eight, false, false, 10, 32, onlyGiants},
        {"Saturn", 2, 432000, 2000, eight, false, false, 10, 11, onlyGiants},
        {"Moon", 10, 21600, 1806, eight, false, false, 1, 130, earthAndMoon},
        {"Neptune", 4, 432000, 2481, eight, false, false, 10, 7, onlyGiants},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestRun t;
        if (c.system != nullptr) c.system(t);
        t.settings.body = c.body;
        t.settings.step = c.step;
        t.settings.lastYear = c.lastYear;
        t.settings.measuring = Measuring::ExactPassages;
        t.settings.stepper = c.stepper;
        t.settings.relativistic = c.relativistic;
        t.settings.forward = !c.back;
        t.start();
        auto reference = referenceOf(t);
        const auto measured = apsesOf(t);
        EXPECT_EQ(t.s.GodR, t.run.GodEnd + (c.back ? -1 : 1));
        const auto expected = reference.apses(static_cast<std::size_t>(t.s.IplSel), t.s.Icentr,
                                              c.referenceStep * sekD, t.run.Tsec);
        ASSERT_GE(measured.size(), c.least);
        ASSERT_LE(measured.size(), expected.size());
        ASSERT_GE(measured.size() + 1, expected.size());
        for (std::size_t k = 2; k < measured.size(); ++k) {
            const Apse& a = measured[k];
            const auto& b = expected[k];
            EXPECT_EQ(a.atPerihelion, b.atPerihelion) << k;
            EXPECT_NEAR(3600 * std::remainder(a.perihelion - b.perihelion, 360), 0, arcSeconds) << k;
            // back in time the reference calls the other node ascending
            EXPECT_NEAR(3600 * std::remainder(a.node - b.node - (c.back ? 180 : 0), 360), 0, arcSeconds) << k;
            EXPECT_NEAR(a.distance / b.distance, 1, 1e-9) << k;
            EXPECT_NEAR(a.period / (2 * (measured[k].time - measured[k - 1].time) / sekD), 1, 0.2) << k;
        }
    }
}

// Post-Newtonian terms beside classical forces without retardation are the relativistic model: the perihelia
// of a century are the same to a millionth of a second of arc, and 43" from Newton's.
TEST(ExactPassages, ClassicalForcesWithRelativityAreTheRelativisticModel) {
    struct Way {
        bool relativistic;
        std::int16_t terms;
        bool gravitySpeed;
        Stepper stepper;
    };
    const auto perihelia = [](const Way& way) {
        TestRun t;
        t.settings.measuring = Measuring::ExactPassages;
        t.settings.stepper = way.stepper;
        t.settings.relativistic = way.relativistic;
        t.settings.finiteGravitySpeed = way.gravitySpeed;
        t.settings.step = way.stepper == Stepper::Order8 ? 86400 : 10800;
        t.settings.lastYear = way.stepper == Stepper::Order8 ? 1900 : 1806;
        t.start();
        t.motion.kodRelativity = way.terms;
        std::vector<double> all;
        for (const Apse& apse : apsesOf(t)) all.push_back(3600 * apse.perihelion);
        return all;
    };
    for (const Stepper stepper : {Stepper::Order8, Stepper::RungeKutta4}) {
        const bool high = stepper == Stepper::Order8;
        const auto einstein = perihelia({true, 0, false, stepper}),
                   both = perihelia({false, 1, !high, stepper}),
                   newton = perihelia({false, 0, false, stepper});
        ASSERT_EQ(einstein.size(), both.size());
        ASSERT_EQ(einstein.size(), newton.size());
        ASSERT_GE(einstein.size(), high ? 829u : 48u);
        const double century = high ? 1 : 0.06;
        for (std::size_t k = 0; k < both.size(); ++k) EXPECT_NEAR(both[k], einstein[k], 1e-6 * century) << k;
        EXPECT_NEAR(einstein.back() - newton.back(), 43 * century, high ? 0.2 : 0.3);
    }
}

// A known orbit from a quarter of an hour before its perihelion: what is passed in the first step counts.
TEST(ExactPassages, MeasureAKeplerOrbitFromItsFirstStep) {
    struct Case {
        double P, U;
        bool back;
    };
    for (const Case& c : {Case{77.4, 48.3, false}, Case{0.0001, 300, true}, Case{200, 359.9999, true}}) {
        TestRun t;
        test::tick(t.s, 1);
        const double a = 57.9e9, e = 0.2056, B = 7, sign = c.back ? -1 : 1;
        t.s.m[1] = t.s.m[0] * 1e-14;
        const double period = 2 * Pi * std::sqrt(a * a * a / (t.s.gamma * t.s.m[0]));
        t.s.AlfaP0[1] = c.P / kUgol, t.s.AlfaU0[1] = c.U / kUgol, t.s.Betta0[1] = B / kUgol;
        t.s.Eks0[1] = e, t.s.R0sr[1] = a, t.s.AlfaL[1] = t.s.AlfaP0[1] - sign * 2 * Pi * 900 / period;
        t.s.Ipl = 1;
        t.s.kodBary = 0;
        ElementsToXYZ(t.s);
        ElementsToVXYZ(t.s);
        t.s.X0 = t.s.X, t.s.Y0 = t.s.Y, t.s.Z0 = t.s.Z, t.s.VX0 = t.s.VX, t.s.VY0 = t.s.VY, t.s.VZ0 = t.s.VZ;
        const double elements[] = {0, t.s.AlfaP0[1], t.s.AlfaU0[1], t.s.Betta0[1], e, a};
        for (int k = 1; k <= 5; ++k) t.s.ElemStart[k][1] = elements[k];
        t.settings.measuring = Measuring::ExactPassages;
        t.settings.boxes.records = true;
        t.settings.forward = !c.back;
        t.settings.lastYear = c.back ? 1800 : 1801;
        t.settings.step = 1800;
        t.start();
        const auto apses = apsesOf(t);
        ASSERT_GE(apses.size(), 8u) << c.P;
        for (std::size_t k = 0; k < apses.size(); ++k) {
            EXPECT_NEAR(apses[k].time, 900 + k * period / 2, 1e-3) << k;
            EXPECT_NEAR(std::remainder(apses[k].perihelion - c.P, 360), 0, 2e-9) << k;
            EXPECT_NEAR(std::remainder(apses[k].node - c.U, 360), 0, 2e-9) << k;
        }
        EXPECT_NEAR(t.run.Period * sekD, period, 1e-3);
        EXPECT_NEAR(t.run.Eks, e, 1e-11);
        // the records bear the times of the passages, and their reader is ready for them
        TextReader file(t.folder.path() / "Plan0/Txt1/Tarvex1Ras1.txt");
        file.line();
        EXPECT_NE(file.line().find("kodSun=  0   точные прохождения"), std::string::npos);
        for (int line = 0; line < 2; ++line) file.line();
        const double most = file.number();
        file.number();
        EXPECT_EQ(file.number(), 3);
        EXPECT_EQ(file.number(), Fix(sign * 100 * (900 + 2 * period) / sekD));
        file.number();
        file.number();
        EXPECT_NEAR(file.number(), B * 1e8, 1);
        EXPECT_GE(most, apses.size());
    }
}

// A passage asks the equations once more at the end of its step.  The run must not feel that, whatever its
// law carries from step to step.
TEST(ExactPassages, LeaveTheRunAsItIs) {
    struct Law {
        std::int16_t kodPgr, kodDX, kodDiffurV, kodAA;
    };
    for (const Law law :
         {Law{0, 3, 0, 0}, Law{4, 2, 1, 1}, Law{5, 3, 1, 0}, Law{5, 1, 0, 1}, Law{7, 0, 1, 0}}) {
        TestRun measured, plain;
        for (TestRun* t : {&measured, &plain}) {
            t->settings.measuring = Measuring::ExactPassages;
            t->settings.finiteGravitySpeed = true;
            t->settings.gravitySpeed = 100;
            t->settings.lastYear = 1801;
            t->motion.kodPgr = law.kodPgr, t->motion.kodDX = law.kodDX;
            t->motion.kodDiffurV = law.kodDiffurV, t->motion.kodAA = law.kodAA;
            t->motion.kPgr1 = t->motion.kPgr2 = 1;
        }
        plain.settings.boxes.measure = false;
        plain.startAndGo();
        measured.start();
        EXPECT_GE(apsesOf(measured).size(), 7u);
        EXPECT_EQ(measured.motion.U, plain.motion.U) << law.kodPgr;
        EXPECT_EQ(measured.motion.d2R, plain.motion.d2R) << law.kodPgr;
        EXPECT_EQ(measured.run.Tsec, plain.run.Tsec);
        EXPECT_EQ(measured.s.JD, plain.s.JD);
    }
}

// The theory is asked at the passage itself: the perihelion is where its elements have it, from both sides.
TEST(ExactPassages, ImitatorsAreAskedAtThePassage) {
    for (const bool forward : {true, false}) {
        TestRun t;
        t.settings.model = false;
        t.settings.forward = forward;
        t.settings.boxes.theory = Imitator::JPL0;
        t.settings.measuring = Measuring::ExactPassages;
        t.settings.step = 86400;
        t.settings.lastYear = forward ? 1803 : 1799;
        t.start();
        const auto apses = apsesOf(t);
        ASSERT_GE(apses.size(), 15u);
        t.s.Ipl = 1;
        for (std::size_t k = 2; k < apses.size(); ++k) {
            t.s.JD = t.s.JDstart + (forward ? 1 : -1) * apses[k].time / sekD;
            ElementsJPL0(t.s);
            EXPECT_NEAR(apses[k].perihelion, t.s.AlfaP0[1] * kUgol, 1e-6) << k;
            EXPECT_NEAR(apses[k].node, t.s.AlfaU0[1] * kUgol, 2e-4) << k;  // it is older by a part of a turn
            EXPECT_NEAR(apses[k].distance, t.s.R0sr[1] * (1 + (apses[k].atPerihelion ? -1 : 1) * t.s.Eks0[1]),
                        10);
        }
        EXPECT_NEAR(t.run.Period, 87.9691, 1e-3);
    }
    // the ephemeris back and forth over a border of its files
    std::vector<Apse> way[2];
    for (const bool forward : {true, false}) {
        TestRun t;
        std::filesystem::remove(t.folder.path() / "JPL");
        test::linkEphemeris(t.folder);
        t.settings.model = false;
        t.settings.forward = forward;
        t.settings.boxes.theory = Imitator::JPL2;
        t.settings.measuring = Measuring::ExactPassages;
        t.settings.step = 21600;
        t.settings.lastYear = forward ? 2000 : 1999;
        t.s.JD0 = t.s.JDstart = 2451545.0 + (forward ? -366 : 366);  // the files meet at 2451536.5
        t.start();
        way[forward ? 0 : 1] = apsesOf(t);
    }
    ASSERT_GE(way[0].size(), 10u);
    std::size_t common = 0;
    for (const Apse& a : way[0])
        for (const Apse& b : way[1]) {
            if (std::abs(a.time + b.time - 732 * sekD) > 3600) continue;
            ++common;
            EXPECT_NEAR(a.time + b.time, 732 * sekD, 0.01);
            EXPECT_NEAR(a.distance, b.distance, 1);
        }
    EXPECT_GE(common, 10u);
}

// The other direction from where the run stands: what was not passed again yet is not measured, and the run
// comes back to its beginning.
TEST(ExactPassages, TurnRoundWithTheRun) {
    TestRun t;
    t.settings.measuring = Measuring::ExactPassages;
    t.settings.lastYear = 1802;
    t.start();
    const auto there = apsesOf(t);
    const double end = t.run.Tsec;
    t.settings.boxes.endAtYear = true;
    continueExperiment(t.experiment(), t.settings);
    setDirection(t.experiment(), -1);
    t.run.GodEnd = 1801;
    const auto back = apsesOf(t);
    ASSERT_GE(back.size() + 1, there.size());
    for (const Apse& b : back) {
        if (2 * end - b.time < there.front().time - 1) continue;  // from before the first perihelion
        double nearest = 1e9;
        for (const Apse& a : there) nearest = std::min(nearest, std::abs(2 * end - b.time - a.time));
        EXPECT_LT(nearest, 1) << b.time;
        EXPECT_NEAR(b.period, 87.97, 0.1);
    }
}

TEST(ExactPassages, HighOrderKnowsOnlyLawsOfTheMoment) {
    struct Case {
        bool model, relativistic, gravitySpeed, refused;
    };
    for (const Case c : {Case{true, false, true, true}, Case{true, false, false, false},
                         Case{true, true, true, false}, Case{false, false, true, false}}) {
        TestRun t;
        t.settings.stepper = Stepper::Order8;
        t.settings.model = c.model;
        t.settings.relativistic = c.relativistic;
        t.settings.finiteGravitySpeed = c.gravitySpeed;
        std::string message;
        try {
            t.start();
        } catch (const Refusal& refusal) {
            message = refusal.text + "|" + refusal.title;
        }
        EXPECT_EQ(message, c.refused ? "Высокий порядок - для Классики без Vgr и для ОТО|Tarvex7" : "");
        EXPECT_EQ(t.run.stepper == Stepper::Order8, c.model);
        EXPECT_EQ(t.run.measuring == Measuring::ExactPassages, c.model);
    }
    TestRun t;
    t.settings.stepper = Stepper::Order8;
    t.start();
    t.settings.finiteGravitySpeed = true;  // Continue reads it too
    EXPECT_THROW(continueExperiment(t.experiment(), t.settings), Refusal);
}

}  // namespace tarvex
