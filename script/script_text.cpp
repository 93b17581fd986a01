#include "script/script_text.h"

#include <algorithm>

namespace tarvex {

std::string_view trimLeft(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    return s;
}

std::string_view trim(std::string_view s) {
    s = trimLeft(s);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

std::string_view takeWord(std::string_view& line) {
    line = trimLeft(line);
    const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
    const std::string_view word = line.substr(0, end);
    line = trimLeft(line.substr(end));
    return word;
}

}  // namespace tarvex
