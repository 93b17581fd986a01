#include "numeric/gravity_bench.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

double length(double x, double y, double z) { return std::sqrt(x * x + y * y + z * z); }

double attraction(const ModelState& s, const GravityBench& b, double L) {
    return b.m1 * b.m2 * s.gamma / L / L;
}

/// Coordinate of the trace on one axis for a delay T; `before` is that of the last iteration.
double SledFind(const Motion& m, const Trace& saved, const Rows& X, const Rows& VX, const BodyArray& AX,
                int body, double T, double Dt, double before) {
    const double straight = X[body] - VX[body] * T, curved = straight + AX[body] * T * T / 2;
    if (m.kodDX == codeOf(Retardation::BySpeeds)) return straight;
    if (m.kodDX == codeOf(Retardation::ByAccelerations)) return curved;
    const double dT = m.dTstageSave;
    if (T > m.NSled * Dt + dT) return curved;
    if (saved.size() == 0) throw SubscriptFailure("след движения пуст");
    if (T <= dT) return X[body] - (X[body] - saved.at(0, body)) * T / dT;
    for (int n = 0; n < m.NSled && n + 1 < saved.size(); ++n)
        if (n * Dt + dT < T && T < (n + 1) * Dt + dT)
            return saved.at(n, body) - (saved.at(n, body) - saved.at(n + 1, body)) * (T - dT - Dt * n) / Dt;
    return before;  // exactly on a point of the trace: the last place stays, as in the right-hand side
}

GravityBench::Point traceOf(const ModelState& s, const Motion& m, const GravityBench& b, int body, double T,
                            const GravityBench::Point& before) {
    if (!b.useTrace || m.kodDX == codeOf(Retardation::None)) return {s.X[body], s.Y[body], s.Z[body]};
    return {SledFind(m, m.SledXsave, s.X, s.VX, m.AX, body, T, s.Dt, before.X),
            SledFind(m, m.SledYsave, s.Y, s.VY, m.AY, body, T, s.Dt, before.Y),
            SledFind(m, m.SledZsave, s.Z, s.VZ, m.AZ, body, T, s.Dt, before.Z)};
}

/// Projection of a velocity on the line, from the signs of the present velocity and the sizes of the one that
/// counts.
double projection(double cosA, double sinA, double cosB, double sinB, double vx, double vy, double vz,
                  double x, double y, double z) {
    const auto sign = [](double v) { return v < 0 ? -1.0 : 1.0; };
    return sign(vz) * sinB * std::abs(z) + cosB * sign(vx) * cosA * std::abs(x) +
           cosB * sign(vy) * sinA * std::abs(y);
}

void act(const ModelState& s, const Motion& m, const GravityBench& b, int i, int k,
         const GravityBench::Point& from, GravityBench::Action& a) {
    a.DX = s.X[k] - from.X;
    a.DY = s.Y[k] - from.Y;
    a.DZ = s.Z[k] - from.Z;
    const double Rxy = std::sqrt(a.DX * a.DX + a.DY * a.DY);
    a.L = length(a.DX, a.DY, a.DZ);
    ratio(1, Rxy);
    a.T = ratio(a.L, m.Vgr);
    a.Betta = std::atan(a.DZ / Rxy);
    // the longitude in its quadrant; on the Y axis half a turn is added to it as well, as in the right-hand
    // side
    a.Alfa = a.DX == 0 ? (a.DY < 0 ? 2.5 : 1.5) * Pi
                       : std::atan(a.DY / a.DX) + (a.DX < 0    ? Pi
                                                   : a.DY <= 0 ? 2 * Pi
                                                               : 0);
    const double cosA = std::cos(a.Alfa), sinA = std::sin(a.Alfa), cosB = Rxy / a.L, sinB = a.DZ / a.L;

    const auto angles = [&](int body, double& x, double& y, double& z) {
        x = wrapped((s.VX[body] < 0 ? Pi : 0) - a.Alfa);
        y = wrapped((s.VY[body] < 0 ? 1.5 : 0.5) * Pi - a.Alfa);
        z = (s.VZ[body] < 0 ? -0.5 : 0.5) * Pi - a.Betta;
    };
    angles(i, a.dAlfaVX1, a.dAlfaVY1, a.dBettaVZ1);
    angles(k, a.dAlfaVX2, a.dAlfaVY2, a.dBettaVZ2);

    const bool late = m.kodVgr == 1 && m.kodDX > 0;  // by the codes of the run, as in the right-hand side
    a.VX = s.VX[i] - (late ? m.AX[i] * a.T : 0);
    a.VY = s.VY[i] - (late ? m.AY[i] * a.T : 0);
    a.VZ = s.VZ[i] - (late ? m.AZ[i] * a.T : 0);
    a.dV1 = projection(cosA, sinA, cosB, sinB, s.VX[i], s.VY[i], s.VZ[i], a.VX, a.VY, a.VZ);
    a.dV2 = projection(cosA, sinA, cosB, sinB, s.VX[k], s.VY[k], s.VZ[k], s.VX[k], s.VY[k], s.VZ[k]);

    // the pull is directed at the trace
    a.F = a.Fs = attraction(s, b, a.L);
    if (b.usePressure) a.F = ratio((1 - m.kPgr1 * a.dV2 / m.Vgr) * a.Fs, 1 - m.kPgr2 * a.dV1 / m.Vgr);
    const auto components = [&](double F, double& x, double& y, double& z) {
        x = -F * a.DX / a.L;
        y = -F * a.DY / a.L;
        z = -F * a.DZ / a.L;
    };
    components(a.Fs, a.FXs, a.FYs, a.FZs);
    components(a.F, a.FX, a.FY, a.FZ);
}

}  // namespace

void benchPlace(ModelState& s, Motion& motion, int body, double L) {
    InitMassesSer0(s);
    for (Rows* row : {&s.X, &s.Y, &s.Z, &s.VX, &s.VY, &s.VZ}) (*row)[0] = 0;
    motion.AX = motion.AY = motion.AZ = {};
    if (body == 0) return;
    s.Ipl = static_cast<std::int16_t>(body);
    ElementsSer0(s);
    const double R = s.R0sr[body], v = R * s.W0sr[body], cosB = std::cos(s.Betta0[body]);
    s.X[body] = std::cos(L) * R * cosB;
    s.Y[body] = std::sin(L) * R * cosB;
    s.Z[body] = 0;
    s.VX[body] = std::abs(std::sin(L)) * v * cosB;
    if (L < Pi) s.VX[body] = -s.VX[body];
    s.VY[body] = std::abs(std::cos(L)) * v * cosB;
    if (L > Pi / 2 && L < 3 * Pi / 2) s.VY[body] = -s.VY[body];
    s.VZ[body] = v * std::sin(s.Betta0[body]);
}

void BenchLawInUse::exchange() {
    std::swap(motion_.Vgr, law_.Vgr);
    std::swap(motion_.kPgr1, law_.kPgr1);
    std::swap(motion_.kPgr2, law_.kPgr2);
    std::swap(motion_.AX, law_.AX);
    std::swap(motion_.AY, law_.AY);
    std::swap(motion_.AZ, law_.AZ);
}

GravityBench benchPair(const std::array<bool, 10>& ticked) {
    GravityBench b;
    int count = 0;
    for (int i = 0; i < static_cast<int>(ticked.size()); ++i) {
        if (!ticked[i]) continue;
        if (++count > 2) throw Refusal("Должно быть отмечено только 2 объекта", "Tarvex7");
        (count == 1 ? b.N1 : b.N2) = i;
    }
    if (count < 2) throw Failure("должно быть отмечено 2 объекта, а не " + std::to_string(count));
    return b;
}

void benchPlacePair(ModelState& s, Motion& motion, const GravityBench& b, double Vgr, double kPgr1,
                    double kPgr2, double L1, double L2) {
    ratio(1, Vgr);
    motion.Vgr = Vgr;
    motion.kPgr1 = kPgr1;
    motion.kPgr2 = kPgr2;
    benchPlace(s, motion, b.N1, L1);
    benchPlace(s, motion, b.N2, L2);
}

void benchAddVelocity(ModelState& s, const GravityBench& b, double VX, double VY, double VZ) {
    for (const int i : {b.N1, b.N2}) {
        s.VX[i] = finite(s.VX[i] + 1000 * VX);
        s.VY[i] = finite(s.VY[i] + 1000 * VY);
        s.VZ[i] = finite(s.VZ[i] + 1000 * VZ);
    }
}

void benchRestore(ModelState& s, Motion& motion) {
    for (int i = 0; i < bodies; ++i) {
        s.X[i] = motion.Xsave[i], s.Y[i] = motion.Ysave[i], s.Z[i] = motion.Zsave[i];
        s.VX[i] = motion.VXsave[i], s.VY[i] = motion.VYsave[i], s.VZ[i] = motion.VZsave[i];
    }
    motion.AX = motion.AXsave;
    motion.AY = motion.AYsave;
    motion.AZ = motion.AZsave;
}

void benchPresent(const ModelState& s, const Motion& motion, GravityBench& b) {
    const double dx = s.X[b.N2] - s.X[b.N1], dy = s.Y[b.N2] - s.Y[b.N1], dz = s.Z[b.N2] - s.Z[b.N1];
    GravityBench::Present& p = b.present;
    p.L = length(dx, dy, dz);
    ratio(1, std::sqrt(dx * dx + dy * dy));
    p.T = ratio(p.L, motion.Vgr);
    b.m1 = s.m[b.N1];
    b.m2 = s.m[b.N2];
    p.F = finite(attraction(s, b, p.L));
    p.FX = std::abs(dx) / p.L * p.F;
    p.FY = std::abs(dy) / p.L * p.F;
    p.FZ = std::abs(dz) / p.L * p.F;
    b.NDiffur = 0;
    b.a12 = b.a21 = {};
    b.a12.T = b.a21.T = p.T;
    b.trace1 = {s.X[b.N1], s.Y[b.N1], s.Z[b.N1]};
    b.trace2 = {s.X[b.N2], s.Y[b.N2], s.Z[b.N2]};
}

void benchIterate(const ModelState& s, const Motion& motion, GravityBench& b) {
    b.delay1 = b.a12.T;
    b.delay2 = b.a21.T;
    b.trace1 = traceOf(s, motion, b, b.N1, b.delay1, b.trace1);
    b.trace2 = traceOf(s, motion, b, b.N2, b.delay2, b.trace2);
    act(s, motion, b, b.N1, b.N2, b.trace1, b.a12);
    act(s, motion, b, b.N2, b.N1, b.trace2, b.a21);
    ++b.NDiffur;
}

}  // namespace tarvex
