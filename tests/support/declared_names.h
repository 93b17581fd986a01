#pragma once
// Names of the variables that a struct of the shared state declares, read from its header.

#include <filesystem>
#include <string>
#include <vector>

namespace tarvex::test {

/// Numbers, texts and arrays of numbers declared in a struct; members of other types are left out.
/// @param header  file from the root of the source tree
std::vector<std::string> declaredNames(const std::filesystem::path& header, const std::string& structure);

}  // namespace tarvex::test
