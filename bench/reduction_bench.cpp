// Observations a second through the full chain, without pictures: theories, both aberrations, precession,
// nutation, parallax, refraction, visibility.  The counter "observations" is their rate; 20,000 a second are
// the least wanted.

#include "reduction/reduction_run.h"

#include <benchmark/benchmark.h>

#include "core/constants.h"

namespace tarvex {
namespace {

void fullChain(benchmark::State& state) {
    ModelState s;
    ReductionState r;
    PlanBlock plan;
    const DataTree tree(TARVEX_SOURCE_DIR "/data");
    s.gamma = 6.67259e-11;
    s.NameData = "SUMM";
    s.IplSel = static_cast<std::int32_t>(state.range(0));
    s.ObsB = 48;
    s.Ipert1 = {0, 2, 3, 2, 3};
    s.Ipert2 = {0, 5, 5, 5, 5};
    ReductionChoices& c = r.choices;
    c.tables = false;
    c.nutation = c.parallax = c.refraction = c.visibility = c.earthMoonTerms = true;
    c.planetTerms = s.IplSel != rowSun && s.IplSel != rowMoon;
    c.HplMin = -90;
    c.statistics = true;
    r.file.open(tree.at(observationFileName("SUMM", s.IplSel, "100", "")), "SUMM");
    s.God0 = 1960;
    r.GodK = 2059;
    ReductionView view;
    Reduction all{s, r, plan, tree};
    double observations = 0;
    for (auto _ : state) {
        startReduction(all);
        ReductionRun(all, view);
        observations += r.NObs;
    }
    state.counters["observations"] = benchmark::Counter(observations, benchmark::Counter::kIsRate);
}
BENCHMARK(fullChain)->Arg(0)->Arg(4)->Arg(11)->Unit(benchmark::kMillisecond);

/// Dates of a table that has no workbook: the chain alone.
void tableDates(benchmark::State& state) {
    ModelState s;
    ReductionState r;
    PlanBlock plan;
    const DataTree tree(TARVEX_SOURCE_DIR "/data");
    s.gamma = 6.67259e-11;
    s.IplSel = 4;
    s.DtCur = 10;
    s.JDepoha = 2415020;
    r.table.table = &ancientTable(5);
    r.GodK = 1900 + 2738;
    ReductionView view;
    Reduction all{s, r, plan, tree};
    double dates = 0;
    for (auto _ : state) {
        startReduction(all);
        ReductionRun(all, view);
        dates += r.NObs;
    }
    state.counters["dates"] = benchmark::Counter(dates, benchmark::Counter::kIsRate);
}
BENCHMARK(tableDates)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvex
