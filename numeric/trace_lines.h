#pragma once
// The line from where a body was by its trace.

#include <algorithm>

#include "numeric/lane_kernels.h"

namespace tarvex::kernel {

struct Differences {
    double x, y, z;
};

/// What the lines from body i by its trace share.
class TracedActor {
public:
    TracedActor(const ModelState& s, const Motion& m, const Actor& actor, int i)
        : a(actor),
          trace(m.SledX),
          ringX(m.SledX.ring(i)),
          ringY(m.SledY.ring(i)),
          ringZ(m.SledZ.ring(i)),
          Dt(s.Dt),
          start(m.dTstage),
          NSled(m.NSled),
          reach(m.NSled * Dt + start) {}

    /// Differences to body j at (x, y, z) for the delay T.  A time exactly on the grid of the trace matches
    /// no interval and keeps the differences of the iteration before: that is meant.
    [[gnu::noinline]] Differences to(double x, double y, double z, double T, Differences before) const {
        if (T > reach) {
            const double half = T * T / 2;
            return {x - a.x + a.vx * T - a.ax * half, y - a.y + a.vy * T - a.ay * half,
                    z - a.z + a.vz * T - a.az * half};
        }
        Differences from{a.x, a.y, a.z};
        double q;
        int later;
        if (T <= start) {
            q = T / start;
            later = trace.slot(0);
        } else {
            const int n = interval(T);
            if (n < 0) return before;
            const int newer = trace.slot(n);
            from = {ringX[newer], ringY[newer], ringZ[newer]};
            q = (T - start - Dt * n) / Dt;
            later = trace.slot(n + 1);
        }
        return {x - from.x + (from.x - ringX[later]) * q, y - from.y + (from.y - ringY[later]) * q,
                z - from.z + (from.z - ringZ[later]) * q};
    }

private:
    /// The n of 0..NSled-1 with n*Dt+start < T < (n+1)*Dt+start, both bounds excluded, or -1.
    int interval(double T) const {
        const int guess = static_cast<int>((T - start) / Dt);  // T lies within the reach of the trace
        const auto holds = [this, T](int n) {
            return n >= 0 && n < NSled && n * Dt + start < T && T < (n + 1) * Dt + start;
        };
        for (const int n : {guess, guess - 1, guess + 1})
            if (holds(n)) return n;
        return -1;
    }

    const Actor& a;
    const Trace& trace;
    const double *ringX, *ringY, *ringZ;
    double Dt, start;
    int NSled;
    double reach;
};

/// The line to where body i was by its trace, in two iterations by count.
TARVEX_LANES Line tracedLine(double Vgr, const BodyLanes& b, const Actor& a, const TracedActor& traced, int i,
                             int j, Watch& watch) {
    const Four idle = at(idleTable.idle[i], j), x = at(b.x, j), y = at(b.y, j), z = at(b.z, j);
    Line line = lineOf(x - a.x, y - a.y, z - a.z, idle);
    watch.nonZero(line.flat);
    for (int iteration = 1; iteration <= 2; ++iteration) {
        const Four T = line.r / Vgr;  // exact where a delay falls on the grid
        const auto lane = [&](int k) {
            const Differences before{line.dx[k], line.dy[k], line.dz[k]};
            return idle[k] != 0 ? before : traced.to(x[k], y[k], z[k], T[k], before);
        };
        const Differences d0 = lane(0), d1 = lane(1), d2 = lane(2), d3 = lane(3);
        line = lineOf(Four{d0.x, d1.x, d2.x, d3.x}, Four{d0.y, d1.y, d2.y, d3.y},
                      Four{d0.z, d1.z, d2.z, d3.z}, idle);
        watch.nonZero(line.flat);
    }
    watch.notHuge(line.r);
    return line;
}

}  // namespace tarvex::kernel
