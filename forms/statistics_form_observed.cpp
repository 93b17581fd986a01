// Statistics: the observed shifts as DE405 has them, measured over the years of the model's own experiments.

#include "fit/ephemeris_drifts.h"
#include "forms/statistics_form.h"
#include "stats/series_shift.h"

namespace tarvex {

namespace {

constexpr const char* box = "Tarvex7";
constexpr const char* folder = "\\JPL";

/// Takes the mark of a measurement that goes on away.
struct Mark {
    bool& measuring;
    ~Mark() { measuring = false; }
};

}  // namespace

/// The planets that the plan screen uses: its ticks, or those it opens with.
std::vector<int> StatisticsForm::planetsOfPlan() {
    if (const auto* plan = loadedScreen<PlanScreen>(desk())) return plan->tickedPlanets();
    const auto described = desk().describe(PlanScreen::formName);
    return dynamic_cast<const PlanScreen&>(*described).tickedPlanets();
}

void StatisticsForm::measureObserved(int body, int from, int to, ShiftTables& measured) {
    const SeriesData series = ephemerisSeries(lab.tree, body, from, to, [this] {
        desk().yield();
        return measuring_;
    });
    for (int param = 1; param <= shiftParams; ++param) {
        const SeriesShift one = seriesShift(series, param, withPeriods.on());
        measured.dNab[static_cast<std::size_t>(body)][static_cast<std::size_t>(param)] = one.shift;
        measured.dNabErr[static_cast<std::size_t>(body)][static_cast<std::size_t>(param)] = one.error;
    }
    const std::string name = series.FileData;
    stage("Ошибка записи данных в файл\r\n" + name, box, [&] { writeSeries(lab.tree, series); });
}

void StatisticsForm::ObservedFromDE405() {
    if (measuring_) return;  // pressed while a measurement gives way: that one goes on
    const std::vector<int> planets = planetsOfPlan();
    if (planets.empty()) throw Refusal("На форме 15 не отмечены планеты", box);
    const int from = observedFrom.int32(), to = observedTo.int32();
    ShiftTables measured = lab.shifts;
    measured.dNab = measured.dNabErr = {};
    try {
        readObservedShifts(lab.tree, folder, shiftPlanets, measured);
        readObservedErrors(lab.tree, folder, measured);
    } catch (const OpenFailure&) {
        // the first table of this imitator
    }
    measuring_ = true;
    const Mark mark{measuring_};
    const Running calculation(*this);
    double done = 0;
    for (const int body : planets) {
        setStatus("DE405: планета " + std::to_string(body));
        measureObserved(body, from, to, measured);
        progress(++done / static_cast<double>(planets.size()));
    }
    setStatus("");
    stage("Ошибка записи данных в файл\r\n" + files::shifts(folder), box, [&] {
        writeObservedShifts(lab.tree, folder, measured);
        writeObservedErrors(lab.tree, folder, measured);
    });
    fromImitator.choose();
    jplImitator.choose();
    LoadShifts();
}

}  // namespace tarvex
