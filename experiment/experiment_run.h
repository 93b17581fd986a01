#pragma once
// An experiment as a value: what it starts from, by which laws, what is measured and written; and its run,
// with or without a screen.
//
//     Model model(tree);
//     ExperimentSettings set{.initial = InitialSettings{.year = 1801}, .laws = LawSettings{}};
//     set.run.boxes = {.measure = true, .records = true, .endAtYear = true};
//     set.run.lastYear = 1840;
//     const ExperimentResult seen = runExperiment(model.experiment(), set);

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "experiment/initial_settings.h"
#include "numeric/experiment_start.h"
#include "numeric/laws.h"

namespace tarvex {

/// How gravity acts in the model, as the screen of the laws chooses it.
struct LawSettings {
    Pressure pressure = Pressure::None;           ///< needs RunSettings::finiteGravitySpeed to act
    Retardation retardation = Retardation::None;  ///< the same
    double k1 = 0, k2 = 0;                        ///< coefficients kPgr1, kPgr2 of the pressure
    bool ratesEachStage = false;                  ///< speeds along the lines at every stage of a step
    bool ratesFromAccelerations = false;          ///< second derivatives by accelerations of accelerations
    bool shortLienardWiechert = false;            ///< the short form of that law
    bool relativity = false;                      ///< post-Newtonian terms beside the classical forces
    bool pairEnergies = false;                    ///< pair terms in the energy
    bool showCentre = false;                      ///< the centre of mass in place of the body
    bool centreNow = false;                       ///< the centre of mass of the moment
    bool sunFromCentre = false;                   ///< the Sun follows from the centre of mass
};

/// What one experiment is.  What is not set stays as the state holds it.
struct ExperimentSettings {
    std::optional<InitialSettings> initial = {};
    std::optional<LawSettings> laws = {};
    std::optional<std::int16_t> plan = {};  ///< number of the plan in whose folder the records go
    RunSettings run = {};
};

/// Whom a run tells of itself, and who may stop it (giveWay).
class ExperimentPort : public RunPort {
public:
    virtual void settingsTaken() {}             ///< the settings are in the state, nothing is prepared yet
    virtual void started(const StartNotes&) {}  ///< the first step is to follow
};

/// The measured orbit at an apse.
struct OrbitSeen {
    double JD = 0;                                     ///< Julian date of the passage
    bool atPerihelion = false;                         ///< otherwise at aphelion
    double perihelion = 0, node = 0, inclination = 0;  ///< degrees
    double eccentricity = 0;
    double semiAxis = 0;  ///< m
    double period = 0;    ///< days
};

/// What a run has left behind; the state it worked on holds all the rest.
struct ExperimentResult {
    bool complete = false;          ///< it came to the end of its last year; otherwise it was stopped
    double JD = 0;                  ///< Julian date of its end
    std::int32_t turns = 0;         ///< perihelia counted
    std::vector<OrbitSeen> orbits;  ///< at each apse but the first, which is the baseline
    std::string record, track;      ///< files written, from the root of the data tree; empty without one
};

/// First part of an experiment: initial data, laws, plan and settings, in this order, each into the state;
/// then the run is prepared and the heads of its files are written.  RunLoop() may follow.
/// @throws as formInitialData() and startExperiment() do
void beginExperiment(const Experiment& e, const ExperimentSettings& set, ExperimentPort& port);

/// A whole experiment, from the initial data to the end of its last year or until the port stops it.
/// @param e     model and data tree; what the settings leave open is read from here, and all that the run
/// ends with is
///              left here
/// @param port  told on the way; giveWay(), asked after each `stepsPerDisplay` steps, ends the run by false
/// @return      the orbit measured, and the files
/// @throws Refusal with the text of what is to be mended in the settings; Refusal "Ошибка решения уравнений"
/// for whatever
///         fails in the run; ConversionFailure, ArithmeticFailure naming the bad setting; FileFailure
ExperimentResult runExperiment(const Experiment& e, const ExperimentSettings& set, ExperimentPort& port);

/// The same; `tell` hears the share that is done, 0..1, 0 for a run without an end, and stops the run by
/// false.
ExperimentResult runExperiment(const Experiment& e, const ExperimentSettings& set,
                               const std::function<bool(double share)>& tell = {});

/// Share of the run that is done, by its last year: 0..1; 0 without a length.
double shareDone(const Experiment& e);

/// What an experiment works on, apart from any laboratory.  Large: not for the stack of a recursion.
struct Model {
    /// @param dataTree  must outlive the model
    explicit Model(const DataTree& dataTree) : tree(dataTree) {}
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;
    Experiment experiment() { return {s, motion, run, ephemeris, tree}; }

    const DataTree& tree;
    ModelState s;
    Motion motion;
    RunState run;
    Ephemeris ephemeris{tree};
};

}  // namespace tarvex
