#pragma once
// The lines from where a body was by its trace, four at a time.

#include "numeric/lane_kernels.h"

namespace tarvex::kernel {

using FourMask [[gnu::vector_size(32)]] = long;  ///< all bits of a lane are set where a comparison holds

TARVEX_LANES bool anyOf(FourMask mask) { return (mask[0] | mask[1] | mask[2] | mask[3]) != 0; }

TARVEX_LANES Four all(double v) { return Four{v, v, v, v}; }

TARVEX_LANES Four where(FourMask mask, Four v) { return (Four)(mask & (FourMask)v); }

TARVEX_LANES Four either(Four a, Four b) { return (Four)((FourMask)a | (FourMask)b); }

struct Differences {
    Four x, y, z;
    /// Other differences in the lanes of the mask.
    TARVEX_LANES void take(FourMask mask, const Differences& other) {
        x = mask ? other.x : x;
        y = mask ? other.y : y;
        z = mask ? other.z : z;
    }
};

/// An interval of the trace of a body: its newer end, that end less the older one, and what a delay exceeds
/// it by at the newer end, s.
struct TraceInterval {
    double x, y, z, dx, dy, dz;
    double passed, lower, upper;
};

/// Intervals of a trace that are all looked at faster than one is sought.
inline constexpr int shortTrace = 6;

/// What the lines from body i by its trace share.
/// @tparam atOnce  the trace is a short one
template <bool atOnce>
class TracedActor {
public:
    TARVEX_LANES TracedActor(const ModelState& s, const Motion& m, const Actor& actor, int i)
        : a(actor),
          trace(m.SledX),
          ringX(m.SledX.ring(i)),
          ringY(m.SledY.ring(i)),
          ringZ(m.SledZ.ring(i)),
          Dt(s.Dt),
          start(m.dTstage),
          NSled(m.NSled),
          reach(m.NSled * Dt + start) {
        const int newest = trace.slot(0);
        present = {a.x, a.y, a.z, a.x - ringX[newest], a.y - ringY[newest], a.z - ringZ[newest], 0, 0, start};
        if constexpr (atOnce)
            for (int n = 0; n < NSled; ++n) kept[n] = number(n);
    }

    /// Differences to the bodies j at (x, y, z) for the delays T.  A time exactly on the grid of the trace
    /// matches no interval and keeps the differences of the iteration before: runs
    /// repeat their records to the last digit.
    TARVEX_LANES Differences to(Four x, Four y, Four z, Four T, const Differences& before) const {
        const FourMask near = T <= start, beyond = T > reach;
        Held held = {};
        held.take(near, present);
        if constexpr (atOnce) {
            held.takeIfIn(T, kept[0]);  // the shortest trace has two
            held.takeIfIn(T, kept[1]);
            for (int n = 2; n < NSled; ++n) held.takeIfIn(T, kept[n]);
        } else {
            seek(T, near | beyond, held);
        }
        const Four q = (near ? T : T - start - held.passed) / (near ? all(start > 0 ? start : 1) : all(Dt));
        Differences d = before;
        d.take(held.found, {x - held.x + held.dx * q, y - held.y + held.dy * q, z - held.z + held.dz * q});
        if (anyOf(beyond)) {
            const Four half = T * T / 2;
            d.take(beyond, {x - a.x + a.vx * T - a.ax * half, y - a.y + a.vy * T - a.ay * half,
                            z - a.z + a.vz * T - a.az * half});
        }
        return d;
    }

private:
    /// The interval that holds each delay.
    struct Held {
        Four x, y, z, dx, dy, dz, passed;
        FourMask found;
        TARVEX_LANES void take(FourMask here, const TraceInterval& interval) {
            x = either(x, where(here, all(interval.x)));
            y = either(y, where(here, all(interval.y)));
            z = either(z, where(here, all(interval.z)));
            dx = either(dx, where(here, all(interval.dx)));
            dy = either(dy, where(here, all(interval.dy)));
            dz = either(dz, where(here, all(interval.dz)));
            passed = either(passed, where(here, all(interval.passed)));
            found |= here;
        }
        TARVEX_LANES void takeIfIn(Four T, const TraceInterval& interval) {
            take((interval.lower < T) & (T < interval.upper), interval);
        }
    };

    TraceInterval number(int n) const {
        const int newer = trace.slot(n), older = trace.slot(n + 1);
        return {ringX[newer],
                ringY[newer],
                ringZ[newer],
                ringX[newer] - ringX[older],
                ringY[newer] - ringY[older],
                ringZ[newer] - ringZ[older],
                Dt * n,
                n * Dt + start,
                (n + 1) * Dt + start};
    }

    /// Not inlined, so its vectors come by reference: how they go by value depends on the instruction set.
    /// @param outside  lanes whose delay the trace does not hold
    [[gnu::noinline]] void seek(const Four& T, const FourMask& outside, Held& held) const {
        for (int k = 0; k < 4; ++k) {
            if (outside[k] != 0) continue;
            const int guess = static_cast<int>((T[k] - start) / Dt);
            for (const int n : {guess, guess - 1, guess + 1}) {
                if (n < 0 || n >= NSled) continue;
                const TraceInterval interval = number(n);
                if (!(interval.lower < T[k] && T[k] < interval.upper)) continue;
                FourMask here = {};
                here[k] = -1;
                held.take(here, interval);
                break;
            }
        }
    }

    const Actor& a;
    const Trace& trace;
    const double *ringX, *ringY, *ringZ;
    double Dt, start;
    int NSled;
    double reach;
    TraceInterval present, kept[atOnce ? shortTrace : 1] = {};
};

/// The three lines of row i to where body i was by its trace, in two iterations by count; they go abreast.
template <bool atOnce>
TARVEX_LANES void tracedLines(double Vgr, const BodyLanes& b, const Actor& a,
                              const TracedActor<atOnce>& traced, int i, Line (&lines)[3], Watch& watch) {
    for (int n = 0; n < 3; ++n) lines[n] = presentLine(b, a, i, 4 * n, watch);
    for (int iteration = 1; iteration <= 2; ++iteration)
        for (int n = 0; n < 3; ++n) {
            const int j = 4 * n;
            const Four idle = at(idleTable.idle[i], j);
            const FourMask busy = idle == 0;
            Differences d{lines[n].dx, lines[n].dy, lines[n].dz};
            const Four T = where(busy, lines[n].r / Vgr);  // exact where a delay falls on the grid
            d.take(busy, traced.to(at(b.x, j), at(b.y, j), at(b.z, j), T, d));
            lines[n] = lineOf(d.x, d.y, d.z, idle);
            watch.nonZero(lines[n].flat);
        }
    for (const Line& line : lines) watch.notHuge(line.r);
}

}  // namespace tarvex::kernel
