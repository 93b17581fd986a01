#include "forms/plan_tests_help_form.h"

namespace tarvex {

OptionButton::Spec PlanTestsHelpForm::spec(int n) {
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
    return {
        .name = "Option" + std::to_string(n),
        .caption = captions[n],
        .group = "Frame2",
        .on = n == 1,
        .hint =
            "Критерий в эксперименте u по натуральным значениям факторов, без единиц; берется формой планов"};
}

PlanTestsHelpForm::PlanTestsHelpForm(Laboratory& lab)
    : Form(lab.desk, formName, "Тесты формы планов     Tarvex7m") {
    layout_ =
        frame("дополнительные тесты 4-х факторного плана",
              column({Option1, Option2, Option3, Option4, Option5, Option6, Option7, Option8, Option9}));
}

int PlanTestsHelpForm::test() const {
    const OptionButton* const options[] = {&Option1, &Option2, &Option3, &Option4, &Option5,
                                           &Option6, &Option7, &Option8, &Option9};
    for (int n = 1; n <= 9; ++n)
        if (options[n - 1]->on()) return n;
    return 1;
}

}  // namespace tarvex
