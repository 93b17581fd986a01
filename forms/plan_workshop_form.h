#pragma once
// The plan workshop, Form18: the bench of multifactor plans.  A plan of five kinds, the criterion from tests
// or a file, its regression, the optimum and the graphs.

#include "forms/laboratory.h"
#include "forms/plan_picture.h"
#include "forms/plan_workshop_controls.h"
#include "stats/bench.h"

namespace tarvex {

class PlanWorkshopForm final : public PlanWorkshopControls {
public:
    static constexpr const char* formName = "Form18";
    explicit PlanWorkshopForm(Laboratory& lab);
    void load() override;

private:
    void CreatePlan18();
    void RunPlan18();
    void FitPlan18();
    void OptimizePlan18();
    void PlotPlan18();
    void EvalPoint18();
    void qualityReport();
    void growPlanAround(const std::vector<double>& centre, double half);

    void printPlan();
    void showPlan();
    void printSizes(double y);
    void readCriterionFile();
    CriterionForm criterionForm() const;
    double pointValue(bool outside);
    double matrixEnd() const;

    Laboratory& lab;
    PlanPage page;
    std::array<double, 100> fittedCriterion{};  ///< as it was when the regression was fitted
};

}  // namespace tarvex
