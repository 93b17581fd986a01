// A step of the experiment with the measurement on, against the four right-hand sides inside it.  The counter
// "share" is the time of the whole step over that of the four calls, each the smallest of many alternating
// repetitions.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include "tests/support/test_run.h"

namespace tarvex {
namespace {

constexpr int stepsInBatch = 2000;

/// Ends the loop at its display pass.
struct OneBatch : RunPort {
    bool giveWay() override { return false; }
};

double seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void stepShare(benchmark::State& state) {
    test::TestRun t;
    t.settings.boxes.endAtYear = false;
    t.settings.relativistic = state.range(0) == 1;
    t.settings.stepsPerDisplay = stepsInBatch;
    t.start();
    OneBatch port;
    double step = 1, sides = 1;
    for (auto _ : state) {
        double begun = seconds();
        t.s.NC = 0;
        RunLoop(t.experiment(), port);
        step = std::min(step, (seconds() - begun) / stepsInBatch);

        begun = seconds();
        for (int n = 0; n < 4 * stepsInBatch; ++n) {
            if (state.range(0) == 1) {
                DiffurOTO(t.s, t.motion);
            } else {
                Diffur(t.s, t.motion);
            }
        }
        sides = std::min(sides, (seconds() - begun) / stepsInBatch);
    }
    state.counters["step_us"] = step * 1e6;
    state.counters["four_sides_us"] = sides * 1e6;
    state.counters["share"] = step / sides;
}
BENCHMARK(stepShare)->ArgName("relativistic")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(2);

}  // namespace
}  // namespace tarvex
