#pragma once
// From the seven elements of the body in Ipl to its rectangular coordinates and velocities.

#include "core/model_state.h"

namespace tarvex {

/// x reduced to a fraction in 0..1; the argument is changed too.
double Frac1(double& x);
inline double Frac1(double&& x) { return Frac1(x); }

/// x - Fix(x): the fraction with the sign of x.
double Frac0(double x);

/// An angle reduced to one turn, 0..2*Pi, rad.
double inOneTurn(double angle);

/// Coordinates X, Y, Z of body Ipl, m, in the frame of its elements; leaves Mean, Anom, Rr, Uarg and Escr.
/// Kepler's equation by at most 99 simple iterations; where they do not meet, Escr keeps its last value:
/// meant. Throws ArithmeticFailure for an eccentricity of 1 or above and where a result is no number.
void ElementsToXYZ(ModelState& s);

/// Velocities VX, VY, VZ of body Ipl, m/s, from gamma and the masses; needs the values that ElementsToXYZ has
/// just left for the same body.  kodMoon puts the Earth in the centre, kodBary chooses the gravitating mass,
/// which is left in m(12); leaves Icentr, pKep, Vr, Vn too.
/// Throws ArithmeticFailure for a zero orbit or radius and for the root of a negative number.
void ElementsToVXYZ(ModelState& s);

}  // namespace tarvex
