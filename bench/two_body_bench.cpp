// A step of the two-body loops with its measurement, against the four right-hand sides inside it.  The
// counter "share" is the time of the step over that of the four calls, each the smallest of many alternating
// repetitions.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include "initial/moon_data.h"
#include "numeric/orbit_check.h"
#include "numeric/two_body.h"

namespace tarvex {
namespace {

constexpr int stepsInBatch = 5000;

struct Silent final : OrbitCheckPort, TwoBodyPort {
    void nodePassed() override {}
    void perihelionPassed() override {}
};

double seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// The Moon and the Earth of the Moon bench.
ModelState moon() {
    ModelState s;
    s.gamma = 66.7259e-12;
    s.JD = JD2000;
    s.kodBary = 1;
    moonMasses(s, MoonTheory::Ser0);
    moonElements(s, MoonTheory::Ser0);
    moonInitialData(
        s, {.earthByRatio = true, .shiftMoon = true, .scaleMoonSpeed = true, .earthSpeedByRatio = true});
    for (const int i : {0, 11}) {
        s.X[i] = s.X0[i], s.Y[i] = s.Y0[i], s.Z[i] = s.Z0[i];
        s.VX[i] = s.VX0[i], s.VY[i] = s.VY0[i], s.VZ[i] = s.VZ0[i];
    }
    return s;
}

template <class Batch, class Side>
void shareOf(benchmark::State& state, Batch batch, Side side) {
    double step = 1, sides = 1;
    for (auto _ : state) {
        double begun = seconds();
        batch();
        step = std::min(step, (seconds() - begun) / stepsInBatch);
        begun = seconds();
        for (int n = 0; n < 4 * stepsInBatch; ++n) side();
        sides = std::min(sides, (seconds() - begun) / stepsInBatch);
    }
    state.counters["step_ns"] = step * 1e9;
    state.counters["four_sides_ns"] = sides * 1e9;
    state.counters["share"] = step / sides;
}

void orbitCheck(benchmark::State& state) {
    ModelState s = moon();
    OrbitCheck c;
    c.IplSel = c.IplJ = 11;
    c.Icentr = 13;
    c.Dt = 360;
    c.kDt = 10;
    c.NC0 = stepsInBatch;
    startOrbitCheck(s, c);
    Silent port;
    shareOf(
        state, [&] { runOrbitCheckBatch(s, c, port); }, [&] { OrbitCheckDiffur(s, c); });
}
BENCHMARK(orbitCheck)->Unit(benchmark::kMillisecond)->MinTime(1);

void twoBody(benchmark::State& state) {
    ModelState s = moon();
    TwoBody b;
    b.Dt = 360;
    b.kDt = 10;
    b.NC0 = stepsInBatch;
    b.withVgr = state.range(0) == 1;
    startTwoBody(s, b);
    Silent port;
    shareOf(
        state, [&] { runTwoBodyBatch(s, b, port); }, [&] { TwoBodyDiffur(s, b); });
}
BENCHMARK(twoBody)->ArgName("with_Vgr")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(1);

}  // namespace
}  // namespace tarvex
