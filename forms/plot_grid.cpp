#include "forms/plot_grid.h"

#include <cmath>

namespace tarvex {

void drawGrid(Picture& picture, const GridStyle& g) {
    picture.setScale(g.left, g.top, g.right, g.bottom);
    picture.clear();
    const double low = std::fmin(g.top, g.bottom), high = std::fmax(g.top, g.bottom);
    for (double x = std::ceil(g.left); x <= g.right; ++x) picture.line(x, g.top, x, g.bottom, g.cell);
    for (double y = std::ceil(low); y <= high; ++y) picture.line(g.left, y, g.right, y, g.cell);
    for (const double x : g.axesX) picture.line(x, g.top, x, g.bottom, g.axis);
    for (const double y : g.axesY) picture.line(g.left, y, g.right, y, g.axis);
}

void drawBothViews(Picture& picture, double x, double y, double z, double radius, Color color,
                   const BodySeries& series) {
    picture.as(series.plane).disc(x, y, radius, color);
    picture.as(series.side).disc(x, z + sideView, radius, color);
}

Color bodyColor(const ModelState& s, int body, double strength) {
    const auto shade = [strength](std::int16_t c) { return static_cast<int>(c * strength); };
    return {shade(s.ColorR[body]), shade(s.ColorG[body]), shade(s.ColorB[body])};
}

}  // namespace tarvex
