#include "desktop/plot_look.h"

#include <algorithm>
#include <array>

namespace tarvex {

namespace {

/// Pairs for a light and a dark ground.  Source: Okabe M., Ito K., Color Universal Design (2008), darkened
/// and lightened where the ground asks for it.
constexpr std::array<std::array<QRgb, 2>, 8> palette{{{0x0072b2, 0x56b4e9},
                                                      {0xd55e00, 0xff8a3d},
                                                      {0x009e73, 0x2fd1a3},
                                                      {0xb4508c, 0xe79bc6},
                                                      {0xc48600, 0xf0e442},
                                                      {0x303030, 0xe8e8e8},
                                                      {0x3f9fd8, 0x9a9aff},
                                                      {0x7a4a1e, 0xd0a878}}};
constexpr int darkGround = 30;  ///< lightness of what was white

}  // namespace

QColor PlotLook::colorOf(const Plot::Series& series, bool dark) const {
    if (const auto chosen = chosenColors.find(series.spec().quantity); chosen != chosenColors.end())
        return chosen->second;
    const int number = series.spec().color;
    if (distinct && number >= 0)
        return QColor(palette[static_cast<std::size_t>(number) % palette.size()][dark]);
    const Color drawn = series.color();
    return {drawn.r, drawn.g, drawn.b};
}

Sign PlotLook::signOf(const Plot::Series& series) const {
    if (const auto chosen = chosenSigns.find(series.spec().run); chosen != chosenSigns.end())
        return chosen->second;
    return static_cast<Sign>(std::max(series.spec().mark, 0) % signs);
}

bool PlotLook::covers(const Plot::Series& series) const {
    return distinct && (series.spec().color >= 0 || chosenColors.contains(series.spec().quantity));
}

QString nameOf(Sign sign) {
    constexpr std::array names{"круг", "квадрат", "треугольник", "ромб", "крест", "кольцо", "плюс", "клин"};
    return names[static_cast<std::size_t>(sign)];
}

QRgb turnedDark(QRgb color) {
    const int r = qRed(color), g = qGreen(color), b = qBlue(color);
    const int turn = 255 - std::max({r, g, b}) - std::min({r, g, b});
    const auto shade = [turn](int c) { return darkGround + (c + turn) * (255 - darkGround) / 255; };
    return qRgb(shade(r), shade(g), shade(b));
}

}  // namespace tarvex
