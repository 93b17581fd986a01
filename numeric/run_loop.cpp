#include "numeric/run_loop.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "numeric/integrator.h"
#include "numeric/records.h"
#include "theories/elements.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr int cellOrigin = equations;  ///< U(66..68): the origin that a pass takes off

// ------------------------------------------------------------------ one step

Rows ModelState::*const stateRows[] = {&ModelState::X,  &ModelState::Y,  &ModelState::Z,
                                       &ModelState::VX, &ModelState::VY, &ModelState::VZ};

/// The part of the state that a failed step must give back.
class LastGood {
public:
    explicit LastGood(const Experiment& e)
        : e_(e), U_(e.motion.U), AX_(e.motion.AX), AY_(e.motion.AY), AZ_(e.motion.AZ), Vpl_(e.run.Vpl) {
        for (int b = 0; b < 6; ++b) std::copy_n((e.s.*stateRows[b]).begin(), kept, rows_[b].begin());
    }
    void giveBack() const {
        e_.motion.U = U_;
        e_.motion.AX = AX_;
        e_.motion.AY = AY_;
        e_.motion.AZ = AZ_;
        e_.run.Vpl = Vpl_;
        for (int b = 0; b < 6; ++b) std::copy_n(rows_[b].begin(), kept, (e_.s.*stateRows[b]).begin());
        dropNonNumbers(e_.motion);
        RunState& run = e_.run;
        for (auto* stage : {&run.K1, &run.K2, &run.K3, &run.K4, &run.A1, &run.A2, &run.A3, &run.A4})
            for (double& value : *stage)
                if (!std::isfinite(value)) value = 0;
    }

private:
    static constexpr int kept = 20;  ///< bodies and the work rows of the origin correction
    const Experiment& e_;
    decltype(Motion::U) U_;
    BodyArray AX_, AY_, AZ_;
    double Vpl_;
    std::array<std::array<double, kept>, 6> rows_;
};

void modelStep(const Experiment& e) {
    rungeKuttaStep(e.s, e.motion, e.run);
    unpackState(e.s, e.motion);
    for (int i = 0; i < bodies; ++i) {
        e.motion.AX[i] = e.motion.dU[i + 33];
        e.motion.AY[i] = e.motion.dU[i + 44];
        e.motion.AZ[i] = e.motion.dU[i + 55];
    }
}

/// Bodies of the ephemeris at JDjpl, from the barycentre of the Solar System.
void ephemerisPositions(const Experiment& e) {
    constexpr int ecliptic = 1;
    ModelState& s = e.s;
    DEAdvance(s, e.ephemeris);
    for (int i = 0; i < bodies; ++i) s.X[i] = s.Y[i] = s.Z[i] = 0;
    if (e.run.boxes.energy) {
        for (int i = 0; i <= 9; ++i) DEEvaluate(s, e.ephemeris, i, ecliptic);
        return;
    }
    DEEvaluate(s, e.ephemeris, rowSun, ecliptic);
    DEEvaluate(s, e.ephemeris, rowEarthMoon, ecliptic);
    if (s.IplSel < rowXena && s.IplSel != rowSun && s.IplSel != rowEarthMoon)
        DEEvaluate(s, e.ephemeris, s.IplSel, ecliptic);
    if (s.kodMoon == 1 && s.IplSel == rowXena) {
        DEEvaluate(s, e.ephemeris, rowMoon, ecliptic);
        for (const auto row : stateRows) (s.*row)[rowXena] = (s.*row)[rowMoon] + (s.*row)[rowEarthMoon];
    }
}

/// Bodies of a secular theory at JD, from the Sun at rest.
void theoryPositions(ModelState& s, Imitator theory) {
    for (const auto row : stateRows) (s.*row)[rowSun] = 0;
    for (s.Ipl = 1; s.Ipl <= 9; ++s.Ipl) {
        if (theory == Imitator::New0) {
            ElementsNew0(s);
        } else {
            ElementsJPL0(s);
        }
        ElementsToXYZ(s);
        ElementsToVXYZ(s);
    }
    s.Ipl = 9;  // the last body served
}

void imitatorStep(const Experiment& e) {
    if (e.run.kodJPL2 == 1) {
        ephemerisPositions(e);
    } else {
        theoryPositions(e.s, e.run.boxes.theory);
    }
}

// ------------------------------------------------------------------ origin

/// Sum of kodPl*m*value over bodies first..last.
double massMoment(const ModelState& s, const Rows& value, int first, int last) {
    double sum = 0;
    for (int i = first; i <= last; ++i) sum += s.kodPl[i] * s.m[i] * value[i];
    return sum;
}

/// Moves the origin into the row that the boxes choose; velocities stay.  The centre of mass is kept in row
/// 14 as it was taken, before the shift.
void shiftOrigin(const Experiment& e) {
    ModelState& s = e.s;
    double* const origin = e.motion.U.data() + cellOrigin;
    const auto take = [&](int row) {
        origin[0] = s.X[row];
        origin[1] = s.Y[row];
        origin[2] = s.Z[row];
    };
    origin[0] = origin[1] = origin[2] = 0;
    if (e.run.boxes.originSun) take(rowSun);
    if (e.run.boxes.originEarth) take(rowEarthMoon);
    if (e.run.boxes.originCentre) {
        const int last = e.run.kodModel == 1 ? 10 : 9;
        s.X[rowCentre] = massMoment(s, s.X, 0, last) / e.run.Msys;
        s.Y[rowCentre] = massMoment(s, s.Y, 0, last) / e.run.Msys;
        s.Z[rowCentre] = massMoment(s, s.Z, 0, last) / e.run.Msys;
        take(rowCentre);
    }
    for (int i = 0; i < bodies; ++i) {
        s.X[i] -= origin[0];
        s.Y[i] -= origin[1];
        s.Z[i] -= origin[2];
    }
    packCoordinates(s, e.motion);
}

/// The Sun that is not modelled stands so that the ticked bodies and it rest together in the origin.
void balanceSun(const Experiment& e) {
    constexpr int rowPositions = 18, rowVelocities = 19;
    ModelState& s = e.s;
    for (int axis = 0; axis < 3; ++axis) {
        Rows& place = s.*stateRows[axis];
        Rows& speed = s.*stateRows[axis + 3];
        place[rowPositions] = massMoment(s, place, 1, NPlanetMax);
        place[rowVelocities] = massMoment(s, speed, 1, NPlanetMax);
        place[rowSun] = -place[rowPositions] / s.m[rowSun];
        speed[rowSun] = -place[rowVelocities] / s.m[rowSun];
        e.motion.U[axis * bodies] = place[rowSun];
        e.motion.U[(axis + 3) * bodies] = speed[rowSun];
    }
}

void correctOrigin(const Experiment& e) {
    const ModelState& s = e.s;
    const int i = s.IplSel;
    e.run.Vpl = std::sqrt(s.VX[i] * s.VX[i] + s.VY[i] * s.VY[i] + s.VZ[i] * s.VZ[i]);
    if (e.motion.kodSun == 1) {
        balanceSun(e);
    } else {
        shiftOrigin(e);
    }
}

/// The step with everything that follows from it alone.  Its results go on only when all of it is a number.
void step(const Experiment& e, const ArithmeticGuard& guard) {
    const LastGood good(e);
    try {
        if (e.run.kodModel == 1) {
            modelStep(e);
        } else {
            imitatorStep(e);
        }
        correctOrigin(e);
        if (e.run.kodModel == 1 && e.motion.kodPgr != 0) SpeedUpdate(e.s, e.motion);
        guard.check();
    } catch (...) {
        good.giveBack();
        throw;
    }
}

// ------------------------------------------------------------------ what follows the step

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
        constexpr int egyptian = 2;  // this calendar changes JD as well
        const double Z = Int(s.JD + 0.5), F = s.JD + 0.5 - Z;
        if (Z == day_) {
            s.DenR = whole_ + F - s.TimeZone / 24;
            return;
        }
        const std::int16_t before = s.kodErrDate;
        s.kodErrDate = 0;
        DateFromJD(s, s.JD);
        if (s.kodErrDate != 0) throw OverflowFailure("the date of the run has left the calendar");
        s.kodErrDate = before;
        if (s.kodKalend == egyptian) return;
        day_ = Z;
        whole_ = std::round(s.DenR - F + s.TimeZone / 24);
    }
    void forget() { day_ = noDay; }

private:
    static constexpr double noDay = std::numeric_limits<double>::infinity();
    double day_ = noDay, whole_ = 0;
};

/// The clock takes the step just chosen, not the one just made: meant.
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
    if (motion.kodDX != 3 || motion.kodDebug == 0) return;
    motion.SledXsave = motion.SledX;
    motion.SledYsave = motion.SledY;
    motion.SledZsave = motion.SledZ;
    motion.dTstageSave = motion.dTstage;
}

/// Unticked bodies stand at zero while the bodies are drawn.
void dropUnticked(ModelState& s) {
    for (int i = 0; i < bodies; ++i) {
        if (s.kodPl[i] == 1) continue;
        for (const auto row : stateRows) (s.*row)[i] = 0;
    }
}

/// @return  true when the loop goes on
bool displayPass(const Experiment& e, RunPort& port) {
    e.s.NC = 0;
    port.showDate();
    if (e.run.boxes.animation) {
        dropUnticked(e.s);
        port.drawBodies();
    }
    port.showTrack();
    if (e.run.boxes.energy) {
        measureEnergy(e.s, e.motion, e.run, e.run.kodModel == 1 ? 10 : 9);
        port.showEnergy();
        if (e.run.boxes.records) WriteRasRecord(e.tree, e.s, e.run);
    }
    if (e.run.boxes.track) WriteXYZRecord(e.tree, e.s, e.run);
    if (e.s.kodStop == 1) return false;
    return port.giveWay();
}

bool reachedEnd(const Experiment& e) { return e.run.boxes.endAtYear && e.run.GodEnd + 1.0 <= e.s.GodR; }

void runPasses(const Experiment& e, RunPort& port) {
    const ArithmeticGuard guard;
    RunDate date;
    for (;;) {
        e.motion.kodDebug = e.run.boxes.debugText ? 1 : 0;
        step(e, guard);
        e.s.Icentr = originRow(e.run.boxes);
        if (e.run.boxes.measure && measure(e, port)) date.forget();
        advanceClock(e, date);
        pushTrace(e.s, e.motion, e.run.Tsec);
        keepTrace(e.motion);
        if (reachedEnd(e)) {
            port.showDate();  // the fields tell the pass that ended the run
            dropRecords(e.run);
            return;
        }
        if (e.s.NC < e.s.NC0) continue;
        if (!displayPass(e, port)) return;
        date.forget();
    }
}

}  // namespace

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
