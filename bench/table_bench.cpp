// One table: each right-hand side and each whole step against the literal equations, plans of retarded
// experiments one after another and abreast, the reduction, and the planets by each way of measuring.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <functional>

#include "bench/timing.h"
#include "experiment/lane_runs.h"
#include "tests/support/equations_oracle.h"
#include "tests/support/test_run.h"

namespace tarvex {

using bench::median;
using bench::timed;

namespace {

struct LawRow {
    const char* name;
    bool relativistic;
    std::int16_t kodVgr, kodDX, kodPgr;
    double k1, k2, Vgr;  ///< Vgr in speeds of light
};

constexpr LawRow rows[] = {
    {"Newton", false, 0, 0, 0, 0, 0, 1},
    {"OTO", true, 0, 0, 0, 0, 0, 1},
    {"DX1", false, 1, 1, 0, 0, 0, 200},
    {"DX2", false, 1, 2, 0, 0, 0, 200},
    {"DX2, law 5 (Lienard-Wiechert)", false, 1, 2, 5, 1, 1, 200},
    {"DX3, law 4 (Gerber), Vgr 10", false, 1, 3, 4, 3, 6, 10},
};

constexpr int passes = 1000, literalSteps = 50;

struct OneBatch : RunPort {
    bool giveWay() override { return false; }
};

/// A run of Mercury by the law of a row with base steps only, and the literal equations beside it.
struct Twin {
    test::TestRun t;
    literal::Equations plain;
    const LawRow& row;
    StepSeat* seat;

    explicit Twin(const LawRow& law, StepSeat* ofLanes = nullptr) : row(law), seat(ofLanes) {
        t.motion.kodDX = law.kodDX;
        t.motion.kodPgr = law.kodPgr;
        t.motion.kPgr1 = law.k1;
        t.motion.kPgr2 = law.k2;
        t.settings.relativistic = law.relativistic;
        t.settings.finiteGravitySpeed = law.kodVgr == 1;
        t.settings.gravitySpeed = law.Vgr;
        t.settings.stepDivider = 1;
        t.settings.stepsPerDisplay = passes;
        t.settings.boxes.endAtYear = false;
        t.start();
        plain.s = &t.s;
        std::copy_n(t.motion.U.begin(), equations, plain.U);
        plain.kodVgr = law.kodVgr;
        plain.kodDX = law.kodDX;
        plain.kodPgr = law.kodPgr;
        plain.kPgr1 = law.k1;
        plain.kPgr2 = law.k2;
        plain.Vgr = t.motion.Vgr;
        plain.DtOld = t.s.Dt;
        plain.unpack();
        if (law.kodDX == 3) plain.fillTrace();
    }
    void side() { row.relativistic ? DiffurOTO(t.s, t.motion) : Diffur(t.s, t.motion); }
    void literalSide() { row.relativistic ? plain.DiffurOTO() : plain.Diffur(); }
    void steps() {
        OneBatch port;
        t.s.NC = 0;
        Experiment e = t.experiment();
        e.seat = seat;
        RunLoop(e, port);
    }
    /// What a step must compute by the word: four sides and the speeds along the lines; its measurement is
    /// not counted, so the true ratio is a little higher.
    void literalStep() {
        plain.NDiffur = 0;
        for (int stage = 0; stage < 4; ++stage) literalSide();
        if (row.kodPgr != 0) plain.SpeedUpdate();
    }
};

void printRow(const LawRow& row, int rounds) {
    Twin twin(row);
    std::vector<double> side, literalSide, step, literalStep;
    twin.steps();
    for (int round = 0; round < rounds; ++round) {
        {
            const WeightsHeld weights(twin.t.s, twin.t.motion);  // as a run does
            side.push_back(timed(500, [&] { twin.side(); }));
        }
        literalSide.push_back(timed(4 * literalSteps, [&] { twin.literalSide(); }));
        step.push_back(timed(1, [&] { twin.steps(); }) / passes);
        literalStep.push_back(timed(literalSteps, [&] { twin.literalStep(); }));
    }
    std::printf("%-32s %8.0f %8.0f %7.1f %9.2f %9.2f %7.1f\n", row.name, median(side), median(literalSide),
                median(literalSide) / median(side), median(step) / 1000, median(literalStep) / 1000,
                median(literalStep) / median(step));
}

/// Experiments of a year by one law with different speeds of gravity, on this core.
struct Plan {
    const LawRow& row;
    int experiments;

    void one(int number, StepSeat* seat) const {
        LawRow law = row;
        law.Vgr = 180 + 10 * number;
        Twin twin(law, seat);
        for (int batch = 0; batch < 9; ++batch) twin.steps();
    }
    void oneAfterAnother() const {
        for (int n = 0; n < experiments; ++n) one(n, nullptr);
    }
    void abreast() const {
        std::vector<std::function<void(StepSeat&)>> runs;
        for (int n = 0; n < experiments; ++n) runs.emplace_back([this, n](StepSeat& seat) { one(n, &seat); });
        runInLanes(runs);
    }
};

void printPlan(const LawRow& row, int experiments, int rounds) {
    const Plan plan{row, experiments};
    std::vector<double> single, lanes;
    for (int round = 0; round < rounds; ++round) {
        single.push_back(timed(1, [&] { plan.oneAfterAnother(); }));
        lanes.push_back(timed(1, [&] { plan.abreast(); }));
    }
    const double steps = 9. * passes * experiments;
    std::printf("plan of %2d, %-30s one after another %5.2f us a step, abreast %5.2f, ratio %.2f\n",
                experiments, row.name, median(single) / steps / 1000, median(lanes) / steps / 1000,
                median(single) / median(lanes));
}

}  // namespace

namespace bench {

double nanoseconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return 1e9 * static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec);
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

void printLaws(int rounds) {
    std::printf("%-32s %8s %8s %7s %9s %9s %7s\n", "law", "side ns", "literal", "ratio", "step us", "literal",
                "ratio");
    for (const LawRow& row : rows) printRow(row, rounds);
}

void printPlans(int rounds) {
    for (const int experiments : {4, 8, 9, 24})
        for (const int law : {3, 4}) printPlan(rows[law], experiments, rounds);
}

}  // namespace bench

namespace {

/// @param state  ranges: rounds, years of the planets (the windows of 200 take seven minutes; 0: without
/// them)
void table(benchmark::State& state) {
    const int rounds = static_cast<int>(state.range(0)), years = static_cast<int>(state.range(1));
    for (auto _ : state) {
        bench::printLaws(rounds);
        bench::printPlans(std::max(5, rounds / 8));
        bench::printReduction(std::max(5, rounds / 8));
        if (years > 0) bench::printPassages(years, 3);
    }
}
BENCHMARK(table)
    ->ArgNames({"rounds", "years"})
    ->Args({41, 0})
    ->Args({41, 200})
    ->Unit(benchmark::kSecond)
    ->Iterations(1);

}  // namespace
}  // namespace tarvex
