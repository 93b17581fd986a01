#pragma once
// The controls of the screen of additional plan tests, Form8: one option for each criterion Y(u) of the
// factors X1 ... X4.

#include "runtime/form.h"

namespace tarvex {

class PlanTestsHelpControls : public Form {
public:
    using Form::Form;

    OptionButton number{this, spec(1)}, parabola{this, spec(2)}, sum{this, spec(3)}, product{this, spec(4)},
        quotient{this, spec(5)}, pairProducts{this, spec(6)}, productOfSquares{this, spec(7)},
        sumOfSquares{this, spec(8)}, sumAndProducts{this, spec(9)};

private:
    static OptionButton::Spec spec(int n) {
        constexpr const char* captions[] = {
            "",
            "Y(u)=u",
            "Y(u)=X1+X1^2",
            "Y(u) = X1 + X2 + X3 + X4 ",
            "Y(u) = X1 * X2 * X3 * X4",
            "Y(u) = X1* X2 * X3 / X4^2",
            "Y(u) = X1*X2 + X1*X3 + X1*X4 + X2*X3 + X2*X4 + X3*X4",
            "Y(u)= X1^2 * X2^2",
            "Y(u)= X1^2 + X2^2 + X3^2 + X4^2",
            "Y(u)= X1 + X2 + X3 + X4 + X1*X4 + X2*X4 + X3*X4 + X4^2",
        };
        return {.name = "Option" + std::to_string(n),
                .caption = captions[n],
                .group = "Frame2",
                .on = n == 1,
                .hint =
                    "Критерий в эксперименте u по натуральным значениям факторов, без единиц; берется формой "
                    "планов"};
    }
};

}  // namespace tarvex
