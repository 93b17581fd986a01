#pragma once
// The plan screen, Form15: the speed of gravity by a multifactor plan.  Creates the plan, drives the
// screen of runs experiment by experiment, compares calculated and observed secular shifts, fits the
// regression and solves for the optimum.

#include "experiment/plan_run.h"
#include "forms/laboratory.h"
#include "forms/plan_controls.h"
#include "forms/plan_picture.h"
#include "forms/screens.h"
#include "stats/bench.h"
#include "stats/drift_solution.h"

namespace tarvex {

class PlanForm final : public PlanControls, public PlanScreen {
public:
    using PlanScreen::formName;
    explicit PlanForm(Laboratory& lab);
    void load() override;
    void activate() override;
    void unload() override { gone = true; }

    bool testsPlan() const override { return testExperiments.on(); }
    bool rotatable() const override { return rotatablePlan.on(); }
    PlanSettings takePlan() override;
    void experimentEnded() override;
    std::vector<int> tickedPlanets() const override;
    void showPlanOf(int plan) override;

private:
    void CreatePlan15();
    void LoadPlan15();
    void SavePlan15();
    void LoadObserved15();
    void RunExperiments();
    void runFromNext();
    bool NextExperiment();
    void ComputeCriterion();
    void Fit15();
    void Optimize15();
    void Plot15();

    void qualityReport();
    void growPlanAround(const std::vector<double>& centre, double half);

    // --- the answer by drifts (plan_form_solution.cpp)
    void SolveShifts();
    void ConfirmSolution();
    void NextPlan();
    DriftProblem problemOfPlan();
    void showSolution(const std::vector<LeftOutDrift>& leftOut);
    void drawContours(const ProfileMap& map, double top);
    bool runSolution(const FactorValues& values, int planet, int number);
    void measureSolution(int planet, int number);
    std::vector<int> tickedParameters() const;

    void buildPlan();
    void takeAdded(const std::vector<std::vector<double>>& points);
    void readLevels();
    PlanSettings choices() const;
    void startPlan();
    bool runExperiment(int number);
    void tellEnd();
    void endBatch();
    void testCriterionOfPlan();
    void modelCriterion();
    int typedPlan() const;
    void leadToShifts(int plan, int planet);
    void printPlan();
    void showPlan();
    void printColumn(double x, const std::array<double, 100>& values);
    void tellState();
    CriterionForm criterionForm() const;
    std::string planFileName(int N, bool withBlank) const;

    Laboratory& lab;
    PlanPage page;
    ShiftTable observedAtLoad{};  ///< observed shifts as "3-" has read them
    bool observedLoaded = false;
    std::string planRead;                       ///< which plan the criterion was read from
    std::array<double, 100> fittedCriterion{};  ///< as it was when the regression was fitted
    ShiftTable observedErrorsAtLoad{};
    DriftProblem solvedProblem;
    std::optional<DriftSolution> solution;
    bool confirming = false;  ///< an experiment at the solution runs: the plan does not go on after it
    bool telling = false;     ///< the end of an experiment that this form has begun
    bool gone = false;        ///< unloaded
};

}  // namespace tarvex
