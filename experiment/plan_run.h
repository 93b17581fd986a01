#pragma once
// The experiments of a plan for the speed of gravity: what they have in common, and what the levels of one of
// them set.
//
//     setNaturalLevels(plan);
//     for (int u = 1; u <= plan.Nplan; ++u) runPlanExperiment(model.experiment(), plan, u, set, run, port);

#include "experiment/experiment_run.h"
#include "stats/plan_block.h"

namespace tarvex {

/// The screen that runs a plan asks for these.
struct PlanSettings {
    std::int16_t plan = 1;  ///< number of the plan: the records go in its folder
    bool finiteGravitySpeed =
        false;             ///< runs know the speed of gravity; otherwise no factor but masses acts on them
    bool pressure = true;  ///< law of Lienard and Wiechert; see planHasPressure()
    bool secondCoefficientZero = false;  ///< its k2 is 0, otherwise k1
};

/// False for a plan without the factor of the pressure whose zero level is 0: its runs have no law of
/// pressure.
/// @param ticked  whether the factor of the pressure (X5) is one of the plan's
bool planHasPressure(const PlanBlock& plan, bool ticked);

/// The laws of all experiments of a plan: retardation with accelerations, and the pressure.  Other laws stay.
void takePlanLaws(Motion& motion, const PlanSettings& set);

/// The settings of all experiments of a plan: those given, of the model, measured from the Sun to the end of
/// the last year, with records at each apse, and without track, energy and animation.
RunSettings settingsOfPlan(RunSettings run, const PlanSettings& set);

/// Sets an experiment of a plan on the model: X1..X3 the velocity of the system, km/s; X5 the coefficients of
/// the pressure; X6, X7 the masses of Jupiter and Venus as divisors of the Sun's; and on the settings X4, the
/// speed of gravity in units of that of light, and the number of the record.
/// @param plan  XU(1..7, u) holds the levels in natural units, see setNaturalLevels()
/// @param u     experiment, 1..91
/// @throws SubscriptFailure for no such experiment, ArithmeticFailure for a divisor of 0 or a speed beyond
/// numbers.  What
///         was set before stays
void applyLevels(const PlanBlock& plan, int u, const PlanSettings& set, const Experiment& e,
                 RunSettings& run);

/// One experiment of a plan from the initial data that the state holds; elements that nobody has handed over
/// for the measurement are taken from it as well.  NPlan is 0 afterwards.
/// @param u     experiment, 1..Nplan
/// @param run   body, step, last year ... as the plan's user chooses them
/// @throws Refusal "Ошибка при выполнение плана" for a level that cannot be set and an experiment that the
/// plan does not
///         have; otherwise as runExperiment()
ExperimentResult runPlanExperiment(const Experiment& e, const PlanBlock& plan, int u, const PlanSettings& set,
                                   const RunSettings& run, ExperimentPort& port);

}  // namespace tarvex
