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
    for (Trace* trace : {&motion.SledX, &motion.SledY, &motion.SledZ, &motion.SledXsave, &motion.SledYsave,
                         &motion.SledZsave})
        trace->resize(motion.NSled);
    for (int i = 0; i < bodies; ++i)
        for (int n = 0; n <= motion.NSled; ++n) {
            motion.SledX.at(n, i) = s.X[i] - s.Dt * s.VX[i] * n;
            motion.SledY.at(n, i) = s.Y[i] - s.Dt * s.VY[i] * n;
            motion.SledZ.at(n, i) = s.Z[i] - s.Dt * s.VZ[i] * n;
        }
}

void pushTrace(const ModelState& s, Motion& motion, double Tsec) {
    if (motion.kodDX != codeOf(Retardation::ByTrace) || motion.SledX.size() == 0 ||
        motion.Tsled + s.Dt > Tsec)
        return;
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
    formPairs(motion);
    const double dx = motion.DXp[i][j], dy = motion.DYp[i][j];
    double alfa = dy < 0 ? 3 * Pi / 2 : Pi / 2;
    if (dx != 0) alfa = std::atan(dy / dx);
    if (!motion.fullQuadrant) return alfa;
    if (dx <= 0) return alfa + Pi;  // also for dx = 0, where it turns the line round
    return dy <= 0 ? alfa + 2 * Pi : alfa;
}

double BettaIK(const Motion& motion, int i, int j) {
    formPairs(motion);
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
                                ? "сила, ускорение или скорость вдоль линии - не число"
                                : "два тела в одном месте, одно над другим или слишком далеко друг от друга");
}

void formWeights(const ModelState& s, Motion& motion) {
    PairWeights& w = motion.weights;
    if (w.formed && w.gamma == s.gamma && std::equal(w.m.begin(), w.m.end(), s.m.begin()) &&
        std::memcmp(&w.kodPair, &s.kodPair, sizeof w.kodPair) == 0)
        return;
    formPairs(motion);  // with the weights that the forces had
    std::copy_n(s.m.begin(), bodies, w.m.begin());
    w.gamma = s.gamma;
    w.kodPair = s.kodPair;
    w.symmetric = true;
    for (int j = 0; j < bodies; ++j) {
        w.perMass[j] = 1 / s.m[j];
        for (int i = 0; i < bodies; ++i) {
            const double other = s.kodPair[j][i] * s.m[j] * s.m[i] * s.gamma;
            w.force[i][j] = i == j ? 0 : s.kodPair[i][j] * s.m[i] * s.m[j] * s.gamma;
            w.upper[i][j] = i < j ? w.force[i][j] : 0;
            w.active[j][i] = s.kodPair[i][j] != 0 ? 1 : 0;
            w.symmetric &= i == j || w.force[i][j] == other;
        }
    }
    w.formed = true;
}

}  // namespace kernel

WeightsHeld::WeightsHeld(const ModelState& s, Motion& motion) : motion_(motion) {
    kernel::formWeights(s, motion);
    motion.weights.held = true;
}

}  // namespace tarvex
