#pragma once
// The plan screen, Form15: the speed of gravity by a multifactor plan.  Creates the plan, drives Form2
// experiment by experiment, compares calculated and observed secular shifts, fits the regression and solves
// for the optimum.

#include "forms/laboratory.h"
#include "forms/plan_controls.h"
#include "forms/plan_picture.h"
#include "stats/bench.h"

namespace tarvex {

class PlanForm final : public PlanControls {
public:
    static constexpr const char* formName = "Form15";
    explicit PlanForm(Laboratory& lab);
    void load() override;
    void activate() override;

private:
    void CreatePlan15();
    void LoadPlan15();
    void SavePlan15();
    void LoadObserved15();
    void RunExperiments();
    void NextExperiment();
    void ComputeCriterion();
    void Fit15();
    void Optimize15();
    void Plot15();

    void readLevels();
    void prepareForm2();
    void endBatch();
    void testCriterionOfPlan();
    void modelCriterion();
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
    std::string planRead;  ///< which plan the criterion was read from
};

}  // namespace tarvex
