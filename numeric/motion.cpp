#include "numeric/motion.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "numeric/lane_kernels.h"

namespace tarvex {

void Trace::resize(int last) {
    size_ = last + 1;
    head_ = 0;
    cells_.assign(static_cast<std::size_t>(size_) * bodies, 0);
}

void fillTrace(const ModelState& s, Motion& motion) {
    motion.NSled = std::max<std::int16_t>(2, toInt16(ratio(ratio(5 * Vsv * 3600, motion.Vgr), s.Dt)));
    motion.SledX.resize(motion.NSled);
    motion.SledY.resize(motion.NSled);
    motion.SledZ.resize(motion.NSled);
    for (int i = 0; i < bodies; ++i)
        for (int n = 0; n <= motion.NSled; ++n) {
            motion.SledX.at(n, i) = s.X[i] - s.Dt * s.VX[i] * n;
            motion.SledY.at(n, i) = s.Y[i] - s.Dt * s.VY[i] * n;
            motion.SledZ.at(n, i) = s.Z[i] - s.Dt * s.VZ[i] * n;
        }
}

void pushTrace(const ModelState& s, Motion& motion, double Tsec) {
    if (motion.kodDX != 3 || motion.SledX.size() == 0 || motion.Tsled + s.Dt > Tsec) return;
    motion.SledX.shift();
    motion.SledY.shift();
    motion.SledZ.shift();
    for (int i = 0; i < bodies; ++i) {
        motion.SledX.at(0, i) = s.X[i];
        motion.SledY.at(0, i) = s.Y[i];
        motion.SledZ.at(0, i) = s.Z[i];
    }
    motion.Tsled += s.Dt;
}

double AlfaIK(const Motion& motion, int i, int j) {
    const double dx = motion.DXp[i][j], dy = motion.DYp[i][j];
    double alfa = dy < 0 ? 3 * Pi / 2 : Pi / 2;
    if (dx != 0) alfa = std::atan(dy / dx);
    if (!motion.fullQuadrant) return alfa;
    if (dx <= 0) return alfa + Pi;  // also for dx = 0, where it turns the line round
    return dy <= 0 ? alfa + 2 * Pi : alfa;
}

double BettaIK(const Motion& motion, int i, int j) {
    const double flat = std::hypot(motion.DXp[i][j], motion.DYp[i][j]);
    return flat == 0 ? 0 : std::atan(motion.DZp[i][j] / flat);
}

double AlfaVX(double VX) { return VX < 0 ? Pi : 0; }
double AlfaVY(double VY) { return VY < 0 ? 3 * Pi / 2 : Pi / 2; }
double BettaVZ(double VZ) { return VZ < 0 ? -Pi / 2 : Pi / 2; }

namespace kernel {

void toLanes(const ModelState& s, BodyLanes& b) {
    constexpr std::size_t size = sizeof(double) * lanes;
    std::memcpy(b.x.data(), s.X.data(), size);
    std::memcpy(b.y.data(), s.Y.data(), size);
    std::memcpy(b.z.data(), s.Z.data(), size);
    std::memcpy(b.vx.data(), s.VX.data(), size);
    std::memcpy(b.vy.data(), s.VY.data(), size);
    std::memcpy(b.vz.data(), s.VZ.data(), size);
}

void unpack(const Motion& m, ModelState& s, BodyLanes& b) {
    const auto block = [&](int first, Rows& row, BodyArray& lane) {
        std::memcpy(row.data(), &m.U[first], sizeof(double) * bodies);
        std::memcpy(lane.data(), &m.U[first], sizeof(double) * lanes);
    };
    block(0, s.X, b.x);
    block(bodies, s.Y, b.y);
    block(2 * bodies, s.Z, b.z);
    block(3 * bodies, s.VX, b.vx);
    block(4 * bodies, s.VY, b.vy);
    block(5 * bodies, s.VZ, b.vz);
}

void checkWatch(Motion& m, const Watch& watch) {
    if (watch.distancesFine() && watch.numbersFine()) return;
    dropNonNumbers(m);
    throw ArithmeticFailure(watch.distancesFine()
                                ? "a force, an acceleration or a speed along a line is not a number"
                                : "two bodies at one place, one above the other or too far from each other");
}

void formWeights(const ModelState& s, PairWeights& w) {
    if (w.formed && w.gamma == s.gamma && std::memcmp(w.m.data(), s.m.data(), sizeof w.m) == 0 &&
        std::memcmp(&w.kodPair, &s.kodPair, sizeof w.kodPair) == 0)
        return;
    std::copy_n(s.m.begin(), bodies, w.m.begin());
    w.gamma = s.gamma;
    w.kodPair = s.kodPair;
    for (int j = 0; j < bodies; ++j) {
        w.perMass[j] = 1 / s.m[j];
        for (int i = 0; i < bodies; ++i) {
            w.force[i][j] = i == j ? 0 : s.kodPair[i][j] * s.m[i] * s.m[j] * s.gamma;
            w.active[j][i] = s.kodPair[i][j] != 0 ? 1 : 0;
        }
    }
    w.formed = true;
}

/// The interval n*Dt+start < T < (n+1)*Dt+start, bounds excluded, or -1: the last one of 0..NSled-1 that
/// holds T.
static int traceInterval(double T, double start, double Dt, int NSled) {
    if (!(T > start) || !(Dt > 0)) return -1;
    const int guess = static_cast<int>(std::floor(std::min((T - start) / Dt, 40000.0)));
    for (int n = std::min(guess + 1, NSled - 1); n >= std::max(guess - 1, 0); --n)
        if (n * Dt + start < T && T < (n + 1) * Dt + start) return n;
    return -1;
}

/// Row i of the differences by the trace of body i, with the delays that stand in Tik.
static void tracedRow(const ModelState& s, Motion& m, const BodyLanes& b, int i) {
    const auto axis = [&](double& d, double T, int n, double xj, double xi, double v, double a,
                          const Trace& trace) {
        if (T <= m.dTstage) {
            d = xj - xi + (xi - trace.at(0, i)) * T / m.dTstage;
        } else if (T > m.NSled * s.Dt + m.dTstage) {
            d = xj - xi + v * T - a * T * T / 2;
        } else if (n >= 0) {
            const double q = (T - m.dTstage - s.Dt * n) / s.Dt;
            d = xj - trace.at(n, i) + (trace.at(n, i) - trace.at(n + 1, i)) * q;
        }
    };
    for (int j = 0; j < bodies; ++j) {
        if (j == i) continue;
        const double T = m.Tik[i][j];
        const int n = traceInterval(T, m.dTstage, s.Dt, m.NSled);
        axis(m.DXp[i][j], T, n, b.x[j], b.x[i], b.vx[i], m.AX[i], m.SledX);
        axis(m.DYp[i][j], T, n, b.y[j], b.y[i], b.vy[i], m.AY[i], m.SledY);
        axis(m.DZp[i][j], T, n, b.z[j], b.z[i], b.vz[i], m.AZ[i], m.SledZ);
    }
}

void tracedLines(const ModelState& s, Motion& m, const BodyLanes& b, Watch& watch) {
    if (m.SledX.size() == 0 || m.SledX.size() <= m.NSled)
        throw SubscriptFailure("the trace has not been made");
    const auto distances = [&](int i) {
        for (int j = 0; j < lanes; j += 4) {
            const Line line =
                lineOf(at(m.DXp[i], j), at(m.DYp[i], j), at(m.DZp[i], j), at(idleTable.idle[i], j));
            put(m.Rik[i], j, line.r);
            put(m.Tik[i], j, line.r / m.Vgr);  // exact where a delay falls on the grid
            watch.nonZero(line.flat);
            watch.notHuge(line.r);
        }
    };
    for (int i = 0; i < bodies; ++i) {
        for (int j = 0; j < lanes; ++j) {
            m.DXp[i][j] = b.x[j] - b.x[i];
            m.DYp[i][j] = b.y[j] - b.y[i];
            m.DZp[i][j] = b.z[j] - b.z[i];
        }
        distances(i);
        for (int iteration = 1; iteration <= 2; ++iteration) {
            tracedRow(s, m, b, i);
            distances(i);
        }
    }
}

}  // namespace kernel
}  // namespace tarvex
