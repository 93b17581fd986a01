// Right-hand side of the relativistic model: post-Newtonian accelerations of point masses.

#include <cstring>

#include "numeric/lane_kernels.h"

namespace tarvex {
namespace kernel {

/// Distances of every pair and the potential at every body; inverse is 1/Rik, 0 in idle lanes.
TARVEX_ROW void potentials(const ModelState& s, Motion& m, const BodyLanes& b, PairArray& inverse,
                           BodyArray& phi, Extremes& seen) {
    for (int k = 0; k < bodies; ++k) {
        presentRow(m, b, k);
        const double* __restrict dx = m.DXp[k].data();
        const double* __restrict dy = m.DYp[k].data();
        const double* __restrict dz = m.DZp[k].data();
        const double* __restrict idle = idleTable.idle[k].data();
        const double* __restrict busy = idleTable.busy[k].data();
        double* __restrict rxy = m.Rxy[k].data();
        double* __restrict rik = m.Rik[k].data();
        double* __restrict inv = inverse[k].data();
        const double gm = s.gamma * s.m[k];  // unticked bodies count as potential: meant
        for (int i = 0; i < lanes; ++i) {
            const double flat = dx[i] * dx[i] + dy[i] * dy[i];
            const double square = flat + dz[i] * dz[i] + idle[i];
            const double r = std::sqrt(square);
            rxy[i] = std::sqrt(flat);
            rik[i] = r;
            inv[i] = busy[i] / r;
            phi[i] += gm * inv[i];
            seen.low[i] = r < seen.low[i] ? r : seen.low[i];
            seen.high[i] = r > seen.high[i] ? r : seen.high[i];
        }
    }
}

/// Accelerations of the bodies in the lanes by body j, added to sums.
TARVEX_ROW void relativisticRow(const ModelState& s, Motion& m, const BodyLanes& b, const PairArray& inverse,
                                const BodyArray& phi, const BodyArray& v2, int j, BodyArray& sx,
                                BodyArray& sy, BodyArray& sz) {
    const double* __restrict dxp = m.DXp[j].data();
    const double* __restrict dyp = m.DYp[j].data();
    const double* __restrict dzp = m.DZp[j].data();
    const double* __restrict inv = inverse[j].data();
    const double* __restrict active = m.weights.active[j].data();
    double* __restrict fx = m.FXik[j].data();
    double* __restrict fy = m.FYik[j].data();
    double* __restrict fz = m.FZik[j].data();
    const double vxj = b.vx[j], vyj = b.vy[j], vzj = b.vz[j], axj = m.AX[j], ayj = m.AY[j], azj = m.AZ[j];
    const double gm = s.gamma * s.m[j], c2 = m.Vsv2, perC2 = 1 / c2, phij = phi[j], v2j = 2 * v2[j];
    for (int i = 0; i < lanes; ++i) {
        const double dx = -dxp[i], dy = -dyp[i], dz = -dzp[i];  // from i to j
        const double vx = b.vx[i], vy = b.vy[i], vz = b.vz[i];
        const double B = gm * (inv[i] * inv[i] * inv[i]);
        const double C1 = 4 * phi[i] + phij;
        const double C2 = v2[i] + v2j;
        const double C3 = 4 * (vx * vxj + vy * vyj + vz * vzj);
        const double along = (dx * vxj + dy * vyj + dz * vzj) * inv[i];
        const double C4 = 1.5 * (along * along);
        const double C5 = (dx * axj + dy * ayj + dz * azj) / 2;
        const double D = -((4 * vx - 3 * vxj) * dx + (4 * vy - 3 * vyj) * dy + (4 * vz - 3 * vzj) * dz);
        const double E = 3.5 * gm * inv[i];
        const double radial = (c2 - C1 + C2 - C3 - C4 + C5) * B, BD = B * D, on = active[i] * perC2;
        fx[i] = (radial * dx + BD * (vx - vxj) + E * axj) * on;
        fy[i] = (radial * dy + BD * (vy - vyj) + E * ayj) * on;
        fz[i] = (radial * dz + BD * (vz - vzj) + E * azj) * on;
        sx[i] += fx[i];
        sy[i] += fy[i];
        sz[i] += fz[i];
    }
}

/// @return  0, or not a number if any acceleration is not finite
TARVEX_KERNEL double relativistic(const ModelState& s, Motion& m, const BodyLanes& b, Extremes& seen) {
    alignas(32) PairArray inverse;
    alignas(32) BodyArray phi{}, v2, x{}, y{}, z{};
    potentials(s, m, b, inverse, phi, seen);
    for (int i = 0; i < lanes; ++i) v2[i] = b.vx[i] * b.vx[i] + b.vy[i] * b.vy[i] + b.vz[i] * b.vz[i];
    for (int j = 0; j < bodies; ++j) relativisticRow(s, m, b, inverse, phi, v2, j, x, y, z);
    double sum = 0;
    for (int i = 0; i < bodies; ++i) {
        watch(sum, x[i]);
        watch(sum, y[i]);
        watch(sum, z[i]);
        m.Phi[i] = phi[i];
    }
    std::memcpy(&m.dU[3 * bodies], x.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[4 * bodies], y.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[5 * bodies], z.data(), sizeof(double) * bodies);
    return sum;
}

}  // namespace kernel

void DiffurOTO(ModelState& s, Motion& motion) {
    kernel::BodyLanes b;
    kernel::unpack(motion, s, b);
    kernel::formWeights(s, motion.weights);
    kernel::Extremes seen;
    const double watched = kernel::relativistic(s, motion, b, seen);
    std::memcpy(motion.dU.data(), &motion.U[3 * bodies], sizeof(double) * 3 * bodies);
    motion.fullQuadrant = false;
    if (!seen.fine()) kernel::fail(motion, "two bodies at one place");
    if (watched != 0) kernel::fail(motion, "an acceleration is not a number");
}

}  // namespace tarvex
