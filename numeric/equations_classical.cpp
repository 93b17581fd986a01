// Right-hand side of the classical model.

#include <cstring>

#include "core/failure.h"
#include "numeric/lane_kernels.h"
#include "numeric/pressure_laws.h"

namespace tarvex {
namespace kernel {

/// Row i of Fik and its components; they point the force on j towards i.
template <bool square>
TARVEX_ROW void forceRow(Motion& m, int i, double nR) {
    const double* __restrict dx = m.DXp[i].data();
    const double* __restrict dy = m.DYp[i].data();
    const double* __restrict dz = m.DZp[i].data();
    const double* __restrict r = m.Rik[i].data();
    const double* __restrict weight = m.weights.force[i].data();
    double* __restrict force = m.Fik[i].data();
    double* __restrict fx = m.FXik[i].data();
    double* __restrict fy = m.FYik[i].data();
    double* __restrict fz = m.FZik[i].data();
    for (int j = 0; j < lanes; ++j) {
        const double inverse = 1 / r[j];
        const double f = square ? weight[j] * inverse * inverse : weight[j] / std::pow(r[j], nR);
        const double q = f * inverse;
        force[j] = f;
        fx[j] = -dx[j] * q;
        fy[j] = -dy[j] * q;
        fz[j] = -dz[j] * q;
    }
}

template <int form, bool square>
TARVEX_ROW void forceRows(ModelState& s, Motion& m, const BodyLanes& b, Extremes& seen) {
    for (int i = 0; i < bodies; ++i) {
        presentRow(m, b, i);
        distanceRow(m, i, seen);
        // two iterations by count, not until they settle
        for (int iteration = 1; form != 0 && iteration <= 2; ++iteration) {
            if constexpr (form == 1) retardedRow<1>(m, b, i);
            if constexpr (form == 2) retardedRow<2>(m, b, i);
            if constexpr (form == 3) tracedRow(s, m, b, i);
            distanceRow(m, i, seen);
        }
        forceRow<square>(m, i, m.nR);
    }
}

/// Differences, distances and forces of every pair before any pressure law.
TARVEX_KERNEL void pairForces(ModelState& s, Motion& m, const BodyLanes& b, Extremes& seen) {
    const int form = m.kodVgr != 0 ? m.kodDX : 0;
    const bool square = m.nR == 2;
    switch (form * 2 + (square ? 1 : 0)) {
        case 0:
            forceRows<0, false>(s, m, b, seen);
            break;
        case 1:
            forceRows<0, true>(s, m, b, seen);
            break;
        case 2:
            forceRows<1, false>(s, m, b, seen);
            break;
        case 3:
            forceRows<1, true>(s, m, b, seen);
            break;
        case 4:
            forceRows<2, false>(s, m, b, seen);
            break;
        case 5:
            forceRows<2, true>(s, m, b, seen);
            break;
        case 6:
            forceRows<3, false>(s, m, b, seen);
            break;
        default:
            forceRows<3, true>(s, m, b, seen);
            break;
    }
}

/// dU from the force components: the sum over i in increasing order, divided by the mass of j.
/// @return  0, or not a number if any acceleration or force is not finite
TARVEX_KERNEL double accelerations(Motion& m, const BodyArray& mass) {
    alignas(32) BodyArray x{}, y{}, z{};
    for (int i = 0; i < bodies; ++i)
        for (int j = 0; j < lanes; ++j) {
            x[j] += m.FXik[i][j];
            y[j] += m.FYik[i][j];
            z[j] += m.FZik[i][j];
        }
    double sum = 0;
    for (int j = 0; j < lanes; ++j) {
        x[j] /= mass[j];
        y[j] /= mass[j];
        z[j] /= mass[j];
    }
    for (int j = 0; j < bodies; ++j) {
        watch(sum, x[j]);
        watch(sum, y[j]);
        watch(sum, z[j]);
    }
    std::memcpy(&m.dU[3 * bodies], x.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[4 * bodies], y.data(), sizeof(double) * bodies);
    std::memcpy(&m.dU[5 * bodies], z.data(), sizeof(double) * bodies);
    return sum;
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
    d.T = m.Tik[i][j];
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

}  // namespace
}  // namespace kernel

void Diffur(ModelState& s, Motion& motion) {
    kernel::BodyLanes b;
    kernel::unpack(motion, s, b);
    if (motion.Vgr == 0) throw ArithmeticFailure("the speed of gravity is zero");
    if (motion.kodVgr != 0 && motion.kodDX == 3 &&
        (motion.SledX.size() == 0 || motion.SledX.size() <= motion.NSled)) {
        throw SubscriptFailure("the trace has not been made");
    }
    kernel::formWeights(s, motion.weights);
    kernel::Extremes seen;
    kernel::pairForces(s, motion, b, seen);
    motion.fullQuadrant = false;
    if (!seen.fine()) kernel::fail(motion, "two bodies at one place or with equal X and Y");
    if (motion.kodDebug != 0) kernel::keepForDebug(s, motion);

    double watched = 0;
    if (motion.kodPgr != 0 && motion.kodVgr != 0) {
        ++motion.NDiffur;
        if (motion.kodDiffurV == 1) watched += kernel::stageSpeeds(s, motion, b);
        watched += kernel::applyPressure(s, motion, b);
    }
    std::memcpy(motion.dU.data(), &motion.U[3 * bodies], sizeof(double) * 3 * bodies);
    BodyArray mass{};
    for (int j = 0; j < bodies; ++j) mass[j] = s.m[j];
    mass[bodies] = 1;
    watched += kernel::accelerations(motion, mass);
    if (watched != 0) kernel::fail(motion, "a force or an acceleration is not a number");
}

}  // namespace tarvex
