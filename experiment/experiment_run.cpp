#include "experiment/experiment_run.h"

#include <algorithm>

#include "core/arithmetic.h"

namespace tarvex {

namespace {

void takeLaws(Motion& motion, const LawSettings& laws) {
    motion.kodPgr = codeOf(laws.pressure);
    motion.kodDX = codeOf(laws.retardation);
    motion.kPgr1 = finite(laws.k1);
    motion.kPgr2 = finite(laws.k2);
    motion.kodDiffurV = laws.ratesEachStage ? 1 : 0;
    motion.kodAA = laws.ratesFromAccelerations ? 1 : 0;
    motion.kodLVsimple = laws.shortLienardWiechert ? 1 : 0;
    motion.kodRelativity = laws.relativity ? 1 : 0;
    motion.kodEpot = laws.pairEnergies ? 1 : 0;
    motion.kodXcm = laws.showCentre ? 1 : 0;
    motion.kodCMnow = laws.centreNow ? 1 : 0;
    motion.kodSun = laws.sunFromCentre ? 1 : 0;
}

/// Passes on what a run tells, and keeps the orbits.
class Watch final : public ExperimentPort {
public:
    Watch(const Experiment& e, ExperimentPort& port, std::vector<OrbitSeen>& orbits)
        : e_(e), port_(port), orbits_(orbits) {}
    void settingsTaken() override { port_.settingsTaken(); }
    void started(const StartNotes& notes) override { port_.started(notes); }
    void passed(const Passage& seen) override {
        const RunState& run = e_.run;
        if (seen.apse && !seen.first)
            orbits_.push_back({.JD = e_.s.JDstart + run.Tmod / sekD,
                               .atPerihelion = run.kodPeri == 1,
                               .perihelion = run.AlfaP,
                               .node = run.AlfaU,
                               .inclination = run.Betta * kUgol,
                               .eccentricity = run.Eks,
                               .semiAxis = e_.s.Rr[e_.s.IplSel],
                               .period = run.Period});
        port_.passed(seen);
    }
    void showDate() override { port_.showDate(); }
    void drawBodies() override { port_.drawBodies(); }
    void showTrack() override { port_.showTrack(); }
    void showEnergy() override { port_.showEnergy(); }
    void testExperiment() override { port_.testExperiment(); }
    bool giveWay() override { return port_.giveWay(); }

private:
    const Experiment& e_;
    ExperimentPort& port_;
    std::vector<OrbitSeen>& orbits_;
};

class TellingPort final : public ExperimentPort {
public:
    TellingPort(const Experiment& e, const std::function<bool(double)>& tell) : e_(e), tell_(tell) {}
    bool giveWay() override { return !tell_ || tell_(shareDone(e_)); }

private:
    const Experiment& e_;
    const std::function<bool(double)>& tell_;
};

}  // namespace

double shareDone(const Experiment& e) {
    const RunState& run = e.run;
    if (!run.boxes.endAtYear) return 0;
    const double begun = e.s.God0 + (e.s.Mes0 - 1) / 12.;
    const bool back = run.measuring == Measuring::ExactPassages && run.kodTime == -1;
    const double all = (back ? begun - run.GodEnd : run.GodEnd + 1 - begun) * sekG;
    return all > 0 ? std::clamp(run.Tsec / all, 0., 1.) : 0;
}

void beginExperiment(const Experiment& e, const ExperimentSettings& set, ExperimentPort& port) {
    if (set.initial) formInitialData(e, *set.initial);
    if (set.laws) takeLaws(e.motion, *set.laws);
    if (set.plan) e.s.NPlan = *set.plan;
    takeSettings(e, set.run);
    port.settingsTaken();
    port.started(prepareExperiment(e, set.run));
}

ExperimentResult runExperiment(const Experiment& e, const ExperimentSettings& set, ExperimentPort& port) {
    const ArithmeticGuard guard;
    ExperimentResult result;
    Watch watch(e, port, result.orbits);
    beginExperiment(e, set, watch);
    RunLoop(e, watch);
    guard.check();
    dropRecords(e.run);
    const RunState& run = e.run;
    result.complete = run.kodTest == 1 || reachedEnd(e);
    result.JD = e.s.JD;
    result.turns = run.NZamer;
    if (run.boxes.records && run.kodTest == 0) result.record = run.FileRas;
    if (run.boxes.track) result.track = run.FileXYZ;
    return result;
}

ExperimentResult runExperiment(const Experiment& e, const ExperimentSettings& set,
                               const std::function<bool(double share)>& tell) {
    TellingPort port(e, tell);
    return runExperiment(e, set, port);
}

}  // namespace tarvex
