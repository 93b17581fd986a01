#include "numeric/run_loop.h"

#include <limits>

#include "numeric/integrator.h"
#include "tests/numeric/allocation_counter.h"
#include "tests/support/ephemeris_files.h"
#include "tests/support/test_run.h"
#include "theories/geometry.h"

namespace tarvex {

using test::TestRun;

namespace {

/// Stops the loop at a display pass and may act before that.
struct Stopper : RunPort {
    explicit Stopper(int passes_) : passes(passes_) {}
    bool giveWay() override { return --passes > 0; }
    int passes;
};

/// Text of the refusal that ends a run, "" when it ends by itself.
std::string endOf(TestRun& t, RunPort& port) {
    try {
        RunLoop(t.experiment(), port);
    } catch (const Refusal& refusal) {
        return refusal.text + "|" + refusal.title;
    }
    return "";
}

bool allNumbers(const TestRun& t) {
    bool fine = true;
    const auto look = [&fine](const auto& row) {
        for (const double v : row) fine = fine && std::isfinite(v);
    };
    for (const auto* row : {&t.s.X, &t.s.Y, &t.s.Z, &t.s.VX, &t.s.VY, &t.s.VZ, &t.s.Rr, &t.s.LonPl})
        look(*row);
    look(t.motion.U);
    look(t.motion.dU);
    look(t.motion.AX);
    look(t.run.K4);
    formPairs(t.motion);
    for (const auto* pairs : std::initializer_list<const PairArray*>{
             &t.motion.Rik, &t.motion.Fik, &t.motion.FXik, &t.motion.dV1, &t.motion.AV1})
        for (const auto& row : *pairs) look(row);
    return fine && std::isfinite(t.run.Vpl) && std::isfinite(t.run.AlfaP);
}

/// Mercury from the Sun by cells of the state or of its derivatives.
OrbitPoint mercuryIn(const double* c) {
    return {{c[1] - c[0], c[12] - c[11], c[23] - c[22]}, {c[34] - c[33], c[45] - c[44], c[56] - c[55]}};
}

void makeSteps(TestRun& t, Stepper stepper, double h, int steps) {
    t.start();
    t.s.DtCur = h;
    for (int n = 0; n < steps; ++n) {
        if (stepper == Stepper::Order8) {
            order8Step(t.s, t.motion, t.run.stages);
        } else {
            rungeKuttaStep(t.s, t.motion, t.run);
        }
    }
}

/// Place of Mercury after a time in steps of h, by the integrator alone.
Vec3 placeOfMercury(Stepper stepper, double time, double h) {
    TestRun t;
    makeSteps(t, stepper, h, static_cast<int>(std::lround(time / h)));
    return mercuryIn(t.motion.U.data()).r;
}

/// The same in the middle of a single step of order 8.
Vec3 denseMercury(double h) {
    TestRun t;
    t.start();
    const OrbitPoint start = mercuryIn(t.motion.U.data());
    makeSteps(t, Stepper::Order8, h, 1);
    completeStages(t.s, t.motion, t.run.stages);
    std::array<OrbitPoint, order8::allStages> slope;
    for (std::size_t k = 0; k < slope.size(); ++k) slope[k] = mercuryIn(t.run.stages.slope[k].data());
    return order8Arc(h, start, slope).at(0.5).r;
}

}  // namespace

TEST(Integrator, ConvergesInItsOrder) {
    const auto order = [](double coarse, double fine) {
        EXPECT_GT(fine, 0.005);  // metres: far above rounding
        return std::log2(coarse / fine);
    };
    const auto error = [best = placeOfMercury(Stepper::Order8, 32 * sekD, sekD / 4)](Stepper stepper,
                                                                                     double h) {
        return length(placeOfMercury(stepper, 32 * sekD, h) - best);
    };
    EXPECT_NEAR(order(error(Stepper::RungeKutta4, 21600), error(Stepper::RungeKutta4, 10800)), 4, 0.2);
    EXPECT_NEAR(order(error(Stepper::Order8, 4 * sekD), error(Stepper::Order8, 2 * sekD)), 8, 0.5);
    const auto denseError = [](double h) {
        return length(denseMercury(h) - placeOfMercury(Stepper::Order8, h / 2, h / 16));
    };
    EXPECT_NEAR(order(denseError(8 * sekD), denseError(4 * sekD)), 8,
                0.5);  // of one step: a power more than over many
}

// The accelerations inside the relativistic equations are those of the stage, to far below what an older step
// would leave of them.
TEST(Integrator, RelativisticStagesFulfilTheirEquations) {
    TestRun t;
    t.settings.relativistic = true;
    makeSteps(t, Stepper::Order8, 4 * sekD, 3);
    completeStages(t.s, t.motion, t.run.stages);
    const auto& slope = t.run.stages.slope[order8::stages];  // at the end of the step, where U is
    for (int i = 0; i < bodies; ++i)
        t.motion.AX[i] = slope[33 + i], t.motion.AY[i] = slope[44 + i], t.motion.AZ[i] = slope[55 + i];
    DiffurOTO(t.s, t.motion);
    for (int i = 0; i <= 9; ++i) {
        const Vec3 was{slope[33 + i], slope[44 + i], slope[55 + i]};
        const Vec3 now{t.motion.dU[33 + i], t.motion.dU[44 + i], t.motion.dU[55 + i]};
        EXPECT_LT(length(now - was) / length(now), 1e-14) << i;
    }
}

TEST(Integrator, KeepsEnergyAndMomentOfMomentum) {
    TestRun t;
    t.settings.boxes.energy = true;
    t.settings.boxes.measure = false;
    t.settings.lastYear = 1806;
    t.motion.kodEpot = t.motion.kodCMnow = 1;
    t.startAndGo();
    measureEnergy(t.s, t.motion, t.run, 10);
    EXPECT_LT(std::abs(t.run.Esys / t.run.E0sys - 1), 1e-8);
    EXPECT_LT(std::abs(t.run.MKDsys / t.run.MKD0sys - 1), 1e-10);
    EXPECT_NE(t.run.Esys, t.run.E0sys);
}

TEST(RunLoop, StopAndContinueEqualAnUnbrokenRun) {
    for (const int law : {0, 5}) {  // the Lienard-Wiechert law carries state from step to step
        TestRun whole, broken;
        for (TestRun* t : {&whole, &broken}) {
            t->settings.finiteGravitySpeed = law != 0;
            t->settings.stepsPerDisplay = 500;
            t->motion.kodPgr = static_cast<std::int16_t>(law);
            t->motion.kodDX = law == 0 ? 0 : 3;
            t->motion.kPgr1 = t->motion.kPgr2 = 1;
            t->start();
        }
        Stopper six(6);
        EXPECT_EQ(endOf(whole, six), "");
        for (int part = 0; part < 3; ++part) {
            if (part > 0) continueExperiment(broken.experiment(), broken.settings);
            Stopper two(2);
            EXPECT_EQ(endOf(broken, two), "");
        }
        EXPECT_EQ(whole.motion.U, broken.motion.U);
        EXPECT_EQ(whole.run.Tsec, broken.run.Tsec);
        EXPECT_EQ(whole.s.JD, broken.s.JD);
        EXPECT_EQ(whole.run.AlfaU, broken.run.AlfaU);
        EXPECT_EQ(whole.motion.d2R, broken.motion.d2R);
    }
}

TEST(RunLoop, AStopIsSeenAtTheNextDisplayAndABatchMakesNC0Steps) {
    TestRun t;
    t.settings.boxes.measure = false;
    t.settings.stepsPerDisplay = 7;
    t.start();
    struct StopAtFirst : RunPort {
        explicit StopAtFirst(ModelState& s_) : s(s_) {}
        bool giveWay() override {
            s.kodStop = 1;
            return true;
        }
        ModelState& s;
    } port{t.s};
    EXPECT_EQ(endOf(t, port), "");
    EXPECT_DOUBLE_EQ(t.run.Tsec, 14 * 3600);  // the press comes after the test of its own display pass
    t.s.NC = 0;                               // kodStop is still 1: one batch
    EXPECT_EQ(endOf(t, port), "");
    EXPECT_DOUBLE_EQ(t.run.Tsec, 21 * 3600);
    EXPECT_NEAR(t.s.JD - t.s.JDstart, 21. / 24, 1e-7);
}

TEST(RunLoop, GoesBackInTimeAndReturns) {
    TestRun t;
    t.settings.boxes.measure = false;
    t.settings.forward = false;
    t.settings.stepsPerDisplay = 100;
    t.start();
    EXPECT_DOUBLE_EQ(t.s.VY[1], -t.s.VY0[1]);
    const auto begin = t.motion.U;
    Stopper one(1);
    EXPECT_EQ(endOf(t, one), "");
    EXPECT_DOUBLE_EQ(t.run.Tsec, 360000);
    EXPECT_DOUBLE_EQ(t.run.Tmod, -360000);
    EXPECT_NEAR(t.s.JD, t.s.JDstart - 360000 / sekD, 1e-7);
    const double moment = t.run.MKD0sys;
    continueExperiment(t.experiment(), t.settings);
    setDirection(t.experiment(), 1);
    EXPECT_EQ(t.run.MKD0sys, -moment);
    Stopper again(1);
    EXPECT_EQ(endOf(t, again), "");
    EXPECT_NEAR(t.s.JD, t.s.JDstart, 1e-7);
    for (int k = 1; k < bodies; ++k) {
        EXPECT_NEAR(t.motion.U[k] - t.motion.U[0], begin[k] - begin[0], 100) << k;
        EXPECT_NEAR(t.motion.U[k + 33] - t.motion.U[33], begin[33] - begin[k + 33], 1e-4) << k;
    }
}

TEST(RunLoop, OriginFollowsTheLastTickedBox) {
    TestRun t;
    t.settings.boxes.measure = false;
    t.settings.stepsPerDisplay = 1;
    RunBoxes& boxes = t.settings.boxes;
    struct Case {
        bool sun, earth, centre;
        int row;
    };
    for (const Case c : {Case{false, false, false, 15}, Case{true, false, false, 0},
                         Case{true, true, false, 3}, Case{true, true, true, 14}}) {
        boxes.originSun = c.sun, boxes.originEarth = c.earth, boxes.originCentre = c.centre;
        t.start();
        Stopper one(1);
        EXPECT_EQ(endOf(t, one), "");
        EXPECT_EQ(t.s.Icentr, c.row);
        if (c.row < bodies) {
            EXPECT_EQ(t.s.X[c.row], 0);
        }
        if (c.row == rowCentre) {
            EXPECT_GT(std::abs(t.s.X[rowCentre]), 1e8);  // where it was before the shift
            EXPECT_EQ(t.motion.U[66], t.s.X[rowCentre]);
            double sum = 0;
            for (int i = 0; i < 10; ++i) sum += t.s.m[i] * t.s.X[i];
            EXPECT_LT(std::abs(sum / t.run.Msys), 1);
        }
        EXPECT_EQ(t.motion.U[1], t.s.X[1]);
    }
    t.motion.kodSun = 1;
    t.start();
    Stopper one(1);
    EXPECT_EQ(endOf(t, one), "");
    double momentum = t.s.m[0] * t.s.VX[0];
    for (int i = 1; i < bodies; ++i) momentum += t.s.kodPl[i] * t.s.m[i] * t.s.VX[i];
    EXPECT_LT(std::abs(momentum / t.s.m[0]), 1e-9);
    EXPECT_NE(t.motion.U[33], 0);
}

TEST(RunLoop, StepsAllocateNothing) {
    TestRun t;
    t.settings.stepsPerDisplay = 100;
    t.settings.stepDivider = 10;
    t.settings.finiteGravitySpeed = true;
    t.motion.kodPgr = 5;
    t.motion.kodDX = 3;
    t.start();
    struct Counter : RunPort {
        bool giveWay() override {
            if (++passes == 1) before = test::allocations();
            counted = test::allocations() - before;
            return passes < 150;
        }
        std::size_t before = 0, counted = 0;
        int passes = 0;
    } port;
    EXPECT_EQ(endOf(t, port), "");
    EXPECT_EQ(port.counted, 0u);
    EXPECT_GT(t.run.NZamer, 0);  // windows, node and apse were among the steps
}

TEST(RunLoop, WhateverFailsEndsTheRunAndLeavesNumbers) {
    const std::string message = "Ошибка решения уравнений|Tarvex7mmm";
    struct Case {
        const char* name;
        void (*spoil)(TestRun&);
    };
    const Case cases[] = {
        {"coinciding bodies",
         [](TestRun& t) { t.s.X0[2] = t.s.X0[1], t.s.Y0[2] = t.s.Y0[1], t.s.Z0[2] = t.s.Z0[1]; }},
        {"equal X and Y", [](TestRun& t) { t.s.X0[2] = t.s.X0[1], t.s.Y0[2] = t.s.Y0[1]; }},
        {"zero speed of gravity that is off", [](TestRun& t) { t.settings.gravitySpeed = 0; }},
        {"zero divider", [](TestRun& t) { t.settings.stepDivider = 0; }},
        {"zero mass", [](TestRun& t) { t.s.m[4] = 0; }},
        {"step that leaves the calendar", [](TestRun& t) { t.settings.step = 1e30; }},
        {"step that overflows", [](TestRun& t) { t.settings.step = 1e300; }},
        {"exponent that overflows", [](TestRun& t) { t.settings.distanceExponent = -40; }},
        {"relativistic coincidence",
         [](TestRun& t) {
             t.settings.relativistic = true;
             t.s.X0[2] = t.s.X0[1], t.s.Y0[2] = t.s.Y0[1], t.s.Z0[2] = t.s.Z0[1];
         }},
        {"parabolic orbit of an imitator",
         [](TestRun& t) {
             t.settings.model = false;
             t.settings.boxes.theory = Imitator::JPL0;
             t.s.JDstart = 1e12;
         }},
    };
    for (const Case& c : cases) {
        TestRun t;
        t.settings.boxes.endAtYear = false;
        c.spoil(t);
        std::string end;
        try {
            t.start();
            Stopper some(40);
            end = endOf(t, some);
        } catch (const Failure&) {
            end = "start";
        }
        EXPECT_EQ(end, message) << c.name;
        EXPECT_TRUE(allNumbers(t)) << c.name;
    }
}

TEST(RunLoop, AFailedStepGivesBackTheLastGoodState) {
    TestRun t;
    test::tick(t.s, 10);
    t.settings.boxes = {};
    t.settings.boxes.originSun = false;
    t.settings.step = 1000;
    // Xena flies straight along X and meets a resting Pluto at the end of the third step; forces are off
    for (int i = 0; i < bodies; ++i) {
        t.s.X0[i] = i * 1e9, t.s.Y0[i] = i * i * 1e8, t.s.VX0[i] = t.s.VY0[i] = t.s.VZ0[i] = 0;
        for (int j = 0; j < bodies; ++j) t.s.kodPair[i][j] = 0;
    }
    t.s.X0[10] = t.s.X0[9] - 3e6, t.s.Y0[10] = t.s.Y0[9], t.s.Z0[10] = t.s.Z0[9] = 0, t.s.VX0[10] = 1000;
    t.start();
    Stopper many(100);
    EXPECT_EQ(endOf(t, many), "Ошибка решения уравнений|Tarvex7mmm");
    EXPECT_DOUBLE_EQ(t.run.Tsec, 2000);  // the third step asks for the force at the meeting point
    EXPECT_DOUBLE_EQ(t.s.X[10], t.s.X0[10] + 2e6);
    EXPECT_EQ(t.motion.U[10], t.s.X[10]);
    EXPECT_TRUE(allNumbers(t));
}

TEST(RunLoop, ImitatorsFollowTheirTheory) {
    TestRun t;
    t.settings.model = false;
    t.settings.boxes.theory = Imitator::JPL0;
    t.settings.stepDivider = 200;
    t.settings.lastYear = 1803;
    t.start();
    EXPECT_EQ(t.run.ModelName, "JPL_0");
    t.go();
    const double shown = t.run.AlfaP;
    t.s.JD = t.s.JDstart + t.run.Tmod / sekD;
    t.s.Ipl = 1;
    ElementsJPL0(t.s);
    EXPECT_NEAR(shown, t.s.AlfaP0[1] * kUgol, 0.01);
    EXPECT_NEAR(t.run.Eks, t.s.Eks0[1], 1e-6);
    EXPECT_NEAR(t.run.AlfaU, t.s.AlfaU0[1] * kUgol, 0.01);
    EXPECT_GE(t.run.NZamer, 11);
}

TEST(RunLoop, TheEphemerisImitatorCrossesFileBorders) {
    TestRun t;
    std::filesystem::remove(t.folder.path() / "JPL");
    test::linkEphemeris(t.folder);
    t.settings.model = false;
    t.settings.boxes.theory = Imitator::JPL2;
    t.settings.step = 7200;
    t.settings.body = 4;
    t.settings.lastYear = 2001;
    t.settings.stepDivider = 10;
    t.s.JD0 = t.s.JDstart = 2451545.0 - 400;  // the files meet at 2451536.5
    t.start();
    EXPECT_EQ(t.ephemeris.DEyear, 1980);
    t.go();
    EXPECT_EQ(t.ephemeris.DEyear, 2000);
    EXPECT_GT(t.run.NZamer, 0);
    EXPECT_NEAR(t.run.AlfaP, 336.06, 0.1);  // osculating perihelion of Mars near 2000
    // the place of the last pass, one step before the clock that ended the run
    const double x = t.s.X[4];
    t.ephemeris.JDjpl -= t.s.DtCur / sekD;
    DEEvaluate(t.s, t.ephemeris, 0, 1);
    DEEvaluate(t.s, t.ephemeris, 4, 1);
    EXPECT_NEAR(x, t.s.X[4] - t.s.X[0], 1);
    EXPECT_LE(t.ephemeris.JDrec1, t.ephemeris.JDjpl);
    EXPECT_GT(t.ephemeris.JDrec2, t.ephemeris.JDjpl);

    t.s.JDstart = 2414992;  // no such file here
    EXPECT_THROW(t.start(), FileFailure);
    t.s.JDstart = 2305000;
    EXPECT_THROW(t.start(), Refusal);
    EXPECT_EQ(t.s.kodStop, 1);
    t.settings.forward = false;  // the walk does not go back
    t.s.JDstart = 2451545 - 400;
    t.start();
    EXPECT_EQ(endOf(t, t.port), "Ошибка чтения файлов JPL|Tarvex7");
}

}  // namespace tarvex
