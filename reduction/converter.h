#pragma once
// The coordinate converter: any body between planes, origins and equinoxes, through one base frame.
//
// The base frame is heliocentric, ecliptic, of the date; ConvBase holds the vectors there.  Rows of X, Y, Z
// after ConvPrepare, metres: 3 Earth, 10 Moon, 12/22 observer on the equator of date/J2000, 13/23 Earth
// and 16/26 observer on the ecliptic of date/J2000, 14 the Moon's direction at 2.5 units, for drawing, 15
// zero.  So `base` 10 or 20 (by equinox) + 2 is the observer on the equator, + 3 the Earth, + 6 the observer
// on the ecliptic.

#include <array>

#include "core/model_state.h"
#include "reduction/sky_rows.h"

namespace tarvex {

/// Vectors of bodies 0..11 in the base frame, m: the converter's own, no initial data of a run.
struct ConvBase {
    std::array<std::array<double, 3>, 12> row{};
};

struct ConvFrame {
    enum class Plane { Ecliptic, Equator, Horizon };
    enum class Origin { Sun, Earth, Observer };
    Plane plane = Plane::Ecliptic;
    Origin origin = Origin::Sun;
    bool j2000 = false;  ///< equinox of J2000, else of the date

    int base() const { return j2000 ? rowsOfJ2000 : rowsOfDate; }
    /// Row from which polar coordinates of this frame count.
    int originRow() const {
        return origin == Origin::Sun ? int{rowSun} : origin == Origin::Earth ? rowTerra : int{rowOrigin};
    }
};

/// Rows of the Sun, the Earth, the Moon and the observer for universal time s.JDut0 and s.JDet, place s.ObsB,
/// s.ObsL; s.GMST in hours, s.LMST in degrees.  By the theory JPL0; the elements and masses of the state
/// stay.
void ConvPrepare(ModelState& s, ConvBase& base);

/// Base-frame vector of body 1..9 by the theory JPL0; Sun, Earth and Moon stand already.
void ConvBodyByTheory(ModelState& s, ConvBase& base, int body);

/// From the base frame into `frame`: rows 0, 3 and `body` of X, Y, Z.  In the horizon frame s.TAU is the hour
/// angle, not reduced.  The parallax has the factor of the latitude on X and Y, not on Z.
void ConvFromBase(ModelState& s, const ConvBase& base, int body, const ConvFrame& frame);

/// From `frame` into the base frame: row `body` of X, Y, Z holds the given vector, s.LonPl, s.LatPl and
/// s.Rcur its polar form; the result goes into base.
void ConvToBase(ModelState& s, ConvBase& base, int body, const ConvFrame& frame);

}  // namespace tarvex
