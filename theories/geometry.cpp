#include "theories/geometry.h"

#include <cmath>

#include "core/arithmetic.h"

namespace tarvex {

void PairGeometry(ModelState& s, int a, int b) {
    s.DXcur = s.X[b] - s.X[a];
    s.DYcur = s.Y[b] - s.Y[a];
    s.DZcur = s.Z[b] - s.Z[a];
    const double Rxy2 = s.DXcur * s.DXcur + s.DYcur * s.DYcur;
    s.Rxycur = finite(std::sqrt(Rxy2));
    s.Rcur = finite(std::sqrt(s.Rxycur * s.Rxycur + s.DZcur * s.DZcur));

    s.LonPl[b] = s.DYcur < 0 ? 270 : 90;
    if (s.DXcur != 0) {
        s.LonPl[b] = std::atan(ratio(s.DYcur, s.DXcur)) * kUgol;
        if (s.DXcur < 0) {
            s.LonPl[b] += 180;
        } else if (s.DYcur < 0) {
            s.LonPl[b] += 360;
        }
    }
    s.LatPl = std::atan(ratio(s.DZcur, s.Rxycur)) * kUgol;
}

void SpherToXYZ(ModelState& s, int row, double L, double B, double R) {
    const double l = L / kUgol, b = B / kUgol;
    s.X[row] = std::cos(b) * R * std::cos(l);
    s.Y[row] = std::cos(b) * R * std::sin(l);
    s.Z[row] = std::sin(b) * R;
}

void TiltYZ(ModelState& s, double a) {
    const int i = s.Ipl;
    s.Z[i] = finite(s.Z[i] - std::tan(a) * s.Y[i]);
    s.Y[i] = ratio(s.Y[i], std::cos(a));
}

}  // namespace tarvex
