// Right-hand side of the classical model.

#include <cstring>
#include <utility>

#include "core/failure.h"
#include "numeric/integrator.h"
#include "numeric/lane_kernels.h"
#include "numeric/pressure_laws.h"
#include "numeric/trace_lines.h"

namespace tarvex {
namespace kernel {

/// Sums of the forces on the bodies in the lanes.
struct Sums {
    alignas(32) BodyArray x{}, y{}, z{};
};

TARVEX_LANES void keepForce(const Motion& m, int i, int j, const Force& force, Sums& sums) {
    put(m.Fik[i], j, force.f);
    put(m.FXik[i], j, force.x);
    put(m.FYik[i], j, force.y);
    put(m.FZik[i], j, force.z);
    put(sums.x, j, at(sums.x, j) + force.x);
    put(sums.y, j, at(sums.y, j) + force.y);
    put(sums.z, j, at(sums.z, j) + force.z);
}

/// Fik before any pressure law.
template <bool square>
TARVEX_LANES Four magnitude(const Motion& m, int i, int j, const Line& line, Four inverse, double nR,
                            Watch& watch) {
    const Four weight = at(m.weights.force[i], j);
    if constexpr (square) return weight * (inverse * inverse);
    const Four power = {std::pow(line.r[0], nR), std::pow(line.r[1], nR), std::pow(line.r[2], nR),
                        std::pow(line.r[3], nR)};
    watch.notHuge(power);
    return weight / power;
}

/// The force of body i on four bodies j by the law kodPgr.
template <int kodPgr, bool square>
TARVEX_LANES Force forceOf(Motion& m, const BodyLanes& b, const Actor& a, int i, int j, const Line& line,
                           const LawFactors& law, Watch& watch) {
    const Four inverse = 1 / line.r, f0 = magnitude<square>(m, i, j, line, inverse, law.nR, watch);
    if constexpr (kodPgr == codeOf(Pressure::None)) return pull(line, inverse, f0);
    if (law.atStage) {
        const Direction u(line, inverse, at(idleTable.busy[i], j));
        stageSpeeds(m, b, a, i, j, line, u, law, watch);
        if constexpr (kodPgr == codeOf(Pressure::LienardWiechert))
            return lienardOfStage(m, a, i, j, line, u, law, watch);
    }
    if constexpr (kodPgr == codeOf(Pressure::LienardWiechert))
        return lienardOfStep(m, i, j, line, law, watch);
    else
        return factorLaw<kodPgr>(m, b, a, i, j, line, inverse, f0, law);
}

/// The plain law in one pass over every ordered pair: lines, forces and sums.
TARVEX_LANES void newtonPairs(const Motion& m, const BodyLanes& b, Watch& seen, Sums& sums) {
    Watch watch = seen;  // in registers
    for (int i = 0; i < bodies; ++i) {
        const Actor a(m, b, i);
        for (int j = 0; j < lanes; j += 4) {
            const Line line = presentLine(b, a, i, j, watch);
            watch.notHuge(line.r);
            const Four inverse = 1 / line.r, f = magnitude<true>(m, i, j, line, inverse, 2, watch);
            keepLine(m, i, j, line);
            keepForce(m, i, j, pull(line, inverse, f), sums);
        }
    }
    seen = watch;
}

/// The forces between body i and the bodies j > i by the plain law: on those in the lanes they go to the
/// sums, and the pull of each of them on i, equal and opposite in every bit, to `onActor` after that of the
/// bodies before i.  So every body gets its pulls in the order of `newtonPairs`.
template <int i>
TARVEX_LANES void newtonRow(const Motion& m, const BodyLanes& b, Watch& watch, Sums& sums, Sums& onActor) {
    Sums row;
    for (int j = (i + 1) / 4 * 4; j < lanes; j += 4) {
        const Line line =
            lineOf(at(b.x, j) - b.x[i], at(b.y, j) - b.y[i], at(b.z, j) - b.z[i], at(idleTable.idle[i], j));
        watch.nonZero(line.flat);
        watch.notHuge(line.r);
        const Four inverse = 1 / line.r;
        const Force force = pull(line, inverse, at(m.weights.upper[i], j) * (inverse * inverse));
        put(row.x, j, force.x);
        put(row.y, j, force.y);
        put(row.z, j, force.z);
        put(sums.x, j, at(sums.x, j) + force.x);
        put(sums.y, j, at(sums.y, j) + force.y);
        put(sums.z, j, at(sums.z, j) + force.z);
    }
    double x = sums.x[i], y = sums.y[i], z = sums.z[i];
    for (int j = i + 1; j < bodies; ++j) {
        x -= row.x[j];
        y -= row.y[j];
        z -= row.z[j];
    }
    onActor.x[i] = x;
    onActor.y[i] = y;
    onActor.z[i] = z;
}

/// The plain law on the 55 pairs; nothing of a pair is kept.
template <int... i>
TARVEX_LANES void newtonTriangle(const Motion& m, const BodyLanes& b, Watch& seen, Sums& total,
                                 std::integer_sequence<int, i...>) {
    Watch watch = seen;  // in registers
    Sums sums;
    (newtonRow<i>(m, b, watch, sums, total), ...);
    seen = watch;
}

/// The lines of every pair.  A pass of its own: its long chains of roots overlap only with their like.
template <int form>
TARVEX_LANES void linePairs(Motion& m, const BodyLanes& b, Watch& seen) {
    const double perVgr = 1 / m.Vgr;
    Watch watch = seen;
    for (int i = 0; i < bodies; ++i) {
        const Actor a(m, b, i);
        Line lines[3];
        rowLines<form>(perVgr, b, a, i, lines, watch);
        for (int n = 0; n < 3; ++n) keepLine(m, i, 4 * n, lines[n]);
    }
    seen = watch;
}

/// The lines of every pair by the traces.
template <bool atOnce>
TARVEX_LANES void tracePairs(const ModelState& s, Motion& m, const BodyLanes& b, Watch& seen) {
    const double Vgr = m.Vgr;
    Watch watch = seen;
    for (int i = 0; i < bodies; ++i) {
        const Actor a(m, b, i);
        const TracedActor<atOnce> traced(s, m, a, i);
        Line lines[3];
        tracedLines(Vgr, b, a, traced, i, lines, watch);
        for (int n = 0; n < 3; ++n) keepLine(m, i, 4 * n, lines[n]);
    }
    seen = watch;
}

/// The forces along the lines, in rows of increasing i, so that the sums have their fixed order.
template <int kodPgr, bool square>
TARVEX_LANES void forcePairs(const ModelState& s, Motion& m, const BodyLanes& b, Watch& seen, Sums& sums) {
    const LawFactors law(s, m);
    Watch watch = seen;
    for (int i = 0; i < bodies; ++i) {
        const Actor a(m, b, i);
        for (int j = 0; j < lanes; j += 4) {
            const Line line{at(m.DXp[i], j), at(m.DYp[i], j), at(m.DZp[i], j), Four{}, at(m.Rik[i], j)};
            keepForce(m, i, j, forceOf<kodPgr, square>(m, b, a, i, j, line, law, watch), sums);
        }
    }
    seen = watch;
}

/// dU from the sums, divided by the mass of j.
TARVEX_LANES void accelerations(Motion& m, Sums& sums, Watch& watch) {
    for (int j = 0; j < lanes; j += 4) {
        const Four perMass = at(m.weights.perMass, j);
        const Four x = at(sums.x, j) * perMass, y = at(sums.y, j) * perMass, z = at(sums.z, j) * perMass;
        watch.number(x);
        watch.number(y);
        watch.number(z);
        put(sums.x, j, x);
        put(sums.y, j, y);
        put(sums.z, j, z);
    }
    std::memcpy(&m.dU[3 * bodies], sums.x.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[4 * bodies], sums.y.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[5 * bodies], sums.z.data(), sizeof(double) * bodies);
}

TARVEX_KERNEL void newtonAlone(Motion& m, const BodyLanes& b, Watch& watch) {
    Sums sums;
    newtonTriangle(m, b, watch, sums, std::make_integer_sequence<int, bodies>());
    accelerations(m, sums, watch);
}

/// The pairs of the bodies at b, without dU.
TARVEX_KERNEL void keepPairs(const Motion& m, const BodyLanes& b) {
    Watch watch;
    Sums sums;
    newtonPairs(m, b, watch, sums);
}

/// With every pair kept.
TARVEX_KERNEL void newton(Motion& m, const BodyLanes& b, Watch& watch) {
    Sums sums;
    newtonPairs(m, b, watch, sums);
    accelerations(m, sums, watch);
}

TARVEX_KERNEL void retardedLines(const ModelState& s, Motion& m, const BodyLanes& b, int form, Watch& watch) {
    if (form == codeOf(Retardation::None))
        linePairs<0>(m, b, watch);
    else if (form == codeOf(Retardation::BySpeeds))
        linePairs<1>(m, b, watch);
    else if (form == codeOf(Retardation::ByAccelerations))
        linePairs<2>(m, b, watch);
    else if (m.NSled <= shortTrace)
        tracePairs<true>(s, m, b, watch);
    else
        tracePairs<false>(s, m, b, watch);
}

template <bool square>
TARVEX_LANES void lawForces(const ModelState& s, Motion& m, const BodyLanes& b, int kodPgr, Watch& watch) {
    Sums sums;
    switch (kodPgr) {
        case codeOf(Pressure::Weber):
            forcePairs<codeOf(Pressure::Weber), square>(s, m, b, watch, sums);
            break;
        case codeOf(Pressure::GerberFirst):
            forcePairs<codeOf(Pressure::GerberFirst), square>(s, m, b, watch, sums);
            break;
        case codeOf(Pressure::GerberSecond):
            forcePairs<codeOf(Pressure::GerberSecond), square>(s, m, b, watch, sums);
            break;
        case codeOf(Pressure::LienardWiechert):
            forcePairs<codeOf(Pressure::LienardWiechert), square>(s, m, b, watch, sums);
            break;
        case codeOf(Pressure::Norin):
            forcePairs<codeOf(Pressure::Norin), square>(s, m, b, watch, sums);
            break;
        case codeOf(Pressure::Sukhorukov):
            forcePairs<codeOf(Pressure::Sukhorukov), square>(s, m, b, watch, sums);
            break;
        default:
            forcePairs<codeOf(Pressure::None), square>(s, m, b, watch, sums);
            break;
    }
    accelerations(m, sums, watch);
}

TARVEX_KERNEL void squareForces(const ModelState& s, Motion& m, const BodyLanes& b, int kodPgr,
                                Watch& watch) {
    lawForces<true>(s, m, b, kodPgr, watch);
}

/// Forces with an exponent other than 2.
TARVEX_KERNEL void powerForces(const ModelState& s, Motion& m, const BodyLanes& b, int kodPgr, Watch& watch) {
    lawForces<false>(s, m, b, kodPgr, watch);
}

namespace {

PairDebug debugOf(const ModelState& s, const Motion& m, int i, int j) {
    PairDebug d;
    d.X = s.X[i];
    d.Xzap = s.X[j] - m.DXp[i][j];
    d.VX = s.VX[i];
    d.VXzap = m.VX1zap[i][j];
    d.F = m.Fik[i][j];
    d.R = m.Rik[i][j];
    d.T = m.Rik[i][j] / m.Vgr;
    d.Betta = BettaIK(m, i, j);
    d.Alfa = AlfaIK(m, i, j);
    d.dV1 = m.dV1[i][j];
    d.dV2 = m.dV2[i][j];
    d.FX = m.FXik[i][j];
    return d;
}

/// The debug text's values of the pair N1, N2, and the state for the test bench.
void keepForDebug(const ModelState& s, Motion& m) {
    m.debug12 = debugOf(s, m, m.N1, m.N2);
    m.debug21 = debugOf(s, m, m.N2, m.N1);
    for (int i = 0; i < bodies; ++i) {
        m.Xsave[i] = s.X[i];
        m.Ysave[i] = s.Y[i];
        m.Zsave[i] = s.Z[i];
        m.VXsave[i] = s.VX[i];
        m.VYsave[i] = s.VY[i];
        m.VZsave[i] = s.VZ[i];
    }
    m.AXsave = m.AX;
    m.AYsave = m.AY;
    m.AZsave = m.AZ;
}

/// The plain law.  The pairs wait until they are read, unless something is wrong with them.
void plainForces(ModelState& s, Motion& m) {
    BodyLanes& b = m.latePairs.bodies;
    unpack(m, s, b);
    Watch watch;
    m.fullQuadrant = false;
    m.latePairs.waiting = LatePairs::Of::None;
    if (m.weights.symmetric) {
        newtonAlone(m, b, watch);
        if (watch.distancesFine() && watch.numbersFine()) {
            m.latePairs.waiting = LatePairs::Of::Plain;
            return;
        }
        watch = {};
    }
    newton(m, b, watch);
    checkWatch(m, watch);
}

/// Forces and accelerations by the codes, with all their pairs.
void forces(const ModelState& s, Motion& m, const BodyLanes& b, int kodPgr) {
    const int form = m.kodVgr != 0 ? m.kodDX : 0;
    if (form == codeOf(Retardation::ByTrace) && (m.SledX.size() == 0 || m.SledX.size() <= m.NSled))
        throw SubscriptFailure("нет следа движения для DX3");
    Watch watch;
    m.fullQuadrant = false;
    if (form == codeOf(Retardation::None) && kodPgr == codeOf(Pressure::None) && m.nR == 2) {
        newton(m, b, watch);
    } else {
        retardedLines(s, m, b, form, watch);
        if (m.nR == 2)
            squareForces(s, m, b, kodPgr, watch);
        else
            powerForces(s, m, b, kodPgr, watch);
    }
    checkWatch(m, watch);
}

/// Every law that is not plain, and whatever the debug text is to show.
void forcesWithPairs(ModelState& s, Motion& m) {
    formPairs(m);
    BodyLanes b;
    unpack(m, s, b);
    const bool pressed = m.kodPgr != 0 && m.kodVgr != 0;
    if (m.kodDebug != 0) {
        // the debug text shows the forces as they are before any pressure
        forces(s, m, b, 0);
        keepForDebug(s, m);
    }
    if (pressed) ++m.NDiffur;
    if (pressed || m.kodDebug == 0) forces(s, m, b, pressed ? m.kodPgr : 0);
    if (pressed && m.kodDiffurV == 1) m.fullQuadrant = true;
}

}  // namespace
}  // namespace kernel

void formPairs(const Motion& motion) {
    const auto late = std::exchange(motion.latePairs.waiting, LatePairs::Of::None);
    if (late == LatePairs::Of::Plain) kernel::keepPairs(motion, motion.latePairs.bodies);
    if (late == LatePairs::Of::Relativistic) kernel::keepRelativisticPairs(motion);
}

void Diffur(ModelState& s, Motion& motion) {
    if (motion.Vgr == 0) {
        unpackState(s, motion);
        throw ArithmeticFailure("скорость гравитации равна нулю");
    }
    kernel::needWeights(s, motion);
    std::memcpy(motion.dU.data(), &motion.U[3 * bodies], sizeof(double) * 3 * bodies);
    const bool finite = motion.kodVgr != 0 && (motion.kodPgr != 0 || motion.kodDX != 0);
    if (!finite && motion.nR == 2 && motion.kodDebug == 0) {
        kernel::plainForces(s, motion);
    } else {
        kernel::forcesWithPairs(s, motion);
    }
    if (motion.kodRelativity == 1) {
        kernel::Watch watch;
        kernel::addPostNewtonian(s, motion, watch);
        kernel::checkWatch(motion, watch);
    }
}

}  // namespace tarvex
