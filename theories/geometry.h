#pragma once
// Rectangular and polar coordinates: as values, and of the shared rows.

#include "core/model_state.h"
#include "core/vec3.h"

namespace tarvex {

/// A direction with its distance.
struct Direction {
    double longitude = 0;  ///< or right ascension, or azimuth, degrees, 0..360
    double latitude = 0;   ///< or declination, or altitude, degrees
    double distance = 0;   ///< m
};

/// Longitude of a vector, degrees, 0..360: 90, or 270 for a negative y, where x is 0.
double longitudeOf(const Vec3& d);
/// Latitude, degrees, from z and the length in the plane, both in one unit.  Throws ArithmeticFailure where
/// that length is 0.
double latitudeOf(double z, double inPlane);
/// Direction and length of a vector.  Throws ArithmeticFailure for a vector along Z, and for one too long.
Direction directionOf(const Vec3& d);
/// The vector of a direction, in the unit of its distance.
Vec3 vectorOf(const Direction& d);

/// What one look from place to place leaves.  Each value stands once its step is done, so that a failure
/// leaves the later ones as they were.
struct Sight {
    Vec3 difference;      ///< m
    double inPlane = 0;   ///< its length in the plane, m
    double distance = 0;  ///< m
    double latitude = 0;  ///< degrees

    /// @param d          from the observing place to the seen one, m
    /// @param longitude  degrees, 0..360; it stands also after a look along Z
    /// Throws ArithmeticFailure as directionOf does.
    void look(const Vec3& d, double& longitude);
};

/// Row b as seen from row a: LonPl(b) in 0..360 and LatPl, degrees, Rcur, m; the differences stay in DXcur,
/// DYcur, DZcur and Rxycur.  With DX = 0 the longitude is 90, or 270 for a negative DY.
/// Throws ArithmeticFailure when both are on one line along Z (Rxycur = 0): the longitude is set by then.
void PairGeometry(ModelState& s, int a, int b);

/// X, Y, Z of a row, m, from longitude L and latitude B, degrees, and distance R, m.
void SpherToXYZ(ModelState& s, int row, double L, double B, double R);

/// Turns row Ipl about the line of nodes by angle a, rad, so that the longitude can be read in the orbit
/// plane: Y becomes the distance from the line of nodes in that plane, Z the height over it along Z.
/// @throws ArithmeticFailure at a right angle whose cosine is 0
void TiltYZ(ModelState& s, double a);

}  // namespace tarvex
