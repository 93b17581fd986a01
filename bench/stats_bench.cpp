// Fits of long series and the search over all sizes of groups, without the drawing.

#include <benchmark/benchmark.h>

#include <cmath>

#include "stats/fit.h"

namespace tarvex {
namespace {

SeriesData series(int records) {
    SeriesData d;
    d.JD0 = JD2000 - 36525;
    d.kodData = dataModel;
    d.Nparam = parAlfaP;
    d.records.resize(records);
    for (int i = 0; i < records; ++i) {
        d.records[i].dTd = 44.0 * i;
        d.records[i].Par[parAlfaP] = 77 + 1.9e-6 * i + 1e-3 * std::sin(0.7 * i);
    }
    return d;
}

FitSettings wholeOf(const SeriesData& d, Equation equation) {
    FitSettings settings;
    settings.equation = equation;
    settings.first = 1;
    settings.last = d.NP1max();
    settings.T0 = JD2000;
    return settings;
}

/// Every size of groups that leaves enough of them, and the three criteria.
void groupSearch(benchmark::State& state) {
    const SeriesData d = series(static_cast<int>(state.range(0)));
    const FitSettings settings = wholeOf(d, Equation::Line);
    const int last = settings.size() / settings.leastGroups();
    std::vector<double> dYgr(last + 1), Sigma2gr(last + 1);
    FitResult fit;
    for (auto _ : state) {
        for (int NCP = 1; NCP <= last; ++NCP) {
            formGroups(d, settings, NCP, fit);
            fitGroups(settings.equation, fit);
            dYgr[NCP] = shiftAt(settings.equation, fit, 0);
            Sigma2gr[NCP] = limitFactor * fit.Sigma;
        }
        benchmark::DoNotOptimize(searchGroups(dYgr, Sigma2gr, 1, last));
    }
}
BENCHMARK(groupSearch)->ArgName("records")->Arg(1000)->Arg(32000)->Unit(benchmark::kMillisecond);

void singleFit(benchmark::State& state) {
    const SeriesData d = series(32000);
    const FitSettings settings = wholeOf(d, static_cast<Equation>(state.range(0)));
    FitResult fit;
    for (auto _ : state) {
        formGroups(d, settings, 1, fit);
        fitGroups(settings.equation, fit);
        benchmark::DoNotOptimize(fit);
    }
}
BENCHMARK(singleFit)
    ->ArgName("equation")
    ->Arg(static_cast<int>(Equation::Constant))
    ->Arg(static_cast<int>(Equation::Line))
    ->Arg(static_cast<int>(Equation::Parabola))
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvex
