#pragma once
// A form's tables of fields as text for a spreadsheet.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/layout.h"

namespace tarvex {

class TextField;

/// The table, or the grid of labelled fields, in which a control stands; null when it stands alone.
const Layout* gridOf(const Layout& tree, const Control& control);

/// Its rows as lines, their cells separated by tabs.  A labelled field is two cells: label and value.
std::string tableText(const Layout& grid);

/// More than one cell: lines and tabs, as a spreadsheet gives them.
bool isBlock(std::string_view text);

/// Fields and texts that a block of cells brings when its left top cell goes into `first`: to the right and
/// down; cells that meet no field, or one that only shows, are left out.
std::vector<std::pair<TextField*, std::string>> cellsOf(const Layout& grid, const Control& first,
                                                        std::string_view block);

}  // namespace tarvex
