#include "theories/geometry.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/rows.h"

namespace tarvex {

namespace {

double lengthInPlane(const Vec3& d) { return finite(std::sqrt(d.x * d.x + d.y * d.y)); }
double lengthFrom(double inPlane, double z) { return finite(std::sqrt(inPlane * inPlane + z * z)); }

/// A quotient that is no number leaves the longitude of a vector with x = 0.
[[gnu::always_inline]] inline void findLongitude(const Vec3& d, double& longitude) {
    longitude = d.y < 0 ? 270 : 90;
    if (d.x == 0) return;
    longitude = std::atan(ratio(d.y, d.x)) * kUgol;
    if (d.x < 0) {
        longitude += 180;
    } else if (d.y < 0) {
        longitude += 360;
    }
}

}  // namespace

double longitudeOf(const Vec3& d) {
    double longitude = 0;
    findLongitude(d, longitude);
    return longitude;
}

double latitudeOf(double z, double inPlane) { return std::atan(ratio(z, inPlane)) * kUgol; }

Direction directionOf(const Vec3& d) {
    Direction direction;
    Sight sight;
    sight.look(d, direction.longitude);
    direction.latitude = sight.latitude;
    direction.distance = sight.distance;
    return direction;
}

Vec3 vectorOf(const Direction& d) {
    const double l = d.longitude / kUgol, b = d.latitude / kUgol;
    return {std::cos(b) * d.distance * std::cos(l), std::cos(b) * d.distance * std::sin(l),
            std::sin(b) * d.distance};
}

void Sight::look(const Vec3& d, double& longitude) {
    difference = d;
    inPlane = lengthInPlane(d);
    distance = lengthFrom(inPlane, d.z);
    findLongitude(d, longitude);
    latitude = latitudeOf(d.z, inPlane);
}

void PairGeometry(ModelState& s, int a, int b) {
    const Vec3 d = placeOf(s, b) - placeOf(s, a);
    s.DXcur = d.x, s.DYcur = d.y, s.DZcur = d.z;
    s.Rxycur = lengthInPlane(d);
    s.Rcur = lengthFrom(s.Rxycur, d.z);
    findLongitude(d, s.LonPl[b]);
    s.LatPl = latitudeOf(d.z, s.Rxycur);
}

void SpherToXYZ(ModelState& s, int row, double L, double B, double R) {
    setPlace(s, row, vectorOf({L, B, R}));
}

void TiltYZ(ModelState& s, double a) {
    const int i = s.Ipl;
    s.Z[i] = finite(s.Z[i] - std::tan(a) * s.Y[i]);
    s.Y[i] = ratio(s.Y[i], std::cos(a));
}

}  // namespace tarvex
