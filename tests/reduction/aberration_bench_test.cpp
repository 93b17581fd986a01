#include "reduction/aberration_bench.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace {

ModelState onDate(double JD) {
    ModelState s;
    s.gamma = 66.7006e-12;
    s.JD = JD;
    return s;
}

void placeStar(ModelState& s, double longitude, double latitude) {
    const double far = 1e20, l = longitude / kUgol, b = latitude / kUgol;
    s.X[10] = far * std::cos(b) * std::cos(l);
    s.Y[10] = far * std::cos(b) * std::sin(l);
    s.Z[10] = far * std::sin(b);
    s.VX[10] = s.VY[10] = s.VZ[10] = 0;
}

}  // namespace

TEST(AberrationBench, StarOfTheEclipticSwingsByTheConstantOfAberration) {
    double most = 0;
    for (double day = 0; day < 366; day += 1) {
        ModelState s = onDate(2451545 + day);
        AberrationBench a;
        a.body = AberrationBench::star;
        placeStar(s, 40, 0);
        AberrationPrepare(s, a, true, 0, 0);
        AberrationIterate(s, a, false);
        EXPECT_NEAR(a.AlfaIs, 0, 1e-9);  // the star rests
        most = std::max(most, std::abs(a.AlfaPr) * 3600);
    }
    // kappa = 20.4955", and the ellipse of the Earth adds up to 1.7 % to it
    EXPECT_NEAR(most, 20.4955 * (1 + 0.0167), 0.05 + 20.4955 * 0.0167);
    EXPECT_GT(most, 20.49);
}

TEST(AberrationBench, SourcePartIsTheObjectsMotionInTheLightTime) {
    ModelState s = onDate(2455197.5);
    AberrationBench a;  // Mars, true speed of light, system at rest
    AberrationPrepare(s, a, true, 0, 0);
    const double dx = s.X[4] - s.X[3], dy = s.Y[4] - s.Y[3], vx = s.VX[4], vy = s.VY[4];
    const double T = s.Tsv[3][4];
    AberrationIterate(s, a, false);
    const double expected = -(dx * vy - dy * vx) / (dx * dx + dy * dy) * T * kUgol;
    EXPECT_NEAR(a.AlfaIs, expected, std::abs(expected) * 1e-3);
    EXPECT_NEAR(T, std::sqrt(dx * dx + dy * dy) / Vsv, 1);
    EXPECT_EQ(a.iterations, 1);
    EXPECT_NEAR(std::hypot(s.X[13] - s.X[3], s.Y[13] - s.Y[3]), std::hypot(s.VX[3], s.VY[3]) * s.Tsv[3][4],
                1);
}

TEST(AberrationBench, CommonMotionShiftsSourceAndReceiverOppositely) {
    // what the whole system's velocity does to the source it undoes at the receiver, to first order
    ModelState s = onDate(2455197.5);
    AberrationBench rest, moving;
    AberrationPrepare(s, rest, true, 0, 0);
    AberrationIterate(s, rest, false);
    AberrationPrepare(s, moving, true, 0, 0);
    moving.VXsys = 200;
    moving.VYsys = -150;
    AberrationIterate(s, moving, false);
    EXPECT_GT(std::abs(moving.AlfaIs - rest.AlfaIs), 0.003);
    EXPECT_NEAR(moving.AlfaIs + moving.AlfaPr, rest.AlfaIs + rest.AlfaPr, 2e-4);
}

}  // namespace tarvex
