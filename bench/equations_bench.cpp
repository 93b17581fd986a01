// One call of each right-hand side, by the kernels and word by word, in the same run.  The counter "ratio" of
// the Ratio benchmarks is literal time over kernel time, the smallest of many alternating repetitions of
// each.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include "numeric/motion.h"
#include "tests/support/equations_oracle.h"
#include "tests/support/test_system.h"

namespace tarvex {
namespace {

struct Law {
    const char* name;
    bool relativistic;
    std::int16_t kodVgr, kodDX, kodPgr;
    double nR;
    bool atStage = true;  // speeds along the lines at every stage, the dearest form
    double Vgr = 1;       // speeds of light
};
constexpr Law laws[] = {
    {"classical", false, 0, 0, 0, 2},
    {"relativistic", true, 0, 0, 0, 2},
    {"DX2 Lienard-Wiechert", false, 1, 2, 5, 2},
    {"DX2 Lienard-Wiechert once a step", false, 1, 2, 5, 2, false},
    {"DX1", false, 1, 1, 0, 2},
    {"DX2", false, 1, 2, 0, 2},
    {"DX2 Weber", false, 1, 2, 2, 2},
    {"DX3 Gerber", false, 1, 3, 4, 2},
    {"DX3 Gerber, Vgr 10", false, 1, 3, 4, 2, true, 10},
    {"DX3 alone, Vgr 10", false, 1, 3, 0, 2, true, 10},
    {"free exponent", false, 0, 0, 0, 2.1},
};

struct Experiment {
    ModelState s = test::solarSystem();
    Motion motion;
    literal::Equations plain;
    bool relativistic;

    explicit Experiment(const Law& law) : relativistic(law.relativistic) {
        plain.s = &s;
        motion.kodVgr = law.kodVgr;
        motion.kodDX = law.kodDX;
        motion.kodPgr = law.kodPgr;
        motion.kodDiffurV = law.kodPgr != 0 && law.atStage ? 1 : 0;
        motion.nR = law.nR;
        motion.Vgr = law.Vgr * Vsv;
        motion.kPgr1 = motion.kPgr2 = 1;
        motion.dTstage = s.Dt / 2;
        test::pack(s, motion);
        if (law.kodDX == 3) fillTrace(s, motion);
        std::copy_n(motion.U.begin(), 66, plain.U);
        plain.kodVgr = motion.kodVgr;
        plain.kodDX = motion.kodDX;
        plain.kodPgr = motion.kodPgr;
        plain.kodDiffurV = motion.kodDiffurV;
        plain.nR = motion.nR;
        plain.Vgr = motion.Vgr;
        plain.kPgr1 = plain.kPgr2 = 1;
        plain.dTstage = motion.dTstage;
        plain.unpack();
        if (law.kodDX == 3) plain.fillTrace();
    }
    void kernels() {
        motion.NDiffur = 2;
        relativistic ? DiffurOTO(s, motion) : Diffur(s, motion);
        benchmark::DoNotOptimize(motion.dU);
    }
    void words() {
        plain.NDiffur = 2;
        relativistic ? plain.DiffurOTO() : plain.Diffur();
        benchmark::DoNotOptimize(plain.dU);
    }
};

void kernels(benchmark::State& state, const Law& law) {
    Experiment experiment(law);
    for (auto _ : state) experiment.kernels();
}

void literalWords(benchmark::State& state, const Law& law) {
    Experiment experiment(law);
    for (auto _ : state) experiment.words();
}

template <class Work>
double nanoseconds(Work work, int calls) {
    const auto begin = std::chrono::steady_clock::now();
    for (int n = 0; n < calls; ++n) work();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count() / calls;
}

void ratio(benchmark::State& state, const Law& law) {
    Experiment experiment(law);
    double fast = 1e9, slow = 1e9;
    for (auto _ : state) {
        fast = std::min(fast, nanoseconds([&] { experiment.kernels(); }, 200));
        slow = std::min(slow, nanoseconds([&] { experiment.words(); }, 10));
    }
    state.counters["ratio"] = slow / fast;
    state.counters["kernel_ns"] = fast;
    state.counters["literal_ns"] = slow;
}

const bool registered = [] {
    for (const Law& law : laws) {
        const std::string name = law.name;
        benchmark::RegisterBenchmark((name + "/kernels").c_str(), kernels, law);
        benchmark::RegisterBenchmark((name + "/literal").c_str(), literalWords, law);
        benchmark::RegisterBenchmark((name + "/Ratio").c_str(), ratio, law);
    }
    return true;
}();

}  // namespace
}  // namespace tarvex
