#pragma once
// The experiments of a plan, each in a process of its own: Form15 drives Form2 as at the desk, in a passing
// data tree, and the finished run file is renamed into the real one, so that a file there is always whole.

#include <iosfwd>
#include <string>
#include <vector>

#include "batch/batch_options.h"

namespace tarvex {

/// The script of one experiment for one planet.
std::vector<std::string> experimentScript(const BatchOptions& options, int planet, int experiment);

/// Runs the experiments and tells their progress and expected end on `err`, the written files on `out`.
/// SIGINT and SIGTERM end the batch; what is finished stays, and --resume goes on from there.
/// @param terminal  somebody looks at `err`
/// @return 0 when every experiment has its file, 2 otherwise
/// Throws Failure when the data tree or the plan is missing, and when --resume finds experiments finished
/// with other settings.
int runBatch(const BatchOptions& options, std::ostream& out, std::ostream& err, bool terminal = false);

}  // namespace tarvex
