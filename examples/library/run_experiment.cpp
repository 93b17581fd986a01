// An experiment without any screen: Mercury among the planets from 1801 to 1802 by Newton's law, and again by
// a law in which gravity has a speed.
//
//     run_experiment DATA
//
// DATA is the data tree; nothing is written into it, for the runs keep no records.

#include <cstdio>
#include <exception>

#include "experiment/experiment_run.h"

using namespace tarvex;

namespace {

ExperimentSettings mercury() {
    ExperimentSettings set;
    set.initial = InitialSettings{.source = Source::Ser0, .year = 1801, .month = 1, .day = 1.5};
    set.laws = LawSettings{};
    set.run.body = 1;
    set.run.windowDegrees = 1;
    set.run.step = 3600;  // s
    set.run.stepDivider = 100;
    set.run.lastYear = 1802;
    set.run.boxes.measure = set.run.boxes.endAtYear = true;
    return set;
}

void tell(const char* law, const ExperimentResult& seen) {
    const OrbitSeen& last = seen.orbits.back();
    std::printf("%s: %d turns, perihelion %.5f, node %.5f degrees, eccentricity %.6f, period %.4f days\n",
                law, seen.turns, last.perihelion, last.node, last.eccentricity, last.period);
}

}  // namespace

int main(int count, char** words) try {
    const DataTree tree(count > 1 ? words[1] : "data");
    Model model(tree);
    ExperimentSettings set = mercury();
    tell("Newton", runExperiment(model.experiment(), set));

    set.laws = LawSettings{.pressure = Pressure::GerberSecond, .k1 = 3, .k2 = 6};
    set.run.finiteGravitySpeed = true;
    set.run.gravitySpeed = 1;  // in units of that of light
    tell("Gerber", runExperiment(model.experiment(), set));
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
