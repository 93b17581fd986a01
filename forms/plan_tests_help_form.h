#pragma once
// Form8: the additional tests of the bench of plans.  Options only.

#include "forms/laboratory.h"
#include "runtime/form.h"

namespace tarvex {

class PlanTestsHelpForm final : public Form {
public:
    static constexpr const char* formName = "Form8";
    explicit PlanTestsHelpForm(Laboratory& lab);

    /// Number of the chosen test, 1..9.
    int test() const;

    OptionButton Option1{this, spec(1)}, Option2{this, spec(2)}, Option3{this, spec(3)},
        Option4{this, spec(4)}, Option5{this, spec(5)}, Option6{this, spec(6)}, Option7{this, spec(7)},
        Option8{this, spec(8)}, Option9{this, spec(9)};

private:
    static OptionButton::Spec spec(int n);
};

}  // namespace tarvex
