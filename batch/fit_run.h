#pragma once
// The program tarvex-fit: forms set what the model starts from, as at the desk, and the model is fitted to
// places.

#include <iosfwd>
#include <string>
#include <vector>

#include "batch/fit_options.h"

namespace tarvex {

/// The script lines that lead to the state a fit starts from.
/// @param year, month, day  of the first place, ephemeris time
std::vector<std::string> fitScript(const FitOptions& options, int year, int month, double day);

/// Fits and prints the answer on `out`, progress on `err`.  The data tree is read alone.
/// @return 0
/// Throws Failure when the data tree or the places are missing, when what was asked for fails, and without
/// convergence.
int runFit(const FitOptions& options, std::ostream& out, std::ostream& err, bool terminal = false);

}  // namespace tarvex
