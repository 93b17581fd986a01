#pragma once
// Several experiments on one core, their steps made together in the lanes of its vectors.

#include <cstddef>
#include <functional>
#include <vector>

#include "numeric/step_seat.h"

namespace tarvex {

/// Experiments that this processor takes abreast.
int lanesAbreast();

/// Calls every run with a seat that belongs into its Experiment.  They go side by side, each in a context of
/// its own and one at a time: whenever all of them want a step, it is made for all.  A run whose law the
/// lanes do not know, and one that is left alone, makes its own.  Files, messages and results are those of
/// runs one after another, to the last bit.
/// @param runs  whatever one of them throws is its own trouble: the others go on, and the first that has
/// thrown is heard when all have ended
/// @return  steps that were made for several at once
std::size_t runInLanes(const std::vector<std::function<void(StepSeat&)>>& runs);

}  // namespace tarvex
