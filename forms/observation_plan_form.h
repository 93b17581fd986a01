#pragma once
// Form13, the plan of experiments on observations.  The factors are the orbit parameters of one body, or the
// amplitudes of its perturbations; the experiments run on the form of observations.

#include "forms/laboratory.h"
#include "forms/observation_plan_controls.h"
#include "forms/screens.h"
#include "reduction/optimum_record.h"

namespace tarvex {

class ObservationPlanForm final : public ObservationPlanControls, public ObservationPlanScreen {
public:
    using ObservationPlanScreen::formName;
    explicit ObservationPlanForm(Laboratory& lab);
    void load() override;
    void activate() override;

    // --- for the form of observations (ObservationPlanScreen)
    void allowPerturbations(bool may) override;
    void takeLevels() override;
    void showCodedLevels() override;

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
    ObservationsScreen& data() { return screenOf<ObservationsScreen>(desk()); }
    std::string testFile();
    void showSource();

    Laboratory& lab;
    std::int32_t testNumber_ = 1;  ///< in the name of the file
    double criterion_ = 0;         ///< without corrections, as last shown by the form of observations
};

}  // namespace tarvex
