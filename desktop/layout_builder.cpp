#include "desktop/layout_builder.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QTabWidget>
#include <algorithm>
#include <numeric>
#include <set>

#include "desktop/picture_view.h"

namespace tarvex {

namespace {

constexpr int pairGap = 8;            ///< more between two pairs of label and field
constexpr int leastPicture = 320;     ///< width left to a picture that is moved in its area, pixels
constexpr QSize usualArea(800, 480);  ///< of a picture that changes its shape, however small it is now
constexpr int widestArea = 1250;      ///< of a scrolled area that shows all its width, pixels
constexpr int captionRoom = 14;       ///< of a command, left and right of its caption together, pixels
constexpr int choiceGap = 1;          ///< between ticks or options below each other

using Kind = Layout::Kind;

bool isControl(const Layout& part, Control::Kind kind) {
    return part.kind == Kind::Item && part.control->kind() == kind;
}

bool isBox(const Layout& part) {
    return isControl(part, Control::Kind::Text) && static_cast<TextField*>(part.control)->lines() > 1;
}

/// A field of one line with its label beside it: neighbours of this sort line up in a grid.
bool isLabelled(const Layout& part) {
    return isControl(part, Control::Kind::Text) && !isBox(part) && !part.control->caption().empty();
}

/// A row that starts with such a field: in a grid its label stands among the labels.
bool isLabelledRow(const Layout& part) {
    return part.kind == Kind::Row && part.children.size() > 1 && isLabelled(part.children.front());
}

/// Parts that fill the width they are given; others keep their own at the left.
/// A label on several lines breaks its words at the width that it is given.
bool isBroken(const Layout& part) {
    return isControl(part, Control::Kind::Label) && static_cast<const Label*>(part.control)->lines() > 1;
}

bool fillsWidth(const Layout& part) {
    return part.kind != Kind::Text &&
           (part.kind != Kind::Item || isBox(part) || isBroken(part) ||
            isControl(part, Control::Kind::Picture) || isControl(part, Control::Kind::Scroll));
}

/// A scrolled area that asks for the room of what it holds.
class RoomyArea final : public QScrollArea {
public:
    /// @param picture  what it holds is a picture, which is moved in both directions
    explicit RoomyArea(bool picture) : picture_(picture) {}
    QSize sizeHint() const override {
        const QSize whole = widget()->sizeHint() + QSize(barRoom(), barRoom());
        return picture_ ? whole.expandedTo(usualArea) : whole;
    }
    QSize minimumSizeHint() const override {
        return {
            std::min(widget()->minimumSizeHint().width() + barRoom(), picture_ ? leastPicture : widestArea),
            QScrollArea::minimumSizeHint().height()};
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        if (picture_)
            for (QWidget* child : widget()->findChildren<QWidget*>())
                if (auto* view = dynamic_cast<PictureView*>(child)) view->fitIn(maximumViewportSize());
        QScrollArea::resizeEvent(event);
    }

private:
    int barRoom() const { return style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4; }
    bool picture_;
};

/// What a grid leaves over goes behind its last cell, unless some cell makes use of it.
void closeGrid(QGridLayout& grid, bool wide, bool tall) {
    if (!wide) grid.setColumnStretch(grid.columnCount(), 1);
    if (!tall) grid.setRowStretch(grid.rowCount(), 1);
}

/// A titled frame, or some below each other.
bool isGroup(const Layout& part) {
    return part.kind == Kind::Frame || (part.kind == Kind::Column && !part.children.empty() &&
                                        std::all_of(part.children.begin(), part.children.end(), isGroup));
}

/// A caption, or nothing: what the headings of a table are made of.
bool isWords(const Layout& part) {
    return part.kind == Kind::Text || part.kind == Kind::Empty || isControl(part, Control::Kind::Label);
}

bool isBlank(const std::vector<Layout>& cells, std::size_t i) {
    return i < cells.size() && cells[i].kind == Kind::Empty;
}

/// Commands, ticks and options: what may stand in a folded row.
bool isPress(const Layout& part) {
    return isControl(part, Control::Kind::Command) || isControl(part, Control::Kind::Check) ||
           isControl(part, Control::Kind::Option);
}

/// A choice without a caption: the word that follows it in a row speaks for it.
bool isUnnamedChoice(const Layout& part) { return isPress(part) && part.control->caption().empty(); }

bool isCommand(const Layout& part) { return isControl(part, Control::Kind::Command); }
bool isChoice(const Layout& part) { return isPress(part) && !isCommand(part); }

/// The parts from `from` on that are of one sort.
std::vector<Layout> runOf(const std::vector<Layout>& parts, std::size_t from, bool (*sort)(const Layout&)) {
    std::size_t to = from;
    while (to < parts.size() && sort(parts[to])) ++to;
    return {parts.begin() + from, parts.begin() + to};
}

}  // namespace

QLabel* LayoutBuilder::caption(const std::string& text) const {
    auto* label = new QLabel(QString::fromStdString(text));
    label->setFont(density_.font);
    label->setTextFormat(Qt::PlainText);
    return label;
}

template <class Box>
Box* LayoutBuilder::bare() const {
    auto* box = new Box;
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(density_.gap);
    return box;
}

QWidget* LayoutBuilder::wrapped(const Piece& inside) const {
    if (inside.widget != nullptr) return inside.widget;
    auto* widget = new QWidget;
    if (inside.layout != nullptr) widget->setLayout(inside.layout);
    return widget;
}

QWidget* LayoutBuilder::build(const Layout& tree) const {
    auto* widget = new QWidget;
    widget->setLayout(columnOf(tree.kind == Kind::Column ? tree.children : std::vector<Layout>{tree}).layout);
    widget->layout()->setContentsMargins(8, 4, 8, 4);
    // Shown later by the event loop otherwise, and until then left out of every size hint.
    for (auto* child : widget->findChildren<QWidget*>())
        if (qobject_cast<QGroupBox*>(child) != nullptr || qobject_cast<QLabel*>(child) != nullptr ||
            qobject_cast<QTabWidget*>(child) != nullptr || qobject_cast<QScrollArea*>(child) != nullptr)
            child->setVisible(true);
    return widget;
}

void LayoutBuilder::shareRows(const QWidget& contents) {
    for (auto* box : contents.findChildren<QHBoxLayout*>())
        for (int i = 0; i < box->count(); ++i)
            if (box->stretch(i) > 0 && box->itemAt(i)->spacerItem() == nullptr)
                box->setStretch(i, std::max(1, box->itemAt(i)->sizeHint().width()));
}

LayoutBuilder::Piece LayoutBuilder::piece(const Layout& part) const {
    switch (part.kind) {
        case Kind::Item:
            return item(*part.control);
        case Kind::Text:
            return {nullptr, caption(part.text)};
        case Kind::Row:
            return rowOf(part.children, density_.rowWidth);
        case Kind::Column:
            return columnOf(part.children);
        case Kind::Fields:
            return fieldsOf(part.columns, part.children);
        case Kind::Table:
            return tableOf(part.columns, part.children);
        case Kind::Frame:
            return frameOf(part);
        case Kind::Scroll:
            return scrollOf(part);
        case Kind::Pages:
            return pagesOf(part);
        case Kind::Empty:
        case Kind::Stretch:
            break;
    }
    return {nullptr, new QWidget};
}

LayoutBuilder::Piece LayoutBuilder::item(Control& control) const {
    ControlView& view = viewOf_(control);
    const bool picture = control.kind() == Control::Kind::Picture, box = isBox(control);
    QLabel* label = view.label();
    if (label == nullptr) return {nullptr, view.widget(), picture || box, picture || box};
    if (box) {
        auto* above = bare<QVBoxLayout>();
        label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        above->addWidget(label);
        above->addWidget(view.widget(), 1);
        return {above, nullptr, true, true};
    }
    auto* beside = bare<QHBoxLayout>();
    beside->addWidget(label);
    beside->addWidget(view.widget());
    return {beside, nullptr};
}

LayoutBuilder::Piece LayoutBuilder::rowOf(const std::vector<Layout>& parts, int limit) const {
    if (!parts.empty() && std::all_of(parts.begin(), parts.end(), isPress)) return foldedRow(parts, limit);
    auto* box = bare<QHBoxLayout>();
    bool wide = false, tall = false, filled = false;  // filled: uses its width, but asks for no more
    const Layout* before = nullptr;
    for (const Layout& part : parts) {
        if (part.kind == Kind::Stretch) {
            box->addStretch(1);
            filled = true;
            continue;
        }
        const Piece one = piece(part);
        if (part.kind == Kind::Text && before != nullptr && isUnnamedChoice(*before))
            viewOf_(*before->control).addWord(static_cast<QLabel*>(one.widget));
        before = &part;
        const bool bar = isControl(part, Control::Kind::Scroll);  // as long as its row
        filled |= bar;
        const int share = one.wide || bar ? 1 : 0;
        if (one.layout != nullptr)
            box->addLayout(one.layout, share);
        else
            box->addWidget(one.widget, share);
        wide |= one.wide;
        tall |= one.tall;
    }
    // Groups side by side share what is left, so that their outer edges line up with the rows above and
    // below.
    if (!wide && !filled && !std::all_of(parts.begin(), parts.end(), isGroup)) box->addStretch(1);
    return {box, nullptr, wide, tall};
}

LayoutBuilder::Piece LayoutBuilder::foldedRow(const std::vector<Layout>& parts, int limit) const {
    std::vector<int> widths;
    widths.reserve(parts.size());
    for (const Layout& part : parts)
        widths.push_back(viewOf_(*part.control).widget()->sizeHint().width() + density_.gap);
    const int whole = std::accumulate(widths.begin(), widths.end(), 0);
    const int lines = (whole + limit - 1) / limit;
    auto* box = bare<QVBoxLayout>();
    QHBoxLayout* line = nullptr;
    int used = 0;
    for (std::size_t i = 0; i < parts.size(); used += widths[i++]) {
        if (line == nullptr || (used + widths[i] / 2 > whole / lines)) {
            if (line != nullptr) line->addStretch(1);
            box->addLayout(line = bare<QHBoxLayout>());
            used = 0;
        }
        line->addWidget(viewOf_(*parts[i].control).widget());
    }
    line->addStretch(1);
    return {box, nullptr};
}

/// Of the longest caption where all cells are commands or blank; 0 otherwise.
int LayoutBuilder::commandWidth(const std::vector<Layout>& cells) const {
    int widest = 0;
    for (const Layout& cell : cells) {
        if (cell.kind == Kind::Empty) continue;
        if (!isCommand(cell)) return 0;
        const QFontMetrics metrics(density_.font);
        widest = std::max(widest, metrics.horizontalAdvance(literal(cell.control->caption())) + captionRoom);
    }
    return widest;
}

/// Commands below each other, as wide as the longest.
QLayout* LayoutBuilder::commandsOf(const std::vector<Layout>& run) const {
    auto* commands = bare<QVBoxLayout>();
    for (const Layout& one : run) commands->addWidget(item(*one.control).widget);
    auto* left = bare<QHBoxLayout>();
    left->addLayout(commands);
    left->addStretch(1);
    return left;
}

QLayout* LayoutBuilder::choicesOf(const std::vector<Layout>& run) const {
    auto* choices = bare<QVBoxLayout>();
    choices->setSpacing(choiceGap);
    for (const Layout& one : run) choices->addWidget(item(*one.control).widget, 0, Qt::AlignLeft);
    return choices;
}

LayoutBuilder::Piece LayoutBuilder::columnOf(const std::vector<Layout>& parts) const {
    auto* box = bare<QVBoxLayout>();
    bool wide = false, tall = false;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Layout& part = parts[i];
        if (part.kind == Kind::Stretch) {
            box->addStretch(1);
            tall = true;
            continue;
        }
        const auto labelled = runOf(parts, i, isLabelled), commands = runOf(parts, i, isCommand),
                   choices = runOf(parts, i, isChoice);
        if (const std::size_t run = labelled.size() + commands.size() + choices.size(); run > 0) {
            box->addLayout(!labelled.empty()   ? fieldsOf(1, labelled).layout
                           : !commands.empty() ? commandsOf(commands)
                                               : choicesOf(choices));
            i += run - 1;
            continue;
        }
        const Piece one = piece(part);
        if (one.layout != nullptr)
            box->addLayout(one.layout, one.tall ? 1 : 0);
        else if (fillsWidth(part))
            box->addWidget(one.widget, one.tall ? 1 : 0);
        else
            box->addWidget(one.widget, 0, Qt::AlignLeft);
        wide |= one.wide;
        tall |= one.tall;
    }
    if (!tall) box->addStretch(1);
    return {box, nullptr, wide, tall};
}

LayoutBuilder::Piece LayoutBuilder::fieldsOf(int columns, const std::vector<Layout>& parts) const {
    auto* grid = bare<QGridLayout>();
    grid->setVerticalSpacing(density_.gap - 2);
    bool wide = false, tall = false;
    int row = 0, column = 0;
    for (const Layout& part : parts) {
        const int at = 3 * column;  // label, field, and a gap before the next pair
        if (isLabelled(part)) {
            ControlView& view = viewOf_(*part.control);
            grid->addWidget(view.label(), row, at, Qt::AlignRight | Qt::AlignVCenter);
            grid->addWidget(view.widget(), row, at + 1, Qt::AlignLeft);
        } else if (isLabelledRow(part)) {
            ControlView& view = viewOf_(*part.children.front().control);
            auto* beside = bare<QHBoxLayout>();
            beside->addWidget(view.widget());
            beside->addLayout(
                rowOf({part.children.begin() + 1, part.children.end()}, density_.rowWidth).layout);
            grid->addWidget(view.label(), row, at, Qt::AlignRight | Qt::AlignVCenter);
            grid->addLayout(beside, row, at + 1);
        } else if (part.kind != Kind::Empty && part.kind != Kind::Stretch) {
            const Piece one = piece(part);
            if (one.layout != nullptr)
                grid->addLayout(one.layout, row, at, 1, 2);
            else
                grid->addWidget(one.widget, row, at, 1, 2,
                                fillsWidth(part) ? Qt::Alignment() : Qt::AlignLeft);
            wide |= one.wide;
            tall |= one.tall;
        }
        if (column > 0) grid->setColumnMinimumWidth(at - 1, pairGap);
        if (++column == std::max(columns, 1)) {
            column = 0;
            ++row;
        }
    }
    closeGrid(*grid, wide, tall);
    return {grid, nullptr, wide, tall};
}

// complexity: headings, fields, commands and blanks of one grid are told apart cell by cell
LayoutBuilder::Piece LayoutBuilder::tableOf(int columns, const std::vector<Layout>& cells) const {
    auto* grid = bare<QGridLayout>();
    grid->setVerticalSpacing(density_.gap - 2);
    columns = std::max(columns, 1);
    bool wide = false, tall = false;
    const bool headed =
        std::all_of(cells.begin(), cells.begin() + std::min<std::ptrdiff_t>(columns, cells.size()), isWords);
    for (int i = 0; i < static_cast<int>(cells.size()); ++i) {
        const Layout& cell = cells[i];
        if (cell.kind == Kind::Empty || cell.kind == Kind::Stretch) continue;
        const bool field = isControl(cell, Control::Kind::Text) && !isBox(cell);
        const Piece one = !field ? piece(cell) : Piece{nullptr, viewOf_(*cell.control).widget()};
        const int row = i / columns, column = i % columns;
        if (one.layout != nullptr) {
            grid->addLayout(one.layout, row, column);
        } else {
            const bool heading = headed && row == 0;
            const bool fills = fillsWidth(cell) || isCommand(cell);
            const auto below = static_cast<std::size_t>(i) + static_cast<std::size_t>(columns);
            const bool aboveChoices = below < cells.size() && isChoice(cells[below]);
            const Qt::Alignment align =
                heading ? (aboveChoices ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignBottom
                : fills ? Qt::Alignment()
                        : Qt::AlignLeft | Qt::AlignVCenter;
            int span = 1;  // a heading stands above the blank places behind it too
            while (heading && column + span < columns && isBlank(cells, i + span)) ++span;
            grid->addWidget(one.widget, row, column, 1, span, align);
        }
        if (one.wide) grid->setColumnStretch(column, 1);
        if (one.tall) grid->setRowStretch(row, 1);
        wide |= one.wide;
        tall |= one.tall;
    }
    if (const int width = commandWidth(cells); width > 0)
        for (int column = 0; column < columns; ++column) grid->setColumnMinimumWidth(column, width);
    closeGrid(*grid, wide, tall);
    return {grid, nullptr, wide, tall};
}

LayoutBuilder::Piece LayoutBuilder::frameOf(const Layout& part) const {
    auto* group = new QGroupBox(literal(part.text));
    group->setFont(density_.font);
    const Layout& child = part.children.front();
    const Piece inside = child.kind == Kind::Column ? columnOf(child.children) : columnOf({child});
    group->setLayout(inside.layout);
    group->layout()->setContentsMargins(8, 4, 8, 6);
    return {nullptr, group, inside.wide, inside.tall};
}

LayoutBuilder::Piece LayoutBuilder::scrollOf(const Layout& part) const {
    const Piece inside = columnOf(part.children);
    auto* area = new RoomyArea(isControl(part.children.front(), Control::Kind::Picture));
    area->setWidget(wrapped(inside));
    for (QWidget* child : area->widget()->findChildren<QWidget*>())
        if (auto* view = dynamic_cast<PictureView*>(child)) view->keepSize();
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // Sideways the area is as wide as what it holds; up and down it takes what there is.
    area->setSizePolicy(inside.wide ? QSizePolicy::Expanding : QSizePolicy::Preferred,
                        QSizePolicy::Expanding);
    return {nullptr, area, inside.wide, true};
}

LayoutBuilder::Piece LayoutBuilder::pagesOf(const Layout& part) const {
    auto* tabs = new QTabWidget;
    bool wide = false, tall = false;
    for (const Layout& page : part.children) {
        const bool titled = page.kind == Kind::Frame;
        const Piece inside = columnOf({titled ? page.children.front() : page});
        inside.layout->setContentsMargins(8, 5, 8, 5);
        tabs->addTab(wrapped(inside), titled ? literal(page.text) : QString());
        wide |= inside.wide;
        tall |= inside.tall;
    }
    return {nullptr, tabs, wide, tall};
}

Layout usualLayout(const std::vector<Control*>& controls) {
    std::vector<Layout> left, right;
    for (Control* control : controls)
        (control->kind() == Control::Kind::Picture ? right : left).push_back(Layout(*control));
    if (right.empty()) return scrolled(column(std::move(left)));
    return row({scrolled(column(std::move(left))), column(std::move(right))});
}

std::vector<Control*> notPlaced(const Layout& layout, const std::vector<Control*>& controls) {
    std::set<const Control*> placed;
    const std::function<void(const Layout&)> walk = [&](const Layout& part) {
        if (part.kind == Kind::Item) placed.insert(part.control);
        for (const Layout& child : part.children) walk(child);
    };
    walk(layout);
    std::vector<Control*> rest;
    for (Control* control : controls)
        if (!placed.contains(control)) rest.push_back(control);
    return rest;
}

}  // namespace tarvex
