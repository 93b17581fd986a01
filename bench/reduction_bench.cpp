// Observations a second through the full chain, without pictures: theories, both aberrations, precession,
// nutation, parallax, refraction, visibility (20,000 a second are the least wanted); and dates of a table
// that has no workbook, the chain alone.

#include "reduction/reduction_run.h"

#include <cstdio>

#include "bench/timing.h"
#include "core/constants.h"

namespace tarvex {
namespace {

struct Bench {
    ModelState s;
    ReductionState r;
    PlanBlock plan;
    const DataTree tree{TARVEX_SOURCE_DIR "/data"};
    Reduction all{s, r, plan, tree};

    Bench() { s.gamma = 6.67259e-11; }

    void fullChain(int body) {
        s.NameData = "SUMM";
        s.IplSel = body;
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
    }
    void tableDates() {
        s.IplSel = 4;
        s.DtCur = 10;
        s.JDepoha = 2415020;
        r.table.table = &ancientTable(5);
        r.GodK = 1900 + 2738;
    }
    double once() {
        ReductionView view;
        startReduction(all);
        const double ns = bench::timed(1, [&] { ReductionRun(all, view); });
        return r.NObs / ns * 1e9;
    }
};

void print(const char* name, Bench& one, int rounds) {
    std::vector<double> rates;
    for (int round = 0; round < rounds; ++round) rates.push_back(one.once());
    std::printf("%-48s %10.0f a second\n", name, bench::median(rates));
}

}  // namespace

void bench::printReduction(int rounds) {
    for (const auto& [body, name] : {std::pair{0, "observations of the Sun"},
                                     {4, "observations of Mars"},
                                     {11, "observations of the Moon"}}) {
        Bench one;
        one.fullChain(body);
        print(name, one, rounds);
    }
    Bench dates;
    dates.tableDates();
    print("dates of a table of Mars", dates, rounds);
}

}  // namespace tarvex
