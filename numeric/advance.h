#pragma once
// One step of an experiment, by the model or by an imitator, with the choice of the origin.

#include "core/arithmetic.h"
#include "core/vec3.h"
#include "numeric/run_loop.h"

namespace tarvex {

/// The step with everything that follows from it alone: origin, speed of the body, speeds along the lines.
/// Its results go on only when all of it is a number.
/// @throws whatever fails inside, with the state of the step before given back
void advance(const Experiment& e, const ArithmeticGuard& guard);

/// Bodies of the imitator's theory at JD, for the ephemeris at JDjpl; the origin is not chosen yet.
void imitatorStep(const Experiment& e);

/// Three blocks of values by body, like X, Y, Z of the state.
struct StateBlocks {
    const double *x, *y, *z;
};

/// The value of IplSel less that of the measurement's origin Icentr: of the centre of mass where that is
/// chosen.
Vec3 fromOrigin(const ModelState& s, const RunState& run, const StateBlocks& blocks);

}  // namespace tarvex
