#pragma once
// Longitudes measured step by step, degrees: windows around a direction, and means across the seam of 0 and
// 360.

#include <cmath>

namespace tarvex {

/// True when a longitude lies in a window; a window whose upper bound is at or below the lower one wraps
/// through 0.
inline bool inWindow(double longitude, double upper, double lower) {
    return upper <= lower ? longitude <= upper || longitude >= lower
                          : longitude <= upper && longitude >= lower;
}

/// Mean of two longitudes one step apart.
/// @param seam  two longitudes further apart than this lie on both sides of 0: their mean is taken back by
/// 180
inline double meanLongitude(double before, double now, double seam) {
    const double mean = (before + now) / 2;
    return std::abs(now - before) > seam ? mean - 180 : mean;
}

/// One turn less above 360, one more below 0.
inline double below360(double v) { return v > 360 ? v - 360 : v; }
inline double notNegative(double v) { return v < 0 ? v + 360 : v; }

}  // namespace tarvex
