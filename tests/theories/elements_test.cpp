#include "theories/elements.h"

#include "core/rows.h"
#include "tests/support/testing.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

struct Vec {
    double x, y, z;
};
double dot(const Vec& a, const Vec& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
double size(const Vec& a) { return std::sqrt(dot(a, a)); }
Vec cross(const Vec& a, const Vec& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
Vec position(const ModelState& s, int i) { return {s.X[i], s.Y[i], s.Z[i]}; }
Vec velocity(const ModelState& s, int i) { return {s.VX[i], s.VY[i], s.VZ[i]}; }

bool same(const Vec3& a, const Vec3& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

void stateOf(ModelState& s, int i) {
    s.Ipl = static_cast<std::int16_t>(i);
    ElementsToXYZ(s);
    ElementsToVXYZ(s);
}

}  // namespace

/// The elements recovered from the state by the integrals of the two-body motion.
TEST(Elements, StateVectorsKeepEnergyAndTheVectorsOfTheOrbit) {
    ModelState s;
    InitMassesJPL0(s);
    s.gamma = 66.7259e-12;
    s.JD = 2440000.5;
    for (int kodBary = 0; kodBary <= 2; ++kodBary) {
        s.kodBary = static_cast<std::int16_t>(kodBary);
        for (int i = 1; i <= 9; ++i) {
            s.Ipl = static_cast<std::int16_t>(i);
            ElementsJPL0(s);
            ElementsToState(s);
            const Vec3 placed = placeOf(s, i), moving = velocityOf(s, i);
            stateOf(s, i);  // in two steps, and as values: the same bits
            const OrbitPlace place = positionOf(elementsOf(s, i));
            const OrbitMotion motion = velocityOf(elementsOf(s, i), place, s.gamma * s.m[rowWork]);
            for (const Vec3& r : {placed, place.position}) EXPECT_TRUE(same(r, placeOf(s, i))) << i;
            for (const Vec3& v : {moving, motion.velocity}) EXPECT_TRUE(same(v, velocityOf(s, i))) << i;
            const double M = s.m[0], both = M + s.m[i];
            const double mu = s.gamma * (kodBary == 0 ? M : kodBary == 1 ? both : M * M * M / both / both);
            EXPECT_NEAR(s.m[rowWork] * s.gamma / mu, 1, 1e-14);
            const Vec r = position(s, i), v = velocity(s, i), h = cross(r, v);
            const double e = s.Eks0[i], a = s.R0sr[i], R = size(r);
            EXPECT_NEAR((dot(v, v) / 2 - mu / R) / (-mu / 2 / a), 1, 1e-9) << i;   // vis-viva
            EXPECT_NEAR(size(h) / std::sqrt(mu * a * (1 - e * e)), 1, 1e-9) << i;  // area law
            const double O = s.AlfaU0[i], b = s.Betta0[i], H = size(h);
            EXPECT_NEAR(h.x / H, std::sin(O) * std::sin(b), 1e-9) << i;
            EXPECT_NEAR(h.y / H, -std::cos(O) * std::sin(b), 1e-9) << i;
            EXPECT_NEAR(h.z / H, std::cos(b), 1e-9) << i;
            // eccentricity vector: length e, at the perihelion's argument from the node
            const Vec vh = cross(v, h), E = {vh.x / mu - r.x / R, vh.y / mu - r.y / R, vh.z / mu - r.z / R};
            const Vec node = {std::cos(O), std::sin(O), 0};
            EXPECT_NEAR(size(E), e, 1e-9) << i;
            EXPECT_NEAR(dot(E, node) / e, std::cos(s.AlfaP0[i] - O), 1e-7) << i;
            // Kepler's equation backwards: the mean anomaly of the point
            const double eccentric = std::atan2(dot(r, v) / std::sqrt(mu * a), 1 - R / a);
            EXPECT_NEAR(std::remainder(eccentric - dot(r, v) / std::sqrt(mu * a) - s.Mean[i], 2 * Pi), 0,
                        1e-7)
                << i;
        }
    }
}

TEST(Elements, MoonFlagPutsTheEarthInTheCentre) {
    ModelState s;
    InitMassesJPL0(s);
    s.gamma = 66.7259e-12;
    s.JD = JD2000;
    s.Ipl = rowMoon;
    ElementsJPL0(s);
    s.kodMoon = 1;
    s.kodBary = 1;
    stateOf(s, rowMoon);
    EXPECT_EQ(s.Icentr, rowEarth);
    EXPECT_EQ(s.m[rowWork], s.m[rowEarth] + s.m[rowMoon]);
    EXPECT_NEAR(size(velocity(s, rowMoon)), 1023, 70);  // the Moon's speed, m/s
}

TEST(Elements, EdgesOfKeplersEquation) {
    ModelState s;
    s.Ipl = 1;
    s.R0sr[1] = 1e11;
    s.AlfaL[1] = 1;
    s.AlfaP0[1] = 0.25;
    ElementsToXYZ(s);  // a circle
    EXPECT_EQ(s.Anom[1], 2 * std::atan(std::tan(0.75 / 2)));
    EXPECT_NEAR(s.Rr[1], 1e11, 1e-3);
    s.AlfaP0[1] = 7;  // a perihelion above one turn leaves the mean anomaly where one added turn puts it
    ElementsToXYZ(s);
    EXPECT_NEAR(s.Mean[1], 1 - 7 + 2 * Pi, 1e-12);
    s.AlfaP0[1] = 0;
    s.AlfaL[1] = 0.02;
    s.Eks0[1] = 0.99;
    s.Escr = 0.125;
    ElementsToXYZ(s);  // no convergence in 99 iterations: the eccentric anomaly stays
    EXPECT_EQ(s.Escr, 0.125);
    for (const double e : {1.0, 1.5, -1.5}) {
        s.Eks0[1] = e;
        EXPECT_THROW(ElementsToXYZ(s), ArithmeticFailure) << e;
    }
}

TEST(Geometry, PolarFormIsTheInverseOfTheRectangularInEveryQuadrant) {
    ModelState s;
    SpherToXYZ(s, 15, 33, 10, 2e10);
    for (double L = 0; L < 360; L += 22.5) {
        for (const double B : {-60., 0., 35.}) {
            SpherToXYZ(s, 12, L, B, 1e11);
            s.X[12] += s.X[15];
            s.Y[12] += s.Y[15];
            s.Z[12] += s.Z[15];
            PairGeometry(s, 15, 12);
            EXPECT_NEAR(std::remainder(s.LonPl[12] - L, 360), 0, 1e-8);
            EXPECT_NEAR(s.LatPl, B, 1e-8);
            EXPECT_NEAR(s.Rcur, 1e11, 1);
            EXPECT_GE(s.LonPl[12], 0);
            EXPECT_LE(s.LonPl[12], 360);
        }
    }
}

TEST(Geometry, OnTheAxisTheLongitudeIsSetAndTheLatitudeFails) {
    ModelState s;
    s.Z[12] = 5;
    s.LatPl = 44;
    EXPECT_THROW(PairGeometry(s, 15, 12), ArithmeticFailure);
    EXPECT_EQ(s.LonPl[12], 90);
    EXPECT_EQ(s.Rcur, 5);
    EXPECT_EQ(s.LatPl, 44);
    s.Y[12] = -1;
    PairGeometry(s, 15, 12);
    EXPECT_EQ(s.LonPl[12], 270);
}

}  // namespace tarvex
