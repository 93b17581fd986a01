// Right-hand side of the classical model.

#include <cstring>

#include "core/failure.h"
#include "numeric/lane_kernels.h"
#include "numeric/pressure_laws.h"
#include "numeric/trace_lines.h"

namespace tarvex {
namespace kernel {

/// Sums of the forces on the bodies in the lanes.
struct Sums {
    alignas(32) BodyArray x{}, y{}, z{};
};

TARVEX_LANES void keepForce(Motion& m, int i, int j, const Force& force, Sums& sums) {
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
    if constexpr (kodPgr == 0) return pull(line, inverse, f0);
    if (law.atStage) {
        const Direction u(line, inverse, at(idleTable.busy[i], j));
        stageSpeeds(m, b, a, i, j, line, u, law, watch);
        if constexpr (kodPgr == 5) return lienardOfStage(m, a, i, j, line, u, law, watch);
    }
    if constexpr (kodPgr == 5)
        return lienardOfStep(m, i, j, line, law, watch);
    else
        return factorLaw<kodPgr>(m, b, a, i, j, line, inverse, f0, law);
}

/// The plain law in one pass: lines, forces and sums.
TARVEX_LANES void newtonPairs(Motion& m, const BodyLanes& b, Watch& seen, Sums& sums) {
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
TARVEX_LANES void tracePairs(const ModelState& s, Motion& m, const BodyLanes& b, Watch& seen) {
    const double Vgr = m.Vgr;
    Watch watch = seen;
    for (int i = 0; i < bodies; ++i) {
        const Actor a(m, b, i);
        const TracedActor traced(s, m, a, i);
        for (int j = 0; j < lanes; j += 4) keepLine(m, i, j, tracedLine(Vgr, b, a, traced, i, j, watch));
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

TARVEX_KERNEL void newton(Motion& m, const BodyLanes& b, Watch& watch) {
    Sums sums;
    newtonPairs(m, b, watch, sums);
    accelerations(m, sums, watch);
}

TARVEX_KERNEL void retardedLines(const ModelState& s, Motion& m, const BodyLanes& b, int form, Watch& watch) {
    if (form == 0)
        linePairs<0>(m, b, watch);
    else if (form == 1)
        linePairs<1>(m, b, watch);
    else if (form == 2)
        linePairs<2>(m, b, watch);
    else
        tracePairs(s, m, b, watch);
}

template <bool square>
TARVEX_LANES void lawForces(const ModelState& s, Motion& m, const BodyLanes& b, int kodPgr, Watch& watch) {
    Sums sums;
    switch (kodPgr) {
        case 2:
            forcePairs<2, square>(s, m, b, watch, sums);
            break;
        case 3:
            forcePairs<3, square>(s, m, b, watch, sums);
            break;
        case 4:
            forcePairs<4, square>(s, m, b, watch, sums);
            break;
        case 5:
            forcePairs<5, square>(s, m, b, watch, sums);
            break;
        case 6:
            forcePairs<6, square>(s, m, b, watch, sums);
            break;
        case 7:
            forcePairs<7, square>(s, m, b, watch, sums);
            break;
        default:
            forcePairs<0, square>(s, m, b, watch, sums);
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

/// Forces and accelerations by the codes; law 0 leaves the forces of the distances alone.
void forces(const ModelState& s, Motion& m, const BodyLanes& b, int kodPgr) {
    const int form = m.kodVgr != 0 ? m.kodDX : 0;
    Watch watch;
    m.fullQuadrant = false;
    if (form == 0 && kodPgr == 0 && m.nR == 2) {
        newton(m, b, watch);
    } else {
        if (form == 3 && (m.SledX.size() == 0 || m.SledX.size() <= m.NSled))
            throw SubscriptFailure("нет следа движения для DX3");
        retardedLines(s, m, b, form, watch);
        if (m.nR == 2)
            squareForces(s, m, b, kodPgr, watch);
        else
            powerForces(s, m, b, kodPgr, watch);
    }
    checkWatch(m, watch);
}

}  // namespace
}  // namespace kernel

void Diffur(ModelState& s, Motion& motion) {
    kernel::BodyLanes b;
    kernel::unpack(motion, s, b);
    if (motion.Vgr == 0) throw ArithmeticFailure("скорость гравитации равна нулю");
    kernel::formWeights(s, motion.weights);
    std::memcpy(motion.dU.data(), &motion.U[3 * bodies], sizeof(double) * 3 * bodies);
    const bool pressed = motion.kodPgr != 0 && motion.kodVgr != 0;
    if (motion.kodDebug != 0) {
        // the debug text shows the forces as they are before any pressure
        kernel::forces(s, motion, b, 0);
        kernel::keepForDebug(s, motion);
    }
    if (pressed) ++motion.NDiffur;
    if (pressed || motion.kodDebug == 0) kernel::forces(s, motion, b, pressed ? motion.kodPgr : 0);
    if (pressed && motion.kodDiffurV == 1) motion.fullQuadrant = true;
    if (motion.kodRelativity == 1) {
        kernel::Watch watch;
        kernel::addPostNewtonian(s, motion, b, watch);
        kernel::checkWatch(motion, watch);
    }
}

}  // namespace tarvex
