#include "reduction/optimum_record.h"

#include "reduction/eclipse_log.h"
#include "tests/support/testing.h"

namespace tarvex {

// A record of a date that the series holds takes its place only when told so, and keeps the place in time it
// had.
TEST(OptimumRecord, EntersTheSeriesByItsDate) {
    const test::TempFolder folder;
    folder.makeFolder("Ser/Plan4");
    const DataTree tree(folder.path());
    SeriesData series;
    EXPECT_THROW(readOptimumSeries(tree, series, 4, 3, "1.1.2027"), OpenFailure);
    series.FileData = optimumFile(4, 3);
    series.kodData = dataLong;
    series.JD0 = 2400000;
    series.records.resize(2);
    series.records[1].dTd = 60000;
    writeSeries(tree, series);
    OptimumSeries found = readOptimumSeries(tree, {}, 4, 3, "1.1.2027");
    EXPECT_EQ(found.asRead, "NP1max=  2   JD0 =  2400000");

    const std::array<double, 10> level = {0, 149600, 0.0167, 3, 4, 5, 6, 7, 8, 9};
    int asked = 0;
    const auto answer = [&](bool yes) {
        return [&asked, yes](int at) {
            asked += at;
            return yes;
        };
    };
    EXPECT_EQ(enterOptimum(found.series, 2450000, optimumRecord(level, 2.5, 200), answer(false)), 2);
    EXPECT_EQ(asked, 0);
    const Record& r = found.series.at(2);
    EXPECT_EQ((std::array{r.Par[parRsr], r.Par[parEks], r.Par[parBetta], r.Par[parAlfaP], r.Par[parAlfaU],
                          r.Par[parW], r.Par[parAlfaL0], r.Par[parDP11], r.Par[parDU11], r.Par[parVes],
                          r.ddTd, r.dTd}),
              (std::array{149.6, 0.0167, 3., 4., 5., 6., 7., 8., 9., 2.5, 200., 50000.}));
    EXPECT_EQ(enterOptimum(found.series, 2450000, optimumRecord(level, 3.5, 100), answer(true)), 2);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(found.series.NP1max(), 3);
    EXPECT_EQ(found.series.at(2).Par[parVes], 3.5);
    EXPECT_EQ(found.series.at(2).dTd, 50000);

    const auto lines = optimumLines(found, 2);
    ASSERT_EQ(lines.size(), 4 + 1 + 3 + 2U);
    EXPECT_EQ(lines[2], "по плану №  4   от 1.1.2027");
    EXPECT_EQ(lines[6], lines[8]);
    EXPECT_TRUE(lines[7].starts_with(
        "0002    dT= 0050000,00    ddT= 000100,00    Ves= 03,500    AlfaP  = 000004,0000"));
}

TEST(EclipseLog, TheSunRisesAndSetsBetweenSteps) {
    using Seen = RiseAndSet::Seen;
    struct Step {
        double altitude;
        Seen seen;
    };
    RiseAndSet watch;
    for (const Step& step : {Step{5, Seen::Neither},
                             {-1, Seen::Set},
                             {-9, Seen::Neither},
                             {2, Seen::Rise},
                             {0, Seen::Neither},
                             {-1, Seen::Neither}})
        EXPECT_EQ(watch.step(step.altitude), step.seen) << step.altitude;
    watch.clear();
    EXPECT_EQ(watch.step(3), Seen::Neither);
}

// A place is logged while boxes around both disks meet, not only the disks.
TEST(EclipseLog, PlacesNearEachOtherAreLoggedOnceTheHeadStands) {
    const test::TempFolder folder;
    folder.makeFolder("Dat");
    const DataTree tree(folder.path());
    ModelState s;
    s.IplSel = 1;
    s.NameData = "Ser0";
    s.Lpl[0] = 10.5, s.Bpl[0] = -3.25, s.Lpl[1] = 10.25, s.Bpl[1] = -3;
    Eclipse e;
    e.Rsun = 0.25, e.Rbody = 0.125;
    beginPlacesLog(tree, s);
    beginPlacesLog(tree, s);
    e.azimuth[1] = e.altitude[1] = 0.375;
    logPlaces(tree, s, e, 7.5, 5, 1832);
    e.altitude[1] = 0.376;
    logPlaces(tree, s, e, 8.5, 5, 1832);
    const std::string log = test::readBytes(tree.at("\\Dat\\Param_data.txt"));
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 3);
    EXPECT_TRUE(log.ends_with("\r\n 7500  5000  1832000  10500 -3250  10250 -3000 \r\n")) << log;
}

}  // namespace tarvex
