// Readers of plans, series and shifts.
#include <memory>

#include "fuzz/target.h"
#include "reduction/observation_plan.h"
#include "stats/gravity_plan.h"
#include "stats/plan_file.h"
#include "stats/series.h"
#include "stats/shifts.h"
#include "stats/test_plan.h"

namespace tarvex::fuzz {

namespace {

const Target gravityPlan("gravity_plan", [](std::string_view input) {
    put(files::plan(1), input);
    const auto p = std::make_unique<PlanBlock>();
    const auto t = std::make_unique<ShiftTables>();
    const PlanFileHead head = readPlanFile(tree(), 1, *p, *t);
    writePlanFile(tree(), 1, head, *p, *t);
    expectReadable("a plan", [&] { readPlanFile(tree(), 1, *p, *t); });
    expectAllFinite(p->Xnul, "a level");
    expectAllFinite(p->dXvar, "an interval");
    expectAllFinite(t->Ves, "a weight");
});

const Target testPlan("test_plan", [](std::string_view input) {
    put(files::testPlan(4), input);
    const auto p = std::make_unique<PlanBlock>();
    p->Nf = 4;
    readTestPlan(tree(), *p);
    expectAllFinite(p->Yu, "a response");
    expectAllFinite(p->Xnul, "a level");
});

const Target observationPlan("observation_plan", [](std::string_view input) {
    const std::string name = "\\Obs\\Plan1\\1_100_1.dat";
    put(name, input);
    const auto s = std::make_unique<ModelState>();
    const auto r = std::make_unique<ReductionState>();
    const auto p = std::make_unique<PlanBlock>();
    loadPlanTest(*s, *r, *p, tree(), name);
    expectAllFinite(p->Xnul, "a level");
    expectAllFinite(p->dXvar, "an interval");
});

void readSeriesAs(DataKind kind, std::string_view input) {
    put("\\NEW\\Tarvex1Nab.txt", input);
    SeriesData d;
    readSeries(tree(), "\\NEW\\Tarvex1Nab.txt", kind, d);
    d.kodData = kind;
    d.FileData = "\\NEW\\Tarvex2Nab.txt";
    foldAngles(d, parAlfaP);
    writeSeries(tree(), d);
    expectReadable("a series", [&] { readSeries(tree(), d.FileData, kind, d); });
    for (const Record& record : d.records) {
        expectFinite(record.dTd, "a date");
        expectAllFinite(record.Par, "a record");
    }
}

const Target series("series", [](std::string_view input) { readSeriesAs(dataImitator, input); });
const Target longSeries("long_series", [](std::string_view input) { readSeriesAs(dataLong, input); });

const Target shifts("shifts", [](std::string_view input) {
    put(files::shifts("\\Ser"), input);
    put(files::planShifts(1, 1), input);
    const auto t = std::make_unique<ShiftTables>();
    std::int16_t count = 0;
    try {
        readPlanShifts(tree(), 1, 1, *t, count);
    } catch (const Failure&) {
    }
    readObservedShifts(tree(), "\\Ser", 9, *t);
    expectAllFinite(t->dNab, "an observed shift");
    expectAllFinite(t->dRas, "a calculated shift");
});

}  // namespace

}  // namespace tarvex::fuzz
