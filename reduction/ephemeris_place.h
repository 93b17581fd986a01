#pragma once
// A body by the ephemeris, in the frames in which places are published.

#include "core/model_state.h"
#include "theories/ephemeris.h"

namespace tarvex {

struct EphemerisFrame {
    bool heliocentric = false;  ///< otherwise from the centre of mass of the Solar System
    bool ecliptic = false;      ///< otherwise the equator
    bool ofDate = false;        ///< equinox of the date, otherwise J2000
    bool metres = false;        ///< m and m/s, otherwise astronomical units and units a day
};

/// Place and velocity of a body at s.JD into its row X ... VZ; the Sun's row and the turns of precession are
/// left, too, and IplSel.
/// @param body  0 Sun, 1..9 planets, 10 Moon, as DEEvaluate() counts them
/// @return      row whose velocity stands in VX where metres are asked for: Ipl, which is another body's
///              unless the equinox of the date has set it
/// Throws FileFailure and Refusal as DEOpen() and DEEvaluate() do, ArithmeticFailure beyond numbers; the file
/// is closed in any case.
int ephemerisPlace(ModelState& s, Ephemeris& e, std::int32_t body, const EphemerisFrame& frame);

}  // namespace tarvex
