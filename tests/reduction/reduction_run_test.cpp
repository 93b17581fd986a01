#include "reduction/reduction_run.h"

#include "core/calendar.h"
#include "reduction/coordinate_chain.h"
#include "reduction/reduction_chain.h"
#include "reduction/reduction_files.h"
#include "stats/stat.h"
#include "tests/support/testing.h"
#include "theories/perturbations.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

double arcSeconds(double a, double b) { return std::remainder(a - b, 360.0) * 3600; }

struct Bench : ::testing::Test {
    Bench() {
        for (const char* name : {"Obs", "Dat"}) folder.makeFolder(name);
        s.gamma = 6.67259e-11;
        s.NameData = "SUMM";
        s.IplSel = 0;
        c.tables = false;
        c.aberrSource = c.aberrReceiver = false;
    }

    /// Place of the body at a date; returns the state's row of stages.
    void reduce(double JD) {
        s.JD = JD;
        reduceTheory(s, r, plan, log, {});
    }
    SkyPlace at(ChainStage stage) const { return r.stage[stage]; }

    /// Observations of the Sun each 20 days of a year: the theory's own places with offsets, arc seconds.
    void writeObservations(const std::vector<std::pair<double, double>>& offsets,
                           const std::string& tail = "") {
        std::string text = "a\r\nb\r\nc\r\nd\r\n 1980  1982 \r\n";
        double JD = 2444250;
        for (const auto& [dL, dB] : offsets) {
            reduce(JD);
            s.kodKalend = 0;
            double date = JD;
            DateFromJD(s, date);
            text += observationRecord(s.GodR, s.MesR, int(s.DenR), (s.DenR - int(s.DenR)) * 24,
                                      r.Lt - dL / 3600, r.Bt - dB / 3600) +
                    "\r\n";
            JD += 20;
        }
        test::writeBytes(folder.path() / "Obs/SUMM0_G_100.txt", text + tail);
        r.header = r.file.open(folder.path() / "Obs/SUMM0_G_100.txt", "").text;
        s.God0 = 1980;
        r.GodK = 1982;
        s.JDepoha = 2444200;
    }

    test::TempFolder folder;
    DataTree tree{folder.path()};
    ModelState s;
    ReductionState r;
    PlanBlock plan;
    StageLog log;
    ReductionView view;
    Reduction all{s, r, plan, tree};
    ReductionChoices& c = r.choices;
};

}  // namespace

TEST_F(Bench, EachCorrectionHasItsSizeByItself) {
    const double JD = 2446895.5;  // 10 April 1987
    s.ObsB = 0;
    reduce(JD);
    const SkyPlace ofDate = at(stageOfDate), equator = at(stageEquator), J2000 = at(stageJ2000);
    EXPECT_NEAR(arcSeconds(ofDate.L, J2000.L), -50.29 * 12.73, 1) << "precession";

    // aberration of the Sun: as good as all of it is the Earth's velocity
    c.aberrReceiver = true;
    reduce(JD);
    EXPECT_NEAR(arcSeconds(at(stageReceiver).L, J2000.L), -20.4, 0.4);
    EXPECT_LT(std::abs(at(stageReceiver).B - J2000.B) * 3600, 0.5);
    c.aberrReceiver = false;
    c.aberrSource = true;
    reduce(JD);
    EXPECT_NEAR(arcSeconds(at(stageSource).L, J2000.L), 0, 0.05) << "the Sun itself is at rest";
    s.IplSel = 4;
    c.planet = PlanetTheory::Ser0;
    reduce(JD);
    EXPECT_GT(std::abs(arcSeconds(at(stageSource).L, at(stageJ2000).L)), 5) << "Mars is not";
    s.IplSel = 0;
    c.aberrSource = false;

    // nutation of that date: -3.79 arc seconds in longitude, +9.44 in obliquity
    c.nutation = true;
    reduce(JD);
    s.Ipl = 0;
    EquToEcl(s, (JD - JD2000) / 36525 + 0);
    const double eps = 23.4409463 / kUgol, L = ofDate.L / kUgol;
    const double dAlpha =
        (std::cos(eps) + std::sin(eps) * std::sin(equator.L / kUgol) * std::tan(equator.B / kUgol)) * -3.788 -
        std::cos(equator.L / kUgol) * std::tan(equator.B / kUgol) * 9.443;
    EXPECT_NEAR(arcSeconds(at(stageNutation).L, equator.L), dAlpha, 0.1);
    EXPECT_NEAR(arcSeconds(at(stageNutation).B, equator.B),
                std::sin(eps) * std::cos(equator.L / kUgol) * -3.788 + std::sin(equator.L / kUgol) * 9.443,
                0.1)
        << L;
    c.nutation = false;

    // parallax: 8.79 arc seconds for a Sun on the horizon, nearly a degree for the Moon
    c.parallax = true;
    for (const auto& [body, most] : std::map<int, double>{{0, 8.9}, {11, 3700}}) {
        s.IplSel = body;
        double largest = 0;
        for (int hour = 0; hour < 24; ++hour) {
            reduce(JD + hour / 24.0);
            largest = std::max(largest, std::abs(arcSeconds(at(stageParallax).L, at(stageEquator).L)));
        }
        EXPECT_GT(largest, most * 0.85) << body;
        EXPECT_LT(largest, most) << body;
    }
}

TEST_F(Bench, TheSunStandsWhereTheAlmanacHasIt) {
    // 13 October 1992, 0 h dynamical time: apparent right ascension and declination by VSOP87
    c.aberrSource = c.aberrReceiver = c.nutation = true;
    for (const auto theory : {EarthTheory::JPL0, EarthTheory::Ser0, EarthTheory::Ser0Plus}) {
        c.earth = theory;
        reduce(2448908.5 - 59 / 86400.0);
        EXPECT_NEAR(arcSeconds(r.Lt, 198.378178), 0, 60);
        EXPECT_NEAR(arcSeconds(r.Bt, -7.783871), 0, 40);
    }
}

TEST_F(Bench, AgainstApparentPlacesComputedFromTheEphemerisByOtherRoutines) {
    const DataTree data(TARVEX_SOURCE_DIR "/data");
    readPlanetPerturbations(s, data.at(files::perturbations(1)));
    s.Ipert1 = {0, 2, 3, 2, 3};
    s.Ipert2 = {0, 5, 5, 5, 5};
    r.header = r.file.open(data.at(observationFileName("SUMM", 0, "100", "")), "").text;
    EXPECT_NE(r.header.find("Это не наблюдения"), std::string::npos);
    s.God0 = 1985;
    r.GodK = 2004;
    s.JDepoha = 2446066.5;
    c.earth = EarthTheory::Ser0Plus;
    const auto means = [&] {
        startReduction(all);
        ReductionRun(all, view);
        EXPECT_NEAR(r.NObs, 20 * 73, 2);
        return SkyPlace{3600 * r.sumL / r.NObs, r.criterion[3][2][0]};  // mean of dL, scatter of dB
    };
    c.aberrSource = c.aberrReceiver = c.nutation = true;
    const SkyPlace full = means();
    EXPECT_NEAR(full.L, 0, 4);
    EXPECT_LT(r.criterion[2][1][0], 9);
    c.earthMoonTerms = true;
    means();
    EXPECT_LT(r.criterion[2][1][0], 4.5) << "the fitted terms";
    c.earthMoonTerms = false;
    c.aberrReceiver = false;
    EXPECT_NEAR(means().L - full.L, 20.5, 0.5);
    c.aberrReceiver = true;
    c.parallax = true;  // the places are free of it: at a pole they move by 8.8 arc seconds in declination
    s.ObsB = 90;
    means();
    EXPECT_NEAR(3600 * r.sumB / r.NObs, -8.79 * 0.96, 1.2);
}

TEST_F(Bench, RefractionLowersTheTheoryAndTheStagesKeepTheirOrder) {
    c.aberrSource = c.aberrReceiver = c.nutation = c.parallax = c.refraction = c.tables = c.earthMoonTerms =
        true;
    std::vector<std::string> labels;
    log = [&](const char* label, double, double, double) { labels.emplace_back(label); };
    s.ObsB = 50;
    s.IplSel = 11;
    reduce(2448908.5);
    EXPECT_EQ(labels,
              (std::vector<std::string>{
                  "  Zem Gelio Ecl J2000  ", "  Zem_dLdB    GEЛИO ECL JD-J2000 ", "  Moon  GEO ECL JD-J2000 ",
                  " MOON_dLdB_012    GEO ECL JD-J2000 ", "  Moon  GEO ECL J2000 ", "  Ras GEO ECL J2000   ",
                  "  GEO ECL Ras Apl    ", "  GEO ECL Ras Azv    ", "  J2000 -> JD   ",
                  "  GEO ECL -> GEO EQU   ", "  GEO EQU Ras Par   ", "  GEO EQU Ras Ref   ",
                  "  GEO EQU Ras Nut   ", "  GEO EQU -> GEO ECL   "}));

    // with the observer at the pole the altitude is the declination
    s.ObsB = 90;
    s.IplSel = 0;
    c.nutation = c.tables = false;
    reduce(2448908.5 - 60);  // August: the Sun is up there
    const double before = at(stageParallax).B, after = at(stageRefraction).B;
    EXPECT_NEAR((before - after) * 3600, Refraction(90 - before) * 3600, 0.1);
    EXPECT_GT(before - after, 0);
}

TEST_F(Bench, SumsCriteriaAndFilterAgainstDirectSums) {
    const std::vector<std::pair<double, double>> offsets = {{3, -1}, {-4, 2}, {1, 1}, {60, 0}, {2, -5}};
    writeObservations(offsets);
    c.byDistance = false;
    c.filter = true;
    c.dMax = 50;  // drops the fourth
    c.statistics = true;
    c.weightByCount = true;
    startReduction(all);
    ReductionRun(all, view);
    EXPECT_EQ(r.NObs, 4);
    EXPECT_EQ(r.NPlus, 3 + 2);
    EXPECT_NEAR(r.criterion[2][1][0], (3 + 4 + 1 + 2) / 4.0, 2e-3);
    EXPECT_NEAR(r.criterion[2][2][0], std::sqrt((9 + 16 + 1 + 4) / 4.0), 2e-3);
    EXPECT_NEAR(r.criterion[3][1][0], (1 + 2 + 1 + 5) / 4.0, 2e-3);
    EXPECT_DOUBLE_EQ(plan.Yu[0], r.criterion[2][1][0]);
    EXPECT_NEAR(plan.Xnul[10], (4 / 1000. + 1) * (2 / 100. + 1) / plan.Yu[0], 1e-12);
    EXPECT_NEAR(s.JDut, 2444250 + (0 + 20 + 40 + 80) / 4.0, 1e-6);
    EXPECT_EQ(r.count[2] + r.count[3], 2) << "1 and 2 arc seconds";
    EXPECT_EQ(r.count[19], 1) << "60 arc seconds, counted although it is rejected";
    EXPECT_TRUE(r.file.isOpen());

    // an experiment above 0 stays at the end of the file, the first one has been rewound
    ReductionRun(all, view);
    EXPECT_EQ(r.NObs, 8);
    r.experiment = 1;
    startPasses(all);
    ReductionRun(all, view);
    EXPECT_EQ(r.NObs, 4);
    ReductionRun(all, view);
    EXPECT_EQ(r.NObs, 4) << "nothing is left";
}

TEST_F(Bench, OneStepStopAndVisibility) {
    writeObservations({{1, 1}, {2, 2}, {3, 3}});
    startReduction(all);
    s.kodStop = 1;
    for (const int expected : {1, 2, 3, 3, 4}) {  // the fourth finds the end and rewinds
        ReductionRun(all, view);
        EXPECT_EQ(r.NObs, expected);
    }
    s.kodStop = 0;
    c.visibility = true;
    c.HplMin = 91;
    startReduction(all);
    ReductionRun(all, view);
    EXPECT_EQ(r.NObs, 0);
    EXPECT_EQ(s.JDut0, 2444290) << "all were read";
}

TEST_F(Bench, ABadRecordStopsTheRunInOrder) {
    writeObservations({{1, 1}, {2, 2}}, "          1981 letters");
    startReduction(all);
    try {
        ReductionRun(all, view);
        FAIL();
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.text,
                  "Ошибка чтения данных из файла\r\n" + (folder.path() / "Obs/SUMM0_G_100.txt").string());
        EXPECT_EQ(refusal.title, "Tarvex7");
    }
    EXPECT_EQ(r.NObs, 2);
    EXPECT_EQ(s.kodStop, 1);
    EXPECT_FALSE(r.file.isOpen());
}

TEST_F(Bench, FilesByteForByte) {
    writeObservations({{3, -1}, {-60, 2}});
    const std::string source = test::readBytes(folder.path() / "Obs/SUMM0_G_100.txt");
    c.byDistance = false;
    c.filter = c.goodBadFiles = c.debugFile = c.statistics = true;
    c.dMax = 50;
    startReduction(all);
    ReductionRun(all, view);

    const auto end = source.rfind("\r\n", source.size() - 3) + 2;
    EXPECT_EQ(test::readBytes(tree.at("\\Obs\\SUMM0_G_41L.txt")), source.substr(0, end));
    ObservationFile again;
    EXPECT_EQ(again.open(tree.at("\\Obs\\SUMM0_G_41L.txt"), "").lastYear, 1982);

    const std::string bad = test::readBytes(tree.at("\\Dat\\Bad_dataSUMM0_100.txt"));
    EXPECT_EQ(
        bad,
        "планета  № 0   обсерватория SUMM\r\nдата наблюдения и отклонения по долготе (сек) широте (сек) и "
        "расстоянию (тыс.км.)\r\n 31.5  1  1980 -60  1.999  40.9 \r\n");

    const std::string stages = test::readBytes(tree.at("\\Dat\\Ras_data_SUMM0_100.txt"));
    EXPECT_EQ(std::count(stages.begin(), stages.end(), '\n'), 2 + 2 * 7) << stages;
    EXPECT_NE(stages.find("  1  1980  JD= 2444250  GEO EQU (GEO ECL) Nabl      \r\n"), std::string::npos)
        << stages;

    writeStatistics(s, r, tree);
    const std::string statistics = test::readBytes(tree.at("\\Dat\\StatSUMM0_100.txt"));
    EXPECT_EQ(
        statistics.substr(0, statistics.find("01...")),
        "статистика данных  SUMM  по планете 0\r\nинтервалы dL и dB в угловых секундах dR в тыс.км.)\r\n\r\n"
        "00...01   0000        0,00...0,25   0000        000,00...002,78   0001\r\n");
    EXPECT_NE(statistics.find("\r\n18...     0001        4,50...       0000        050,00...         0000\r\n"
                              "                 общее количество точек  1\r\ndLsr= 3,0"),
              std::string::npos)
        << statistics;

    c.goodNumber = "100";
    c.byDistance = true;
    EXPECT_NO_THROW(startReduction(all));
    r.file.open(tree.at(goodFileName(s, r)), "");
    EXPECT_THROW(startReduction(all), FileFailure) << "the Good file would be the one that is read";
    startPasses(all);
    r.clearSums();
    EXPECT_THROW(writeStatistics(s, r, tree), ArithmeticFailure);
    EXPECT_EQ(test::readBytes(tree.at("\\Dat\\StatSUMM0_100.txt")), statistics) << "the old file stays whole";
}

TEST_F(Bench, APlanFindsTheElementsThatMadeTheObservations) {
    // Observations of the Sun by elements of the plan; the plan starts beside them and must come back.
    s.JDepoha = 2444250;
    s.JD = s.JDepoha;
    s.Ipl = 3;
    InitMassesSer0(s);
    ElementsJPL0(s);
    c.planet = PlanetTheory::Plan;
    const std::array<double, 10> truth = {0,
                                          s.R0sr[3],
                                          s.Eks0[3],
                                          kUgol * s.Betta0[3],
                                          kUgol * s.AlfaP0[3],
                                          kUgol * s.AlfaU0[3],
                                          100 * s.W0sr[3] * sekG,
                                          kUgol * s.AlfaL[3],
                                          0,
                                          0};
    for (int i = 1; i <= 9; ++i) plan.XU[i][0] = plan.Xnul[i] = truth[i];
    std::vector<std::pair<double, double>> exact(40);
    writeObservations(exact);
    s.JDepoha = 2444250;

    plan.kodPlan = planOrtho;
    plan.Nf = 2;
    plan.Nfact = {0, 2, 7};
    PlanCenterCount(plan);
    BuildPlan(plan);
    PlanCoefficients(plan);
    plan.dXvar[2] = 1e-4;
    plan.dXvar[7] = 0.01;
    plan.Xnul[2] += 0.4e-4;
    plan.Xnul[7] -= 0.003;
    c.rootMeanSquare = true;
    c.byDistance = false;
    layOutExperiments(plan, plan.Nplan);
    for (r.experiment = 1; r.experiment <= plan.Nplan; ++r.experiment) {
        startPasses(all);
        ReductionRun(all, view);
        r.file.rewind();
        ASSERT_EQ(r.NObs, 40);
        plan.Yu[r.experiment] *= plan.Yu[r.experiment];  // the square is quadratic in the elements
    }
    fitResponses(plan);
    BuildOptimumSystem(plan);
    EXPECT_NEAR(plan.Xopt[1], -0.4, 0.01);
    EXPECT_NEAR(plan.Xopt[2], 0.3, 0.01);
    for (int k = 1; k <= plan.Nplan; ++k) EXPECT_NEAR(plan.Yras[k], plan.Yu[k], 0.02 * plan.Yu[1]);
    plan.Xnul[7] = plan.dXvar[7] = 1.5e308;  // their sum is beyond range
    EXPECT_THROW(layOutExperiments(plan, plan.Nplan), ArithmeticFailure);
}

TEST_F(Bench, TheTestOfTheRegressionGivesItsOwnTerms) {
    plan.kodPlan = planOrtho;
    plan.Nf = 3;
    plan.Nfact = {0, 1, 4, 7};
    PlanCenterCount(plan);
    BuildPlan(plan);
    runTestOfRegression(plan, 1, plan.Nplan);
    EXPECT_DOUBLE_EQ(plan.Yu[1], 10) << "all factors at +1";
    EXPECT_EQ(plan.Xnul[4], 1);
    EXPECT_EQ(plan.Xnul[2], 0);
    EXPECT_THROW(runTestOfRegression(plan, 1, 200), std::out_of_range);
}

}  // namespace tarvex
