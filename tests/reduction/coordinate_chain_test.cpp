#include "reduction/coordinate_chain.h"

#include "reduction/apparent_place.h"
#include "tests/support/ephemeris_files.h"
#include "theories/elements.h"
#include "theories/ephemeris.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr int row = 5;
constexpr double arcSecond = 1 / 3600.0;

struct ChainTest : ::testing::Test {
    ChainTest() { s.Ipl = row; }
    void put(double L, double B) { SpherToXYZ(s, row, L, B, 1); }
    void expectAt(double L, double B, double tolerance, const char* what) {
        PairGeometry(s, rowOrigin, row);
        EXPECT_NEAR(s.LonPl[row], L, tolerance) << what;
        EXPECT_NEAR(s.LatPl, B, tolerance) << what;
    }
    ModelState s;
};

}  // namespace

// Worked examples of J. Meeus, Astronomical Algorithms.
TEST_F(ChainTest, WorkedExamplesOfPlaces) {
    put(116.328942, 28.026183);  // Pollux, equator to ecliptic of J2000
    EquToEcl(s, 0);
    EXPECT_NEAR(s.LatPl * kUgol, 23.4392911, 1e-7);
    expectAt(113.215630, 6.684170, 2e-6, "ecliptic");
    EclToEqu(s, 0);
    expectAt(116.328942, 28.026183, 1e-9, "and back");

    put(41.054063, 49.227750);  // theta Persei to 2028 November 13.19
    PrecessMatrixEqu(s, 0, (2462088.69 - JD2000) / 36525);
    ApplyPrecessXYZ(s);
    expectAt(41.547214, 49.348483, 2e-6, "equatorial precession");

    put(149.48194, 1.76549);  // Venus, J2000 to -214 June 30
    PrecessMatrixEcl(s, 0, (1643074.5 - JD2000) / 36525);
    ApplyPrecessXYZ(s);
    expectAt(118.704, 1.615, 1e-3, "ecliptic precession");
}

TEST_F(ChainTest, NutationOfAWorkedExample) {
    const double T = (2446895.5 - JD2000) / 36525;  // 1987 April 10: -3.788" and +9.443"
    const double eps = 23.440946 / kUgol;
    double X = 1, Y = 0, Z = 0;
    Nutation(T, X, Y, Z, 0);
    EXPECT_NEAR(Y * kUgol, -3.788 * arcSecond * std::cos(eps), 0.2 * arcSecond);
    EXPECT_NEAR(Z * kUgol, -3.788 * arcSecond * std::sin(eps), 0.1 * arcSecond);
    Nutation(T, X, Y, Z, 1);
    EXPECT_NEAR(Y, 0, 1e-8);  // back to the first order
    EXPECT_NE(X, 1);
    X = 0, Y = 1, Z = 0;
    Nutation(T, X, Y, Z, 0);
    EXPECT_NEAR(Z * kUgol, 9.443 * arcSecond, 0.1 * arcSecond);
}

TEST_F(ChainTest, SiderealTimeOfWorkedExamples) {
    // 1987 April 10, 0h and 19h 21m of universal time
    EXPECT_NEAR(24 * Frac1(SiderealTime(46895) / 24), 13 + 10 / 60.0 + 46.3668 / 3600, 1e-7);
    EXPECT_NEAR(24 * Frac1(SiderealTime(46895 + 19.35 / 24) / 24), 8 + 34 / 60.0 + 57.0896 / 3600, 1e-6);
}

TEST_F(ChainTest, HorizonOfAWorkedExampleAndBack) {
    s.ObsB = 38.92139;  // Venus at Washington, 1987 April 10
    s.TAU = 64.352133;
    s.Bpl[row] = -6.719892;
    HorizonToXYZ1(s, row);
    expectAt(68.0337, 15.1249, 1e-4, "azimuth and altitude");
    s.Azim = s.LonPl[row];
    s.Vys = s.LatPl;
    HorizonToXYZ2(s, row);
    expectAt(64.352133, -6.719892, 1e-9, "hour angle and declination");
}

TEST_F(ChainTest, RefractionMeetsAtItsJoints) {
    const std::pair<double, double> joints[] = {{86, 755.74}, {86.5, 832.67}, {87, 925},
                                                {87.5, 1026}, {88, 1147},     {88.5, 1321.5},
                                                {89, 1536},   {89.5, 1788},   {90, 2040}};
    for (const auto& [z, value] : joints) {
        EXPECT_NEAR(Refraction(z) * 3600, value, 0.01) << z;
        EXPECT_NEAR(Refraction(z + 1e-9) * 3600, value, 0.01) << z;
    }
    EXPECT_EQ(Refraction(0), 0);
    EXPECT_NEAR(Refraction(45) * 3600, 57.08, 0.01);
    EXPECT_NEAR(Refraction(87.25) * 3600, 975.5, 1e-9);
    EXPECT_EQ(Refraction(150) * 3600, 2040);
}

// The short series against the ephemeris: some minutes of arc, and the distance of an ellipse only.
/// What a chain has done stands in the shared cells also when its next step fails.
TEST_F(ChainTest, CellsAreWrittenByAFailureToo) {
    put(30, 40);
    s.LonPl[row] = 1, s.LatPl = 2, s.Lpl[row] = 3, s.Mprec[1][1] = 4;
    ApparentSky sky(0.5);
    ApparentPlace place{.row = row};
    const auto chain = [&](bool precess) {
        const SkyCells cells(s, sky, {&place});
        sky.go(Step::Equator, place);
        sky.keep(place);
        if (precess) sky.go(Step::Precession, place);
        place.position = {0, 0, -7};  // along Z: longitude and distance are known, the latitude is none
        sky.look(place);
    };
    EXPECT_THROW(chain(false), ArithmeticFailure);
    EXPECT_EQ(s.Z[row], -7);
    EXPECT_EQ(s.LonPl[row], 90);
    EXPECT_EQ(s.Rcur, 7);
    EXPECT_EQ(s.LatPl, s.Bpl[row]);  // of the look before
    EXPECT_GT(s.Lpl[row], 3);
    EXPECT_EQ(s.Mprec[1][1], 4);
    s.X[row] = 1;
    EXPECT_THROW(chain(true), ArithmeticFailure);
    EXPECT_NE(s.Mprec[1][1], 4);
    EXPECT_GT(s.Prec, 0);
    EXPECT_EQ(s.Ipl, row);
}

TEST_F(ChainTest, MoonFollowsTheEphemeris) {
    test::TempFolder folder;
    test::linkEphemeris(folder);
    const DataTree tree(folder.path());
    Ephemeris e(tree);
    for (double JD = 2440000.5; JD < 2470000; JD += 1234.567) {
        s.JD = JD;
        DEOpen(s, e);
        DEEvaluate(s, e, rowMoon, 1);
        const double T = (JD - JD2000) / 36525;
        s.Ipl = rowMoon;
        PrecessMatrixEcl(s, 0, T);
        ApplyPrecessXYZ(s);
        PairGeometry(s, rowOrigin, rowMoon);
        MoonInequalities(s, T);
        EXPECT_NEAR(std::remainder(s.Lpl[rowMoon] - s.LonPl[rowMoon], 360), 0, 0.08) << JD;
        EXPECT_NEAR(s.Bpl[rowMoon], s.LatPl, 0.05) << JD;
        EXPECT_NEAR(s.Rpl[3][rowMoon], s.Rcur, 0.035 * s.Rcur) << JD;
        for (const double angle : {s.AlfaL[rowMoon], s.AlfaU0[rowMoon], s.AlfaP0[rowMoon]}) {
            EXPECT_GE(angle, 0);
            EXPECT_LT(angle, 2 * Pi);
        }
    }
}

TEST_F(ChainTest, EveryPerturbationTermHasItsArgument) {
    struct Term {
        int n, l, l1, F, D;
    };
    const Term terms[] = {{1, 1, 0, 0, 0},   {2, 2, 0, 0, 0},   {3, 1, 0, 0, -2},   {4, 0, 0, 0, 2},
                          {5, 0, 1, 0, 0},   {6, 0, 0, 2, 0},   {7, 0, 0, 0, 1},    {8, -2, 0, 0, 2},
                          {9, -1, -1, 0, 2}, {10, 1, 0, 0, 2},  {11, 1, 0, 1, 0},   {12, 1, 0, -1, 0},
                          {13, 0, 0, -1, 2}, {14, -1, 0, 1, 2}, {15, -1, 0, -1, 2}, {16, 0, 0, 1, 2},
                          {25, 0, 1, 0, -2}, {26, 1, -1, 0, 0}, {27, 1, 1, 0, 0},   {28, 0, 0, 2, -2}};
    const double moon = 200, node = 33, perigee = 81, earth = 310, perihelion = 103;  // degrees
    s.AlfaL[11] = moon / kUgol - 4 * Pi;
    s.AlfaU0[11] = node / kUgol, s.AlfaP0[11] = perigee / kUgol;
    s.AlfaL[3] = earth / kUgol, s.AlfaP0[3] = perihelion / kUgol;
    for (const auto& t : terms) {
        s.kLl = {};
        s.kLl[t.n] = 0.5;
        s.Lpl[11] = 10, s.Bpl[11] = -2;
        MoonPerturbApply(s);
        const double argument = t.l * (moon - perigee) + t.l1 * (earth - perihelion) + t.F * (moon - node) +
                                t.D * (moon - earth - 180);
        const bool latitude = t.n >= 11 && t.n <= 16;
        const double grown = 0.5 * std::sin(argument / kUgol);
        EXPECT_NEAR(s.Lpl[11], 10 + (latitude ? 0 : grown), 1e-9) << t.n;
        EXPECT_NEAR(s.Bpl[11], -2 + (latitude ? grown : 0), 1e-9) << t.n;
    }
}

}  // namespace tarvex
