#include "reduction/eccentric.h"

#include <cmath>

namespace tarvex {

void EccentricAt(Eccentric& p) {
    using std::cos;
    using std::sin;
    const double M = p.M = p.T * p.W, e1 = p.e1, e2 = p.e2, R = p.R;

    p.AlfaL1 = M - (2 * e1 * sin(M) - 1.25 * e1 * e1 * sin(2 * M));
    p.R1 = (1 + 0.5 * e1 * e1 + e1 * cos(M) - 0.5 * e1 * e1 * cos(2 * M)) * R;
    p.ellipse = {p.R1 * cos(p.AlfaL1), p.R1 * sin(p.AlfaL1)};

    if (p.equant) {
        p.AlfaL2 = M - (e2 * sin(M) - 0.25 * e2 * e2 * sin(2 * M));
        p.R2 = (1 + 3 * e2 * e2 / 16 + 0.5 * e2 * cos(M) - 3 * e2 * e2 * cos(2 * M) / 16) * R;
        p.deferent = {(e2 + cos(M)) * R, sin(M) * R};
    } else {
        p.AlfaL2 = M - (e2 * sin(M) - 0.5 * e2 * e2 * sin(2 * M));
        p.R2 = (1 + 0.25 * e2 * e2 + e2 * cos(M) - 0.25 * e2 * e2 * cos(2 * M)) * R;
        p.deferent = {R * cos(M), R * sin(M)};
    }
    p.eccentric = {p.R2 * cos(p.AlfaL2), p.R2 * sin(p.AlfaL2)};

    p.dAlfa = p.AlfaL1 - p.AlfaL2;
    p.dR = p.R1 - p.R2;
}

}  // namespace tarvex
