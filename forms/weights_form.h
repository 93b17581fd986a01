#pragma once
// The weights screen, Form19: the weights of the shifts in the criterion, and the calculated shifts of one
// planet in one experiment.

#include <optional>

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
    /// A plan file as it was loaded: its saving goes by this, whatever other forms do with the shared plan.
    struct LoadedPlan {
        int number = 0;
        PlanFileHead head;
        PlanBlock plan;
    };
    /// A shift file as it was loaded.
    struct LoadedShifts {
        int plan = 0, planet = 0;
        ShiftFileHead head;
        ShiftTables shifts;
        std::int16_t experiments = 0;
    };
    std::optional<LoadedPlan> plan_;
    std::optional<LoadedShifts> shifts_;
};

}  // namespace tarvex
