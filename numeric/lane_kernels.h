#pragma once
// Rows of the pair arrays as loops over vector lanes: body i is fixed, the bodies j stand in the lanes.
// Directions are differences over distance, never angles.  Idle lanes get a harmless divisor (IDLE is 1
// there), so that they raise no floating-point flag, and no weight.  Every function is inlined into a kernel
// that is compiled once for each instruction set.

#include <cmath>
#include <limits>

#include "numeric/motion.h"

#define TARVEX_ROW [[gnu::always_inline]] inline
#define TARVEX_KERNEL [[gnu::target_clones("default", "avx2")]]

namespace tarvex::kernel {

struct IdleTable {
    alignas(32) PairArray idle{}, busy{};
    constexpr IdleTable() {
        for (int i = 0; i < bodies; ++i)
            for (int j = 0; j < lanes; ++j) {
                const bool is = i == j || j == bodies;
                idle[i][j] = is ? 1 : 0;
                busy[i][j] = is ? 0 : 1;
            }
    }
};
inline constexpr IdleTable idleTable;

/// The state of the bodies in lanes; the idle lane is at rest in the origin.
struct BodyLanes {
    alignas(32) BodyArray x{}, y{}, z{}, vx{}, vy{}, vz{};
};

/// What a pass saw at its edges: a zero or an infinite distance makes the pass fail.
struct Extremes {
    alignas(32) BodyArray low, high;
    Extremes() {
        low.fill(std::numeric_limits<double>::infinity());
        high.fill(0);
    }
    bool fine() const {
        bool ok = true;
        for (int j = 0; j < lanes; ++j) ok &= low[j] > 0 && high[j] <= std::numeric_limits<double>::max();
        return ok;
    }
};

/// Row i of Rxy, Rik and Tik from its differences.
TARVEX_ROW void distanceRow(Motion& m, int i, Extremes& seen) {
    const double* __restrict dx = m.DXp[i].data();
    const double* __restrict dy = m.DYp[i].data();
    const double* __restrict dz = m.DZp[i].data();
    const double* __restrict idle = idleTable.idle[i].data();
    double* __restrict rxy = m.Rxy[i].data();
    double* __restrict rik = m.Rik[i].data();
    double* __restrict tik = m.Tik[i].data();
    double* __restrict low = seen.low.data();
    double* __restrict high = seen.high.data();
    const double Vgr = m.Vgr;
    for (int j = 0; j < lanes; ++j) {
        const double flat = dx[j] * dx[j] + dy[j] * dy[j] + idle[j];
        const double r = std::sqrt(flat + dz[j] * dz[j]);
        low[j] = flat < low[j] ? flat : low[j];
        high[j] = r > high[j] ? r : high[j];
        rxy[j] = std::sqrt(flat);
        rik[j] = r;
        tik[j] = r / Vgr;
    }
}

/// Row i of the differences between present positions.
TARVEX_ROW void presentRow(Motion& m, const BodyLanes& b, int i) {
    double* __restrict dx = m.DXp[i].data();
    double* __restrict dy = m.DYp[i].data();
    double* __restrict dz = m.DZp[i].data();
    const double x = b.x[i], y = b.y[i], z = b.z[i];
    for (int j = 0; j < lanes; ++j) {
        dx[j] = b.x[j] - x;
        dy[j] = b.y[j] - y;
        dz[j] = b.z[j] - z;
    }
}

/// Row i of the differences to where body i was Tik ago, by its speed (form 1) and acceleration (form 2).
template <int form>
TARVEX_ROW void retardedRow(Motion& m, const BodyLanes& b, int i) {
    double* __restrict dx = m.DXp[i].data();
    double* __restrict dy = m.DYp[i].data();
    double* __restrict dz = m.DZp[i].data();
    const double* __restrict tik = m.Tik[i].data();
    const double x = b.x[i], y = b.y[i], z = b.z[i], vx = b.vx[i], vy = b.vy[i], vz = b.vz[i];
    const double ax = m.AX[i], ay = m.AY[i], az = m.AZ[i];
    for (int j = 0; j < lanes; ++j) {
        const double t = tik[j];
        dx[j] = b.x[j] - x + vx * t;
        dy[j] = b.y[j] - y + vy * t;
        dz[j] = b.z[j] - z + vz * t;
        if constexpr (form == 2) {
            dx[j] -= ax * t * t / 2;
            dy[j] -= ay * t * t / 2;
            dz[j] -= az * t * t / 2;
        }
    }
}

/// Projections of the velocities on the line i to j, row i: of body i as given by v1x, v1y, v1z (signs are
/// those of its present velocity), of body j as it is.  A line with DXp = 0 has its Y turned round: that is
/// meant.
TARVEX_ROW void lineSpeedRow(Motion& m, const BodyLanes& b, int i, const double* __restrict v1x,
                             const double* __restrict v1y, const double* __restrict v1z) {
    const double* __restrict dx = m.DXp[i].data();
    const double* __restrict dy = m.DYp[i].data();
    const double* __restrict dz = m.DZp[i].data();
    const double* __restrict r = m.Rik[i].data();
    const double* __restrict busy = idleTable.busy[i].data();
    double* __restrict dVX1 = m.dVX1[i].data();
    double* __restrict dVY1 = m.dVY1[i].data();
    double* __restrict dVZ1 = m.dVZ1[i].data();
    double* __restrict dVX2 = m.dVX2[i].data();
    double* __restrict dVY2 = m.dVY2[i].data();
    double* __restrict dVZ2 = m.dVZ2[i].data();
    double* __restrict dV1 = m.dV1[i].data();
    double* __restrict dV2 = m.dV2[i].data();
    double* __restrict dR = m.dR[i].data();
    const double sx = b.vx[i] < 0 ? -1 : 1, sy = b.vy[i] < 0 ? -1 : 1, sz = b.vz[i] < 0 ? -1 : 1;
    for (int j = 0; j < lanes; ++j) {
        const double inverse = busy[j] / r[j];
        const double ux = dx[j] * inverse, uz = dz[j] * inverse;
        const double uy = (dx[j] == 0 ? -dy[j] : dy[j]) * inverse;
        const double x1 = ux * sx * std::fabs(v1x[j]), y1 = uy * sy * std::fabs(v1y[j]);
        const double z1 = uz * sz * std::fabs(v1z[j]);
        const double x2 = ux * b.vx[j], y2 = uy * b.vy[j], z2 = uz * b.vz[j];
        const double along1 = z1 + x1 + y1, along2 = z2 + x2 + y2;
        dVX1[j] = x1;
        dVY1[j] = y1;
        dVZ1[j] = z1;
        dVX2[j] = x2;
        dVY2[j] = y2;
        dVZ2[j] = z2;
        dV1[j] = along1;
        dV2[j] = along2;
        dR[j] = along2 - along1;
    }
}

/// Row i of the velocity that body i had when its pull left; with no retardation the present one.
TARVEX_ROW void retardedSpeedRow(const Motion& m, const BodyLanes& b, int i, double* __restrict x,
                                 double* __restrict y, double* __restrict z) {
    const bool retarded = m.kodVgr == 1 && m.kodDX > 0;
    const double* __restrict tik = m.Tik[i].data();
    const double vx = b.vx[i], vy = b.vy[i], vz = b.vz[i];
    const double ax = retarded ? m.AX[i] : 0, ay = retarded ? m.AY[i] : 0, az = retarded ? m.AZ[i] : 0;
    for (int j = 0; j < lanes; ++j) {
        x[j] = vx - ax * tik[j];
        y[j] = vy - ay * tik[j];
        z[j] = vz - az * tik[j];
    }
}

/// Row i of A1zap, the retarded acceleration along the line: velocity signs with the size of the
/// acceleration, and of V1zap.  Both are meant so.
TARVEX_ROW void lineAccelerationRow(Motion& m, const BodyLanes& b, int i) {
    const double* __restrict dx = m.DXp[i].data();
    const double* __restrict dy = m.DYp[i].data();
    const double* __restrict dz = m.DZp[i].data();
    const double* __restrict r = m.Rik[i].data();
    const double* __restrict busy = idleTable.busy[i].data();
    const double* __restrict ax = m.AX1zap[i].data();
    const double* __restrict ay = m.AY1zap[i].data();
    const double* __restrict az = m.AZ1zap[i].data();
    const double* __restrict vx = m.VX1zap[i].data();
    const double* __restrict vy = m.VY1zap[i].data();
    const double* __restrict vz = m.VZ1zap[i].data();
    double* __restrict A1zap = m.A1zap[i].data();
    double* __restrict V1zap = m.V1zap[i].data();
    const double sx = b.vx[i] < 0 ? -1 : 1, sy = b.vy[i] < 0 ? -1 : 1, sz = b.vz[i] < 0 ? -1 : 1;
    for (int j = 0; j < lanes; ++j) {
        const double inverse = busy[j] / r[j];
        const double ux = dx[j] * inverse, uz = dz[j] * inverse;
        const double uy = (dx[j] == 0 ? -dy[j] : dy[j]) * inverse;
        A1zap[j] = uz * sz * std::fabs(az[j]) + ux * sx * std::fabs(ax[j]) + uy * sy * std::fabs(ay[j]);
        V1zap[j] = std::sqrt(vx[j] * vx[j] + vy[j] * vy[j] + vz[j] * vz[j]);
    }
}

/// Adds to sum what is 0 for finite numbers and not a number otherwise.
TARVEX_ROW void watch(double& sum, double v) { sum += v - v; }

/// Copies U into X..VZ and into lanes.
void unpack(const Motion& m, ModelState& s, BodyLanes& b);
/// The present state in lanes.
void toLanes(const ModelState& s, BodyLanes& b);

/// Clears what a failed call left and throws.
[[noreturn]] void fail(Motion& m, const char* what);

/// Forms the products of masses, ticks and gamma again if one of them has changed.
void formWeights(const ModelState& s, PairWeights& w);

}  // namespace tarvex::kernel
