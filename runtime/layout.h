#pragma once
// How a form lays out its controls: a tree of rows, columns, grids and frames that a screen renders.
//
//   layout = column({row({frame("Дата", fields(1, {Text34, Text33})), frame("Команды", column({Command2}))}),
//                    Picture1});

#include <string>
#include <utility>
#include <vector>

namespace tarvex {

class Control;

struct Layout {
    enum class Kind {
        Empty,
        Item,
        Text,
        Row,
        Column,
        Fields,   ///< a grid of labelled fields: label and field side by side, `columns` pairs in a row;
                  ///< of a row() that starts with such a field the rest stands behind it
        Table,    ///< a grid of bare cells, `columns` in a row: field labels are not repeated; in a first row
                  ///< of headings each spans the blank() places behind it; commands fill their places
        Frame,    ///< a titled group around its one child
        Scroll,   ///< its one child, with scroll bars when it does not fit
        Stretch,  ///< takes the room that is left
        Pages     ///< tabs; children are Frames, their titles the tabs
    };
    Kind kind = Kind::Empty;
    Control* control = nullptr;
    std::string text;
    int columns = 1;
    std::vector<Layout> children;

    Layout() = default;
    Layout(Control& item) : kind(Kind::Item), control(&item) {}
    Layout(const char* caption) : kind(Kind::Text), text(caption) {}
    Layout(std::string caption) : kind(Kind::Text), text(std::move(caption)) {}
    Layout(Kind kind_, std::vector<Layout> children_) : kind(kind_), children(std::move(children_)) {}
};

inline Layout row(std::vector<Layout> parts) { return {Layout::Kind::Row, std::move(parts)}; }
inline Layout column(std::vector<Layout> parts) { return {Layout::Kind::Column, std::move(parts)}; }
inline Layout fields(int columns, std::vector<Layout> parts) {
    Layout l(Layout::Kind::Fields, std::move(parts));
    l.columns = columns;
    return l;
}
inline Layout table(int columns, std::vector<Layout> cells) {
    Layout l(Layout::Kind::Table, std::move(cells));
    l.columns = columns;
    return l;
}
inline Layout frame(std::string title, Layout inside) {
    Layout l(Layout::Kind::Frame, {std::move(inside)});
    l.text = std::move(title);
    return l;
}
inline Layout scrolled(Layout inside) { return {Layout::Kind::Scroll, {std::move(inside)}}; }
inline Layout pages(std::vector<Layout> frames) { return {Layout::Kind::Pages, std::move(frames)}; }
inline Layout stretch() { return {Layout::Kind::Stretch, {}}; }
inline Layout blank() { return {}; }

}  // namespace tarvex
