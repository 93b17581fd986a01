#include "experiment/experiment_run.h"

#include "experiment/lane_runs.h"
#include "tests/support/testing.h"

namespace tarvex {

using test::TempFolder;

namespace {

void makeTree(const TempFolder& folder) {
    for (const char* name : {"Dat", "JPL", "NEW", "Ser", "Plan0/Txt1", "Plan3/Txt2"}) folder.makeFolder(name);
}

/// Two years of Mercury by windows, with records.
ExperimentSettings twoYears() {
    ExperimentSettings set{.initial = InitialSettings{}, .laws = LawSettings{}};
    set.run.boxes = {.measure = true, .records = true, .endAtYear = true};
    set.run.stepDivider = 50;
    set.run.lastYear = 1802;
    return set;
}

}  // namespace

TEST(ExperimentRun, MeasuresAnOrbitAndStopsWhereThePortSays) {
    const TempFolder folder;
    makeTree(folder);
    const DataTree tree(folder.path());
    Model model(tree);
    ExperimentSettings set = twoYears();
    double share = 0;
    const ExperimentResult seen = runExperiment(model.experiment(), set, [&](double now) {
        EXPECT_GE(now, share);
        share = now;
        return true;
    });
    EXPECT_TRUE(seen.complete);
    EXPECT_GT(share, 0.9);
    EXPECT_EQ(seen.turns, 8);
    // Standish and Williams, approximate elements of the planets, ecliptic of J2000: two centuries back
    const OrbitSeen& orbit = seen.orbits.back();
    EXPECT_EQ(seen.orbits.size(), 15U);
    EXPECT_NEAR(orbit.perihelion, 77.45780 - 0.16048 * 1.97, 0.01);
    EXPECT_NEAR(orbit.node, 48.33077 + 0.12534 * 1.97, 0.01);
    EXPECT_NEAR(orbit.inclination, 7.00498 + 0.00595 * 1.97, 0.01);
    EXPECT_NEAR(orbit.eccentricity, 0.20564, 2e-4);
    EXPECT_NEAR(orbit.semiAxis / 149597870e3, 0.387099, 1e-4);
    EXPECT_NEAR(orbit.period, 87.969, 0.01);
    EXPECT_NEAR(orbit.JD - seen.orbits[orbit.atPerihelion == seen.orbits[13].atPerihelion ? 13 : 12].JD,
                87.969, 0.1);
    EXPECT_EQ(seen.record, "\\Plan0\\Txt1\\Tarvex1Ras1.txt");
    EXPECT_EQ(seen.track, "");

    // in the folder of a plan, another body; stopped half way
    set.plan = 3;
    set.run.body = 2;
    set.run.experiment = 7;
    const ExperimentResult half =
        runExperiment(model.experiment(), set, [](double now) { return now < 0.5; });
    EXPECT_FALSE(half.complete);
    EXPECT_EQ(half.record, "\\Plan3\\Txt2\\Tarvex2Ras7.txt");
    EXPECT_TRUE(std::filesystem::exists(tree.at(half.record)));
    EXPECT_NEAR(half.JD, seen.JD - 365, 20);
}

namespace {

struct Retarded {
    int body;
    double Vgr, step, k1;
    bool exact = false;
    Pressure law = Pressure::LienardWiechert;
    bool shortForm = false, atStage = false;
    double last = 1;  ///< share of its year that it runs
};

/// Everything that a run leaves behind, or what it failed with.
std::string left(const Retarded& c, StepSeat* seat) {
    const TempFolder folder;
    for (const char* name : {"Dat", "Plan0/Txt1", "Plan0/Txt2", "Plan0/Txt3"}) folder.makeFolder(name);
    const DataTree tree(folder.path());
    const auto model = std::make_unique<Model>(tree);
    ExperimentSettings set = twoYears();
    set.laws = LawSettings{.pressure = c.law,
                           .retardation = Retardation::ByAccelerations,
                           .k1 = c.k1,
                           .k2 = 0.3,
                           .ratesEachStage = c.atStage,
                           .shortLienardWiechert = c.shortForm};
    set.run.body = c.body;
    set.run.finiteGravitySpeed = true;
    set.run.gravitySpeed = c.Vgr;
    set.run.step = c.step;
    set.run.lastYear = 1801;
    set.run.measuring = c.exact ? Measuring::ExactPassages : Measuring::Windows;
    Experiment e = model->experiment();
    e.seat = seat;
    try {
        const ExperimentResult seen = runExperiment(e, set, [&](double share) { return share < c.last; });
        std::string all = test::readBytes(tree.at(seen.record));
        const auto add = [&](const auto& value) {
            all.append(reinterpret_cast<const char*>(&value), sizeof value);
        };
        const Motion& m = model->motion;
        add(m.U);
        for (const PairArray* pairs : {&m.dV1old, &m.AV1, &m.AV1old, &m.BV1, &m.A1zap, &m.V1zap})
            add((*pairs)[2][1]);
        return all;
    } catch (const Refusal& refusal) {
        return refusal.text + refusal.cause;
    }
}

}  // namespace

/// Side by side they leave what they leave one after another, to the last bit: with steps, bodies and laws of
/// their own, when one of them fails, another is stopped and a third ends late.
TEST(LaneRuns, AreRunsOneAfterAnother) {
    const std::vector<Retarded> plans[] = {
        {{1, 200, 3600, 1},
         {2, 10, 7200, 0.5, true},
         {3, 300, 9000, 0, false, Pressure::LienardWiechert, true}},
        {{1, 50, 3600, 1},
         {1, 60, 3000, 0.7, true},
         {2, 70, 3600, 1e300},  // no force is a number
         {2, 80, 3600, 1, false, Pressure::LienardWiechert, false, false, 0.4},
         {3, 5, 7000, 1, true},
         {1, 90, 9000, 1, true, Pressure::LienardWiechert, false, true}},  // no law of the lanes
        {{1, 50, 3600, 0, false, Pressure::None}, {2, 60, 4000, 0, true, Pressure::None}},
    };
    for (const auto& plan : plans) {
        std::vector<std::string> abreast(plan.size());
        std::vector<std::function<void(StepSeat&)>> runs;
        for (std::size_t n = 0; n < plan.size(); ++n)
            runs.emplace_back([&, n](StepSeat& seat) { abreast[n] = left(plan[n], &seat); });
        EXPECT_GT(runInLanes(runs), 3000U);
        for (std::size_t n = 0; n < plan.size(); ++n) {
            const std::string alone = left(plan[n], nullptr);
            EXPECT_TRUE(abreast[n] == alone) << n << " of " << plan.size() << ":\n" << alone.substr(0, 200);
        }
    }
}

}  // namespace tarvex
