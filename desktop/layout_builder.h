#pragma once
// Turns a form's layout tree into Qt layouts.

#include <functional>

#include "desktop/control_view.h"
#include "runtime/layout.h"

class QGridLayout;
class QLayout;
class QWidget;

namespace tarvex {

class LayoutBuilder {
public:
    using ViewOf = std::function<ControlView&(Control&)>;
    LayoutBuilder(ViewOf viewOf, const Density& density) : viewOf_(std::move(viewOf)), density_(density) {}

    /// A widget that holds the whole tree.
    QWidget* build(const Layout& tree) const;
    /// What makes use of more room shares that of its row by its usual width; once all controls show their
    /// texts.
    static void shareRows(const QWidget& contents);

private:
    /// A layout or a widget; `wide` and `tall` tell whether it makes use of more room than it needs.
    struct Piece {
        QLayout* layout = nullptr;
        QWidget* widget = nullptr;
        bool wide = false, tall = false;
    };

    Piece piece(const Layout& part) const;
    Piece item(Control& control) const;
    /// @param limit  width beyond which a row of commands or ticks is folded, pixels
    Piece rowOf(const std::vector<Layout>& parts, int limit) const;
    Piece foldedRow(const std::vector<Layout>& parts, int limit) const;
    int commandWidth(const std::vector<Layout>& cells) const;
    QLayout* commandsOf(const std::vector<Layout>& run) const;
    QLayout* choicesOf(const std::vector<Layout>& run) const;
    Piece columnOf(const std::vector<Layout>& parts) const;
    Piece fieldsOf(int columns, const std::vector<Layout>& parts) const;
    Piece tableOf(int columns, const std::vector<Layout>& cells) const;
    Piece frameOf(const Layout& part) const;
    Piece scrollOf(const Layout& part) const;
    Piece pagesOf(const Layout& part) const;
    QWidget* wrapped(const Piece& inside) const;

    template <class Box>
    Box* bare() const;
    QLabel* caption(const std::string& text) const;

    ViewOf viewOf_;
    Density density_;
};

/// The layout of a form that brings none: pictures at the right, everything else in its order at the left.
Layout usualLayout(const std::vector<Control*>& controls);
/// Controls that the layout does not place, in their order.
std::vector<Control*> notPlaced(const Layout& layout, const std::vector<Control*>& controls);

}  // namespace tarvex
