#pragma once
// The orbit of one body about another, integrated by themselves and measured on the way: what the bench of
// two bodies and the check of an orbit have in common.

#include <array>

#include "core/arithmetic.h"
#include "core/rows.h"
#include "numeric/orbit_watch.h"
#include "numeric/runge_kutta.h"
#include "theories/geometry.h"
#include "theories/passages.h"

namespace tarvex {

/// Two bodies: cells 1..3 X, Y, Z of the centre, 4..6 of the other body, 7..9 velocities of the
/// centre, 10..12 of the other body; m, m/s.
using PairState = std::array<double, 13>;
inline constexpr int pairCells = 13;

/// The three cells of a body from a cell on: 1 or 4, their velocities 7 or 10.
inline Vec3 cells(const PairState& U, std::size_t first) { return {U[first], U[first + 1], U[first + 2]}; }

struct PairOrbit : OrbitWatch {
    PairState U{}, dU{};       ///< dU: as the right-hand side has been asked for it from outside
    PairState U0{};            ///< U at the beginning of the last step
    double Tsec = 0;           ///< time since the start, s
    double Dt = 0, DtCur = 0;  ///< base and current step, s
    int kDt = 1;               ///< divisor of the step in the windows
    int NC0 = 1;               ///< steps in a batch
    bool exact = false;        ///< base steps, with apses and nodes found inside them
    int origin = 0;  ///< row from which angles are seen: rowPairCentre, or rowCentre for the centre of mass
    double Rmin = 0, Rmax = 0;  ///< smallest and largest distance since the last perihelion, m
    double Vmin = 0, Vmax = 0;  ///< smallest and largest speed of the body since then, m/s
};

/// Row in which the centre of a pair stands, whatever body it is: the Sun, the Earth, a star.
inline constexpr int rowPairCentre = rowSun;

/// Who the two are.  The centre stands in rowPairCentre.
struct PairBodies {
    int row = 0;                ///< in which the body stands that moves about the centre
    double m = 0, mCentre = 0;  ///< masses, kg
};

/// Both orbits are seen with one perihelion a turn; the longitude goes on by less than five degrees a step.
inline constexpr WatchRules pairRules{.seam = 5};

/// What both bodies get, m/s^2.
struct PairAccelerations {
    double centreX = 0, centreY = 0, centreZ = 0, x = 0, y = 0, z = 0;
    Vec3 relative() const { return {x - centreX, y - centreY, z - centreZ}; }
};

/// Velocities and accelerations as derivatives of the state.
[[gnu::always_inline]] inline void toDerivatives(const PairState& U, const PairAccelerations& a,
                                                 PairState& dU) {
    for (int k = 1; k <= 6; ++k) dU[k] = U[k + 6];
    dU[7] = a.centreX, dU[8] = a.centreY, dU[9] = a.centreZ;
    dU[10] = a.x, dU[11] = a.y, dU[12] = a.z;
}

/// Rows of both bodies, from U.
void unpackPair(ModelState& s, const PairState& U, int row);
/// U from the rows of both bodies.
PairState packedPair(const ModelState& s, int row);
/// Row 14 of the state: centre of mass of the two bodies.
/// @throws ArithmeticFailure for bodies without mass
void pairCentre(ModelState& s, const PairBodies& pair);

/// The step DtCur; U0 keeps the state before it.
/// @param accelerate  accelerate(U) gives PairAccelerations
template <class Accelerate>
[[gnu::always_inline]] inline void stepPair(PairOrbit& p, Accelerate accelerate) {
    constexpr double sixth = 1.0 / 6;
    const double h = p.DtCur;
    // the stages follow from one another, so they are kept from memory: a state that is stored and read back
    // is what a step would wait for
    const PairState U0 = p.U;
    PairState U = U0, dU, K1, K2, K3, K4;
    rungeKutta4(
        h, [&](double) { toDerivatives(U, accelerate(U), dU); },
        [&](int stage, double share) {
            PairState& K = stage == 1 ? K1 : stage == 2 ? K2 : K3;
            goFromStart(1, pairCells, h, share, dU.data(), U0.data(), K.data(), U.data());
        },
        [&] {
            p.U0 = U0;
            for (int k = 1; k < pairCells; ++k) {
                K4[k] = h * dU[k];
                p.U[k] = U0[k] + sixfoldMean(K1[k], K2[k], K3[k], K4[k]) * sixth;
            }
        });
}

/// A step that goes on only when all of it is a number.
/// @throws ArithmeticFailure otherwise; U is then that of the step before
template <class Accelerate>
[[gnu::always_inline]] inline void guardedStep(PairOrbit& p, const ArithmeticGuard& guard,
                                               Accelerate accelerate) {
    if (p.exact) p.DtCur = p.Dt;
    stepPair(p, accelerate);
    try {
        guard.check();
    } catch (const ArithmeticFailure&) {
        p.U = p.U0;
        throw;
    }
}

// ------------------------------------------------------------------ exact passages

/// What a vector from the centre to the body is from the origin of the angles.
double observedShare(const PairOrbit& p, const PairBodies& pair);

/// Looks for passages inside the step just made.
/// @param pull  acceleration of the body from the centre at a state, m/s^2
/// @param reach  called first for each passage, with the share of the step that has gone by then
/// @param pass  called for each passage in order of time: the body stands there, LonPl, LatPl and Rcur are of
///              it, Tsec is its time, LonOld its longitude.  Gets the passage and its velocity from the
///              centre, m/s
/// @return      true when something may have been passed: the rows of both bodies have been set anew
template <class Pull, class Reach, class Pass>
bool passagesInStep(ModelState& s, PairOrbit& p, const PairBodies& pair, Pull pull, Reach reach, Pass pass) {
    const double share = observedShare(p, pair), begun = p.Tsec;
    const auto observed = [&](const PairState& U) {
        return OrbitPoint{share * (cells(U, 4) - cells(U, 1)), share * (cells(U, 10) - cells(U, 7))};
    };
    const OrbitPoint before = observed(p.U0), after = observed(p.U);
    if (!maybePassed(before, after)) return false;
    const Vec3 a0 = share * pull(p.U0), a1 = share * pull(p.U);
    Arc arc = Arc::hermite(p.DtCur, before, after.r - before.r, after.v - before.v, a0, a1);
    for (const FoundPassage& passage : findPassages(before, after, arc)) {
        reach(passage.share);
        p.Tsec = begun + passage.share * p.DtCur;
        setPlace(s, pair.row, placeOf(s, p.origin) + passage.point.r);
        PairGeometry(s, p.origin, pair.row);
        p.LonOld = s.LonPl[pair.row];
        pass(passage, pair.mCentre / (pair.m + pair.mCentre) / share * passage.point.v);
    }
    p.Tsec = begun;
    unpackPair(s, p.U, pair.row);
    return true;
}

}  // namespace tarvex
