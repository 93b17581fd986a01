#include "numeric/motion.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/name_table.h"
#include "core/numbers.h"
#include "numeric/lane_kernels.h"
#include "numeric/pressure_laws.h"

namespace tarvex {

// every array of one value a pair, for the names and for clearing
#define TARVEX_PAIR_ARRAYS(EACH)                                                                             \
    EACH(DXp)                                                                                                \
    EACH(DYp) EACH(DZp) EACH(Rxy) EACH(Rik) EACH(Tik) EACH(Fik) EACH(FXik) EACH(FYik) EACH(FZik)             \
        EACH(VX1zap) EACH(VY1zap) EACH(VZ1zap) EACH(V1zap) EACH(VX0zap) EACH(VY0zap) EACH(VZ0zap) EACH(dVX1) \
            EACH(dVY1) EACH(dVZ1) EACH(dV1) EACH(dVX2) EACH(dVY2) EACH(dVZ2) EACH(dV2) EACH(dR) EACH(d2R)    \
                EACH(dV1old) EACH(dV2old) EACH(AV1) EACH(AV2) EACH(AV1old) EACH(AV2old) EACH(BV1) EACH(BV2)  \
                    EACH(AX1zap) EACH(AY1zap) EACH(AZ1zap) EACH(A1zap) EACH(AX0zap) EACH(AY0zap)             \
                        EACH(AZ0zap) EACH(Ve) EACH(Rf)
#define TARVEX_BODY_ARRAYS(EACH) \
    EACH(AX) EACH(AY) EACH(AZ) EACH(AXold) EACH(AYold) EACH(AZold) EACH(JX) EACH(JY) EACH(JZ)

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
    return motion.Rxy[i][j] == 0 ? 0 : std::atan(motion.DZp[i][j] / motion.Rxy[i][j]);
}

double AlfaVX(double VX) { return VX < 0 ? Pi : 0; }
double AlfaVY(double VY) { return VY < 0 ? 3 * Pi / 2 : Pi / 2; }
double BettaVZ(double VZ) { return VZ < 0 ? -Pi / 2 : Pi / 2; }

void dropNonNumbers(Motion& motion) {
    const auto drop = [](auto& values) {
        for (double& v : values)
            if (!std::isfinite(v)) v = 0;
    };
    drop(motion.dU);
    drop(motion.Phi);
#define DROP_BODY(name) drop(motion.name);
#define DROP_PAIR(name) \
    for (auto& row : motion.name) drop(row);
    TARVEX_BODY_ARRAYS(DROP_BODY)
    TARVEX_PAIR_ARRAYS(DROP_PAIR)
#undef DROP_BODY
#undef DROP_PAIR
}

namespace {

/// A value for one pair of bodies by its two indices; 0 for a body with itself.
template <class Value>
void addPair(NameTable& table, const char* name, Value value) {
    table.addComputed(name, [value](const std::vector<int>& index) {
        if (index.size() != 2) throw SubscriptFailure("a pair has two indices");
        for (const int i : index)
            if (i < 0 || i >= bodies) throw SubscriptFailure("index out of range");
        return toFullText(index[0] == index[1] ? 0.0 : value(index[0], index[1]));
    });
}

template <class Value>
void addBody(NameTable& table, const char* name, Value value) {
    table.addComputed(name, [value](const std::vector<int>& index) {
        if (index.size() != 1 || index[0] < 0 || index[0] >= bodies)
            throw SubscriptFailure("index out of range");
        return toFullText(value(index[0]));
    });
}

void addTrace(NameTable& table, const char* name, const Trace& trace) {
    table.addComputed(name, [&trace](const std::vector<int>& index) {
        if (index.size() != 2 || index[0] < 0 || index[0] >= trace.size() || index[1] < 0 ||
            index[1] >= bodies)
            throw SubscriptFailure("index out of range");
        return toFullText(trace.at(index[0], index[1]));
    });
}

/// An angle between -Pi and Pi by one turn at most.
double wrapped(double angle) { return angle > Pi ? angle - 2 * Pi : angle < -Pi ? angle + 2 * Pi : angle; }

}  // namespace

void addNames(NameTable& table, const Motion& motion) {
    const Motion* m = &motion;
#define NAME(variable) table.add(#variable, motion.variable)
    NAME(U);
    NAME(dU);
    NAME(kodVgr);
    NAME(kodOTO);
    NAME(kodDX);
    NAME(kodPgr);
    NAME(kodSun);
    NAME(kodDiffurV);
    NAME(kodAA);
    NAME(kodLVsimple);
    NAME(kodEpot);
    NAME(kodXcm);
    NAME(kodCMnow);
    NAME(kPgr1);
    NAME(kPgr2);
    NAME(Vgr);
    NAME(nR);
    NAME(Vsv2);
    NAME(Phi);
    NAME(DtOld);
    NAME(NDiffur);
    NAME(dTstage);
    NAME(NSled);
    NAME(Tsled);
    NAME(N1);
    NAME(N2);
#undef NAME
#define NAME_BODY(name) addBody(table, #name, [m](int i) { return m->name[i]; });
#define NAME_PAIR(name) addPair(table, #name, [m](int i, int j) { return m->name[i][j]; });
    TARVEX_BODY_ARRAYS(NAME_BODY)
    TARVEX_PAIR_ARRAYS(NAME_PAIR)
#undef NAME_BODY
#undef NAME_PAIR
    addTrace(table, "SledX", motion.SledX);
    addTrace(table, "SledY", motion.SledY);
    addTrace(table, "SledZ", motion.SledZ);
    addTrace(table, "SledXsave", motion.SledXsave);
    addTrace(table, "SledYsave", motion.SledYsave);
    addTrace(table, "SledZsave", motion.SledZsave);

    // the angles are not kept: the equations go by direction cosines
    const auto vx = [m](int i) { return m->U[33 + i]; };
    const auto vy = [m](int i) { return m->U[44 + i]; };
    const auto vz = [m](int i) { return m->U[55 + i]; };
    addBody(table, "AlfaVX", [vx](int i) { return AlfaVX(vx(i)); });
    addBody(table, "AlfaVY", [vy](int i) { return AlfaVY(vy(i)); });
    addBody(table, "BettaVZ", [vz](int i) { return BettaVZ(vz(i)); });
    addPair(table, "AlfaIK", [m](int i, int j) { return AlfaIK(*m, i, j); });
    addPair(table, "BettaIK", [m](int i, int j) { return BettaIK(*m, i, j); });
    addPair(table, "dAlfaVX1", [=](int i, int j) { return wrapped(AlfaVX(vx(i)) - AlfaIK(*m, i, j)); });
    addPair(table, "dAlfaVY1", [=](int i, int j) { return wrapped(AlfaVY(vy(i)) - AlfaIK(*m, i, j)); });
    addPair(table, "dBettaVZ1", [=](int i, int j) { return BettaVZ(vz(i)) - BettaIK(*m, i, j); });
    addPair(table, "dAlfaVX2", [=](int i, int j) { return wrapped(AlfaVX(vx(j)) - AlfaIK(*m, i, j)); });
    addPair(table, "dAlfaVY2", [=](int i, int j) { return wrapped(AlfaVY(vy(j)) - AlfaIK(*m, i, j)); });
    addPair(table, "dBettaVZ2", [=](int i, int j) { return BettaVZ(vz(j)) - BettaIK(*m, i, j); });
}

namespace kernel {

void toLanes(const ModelState& s, BodyLanes& b) {
    for (int i = 0; i < bodies; ++i) {
        b.x[i] = s.X[i];
        b.y[i] = s.Y[i];
        b.z[i] = s.Z[i];
        b.vx[i] = s.VX[i];
        b.vy[i] = s.VY[i];
        b.vz[i] = s.VZ[i];
    }
}

void unpack(const Motion& m, ModelState& s, BodyLanes& b) {
    for (int i = 0; i < bodies; ++i) {
        b.x[i] = s.X[i] = m.U[i];
        b.y[i] = s.Y[i] = m.U[i + 11];
        b.z[i] = s.Z[i] = m.U[i + 22];
        b.vx[i] = s.VX[i] = m.U[i + 33];
        b.vy[i] = s.VY[i] = m.U[i + 44];
        b.vz[i] = s.VZ[i] = m.U[i + 55];
    }
}

void fail(Motion& m, const char* what) {
    dropNonNumbers(m);
    throw ArithmeticFailure(what);
}

void formWeights(const ModelState& s, PairWeights& w) {
    const bool sameMasses = std::equal(w.m.begin(), w.m.end(), s.m.begin());
    if (w.formed && sameMasses && w.gamma == s.gamma && w.kodPair == s.kodPair) return;
    std::copy_n(s.m.begin(), bodies, w.m.begin());
    w.gamma = s.gamma;
    w.kodPair = s.kodPair;
    for (int i = 0; i < bodies; ++i)
        for (int j = 0; j < bodies; ++j) {
            w.force[i][j] = i == j ? 0 : s.kodPair[i][j] * s.m[i] * s.m[j] * s.gamma;
            w.active[i][j] = s.kodPair[j][i] != 0 ? 1 : 0;
        }
    w.formed = true;
}

/// The interval n*Dt+start < T < (n+1)*Dt+start, bounds excluded, or -1: the last one of 0..NSled-1 that
/// holds T.
static int traceInterval(double T, double start, double Dt, int NSled) {
    const int guess = static_cast<int>(std::floor(std::min((T - start) / Dt, 40000.0)));
    for (int n = std::min(guess + 1, NSled - 1); n >= std::max(guess - 1, 0); --n)
        if (n * Dt + start < T && T < (n + 1) * Dt + start) return n;
    return -1;
}

void tracedRow(const ModelState& s, Motion& m, const BodyLanes& b, int i) {
    const auto axis = [&](double& d, double T, int j, const BodyArray& x, double v, double a,
                          const Trace& trace) {
        if (T <= m.dTstage) {
            d = x[j] - x[i] + (x[i] - trace.at(0, i)) * T / m.dTstage;
        } else if (T <= m.NSled * s.Dt + m.dTstage) {
            const int n = traceInterval(T, m.dTstage, s.Dt, m.NSled);
            if (n < 0) return;
            const double q = (T - m.dTstage - s.Dt * n) / s.Dt;
            d = x[j] - trace.at(n, i) + (trace.at(n, i) - trace.at(n + 1, i)) * q;
        } else {
            d = x[j] - x[i] + v * T - a * T * T / 2;
        }
    };
    for (int j = 0; j < bodies; ++j) {
        if (j == i) continue;
        const double T = m.Tik[i][j];
        axis(m.DXp[i][j], T, j, b.x, b.vx[i], m.AX[i], m.SledX);
        axis(m.DYp[i][j], T, j, b.y, b.vy[i], m.AY[i], m.SledY);
        axis(m.DZp[i][j], T, j, b.z, b.vz[i], m.AZ[i], m.SledZ);
    }
}

}  // namespace kernel
}  // namespace tarvex
