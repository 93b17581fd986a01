#pragma once
// The ancient tables on the forms that offer them, by the number of their option: captions, hints and places.

#include <array>
#include <vector>

#include "runtime/control.h"
#include "runtime/layout.h"

namespace tarvex {

inline constexpr std::array tableCaptions = {"", "AlBattani",   "Alfonso*", "AlKhwarizmi*", "Almagest*", "",
                                             "", "Rudolphine*", "Streete*", "Tycho (0,11)", "Wing"};

/// Three options have no caption of their own; a word beside each says what it stands for.
inline const char* wordBesideTable(int i) {
    return i == 0 ? "(нет)" : i == 5 ? "(Handy)" : i == 6 ? "(Prutenic)" : "";
}

inline std::string tableHint(int i) {
    if (i == 0) return "Таблица не выбрана: с этой отметкой расчет не начнется";
    if (i == 5 || i == 6)
        return std::string("Место для таблиц ") + (i == 5 ? "HandyTables" : "PrutenticTables") +
               ": их ячейки не описаны, положения не читаются";
    return std::string("Открыть книгу таблиц ") + tableCaptions[i] +
           " из папки Tab и взять ее место и начало";
}

/// The option of table i; none is chosen at first.
inline OptionButton::Spec tableOption(int i) {
    return {
        .name = "Option4", .caption = tableCaptions[i], .group = "table", .on = i == 0, .hint = tableHint(i)};
}

/// The options as cells of a table.
inline std::vector<Layout> tableCells(const OptionButtons& options) {
    std::vector<Layout> cells;
    for (int i = options.first(); i <= options.last(); ++i)
        cells.push_back(options(i).caption().empty() ? row({options(i), wordBesideTable(i)})
                                                     : Layout(options(i)));
    return cells;
}

}  // namespace tarvex
