#include "reduction/eclipse.h"

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "tests/support/ephemeris_files.h"
#include "theories/ephemeris.h"

namespace tarvex {

namespace {

using Kind = Contacts::Kind;

/// ET - UT of the years in question, s (published).
struct Sky {
    Sky(double seconds, double L, double B, int body)
        : tree(test::ephemerisFolder().parent_path()), ephemeris(tree), deltaT(seconds) {
        s.gamma = 66.7259e-12;
        s.ObsL = L;
        s.ObsB = B;
        s.IplSel = body;
        e.source = Eclipse::Source::JPL2;
    }
    void at(double JDut0) {
        s.JDut0 = s.JDut = JDut0;
        s.JDet = JDut0 + deltaT / 86400;
        EclipseAt(s, ephemeris, e);
    }
    double date(int year, int month, double day) { return JDfromDate(s, day, month, year); }

    DataTree tree;
    ModelState s;
    Ephemeris ephemeris;
    Eclipse e;
    double deltaT;
};

struct Event {
    std::map<Kind, double> contact;
    double greatest = 0, leastSeparation = 1e9, magnitude = 0;
};

double secondsFrom(double JD, double expected) { return (JD - expected) * 86400; }

/// Steps half a minute through an eclipse as the observer sees it, contacts between steps.
Event observe(Sky& sky, double from, double to) {
    Event event;
    Contacts contacts;
    for (double JD = from; JD < to; JD += 0.5 / 1440) {
        sky.at(JD);
        const Eclipse& e = sky.e;
        const double first = e.lunar ? e.RshadowSeen : e.Rsun;
        int count = 0;
        const auto found = contacts.step(JD, e.separation, first + e.Rbody, std::abs(first - e.Rbody), count);
        for (int i = 0; i < count; ++i) event.contact[found[i].kind] = found[i].JDut0;
        event.magnitude = std::max(event.magnitude, e.magnitude);
        if (e.separation >= event.leastSeparation) continue;
        event.leastSeparation = e.separation;
        event.greatest = JD;
    }
    return event;
}

/// The same from the centre of the Earth, by the geocentric stage of the chain: published transits are
/// geocentric.
Event transit(Sky& sky, double from, double to) {
    Event event;
    Contacts contacts;
    for (double JD = from; JD < to; JD += 0.5 / 1440) {
        sky.at(JD);
        const auto &a = sky.e.sun.nutation, &b = sky.e.body.nutation;
        const double cosD = std::cos(a.B / kUgol);
        const double separation = std::hypot(std::remainder(a.L - b.L, 360) * cosD, a.B - b.B);
        const auto radius = [&](int row) {
            return std::atan(sky.s.Diam[row] / 2 / sky.s.Rpl[3][row]) * kUgol;
        };
        const double sun = radius(0), body = radius(sky.s.IplSel);
        int count = 0;
        const auto found = contacts.step(JD, separation, sun + body, sun - body, count);
        for (int i = 0; i < count; ++i) event.contact[found[i].kind] = found[i].JDut0;
    }
    return event;
}

}  // namespace

/// At the point of greatest eclipse the shadow's axis passes at the published instant.  The Earth is a sphere
/// here, so the place enters with its geocentric latitude; up to 11 km of radius remain, some ten seconds of
/// the shadow's way.
TEST(Eclipses, SolarOf2006And1999AtTheirPointsOfGreatestEclipse) {
    struct Published {
        int year, month, day;
        double deltaT, L, B;
        double greatest, duration;  // UT, s of the day; s
    };
    for (const Published& p : {Published{2006, 3, 29, 64.9, 16.73, 23.15, 10 * 3600 + 11 * 60 + 18.4, 246.7},
                               Published{1999, 8, 11, 63.7, 24.29, 45.08, 11 * 3600 + 3 * 60 + 4.6, 142.9}}) {
        const double geocentric = std::atan(0.99330562 * std::tan(p.B / kUgol)) * kUgol;
        Sky sky(p.deltaT, p.L, geocentric, 11);
        const double middle = sky.date(p.year, p.month, p.day) + p.greatest / 86400;
        const Event event = observe(sky, middle - 0.07, middle + 0.07);
        ASSERT_EQ(event.contact.size(), 4u) << p.year;
        const double second = event.contact.at(Kind::Second), third = event.contact.at(Kind::Third);
        EXPECT_NEAR(secondsFrom((second + third) / 2, middle), 0, 15) << p.year;
        EXPECT_NEAR((third - second) * 86400, p.duration, 5) << p.year;
        EXPECT_GT(event.magnitude, 1);
        EXPECT_LT(event.contact.at(Kind::First), second);
        EXPECT_GT(event.contact.at(Kind::Fourth), third);
    }
}

/// Published contacts as the Earth's centre sees them.  The disks creep: half an arc
/// second (radii in the fourth place, the share of the Moon in the Earth's place) is a quarter of a minute
/// for Venus.
TEST(Eclipses, TransitsOfVenusAndMercury) {
    struct Published {
        int body, year, month, day;
        double deltaT;
        std::map<Kind, double> hours;  // UT of that day
    };
    const auto h = [](int hour, int minute, int second) { return hour + minute / 60.0 + second / 3600.0; };
    for (const Published& p : {Published{2,
                                         2004,
                                         6,
                                         8,
                                         64.6,
                                         {{Kind::First, h(5, 13, 29)},
                                          {Kind::Second, h(5, 32, 55)},
                                          {Kind::Third, h(11, 6, 33)},
                                          {Kind::Fourth, h(11, 25, 59)}}},
                               Published{2,
                                         2012,
                                         6,
                                         5,
                                         67.6,
                                         {{Kind::First, h(22, 9, 38)},
                                          {Kind::Second, h(22, 27, 34)},
                                          {Kind::Third, h(28, 31, 39)},
                                          {Kind::Fourth, h(28, 49, 35)}}},
                               Published{1,
                                         2019,
                                         11,
                                         11,
                                         69.4,
                                         {{Kind::First, h(12, 35, 27)},
                                          {Kind::Second, h(12, 37, 8)},
                                          {Kind::Third, h(18, 2, 33)},
                                          {Kind::Fourth, h(18, 4, 14)}}}}) {
        Sky sky(p.deltaT, 0, 0, p.body);
        const double midnight = sky.date(p.year, p.month, p.day);
        const Event event = transit(sky, midnight + p.hours.at(Kind::First) / 24 - 0.01,
                                    midnight + p.hours.at(Kind::Fourth) / 24 + 0.01);
        for (const auto& [kind, hours] : p.hours) {
            ASSERT_TRUE(event.contact.contains(kind)) << p.year;
            EXPECT_NEAR(secondsFrom(event.contact.at(kind), midnight + hours / 24), 0, 15)
                << p.year << " " << static_cast<int>(kind);
        }
    }
}

/// The published umbra is enlarged by the atmosphere (about 0.013 degrees): without it the Moon enters up to
/// three minutes later and leaves as much earlier; the middle is the same.
TEST(Eclipses, LunarOfSeptember2015) {
    Sky sky(68.0, 0, 50, 11);
    sky.e.lunar = true;
    const double midnight = sky.date(2015, 9, 28);
    const Event event = observe(sky, midnight + 0.5 / 24, midnight + 5.2 / 24);
    const std::map<Kind, double> published = {{Kind::First, 1 + 7 / 60.0 + 11 / 3600.0},
                                              {Kind::Second, 2 + 11 / 60.0 + 10 / 3600.0},
                                              {Kind::Third, 3 + 23 / 60.0 + 5 / 3600.0},
                                              {Kind::Fourth, 4 + 27 / 60.0 + 3 / 3600.0}};
    ASSERT_EQ(event.contact.size(), 4u);
    for (const auto& [kind, hours] : published) {
        const double late = secondsFrom(event.contact.at(kind), midnight + hours / 24);
        const bool entering = kind == Kind::First || kind == Kind::Second;
        EXPECT_GT(entering ? late : -late, 0) << static_cast<int>(kind);
        EXPECT_LT(std::abs(late), 200) << static_cast<int>(kind);
    }
    EXPECT_NEAR(secondsFrom((event.contact.at(Kind::Second) + event.contact.at(Kind::Third)) / 2,
                            midnight + (2 + 47 / 60.0 + 8 / 3600.0) / 24),
                0, 40);
    EXPECT_NEAR(event.magnitude, 1.276, 0.06);
}

/// Sunrise by the altitude of the Sun's centre from an independent formula: declination and equation of time
/// of the Astronomical Almanac's low-precision Sun, no refraction.
TEST(Eclipses, SunriseAgainstTheLowPrecisionSun) {
    Sky sky(69, 30, 50, 11);
    for (const double start : {2458849.5, 2458940.5, 2459031.5}) {
        const auto altitude = [&](double JD) {
            sky.at(JD);
            return sky.e.altitude[0];
        };
        double lo = start, hi = start + 12.0 / 24;
        for (int i = 0; i < 40; ++i) (altitude((lo + hi) / 2) < 0 ? lo : hi) = (lo + hi) / 2;
        const double JD = lo, n = JD - 2451545.0;
        const double g = (357.528 + 0.9856003 * n) / kUgol, q = 280.460 + 0.9856474 * n;
        const double lambda = (q + 1.915 * std::sin(g) + 0.020 * std::sin(2 * g)) / kUgol,
                     eps = (23.439 - 4e-7 * n) / kUgol;
        const double ra = std::atan2(std::cos(eps) * std::sin(lambda), std::cos(lambda)),
                     dec = std::asin(std::sin(eps) * std::sin(lambda));
        const double sidereal = (280.46062 + 360.9856474 * n + 30) / kUgol, H = sidereal - ra, f = 50 / kUgol;
        const double h =
            std::asin(std::sin(f) * std::sin(dec) + std::cos(f) * std::cos(dec) * std::cos(H)) * kUgol;
        EXPECT_NEAR(h, 8.8 / 3600, 0.03) << start;  // the parallax is 8.8", the formula good to 0.01 degree
    }
}

TEST(Eclipses, ContactsAreFoundAlsoBackwardsInTime) {
    const auto run = [](bool forward) {
        Contacts contacts;
        std::string order;
        for (int i = 0; i <= 100; ++i) {
            const double t = forward ? i : 100 - i, separation = std::abs(t - 50) / 10;
            int count = 0;
            const auto found = contacts.step(t, separation, 3.05, 1.02, count);
            for (int k = 0; k < count; ++k) {
                order += std::to_string(static_cast<int>(found[k].kind) + 1);
                const double expected = std::map<Kind, double>{{Kind::First, 19.5},
                                                               {Kind::Second, 39.8},
                                                               {Kind::Third, 60.2},
                                                               {Kind::Fourth, 80.5}}[found[k].kind];
                EXPECT_NEAR(found[k].JDut0, expected, 1e-9);
            }
        }
        return order;
    };
    EXPECT_EQ(run(true), "1234");
    EXPECT_EQ(run(false), "4321");
}

TEST(Eclipses, TheoriesAgreeWithTheEphemerisAndBadBodiesFail) {
    Sky sky(64.9, 48.153, 45.874, 11);
    const double JD = sky.date(2006, 3, 29) + 0.48;
    sky.at(JD);
    const auto sun = sky.e.sun.topo, moon = sky.e.body.topo;
    for (const auto& [source, sunError, moonError] :
         {std::tuple{Eclipse::Source::New0, 0.02, 0.1}, std::tuple{Eclipse::Source::JPL0, 0.02, 8.0},
          std::tuple{Eclipse::Source::Ser0Plus, 0.02, 8.0}}) {
        sky.e.source = source;
        sky.at(JD);
        EXPECT_NEAR(sky.e.sun.topo.L, sun.L, sunError) << static_cast<int>(source);
        EXPECT_NEAR(sky.e.body.topo.L, moon.L, moonError)
            << static_cast<int>(source);  // an ellipse without its inequalities
        EXPECT_EQ(sky.s.kodMoon, 0);
    }
    sky.s.IplSel = 3;
    EXPECT_THROW(sky.at(JD), ArithmeticFailure);
    sky.e.source = Eclipse::Source::JPL2;
    sky.s.IplSel = 11;
    EXPECT_THROW(sky.at(2600000), Refusal);
}

}  // namespace tarvex
