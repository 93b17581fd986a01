#pragma once
// Pairs in vector lanes: body i is fixed, four bodies j at a time stand in the lanes of a vector.  Directions
// are differences over distance, never angles.  Idle lanes get a harmless divisor (idle is 1 there), so that
// they raise no floating-point flag, and no weight.  Every function here is inlined into a kernel that is
// compiled once for each instruction set.

#include <cmath>
#include <limits>

#include "numeric/motion.h"

#define TARVEX_LANES [[gnu::always_inline]] inline
#define TARVEX_KERNEL [[gnu::target_clones("default", "avx2", "arch=x86-64-v4")]]
#define TARVEX_WIDE_KERNEL [[gnu::target("avx512f,avx512vl,avx512dq")]]

namespace tarvex::kernel {

/// The processor runs the kernels of eight lanes.
inline bool wideLanes() {
    static const bool has = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") &&
                            __builtin_cpu_supports("avx512dq");
    return has;
}

using Four [[gnu::vector_size(32)]] = double;
using FourInMemory [[gnu::vector_size(32), gnu::aligned(8), gnu::may_alias]] = double;
using Eight [[gnu::vector_size(64)]] =
    double;  ///< for kernels of their own on processors that have such registers
using EightInMemory [[gnu::vector_size(64), gnu::aligned(8), gnu::may_alias]] = double;
template <class V>
struct InMemory {
    using Type = FourInMemory;
};
template <>
struct InMemory<Eight> {
    using Type = EightInMemory;
};

/// Four (eight) cells of an array of lanes from j on.
template <class V = Four>
TARVEX_LANES V at(const BodyArray& cells, int j) {
    return *reinterpret_cast<const typename InMemory<V>::Type*>(cells.data() + j);
}
template <class V>
TARVEX_LANES void put(BodyArray& cells, int j, V v) {
    *reinterpret_cast<typename InMemory<V>::Type*>(cells.data() + j) = v;
}
TARVEX_LANES Four root(Four v) {
    return Four{std::sqrt(v[0]), std::sqrt(v[1]), std::sqrt(v[2]), std::sqrt(v[3])};
}
TARVEX_LANES Four absolute(Four v) { return v < 0 ? -v : v; }

struct IdleTable {
    alignas(32) PairArray idle{}, busy{};
    alignas(32) PairArray later{};  ///< 1 for the bodies j after i
    constexpr IdleTable() {
        for (int i = 0; i < bodies; ++i)
            for (int j = 0; j < lanes; ++j) {
                const bool is = i == j || j == bodies;
                idle[i][j] = is ? 1 : 0;
                busy[i][j] = is ? 0 : 1;
                later[i][j] = i < j && j < bodies ? 1 : 0;
            }
    }
};
inline constexpr IdleTable idleTable;

/// What a pass saw at its edges: a zero or an infinite distance, or a value that is not finite, makes it
/// fail.
struct Watch {
    Four low = {infinite, infinite, infinite, infinite}, high = {}, bad = {};
    TARVEX_LANES void nonZero(Four v) { low = v < low ? v : low; }
    TARVEX_LANES void notHuge(Four v) { high = v > high ? v : high; }
    /// v - v is 0 for a finite number only.
    TARVEX_LANES void number(Four v) { bad += v - v; }
    bool distancesFine() const {
        bool fine = true;
        for (int k = 0; k < 4; ++k) fine &= low[k] > 0 && high[k] <= std::numeric_limits<double>::max();
        return fine;
    }
    bool numbersFine() const { return bad[0] + bad[1] + bad[2] + bad[3] == 0; }

private:
    static constexpr double infinite = std::numeric_limits<double>::infinity();
};

/// What the lanes of a row share: the state of body i.
struct Actor {
    double x, y, z, vx, vy, vz, ax, ay, az;
    double sx, sy, sz;  ///< signs of the velocity, + for 0
    TARVEX_LANES Actor(const Motion& m, const BodyLanes& b, int i)
        : x(b.x[i]),
          y(b.y[i]),
          z(b.z[i]),
          vx(b.vx[i]),
          vy(b.vy[i]),
          vz(b.vz[i]),
          ax(m.AX[i]),
          ay(m.AY[i]),
          az(m.AZ[i]),
          sx(vx < 0 ? -1 : 1),
          sy(vy < 0 ? -1 : 1),
          sz(vz < 0 ? -1 : 1) {}
};

/// The line from i to j: differences, distance in the XY plane squared, distance.
struct Line {
    Four dx, dy, dz, flat, r;
};

TARVEX_LANES Line lineOf(Four dx, Four dy, Four dz, Four idle) {
    const Four flat = dx * dx + dy * dy + idle;
    return {dx, dy, dz, flat, root(flat + dz * dz)};
}

TARVEX_LANES Line presentLine(const BodyLanes& b, const Actor& a, int i, int j, Watch& watch) {
    const Line line = lineOf(at(b.x, j) - a.x, at(b.y, j) - a.y, at(b.z, j) - a.z, at(idleTable.idle[i], j));
    watch.nonZero(line.flat);
    return line;
}

/// The line to where body i was a delay ago, by its speed (form 1) and acceleration (form 2), with the delay
/// of the line given; the differences of `present` are those of now.
template <int form>
TARVEX_LANES Line delayedLine(double perVgr, const Line& present, const Line& last, const Actor& a, int i,
                              int j, Watch& watch) {
    const Four t = last.r * perVgr, half = t * t * 0.5;
    Four dx = present.dx + a.vx * t, dy = present.dy + a.vy * t, dz = present.dz + a.vz * t;
    if constexpr (form == codeOf(Retardation::ByAccelerations)) {
        dx -= a.ax * half;
        dy -= a.ay * half;
        dz -= a.az * half;
    }
    const Line line = lineOf(dx, dy, dz, at(idleTable.idle[i], j));
    watch.nonZero(line.flat);
    return line;
}

/// The three lines of row i to where body i was when its pull left: now (form 0), or retarded in two
/// iterations by count.  The three go abreast, so that their chains of roots overlap.
template <int form>
TARVEX_LANES void rowLines(double perVgr, const BodyLanes& b, const Actor& a, int i, Line (&lines)[3],
                           Watch& watch) {
    const Line first = presentLine(b, a, i, 0, watch), second = presentLine(b, a, i, 4, watch);
    const Line third = presentLine(b, a, i, 8, watch);
    Line one = first, two = second, three = third;
    for (int iteration = 1; form != 0 && iteration <= 2; ++iteration) {
        one = delayedLine<form>(perVgr, first, one, a, i, 0, watch);
        two = delayedLine<form>(perVgr, second, two, a, i, 4, watch);
        three = delayedLine<form>(perVgr, third, three, a, i, 8, watch);
    }
    watch.notHuge(one.r);
    watch.notHuge(two.r);
    watch.notHuge(three.r);
    lines[0] = one;
    lines[1] = two;
    lines[2] = three;
}

TARVEX_LANES void keepLine(const Motion& m, int i, int j, const Line& line) {
    put(m.DXp[i], j, line.dx);
    put(m.DYp[i], j, line.dy);
    put(m.DZp[i], j, line.dz);
    put(m.Rik[i], j, line.r);
}

/// Direction cosines of the line, 0 in idle lanes.  A line with DXp = 0 has its Y turned round, as
/// the arc tangents had it of which they were made once: records stay what they were.
struct Direction {
    Four x, y, z;
    TARVEX_LANES Direction(const Line& line, Four inverse, Four busy)
        : x(line.dx * (inverse * busy)),
          y((line.dx == 0 ? -line.dy : line.dy) * (inverse * busy)),
          z(line.dz * (inverse * busy)) {}
};

/// The parts of a vector along the line; of body i with the signs of its present velocity, whatever the
/// vector is.
struct Along {
    Four x, y, z;
    TARVEX_LANES Four sum() const { return z + x + y; }
};
TARVEX_LANES Along alongOfActor(const Direction& u, const Actor& a, Four vx, Four vy, Four vz) {
    return {u.x * a.sx * absolute(vx), u.y * a.sy * absolute(vy), u.z * a.sz * absolute(vz)};
}
TARVEX_LANES Along alongOfPassive(const Direction& u, const BodyLanes& b, int j) {
    return {u.x * at(b.vx, j), u.y * at(b.vy, j), u.z * at(b.vz, j)};
}

/// Copies U into X..VZ and into lanes.
void unpack(const Motion& m, ModelState& s, BodyLanes& b);
/// The present state in lanes.
void toLanes(const ModelState& s, BodyLanes& b);

/// Adds to the accelerations in dU what relativity has beyond Newton, between present places, with AX..AZ.
void addPostNewtonian(ModelState& s, Motion& m, Watch& watch);

/// Clears what a failed call left and throws, unless the watch has seen nothing wrong.
void checkWatch(Motion& m, const Watch& watch);

/// Forms the products of masses, ticks and gamma again if one of them has changed.
void formWeights(const ModelState& s, Motion& motion);
/// The pairs that a relativistic right-hand side did not keep.
void keepRelativisticPairs(const Motion& m);
inline void needWeights(const ModelState& s, Motion& motion) {
    if (!motion.weights.held) formWeights(s, motion);
}

}  // namespace tarvex::kernel
