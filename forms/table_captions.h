#pragma once
// Captions of the ancient tables on the forms that offer them, by the number of their option.

#include <array>

namespace tarvex {

inline constexpr std::array tableCaptions = {"", "AlBattani",   "Alfonso*", "AlKhwarizmi*", "Almagest*", "",
                                             "", "Rudolphine*", "Streete*", "Tycho (0,11)", "Wing"};

}  // namespace tarvex
