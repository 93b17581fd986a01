#include "desktop/number_edit.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStyleOptionFrame>
#include <algorithm>

namespace tarvex {

QString shownNumber(const QString& text, const std::function<bool(const QString&)>& fits) {
    if (fits(text)) return text;
    static const QRegularExpression parts("^([+-]?\\d+[.,])(\\d+)([EeDd][+-]?\\d+)?$");
    const auto number = parts.match(text);
    if (!number.hasMatch()) return text;
    const QString decimals = number.captured(2);
    for (qsizetype kept = decimals.size() - 1; kept > 0; --kept) {
        QString shorter = number.captured(1) + decimals.left(kept) + "…" + number.captured(3);
        if (fits(shorter)) return shorter;
    }
    return text;
}

NumberEdit::NumberEdit() { connect(this, &QLineEdit::textChanged, this, &NumberEdit::fit); }

void NumberEdit::setLayoutWidth(int width) {
    layoutWidth_ = width;
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    updateGeometry();
}

void NumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    fit();
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    fit();
}

void NumberEdit::moveEvent(QMoveEvent* event) {
    QLineEdit::moveEvent(event);
    placed();
}

void NumberEdit::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    placed();
}

void NumberEdit::placed() {
    if (fitting_) return;
    home_ = geometry();
    fit();
}

/// As wide as its text needs while the field is entered, within its surroundings; else where it belongs.
void NumberEdit::fit() {
    if (parentWidget() == nullptr || home_.isEmpty()) return;
    constexpr int cursor = 4;  ///< pixels
    QRect place = home_;
    const int frame = width() - textRoom().width();
    const int wanted = fontMetrics().horizontalAdvance(text()) + frame + cursor;
    if (hasFocus() && wanted > home_.width()) {
        place.setWidth(std::min(wanted, parentWidget()->width()));
        if (place.right() >= parentWidget()->width()) place.moveRight(parentWidget()->width() - 1);
        raise();
    }
    if (place == geometry()) return;
    fitting_ = true;
    setGeometry(place);
    fitting_ = false;
}

QRect NumberEdit::textRoom() const {
    constexpr int margin = 2;  ///< of the style, left and right of a text, pixels
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    return style()->subElementRect(QStyle::SE_LineEditContents, &panel, this).adjusted(margin, 0, -margin, 0);
}

void NumberEdit::paintEvent(QPaintEvent* event) {
    const QRect room = textRoom();
    const QString shown = shownNumber(
        text(), [&](const QString& one) { return fontMetrics().horizontalAdvance(one) <= room.width(); });
    if (hasFocus() || shown == text()) return QLineEdit::paintEvent(event);
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, alignment(), shown);
}

}  // namespace tarvex
