// Speeds along the lines between the bodies, once a step.

#include "core/failure.h"
#include "numeric/lane_kernels.h"

namespace tarvex {
namespace kernel {

/// Row i of the rates of dV1 and dV2: frozen in the pass that follows a change of the step.
TARVEX_ROW void rateRow(const ModelState& s, Motion& m, int i) {
    const double Dt = s.DtCur;
    double* __restrict dV1 = m.dV1[i].data();
    double* __restrict dV2 = m.dV2[i].data();
    double* __restrict dV1old = m.dV1old[i].data();
    double* __restrict dV2old = m.dV2old[i].data();
    double* __restrict AV1 = m.AV1[i].data();
    double* __restrict AV2 = m.AV2[i].data();
    double* __restrict AV1old = m.AV1old[i].data();
    double* __restrict AV2old = m.AV2old[i].data();
    double* __restrict BV1 = m.BV1[i].data();
    double* __restrict BV2 = m.BV2[i].data();
    double* __restrict dR = m.dR[i].data();
    double* __restrict d2R = m.d2R[i].data();
    const bool sameStep = Dt == m.DtOld;
    for (int j = 0; sameStep && j < lanes; ++j) {
        AV1[j] = (dV1[j] - dV1old[j]) / Dt;
        AV2[j] = (dV2[j] - dV2old[j]) / Dt;
        BV1[j] = (AV1[j] - AV1old[j]) / Dt;
        BV2[j] = (AV2[j] - AV2old[j]) / Dt;
    }
    for (int j = 0; j < lanes; ++j) {
        dV1old[j] = dV1[j];
        dV2old[j] = dV2[j];
        AV1old[j] = AV1[j];
        AV2old[j] = AV2[j];
    }
    if (m.kodDiffurV == 0) {
        for (int j = 0; j < lanes; ++j) {
            dV1[j] = Dt * AV1old[j] / 2 + dV1old[j];
            dV2[j] = Dt * AV2old[j] / 2 + dV2old[j];
            AV1[j] = Dt * BV1[j] + AV1old[j];
            AV2[j] = Dt * BV2[j] + AV2old[j];
        }
    } else {
        for (int j = 0; j < lanes; ++j) {
            AV1[j] = Dt * BV1[j] / 2 + AV1old[j];
            AV2[j] = Dt * BV2[j] / 2 + AV2old[j];
        }
    }
    for (int j = 0; j < lanes; ++j) {
        dR[j] = dV2[j] - dV1[j];
        d2R[j] = AV2[j] - AV1[j];
    }
}

/// Row i of the retarded accelerations that the law of Lienard and Wiechert needs.
TARVEX_ROW void retardedAccelerationRow(const ModelState& s, Motion& m, const BodyLanes& b, int i) {
    const double Dt = s.DtCur;
    const double ax = m.AX[i], ay = m.AY[i], az = m.AZ[i], jx = m.JX[i], jy = m.JY[i], jz = m.JZ[i];
    for (int j = 0; j < lanes; ++j) {
        m.AX0zap[i][j] = ax - jx * m.Tik[i][j];
        m.AY0zap[i][j] = ay - jy * m.Tik[i][j];
        m.AZ0zap[i][j] = az - jz * m.Tik[i][j];
    }
    m.AX1zap[i] = m.AX0zap[i];
    m.AY1zap[i] = m.AY0zap[i];
    m.AZ1zap[i] = m.AZ0zap[i];
    if (m.kodDiffurV == 0) {
        for (int j = 0; j < lanes; ++j) {
            m.VX1zap[i][j] = m.VX0zap[i][j] + Dt * ax / 2;
            m.VY1zap[i][j] = m.VY0zap[i][j] + Dt * ay / 2;
            m.VZ1zap[i][j] = m.VZ0zap[i][j] + Dt * az / 2;
            m.AX1zap[i][j] = Dt * jx / 2 + m.AX1zap[i][j];
            m.AY1zap[i][j] = Dt * jy / 2 + m.AY1zap[i][j];
            m.AZ1zap[i][j] = Dt * jz / 2 + m.AZ1zap[i][j];
        }
    }
    lineAccelerationRow(m, b, i);
}

/// @return  0, or not a number if any speed or rate is not finite
TARVEX_KERNEL double lineSpeeds(const ModelState& s, Motion& m, const BodyLanes& b, Extremes& seen) {
    const bool retarded = m.kodVgr == 1 && m.kodDX > 0;
    if (m.kodPgr == 5) {
        for (int i = 0; i < lanes; ++i) {
            if (s.DtCur == m.DtOld) {
                m.JX[i] = (m.AX[i] - m.AXold[i]) / s.DtCur;
                m.JY[i] = (m.AY[i] - m.AYold[i]) / s.DtCur;
                m.JZ[i] = (m.AZ[i] - m.AZold[i]) / s.DtCur;
            }
            m.AXold[i] = m.AX[i];
            m.AYold[i] = m.AY[i];
            m.AZold[i] = m.AZ[i];
        }
    }
    double sum = 0;
    for (int i = 0; i < bodies; ++i) {
        presentRow(m, b, i);
        distanceRow(m, i, seen);
        for (int iteration = 1; retarded && iteration <= 2; ++iteration) {
            if (m.kodDX == 1) retardedRow<1>(m, b, i);
            if (m.kodDX != 1) retardedRow<2>(m, b, i);  // also with the trace, which is not consulted here
            distanceRow(m, i, seen);
        }
        retardedSpeedRow(m, b, i, m.VX0zap[i].data(), m.VY0zap[i].data(), m.VZ0zap[i].data());
        lineSpeedRow(m, b, i, m.VX0zap[i].data(), m.VY0zap[i].data(), m.VZ0zap[i].data());
        rateRow(s, m, i);
        if (m.kodPgr == 5) retardedAccelerationRow(s, m, b, i);
        for (int j = 0; j < lanes; ++j) {
            watch(sum, m.dR[i][j]);
            watch(sum, m.d2R[i][j]);
            watch(sum, m.BV1[i][j]);
            watch(sum, m.BV2[i][j]);
            watch(sum, m.A1zap[i][j]);
            watch(sum, m.V1zap[i][j]);
        }
    }
    return sum;
}

}  // namespace kernel

void SpeedUpdate(ModelState& s, Motion& motion) {
    if (motion.kodPgr == 0) return;
    if (motion.Vgr == 0) throw ArithmeticFailure("the speed of gravity is zero");
    kernel::BodyLanes b;
    kernel::toLanes(s, b);
    kernel::Extremes seen;
    const double watched = kernel::lineSpeeds(s, motion, b, seen);
    motion.fullQuadrant = true;
    if (!seen.fine()) kernel::fail(motion, "two bodies at one place or with equal X and Y");
    if (watched != 0) kernel::fail(motion, "a speed along a line is not a number");
    motion.DtOld = s.DtCur;
}

}  // namespace tarvex
