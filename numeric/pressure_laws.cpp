#include "numeric/pressure_laws.h"

namespace tarvex::kernel {

/// Row i of the factor by which the law changes Fik.
template <int law>
TARVEX_ROW void factorRow(Motion& m, const BodyLanes& b, int i, const double* __restrict speed2) {
    const double* __restrict dx = m.DXp[i].data();
    const double* __restrict dy = m.DYp[i].data();
    const double* __restrict dz = m.DZp[i].data();
    const double* __restrict rik = m.Rik[i].data();
    const double* __restrict dV1 = m.dV1[i].data();
    const double* __restrict dV2 = m.dV2[i].data();
    const double* __restrict dR = m.dR[i].data();
    const double* __restrict d2R = m.d2R[i].data();
    const double* __restrict busy = idleTable.busy[i].data();
    double* __restrict Ve = m.Ve[i].data();
    double* __restrict force = m.Fik[i].data();
    double* __restrict fx = m.FXik[i].data();
    double* __restrict fy = m.FYik[i].data();
    double* __restrict fz = m.FZik[i].data();
    const double k1 = m.kPgr1, k2 = m.kPgr2, Vgr = m.Vgr;
    const double own2 = Vgr * Vgr + b.vx[i] * b.vx[i] + b.vy[i] * b.vy[i] + b.vz[i] * b.vz[i];
    for (int j = 0; j < lanes; ++j) {
        // idle lanes: no speed along a line that is none
        const double v1 = dV1[j] * busy[j], v2 = dV2[j] * busy[j], rate = dR[j] * busy[j],
                     rate2 = d2R[j] * busy[j];
        const double r = rik[j], f0 = force[j];
        double f = f0;
        if constexpr (law == 2) {
            f = (1 - k1 * rate * rate / Vgr / Vgr + k2 * r * rate2 / Vgr / Vgr) * f0;
        } else if constexpr (law == 3) {
            const double ve = Vgr + v1;
            Ve[j] = ve;
            f = (1 - k1 * rate * rate / ve / ve + k2 * r * rate2 / ve / ve) * f0;
        } else if constexpr (law == 4) {
            const double ve = Vgr + v1, less = ve - rate, square = less * less;
            Ve[j] = ve;
            f = ve * f0 * ve * (ve * ve + k1 * rate * rate + k2 * r * rate2 - 4 * ve * rate) /
                (square * square);
        } else if constexpr (law == 6) {
            f = (1 - k1 * v2 / Vgr) * f0 / (1 - k2 * v1 / Vgr);
        } else if constexpr (law == 7) {
            f = std::sqrt(Vgr * Vgr + speed2[j] - 2 * Vgr * v2) * f0 / std::sqrt(own2 - 2 * Vgr * v1);
        }
        // the direction keeps the sign that the force had
        const double q = (f0 < 0 ? -f : f) / r;
        force[j] = f;
        fx[j] = -dx[j] * q;
        fy[j] = -dy[j] * q;
        fz[j] = -dz[j] * q;
    }
}

/// Row i of the retarded force of Lienard and Wiechert; the exponent 3 stands whatever nR is.
TARVEX_ROW void lienardRow(Motion& m, int i) {
    const double* __restrict dx = m.DXp[i].data();
    const double* __restrict dy = m.DYp[i].data();
    const double* __restrict dz = m.DZp[i].data();
    const double* __restrict rik = m.Rik[i].data();
    const double* __restrict dV1 = m.dV1[i].data();
    const double* __restrict busy = idleTable.busy[i].data();
    const double* __restrict weight = m.weights.force[i].data();
    const double* __restrict ax = m.AX1zap[i].data();
    const double* __restrict ay = m.AY1zap[i].data();
    const double* __restrict az = m.AZ1zap[i].data();
    const double* __restrict vx = m.VX1zap[i].data();
    const double* __restrict vy = m.VY1zap[i].data();
    const double* __restrict vz = m.VZ1zap[i].data();
    const double* __restrict V1zap = m.V1zap[i].data();
    const double* __restrict A1zap = m.A1zap[i].data();
    double* __restrict Rf = m.Rf[i].data();
    double* __restrict force = m.Fik[i].data();
    double* __restrict fx = m.FXik[i].data();
    double* __restrict fy = m.FYik[i].data();
    double* __restrict fz = m.FZik[i].data();
    const double k1 = m.kPgr1, k2 = m.kPgr2, Vgr = m.Vgr, square = Vgr * Vgr;
    const bool simple = m.kodLVsimple == 1;
    for (int j = 0; j < lanes; ++j) {
        const double r = rik[j];
        const double rf = r - r * (dV1[j] * busy[j]) / Vgr;
        const double f = -weight[j] / (rf * rf * rf) / square;
        const double over = r / Vgr;
        const double towards = simple ? square : square + k1 * r * A1zap[j] - V1zap[j] * V1zap[j];
        const double drag = simple ? 0 : r * rf * k2;
        Rf[j] = rf;
        force[j] = f;
        fx[j] = (towards * (dx[j] - over * vx[j]) - drag * ax[j]) * f;
        fy[j] = (towards * (dy[j] - over * vy[j]) - drag * ay[j]) * f;
        fz[j] = (towards * (dz[j] - over * vz[j]) - drag * az[j]) * f;
    }
}

/// Retarded acceleration of body i for the stage: by the velocities (kodAA = 0) or by the acceleration of
/// acceleration.
TARVEX_ROW void stageAccelerationRow(const ModelState& s, Motion& m, int i) {
    const double part = m.NDiffur == 4 ? 1 : 2;
    for (int j = 0; j < lanes; ++j) {
        if (m.kodAA == 0) {
            m.AX1zap[i][j] = part * (m.VX1zap[i][j] - m.VX0zap[i][j]) / s.DtCur;
            m.AY1zap[i][j] = part * (m.VY1zap[i][j] - m.VY0zap[i][j]) / s.DtCur;
            m.AZ1zap[i][j] = part * (m.VZ1zap[i][j] - m.VZ0zap[i][j]) / s.DtCur;
        } else {
            m.AX1zap[i][j] = s.DtCur * m.JX[i] / part + m.AX0zap[i][j];
            m.AY1zap[i][j] = s.DtCur * m.JY[i] / part + m.AY0zap[i][j];
            m.AZ1zap[i][j] = s.DtCur * m.JZ[i] / part + m.AZ0zap[i][j];
        }
    }
}

TARVEX_KERNEL double applyPressure(const ModelState& s, Motion& m, const BodyLanes& b) {
    alignas(32) BodyArray speed2;
    for (int j = 0; j < lanes; ++j) speed2[j] = b.vx[j] * b.vx[j] + b.vy[j] * b.vy[j] + b.vz[j] * b.vz[j];
    double sum = 0;
    for (int i = 0; i < bodies; ++i) {
        switch (m.kodPgr) {
            case 2:
                factorRow<2>(m, b, i, speed2.data());
                break;
            case 3:
                factorRow<3>(m, b, i, speed2.data());
                break;
            case 4:
                factorRow<4>(m, b, i, speed2.data());
                break;
            case 5:
                if (m.kodDiffurV == 1) {
                    if (m.NDiffur >= 2 && m.NDiffur <= 4) stageAccelerationRow(s, m, i);
                    lineAccelerationRow(m, b, i);
                }
                lienardRow(m, i);
                break;
            case 6:
                factorRow<6>(m, b, i, speed2.data());
                break;
            case 7:
                factorRow<7>(m, b, i, speed2.data());
                break;
            default:
                break;
        }
        for (int j = 0; j < lanes; ++j) watch(sum, m.A1zap[i][j]);
    }
    return sum;
}

TARVEX_KERNEL double stageSpeeds(const ModelState& s, Motion& m, const BodyLanes& b) {
    const double Dt = s.DtCur;
    double sum = 0;
    for (int i = 0; i < bodies; ++i) {
        retardedSpeedRow(m, b, i, m.VX1zap[i].data(), m.VY1zap[i].data(), m.VZ1zap[i].data());
        lineSpeedRow(m, b, i, m.VX1zap[i].data(), m.VY1zap[i].data(), m.VZ1zap[i].data());
        const double* __restrict dV1 = m.dV1[i].data();
        const double* __restrict dV2 = m.dV2[i].data();
        double* __restrict d2R = m.d2R[i].data();
        const double* __restrict dV1old = m.dV1old[i].data();
        const double* __restrict dV2old = m.dV2old[i].data();
        const bool rated = m.NDiffur >= 2 && m.NDiffur <= 4;
        if (m.kodAA == 0 && rated) {
            const double part = m.NDiffur == 4 ? 1 : 2;
            for (int j = 0; j < lanes; ++j) d2R[j] = part * (dV2[j] - dV2old[j] - dV1[j] + dV1old[j]) / Dt;
        } else if (m.kodAA == 1) {
            const double part = m.NDiffur == 4 ? 1.5 : 1;
            for (int j = 0; rated && j < lanes; ++j) {
                m.AV1[i][j] = part * m.BV1[i][j] * Dt + m.AV1old[i][j];
                m.AV2[i][j] = part * m.BV2[i][j] * Dt + m.AV2old[i][j];
            }
            for (int j = 0; j < lanes; ++j) d2R[j] = m.AV2[i][j] - m.AV1[i][j];
        }
        for (int j = 0; j < lanes; ++j) watch(sum, d2R[j]);
    }
    m.fullQuadrant = true;
    return sum;
}

}  // namespace tarvex::kernel
