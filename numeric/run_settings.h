#pragma once
// The settings of one run: what is run and how it steps, what is measured and written.  They start as those
// of the experiment's screen do.

#include <string>

#include "core/typed.h"
#include "numeric/records.h"
#include "numeric/run_state.h"

namespace tarvex {

struct RunSettings {
    // --- what is run
    bool model = true;                ///< the model by its equations; otherwise the imitator of boxes.theory
    bool relativistic = false;        ///< relativistic equations, otherwise the classical law
    bool forward = true;              ///< in time
    bool finiteGravitySpeed = false;  ///< the classical law has the speed of gravity below
    Typed<double> gravitySpeed = 1;   ///< Vgr in units of the speed of light; never 0 with relativity
    Typed<double> distanceExponent = 2;      ///< nR of 1/R^nR
    Stepper stepper = Stepper::RungeKutta4;  ///< of the model; order 8 goes with exact passages

    // --- steps
    Typed<double> step = 3600;                   ///< base step Dt, s; above 0 also back in time
    Typed<std::int16_t> stepDivider = 1000;      ///< kDt of the step in the windows around apses and nodes
    Typed<std::int16_t> stepsPerDisplay = 1000;  ///< NC0: the run tells of itself and gives way after so many
    Typed<std::int32_t> lastYear = 2000;         ///< the run ends with it when boxes.endAtYear is set

    // --- measurement and records
    Typed<std::int32_t> body = 1;     ///< measured body, 1..10; 0 only without measurement
    Typed<double> windowDegrees = 1;  ///< half width of the windows, degrees
    Measuring measuring = Measuring::Windows;
    Typed<std::int16_t> experiment = 1;  ///< NFile, the number in the names of the record files
    bool test = false;                   ///< nothing is integrated: a plan computes its test criterion
    RunBoxes boxes;                      ///< what a running loop reads anew in every pass
    std::string today = todayText();     ///< date in the heads of files, "21.11.2026"

    // --- scales of the plots
    Typed<double> angleScale = 100;   ///< arc seconds in a unit
    Typed<double> timeScale = 100;    ///< years in a unit
    Typed<double> plotScale = 10000;  ///< thousand km in a unit
    Typed<double> plotShift = 0;      ///< units
};

}  // namespace tarvex
