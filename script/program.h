#pragma once
// The program tarvex-script without its streams: "tarvex-script [--data DIR] [--strict] [--trust] FILE|-".

#include <iosfwd>
#include <string>
#include <vector>

namespace tarvex {

/// Plays the script that the arguments name.
/// @return  the exit status: 0, or, told on `err` as "FILE:LINE: what", 2 after the first line that cannot be
/// done and 3 after the first error message of a strict script
int runScriptProgram(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                     std::ostream& err);

}  // namespace tarvex
