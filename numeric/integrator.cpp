#include "numeric/integrator.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr int firstAcceleration = 3 * bodies;  ///< cell of the first acceleration in dU

using State = std::array<double, equations>;

void rightHandSide(ModelState& s, Motion& motion) {
    if (motion.kodOTO == 1) {
        DiffurOTO(s, motion);
    } else {
        Diffur(s, motion);
    }
}

/// K = h*dU and U = U0 + K*share, and the accelerations of the stage into A.
template <int divisor>
void endStage(double h, const State& dU, const State& U0, State& K, State& A, double* U) {
    for (int k = 0; k < equations; ++k) {
        K[k] = h * dU[k];
        U[k] = K[k] / divisor + U0[k];
    }
    std::copy(dU.begin() + firstAcceleration, dU.end(), A.begin() + firstAcceleration);
}

}  // namespace

void rungeKuttaStep(ModelState& s, Motion& motion, RunState& run) {
    const double h = s.DtCur;
    double* const U = motion.U.data();
    motion.NDiffur = 0;
    run.Tstage = run.Tsec;
    motion.dTstage = 0;
    std::copy(U, U + equations, run.U0.begin());

    rightHandSide(s, motion);
    endStage<2>(h, motion.dU, run.U0, run.K1, run.A1, U);

    run.Tstage = h / 2 + run.Tsec;
    motion.dTstage = h / 2;
    rightHandSide(s, motion);
    endStage<2>(h, motion.dU, run.U0, run.K2, run.A2, U);

    rightHandSide(s, motion);
    endStage<1>(h, motion.dU, run.U0, run.K3, run.A3, U);

    run.Tstage = run.Tsec + h;
    motion.dTstage = h;
    rightHandSide(s, motion);
    for (int k = 0; k < equations; ++k) {
        run.K4[k] = h * motion.dU[k];
        U[k] = (2 * run.K2[k] + run.K1[k] + 2 * run.K3[k] + run.K4[k]) / 6 + run.U0[k];
    }
    for (int k = firstAcceleration; k < equations; ++k) {
        run.A4[k] = motion.dU[k];
        motion.dU[k] = (2 * run.A2[k] + run.A1[k] + 2 * run.A3[k] + run.A4[k]) / 6;
    }
}

namespace {

/// The six blocks of U and the rows that hold the same values.
template <class Model, class Copy>
void eachBlock(Model& s, int blocks, Copy copy) {
    Rows ModelState::*const rows[] = {&ModelState::X,  &ModelState::Y,  &ModelState::Z,
                                      &ModelState::VX, &ModelState::VY, &ModelState::VZ};
    for (int b = 0; b < blocks; ++b) copy(s.*rows[b], b * bodies);
}

}  // namespace

void unpackState(ModelState& s, const Motion& motion) {
    eachBlock(s, 6, [&](Rows& row, int at) { std::copy_n(motion.U.begin() + at, bodies, row.begin()); });
}

void packState(const ModelState& s, Motion& motion) {
    eachBlock(s, 6,
              [&](const Rows& row, int at) { std::copy_n(row.begin(), bodies, motion.U.begin() + at); });
}

void packCoordinates(const ModelState& s, Motion& motion) {
    eachBlock(s, 3,
              [&](const Rows& row, int at) { std::copy_n(row.begin(), bodies, motion.U.begin() + at); });
}

}  // namespace tarvex
