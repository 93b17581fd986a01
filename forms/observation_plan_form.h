#pragma once
// Form13, the plan of experiments on observations.  The factors are the orbit parameters of one body, or the
// amplitudes of its perturbations; the experiments run on the form of observations.

#include "forms/laboratory.h"
#include "forms/observation_plan_controls.h"
#include "reduction/optimum_record.h"

namespace tarvex {

class ObservationsForm;

class ObservationPlanForm final : public ObservationPlanControls {
public:
    explicit ObservationPlanForm(Laboratory& lab);
    void load() override;
    void activate() override;

private:
    void CreatePlan13();
    void LoadPlan13();
    void fromTemplate();
    void fromFile();
    void SavePlan13();
    void OptimizePlan13();
    void AddOptimumRecord();
    void SendToForm22();
    void ShowPlanFields();
    void ReadPlanFields();
    void readNumbers();
    bool sourceChosen(const ObservationsForm& data) const;
    std::string testFile(const ObservationsForm& data) const;
    void showSource();
    void printSeries(const OptimumSeries& changed, int marked);

    Laboratory& lab;
    std::int32_t testNumber_ = 1;  ///< in the name of the file
    double criterion_ = 0;         ///< without corrections, as last shown by the form of observations
};

}  // namespace tarvex
