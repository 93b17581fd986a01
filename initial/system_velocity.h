#pragma once
// The uniform velocity of the whole Solar System.

#include "core/model_state.h"

namespace tarvex {

/// Resolves a speed V with longitude Alfa and latitude Betta (degrees, from the XY plane) into row 0 of VX,
/// VY, VZ, in the unit of V.
/// @param sign  1, or -1 for the opposite direction
void resolveVelocity(ModelState& s, double V, double Alfa, double Betta, int sign);

/// Shows the initial state of bodies 0..10 with the system velocity: X..Z from X0..Z0, VX..VZ from VX0..VZ0
/// plus VXsys..VZsys (km/s).  The initial state itself stays without it.
/// @throws ArithmeticFailure for a speed beyond numbers; the bodies before it have got theirs
void addSystemVelocity(ModelState& s);

}  // namespace tarvex
