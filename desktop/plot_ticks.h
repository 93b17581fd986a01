#pragma once
// Round values along an axis, and values as short texts.

#include <string>
#include <vector>

#include "runtime/plot.h"

namespace tarvex {

struct Tick {
    double share;  ///< of the axis, 0..1 from its beginning
    std::string text;
};

struct Ticks {
    std::vector<Tick> ticks;
    std::string title;  ///< "время, год"; with the power of ten by which the texts are to be multiplied
};

/// @param axis  what the axis means
/// @param from  user coordinate of its beginning; `to` of its end
/// @param most  ticks at most, 2 or more
Ticks ticksOf(const Axis& axis, double from, double to, int most);

/// A value rounded so that a change of `resolution` is just seen in it: "1806,5".
std::string shortValue(double value, double resolution);

/// The same with its unit: "1806,5 год", "23,6\"".
std::string valueWithUnit(const Axis& axis, double value, double resolution);

/// "время, год"
std::string titleOf(const Axis& axis);

}  // namespace tarvex
