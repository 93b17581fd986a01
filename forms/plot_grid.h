#pragma once
// The picture of the bodies: the plane of the ecliptic around y = 0, and a strip of side view around y = 11.

#include <vector>

#include "core/model_state.h"
#include "forms/picture_axes.h"
#include "runtime/picture.h"

namespace tarvex {

struct GridStyle {
    double left = -10, top = 12, right = 10, bottom = -10;  ///< user coordinates of the corners
    Color cell{120, 120, 120};                              ///< lines through the whole numbers
    Color axis{220, 220, 220};
    std::vector<double> axesX{0};      ///< vertical axes
    std::vector<double> axesY{0, 11};  ///< horizontal axes
};

/// Clears the picture, sets its scale and draws the grid and the axes.
void drawGrid(Picture& picture, const GridStyle& style);

/// Height of the middle of the side view.
inline constexpr double sideView = 11;

/// A filled circle at (x, y) and, in the side view, at (x, z), all in drawing units, which belong to the
/// series of a body.  Erase with black.
void drawBothViews(Picture& picture, double x, double y, double z, double radius, Color color,
                   const BodySeries& series = {});

/// Colour of a body as the model holds it, at full strength or a share of it.
Color bodyColor(const ModelState& s, int body, double strength = 1);

}  // namespace tarvex
