#pragma once
// The commands that give the shared state what the inputs of forms do not show.

#include <set>
#include <string>

namespace tarvex {

/// References of the commands that load or hand over: a session repeats them.  None of them writes a file or
/// runs long.
std::set<std::string> sessionSteps();

}  // namespace tarvex
