#pragma once
// The step of experiments side by side: retardation with accelerations (DX2), alone or with the law of
// Lienard and Wiechert once a step.  The formulas and the order of their operations are those of one
// experiment (equations_classical.cpp, line_speeds.cpp, integrator.cpp), so that every lane has its numbers
// to the last bit.  Two things are left out because they change none: pairs without a force, which would add
// zeros, and what the law does not read.

#include <algorithm>

#include "numeric/lane_arithmetic.h"
#include "numeric/lane_block.h"

namespace tarvex::kernel {

enum class LaneLaw : std::uint8_t { None, Lienard, LienardShort };

// ------------------------------------------------------------------ lines

/// Positions, velocities and accelerations, by body.
template <class V>
struct StateLanes {
    const V *x, *y, *z, *vx, *vy, *vz, *ax, *ay, *az;
    TARVEX_LANES explicit StateLanes(const LaneCells<V>& c)
        : x(c.U.data()),
          y(x + bodies),
          z(y + bodies),
          vx(z + bodies),
          vy(vx + bodies),
          vz(vy + bodies),
          ax(c.A.data()),
          ay(ax + bodies),
          az(ay + bodies) {}
};

template <class V>
struct DifferenceLanes {
    V x, y, z;
};

template <class V>
TARVEX_LANES DifferenceLanes<V> between(const StateLanes<V>& s, int i, int j) {
    return {s.x[j] - s.x[i], s.y[j] - s.y[i], s.z[j] - s.z[i]};
}

/// The same from where body i was, by its velocity and acceleration, for the distance given.
/// @tparam back  d is the difference of the way back
template <bool back, class V>
TARVEX_LANES DifferenceLanes<V> delayed(const StateLanes<V>& s, int i, const DifferenceLanes<V>& d, V r,
                                        V perVgr) {
    const V t = r * perVgr, half = t * t * 0.5;
    const V x = s.vx[i] * t, y = s.vy[i] * t, z = s.vz[i] * t;
    return {(back ? x - d.x : x + d.x) - s.ax[i] * half, (back ? y - d.y : y + d.y) - s.ay[i] * half,
            (back ? z - d.z : z + d.z) - s.az[i] * half};
}

/// Square of the distance, with a look at that in the plane.
template <class V>
TARVEX_LANES V distance2(const DifferenceLanes<V>& d, V& low) {
    const V flat = d.x * d.x + d.y * d.y;
    low = flat < low ? flat : low;
    return flat + d.z * d.z;
}

/// The retarded lines of some pairs, both ways, in two iterations by count.  Pass after pass, so that the
/// long chains of roots overlap with their like.
template <class Arithmetic, class V>
TARVEX_LANES void linesOf(const StateLanes<V>& s, const std::uint8_t* pairs, int count, V perVgr, V& seen,
                          BothWays<LineLanes<V>>* lines) {
    V low = seen;
    for (int n = 0; n < count; ++n) {
        const auto d = between<V>(s, pairTable.first[pairs[n]], pairTable.second[pairs[n]]);
        lines[n][0].r = lines[n][1].r = Arithmetic::template earlyRoot<V>(distance2<V>(d, low));
    }
    for (int n = 0; n < count; ++n) {
        const int i = pairTable.first[pairs[n]], j = pairTable.second[pairs[n]];
        const auto d = between<V>(s, i, j);
        const V r = lines[n][0].r;
        const auto there = delayed<false, V>(s, i, d, r, perVgr), back = delayed<true, V>(s, j, d, r, perVgr);
        lines[n][0].r = Arithmetic::template earlyRoot<V>(distance2<V>(there, low));
        lines[n][1].r = Arithmetic::template earlyRoot<V>(distance2<V>(back, low));
    }
    for (int n = 0; n < count; ++n) {
        const int i = pairTable.first[pairs[n]], j = pairTable.second[pairs[n]];
        const auto d = between<V>(s, i, j);
        const auto there = delayed<false, V>(s, i, d, lines[n][0].r, perVgr);
        const auto back = delayed<true, V>(s, j, d, lines[n][1].r, perVgr);
        lines[n][0] = {there.x, there.y, there.z, Arithmetic::template root<V>(distance2<V>(there, low))};
        lines[n][1] = {back.x, back.y, back.z, Arithmetic::template root<V>(distance2<V>(back, low))};
    }
    seen = low;
}

/// Pairs whose lines are formed together: they stay in the nearest cache.
inline constexpr int pairsAbreast = 5;

// ------------------------------------------------------------------ forces

/// What the lanes of a law share.
template <class V>
struct LawLanes {
    V perVgr, square, k1, k2;
};

template <class Arithmetic, LaneLaw law, class V>
TARVEX_LANES DifferenceLanes<V> pullOf(const LineLanes<V>& line, const ActionLanes<V>& act,
                                       const LawLanes<V>& of) {
    if constexpr (law == LaneLaw::None) {
        const V inverse = Arithmetic::template inverse<V>(line.r);
        const V q = act.minusForce * (inverse * inverse) * inverse;
        return {line.dx * q, line.dy * q, line.dz * q};
    } else {
        const V over = line.r * of.perVgr, rf = line.r - over * act.dV1;
        const V f = act.minusForce / (rf * rf * rf * of.square);
        const V x = line.dx - over * act.vx, y = line.dy - over * act.vy, z = line.dz - over * act.vz;
        if constexpr (law == LaneLaw::LienardShort) {
            const V q = of.square * f;
            return {q * x, q * y, q * z};
        } else {
            const V towards = of.square + of.k1 * line.r * act.alongLine - act.velocity2;
            const V drag = line.r * rf * of.k2;
            return {(towards * x - drag * act.ax) * f, (towards * y - drag * act.ay) * f,
                    (towards * z - drag * act.az) * f};
        }
    }
}

template <class V>
TARVEX_LANES void addTo(V* sums, int body, const DifferenceLanes<V>& pull) {
    sums[body] += pull.x;
    sums[body + bodies] += pull.y;
    sums[body + 2 * bodies] += pull.z;
}

/// The sums of the forces.  The pairs go by i and then by j, so every body gets its pulls in the order of the
/// acting bodies.
/// @tparam ready  the lines are those that the speeds were formed along
template <class Arithmetic, LaneLaw law, bool ready, class V>
TARVEX_LANES void laneForces(LaneBlock<V>& b, V* __restrict sums) {
    LaneCells<V>& c = b.cells;
    const StateLanes<V> state(c);
    const LawLanes<V> of{c.perVgr, c.square, c.k1, c.k2};
    V low = c.low;
    for (int k = 0; k < axes; ++k) sums[k] = V{};
    for (int begin = 0; begin < b.actingCount; begin += pairsAbreast) {
        const int count = std::min(pairsAbreast, b.actingCount - begin);
        const std::uint8_t* const pairs = b.acting.data() + begin;
        BothWays<LineLanes<V>> formed[pairsAbreast];
        const BothWays<LineLanes<V>>* lines = c.lines.data() + begin;
        if constexpr (!ready) {
            linesOf<Arithmetic, V>(state, pairs, count, of.perVgr, low, formed);
            lines = formed;
        }
        for (int n = 0; n < count; ++n) {
            const auto& act = c.action[static_cast<std::size_t>(pairs[n])];
            addTo<V>(sums, pairTable.second[pairs[n]], pullOf<Arithmetic, law, V>(lines[n][0], act[0], of));
            addTo<V>(sums, pairTable.first[pairs[n]], pullOf<Arithmetic, law, V>(lines[n][1], act[1], of));
        }
    }
    c.low = low;
}

// ------------------------------------------------------------------ the step

template <class V>
TARVEX_LANES void keepSlope(LaneCells<V>& c, std::size_t stage, const V* __restrict sums) {
    auto& slope = c.slope[stage];
    V bad = c.bad;
    for (int axis = 0; axis < axes; axis += bodies)
        for (int body = 0; body < bodies; ++body) {
            const int k = axis + body;
            const V a = sums[k] * c.perMass[body];
            bad += a - a;
            slope[k] = c.U[axes + k];
            slope[axes + k] = a;
        }
    c.bad = bad;
}

template <class Arithmetic, class V>
TARVEX_LANES V meanOf(V first, V second, V third, V fourth) {
    return Arithmetic::template sixth<V>(2 * second + first + 2 * third + fourth);
}

template <class Arithmetic, LaneLaw law, class V>
TARVEX_LANES void laneStepBy(LaneBlock<V>& b) {
    LaneCells<V>& c = b.cells;
    const V h = c.h;
    V sums[axes];
    c.U0 = c.U;
    for (std::size_t stage = 0; stage < 4; ++stage) {
        if (stage == 0 && b.linesReady)
            laneForces<Arithmetic, law, true, V>(b, sums);
        else
            laneForces<Arithmetic, law, false, V>(b, sums);
        keepSlope<V>(c, stage, sums);
        const double share = stage == 2 ? 1 : 0.5;
        for (int k = 0; stage < 3 && k < equations; ++k) c.U[k] = h * c.slope[stage][k] * share + c.U0[k];
    }
    const auto& [s1, s2, s3, s4] = c.slope;
    for (int k = 0; k < equations; ++k)
        c.U[k] = meanOf<Arithmetic, V>(h * s1[k], h * s2[k], h * s3[k], h * s4[k]) + c.U0[k];
    for (int k = 0; k < axes; ++k)
        c.mean[k] = meanOf<Arithmetic, V>(s1[axes + k], s2[axes + k], s3[axes + k], s4[axes + k]);
}

template <class Arithmetic, class V>
TARVEX_LANES void laneStep(LaneBlock<V>& b, LaneLaw law) {
    if (law == LaneLaw::None)
        laneStepBy<Arithmetic, LaneLaw::None, V>(b);
    else if (law == LaneLaw::Lienard)
        laneStepBy<Arithmetic, LaneLaw::Lienard, V>(b);
    else
        laneStepBy<Arithmetic, LaneLaw::LienardShort, V>(b);
}

// ------------------------------------------------------------------ speeds along the lines

template <class V>
struct BitsOf {
    using Type [[gnu::vector_size(sizeof(V))]] = long;
};

template <class V>
TARVEX_LANES V absoluteOf(V v) {
    using Bits = typename BitsOf<V>::Type;
    return (V)((Bits)v & (Bits{} + 0x7fffffffffffffffL));
}

template <class V>
TARVEX_LANES V signOf(V v) {
    const V one = V{} + 1;
    return v < 0 ? -one : one;
}

/// What all lines of an acting body share: signs of its velocity, its jerk and acceleration in half a step.
template <class V>
struct ByBody {
    V x[bodies], y[bodies], z[bodies];
};
template <class V>
struct SharedOfBodies {
    ByBody<V> sign, halfJerk, halfA;
    TARVEX_LANES SharedOfBodies(const StateLanes<V>& s, const V* jerk, V half) {
        for (int i = 0; i < bodies; ++i) {
            sign.x[i] = signOf<V>(s.vx[i]);
            sign.y[i] = signOf<V>(s.vy[i]);
            sign.z[i] = signOf<V>(s.vz[i]);
            halfJerk.x[i] = half * jerk[i];
            halfJerk.y[i] = half * jerk[i + bodies];
            halfJerk.z[i] = half * jerk[i + 2 * bodies];
            halfA.x[i] = half * s.ax[i];
            halfA.y[i] = half * s.ay[i];
            halfA.z[i] = half * s.az[i];
        }
    }
};

template <class V>
struct StepLanes {
    V h, perDt, perVgr;
    typename BitsOf<V>::Type same;  ///< the step is as long as that before
};

/// Speed of body i along its line, with its rates; its velocity and acceleration as its pull left.
template <class Arithmetic, class V>
TARVEX_LANES void speedsOf(const StateLanes<V>& s, const V* jerk, const SharedOfBodies<V>& of,
                           const StepLanes<V>& step, int i, const LineLanes<V>& line,
                           const RateLanes<V>& before, RateLanes<V>& after, ActionLanes<V>& act, V& bad) {
    const V inverse = 1 / line.r, t = line.r * step.perVgr;
    const V ux = line.dx * inverse * of.sign.x[i];
    const V uy = (line.dx == 0 ? -line.dy : line.dy) * inverse * of.sign.y[i];
    const V uz = line.dz * inverse * of.sign.z[i];
    const V wx = s.vx[i] - s.ax[i] * t, wy = s.vy[i] - s.ay[i] * t, wz = s.vz[i] - s.az[i] * t;
    const V speed = uz * absoluteOf<V>(wz) + ux * absoluteOf<V>(wx) + uy * absoluteOf<V>(wy);
    const V rate = step.same ? (speed - before.speed) * step.perDt : before.rate;
    const V rateOfRate = step.same ? (rate - before.rateBefore) * step.perDt : before.rateOfRate;
    after.speed = speed;
    after.rateBefore = rate;
    after.rateOfRate = rateOfRate;
    after.rate = step.h * rateOfRate + rate;
    act.dV1 = step.h * rate * 0.5 + speed;
    act.ax = of.halfJerk.x[i] + (s.ax[i] - jerk[i] * t);
    act.ay = of.halfJerk.y[i] + (s.ay[i] - jerk[i + bodies] * t);
    act.az = of.halfJerk.z[i] + (s.az[i] - jerk[i + 2 * bodies] * t);
    act.vx = wx + of.halfA.x[i];
    act.vy = wy + of.halfA.y[i];
    act.vz = wz + of.halfA.z[i];
    act.alongLine = uz * absoluteOf<V>(act.az) + ux * absoluteOf<V>(act.ax) + uy * absoluteOf<V>(act.ay);
    const V size = Arithmetic::template root<V>(act.vx * act.vx + act.vy * act.vy + act.vz * act.vz);
    act.velocity2 = size * size;
    const V all = act.dV1 + after.rate + rateOfRate + act.alongLine + act.velocity2;
    bad += all - all;
}

/// The speeds of the present state from the memory that is valid into the other one, with the lines.
template <class Arithmetic, class V>
TARVEX_LANES void laneSpeeds(LaneBlock<V>& b) {
    LaneCells<V>& c = b.cells;
    const SpeedMemory<V>& before = c.memory[b.now];
    SpeedMemory<V>& after = c.memory[1 - b.now];
    const StepLanes<V> step{c.h, 1 / c.h, c.perVgr, c.h == c.hOld};
    for (int k = 0; k < axes; ++k) {
        after.jerk[k] = step.same ? (c.A[k] - before.A[k]) / step.h : before.jerk[k];
        after.A[k] = c.A[k];
    }
    const StateLanes<V> state(c);
    const V* const jerk = after.jerk.data();
    const SharedOfBodies<V> shared(state, jerk, step.h / 2);
    V low = c.low, bad = c.bad;
    for (int begin = 0; begin < b.actingCount; begin += pairsAbreast) {
        const int count = std::min(pairsAbreast, b.actingCount - begin);
        const std::uint8_t* const pairs = b.acting.data() + begin;
        BothWays<LineLanes<V>>* const lines = c.lines.data() + begin;
        linesOf<Arithmetic, V>(state, pairs, count, step.perVgr, low, lines);
        for (int n = 0; n < count; ++n) {
            const auto q = static_cast<std::size_t>(pairs[n]);
            speedsOf<Arithmetic, V>(state, jerk, shared, step, pairTable.first[q], lines[n][0],
                                    before.rates[q][0], after.rates[q][0], c.action[q][0], bad);
            speedsOf<Arithmetic, V>(state, jerk, shared, step, pairTable.second[q], lines[n][1],
                                    before.rates[q][1], after.rates[q][1], c.action[q][1], bad);
        }
    }
    c.low = low;
    c.bad = bad;
}

}  // namespace tarvex::kernel
