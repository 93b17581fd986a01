#pragma once
// The sentence that a user reads under an answer: what the drifts determine, what they do not, and whether
// they agree.  Made here alone, from the numbers that are shown beside it.

#include <string>

#include "stats/drift_solution.h"

namespace tarvex {

std::string verdictText(const DriftProblem& problem, const DriftSolution& solution);

/// Name of a factor of the plan, "VX" ... "m0/m2".
const char* factorName(int factor);

}  // namespace tarvex
