#include "desktop/look.h"

#include <QApplication>
#include <QFontInfo>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

namespace tarvex {

namespace {

constexpr double readablePoints = 10;  ///< the least; the desktop may ask for larger letters
constexpr int shadeOfOutline =
    140;  ///< per cent: how much darker than the window the style draws its outlines
constexpr double cornerRadius = 2;
constexpr int titleGap = 3;  ///< of the style, between the title of a group and its frame

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// Between the window and its text.
QColor outlineOf(const QPalette& palette, double share) {
    const QColor window = palette.color(QPalette::Window), text = palette.color(QPalette::WindowText);
    const auto mixed = [&](int a, int b) { return qRound(a + share * (b - a)); };
    return {mixed(window.red(), text.red()), mixed(window.green(), text.green()),
            mixed(window.blue(), text.blue())};
}

/// The style draws outlines a shade darker than the window, which nobody sees on a dark desktop: there they
/// become lighter than it.
class ReadableStyle final : public QProxyStyle {
public:
    ReadableStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (!isDark(option->palette)) return QProxyStyle::drawPrimitive(element, option, painter, widget);
        switch (element) {
            case PE_IndicatorCheckBox:
            case PE_IndicatorRadioButton:
                return drawLit<QStyleOptionButton>(element, option, painter, widget, 0.6);
            case PE_FrameLineEdit:
            case PE_Frame:
                return drawLit<QStyleOptionFrame>(element, option, painter, widget, 0.35);
            case PE_FrameGroupBox:
                return drawGroup(*option, *painter);
            default:
                return QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

private:
    /// With a window colour from which the style gets the outline that is wanted.
    template <class Option>
    void drawLit(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                 const QWidget* widget, double share) const {
        const auto* given = qstyleoption_cast<const Option*>(option);
        if (given == nullptr) return QProxyStyle::drawPrimitive(element, option, painter, widget);
        Option lit(*given);
        lit.palette.setColor(QPalette::Window, outlineOf(option->palette, share).lighter(shadeOfOutline));
        QProxyStyle::drawPrimitive(element, &lit, painter, widget);
    }

    /// The frame stands below its title.
    void drawGroup(const QStyleOption& option, QPainter& painter) const {
        const int title = std::max(pixelMetric(PM_IndicatorHeight), option.fontMetrics.height()) + titleGap;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(outlineOf(option.palette, 0.25));
        painter.setBrush(outlineOf(option.palette, 0.03));
        painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, title + 0.5, -0.5, -0.5), cornerRadius,
                                cornerRadius);
        painter.restore();
    }
};

}  // namespace

void setLook(QApplication& application) {
    QApplication::setStyle(new ReadableStyle);
    QFont font = application.font();
    font.setPointSizeF(std::max(QFontInfo(font).pointSizeF(), readablePoints));
    QApplication::setFont(font);
}

}  // namespace tarvex
