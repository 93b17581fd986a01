#pragma once
// A form's tables of fields as text for a spreadsheet.

#include <string>

#include "runtime/layout.h"

namespace tarvex {

/// The table, or the grid of labelled fields, in which a control stands; null when it stands alone.
const Layout* gridOf(const Layout& tree, const Control& control);

/// Its rows as lines, their cells separated by tabs.  A labelled field is two cells: label and value.
std::string tableText(const Layout& grid);

}  // namespace tarvex
