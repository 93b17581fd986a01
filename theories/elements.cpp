#include "theories/elements.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

/// Longitude reduced to a turn less the perihelion, with one turn added to a negative result and no more.
double meanAnomaly(const ModelState& s, int i) {
    const double M = inOneTurn(s.AlfaL[i]) - s.AlfaP0[i];
    return M < 0 ? M + 2 * Pi : M;
}

void solveKepler(ModelState& s, double e, double M) {
    constexpr double EpsKep = 1e-10;
    s.Ekep[0] = M;
    for (int k = 1; k <= 99; ++k) {
        s.Ekep[k] = e * std::sin(s.Ekep[k - 1]) + M;
        if (std::abs(s.Ekep[k - 1] - s.Ekep[k]) <= EpsKep) {
            s.Escr = s.Ekep[k];
            return;
        }
    }
}

/// Mass that pulls body i in its two-body motion.
double gravitatingMass(const ModelState& s, int i) {
    const double M = s.m[s.Icentr], both = M + s.m[i];
    if (s.kodBary == 1) return both;                           // relative orbit
    if (s.kodBary == 2) return ratio(M * M * M, both * both);  // orbit about the centre of mass of the pair
    return M;
}

}  // namespace

double Frac1(double& x) {
    x = x - Fix(x);
    if (x < 0) x = x + 1;
    return x;
}

double Frac0(double x) { return x - Fix(x); }

double inOneTurn(double angle) { return 2 * Pi * Frac1(angle / 2 / Pi); }

void ElementsToXYZ(ModelState& s) {
    const int i = s.Ipl;
    const double e = s.Eks0[i];
    s.Mean[i] = finite(meanAnomaly(s, i));
    solveKepler(s, e, s.Mean[i]);
    s.Anom[i] = 2 * std::atan(root(ratio(1 + e, 1 - e)) * std::tan(s.Escr / 2));
    s.Rr[i] = ratio((1 - e * e) * s.R0sr[i], 1 + e * std::cos(s.Anom[i]));
    s.Uarg[i] = finite(s.Anom[i] + s.AlfaP0[i] - s.AlfaU0[i]);

    const double sinU = std::sin(s.Uarg[i]), cosU = std::cos(s.Uarg[i]);
    const double sinO = std::sin(s.AlfaU0[i]), cosO = std::cos(s.AlfaU0[i]);
    const double sinB = std::sin(s.Betta0[i]), cosB = std::cos(s.Betta0[i]), r = s.Rr[i];
    s.X[i] = (cosU * cosO - sinU * sinO * cosB) * r;
    s.Y[i] = (cosU * sinO + sinU * cosO * cosB) * r;
    s.Z[i] = sinU * r * sinB;
}

void ElementsToVXYZ(ModelState& s) {
    const int i = s.Ipl;
    s.Icentr = s.kodMoon == 1 ? int{rowEarth} : int{rowSun};
    s.m[rowWork] = finite(gravitatingMass(s, i));

    const double e = s.Eks0[i];
    s.pKep = finite((1 - e * e) * s.R0sr[i]);
    const double speed = root(ratio(s.gamma * s.m[rowWork], s.pKep));
    s.Vr = finite(speed * e * std::sin(s.Anom[i]));
    s.Vn = finite(speed * (1 + e * std::cos(s.Anom[i])));

    const double sinU = std::sin(s.Uarg[i]), cosU = std::cos(s.Uarg[i]);
    const double sinO = std::sin(s.AlfaU0[i]), cosO = std::cos(s.AlfaU0[i]);
    const double sinB = std::sin(s.Betta0[i]), cosB = std::cos(s.Betta0[i]), r = s.Rr[i];
    s.VX[i] = ratio(s.Vr * s.X[i], r) + (-sinU * cosO - cosU * sinO * cosB) * s.Vn;
    s.VY[i] = ratio(s.Vr * s.Y[i], r) + (-sinU * sinO + cosU * cosO * cosB) * s.Vn;
    s.VZ[i] = ratio(s.Vr * s.Z[i], r) + s.Vn * cosU * sinB;
}

}  // namespace tarvex
