// Right-hand side of the relativistic model: post-Newtonian accelerations of point masses.  Their terms
// beyond Newton's are there for the classical model too.

#include <cstring>

#include "numeric/lane_kernels.h"

namespace tarvex {
namespace kernel {

/// The present lines of all pairs; inverse is 1/r, 0 in idle lanes.
struct PresentLines {
    PairArray &dx, &dy, &dz, &r, &inverse;
};

/// Lines of every pair and the potential at every body.
TARVEX_LANES void potentials(const ModelState& s, const BodyLanes& b, const PresentLines& lines,
                             BodyArray& phi, Watch& watch) {
    for (int k = 0; k < bodies; ++k) {
        const double gm = s.gamma * s.m[k];  // unticked bodies count as potential: meant
        for (int i = 0; i < lanes; i += 4) {
            const Four dx = at(b.x, i) - b.x[k], dy = at(b.y, i) - b.y[k], dz = at(b.z, i) - b.z[k];
            const Four r = root(dx * dx + dy * dy + dz * dz + at(idleTable.idle[k], i));
            const Four per = at(idleTable.busy[k], i) / r;
            put(lines.dx[k], i, dx);
            put(lines.dy[k], i, dy);
            put(lines.dz[k], i, dz);
            put(lines.r[k], i, r);
            put(lines.inverse[k], i, per);
            put(phi, i, at(phi, i) + gm * per);
            watch.nonZero(r);
            watch.notHuge(r);
        }
    }
}

/// Sums of the accelerations of the bodies in the lanes.
struct Accelerations {
    alignas(32) BodyArray x{}, y{}, z{};
};

/// Accelerations of the bodies i in the lanes by body j, added to the sums: all of them, which are kept pair
/// by pair, or what is beyond Newton's.
template <bool all>
TARVEX_LANES void relativisticPairs(const ModelState& s, Motion& m, const BodyLanes& b,
                                    const PresentLines& lines, const BodyArray& phi, const BodyArray& v2,
                                    int j, Accelerations& sums) {
    const Actor a(m, b, j);
    const double gm = s.gamma * s.m[j], perC2 = 1 / m.Vsv2, phij = phi[j], twice = 2 * v2[j];
    const double c2 = all ? m.Vsv2 : 0;
    for (int i = 0; i < lanes; i += 4) {
        const Four dx = -at(lines.dx[j], i), dy = -at(lines.dy[j], i),
                   dz = -at(lines.dz[j], i);  // from i to j
        const Four vx = at(b.vx, i), vy = at(b.vy, i), vz = at(b.vz, i), per = at(lines.inverse[j], i);
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
        if constexpr (all) {
            put(m.FXik[j], i, fx);
            put(m.FYik[j], i, fy);
            put(m.FZik[j], i, fz);
        }
        put(sums.x, i, at(sums.x, i) + fx);
        put(sums.y, i, at(sums.y, i) + fy);
        put(sums.z, i, at(sums.z, i) + fz);
    }
}

template <bool all>
TARVEX_LANES void relativisticSums(const ModelState& s, Motion& m, const BodyLanes& b,
                                   const PresentLines& lines, Accelerations& sums, Watch& watch) {
    alignas(32) BodyArray phi{}, v2;
    potentials(s, b, lines, phi, watch);
    for (int i = 0; i < lanes; i += 4)
        put(v2, i, at(b.vx, i) * at(b.vx, i) + at(b.vy, i) * at(b.vy, i) + at(b.vz, i) * at(b.vz, i));
    for (int j = 0; j < bodies; ++j) relativisticPairs<all>(s, m, b, lines, phi, v2, j, sums);
    for (int i = 0; i < lanes; i += 4) {
        watch.number(at(sums.x, i));
        watch.number(at(sums.y, i));
        watch.number(at(sums.z, i));
    }
    std::memcpy(m.Phi.data(), phi.data(), sizeof m.Phi);
}

TARVEX_KERNEL void relativistic(const ModelState& s, Motion& m, const BodyLanes& b, Watch& watch) {
    alignas(32) PairArray inverse;
    Accelerations sums;
    relativisticSums<true>(s, m, b, {m.DXp, m.DYp, m.DZp, m.Rik, inverse}, sums, watch);
    std::memcpy(&m.dU[3 * bodies], sums.x.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[4 * bodies], sums.y.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[5 * bodies], sums.z.data(), sizeof(double) * bodies);
}

TARVEX_KERNEL void addPostNewtonian(const ModelState& s, Motion& m, const BodyLanes& b, Watch& watch) {
    alignas(32) PairArray dx, dy, dz, r, inverse;
    Accelerations sums;
    relativisticSums<false>(s, m, b, {dx, dy, dz, r, inverse}, sums, watch);
    for (int i = 0; i < bodies; ++i) {
        m.dU[3 * bodies + i] += sums.x[i];
        m.dU[4 * bodies + i] += sums.y[i];
        m.dU[5 * bodies + i] += sums.z[i];
    }
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
