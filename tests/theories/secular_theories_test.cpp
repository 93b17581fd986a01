#include "theories/secular_theories.h"

#include "tests/support/testing.h"
#include "theories/elements.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

using Theory = void (*)(ModelState&);

void elementsOf(ModelState& s, Theory theory, int body, double JD) {
    s.JD = JD;
    s.Ipl = static_cast<std::int16_t>(body);
    theory(s);
}

/// Heliocentric place by a theory: longitude and latitude in degrees, distance in Rcur.
void placeOf(ModelState& s, Theory theory, int body, double JD) {
    elementsOf(s, theory, body, JD);
    ElementsToXYZ(s);
    PairGeometry(s, 15, body);
}

double degreesApart(double a, double b) { return std::abs(std::remainder(a - b, 360)); }

}  // namespace

TEST(SecularTheories, PolynomialsAtTheirEpoch) {
    ModelState s;
    elementsOf(s, ElementsNew0, 1, JD1900);
    EXPECT_NEAR(s.AlfaL[1] * kUgol, 178.1790778, 1e-7);
    EXPECT_EQ(s.TT, 0);
    elementsOf(s, ElementsJPL0, 3, JD2000);
    EXPECT_NEAR(s.AlfaL[3] * kUgol, 100.46457166, 1e-9);
    elementsOf(s, ElementsSer0, 3, JD2000 + 2 * 36525);
    EXPECT_NEAR(s.AlfaL[3] * kUgol, 100.464217 + 2 * 35999.371246 - 4 * 0.0010632, 1e-8);
    elementsOf(s, ElementsJPL0, 1, JD2000 + 2 * 36525);
    EXPECT_GT(s.AlfaL[1] * kUgol, 299000);  // not reduced
    // the Earth-Moon centre at J2000 in the published ephemeris: -0.1771, 0.9672 au
    placeOf(s, ElementsJPL0, 3, JD2000);
    EXPECT_NEAR(s.X[3] / LaeTheory, -0.17713, 2e-4);
    EXPECT_NEAR(s.Y[3] / LaeTheory, 0.96724, 2e-4);
}

/// The theories describe one Solar System: a wrong coefficient would show as a disagreement.
TEST(SecularTheories, AgreeOnThePlacesOfThePlanets) {
    ModelState s;
    const struct {
        double apart, range;  // degrees, relative
    } limit[] = {{0, 0},      {0.01, 3e-4}, {0.02, 2e-4}, {0.02, 2e-4}, {0.05, 5e-4},
                 {0.6, 3e-3}, {1.2, 1e-2},  {1.2, 1e-2},  {1.5, 2e-2}};
    for (const double JD : {2415020.0, 2433282.5, 2451545.0}) {
        const double precession = (JD - JD2000) / 36525 * 5029.0966 / 3600;
        for (int i = 1; i <= 8; ++i) {
            placeOf(s, ElementsJPL0, i, JD);
            const double L = s.LonPl[i], B = s.LatPl, R = s.Rcur, w = s.W0sr[i];
            placeOf(s, ElementsNew0, i, JD);
            EXPECT_LT(degreesApart(s.LonPl[i], L + precession), limit[i].apart) << i << ' ' << JD;
            EXPECT_LT(std::abs(s.LatPl - B), 0.05) << i << ' ' << JD;
            EXPECT_LT(std::abs(s.Rcur / R - 1), limit[i].range) << i << ' ' << JD;
            EXPECT_NEAR(s.W0sr[i] / w, 1, 2e-2) << i;
            for (const Theory other : {ElementsSer0, ElementsSer0Plus}) {
                placeOf(s, other, i, JD);
                EXPECT_LT(degreesApart(s.LonPl[i], L), 0.02) << i << ' ' << JD;
                EXPECT_LT(std::abs(s.LatPl - B), 0.001) << i << ' ' << JD;
                EXPECT_LT(std::abs(s.Rcur / R - 1), 3e-4) << i << ' ' << JD;
                EXPECT_NEAR(s.W0sr[i] / w, 1, 1e-6) << i;
            }
        }
    }
}

TEST(SecularTheories, MoonsAgreeAfterPrecession) {
    ModelState s;
    const double JD = 2433282.5, precession = (JD - JD2000) / 36525 * 5029.0966 / 3600;
    placeOf(s, ElementsSer0, rowMoon, JD);
    const double L = s.LonPl[rowMoon], B = s.LatPl, w = s.W0sr[rowMoon];
    placeOf(s, ElementsNew0, rowMoon, JD);
    EXPECT_LT(degreesApart(s.LonPl[rowMoon], L + precession), 0.05);
    elementsOf(s, ElementsJPL0, rowMoon, JD);
    PrecessMoonToDate(s);
    ElementsToXYZ(s);
    PairGeometry(s, 15, rowMoon);
    EXPECT_LT(degreesApart(s.LonPl[rowMoon], L), 0.05);
    EXPECT_NEAR(s.LatPl, B, 0.05);
    EXPECT_NEAR(s.W0sr[rowMoon] / w, 1, 1e-7);
    EXPECT_NEAR(2 * Pi / s.W0sr[rowMoon] / sekD, s.Tsid[11], 1e-4);  // the sidereal month
}

TEST(SecularTheories, MotionOfPlutoIsTakenByTheDay) {
    ModelState s;
    elementsOf(s, ElementsNew0, 9, JD2000);
    EXPECT_NEAR(s.W0sr[9] / sekG * sekD * 365.25, s.W0sr[9], 1e-20);
    const double wrong = s.W0sr[9];
    elementsOf(s, ElementsJPL0, 9, JD2000);
    EXPECT_NEAR(wrong / s.W0sr[9], 365.25 * 1.0096, 0.1);  // by the day in place of the year: meant
}

}  // namespace tarvex
