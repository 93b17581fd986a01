#include "numeric/energy.h"

#include "numeric/motion.h"
#include "tests/support/testing.h"

namespace tarvex {
namespace {

/// Sun, two planets and the rest unticked.
ModelState threeBodies() {
    ModelState s;
    s.gamma = 2;
    for (const int i : {0, 1, 2}) {
        s.kodPl[i] = 1;
        for (const int j : {0, 1, 2}) s.kodPair[i][j] = 1;
    }
    for (int i = 0; i < bodies; ++i) s.m[i] = 1000 + i, s.X[i] = 50 + i;
    s.m[0] = 10, s.m[1] = 2, s.m[2] = 3;
    s.X[0] = 1, s.X[1] = 4, s.X[2] = 1;
    s.Y[1] = 4, s.Y[2] = -8;
    s.VX[0] = 1, s.VX[2] = 2;
    s.VY[1] = 5;
    return s;
}

}  // namespace

TEST(Energy, StartMeasuresThePotentialFromZero) {
    ModelState s = threeBodies();
    Motion motion;
    Energy e;
    startEnergy(s, motion, e, 10);
    EXPECT_DOUBLE_EQ(e.Msys, 15);
    EXPECT_DOUBLE_EQ(s.X[rowCentre], (10 * 1 + 2 * 4 + 3 * 1) / 15.);
    EXPECT_DOUBLE_EQ(s.VX[rowCentre], (10 + 6) / 15.);
    EXPECT_DOUBLE_EQ(e.EK0sys, 5 + 25 + 6);
    EXPECT_DOUBLE_EQ(e.E0sys, 36);
    // about the Sun: 2*(5*3 + 1*4) + 3*(0 - 1*(-8))
    EXPECT_DOUBLE_EQ(e.MKD0sys, 38 + 24);

    measureEnergy(s, motion, e, 10);
    EXPECT_DOUBLE_EQ(e.Esys, e.E0sys);
    s.X[1] = 1, s.Y[1] = 10;  // from 5 to 10 from the Sun
    measureEnergy(s, motion, e, 10);
    EXPECT_DOUBLE_EQ(e.Esys, 36 + 2 * 10 * 2 * (1 / 5. - 1 / 10.));
    s.X[1] = s.X[0], s.Y[1] = s.Y[0];
    EXPECT_THROW(measureEnergy(s, motion, e, 10), ArithmeticFailure);
}

TEST(Energy, PairTermsAndTheMomentAboutTheCentre) {
    ModelState s = threeBodies();
    Motion motion;
    motion.kodEpot = 1;
    Energy e;
    startEnergy(s, motion, e, 10);
    // both orders of the one pair of planets, each by half
    EXPECT_DOUBLE_EQ(e.E0sys, 36 - 2 * 2 * 3 / std::sqrt(9 + 144.));
    const double moment = e.MKD0sys;
    // a common shift and a common speed do not change the moment about the centre of the moment
    for (int i = 0; i < bodies; ++i) s.X[i] += 7, s.VY[i] += 3;
    motion.kodCMnow = 1;
    measureEnergy(s, motion, e, 10);
    EXPECT_NEAR(e.MKDsys, moment, 1e-12 * std::abs(moment));
    motion.kodCMnow = 0;
    s.X[1] += 5;  // row 14 stays where it is
    measureEnergy(s, motion, e, 10);
    EXPECT_NEAR(e.MKDsys - moment, 2 * 5 * (s.VY[1] - s.VY[rowCentre]), 1e-9);
}

}  // namespace tarvex
