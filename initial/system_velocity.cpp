#include "initial/system_velocity.h"

#include <cmath>

#include "core/arithmetic.h"

namespace tarvex {

void resolveVelocity(ModelState& s, double V, double Alfa, double Betta, int sign) {
    const double a = Alfa / kUgol, b = Betta / kUgol;
    s.VZ[rowSun] = sign * V * std::sin(b);
    s.VX[rowSun] = sign * V * std::cos(b) * std::cos(a);
    s.VY[rowSun] = sign * V * std::cos(b) * std::sin(a);
}

void addSystemVelocity(ModelState& s) {
    for (int i = 0; i <= NPlanetMax; ++i) {
        s.X[i] = s.X0[i];
        s.Y[i] = s.Y0[i];
        s.Z[i] = s.Z0[i];
        s.VX[i] = finite(1000 * s.VXsys + s.VX0[i]);
        s.VY[i] = finite(1000 * s.VYsys + s.VY0[i]);
        s.VZ[i] = finite(1000 * s.VZsys + s.VZ0[i]);
    }
}

}  // namespace tarvex
