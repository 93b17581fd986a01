#pragma once
// Experiments side by side: every vector holds one value of each of them.

#include <array>
#include <cstdint>

#include "numeric/motion.h"

namespace tarvex::kernel {

inline constexpr int pairCount = bodies * (bodies - 1) / 2;  ///< 55 pairs i < j, by i and then by j
inline constexpr int axes = 3 * bodies;                      ///< one value of a vector a body: X, Y, Z

/// What the action of one body on another keeps through a step.
template <class V>
struct ActionLanes {
    V minusForce;            ///< -PairWeights::force
    V dV1;                   ///< speed of the acting body along the line
    V vx, vy, vz;            ///< its velocity as its pull left: VX1zap
    V ax, ay, az;            ///< its acceleration then: AX1zap
    V alongLine, velocity2;  ///< A1zap, square of V1zap
};

/// What the speeds along a line are derived by: dV1old, AV1, AV1old, BV1.
template <class V>
struct RateLanes {
    V speed, rate, rateBefore, rateOfRate;
};

/// The line from where the acting body was.
template <class V>
struct LineLanes {
    V dx, dy, dz, r;
};

/// Of a pair i < j: [0] i acts on j, [1] j acts on i.
template <class Cells>
using BothWays = std::array<Cells, 2>;

/// What one update of the speeds hands over to the next.
template <class V>
struct SpeedMemory {
    std::array<BothWays<RateLanes<V>>, pairCount> rates;
    std::array<V, axes> A, jerk;  ///< AXold, JX
};

/// The values of all lanes, nothing but vectors.
template <class V>
struct LaneCells {
    // --- a step: state, its start and the slopes of the stages as in U and dU
    std::array<V, equations> U, U0;
    std::array<std::array<V, equations>, 4> slope;
    std::array<V, axes> mean, A;  ///< accelerations: mean of the stages; AX of the step before
    V h, hOld;                    ///< DtCur, DtOld
    // --- an experiment
    V perVgr, square, k1, k2;  ///< 1/Vgr, Vgr^2, kPgr1, kPgr2
    std::array<V, bodies> perMass;
    // --- the speeds along the lines
    std::array<BothWays<ActionLanes<V>>, pairCount> action;
    std::array<BothWays<LineLanes<V>>, pairCount> lines;  ///< by place in the list of the pairs that act
    std::array<SpeedMemory<V>, 2> memory;                 ///< [now], and the one that is written next
    // --- what a kernel saw
    V low, bad;  ///< smallest distance in the plane, squared; 0 while everything is a number
};

/// The experiments of one core.
template <class V>
struct LaneBlock {
    static constexpr int width = sizeof(V) / sizeof(double);
    LaneCells<V> cells{};
    std::size_t now = 0;                         ///< the memory that is valid
    bool linesReady = false;                     ///< the lines of the speeds are those of the first stage
    std::array<std::uint8_t, pairCount> acting;  ///< pairs with a force in some lane
    int actingCount = 0;
};

/// Bodies of the pairs.
struct PairTable {
    std::array<std::uint8_t, pairCount> first{}, second{};
    constexpr PairTable() {
        std::size_t q = 0;
        for (std::uint8_t i = 0; i < bodies; ++i)
            for (std::uint8_t j = i + 1; j < bodies; ++j, ++q) {
                first[q] = i;
                second[q] = j;
            }
    }
};
inline constexpr PairTable pairTable;

}  // namespace tarvex::kernel
