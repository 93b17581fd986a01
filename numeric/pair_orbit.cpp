#include "numeric/pair_orbit.h"

namespace tarvex {

void unpackPair(ModelState& s, const PairState& U, int row) {
    setPlace(s, rowPairCentre, cells(U, 1));
    setPlace(s, row, cells(U, 4));
    setVelocity(s, rowPairCentre, cells(U, 7));
    setVelocity(s, row, cells(U, 10));
}

PairState packedPair(const ModelState& s, int row) {
    const Vec3 r0 = placeOf(s, rowPairCentre), r = placeOf(s, row), v0 = velocityOf(s, rowPairCentre),
               v = velocityOf(s, row);
    return {0, r0.x, r0.y, r0.z, r.x, r.y, r.z, v0.x, v0.y, v0.z, v.x, v.y, v.z};
}

void pairCentre(ModelState& s, const PairBodies& pair) {
    const double sum = pair.mCentre + pair.m;
    for (Rows* const axis : {&s.X, &s.Y, &s.Z}) {
        Rows& x = *axis;
        x[rowCentre] = ratio(x[rowPairCentre] * pair.mCentre + x[pair.row] * pair.m, sum);
    }
}

double observedShare(const PairOrbit& p, const PairBodies& pair) {
    return p.origin == rowCentre ? ratio(pair.mCentre, pair.mCentre + pair.m) : 1;
}

}  // namespace tarvex
