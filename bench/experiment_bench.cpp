// An experiment as a user runs it: Mercury from 1801, step 3600 s, windows of 1 degree with a thousandth of
// it, classical law.  Two years are run; the counter "times_literal" is the time of the four literal
// right-hand sides of a step over the time of the whole step, measurement and step control included, each the
// smallest of some alternating repetitions. The literal form's own measurement is not counted, so the true
// ratio is a little higher.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>

#include "tests/support/equations_oracle.h"
#include "tests/support/test_run.h"

namespace tarvex {
namespace {

constexpr int literalCalls = 2000;

struct CountingPort : RunPort {
    bool giveWay() override {
        ++passes;
        return true;
    }
    long passes = 0;
};

/// Processor time of this thread, so that other work on the machine does not count.
double seconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

void mercuryFrom1801(benchmark::State& state) {
    double step = 1, sides = 1;
    long steps = 0;
    for (auto _ : state) {
        test::TestRun t;
        t.settings.body = 1;
        t.settings.windowDegrees = 1;
        t.settings.step = 3600;
        t.settings.stepDivider = 1000;
        t.settings.stepsPerDisplay = 10000;
        t.settings.lastYear = 1802;
        t.start();
        literal::Equations plain;
        plain.s = &t.s;
        std::copy_n(t.motion.U.begin(), 66, plain.U);
        CountingPort port;
        double begun = seconds();
        RunLoop(t.experiment(), port);
        const double run = seconds() - begun;
        steps = port.passes * t.s.NC0 + t.s.NC;
        step = std::min(step, run / static_cast<double>(steps));

        begun = seconds();
        for (int n = 0; n < literalCalls; ++n) {
            plain.Diffur();
            benchmark::DoNotOptimize(plain.dU);
        }
        sides = std::min(sides, 4 * (seconds() - begun) / literalCalls);
    }
    state.counters["steps"] = static_cast<double>(steps);
    state.counters["step_us"] = step * 1e6;
    state.counters["literal_sides_us"] = sides * 1e6;
    state.counters["times_literal"] = sides / step;
}
BENCHMARK(mercuryFrom1801)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace tarvex
