#pragma once
// The loop of an experiment.  A pass is one step of the model or of an imitator, the choice of the origin,
// the measurement that sets the next step, the clock, and at every NC0-th pass the display.

#include "core/data_tree.h"
#include "core/model_state.h"
#include "numeric/measurement.h"
#include "numeric/motion.h"
#include "numeric/run_state.h"
#include "numeric/step_seat.h"
#include "theories/ephemeris.h"

namespace tarvex {

/// What an experiment works on.
struct Experiment {
    ModelState& s;
    Motion& motion;
    RunState& run;
    Ephemeris& ephemeris;
    const DataTree& tree;
    StepSeat* seat =
        nullptr;  ///< who makes its steps together with those of others; nobody: they are its own
};

/// What a run tells whoever shows it.  A run without a screen needs none of it.
class RunPort {
public:
    virtual ~RunPort() = default;
    virtual void passed(const Passage&) {}  ///< a node or an apse, before its record is written
    virtual void showDate() {}              ///< clock, date and longitude
    virtual void drawBodies() {}            ///< animation; unticked bodies stand at zero
    virtual void showTrack() {}             ///< coordinates and their plots
    virtual void showEnergy() {}            ///< energies have been computed
    virtual void testExperiment() {}        ///< test of a plan: computes the criterion of its experiment
    /// Gives way to the user.  False: nobody is left to run for.
    virtual bool giveWay() { return true; }
};

/// Advances the experiment until the user or the end year stops it; leaving and entering again continues it.
/// Steps allocate nothing.
/// @throws Refusal "Ошибка решения уравнений" for whatever fails inside: the state is then that of the last
/// good
///         step and holds no value that is not a number.  Messages of the ephemeris pass unchanged.
void RunLoop(const Experiment& e, RunPort& port);

/// True when the date of the run is past its last year, and the run ends with one.
bool reachedEnd(const Experiment& e);

}  // namespace tarvex
