#include "numeric/advance.h"

#include <algorithm>
#include <cmath>

#include "numeric/integrator.h"
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
    if (e.run.stepper == Stepper::Order8) {
        order8Step(e.s, e.motion, e.run.stages);
    } else if (e.seat != nullptr) {
        e.seat->step();
    } else {
        rungeKuttaStep(e.s, e.motion, e.run);
    }
    unpackState(e.s, e.motion);
    for (int i = 0; i < bodies; ++i) {
        e.motion.AX[i] = e.motion.dU[i + 33];
        e.motion.AY[i] = e.motion.dU[i + 44];
        e.motion.AZ[i] = e.motion.dU[i + 55];
    }
}

void speedUpdate(const Experiment& e) {
    if (e.seat != nullptr) {
        e.seat->speeds();
    } else {
        SpeedUpdate(e.s, e.motion);
    }
}

/// Bodies of the ephemeris at JDjpl, from the barycentre of the Solar System.
void ephemerisPositions(const Experiment& e) {
    constexpr int ecliptic = 1;
    ModelState& s = e.s;
    const bool exact = e.run.measuring == Measuring::ExactPassages;
    if (exact) {
        DESeek(s, e.ephemeris);  // back in time too, and to a passage that lies in the record before
    } else {
        DEAdvance(s, e.ephemeris);
    }
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
    if (!exact || !e.run.boxes.originCentre) return;
    for (int i = 0; i <= 9; ++i)
        DEEvaluate(s, e.ephemeris, i, ecliptic);  // the centre moves with all of them
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

}  // namespace

void imitatorStep(const Experiment& e) {
    if (e.run.kodJPL2 == 1) {
        ephemerisPositions(e);
    } else {
        theoryPositions(e.s, e.run.boxes.theory);
    }
}

// ------------------------------------------------------------------ origin

namespace {

/// Sum of kodPl*m*value over bodies first..last.
double massMoment(const ModelState& s, const double* value, int first, int last) {
    double sum = 0;
    for (int i = first; i <= last; ++i) sum += s.kodPl[i] * s.m[i] * value[i];
    return sum;
}
double massMoment(const ModelState& s, const Rows& value, int first, int last) {
    return massMoment(s, value.data(), first, last);
}

int lastBody(const RunState& run) { return run.kodModel == 1 ? NPlanetMax : NPlanetMax - 1; }

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
        const int last = lastBody(e.run);
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

}  // namespace

void advance(const Experiment& e, const ArithmeticGuard& guard) {
    const LastGood good(e);
    try {
        if (e.run.kodModel == 1) {
            modelStep(e);
        } else {
            imitatorStep(e);
        }
        correctOrigin(e);
        if (e.run.kodModel == 1 && e.motion.kodPgr != 0) speedUpdate(e);
        guard.check();
    } catch (...) {
        good.giveBack();
        throw;
    }
}

Vec3 fromOrigin(const ModelState& s, const RunState& run, const StateBlocks& b) {
    const int i = s.IplSel, c = s.Icentr;
    const Vec3 body{b.x[i], b.y[i], b.z[i]};
    if (c == rowOrigin) return body;
    if (c != rowCentre) return body - Vec3{b.x[c], b.y[c], b.z[c]};
    const auto centre = [&](const double* axis) { return massMoment(s, axis, 0, lastBody(run)) / run.Msys; };
    return body - Vec3{centre(b.x), centre(b.y), centre(b.z)};
}

}  // namespace tarvex
