#include "desktop/table_text.h"

#include <algorithm>

#include "runtime/control.h"

namespace tarvex {

namespace {

using Kind = Layout::Kind;

bool holds(const Layout& part, const Control& control) {
    return part.control == &control ||
           std::any_of(part.children.begin(), part.children.end(),
                       [&](const Layout& child) { return holds(child, control); });
}

std::string oneCell(std::string text) {
    for (char& c : text)
        if (c == '\t' || c == '\n' || c == '\r') c = ' ';
    return text;
}

std::string valueOf(const Control& control) {
    switch (control.kind()) {
        case Control::Kind::Text:
            return static_cast<const TextField&>(control).text();
        case Control::Kind::Check:
            return (static_cast<const CheckBox&>(control).on() ? "+ " : "- ") + control.caption();
        case Control::Kind::Option:
            return (static_cast<const OptionButton&>(control).on() ? "+ " : "- ") + control.caption();
        default:
            return control.caption();
    }
}

std::string cellOf(const Layout& cell, bool labels) {
    if (cell.kind == Kind::Item) {
        const bool labelled =
            labels && cell.control->kind() == Control::Kind::Text && !cell.control->caption().empty();
        return (labelled ? oneCell(cell.control->caption()) + "\t" : "") + oneCell(valueOf(*cell.control));
    }
    std::string all = oneCell(cell.text);
    for (const Layout& child : cell.children) {
        const std::string one = oneCell(cellOf(child, labels));
        if (!all.empty() && !one.empty()) all += ' ';
        all += one;
    }
    return all;
}

}  // namespace

const Layout* gridOf(const Layout& tree, const Control& control) {
    if (!holds(tree, control) || tree.kind == Kind::Item) return nullptr;
    if (tree.kind == Kind::Table) return &tree;
    for (const Layout& child : tree.children)
        if (const Layout* inner = gridOf(child, control)) return inner;
    return tree.kind == Kind::Fields && tree.children.size() > 1 ? &tree : nullptr;
}

std::string tableText(const Layout& grid) {
    std::string text;
    const int columns = std::max(grid.columns, 1);
    for (int i = 0; i < static_cast<int>(grid.children.size()); ++i) {
        if (i > 0) text += i % columns == 0 ? "\n" : "\t";
        text += cellOf(grid.children[i], grid.kind == Kind::Fields);
    }
    return text + "\n";
}

bool isBlock(std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
    return text.find_first_of("\t\n") != std::string_view::npos;
}

std::vector<std::pair<TextField*, std::string>> cellsOf(const Layout& grid, const Control& first,
                                                        std::string_view block) {
    const auto& cells = grid.children;
    const auto begin =
        std::find_if(cells.begin(), cells.end(), [&](const Layout& cell) { return cell.control == &first; });
    std::vector<std::pair<TextField*, std::string>> met;
    if (begin == cells.end()) return met;
    const auto columns = static_cast<std::size_t>(std::max(grid.columns, 1)),
               place = static_cast<std::size_t>(begin - cells.begin());
    std::size_t row = place / columns, column = place % columns;
    for (std::size_t from = 0; from < block.size();) {
        const std::size_t end = std::min(block.find_first_of("\t\r\n", from), block.size());
        const std::size_t at = row * columns + column;
        if (column < columns && at < cells.size() && cells[at].kind == Kind::Item &&
            cells[at].control->kind() == Control::Kind::Text) {
            auto* field = static_cast<TextField*>(cells[at].control);
            if (!field->readOnly() && field->enabled())
                met.emplace_back(field, std::string(block.substr(from, end - from)));
        }
        ++column;
        const bool lineEnds = end < block.size() && block[end] != '\t';
        from = block.compare(end, 2, "\r\n") == 0 ? end + 2 : end + 1;
        if (!lineEnds) continue;
        ++row;
        column = place % columns;
    }
    return met;
}

}  // namespace tarvex
