#include "numeric/orbit_watch.h"

#include "core/rows.h"
#include "theories/geometry.h"

namespace tarvex {

double longitudeInOrbit(ModelState& s, const OrbitWatch& w, double longitude, double latitude,
                        double distance) {
    double u = longitude - w.AlfaU;
    if (u <= 0) u += 360;
    SpherToXYZ(s, rowWork, u, kUgol * latitude, distance);
    setCurrent(s, rowWork);
    TiltYZ(s, w.Betta);
    PairGeometry(s, rowOrigin, rowWork);
    return w.AlfaU + s.LonPl[rowWork];
}

}  // namespace tarvex
