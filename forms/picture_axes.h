#pragma once
// What the pictures of the forms mean: axes of dates, of lengths, and the two views of the bodies.

#include "core/model_state.h"
#include "runtime/picture.h"

namespace tarvex {

/// The date as a year with its share, on the Gregorian calendar.
/// @param JD           at a user coordinate `at`
/// @param daysPerUnit  of the user coordinate; negative where time runs back
Axis yearAxis(double JD, double at, double daysPerUnit);

/// A quantity of which a user unit is `factor` and which is 0 at the coordinate `zero`.
Axis scaledAxis(const char* name, const char* unit, double factor, double zero = 0, const char* sign = "");

/// A unit of length and its metres.
struct LengthUnit {
    const char* name;
    double metres;
};
inline constexpr LengthUnit inMillionKm{"млн. км", 1e9}, inThousandKm{"тыс. км", 1e6};

/// Layers of the views of the bodies.
enum ViewLayer : int { layerPlane, layerSide, layersAfterViews };

/// The plane XY around y = 0 and the side view XZ around y = `side`.
/// @param metresPerUnit  of the user coordinates
void tellViews(Picture& picture, double metresPerUnit, double side, const LengthUnit& unit = inMillionKm);

/// The series of a body in both views.
struct BodySeries {
    int plane = Plot::none, side = Plot::none;
};
BodySeries bodySeries(Picture& picture, const char* name);

/// "Меркурий" of a row 0..11.
const char* bodyName(int body);

}  // namespace tarvex
