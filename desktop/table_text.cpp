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

}  // namespace tarvex
