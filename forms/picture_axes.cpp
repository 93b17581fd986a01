#include "forms/picture_axes.h"

#include <array>

namespace tarvex {

namespace {

constexpr double newYear2000 = 2451544.5;   ///< Julian date of 1.0 January 2000
constexpr double gregorianYear = 365.2425;  ///< days

}  // namespace

Axis yearAxis(double JD, double at, double daysPerUnit) {
    const double factor = daysPerUnit / gregorianYear;
    return {"время", "год", 2000 + (JD - newYear2000) / gregorianYear - factor * at, factor};
}

Axis scaledAxis(const char* name, const char* unit, double factor, double zero, const char* sign) {
    return {name, unit, -factor * zero, factor, sign};
}

void tellViews(Picture& picture, double metresPerUnit, double side, const LengthUnit& unit) {
    const double factor = metresPerUnit / unit.metres;
    const Axis X = scaledAxis("X", unit.name, factor);
    picture.axes(layerPlane, {X, scaledAxis("Y", unit.name, factor)});
    picture.axes(layerSide, {X, scaledAxis("Z", unit.name, factor, side)});
}

BodySeries bodySeries(Picture& picture, const char* name) {
    return {picture.series({.quantity = name, .layer = layerPlane}),
            picture.series({.quantity = name, .run = "сбоку", .layer = layerSide})};
}

const char* bodyName(int body) {
    constexpr std::array names = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс",  "Юпитер",
                                  "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена", "Луна"};
    return names.at(static_cast<std::size_t>(body));
}

}  // namespace tarvex
