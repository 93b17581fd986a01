#pragma once
// Controls of Form21, the periodic terms of the Moon.  Their order is the tab order.

#include "runtime/form.h"

namespace tarvex {

class MoonPerturbationsControls : public Form {
public:
    static constexpr const char* formName = "Form21";

    CheckBoxes termTaken;  ///< the term is taken: 1..16, 25..28
    TextFields amplitude;  ///< its amplitude
    CommandButton setCoefficients{
        this,
        {.name = "Command1",
         .caption = "Задать значения коэффициентов",
         .hint = "Перенести отмеченные амплитуды в kLl; у неотмеченных членов там будет 0",
         .isDefault = true}};
    CommandButton closeForm{this,
                            {.name = "Command2",
                             .caption = "Закрыть форму",
                             .hint = "Закрыть эту форму; заданные коэффициенты остаются"}};

protected:
    explicit MoonPerturbationsControls(Desk& desk);

private:
    void layOut();
};

}  // namespace tarvex
