#include "experiment/initial_settings.h"

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "initial/initial_data.h"
#include "initial/load_source.h"
#include "initial/parameter_file.h"
#include "initial/start_up.h"

namespace tarvex {

namespace {

/// The typed date into the dates of the state.
void takeDate(ModelState& s, const InitialSettings& set) {
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
    s.God0 = set.year;
    s.Mes0 = set.month;
    s.Den0 = finite(set.day);
    s.kodErrDate = 0;
    enterDate(s);
    if (s.kodErrDate != 0)
        throw ConversionFailure("нет такой даты: " + toText(set.day) + "." + toText(set.month) + "." +
                                toText(set.year));
    enterTime(s, set.source);
}

void loadFile(const Experiment& e, int file) {
    e.s.NFile = toInt16(file);
    ParameterReader reader(e.tree, file);
    reader.date(e.s);
    enterDate(e.s);
    reader.bodies(e.s, [](int) {});
}

}  // namespace

void formInitialData(const Experiment& e, const InitialSettings& set) {
    ModelState& s = e.s;
    startUp(s);
    auto ticked = set.inModel;
    ticked[rowXena] = ticked[rowXena] || set.earthAndMoon;
    tickBodies(s, ticked);
    clearSunElements(s);
    takeDate(s, set);
    s.kodMoon = set.earthAndMoon ? 1 : 0;
    bool own = true;  // the source brings coordinates and velocities
    switch (set.source) {
        case Source::Screen:
            throw Failure("элементы с экрана без экрана");
        case Source::File:
            loadFile(e, set.file);
            break;
        case Source::JPL2:
            loadEphemeris(s, e.ephemeris);
            break;
        default:
            loadTheory(s, set.source);
            own = false;
    }
    meanSpeeds(s);
    if (!own || set.byElements)
        initialDataFromElements(s, {.moon = set.earthAndMoon, .bary3 = set.bary3, .bary = set.bary});
    handOverElements(s);
    s.VXsys = finite(set.systemVelocity[0]);
    s.VYsys = finite(set.systemVelocity[1]);
    s.VZsys = finite(set.systemVelocity[2]);
    s.provenance.source = set.source;
    s.provenance.file = set.file;
    s.provenance.year = s.God0;
    s.provenance.month = s.Mes0;
    s.provenance.day = s.Den0;
    s.provenance.complete = true;
}

}  // namespace tarvex
