#include "reduction/converter.h"

#include "core/et_ut.h"
#include "tests/support/testing.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

using Plane = ConvFrame::Plane;
using Origin = ConvFrame::Origin;

ConvBase base;  ///< as the last ConvPrepare left it

ModelState prepared(double JD) {
    ModelState s;
    s.JD = s.JDut0 = JD;
    s.JDet = JD + EtUt1900(s) / 86400;
    s.ObsL = 44.5;
    s.ObsB = 48.7;
    ConvPrepare(s, base);
    return s;
}

double length(double x, double y, double z) { return std::sqrt(x * x + y * y + z * z); }

/// Puts row `row` of X into its polar form, as typed rectangular coordinates are.
void readPolar(ModelState& s, int row) { PairGeometry(s, 15, row); }

}  // namespace

TEST(Converter, ThereAndBackThroughEveryPlaneOriginAndEquinox) {
    for (const int body : {1, 2, 5, 8, 10}) {
        for (const Plane plane : {Plane::Ecliptic, Plane::Equator, Plane::Horizon}) {
            for (const Origin origin : {Origin::Sun, Origin::Earth, Origin::Observer}) {
                if (plane == Plane::Horizon && origin != Origin::Observer) continue;
                for (const bool j2000 : {false, true}) {
                    ModelState s = prepared(2455321.3);
                    ConvBodyByTheory(s, base, body);
                    const auto [x, y, z] = base.row[body];
                    const double r = length(x, y, z);
                    const ConvFrame frame{plane, origin, j2000};
                    ConvFromBase(s, base, body, frame);
                    readPolar(s, body);
                    ConvToBase(s, base, body, frame);
                    // The parallax is taken with the latitude of the geocentric place on the way out and of
                    // the seen place on the way back: its square is what may be lost.
                    const double parallax =
                        origin == Origin::Observer
                            ? REarth / length(s.X[body] - s.X[13], s.Y[body] - s.Y[13], s.Z[body] - s.Z[13])
                            : 0;
                    const double allowed = r * 1e-9 + 3 * parallax * REarth;
                    const auto& back = base.row[body];
                    EXPECT_NEAR(length(back[0] - x, back[1] - y, back[2] - z), 0, allowed)
                        << body << " plane " << static_cast<int>(plane) << " origin "
                        << static_cast<int>(origin) << j2000;
                }
            }
        }
    }
}

TEST(Converter, SunAsSeenFromTheEarthAtAnEquinoxAndASolstice) {
    // equinox of 20 March 2000, 7:35 UT: the Sun at right ascension and declination 0
    ModelState s = prepared(2451623.816);
    ConvFromBase(s, base, 0, {Plane::Equator, Origin::Earth, false});
    PairGeometry(s, 3, 0);
    const double ra = s.LonPl[0] > 180 ? s.LonPl[0] - 360 : s.LonPl[0];
    EXPECT_NEAR(ra, 0, 0.02);  // aberration of 20" and nutation are not in the frame
    EXPECT_NEAR(s.LatPl, 0, 0.01);
    // solstice of 21 June 2000, 1:48 UT
    s = prepared(2451716.575);
    ConvFromBase(s, base, 0, {Plane::Equator, Origin::Earth, false});
    PairGeometry(s, 3, 0);
    EXPECT_NEAR(s.LonPl[0], 90, 0.02);
    EXPECT_NEAR(s.LatPl, 23.438, 0.002);
}

TEST(Converter, SunInTheSouthAtLocalNoon) {
    // apparent noon at the meridian of 44.5 E on 15 April, when the equation of time is nearly zero
    ModelState s = prepared(2451649.5 + 0.5 - 44.5 / 360);
    ConvFromBase(s, base, 0, {Plane::Horizon, Origin::Observer, false});
    PairGeometry(s, 15, 0);
    EXPECT_NEAR(s.LonPl[0] > 180 ? s.LonPl[0] - 360 : s.LonPl[0], 0, 0.4);
    EXPECT_NEAR(s.LatPl, 90 - 48.7 + 9.8, 0.2);
}

TEST(Converter, PrecessionMovesTheEquinoxByFiftySecondsAYear) {
    ModelState s = prepared(2451545 + 36525);
    ConvBodyByTheory(s, base, 5);
    ConvFromBase(s, base, 5, {Plane::Ecliptic, Origin::Sun, false});
    PairGeometry(s, 0, 5);
    const double ofDate = s.LonPl[5];
    ConvFromBase(s, base, 5, {Plane::Ecliptic, Origin::Sun, true});
    PairGeometry(s, 0, 5);
    EXPECT_NEAR((ofDate - s.LonPl[5]) * 3600, 5030.2, 25);  // the planet's small latitude adds some seconds
}

}  // namespace tarvex
