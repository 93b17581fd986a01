#include "reduction/eccentric.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace {

/// True anomaly from the aphelion and distance of a Kepler ellipse, by Newton's method: no series.
void keplerAt(double M, double e, double R, double& longitude, double& distance) {
    double E = M;
    for (int i = 0; i < 50; ++i) E -= (E + e * std::sin(E) - M) / (1 + e * std::cos(E));  // from the aphelion
    longitude = std::atan2(std::sqrt(1 - e * e) * std::sin(E), std::cos(E) + e);
    distance = R * (1 + e * std::cos(E));
}

}  // namespace

TEST(Eccentric, SeriesOfTheEllipseHoldToTheThirdPower) {
    for (const double e : {0.01, 0.02, 0.04}) {
        for (double M = 0.1; M < 3.1; M += 0.5) {
            Eccentric p{.R = 100, .e1 = e, .W = M, .T = 1};
            EccentricAt(p);
            double longitude, distance;
            keplerAt(M, e, 100, longitude, distance);
            EXPECT_NEAR(p.AlfaL1, longitude, 3 * e * e * e);
            EXPECT_NEAR(p.R1, distance, 100 * 2 * e * e * e);
        }
    }
}

TEST(Eccentric, SecondModelsAreTheGeometryOfTheirCircles) {
    for (const bool equant : {false, true}) {
        const double e2 = 0.02, R = 100;
        for (double M = 0; M < 6.2; M += 0.7) {
            Eccentric p{.R = R, .e2 = e2, .W = M, .T = 1, .equant = equant};
            EccentricAt(p);
            // the planet on its circle, on the line from the point of uniform motion under the angle M
            const double centre = equant ? R * e2 / 2 : R * e2, even = R * e2;
            const double b = (even - centre) * std::cos(M);
            const double along = -b + std::sqrt(b * b - (even - centre) * (even - centre) + R * R);
            const double x = even + along * std::cos(M), y = along * std::sin(M);
            EXPECT_NEAR(p.eccentric.x, x, R * e2 * e2 * e2 * 2) << equant << M;
            EXPECT_NEAR(p.eccentric.y, y, R * e2 * e2 * e2 * 2) << equant << M;
        }
    }
}

}  // namespace tarvex
