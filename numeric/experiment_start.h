#pragma once
// Start of an experiment from the settings of its screen, with or without the screen.

#include <string>
#include <vector>

#include "numeric/records.h"
#include "numeric/run_loop.h"

namespace tarvex {

/// The settings of the experiment's screen, texts as typed: a bad one fails where it is read.
/// The texts here are the defaults of the screen.
struct RunSettings {
    std::string Text13 = "1";      ///< IplSel
    std::string Text17 = "1";      ///< dAlfa, degrees
    std::string Text8 = "1";       ///< NFile
    std::string Text35 = "1";      ///< Vgr in units of Vsv
    std::string Text45 = "2";      ///< nR
    std::string Text38 = "3600";   ///< Dt, s
    std::string Text39 = "1000";   ///< kDt
    std::string Text37 = "1000";   ///< NC0
    std::string Text5 = "100";     ///< MdAlfa
    std::string Text9 = "100";     ///< MT
    std::string Text21 = "10000";  ///< MxPlot
    std::string Text36 = "0";      ///< dYplot
    std::string Text40 = "2000";   ///< GodEnd
    bool forward = true;           ///< Option1
    bool model = true;             ///< Option3
    bool relativistic = false;     ///< Option8
    bool gravitySpeed = false;     ///< Check13
    bool test = false;             ///< the plan computes test experiments
    Measuring measuring = Measuring::Windows;
    Stepper stepper = Stepper::RungeKutta4;  ///< of the model; order 8 goes with exact passages
    RunBoxes boxes;
    std::string today = todayText();  ///< date in the heads of files
};

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
