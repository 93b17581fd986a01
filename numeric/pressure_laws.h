#pragma once
// Dynamic pressure of gravity: the speeds along the lines at every stage, and the laws that change the pair
// forces.

#include "numeric/lane_kernels.h"

namespace tarvex::kernel {

/// Row i of the differences to where body i stood Tik ago by its trace.  A time that falls exactly on the
/// grid of the trace keeps the differences of the iteration before: that is meant.
void tracedRow(const ModelState& s, Motion& m, const BodyLanes& b, int i);

/// Speeds along the lines and d2R for the stage NDiffur.
/// @return  0, or not a number if a rate is not finite
double stageSpeeds(const ModelState& s, Motion& m, const BodyLanes& b);

/// Changes the forces of every pair by the law kodPgr.
/// @return  0, or not a number if a value of the law is not finite
double applyPressure(const ModelState& s, Motion& m, const BodyLanes& b);

}  // namespace tarvex::kernel
