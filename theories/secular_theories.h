#pragma once
// The secular theories: masses, and elements of the body in Ipl for the date in JD.
// Angles are stored in radians as they come out, not reduced to a turn.

#include "core/model_state.h"

namespace tarvex {

/// Mass sets: m(0), km(0..11), then m(1..10) = m(0)/km, the Earth alone m(13) and the Moon m(11), kg; they
/// never fail.
void InitMassesNew0(ModelState& s);
void InitMassesJPL0(ModelState& s);
void InitMassesSer0(ModelState& s);

/// Elements of body Ipl (1..9, 11 the Moon) for JD; they set Lae and the time argument TT for every Ipl, and
/// leave the elements alone for any other Ipl.  AlfaL, AlfaP0, AlfaU0, Betta0 in rad, R0sr in m, W0sr in
/// rad/s, Aae in au, TT in centuries from the theory's epoch.  They never fail. New0: mean equinox of date.
/// Source: the tables of Newcomb, Gaillot and Hill in their usual printed form.
void ElementsNew0(ModelState& s);
/// JPL0: J2000, linear in time (Standish's approximate elements); the Moon of the date.
void ElementsJPL0(ModelState& s);
/// Ser0: J2000, bodies 1..4 and the Moon by their own polynomials, 5..9 as JPL0.  Aae of bodies 1..4 stays.
void ElementsSer0(ModelState& s);
/// Ser0+: Ser0 with other terms for the Earth.
void ElementsSer0Plus(ModelState& s);

/// Carries the angles of the JPL0 Moon (row 11, elements of the date in JD) to the equinox J2000 and takes
/// the precession out of its mean motion.
/// Source: the general precession in longitude of Lieske et al. 1977, Astron. Astrophys. 58, 1.
void PrecessMoonToDate(ModelState& s);

}  // namespace tarvex
