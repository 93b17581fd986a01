#pragma once
// Constants of the laboratory.  Pi and Vsv are rounded values on purpose: every result of the system is
// formed with them, so a library constant must never stand in their place.

#include <cstdint>

namespace tarvex {

inline constexpr double MK = 1000000;                      ///< scale of displays and files
inline constexpr double Pi = 3.14159265359;                ///< rounded, everywhere
inline constexpr double kUgol = 180 / Pi;                  ///< degrees in a radian
inline constexpr double Vsv = 299792500;                   ///< speed of light, m/s (rounded)
inline constexpr double sekD = 86400;                      ///< seconds in a day
inline constexpr double sekG = 31557600;                   ///< seconds in a year
inline constexpr double JD1900 = 2415020;                  ///< epoch of New0
inline constexpr double JD2000 = 2451545;                  ///< epoch of the J2000 theories
inline constexpr double AlfaEclip = 23.43929111 / kUgol;   ///< obliquity of the ecliptic J2000, rad
inline constexpr double LaeTheory = 149597870691;          ///< astronomical unit of the theories, m
inline constexpr double arcSecondsInRadian = 206264.8062;  ///< as the nutation and Moon series use it
inline constexpr double REarth = 6378140;                  ///< radius of the Earth in the parallax, m

inline constexpr int NPlanetMax = 10;          ///< highest body that loops over bodies visit
inline constexpr int bodies = NPlanetMax + 1;  ///< bodies 0..10
inline constexpr int rowCount = 40;            ///< rows of X..VZ: bodies 0..11 and work rows

/// Rows of the per-body arrays that have a meaning of their own.
enum Row : int {
    rowSun = 0,
    rowEarthMoon = 3,
    rowXena = 10,
    rowMoon = 11,
    rowWork = 12,
    rowEarth = 13,
    rowCentre = 14,
    rowOrigin = 15
};

}  // namespace tarvex
