#pragma once
// Sessions as scripts in files.

#include <filesystem>
#include <string>
#include <vector>

namespace tarvex {

/// Writes the lines of a script, whole or not at all.  Throws FileFailure.
void writeScript(const std::filesystem::path& file, const std::vector<std::string>& lines);
/// The same with a head that tells a session from another script.
void writeSession(const std::filesystem::path& file, std::vector<std::string> lines);

/// A session in a window does what it can; another script stops at the first line that cannot be done.
bool isSession(const std::vector<std::string>& script);

}  // namespace tarvex
