#pragma once
// The orbit of one body, measured at the very moments of its passages: the step stays as it is, and apses,
// nodes, the wrap of the longitude and the greatest latitude are found inside it.

#include "numeric/step_inside.h"

namespace tarvex {

/// Looks for passages in the step that the model has just made: measures, tells and records them as of their
/// own times.  The clock stands at the end of the step, the trace has been pushed.
/// @param before  where the body was seen when the step began
/// @return  true when something was passed, and told
/// @throws ArithmeticFailure for a body on the Z axis of the origin, failures of the record file
bool followModel(const Experiment& e, const OrbitPoint& before, RunPort& port);

/// The same for the way of an imitator since its last pass; the theory itself is asked for the moments
/// between.
/// @param Tsec  time of the place that the pass has found, s
bool followImitator(const Experiment& e, double Tsec, RunPort& port);

/// End of the run: a turn that still waits for others counts, unless this run has had several at one apse.
void endPassages(const Experiment& e, RunPort& port);

}  // namespace tarvex
