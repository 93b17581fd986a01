#include "desktop/number_edit.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStyleOptionFrame>

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
