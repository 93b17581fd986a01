#pragma once
// The experiments of a plan, in processes and there in lanes, each in a passing data tree of its own; the
// finished run file is renamed into the real one, so that a file there is always whole.

#include <iosfwd>
#include <string>
#include <vector>

#include "batch/batch_options.h"

namespace tarvex {

/// The script that sets the screens for the experiments of one planet: data, plan, settings.
std::vector<std::string> settingsScript(const BatchOptions& options, int planet);

/// Runs the experiments and tells their progress and expected end on `err`, the written files on `out`.
/// SIGINT and SIGTERM end the batch; what is finished stays, and --resume goes on from there.
/// @param terminal  somebody looks at `err`
/// @return 0 when every experiment has its file, 2 otherwise
/// Throws Failure when the data tree or the plan is missing, and when --resume finds experiments finished
/// with other settings.
int runBatch(const BatchOptions& options, std::ostream& out, std::ostream& err, bool terminal = false);

}  // namespace tarvex
