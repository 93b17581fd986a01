#include "numeric/orbit_check.h"

#include "initial/moon_data.h"
#include "tests/support/testing.h"
#include "theories/elements.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

struct Watch final : OrbitCheckPort {
    void nodePassed() override { ++nodes; }
    void perihelionPassed() override { ++perihelia; }
    int nodes = 0, perihelia = 0;
};

/// The Moon of the bench: a theory's elements, transformed, ready for the check.
ModelState moon(double JD, int bary, const MoonTransformations& t) {
    ModelState s;
    s.gamma = 66.7259e-12;
    s.JD = JD;
    s.kodBary = static_cast<std::int16_t>(bary);
    moonMasses(s, MoonTheory::Ser0);
    moonElements(s, MoonTheory::Ser0);
    moonInitialData(s, t);
    for (const int i : {0, 11}) {
        s.X[i] = s.X0[i], s.Y[i] = s.Y0[i], s.Z[i] = s.Z0[i];
        s.VX[i] = s.VX0[i], s.VY[i] = s.VY0[i], s.VZ[i] = s.VZ0[i];
    }
    return s;
}

OrbitCheck moonCheck(ModelState& s, int Iobs) {
    OrbitCheck c;
    c.IplSel = c.IplJ = 11;
    c.Icentr = 13;
    c.origin = Iobs;
    c.moonBench = true;
    c.Dt = 360;
    c.kDt = 20;
    c.NC0 = 1000;
    orbitCheckCentre(s, c);
    startOrbitCheck(s, c);
    return c;
}

void runDays(ModelState& s, OrbitCheck& c, Watch& watch, double days) {
    while (c.Tsec < days * sekD) runOrbitCheckBatch(s, c, watch);
}

constexpr MoonTransformations geocentric{
    .earthByRatio = true, .shiftMoon = true, .scaleMoonSpeed = true, .earthSpeedByRatio = true};
constexpr MoonTransformations barycentric{.earthByRatio = true, .earthSpeedByRatio = true};

double turn(double degrees) { return std::remainder(degrees, 360); }

}  // namespace

TEST(OrbitCheck, GivenElementsOfTheMoonComeBackInBothMeanings) {
    struct Case {
        int bary, Iobs;
        MoonTransformations t;
        bool exact;
        double degrees, parts;
    };
    // geocentric elements seen from the Earth; barycentric elements seen from the common centre
    for (const Case& one :
         {Case{1, 0, geocentric, false, 0.02, 1e-5}, Case{2, 14, barycentric, false, 0.02, 1e-5},
          Case{1, 0, geocentric, true, 1e-7, 1e-9}, Case{2, 14, barycentric, true, 1e-7, 1e-9}}) {
        ModelState s = moon(2451545, one.bary, one.t);
        const double e = s.Eks0[11],
                     M = s.m[13] + s.m[11];  // the moment of an ellipse, turned by its inclination
        const double moment =
            s.m[11] * std::sqrt(s.gamma * M * s.R0sr[11] * (1 - e * e)) * std::cos(s.Betta0[11]);
        if (one.bary == 1) {
            EXPECT_NEAR(moonAngularMomentum(s) / moment, 1, 1e-6);
        }
        EXPECT_NEAR(pairMomentumY(s) / (s.m[11] * 1000), 0, 1e-9);
        OrbitCheck c = moonCheck(s, one.Iobs);
        c.exact = one.exact;
        Watch watch;
        runDays(s, c, watch, 100);
        EXPECT_GE(watch.perihelia, 3);
        EXPECT_GE(watch.nodes, 3);
        EXPECT_EQ(c.NZamer, watch.perihelia);
        EXPECT_NEAR(turn(c.AlfaP - c.AlfaP1), 0, one.degrees) << one.bary;
        EXPECT_NEAR(turn(c.AlfaU - c.AlfaU1), 0, one.degrees) << one.bary;
        EXPECT_LT(std::abs(c.Esys / c.Esys0 - 1), 1e-9);
        if (one.Iobs == 0) {
            EXPECT_NEAR(c.Eks, s.Eks0[11], 2 * one.parts);
            EXPECT_NEAR(s.Rr[11] / s.R0sr[11], 1, one.parts);
            // Kepler's third law with the mass of both
            const double T =
                2 * Pi * std::sqrt(std::pow(s.R0sr[11], 3) / s.gamma / (s.m[11] + s.m[13])) / sekD;
            EXPECT_NEAR(c.Tper, T, 500 * one.parts);
        }
    }
}

TEST(OrbitCheck, PlanetGivesItsElementsAndEnergyStays) {
    ModelState s;
    s.gamma = 66.7259e-12;
    s.JD = 2451545;
    InitMassesSer0(s);
    s.Ipl = 1;
    ElementsSer0(s);
    s.kodBary = 1;
    ElementsToXYZ(s);
    ElementsToVXYZ(s);
    OrbitCheck c;
    c.Dt = 3600;
    c.kDt = 100;
    c.NC0 = 1000;
    startOrbitCheck(s, c);
    Watch watch;
    runDays(s, c, watch, 450);
    EXPECT_GE(watch.perihelia, 4);
    EXPECT_NEAR(c.Tper, 87.969, 0.01);
    EXPECT_NEAR(turn(c.AlfaP - c.AlfaP1), 0, 0.01);
    EXPECT_NEAR(c.Eks, 0.2056, 1e-4);
    EXPECT_LT(std::abs(c.Esys / c.Esys0 - 1), 1e-7);
}

/// With equal X there is no ratio of the differences: the angle is the one of the last call, at first 0.
TEST(OrbitCheck, AngleOfThePairIsKeptWhereItHasNoRatio) {
    ModelState s;
    s.gamma = 1;
    s.m[0] = 2;
    s.m[1] = 3;
    OrbitCheck c;
    c.U[5] = 1;  // straight along Y, 1 m away
    OrbitCheckDiffur(s, c);
    EXPECT_DOUBLE_EQ(c.dU[10], 2);
    EXPECT_DOUBLE_EQ(c.dU[11], 0);
    c.U[4] = 1e-9;
    OrbitCheckDiffur(s, c);
    c.U[4] = 0;
    OrbitCheckDiffur(s, c);
    EXPECT_NEAR(c.dU[10], 0, 1e-8);
    EXPECT_NEAR(c.dU[11], -2, 1e-8);
}

TEST(OrbitCheck, FailureKeepsTheLastGoodState) {
    ModelState s = moon(2451545, 1, geocentric);
    OrbitCheck c = moonCheck(s, 0);
    Watch watch;
    s.m[13] = 0;
    const auto before = c.U;
    EXPECT_THROW(runOrbitCheckBatch(s, c, watch), ArithmeticFailure);
    EXPECT_EQ(c.U, before);
    EXPECT_TRUE(std::isfinite(s.X[11]));
    s = moon(2451545, 1, geocentric);
    s.X[11] = s.X[0], s.Y[11] = s.Y[0], s.Z[11] = s.Z[0];
    EXPECT_THROW(startOrbitCheck(s, c), ArithmeticFailure);
}

}  // namespace tarvex
