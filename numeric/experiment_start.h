#pragma once
// Start of a run from its settings, with or without a screen.

#include <string>
#include <vector>

#include "numeric/run_loop.h"
#include "numeric/run_settings.h"

namespace tarvex {

/// What Start has to tell on the plot.
struct StartNotes {
    std::string trace;              ///< size of the trace, empty without one
    std::vector<std::string> top;   ///< the experiment, at the top of the plot
    std::vector<std::string> foot;  ///< the energy, at its foot
};

/// First half of the start: reads the settings into the state and sets the clock to the start.
/// @throws as startExperiment
void takeSettings(const Experiment& e, const RunSettings& settings);

/// Second half of the start: takes the initial data X0..VZ0, prepares the model or the imitator and writes
/// the heads of the record files.  RunLoop() is to follow.
/// @throws as startExperiment
StartNotes prepareExperiment(const Experiment& e, const RunSettings& settings);

/// Both halves.
/// @throws Refusal with the text of what the user must mend; any other failure for "Задайте правильно данные"
StartNotes startExperiment(const Experiment& e, const RunSettings& settings);

/// Re-reads what Continue reads: scales, NFile, Dt, NC0, kDt, dYplot, the speed of gravity; kodStop and NC to
/// 0.
void continueExperiment(const Experiment& e, const RunSettings& settings);

/// Turns the run round: velocities and the moment of momentum change their sign.
/// @param kodTime  1 or -1; nothing happens when the run already goes that way
void setDirection(const Experiment& e, std::int16_t kodTime);

}  // namespace tarvex
