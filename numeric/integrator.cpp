#include "numeric/integrator.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "numeric/lane_kernels.h"
#include "numeric/runge_kutta.h"

namespace tarvex {

namespace {

constexpr int firstAcceleration = 3 * bodies;  ///< cell of the first acceleration in dU

void rightHandSide(ModelState& s, Motion& motion) {
    if (motion.kodOTO == 1) {
        DiffurOTO(s, motion);
    } else {
        Diffur(s, motion);
    }
}

/// K = h*dU and U = U0 + K*share, and the accelerations of the stage into A.
TARVEX_KERNEL void endStage(double h, double share, const double* __restrict dU, const double* __restrict U0,
                            double* __restrict K, double* __restrict A, double* __restrict U) {
    goFromStart(0, equations, h, share, dU, U0, K, U);
    for (int k = firstAcceleration; k < equations; ++k) A[k] = dU[k];
}

/// The weighted mean of the four stages into U, that of their accelerations into dU.
TARVEX_KERNEL void endStep(double h, const RunState& run, double* __restrict K4, double* __restrict A4,
                           double* __restrict dU, double* __restrict U) {
    const double *K1 = run.K1.data(), *K2 = run.K2.data(), *K3 = run.K3.data(), *U0 = run.U0.data();
    const double *A1 = run.A1.data(), *A2 = run.A2.data(), *A3 = run.A3.data();
    for (int k = 0; k < equations; ++k) {
        K4[k] = h * dU[k];
        U[k] = sixfoldMean(K1[k], K2[k], K3[k], K4[k]) / 6 + U0[k];
    }
    for (int k = firstAcceleration; k < equations; ++k) {
        A4[k] = dU[k];
        dU[k] = sixfoldMean(A1[k], A2[k], A3[k], A4[k]) / 6;
    }
}

}  // namespace

void rungeKuttaStep(ModelState& s, Motion& motion, RunState& run) {
    const double h = s.DtCur;
    double *const U = motion.U.data(), *const dU = motion.dU.data();
    std::pair<decltype(run.K1)&, decltype(run.A1)&> stages[] = {
        {run.K1, run.A1}, {run.K2, run.A2}, {run.K3, run.A3}};
    motion.NDiffur = 0;
    std::copy(U, U + equations, run.U0.begin());
    rungeKutta4(
        h,
        [&](double t) {
            run.Tstage = run.Tsec + t;
            motion.dTstage = t;
            rightHandSide(s, motion);
        },
        [&](int stage, double share) {
            auto& [K, A] = stages[stage - 1];
            endStage(h, share, dU, run.U0.data(), K.data(), A.data(), U);
        },
        [&] { endStep(h, run, run.K4.data(), run.A4.data(), dU, U); });
}

std::array<double, equations> slopeAtEnd(ModelState& s, Motion& motion) {
    const auto dU = motion.dU;
    const auto [NDiffur, dTstage, fullQuadrant] =
        std::tuple(motion.NDiffur, motion.dTstage, motion.fullQuadrant);
    motion.NDiffur = 0;
    motion.dTstage = 0;
    rightHandSide(s, motion);
    const auto slope = motion.dU;
    motion.dU = dU;
    motion.NDiffur = NDiffur;
    motion.dTstage = dTstage;
    motion.fullQuadrant = fullQuadrant;
    return slope;
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
