#pragma once
// Pieces of the lines of a script.

#include <string_view>

namespace tarvex {

/// Without blanks and tabs at its beginning.
std::string_view trimLeft(std::string_view s);
/// Without blanks, tabs and carriage returns at its ends.
std::string_view trim(std::string_view s);
/// Takes the first word off the line.
std::string_view takeWord(std::string_view& line);

}  // namespace tarvex
