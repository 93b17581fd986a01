#pragma once
// Rectangular and polar coordinates of rows.

#include "core/model_state.h"

namespace tarvex {

/// Row b as seen from row a: LonPl(b) in 0..360 and LatPl, degrees, Rcur, m; the differences stay in DXcur,
/// DYcur, DZcur and Rxycur.  With DX = 0 the longitude is 90, or 270 for a negative DY.
/// Throws ArithmeticFailure when both are on one line along Z (Rxycur = 0): the longitude is set by then.
void PairGeometry(ModelState& s, int a, int b);

/// X, Y, Z of a row from longitude L and latitude B, degrees, and distance R.
void SpherToXYZ(ModelState& s, int row, double L, double B, double R);

/// Turns row Ipl about the line of nodes by angle a, rad, so that the longitude can be read in the orbit
/// plane. Throws ArithmeticFailure at a right angle whose cosine is 0.
void TiltYZ(ModelState& s, double a);

}  // namespace tarvex
