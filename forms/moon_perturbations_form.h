#pragma once
// Form21: amplitudes of the periodic terms of the Moon.

#include "forms/laboratory.h"

namespace tarvex {

class MoonPerturbationsForm final : public Form {
public:
    static constexpr const char* formName = "Form21";
    explicit MoonPerturbationsForm(Laboratory& lab);

    CheckBoxes Check1;  ///< the term is taken: 1..16, 25..28
    TextFields Text1;   ///< its amplitude
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Задать значения коэффициентов",
                            .hint = "Перенести отмеченные амплитуды в kLl; у неотмеченных членов там будет 0",
                            .isDefault = true}};
    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Закрыть форму",
                            .hint = "Закрыть эту форму; заданные коэффициенты остаются"}};

    void load() override;

private:
    Laboratory& lab;
};

}  // namespace tarvex
