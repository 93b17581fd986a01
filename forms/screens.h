#pragma once
// What screens ask of each other, each by a small interface: who asks knows neither the other's controls nor
// its class.

#include <string>
#include <vector>

#include "experiment/plan_run.h"
#include "runtime/desk.h"

namespace tarvex {

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

}  // namespace tarvex
