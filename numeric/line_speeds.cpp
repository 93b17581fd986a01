// Speeds along the lines between the bodies, once a step.

#include "core/failure.h"
#include "numeric/lane_kernels.h"

namespace tarvex {
namespace kernel {

/// Velocity of body i as it was when its pull left (VX0zap), and the speeds along the line: of body i with
/// that velocity, of body j with its present one.
TARVEX_LANES void speedsOfStep(Motion& m, const BodyLanes& b, const Actor& a, int i, int j,
                               const Direction& u, Four t) {
    const Four wx = a.vx - a.ax * t, wy = a.vy - a.ay * t, wz = a.vz - a.az * t;
    const Along v1 = alongOfActor(u, a, wx, wy, wz), v2 = alongOfPassive(u, b, j);
    put(m.VX0zap[i], j, wx);
    put(m.VY0zap[i], j, wy);
    put(m.VZ0zap[i], j, wz);
    put(m.dVX1[i], j, v1.x);
    put(m.dVY1[i], j, v1.y);
    put(m.dVZ1[i], j, v1.z);
    put(m.dVX2[i], j, v2.x);
    put(m.dVY2[i], j, v2.y);
    put(m.dVZ2[i], j, v2.z);
    put(m.dV1[i], j, v1.sum());
    put(m.dV2[i], j, v2.sum());
}

/// The rates of one of the two speeds: frozen in the pass that follows a change of the step.
TARVEX_LANES void rates(const ModelState& s, const Motion& m, int j, BodyArray& dV, BodyArray& dVold,
                        BodyArray& AV, BodyArray& AVold, BodyArray& BV) {
    const double Dt = s.DtCur, perDt = 1 / Dt;
    const Four v = at(dV, j);
    Four rate = at(AV, j), rateOfRate = at(BV, j);
    if (Dt == m.DtOld) {
        rate = (v - at(dVold, j)) * perDt;
        rateOfRate = (rate - at(AVold, j)) * perDt;
        put(BV, j, rateOfRate);
    }
    put(dVold, j, v);
    put(AVold, j, rate);
    if (m.kodDiffurV == 0) {
        put(dV, j, Dt * rate * 0.5 + v);
        put(AV, j, Dt * rateOfRate + rate);
    } else {
        put(AV, j, Dt * rateOfRate * 0.5 + rate);
    }
}

/// Acceleration of the acceleration of every body.
void jerks(const ModelState& s, Motion& m) {
    if (s.DtCur == m.DtOld) {
        for (int i = 0; i < bodies; ++i) {
            m.JX[i] = (m.AX[i] - m.AXold[i]) / s.DtCur;
            m.JY[i] = (m.AY[i] - m.AYold[i]) / s.DtCur;
            m.JZ[i] = (m.AZ[i] - m.AZold[i]) / s.DtCur;
        }
    }
    m.AXold = m.AX;
    m.AYold = m.AY;
    m.AZold = m.AZ;
}

/// The retarded accelerations that the law of Lienard and Wiechert needs.  A1zap takes the signs of the
/// velocity with the size of the acceleration: the law looks at what the motion does to the line, not at its
/// rate.
TARVEX_LANES void accelerationsOfStep(const ModelState& s, Motion& m, const Actor& a, int i, int j,
                                      const Direction& u, Four t, Watch& watch) {
    const bool stepwise = m.kodDiffurV == 0;
    const double half = stepwise ? s.DtCur / 2 : 0;
    const Four x0 = a.ax - m.JX[i] * t, y0 = a.ay - m.JY[i] * t, z0 = a.az - m.JZ[i] * t;
    const Four x1 = half * m.JX[i] + x0, y1 = half * m.JY[i] + y0, z1 = half * m.JZ[i] + z0;
    put(m.AX0zap[i], j, x0);
    put(m.AY0zap[i], j, y0);
    put(m.AZ0zap[i], j, z0);
    put(m.AX1zap[i], j, x1);
    put(m.AY1zap[i], j, y1);
    put(m.AZ1zap[i], j, z1);
    if (stepwise) {
        put(m.VX1zap[i], j, at(m.VX0zap[i], j) + half * a.ax);
        put(m.VY1zap[i], j, at(m.VY0zap[i], j) + half * a.ay);
        put(m.VZ1zap[i], j, at(m.VZ0zap[i], j) + half * a.az);
    }
    const Four wx = at(m.VX1zap[i], j), wy = at(m.VY1zap[i], j), wz = at(m.VZ1zap[i], j);
    const Four along = alongOfActor(u, a, x1, y1, z1).sum(), speed = root(wx * wx + wy * wy + wz * wz);
    put(m.A1zap[i], j, along);
    put(m.V1zap[i], j, speed);
    watch.number(along);
    watch.number(speed);
}

template <int form>
TARVEX_LANES void speedPairs(const ModelState& s, Motion& m, const BodyLanes& b, Watch& seen) {
    const double perVgr = 1 / m.Vgr;
    Watch watch = seen;  // in registers
    for (int i = 0; i < bodies; ++i) {
        const Actor a(m, b, i);
        Line lines[3];
        rowLines<form>(perVgr, b, a, i, lines, watch);
        for (int j = 0; j < lanes; j += 4) {
            const Line& line = lines[j / 4];
            const Direction u(line, 1 / line.r, at(idleTable.busy[i], j));
            const Four t = line.r * perVgr;
            keepLine(m, i, j, line);
            speedsOfStep(m, b, a, i, j, u, form == codeOf(Retardation::None) ? t * 0 : t);
            rates(s, m, j, m.dV1[i], m.dV1old[i], m.AV1[i], m.AV1old[i], m.BV1[i]);
            rates(s, m, j, m.dV2[i], m.dV2old[i], m.AV2[i], m.AV2old[i], m.BV2[i]);
            const Four rate = at(m.dV2[i], j) - at(m.dV1[i], j), rate2 = at(m.AV2[i], j) - at(m.AV1[i], j);
            put(m.dR[i], j, rate);
            put(m.d2R[i], j, rate2);
            watch.number(rate);
            watch.number(rate2);
            watch.number(at(m.BV1[i], j));
            watch.number(at(m.BV2[i], j));
            if (m.kodPgr == codeOf(Pressure::LienardWiechert))
                accelerationsOfStep(s, m, a, i, j, u, t, watch);
        }
    }
    seen = watch;
}

TARVEX_KERNEL void lineSpeeds(const ModelState& s, Motion& m, const BodyLanes& b, Watch& watch) {
    const int form = m.kodVgr == 1 ? m.kodDX : 0;
    if (form == codeOf(Retardation::None))
        speedPairs<0>(s, m, b, watch);
    else if (form == codeOf(Retardation::BySpeeds))
        speedPairs<1>(s, m, b, watch);
    else
        speedPairs<2>(s, m, b, watch);  // the trace is not consulted here
}

}  // namespace kernel

void SpeedUpdate(ModelState& s, Motion& motion) {
    if (motion.kodPgr == codeOf(Pressure::None)) return;
    if (motion.Vgr == 0) throw ArithmeticFailure("скорость гравитации равна нулю");
    formPairs(motion);  // the forces stay
    BodyLanes b;
    kernel::toLanes(s, b);
    kernel::Watch watch;
    if (motion.kodPgr == codeOf(Pressure::LienardWiechert)) kernel::jerks(s, motion);
    kernel::lineSpeeds(s, motion, b, watch);
    motion.fullQuadrant = true;
    kernel::checkWatch(motion, watch);
    motion.DtOld = s.DtCur;
}

}  // namespace tarvex
