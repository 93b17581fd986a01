#pragma once
// What killed programs of this laboratory leave behind, told from what living ones still need.

#include <filesystem>

namespace tarvex {

/// Name under which a file or folder grows beside its target until it is whole:
/// "<target>.<machine>-<process>.tmp~".
std::filesystem::path passingName(const std::filesystem::path& target);

/// True for something under a passing name whose process is gone; on another machine, which cannot be asked,
/// after a day.
bool abandoned(const std::filesystem::directory_entry& entry);

/// Removes what killed programs have left: everything under passing names in the data tree, this user's
/// private folders, and his sockets of the spreadsheet program on which nobody listens.  Symbolic links are
/// not followed.
void sweepLeftovers(const std::filesystem::path& dataRoot);

}  // namespace tarvex
