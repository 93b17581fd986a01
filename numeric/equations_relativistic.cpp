// Right-hand side of the relativistic model: post-Newtonian accelerations of point masses.  Their terms
// beyond Newton's are there for the classical model too.

#include <algorithm>
#include <cstring>
#include <utility>

#include "numeric/lane_kernels.h"

namespace tarvex {
namespace kernel {

/// What a row of pairs reads besides the inputs.
struct Fields {
    alignas(32) PairArray inverse;                         ///< 1/Rik, 0 in idle lanes
    alignas(32) BodyArray phi{}, v2, phi4, vx4, vy4, vz4;  ///< phi4: 4*phi and so on
};

struct Accelerations {
    alignas(32) BodyArray x{}, y{}, z{};
};

/// The distances of body k to the bodies after it, for both directions, and what they add to the potentials:
/// at those in the lanes by k, and at k itself by each of them, after the bodies before k.
template <int k>
TARVEX_LANES void distanceRow(const LatePairs& in, Fields& f, BodyArray& sums, Watch& watch) {
    const BodyLanes& b = in.bodies;
    for (int i = (k + 1) / 4 * 4; i < lanes; i += 4) {
        const Four dx = at(b.x, i) - b.x[k], dy = at(b.y, i) - b.y[k], dz = at(b.z, i) - b.z[k];
        const Four r = root(dx * dx + dy * dy + dz * dz + at(idleTable.idle[k], i));
        const Four per = at(idleTable.busy[k], i) / r;
        put(f.inverse[k], i, per);
        put(sums, i, at(sums, i) + in.gm[k] * (per * at(idleTable.later[k], i)));
        watch.nonZero(r);
        watch.notHuge(r);
    }
    f.inverse[k][k] = 0;
    double phi = sums[k];
    for (int i = k + 1; i < bodies; ++i) {
        const double per = f.inverse[k][i];
        f.inverse[i][k] = per;
        phi += in.gm[i] * per;
    }
    f.phi[k] = phi;
}

template <int... k>
TARVEX_LANES void distances(const LatePairs& in, Fields& f, Watch& watch, std::integer_sequence<int, k...>) {
    alignas(32) BodyArray phi{};
    (distanceRow<k>(in, f, phi, watch), ...);
}

/// What is asked of a pass: the whole accelerations, the same with every pair kept, what is beyond Newton's.
enum class Part { Whole, Kept, Beyond };

/// Accelerations of the bodies in one vector of lanes.
template <class V>
struct Added {
    V x{}, y{}, z{};
};

/// Accelerations of the bodies i in the lanes from `i` on by body j, added to the sums.  Pairs that are kept
/// get the sign of a zero difference from the other end, as DXp has it; sums never show it.
template <class V, Part part>
TARVEX_LANES void relativisticPairs(const Motion& m, const LatePairs& in, const Fields& f, int j, int i,
                                    Added<V>& sums) {
    const BodyLanes& b = in.bodies;
    const double ajx = in.ax[j], ajy = in.ay[j], ajz = in.az[j], vjx = b.vx[j], vjy = b.vy[j], vjz = b.vz[j];
    const double gm = in.gm[j], perC2 = 1 / in.c2, c2 = part == Part::Beyond ? 0 : in.c2;
    V dx = b.x[j] - at<V>(b.x, i), dy = b.y[j] - at<V>(b.y, i), dz = b.z[j] - at<V>(b.z, i);  // from i to j
    if constexpr (part == Part::Kept) dx = -(-dx + 0.0), dy = -(-dy + 0.0), dz = -(-dz + 0.0);
    const V vx = at<V>(b.vx, i), vy = at<V>(b.vy, i), vz = at<V>(b.vz, i), per = at<V>(f.inverse[j], i);
    const V B = gm * (per * per * per);
    const V C1 = at<V>(f.phi4, i) + f.phi[j];
    const V C2 = at<V>(f.v2, i) + 2 * f.v2[j];
    const V C3 = 4 * (vx * vjx + vy * vjy + vz * vjz);
    const V along = (dx * vjx + dy * vjy + dz * vjz) * per;
    const V C4 = 1.5 * (along * along);
    const V C5 = (dx * ajx + dy * ajy + dz * ajz) * 0.5;
    const V minusD = (at<V>(f.vx4, i) - 3 * vjx) * dx + (at<V>(f.vy4, i) - 3 * vjy) * dy +
                     (at<V>(f.vz4, i) - 3 * vjz) * dz;
    const V E = 3.5 * gm * per;
    const V radial = (c2 - C1 + C2 - C3 - C4 + C5) * B, minusBD = B * minusD,
            on = at<V>(m.weights.active[j], i) * perC2;
    const V fx = (radial * dx - minusBD * (vx - vjx) + E * ajx) * on;
    const V fy = (radial * dy - minusBD * (vy - vjy) + E * ajy) * on;
    const V fz = (radial * dz - minusBD * (vz - vjz) + E * ajz) * on;
    if constexpr (part == Part::Kept) {
        put(m.DXp[j], i, -dx);
        put(m.DYp[j], i, -dy);
        put(m.DZp[j], i, -dz);
        put(m.FXik[j], i, fx);
        put(m.FYik[j], i, fy);
        put(m.FZik[j], i, fz);
    }
    sums.x += fx;
    sums.y += fy;
    sums.z += fz;
}

/// Accelerations of the bodies in the lanes from `i` on by all bodies in their order.
template <class V, Part part>
TARVEX_LANES void relativisticLanes(const Motion& m, const LatePairs& in, const Fields& f, int i,
                                    Accelerations& sums) {
    Added<V> added;
    for (int j = 0; j < bodies; ++j) relativisticPairs<V, part>(m, in, f, j, i, added);
    put(sums.x, i, added.x);
    put(sums.y, i, added.y);
    put(sums.z, i, added.z);
}

template <Part part, bool wide>
TARVEX_LANES void relativisticPass(const Motion& m, const LatePairs& in, Fields& f, Accelerations& sums,
                                   Watch& seen) {
    const BodyLanes& b = in.bodies;
    Watch watch = seen;  // in registers
    distances(in, f, watch, std::make_integer_sequence<int, bodies>());
    for (int i = 0; i < lanes; i += 4) {
        put(f.phi4, i, 4 * at(f.phi, i));
        put(f.vx4, i, 4 * at(b.vx, i));
        put(f.vy4, i, 4 * at(b.vy, i));
        put(f.vz4, i, 4 * at(b.vz, i));
        put(f.v2, i, at(b.vx, i) * at(b.vx, i) + at(b.vy, i) * at(b.vy, i) + at(b.vz, i) * at(b.vz, i));
    }
    if constexpr (wide) {
        relativisticLanes<Eight, part>(m, in, f, 0, sums);
    } else {
        relativisticLanes<Four, part>(m, in, f, 0, sums);
        relativisticLanes<Four, part>(m, in, f, 4, sums);
    }
    relativisticLanes<Four, part>(m, in, f, 8, sums);
    for (int i = 0; i < lanes; i += 4) {
        watch.number(at(sums.x, i));
        watch.number(at(sums.y, i));
        watch.number(at(sums.z, i));
    }
    seen = watch;
}

TARVEX_KERNEL void relativistic(const Motion& m, const LatePairs& in, Fields& f, Accelerations& sums,
                                Watch& watch) {
    relativisticPass<Part::Whole, false>(m, in, f, sums, watch);
}
TARVEX_WIDE_KERNEL void relativisticWide(const Motion& m, const LatePairs& in, Fields& f, Accelerations& sums,
                                         Watch& watch) {
    relativisticPass<Part::Whole, true>(m, in, f, sums, watch);
}
TARVEX_KERNEL void beyondNewton(const Motion& m, const LatePairs& in, Fields& f, Accelerations& sums,
                                Watch& watch) {
    relativisticPass<Part::Beyond, false>(m, in, f, sums, watch);
}
TARVEX_WIDE_KERNEL void beyondNewtonWide(const Motion& m, const LatePairs& in, Fields& f, Accelerations& sums,
                                         Watch& watch) {
    relativisticPass<Part::Beyond, true>(m, in, f, sums, watch);
}

void keepRelativisticPairs(const Motion& m) {
    Fields f;
    Accelerations sums;
    Watch watch;
    relativisticPass<Part::Kept, false>(m, m.latePairs, f, sums, watch);
    const BodyLanes& b = m.latePairs.bodies;
    for (int k = 0; k < bodies; ++k)
        for (int i = 0; i < lanes; i += 4) {
            const Four dx = at(b.x, i) - b.x[k], dy = at(b.y, i) - b.y[k], dz = at(b.z, i) - b.z[k];
            put(m.Rik[k], i, root(dx * dx + dy * dy + dz * dz + at(idleTable.idle[k], i)));
        }
}

namespace {

void takeInputs(const ModelState& s, const Motion& m, LatePairs& in) {
    in.ax = m.AX;
    in.ay = m.AY;
    in.az = m.AZ;
    in.c2 = m.Vsv2;
    for (int k = 0; k < bodies; ++k)
        in.gm[k] = s.gamma * s.m[k];  // unticked bodies count as potential: their mass is there
}

void takePotentials(Motion& m, const Fields& f) { std::copy_n(f.phi.begin(), bodies, m.Phi.begin()); }

}  // namespace

void addPostNewtonian(ModelState& s, Motion& m, Watch& watch) {
    LatePairs in;
    unpack(m, s, in.bodies);
    takeInputs(s, m, in);
    Fields fields;
    Accelerations sums;
    (wideLanes() ? beyondNewtonWide : beyondNewton)(m, in, fields, sums, watch);
    takePotentials(m, fields);
    for (int i = 0; i < bodies; ++i) {
        m.dU[3 * bodies + i] += sums.x[i];
        m.dU[4 * bodies + i] += sums.y[i];
        m.dU[5 * bodies + i] += sums.z[i];
    }
}

}  // namespace kernel

void DiffurOTO(ModelState& s, Motion& motion) {
    LatePairs& in = motion.latePairs;
    if (in.waiting == LatePairs::Of::Plain) formPairs(motion);  // its Fik stays
    kernel::needWeights(s, motion);
    kernel::unpack(motion, s, in.bodies);
    kernel::takeInputs(s, motion, in);
    kernel::Fields fields;
    kernel::Accelerations sums;
    kernel::Watch watch;
    (kernel::wideLanes() ? kernel::relativisticWide : kernel::relativistic)(motion, in, fields, sums, watch);
    constexpr std::size_t size = sizeof(double) * bodies;
    kernel::takePotentials(motion, fields);
    std::memcpy(&motion.dU[3 * bodies], sums.x.data(), size);
    std::memcpy(&motion.dU[4 * bodies], sums.y.data(), size);
    std::memcpy(&motion.dU[5 * bodies], sums.z.data(), size);
    std::memcpy(motion.dU.data(), &motion.U[3 * bodies], 3 * size);
    motion.fullQuadrant = false;
    in.waiting = LatePairs::Of::Relativistic;
    kernel::checkWatch(motion, watch);
}

}  // namespace tarvex
