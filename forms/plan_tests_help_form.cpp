#include "forms/plan_tests_help_form.h"

namespace tarvex {

PlanTestsHelpForm::PlanTestsHelpForm(Laboratory& lab)
    : PlanTestsHelpControls(lab.desk, formName, "Тесты формы планов     Tarvex7m") {
    layout_ = frame("дополнительные тесты 4-х факторного плана",
                    column({number, parabola, sum, product, quotient, pairProducts, productOfSquares,
                            sumOfSquares, sumAndProducts}));
}

int PlanTestsHelpForm::test() const {
    const OptionButton* const options[] = {&number,           &parabola,     &sum,
                                           &product,          &quotient,     &pairProducts,
                                           &productOfSquares, &sumOfSquares, &sumAndProducts};
    for (int n = 1; n <= 9; ++n)
        if (options[n - 1]->on()) return n;
    return 1;
}

}  // namespace tarvex
