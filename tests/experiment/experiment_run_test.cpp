#include "experiment/experiment_run.h"

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

}  // namespace tarvex
