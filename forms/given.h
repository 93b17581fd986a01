#pragma once
// The line that tells what a run would start from, on the parameter screen and on that of the experiment.

#include "forms/laboratory.h"

namespace tarvex {

/// Puts into the label: source and date of the elements, who formed the initial data, masses, Earth-Moon
/// mode, laws, plan, experiment and record files.  It stands out when something is not as the parameter
/// screen handed it over, or typed there and not loaded; that is named then.
/// @param atRun  on the screen of the experiment: elements that were not handed over are told as well
void showGiven(Laboratory& lab, Label& label, bool atRun) noexcept;

}  // namespace tarvex
