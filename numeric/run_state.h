#pragma once
// What an experiment keeps between its passes: the integrator's work, the clock, the measured orbit, its
// baselines and windows (see OrbitWatch), the energies (see Energy) and the record files.

#include <array>
#include <cstdint>
#include <string>

#include "core/constants.h"
#include "core/file_lock.h"
#include "core/model_state.h"
#include "numeric/energy.h"
#include "numeric/motion.h"
#include "numeric/orbit_watch.h"
#include "numeric/order8.h"
#include "numeric/passage_watch.h"

namespace tarvex {

/// Theory that an imitator moves the bodies by.
enum class Imitator { New0, JPL0, JPL2 };

/// How apses and nodes are measured: noticed step by step in windows of smaller steps, or found inside steps.
enum class Measuring { Windows, ExactPassages };

/// What advances the model.
enum class Stepper { RungeKutta4, Order8 };

/// Choices that a running loop reads in every pass, so a change acts at once.
struct RunBoxes {
    bool measure = false;              ///< measure the orbit of IplSel and let it set the step
    bool records = false;              ///< append a record at each apse
    bool track = false;                ///< append coordinates at each display pass
    bool energy = false;               ///< energy and moment of momentum at each display pass
    bool animation = false;            ///< draw the bodies at each display pass
    bool originSun = true;             ///< the Sun in the origin
    bool originEarth = false;          ///< the Earth in the origin
    bool originCentre = false;         ///< the centre of mass in the origin
    bool endAtYear = false;            ///< end after the year GodEnd
    bool renewBaselines = false;       ///< take the baselines again after the first turns
    bool debugText = false;            ///< keep the state of the pair N1, N2
    Imitator theory = Imitator::New0;  ///< of an imitator
};

struct RunState : Energy, OrbitWatch {
    // --- integrator: the step in parts, layout of U; A1..A4 use cells 33..65
    std::array<double, equations> U0{}, K1{}, K2{}, K3{}, K4{};
    std::array<double, equations> A1{}, A2{}, A3{}, A4{};
    double Tstage = 0;  ///< time of the current stage, s

    // --- the ways of this run, chosen at Start
    Measuring measuring = Measuring::Windows;
    Stepper stepper = Stepper::RungeKutta4;
    Order8Stages stages;  ///< of the step of order 8
    PassageWatch watch;   ///< of the exact passages

    // --- clock
    double Tsec = 0;                  ///< model time since Start, always growing, s
    double Tmod = 0;                  ///< signed model time, s
    double TimerStart = 0;            ///< computer time of Start, s
    std::int16_t kodTime = 1;         ///< 1 forward, -1 back in time
    std::int16_t kodModel = 1;        ///< 1 mathematical model, 0 imitator
    std::int16_t kodJPL2 = 0;         ///< 1: the imitator is the ephemeris
    std::int16_t kodTest = 0;         ///< 1: test of the plan, nothing is integrated
    std::int32_t GodEnd = 2000;       ///< last year of the run
    double kmTest2 = 0, kmTest5 = 0;  ///< mass divisors of Venus and Jupiter, targets of the test criterion

    // --- the measured orbit of IplSel; more of it in OrbitWatch
    double Vpl = 0;             ///< speed, m/s
    double Rmin = 0, Rmax = 0;  ///< last perihelion and aphelion distance, m
    double Period = 0;          ///< days
    double Tper0 = 0;           ///< time of the last wrap of the longitude, s
    std::int16_t kodUzel = 0;   ///< 1 once a node has been crossed since the last apse
    /// Baselines of the differences shown: degrees, degrees, rad, 1, m, days.
    double AlfaPnach = 0, AlfaUnach = 0, BettaNach = 0, EksNach = 0, RsrNach = 0, PeriodNach = 0;

    // --- scales of the plots
    double MdAlfa = 100;            ///< arc seconds in a unit
    double MT = 100;                ///< years in a unit
    double MxPlot = 10000;          ///< thousand km in a unit
    double dYplot = 0;              ///< shift of the plots, units
    double MxView = 1.8 * MK * MK;  ///< metres in a unit of the second picture

    // --- records
    std::int16_t NPlanStart = 0;   ///< NPlan at Start, the plan of this run to its end; 0 once it was stopped
    std::string ModelName;         ///< as heads of files name the model
    std::string FileRas, FileXYZ;  ///< record files, named from the root of the data tree
    FileClaim claimRas, claimXYZ;  ///< theirs, from the start of the run until its file is done with
    std::int32_t NP1max = 0;       ///< number of records a reader must be ready for

    RunBoxes boxes;
};

/// Enters every shared variable of the run into the table under its own name.
void addNames(NameTable& table, const RunState& run);

}  // namespace tarvex
