// Right-hand side of the relativistic model: post-Newtonian accelerations of point masses.

#include <cstring>

#include "numeric/lane_kernels.h"

namespace tarvex {
namespace kernel {

/// Distances of every pair and the potential at every body; inverse is 1/Rik, 0 in idle lanes.
TARVEX_LANES void potentials(const ModelState& s, Motion& m, const BodyLanes& b, PairArray& inverse,
                             BodyArray& phi, Watch& watch) {
    for (int k = 0; k < bodies; ++k) {
        const double gm = s.gamma * s.m[k];  // unticked bodies count as potential: meant
        for (int i = 0; i < lanes; i += 4) {
            const Four dx = at(b.x, i) - b.x[k], dy = at(b.y, i) - b.y[k], dz = at(b.z, i) - b.z[k];
            const Four r = root(dx * dx + dy * dy + dz * dz + at(idleTable.idle[k], i));
            const Four per = at(idleTable.busy[k], i) / r;
            put(m.DXp[k], i, dx);
            put(m.DYp[k], i, dy);
            put(m.DZp[k], i, dz);
            put(m.Rik[k], i, r);
            put(inverse[k], i, per);
            put(phi, i, at(phi, i) + gm * per);
            watch.nonZero(r);
            watch.notHuge(r);
        }
    }
}

/// Accelerations of the bodies i in the lanes by body j, added to the sums.
TARVEX_LANES void relativisticPairs(const ModelState& s, Motion& m, const BodyLanes& b,
                                    const PairArray& inverse, const BodyArray& phi, const BodyArray& v2,
                                    int j, BodyArray& sumX, BodyArray& sumY, BodyArray& sumZ) {
    const Actor a(m, b, j);
    const double gm = s.gamma * s.m[j], c2 = m.Vsv2, perC2 = 1 / c2, phij = phi[j], twice = 2 * v2[j];
    for (int i = 0; i < lanes; i += 4) {
        const Four dx = -at(m.DXp[j], i), dy = -at(m.DYp[j], i), dz = -at(m.DZp[j], i);  // from i to j
        const Four vx = at(b.vx, i), vy = at(b.vy, i), vz = at(b.vz, i), per = at(inverse[j], i);
        const Four B = gm * (per * per * per);
        const Four C1 = 4 * at(phi, i) + phij;
        const Four C2 = at(v2, i) + twice;
        const Four C3 = 4 * (vx * a.vx + vy * a.vy + vz * a.vz);
        const Four along = (dx * a.vx + dy * a.vy + dz * a.vz) * per;
        const Four C4 = 1.5 * (along * along);
        const Four C5 = (dx * a.ax + dy * a.ay + dz * a.az) * 0.5;
        const Four D = -((4 * vx - 3 * a.vx) * dx + (4 * vy - 3 * a.vy) * dy + (4 * vz - 3 * a.vz) * dz);
        const Four E = 3.5 * gm * per;
        const Four radial = (c2 - C1 + C2 - C3 - C4 + C5) * B, BD = B * D,
                   on = at(m.weights.active[j], i) * perC2;
        const Four fx = (radial * dx + BD * (vx - a.vx) + E * a.ax) * on;
        const Four fy = (radial * dy + BD * (vy - a.vy) + E * a.ay) * on;
        const Four fz = (radial * dz + BD * (vz - a.vz) + E * a.az) * on;
        put(m.FXik[j], i, fx);
        put(m.FYik[j], i, fy);
        put(m.FZik[j], i, fz);
        put(sumX, i, at(sumX, i) + fx);
        put(sumY, i, at(sumY, i) + fy);
        put(sumZ, i, at(sumZ, i) + fz);
    }
}

TARVEX_KERNEL void relativistic(const ModelState& s, Motion& m, const BodyLanes& b, Watch& watch) {
    alignas(32) PairArray inverse;
    alignas(32) BodyArray phi{}, v2, x{}, y{}, z{};
    potentials(s, m, b, inverse, phi, watch);
    for (int i = 0; i < lanes; i += 4)
        put(v2, i, at(b.vx, i) * at(b.vx, i) + at(b.vy, i) * at(b.vy, i) + at(b.vz, i) * at(b.vz, i));
    for (int j = 0; j < bodies; ++j) relativisticPairs(s, m, b, inverse, phi, v2, j, x, y, z);
    for (int i = 0; i < lanes; i += 4) {
        watch.number(at(x, i));
        watch.number(at(y, i));
        watch.number(at(z, i));
    }
    std::memcpy(m.Phi.data(), phi.data(), sizeof m.Phi);
    std::memcpy(&m.dU[3 * bodies], x.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[4 * bodies], y.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[5 * bodies], z.data(), sizeof(double) * bodies);
}

}  // namespace kernel

void DiffurOTO(ModelState& s, Motion& motion) {
    kernel::BodyLanes b;
    kernel::unpack(motion, s, b);
    kernel::formWeights(s, motion.weights);
    kernel::Watch watch;
    kernel::relativistic(s, motion, b, watch);
    std::memcpy(motion.dU.data(), &motion.U[3 * bodies], sizeof(double) * 3 * bodies);
    motion.fullQuadrant = false;
    kernel::checkWatch(motion, watch);
}

}  // namespace tarvex
