#pragma once
// The screen of additional plan tests, Form8: options only, read by the bench of plans.

#include "forms/laboratory.h"
#include "forms/plan_tests_help_controls.h"
#include "forms/screens.h"

namespace tarvex {

class PlanTestsHelpForm final : public PlanTestsHelpControls, public PlanTestsScreen {
public:
    using PlanTestsScreen::formName;
    explicit PlanTestsHelpForm(Laboratory& lab);

    /// Number of the chosen test, 1..9.
    int test() const override;
};

}  // namespace tarvex
