#pragma once
// The step of the experiment: classical Runge-Kutta of the fourth order on the state U.

#include "core/model_state.h"
#include "numeric/motion.h"
#include "numeric/run_state.h"

namespace tarvex {

/// Advances U by DtCur through the right-hand side of kodOTO and leaves in dU(33..65) the mean of the four
/// stage accelerations.  U0 keeps the state at the step's start; X..VZ are those of the last stage until
/// unpackState().
/// @throws ArithmeticFailure where the right-hand side does
void rungeKuttaStep(ModelState& s, Motion& motion, RunState& run);

/// The derivatives at the end of the step just made, as the first stage of the next step will have them: the
/// speeds along the lines have been updated, the trace has been pushed.  That stage finds everything as it
/// would without this call.
/// @throws ArithmeticFailure where the right-hand side does
std::array<double, equations> slopeAtEnd(ModelState& s, Motion& motion);

/// Copies U into X..VZ of bodies 0..10.
void unpackState(ModelState& s, const Motion& motion);
/// Copies X..VZ of bodies 0..10 into U.
void packState(const ModelState& s, Motion& motion);
/// Copies the coordinates alone into U.
void packCoordinates(const ModelState& s, Motion& motion);

}  // namespace tarvex
