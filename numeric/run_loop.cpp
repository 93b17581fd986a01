#include "numeric/run_loop.h"

#include <cmath>
#include <limits>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "numeric/advance.h"
#include "numeric/exact_passages.h"
#include "numeric/records.h"

namespace tarvex {

namespace {

/// @return  true when something was passed, and told
bool measure(const Experiment& e, RunPort& port) {
    const Passage seen = measurePass(e.s, e.run);
    const bool told = seen.node || seen.apse || seen.periodRenewed;
    if (told) port.passed(seen);
    if (seen.apse) {
        if (e.run.boxes.records && e.run.NZamer > 2) WriteRasRecord(e.tree, e.s, e.run);
        endApse(e.run);
    }
    refineStep(e.s, e.run);
    return told;
}

/// The date of the run in GodR, MesR, DenR.  Within a day only the fraction of DenR changes; whoever else may
/// have written these cells makes it forget the day.
class RunDate {
public:
    void tell(ModelState& s) {
        const double Z = Int(s.JD + 0.5), F = s.JD + 0.5 - Z;
        if (Z == day_) {
            s.DenR = whole_ + F - s.TimeZone / 24;
            return;
        }
        const std::int16_t before = s.kodErrDate;
        s.kodErrDate = 0;
        DateFromJD(s, s.JD);
        if (s.kodErrDate != 0) throw OverflowFailure("дата модели вышла за календарь: JD " + toText(s.JD));
        s.kodErrDate = before;
        if (s.kodKalend == codeOf(Calendar::Egyptian)) return;  // this calendar changes JD as well
        day_ = Z;
        whole_ = std::round(s.DenR - F + s.TimeZone / 24);
    }
    void forget() { day_ = noDay; }

private:
    static constexpr double noDay = std::numeric_limits<double>::infinity();
    double day_ = noDay, whole_ = 0;
};

bool exact(const Experiment& e) { return e.run.measuring == Measuring::ExactPassages; }

/// The clock takes the step just chosen, not the one just made: all series recorded so far are timed so.
void advanceClock(const Experiment& e, RunDate& date) {
    ModelState& s = e.s;
    s.NC = static_cast<std::int16_t>(s.NC + 1);
    e.run.Tsec += s.DtCur;
    e.run.Tmod += e.run.kodTime * s.DtCur;
    e.ephemeris.JDjpl += e.run.kodTime * s.DtCur / sekD;
    s.JD = e.ephemeris.JDjpl;
    date.tell(s);
}

/// Copies for the gravity bench while the debug box is on.
void keepTrace(Motion& motion) {
    if (motion.kodDX != codeOf(Retardation::ByTrace) || motion.kodDebug == 0) return;
    motion.SledXsave = motion.SledX;
    motion.SledYsave = motion.SledY;
    motion.SledZsave = motion.SledZ;
    motion.dTstageSave = motion.dTstage;
}

/// Unticked bodies stand at zero while the bodies are drawn.
void dropUnticked(ModelState& s) {
    for (int i = 0; i < bodies; ++i) {
        if (s.kodPl[i] == 1) continue;
        s.X[i] = s.Y[i] = s.Z[i] = s.VX[i] = s.VY[i] = s.VZ[i] = 0;
    }
}

/// @return  true when the loop goes on
bool displayPass(const Experiment& e, RunPort& port) {
    e.s.NC = 0;
    const int last = e.run.kodModel == 1 ? NPlanetMax : NPlanetMax - 1;
    if (e.motion.kodCMnow == 1) formCentre(e.s, e.run.Msys, last);  // before the fields that may show it
    port.showDate();
    if (e.run.boxes.animation) {
        dropUnticked(e.s);
        port.drawBodies();
    }
    port.showTrack();
    if (e.run.boxes.energy) {
        measureEnergy(e.s, e.motion, e.run, last);
        port.showEnergy();
        if (e.run.boxes.records) WriteRasRecord(e.tree, e.s, e.run);
    }
    if (e.run.boxes.track) WriteXYZRecord(e.tree, e.s, e.run);
    if (e.s.kodStop == 1) return false;
    return port.giveWay();
}

/// The step, the windows around apses and nodes with the choice of the next step, and the clock.
void windowsPass(const Experiment& e, RunPort& port, const ArithmeticGuard& guard, RunDate& date) {
    advance(e, guard);
    e.s.Icentr = originRow(e.run.boxes);
    if (e.run.boxes.measure && measure(e, port)) date.forget();
    advanceClock(e, date);
    pushTrace(e.s, e.motion, e.run.Tsec);
}

/// A base step, the clock, and whatever has been passed inside the step.
void exactPass(const Experiment& e, RunPort& port, const ArithmeticGuard& guard, RunDate& date) {
    e.s.DtCur = e.s.Dt;
    e.s.Icentr = originRow(e.run.boxes);
    const OrbitPoint before = seenFromOrigin(e);
    const double begun = e.run.Tsec;
    advance(e, guard);
    advanceClock(e, date);
    pushTrace(e.s, e.motion, e.run.Tsec);
    if (!e.run.boxes.measure) {
        e.run.watch.interrupt(e.run.NZamer > 0);
    } else if (e.run.kodModel == 1 ? followModel(e, before, port) : followImitator(e, begun, port)) {
        date.forget();
    }
}

/// What the fields show of the present place; exact measuring needs no more of it than at passages.
void lookAtPlace(const Experiment& e) {
    if (exact(e) && e.run.boxes.measure) look(e.s);
}

/// The seat of an experiment, taken as long as nobody else has a turn.
class SeatTaken {
public:
    explicit SeatTaken(const Experiment& e) : seat_(e.seat) {
        if (seat_ != nullptr) seat_->take(e);
    }
    ~SeatTaken() {
        if (seat_ != nullptr) seat_->leave();
    }
    SeatTaken(const SeatTaken&) = delete;
    SeatTaken& operator=(const SeatTaken&) = delete;

private:
    StepSeat* seat_;
};

/// Passes to the next display; nobody else has a turn meanwhile.
/// @return  false when one of them was the last of the run
bool passesToDisplay(const Experiment& e, RunPort& port, const ArithmeticGuard& guard, RunDate& date) {
    const WeightsHeld weights(e.s, e.motion);
    const SeatTaken seat(e);
    do {
        e.motion.kodDebug = e.run.boxes.debugText ? 1 : 0;
        if (exact(e)) {
            exactPass(e, port, guard, date);
        } else {
            windowsPass(e, port, guard, date);
        }
        keepTrace(e.motion);
        if (reachedEnd(e)) return false;
    } while (e.s.NC < e.s.NC0);
    return true;
}

void runPasses(const Experiment& e, RunPort& port) {
    const ArithmeticGuard guard;
    RunDate date;
    while (passesToDisplay(e, port, guard, date)) {
        lookAtPlace(e);
        if (!displayPass(e, port)) return;
        needSelectedBody(e.s);  // the user has had his turn
        date.forget();
    }
    lookAtPlace(e);
    if (exact(e)) endPassages(e, port);
    port.showDate();  // the fields tell the pass that ended the run
    dropRecords(e.run);
}

}  // namespace

bool reachedEnd(const Experiment& e) {
    if (!e.run.boxes.endAtYear) return false;
    if (exact(e) && e.run.kodTime == -1) return e.s.GodR < e.run.GodEnd;
    return e.run.GodEnd + 1.0 <= e.s.GodR;
}

void RunLoop(const Experiment& e, RunPort& port) {
    stage("Ошибка решения уравнений", "Tarvex7mmm", [&] {
        if (e.run.kodTest == 1) {
            port.testExperiment();
        } else {
            runPasses(e, port);
        }
    });
}

}  // namespace tarvex
