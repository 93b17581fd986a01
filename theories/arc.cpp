#include "theories/arc.h"

namespace tarvex {

Vec3 NestedPolynomial::at(double x) const {
    Vec3 sum;
    for (std::size_t k = F.size(); k-- > 0;) sum = (k % 2 == 0 ? x : 1 - x) * (sum + F[k]);
    return start + sum;
}

Arc Arc::hermite(double h, const OrbitPoint& start, const Vec3& dr, const Vec3& dv, const Vec3& a0,
                 const Vec3& a1) {
    NestedPolynomial r{.start = start.r}, v{.start = start.v};
    const Vec3 v1 = start.v + dv;
    const double h2 = h * h / 2;
    r.F[0] = dr;
    r.F[1] = h * start.v - dr;
    r.F[2] = 2 * dr - h * (start.v + v1);
    r.F[3] = h2 * a0 + r.F[1] - r.F[2];
    r.F[4] = h2 * a1 + r.F[1] + 2 * r.F[2] - r.F[3];
    // its derivative is the quartic with both velocities and accelerations whose mean is dr/h
    v.F[0] = dv;
    v.F[1] = h * a0 - dv;
    v.F[2] = 2 * dv - h * (a0 + a1);
    v.F[3] = 30. / h * (dr - h * start.v) - 15 * v.F[0] - 5 * v.F[1] - 2.5 * v.F[2];
    return {r, v};
}

}  // namespace tarvex
