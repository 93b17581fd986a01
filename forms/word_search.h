#pragma once
// Search for words, whatever their case and their Russian endings.

#include <string>
#include <vector>

namespace tarvex {

/// The words of a text as they are sought: in lower case, the long Russian ones without their endings.
std::vector<std::string> searchWords(const std::string& text);
/// True when the text holds each of the words that searchWords() gave.
bool holdsAll(const std::string& text, const std::vector<std::string>& words);

}  // namespace tarvex
