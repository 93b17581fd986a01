#pragma once
// What the rows mean while places are reduced.  Rows 0..11 are bodies, and row 3 is the Earth itself once the
// Moon has been taken off the common centre; those above serve one screen each, for the length of its work.

#include "core/constants.h"

namespace tarvex {

inline constexpr int rowTerra = rowEarthMoon;  ///< the Earth
inline constexpr int rowObserver = 12;         ///< the observer, on the equator of the date

// --- the reduction of observations: heliocentric places of the date, kept while the rows go through the
// steps
inline constexpr int rowKeptEarth = 23, rowKeptBody = 20;  ///< the body's is rowKeptBody + IplSel

// --- eclipses
inline constexpr int rowShadow = 13;  ///< centre of the Earth's shadow
inline constexpr int rowMoonOffset =
    14;  ///< from the common centre of the Earth and the Moon to the Earth, reversed
inline constexpr int rowTrueSun = 16;               ///< the Sun taken back from the horizon to the ecliptic
inline constexpr int rowSeenSun = 18;               ///< the Sun as it is seen, on the horizon
inline constexpr int rowLimb = 30, limbPoints = 8;  ///< points of a limb

// --- the bench of aberration: the form of its steps with the cosine of the latitude
inline constexpr int rowSourceByCosine = 12, rowReceiverByCosine = 11;
inline constexpr int rowEarthBefore = 13;  ///< the Earth, moved back by the light time

// --- the converter: the Moon, and the observer and the Earth of the date (10) or of J2000 (20)
inline constexpr int rowConverterMoon = 10;
inline constexpr int rowMoonDrawn = 14;                  ///< its direction at 2.5 units, for the picture
inline constexpr int rowsOfDate = 10, rowsOfJ2000 = 20;  ///< add one of the next line
inline constexpr int plusObserver = 2, plusEarth = 3,
                     plusObserverEcliptic = 6;  ///< on equator, ecliptic, ecliptic

}  // namespace tarvex
