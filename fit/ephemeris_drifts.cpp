#include "fit/ephemeris_drifts.h"

#include <algorithm>
#include <filesystem>
#include <memory>

#include "core/calendar.h"
#include "core/failure.h"
#include "core/private_folder.h"
#include "experiment/experiment_run.h"

namespace tarvex {

namespace {

namespace fs = std::filesystem;

/// A tree of passing files in which a run may write: the ephemeris is read in place.
void linkEphemeris(const DataTree& real, const fs::path& own) {
    fs::create_directory(own / "JPL");
    const fs::path folder = real.at("\\JPL");
    std::error_code none;  // what is missing is told when it is asked for
    for (const auto& file : fs::directory_iterator(folder, none))
        if (file.path().extension() == ".405")
            fs::create_symlink(fs::absolute(file.path()), own / "JPL" / file.path().filename());
}

/// Fails where a file of the ephemeris is not there: by its own name in the tree, before anything runs.
void needEphemeris(const DataTree& tree, int from, int to) {
    constexpr double daysOfFile = 7304;  // or 24 more
    const auto s = std::make_unique<ModelState>();
    const auto ephemeris = std::make_unique<Ephemeris>(tree);
    const double first = JDfromDate(*s, 1.5, 1, from), last = JDfromDate(*s, 31, 12, to);
    if (s->kodErrDate != 0) throw ConversionFailure("нет таких лет");
    for (double JD = first; JD < last + daysOfFile; JD += daysOfFile) {
        s->JD = std::min(JD, last);
        DEOpen(*s, *ephemeris);
    }
}

}  // namespace

SeriesData ephemerisSeries(const DataTree& tree, int planet, int from, int to,
                           const std::function<bool()>& goOn) {
    if (planet < 1 || planet > 9) throw Failure("в DE405 нет объекта № " + std::to_string(planet));
    if (to < from) throw Failure("последний год раньше первого");
    needEphemeris(tree, from, to);
    const PrivateFolder folder("de405");
    linkEphemeris(tree, folder.path());
    const DataTree own(folder.path());
    const auto model = std::make_unique<Model>(own);
    ExperimentSettings set{.initial = InitialSettings{.source = Source::JPL0, .year = from}};
    set.run.model = false;
    set.run.body = planet;
    set.run.step = 86400;  // shorter than a record of the ephemeris, and than a part of a turn of Mercury
    set.run.stepsPerDisplay = 200;
    set.run.lastYear = to;
    set.run.measuring = Measuring::ExactPassages;
    set.run.boxes = {.measure = true, .records = true, .endAtYear = true, .theory = Imitator::JPL2};
    const ExperimentResult seen =
        runExperiment(model->experiment(), set, [&](double) { return !goOn || goOn(); });
    SeriesData series;
    if (!seen.complete) return series;
    readSeries(own, seen.record, dataImitator, series);
    series.FileData = files::series("\\JPL", planet);
    series.Npl = planet;
    series.DirImit = "\\JPL";
    return series;
}

}  // namespace tarvex
