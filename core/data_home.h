#pragma once
// Where the data tree of a started program lies.

#include <filesystem>
#include <optional>

namespace tarvex {

/// Folder of the data tree, tried in this order:
///   the given one; a folder `data` beside the executable or up to three folders above it (a build tree);
///   the user's own tree `tarvex` in his data folder.  An installed program copies the tree of its package
///   (../share/tarvex/data from the executable) there at the first start, as a whole or not at all.
/// @param executable  path of the running program
/// @param userData    the user's data folder
/// Throws OpenFailure when the given folder is missing or there is no tree to copy.
std::filesystem::path findDataTree(const std::optional<std::filesystem::path>& given,
                                   const std::filesystem::path& executable,
                                   const std::filesystem::path& userData);

/// The same for this process: its own executable, and the data folder of the user who runs it.
std::filesystem::path findDataTree(const std::optional<std::filesystem::path>& given);

}  // namespace tarvex
