#pragma once
// Eleven bodies on inclined circular orbits with the masses of the Solar System: a state for tests and
// timings that needs no theory.

#include <cmath>

#include "core/model_state.h"
#include "numeric/motion.h"

namespace tarvex::test {

inline ModelState solarSystem() {
    ModelState s;
    s.gamma = 6.67428e-11;
    s.mSol = 1.98892e30;
    const double divisor[bodies] = {1,        6023600,  408523.71, 328900.56, 3098708, 1047.3486,
                                    3497.898, 22902.98, 19412.24,  135200000, 5e8};
    const double au[bodies] = {0, 0.387, 0.723, 1, 1.524, 5.203, 9.537, 19.19, 30.07, 39.5, 67.7};
    for (int i = 0; i < bodies; ++i) {
        s.km[i] = divisor[i];
        s.m[i] = s.mSol / divisor[i];
        s.kodPl[i] = 1;
        for (int j = 0; j < bodies; ++j) s.kodPair[i][j] = 1;
        if (i == 0) continue;
        const double r = au[i] * s.Lae, L = 2.1 * i * i + 0.3, tilt = 0.02 * i,
                     v = std::sqrt(s.gamma * s.mSol / r);
        s.X[i] = r * std::cos(L);
        s.Y[i] = r * std::sin(L) * std::cos(tilt);
        s.Z[i] = r * std::sin(L) * std::sin(tilt);
        s.VX[i] = -v * std::sin(L);
        s.VY[i] = v * std::cos(L) * std::cos(tilt);
        s.VZ[i] = v * std::cos(L) * std::sin(tilt);
    }
    s.VX[0] = 9, s.VY[0] = -7, s.VZ[0] = 2;
    s.Dt = s.DtCur = 3600;
    return s;
}

/// Puts X..VZ into the state vector.
inline void pack(const ModelState& s, Motion& motion) {
    for (int i = 0; i < bodies; ++i) {
        motion.U[i] = s.X[i];
        motion.U[i + 11] = s.Y[i];
        motion.U[i + 22] = s.Z[i];
        motion.U[i + 33] = s.VX[i];
        motion.U[i + 44] = s.VY[i];
        motion.U[i + 55] = s.VZ[i];
    }
}

}  // namespace tarvex::test
