#pragma once
// What screens ask of each other, each by a small interface: who asks knows neither the other's controls nor
// its class.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "experiment/plan_run.h"
#include "runtime/desk.h"

namespace tarvex {

struct Laboratory;

/// The screen that runs experiments, Form2.
class RunScreen {
public:
    static constexpr const char* formName = "Form2";
    virtual ~RunScreen() = default;
    /// What is typed and chosen, as Start would read it.
    virtual RunSettings settings() const = 0;
    /// Makes the choices that hold for every experiment of a plan.
    virtual void chooseForPlan(bool finiteGravitySpeed) = 0;
    /// Runs one experiment of a plan on the model as it stands; its messages are those of Start.
    /// @param number        of its record file
    /// @param gravitySpeed  in units of the speed of light
    /// @return              true when the run has ended by itself, NPlan is then that of the plan; false when
    /// it could not
    ///                      begin, failed, was stopped or the screen was left
    virtual bool runOfPlan(int number, double gravitySpeed) = 0;
    /// The measured body as it is typed.
    virtual std::string body() const = 0;
    virtual void setBody(const std::string& typed) = 0;
};

/// The screen of the plan, Form15.
class PlanScreen {
public:
    static constexpr const char* formName = "Form15";
    virtual ~PlanScreen() = default;
    virtual bool testsPlan() const = 0;  ///< its experiments compute the test criterion, nothing is run
    virtual bool rotatable() const = 0;  ///< kind of its plan: rotatable, otherwise orthogonal
    /// What is typed and ticked; the levels of all experiments go into the shared plan.
    virtual PlanSettings takePlan() = 0;
    virtual void experimentEnded() = 0;  ///< a run of its plan that it has not begun itself has ended
    virtual std::vector<int> tickedPlanets() const = 0;  ///< whose shifts make the criterion
    /// Loads the plan of this number, where its file exists; 0 for the number that stands there.
    virtual void showPlanOf(int plan) = 0;
};

/// The screen of statistics, Form6.
class StatisticsScreen {
public:
    static constexpr const char* formName = "Form6";
    virtual ~StatisticsScreen() = default;
    /// What a run has recorded.
    struct RunRecords {
        bool model, newcomb;  ///< of the model, or else of the imitator New0 or one of the JPL
        int body, plan, experiment;
    };
    /// Loads it in scales that hold all of it; says so in the status line where there is nothing yet.
    virtual void showRun(const RunRecords& run) = 0;
    /// Sets what makes the shifts of all experiments of a plan.
    virtual void offerPlan(int plan, int body) = 0;
    /// Chooses the series that optima of a plan on observations make.
    virtual void chooseOptima(int plan, int body) = 0;
    /// Prints lines on an empty picture of that height, in its units.
    virtual void printPage(double rows, const std::vector<std::string>& lines) = 0;
    virtual bool fitsPeriods() const = 0;  ///< with the periodic terms of the planets
};

/// The screen of observations, Form10: the data on which a plan works.
class ObservationsScreen {
public:
    static constexpr const char* formName = "Form10";
    virtual ~ObservationsScreen() = default;
    virtual bool planetByPlan() const = 0;      ///< its place comes from the elements of the plan
    virtual bool epochOfPlanJ2000() const = 0;  ///< they refer to the equinox J2000
    virtual bool sourceChosen() const = 0;      ///< a table or an observatory
    virtual std::string observedFile()
        const = 0;  ///< number in the names of an observatory's files; empty for tables
    virtual std::int32_t body() const = 0;       ///< as typed
    virtual std::int32_t firstYear() const = 0;  ///< as typed
    virtual double precession() const = 0;       ///< as typed, arc seconds a century
    virtual bool byDistance() const = 0;         ///< the criterion is of distances
    virtual bool rootMeanSquares() const = 0;    ///< it is taken of squares
    /// As last shown, of what is chosen; nothing before the first run.
    virtual std::optional<double> criterion() const = 0;

    virtual void showPrecession(double arcSecondsPerCentury) = 0;
    virtual void showFirstDay(std::int32_t year, std::int32_t month, double day) = 0;
    /// Shows the last year of data or of a plan; what the user has typed in its place is gone.
    virtual void showLastYear(std::int32_t last) = 0;
    virtual void takeDate() = 0;                  ///< the date as typed into JD
    virtual void showExperiments(int count) = 0;  ///< the plan has so many
    virtual void showPlan() = 0;                  ///< levels and points of the plan, on the lower graph
    /// Finds the optimum of the regression and prints it on the lower graph.
    virtual void showOptimum() = 0;
};

/// The screen of the plan on observations, Form13.
class ObservationPlanScreen {
public:
    static constexpr const char* formName = "Form13";
    virtual ~ObservationPlanScreen() = default;
    virtual void allowPerturbations(bool may) = 0;  ///< as factors, instead of orbit elements
    virtual void takeLevels() = 0;                  ///< what is typed goes into the shared plan
    virtual void showCodedLevels() = 0;             ///< zero levels 0 and intervals 1
};

/// The screen of perturbations of the planets, Form22.
class PlanetPerturbationsScreen {
public:
    static constexpr const char* formName = "Form22";
    virtual ~PlanetPerturbationsScreen() = default;
    virtual void showAmplitudes(int body) = 0;  ///< of its terms as they are now
};

/// The parameter screen, Form1.
class ElementsScreen {
public:
    static constexpr const char* formName = "Form1";
    virtual ~ElementsScreen() = default;
    /// What stands on it and has not been loaded, in words: what a run starts from without it.
    virtual std::vector<std::string> notLoaded() const = 0;
    /// Shows coordinates and velocities as they are now.
    virtual void showStates() = 0;
};

/// The screen of ephemeris and universal time, Form17.
class EtUtScreen {
public:
    static constexpr const char* formName = "Form17";
    virtual ~EtUtScreen() = default;
    /// Chooses the first relation and that of the Earth's rotation with which the screen begins, and takes
    /// them.
    virtual void useFirstRelation() = 0;
    /// Takes what is chosen and typed anew.
    virtual void takeAnew() = 0;
};

/// The screen of two bodies, Form25, and of the pulsar, Form26: one pulse a step.
class TwoBodiesScreen {
public:
    static constexpr const char* formName = "Form25";
    virtual ~TwoBodiesScreen() = default;
    virtual std::string typedStep() const = 0;  ///< s
};
class PulsarScreen {
public:
    static constexpr const char* formName = "Form26";
    virtual ~PulsarScreen() = default;
    virtual void showPulseRate() = 0;  ///< by the step as it is typed
};

/// The screen of criteria with a known optimum, Form8.
class PlanTestsScreen {
public:
    static constexpr const char* formName = "Form8";
    virtual ~PlanTestsScreen() = default;
    virtual int test() const = 0;  ///< number of the chosen one
};

/// The screen by its interface, loaded at the first reference.  Throws Failure where the laboratory has none.
template <class S>
S& screenOf(Desk& desk) {
    auto* screen = dynamic_cast<S*>(&desk.form(S::formName));
    if (screen == nullptr) throw Failure("форма " + std::string(S::formName) + " не та");
    return *screen;
}

/// The same; nothing while it is not loaded.
template <class S>
S* loadedScreen(Desk& desk) {
    return desk.isLoaded(S::formName) ? dynamic_cast<S*>(&desk.form(S::formName)) : nullptr;
}

/// Opens the screen of the plan; where the user has not done anything there yet, with the plan at hand.
void openFreshPlan(Laboratory& lab, int plan);

}  // namespace tarvex
