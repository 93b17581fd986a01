#pragma once
// The weights screen, Form19: the weights of the shifts in the criterion, and the calculated shifts of one
// planet in one experiment.

#include "forms/laboratory.h"
#include "forms/weights_controls.h"
#include "stats/plan_file.h"

namespace tarvex {

class WeightsForm final : public WeightsControls {
public:
    static constexpr const char* formName = "Form19";
    explicit WeightsForm(Laboratory& lab);
    void load() override;

private:
    void LoadWeights();
    void SaveWeights();
    void LoadModelData();
    void SaveModelData();
    void drawEmpty(double rows, double columns);

    Laboratory& lab;
    PlanFileHead planHead;    ///< heads of the plan file as loaded
    ShiftFileHead shiftHead;  ///< heads of the shift file as loaded
};

}  // namespace tarvex
