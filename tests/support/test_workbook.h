#pragma once
// Writes small workbooks for tests, as flat OpenDocument text.

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tarvex::test {

/// Contents by cell name: "=[.B6]*2" a formula (OpenFormula), "'text" a text, anything else a number.
using SheetCells = std::map<std::string, std::string>;

void writeWorkbook(const std::filesystem::path& path, const std::vector<SheetCells>& sheets);

}  // namespace tarvex::test
