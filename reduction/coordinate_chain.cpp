#include "reduction/coordinate_chain.h"

#include "core/rows.h"

namespace tarvex {

namespace {

void setMatrix(ModelState& s, const Mat3& M) {
    const auto put = [&s](int row, const Vec3& v) { s.Mprec[row] = {0, v.x, v.y, v.z}; };
    put(1, M.first), put(2, M.second), put(3, M.third);
}

Mat3 matrixOf(const ModelState& s) {
    const auto take = [&s](int row) { return Vec3{s.Mprec[row][1], s.Mprec[row][2], s.Mprec[row][3]}; };
    return {take(1), take(2), take(3)};
}

}  // namespace

void EquToEcl(ModelState& s, double T) {
    const sky::Obliquity o = sky::obliquity(T);
    s.LatPl = o.angle;
    setPlace(s, s.Ipl, sky::toEcliptic(placeOf(s, s.Ipl), o));
}

void EclToEqu(ModelState& s, double T) {
    const sky::Obliquity o = sky::obliquity(T);
    s.LatPl = o.angle;
    setPlace(s, s.Ipl, sky::toEquator(placeOf(s, s.Ipl), o));
}

void setPrecession(ModelState& s, const sky::Precession& p) {
    s.Prec = p.accumulated;
    setMatrix(s, p.matrix);
}

void PrecessMatrixEcl(ModelState& s, double T0, double T1) {
    setPrecession(s, sky::eclipticPrecession(T0, T1));
}

void PrecessMatrixEqu(ModelState& s, double T0, double T1) { setMatrix(s, sky::equatorPrecession(T0, T1)); }

void ApplyPrecessXYZ(ModelState& s) { setPlace(s, s.Ipl, matrixOf(s) * placeOf(s, s.Ipl)); }
void ApplyPrecessVXYZ(ModelState& s) { setVelocity(s, s.Ipl, matrixOf(s) * velocityOf(s, s.Ipl)); }

void Nutation(double T, double& X, double& Y, double& Z, int mode) {
    const Vec3 shift = sky::nutation(T, {X, Y, Z});
    const int sign = mode == 0 ? 1 : -1;
    X += sign * shift.x;
    Y += sign * shift.y;
    Z += sign * shift.z;
}

void HorizonToXYZ1(ModelState& s, int row) {
    setPlace(s, row, sky::horizonFromEquator(s.TAU, s.Bpl[row], sky::latitudeOf(s.ObsB)));
}

void HorizonToXYZ2(ModelState& s, int row) {
    setPlace(s, row, sky::equatorFromHorizon(s.Azim, s.Vys, sky::latitudeOf(s.ObsB)));
}

void MoonInequalities(ModelState& s, double T) {
    const sky::Moon moon = sky::moonAt(T);
    s.Lpl[rowMoon] = moon.longitude;
    s.Bpl[rowMoon] = moon.latitude;
    s.Rpl[rowEarthMoon][rowMoon] = moon.distance;
    setElements(s, rowMoon, moon.elements);
}

void MoonPerturbApply(ModelState& s) {
    const sky::MoonTerms terms = sky::moonTerms(elementsOf(s, rowMoon), elementsOf(s, rowEarthMoon), s.kLl);
    s.Lpl[rowMoon] += terms.longitude;
    s.Bpl[rowMoon] += terms.latitude;
}

}  // namespace tarvex
