#pragma once
// The step of order 8: the explicit pair of Dormand and Prince, made for steps of a day and more, with its
// dense output of order 7.

#include <array>

#include "core/model_state.h"
#include "numeric/motion.h"
#include "numeric/order8_coefficients.h"
#include "theories/arc.h"

namespace tarvex {

/// What a step leaves for its dense output.
struct Order8Stages {
    double h = 0;                                                          ///< length of the step, s
    std::array<double, equations> start{};                                 ///< U at its start
    std::array<std::array<double, equations>, order8::allStages> slope{};  ///< dU of each stage
};

/// Advances U by DtCur through the right-hand side of kodOTO and leaves in dU(33..65) the mean of the stage
/// accelerations with the weights of the step.  The relativistic terms get the accelerations of the stage
/// itself: each stage is evaluated twice, which leaves an error of the second order in their smallness, 1E-8.
/// @throws ArithmeticFailure where the right-hand side does
void order8Step(ModelState& s, Motion& motion, Order8Stages& stages);

/// Adds the four stages of the dense output to those of the step just made.  Leaves U, dU, AX..AZ and the
/// rows X..VZ of bodies 0..10 as U holds them.
void completeStages(ModelState& s, Motion& motion, Order8Stages& stages);

/// Dense output of a motion that is linear in the state, like that of a body about its centre.
/// @param start  the motion at the start of the step
/// @param slope  its derivatives at all stages: velocities in r, accelerations in v
Arc order8Arc(double h, const OrbitPoint& start, const std::array<OrbitPoint, order8::allStages>& slope);

}  // namespace tarvex
