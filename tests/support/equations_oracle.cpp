#include "tests/support/equations_oracle.h"

#include <cmath>

namespace tarvex::literal {

namespace {
int sgn(double v) { return v > 0 ? 1 : v < 0 ? -1 : 0; }

/// Every ordered pair of two bodies.
template <class Action>
void eachPair(Action action) {
    for (int i = 0; i <= 10; ++i)
        for (int j = 0; j <= 10; ++j)
            if (i != j) action(i, j);
}

/// The line of a pair at present.
void straight(Equations& e, int i, int j) {
    for (const auto& q : e.axes()) q.d[i][j] = q.p[j] - q.p[i];
}
}  // namespace

void Equations::unpack() {
    for (const Axis& q : axes())
        for (int i = 0; i <= 10; ++i) q.p[i] = U[i + q.at], q.v[i] = U[i + q.at + 33];
}

void Equations::distances(int i, int j) {
    Rxy[i][j] = std::sqrt(DXp[i][j] * DXp[i][j] + DYp[i][j] * DYp[i][j]);
    Rik[i][j] = std::sqrt(Rxy[i][j] * Rxy[i][j] + DZp[i][j] * DZp[i][j]);
    Tik[i][j] = Rik[i][j] / Vgr;
}

void Equations::retardBy(int form, int i, int j) {
    const double T = Tik[i][j];
    const double half = form == 2 ? 1. / 2 : 0;
    for (const Axis& q : axes()) q.d[i][j] = q.p[j] - q.p[i] + q.v[i] * T - q.a[i] * T * T * half;
}

void Equations::retardByTrace(int i, int j) {
    const double T = Tik[i][j], Dt = s->Dt;
    if (T <= dTstage) {
        for (const Axis& q : axes()) q.d[i][j] = q.p[j] - q.p[i] + (q.p[i] - q.trace[0][i]) * T / dTstage;
    } else if (T <= NSled * Dt + dTstage) {
        for (int n = 0; n <= NSled - 1; ++n) {
            if (n * Dt + dTstage < T && T < (n + 1) * Dt + dTstage) {
                const double part = (T - dTstage - Dt * n) / Dt;
                for (const Axis& q : axes())
                    q.d[i][j] = q.p[j] - q.trace[n][i] + (q.trace[n][i] - q.trace[n + 1][i]) * part;
            }
        }
    } else {
        retardBy(2, i, j);
    }
}

void Equations::angles(int i, int j) {
    BettaIK[i][j] = std::atan(DZp[i][j] / Rxy[i][j]);
    AlfaIK[i][j] = DYp[i][j] < 0 ? 3 * Pi / 2 : Pi / 2;
    if (DXp[i][j] != 0) AlfaIK[i][j] = std::atan(DYp[i][j] / DXp[i][j]);
}

void Equations::Diffur() {
    unpack();
    eachPair([&](int i, int j) {
        straight(*this, i, j);
        distances(i, j);
        Fik[i][j] = s->kodPair[i][j] * s->m[i] * s->m[j] * s->gamma / std::pow(Rik[i][j], nR);
    });
    if (kodVgr != 0 && kodDX != 0)
        for (int iteration = 1; iteration <= 2; ++iteration)
            eachPair([&](int i, int j) {
                if (kodDX == 3)
                    retardByTrace(i, j);
                else
                    retardBy(kodDX, i, j);
                distances(i, j);
            });
    eachPair([&](int i, int j) {
        Fik[i][j] = s->kodPair[i][j] * s->m[i] * s->m[j] * s->gamma / std::pow(Rik[i][j], nR);
        angles(i, j);
        const double A = AlfaIK[i][j], B = BettaIK[i][j];
        FXik[i][j] = std::fabs(std::cos(A) * std::cos(B)) * Fik[i][j];
        FYik[i][j] = std::fabs(std::sin(A) * std::cos(B)) * Fik[i][j];
        FZik[i][j] = std::fabs(std::sin(B)) * Fik[i][j];
        for (const Axis& q : axes())
            if (q.d[i][j] > 0) q.f[i][j] = -q.f[i][j];
    });
    if (kodPgr != 0 && kodVgr != 0) {
        NDiffur += 1;
        if (kodDiffurV == 1) stageSpeeds();
        eachPair([&](int i, int j) {
            if (kodPgr == 5)
                lienardWiechert(i, j);
            else
                factorLaw(i, j);
        });
    }
    for (int n = 0; n <= 32; ++n) dU[n] = U[n + 33];
    for (int n = 33; n <= 65; ++n) dU[n] = 0;
    eachPair([&](int i, int j) {
        for (const Axis& q : axes()) dU[33 + q.at + j] += q.f[i][j] / s->m[j];
    });
}

void Equations::velocityDirections() {
    for (int i = 0; i <= 10; ++i) {
        AlfaVX[i] = VX[i] < 0 ? Pi : 0;
        AlfaVY[i] = VY[i] < 0 ? 3 * Pi / 2 : Pi / 2;
        BettaVZ[i] = VZ[i] < 0 ? -Pi / 2 : Pi / 2;
    }
}

double Equations::retardedSpeed(const Axis& q, int i, int j) const {
    return q.v[i] - q.a[i] * (kodVgr == 1 && kodDX > 0 ? Tik[i][j] : 0);
}

void Equations::lineSpeeds(int i, int j, const Pairs& vx, const Pairs& vy, const Pairs& vz) {
    if (DXp[i][j] <= 0)
        AlfaIK[i][j] += Pi;
    else if (DYp[i][j] <= 0)
        AlfaIK[i][j] += 2 * Pi;
    const auto wrap = [](double a) { return a > Pi ? a - 2 * Pi : a < -Pi ? a + 2 * Pi : a; };
    dAlfaVX1[i][j] = wrap(AlfaVX[i] - AlfaIK[i][j]);
    dAlfaVY1[i][j] = wrap(AlfaVY[i] - AlfaIK[i][j]);
    dBettaVZ1[i][j] = BettaVZ[i] - BettaIK[i][j];
    dAlfaVX2[i][j] = wrap(AlfaVX[j] - AlfaIK[i][j]);
    dAlfaVY2[i][j] = wrap(AlfaVY[j] - AlfaIK[i][j]);
    dBettaVZ2[i][j] = BettaVZ[j] - BettaIK[i][j];
    const double flat = std::fabs(std::cos(BettaIK[i][j]));
    dVZ1[i][j] = std::cos(dBettaVZ1[i][j]) * std::fabs(vz[i][j]);
    dVX1[i][j] = flat * std::cos(dAlfaVX1[i][j]) * std::fabs(vx[i][j]);
    dVY1[i][j] = flat * std::cos(dAlfaVY1[i][j]) * std::fabs(vy[i][j]);
    dV1[i][j] = dVZ1[i][j] + dVX1[i][j] + dVY1[i][j];
    dVZ2[i][j] = std::cos(dBettaVZ2[i][j]) * std::fabs(VZ[j]);
    dVX2[i][j] = flat * std::cos(dAlfaVX2[i][j]) * std::fabs(VX[j]);
    dVY2[i][j] = flat * std::cos(dAlfaVY2[i][j]) * std::fabs(VY[j]);
    dV2[i][j] = dVZ2[i][j] + dVX2[i][j] + dVY2[i][j];
    dR[i][j] = dV2[i][j] - dV1[i][j];
}

void Equations::stageSpeeds() {
    const double h = s->DtCur;
    velocityDirections();
    eachPair([&](int i, int j) {
        for (const Axis& q : axes()) q.v1[i][j] = retardedSpeed(q, i, j);
        lineSpeeds(i, j, VX1zap, VY1zap, VZ1zap);
        if (kodAA == 0) {
            const double a = dV2[i][j] - dV2old[i][j] - dV1[i][j] + dV1old[i][j];
            if (NDiffur >= 2 && NDiffur <= 4) d2R[i][j] = (NDiffur == 4 ? 1 : 2) * a / h;
        } else {
            if (NDiffur >= 2 && NDiffur <= 4) {
                const double part = NDiffur == 4 ? 3. / 2 : 1;
                AV1[i][j] = part * BV1[i][j] * h + AV1old[i][j];
                AV2[i][j] = part * BV2[i][j] * h + AV2old[i][j];
            }
            d2R[i][j] = AV2[i][j] - AV1[i][j];
        }
    });
}

void Equations::factorLaw(int i, int j) {
    const double k1 = kPgr1, k2 = kPgr2, r = Rik[i][j], v = dR[i][j], a = d2R[i][j];
    const double Ve = Vgr + dV1[i][j];
    double& F = Fik[i][j];
    const auto size2 = [&](int n) { return VX[n] * VX[n] + VY[n] * VY[n] + VZ[n] * VZ[n]; };
    switch (kodPgr) {
        case 2:
            F = (1 - k1 * v * v / Vgr / Vgr + k2 * r * a / Vgr / Vgr) * F;
            break;
        case 3:
            F = (1 - k1 * v * v / Ve / Ve + k2 * r * a / Ve / Ve) * F;
            break;
        case 4:
            F = Ve * F * Ve * (Ve * Ve + k1 * v * v + k2 * r * a - 4 * Ve * v) / std::pow(Ve - v, 4);
            break;
        case 6:
            F = (1 - k1 * dV2[i][j] / Vgr) * F / (1 - k2 * dV1[i][j] / Vgr);
            break;
        case 7:
            F = std::sqrt(Vgr * Vgr + size2(j) - 2 * Vgr * dV2[i][j]) * F;
            F = F / std::sqrt(Vgr * Vgr + size2(i) - 2 * Vgr * dV1[i][j]);
            break;
        default:
            break;
    }
    const double A = AlfaIK[i][j], B = BettaIK[i][j];
    FZik[i][j] = sgn(FZik[i][j]) * F * std::fabs(std::sin(B));
    FXik[i][j] = sgn(FXik[i][j]) * F * std::fabs(std::cos(A) * std::cos(B));
    FYik[i][j] = sgn(FYik[i][j]) * F * std::fabs(std::sin(A) * std::cos(B));
}

void Equations::accelerationAlong(int i, int j) {
    const double flat = std::fabs(std::cos(BettaIK[i][j]));
    V1zap[i][j] =
        std::sqrt(VX1zap[i][j] * VX1zap[i][j] + VY1zap[i][j] * VY1zap[i][j] + VZ1zap[i][j] * VZ1zap[i][j]);
    A1zap[i][j] = std::cos(dBettaVZ1[i][j]) * std::fabs(AZ1zap[i][j]) +
                  flat * std::cos(dAlfaVX1[i][j]) * std::fabs(AX1zap[i][j]) +
                  flat * std::cos(dAlfaVY1[i][j]) * std::fabs(AY1zap[i][j]);
}

void Equations::lienardWiechert(int i, int j) {
    const double h = s->DtCur;
    if (kodDiffurV == 1) {
        const double part = NDiffur == 4 ? 1 : 2;
        for (const Axis& q : axes())
            if (NDiffur >= 2 && NDiffur <= 4)
                q.a1[i][j] =
                    kodAA == 0 ? part * (q.v1[i][j] - q.v0[i][j]) / h : h * q.jerk[i] / part + q.a0[i][j];
        accelerationAlong(i, j);
    }
    const double r = Rik[i][j], Rf = r - r * dV1[i][j] / Vgr, v2 = Vgr * Vgr;
    const double F = -s->kodPair[i][j] * s->m[i] * s->m[j] * s->gamma / std::pow(Rf, 3) / v2;
    Fik[i][j] = F;
    const bool full = kodLVsimple == 0;
    const double radial = full ? v2 + kPgr1 * r * A1zap[i][j] - V1zap[i][j] * V1zap[i][j] : v2;
    const double across = full ? r * Rf * kPgr2 : 0;
    for (const Axis& q : axes())
        q.f[i][j] = (radial * (q.d[i][j] - r * q.v1[i][j] / Vgr) - across * q.a1[i][j]) * F;
}

void Equations::SpeedUpdate() {
    if (kodPgr == 0) return;
    const double h = s->DtCur;
    velocityDirections();
    eachPair([&](int i, int j) {
        straight(*this, i, j);
        distances(i, j);
        for (int iteration = 1; kodVgr == 1 && kodDX > 0 && iteration <= 2; ++iteration) {
            retardBy(kodDX == 1 ? 1 : 2, i, j);
            distances(i, j);
        }
        angles(i, j);
        for (const Axis& q : axes()) q.v0[i][j] = retardedSpeed(q, i, j);
        lineSpeeds(i, j, VX0zap, VY0zap, VZ0zap);
        if (h == DtOld) {
            AV1[i][j] = (dV1[i][j] - dV1old[i][j]) / h;
            AV2[i][j] = (dV2[i][j] - dV2old[i][j]) / h;
            BV1[i][j] = (AV1[i][j] - AV1old[i][j]) / h;
            BV2[i][j] = (AV2[i][j] - AV2old[i][j]) / h;
        }
        dV1old[i][j] = dV1[i][j];
        dV2old[i][j] = dV2[i][j];
        AV1old[i][j] = AV1[i][j];
        AV2old[i][j] = AV2[i][j];
        if (kodDiffurV == 0) {
            dV1[i][j] = h * AV1old[i][j] / 2 + dV1old[i][j];
            dV2[i][j] = h * AV2old[i][j] / 2 + dV2old[i][j];
            AV1[i][j] = h * BV1[i][j] + AV1old[i][j];
            AV2[i][j] = h * BV2[i][j] + AV2old[i][j];
        } else {
            AV1[i][j] = h * BV1[i][j] / 2 + AV1old[i][j];
            AV2[i][j] = h * BV2[i][j] / 2 + AV2old[i][j];
        }
        dR[i][j] = dV2[i][j] - dV1[i][j];
        d2R[i][j] = AV2[i][j] - AV1[i][j];
    });
    if (kodPgr == 5) {
        for (const Axis& q : axes())
            for (int i = 0; i <= 10; ++i) {
                if (h == DtOld) q.jerk[i] = (q.a[i] - q.aOld[i]) / h;
                q.aOld[i] = q.a[i];
            }
        eachPair([&](int i, int j) {
            for (const Axis& q : axes()) {
                q.a0[i][j] = q.a1[i][j] = q.a[i] - q.jerk[i] * Tik[i][j];
                if (kodDiffurV != 0) continue;
                q.v1[i][j] = q.v0[i][j] + h * q.a[i] / 2;
                q.a1[i][j] = h * q.jerk[i] / 2 + q.a1[i][j];
            }
            accelerationAlong(i, j);
        });
    }
    DtOld = h;
}

void Equations::DiffurOTO() {
    unpack();
    double V[11], Phi[11];
    eachPair([&](int i, int j) {
        straight(*this, i, j);
        Rxy[i][j] = std::sqrt(DXp[i][j] * DXp[i][j] + DYp[i][j] * DYp[i][j]);
        Rik[i][j] = std::sqrt(Rxy[i][j] * Rxy[i][j] + DZp[i][j] * DZp[i][j]);
    });
    for (int i = 0; i <= 10; ++i) {
        V[i] = std::sqrt(VX[i] * VX[i] + VY[i] * VY[i] + VZ[i] * VZ[i]);
        Phi[i] = 0;
        for (int j = 0; j <= 10; ++j) FXik[i][j] = FYik[i][j] = FZik[i][j] = 0;
    }
    eachPair([&](int i, int k) { Phi[i] += s->gamma * s->m[k] / Rik[i][k]; });
    const double c2 = Vsv2;
    for (int i = 0; i <= 10; ++i)
        for (int j = 0; j <= 10; ++j) {
            if (j == i || s->kodPair[i][j] == 0) continue;
            const double dx = DXp[i][j], dy = DYp[i][j], dz = DZp[i][j], r = Rik[i][j];
            const double B = s->gamma * s->m[j] / std::pow(r, 3);
            const double C1 = 4 * Phi[i] + Phi[j];
            const double C2 = std::pow(V[i], 2) + 2 * std::pow(V[j], 2);
            const double C3 = 4 * (VX[i] * VX[j] + VY[i] * VY[j] + VZ[i] * VZ[j]);
            const double C4 = 3. / 2 * std::pow((-dx * VX[j] - dy * VY[j] - dz * VZ[j]) / r, 2);
            const double C5 = (dx * AX[j] + dy * AY[j] + dz * AZ[j]) / 2;
            const double D =
                (4 * VX[i] - 3 * VX[j]) * -dx + (4 * VY[i] - 3 * VY[j]) * -dy + (4 * VZ[i] - 3 * VZ[j]) * -dz;
            const double E = 7. / 2 * s->m[j] * s->gamma / r;
            const double C = c2 - C1 + C2 - C3 - C4 + C5;
            for (const Axis& q : axes())
                q.f[j][i] = (C * B * q.d[i][j] + B * D * (q.v[i] - q.v[j]) + E * q.a[j]) / c2;
        }
    for (int n = 0; n <= 32; ++n) dU[n] = U[n + 33];
    for (int n = 33; n <= 65; ++n) dU[n] = 0;
    for (int j = 0; j <= 10; ++j)
        for (int i = 0; i <= 10; ++i)
            for (const Axis& q : axes()) dU[33 + q.at + i] += q.f[j][i];
}

void Equations::fillTrace() {
    NSled = static_cast<int>(std::nearbyint(5 * Vsv * 3600 / Vgr / s->Dt));
    if (NSled < 2) NSled = 2;
    for (const Axis& q : axes()) {
        q.trace.assign(NSled + 1, std::vector<double>(11));
        for (int n = 0; n <= NSled; ++n)
            for (int i = 0; i <= 10; ++i) q.trace[n][i] = q.p[i] - s->Dt * q.v[i] * n;
    }
}

void Equations::pushTrace(double Tsec) {
    if (kodDX != 3 || Tsled + s->Dt > Tsec) return;
    for (const Axis& q : axes())
        for (int i = 0; i <= 10; ++i) {
            for (int n = NSled; n >= 1; --n) q.trace[n][i] = q.trace[n - 1][i];
            q.trace[0][i] = q.p[i];
        }
    Tsled += s->Dt;
}

}  // namespace tarvex::literal
