#pragma once
// Where a theory puts a body, its periodic perturbations, and the observer.  All act on the shared rows; what
// is made of such places stands in reduction/apparent_place.h.

#include "core/model_state.h"

namespace tarvex {

// --- place, m, and velocity, m/s, of body Ipl by a theory at its own time; masses are the caller's.  They
// leave JD at that time, and throw ArithmeticFailure as ElementsToState does.
void PosByNew0(ModelState& s);      ///< at JDet, equinox of the date
void PosByJPL0(ModelState& s);      ///< at JDet, J2000 (the Moon of the date)
void PosBySer0(ModelState& s);      ///< at JDut0, J2000
void PosBySer0Plus(ModelState& s);  ///< at JDut0, J2000

/// Adds to Lpl(b), degrees, the periodic terms of body b by its two perturbing bodies, from the element rows
/// and the amplitudes kLp(1..2, b*10+1..b*10+8): PlanetPerturbColumns and PlanetPerturbFromColumns in turn.
/// @throws SubscriptFailure for a body without a table (only 1..4 have one) and a perturbing body that is
/// none
void PlanetPerturbApply(ModelState& s, int b);
/// Copies the amplitudes of body b into the work columns 1..8.
void PlanetPerturbColumns(ModelState& s, int b);
/// Adds the terms with the amplitudes that stand in columns 1..8.
void PlanetPerturbFromColumns(ModelState& s, int b);

/// Sidereal times for universal time JDut: GMST in hours, LMST in degrees, and the observer in row 12, m, on
/// the equator of the date: a sphere, without height.
void ObserverRow(ModelState& s, double JDut);

}  // namespace tarvex
