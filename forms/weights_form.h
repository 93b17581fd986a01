#pragma once
// Form19: the weights of the shifts in the criterion, and the calculated shifts of one planet in one
// experiment.

#include "forms/laboratory.h"
#include "runtime/form.h"
#include "stats/plan_file.h"

namespace tarvex {

class WeightsForm final : public Form {
public:
    static constexpr const char* formName = "Form19";
    explicit WeightsForm(Laboratory& lab);
    void load() override;

    TextField Text7{this,
                    {.name = "Text7",
                     .label = "план №",
                     .text = "1",
                     .hint = "Номер плана, в именах файлов",
                     .width = 4}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "эксперимент№",
                     .text = "1",
                     .hint = "Эксперимент, смещения которого стоят в полях",
                     .width = 4}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "прочитано записей",
                      .hint = "К-во прочитанных или записанных экспериментов, шт",
                      .readOnly = true,
                      .width = 5}};
    OptionButtons Option9{this, 1, 10, [](int i) { return planetSpec(i); }};
    TextFields Text1{this, 1, 10, [](int) { return shiftSpec(1); }};
    TextFields Text11{this, 1, 10, [](int) { return weightSpec(1); }};
    TextFields Text2{this, 1, 10, [](int) { return shiftSpec(2); }};
    TextFields Text12{this, 1, 10, [](int) { return weightSpec(2); }};
    TextFields Text3{this, 1, 10, [](int) { return shiftSpec(3); }};
    TextFields Text13{this, 1, 10, [](int) { return weightSpec(3); }};
    TextFields Text4{this, 1, 10, [](int) { return shiftSpec(4); }};
    TextFields Text14{this, 1, 10, [](int) { return weightSpec(4); }};
    TextFields Text5{this, 1, 10, [](int) { return shiftSpec(5); }};
    TextFields Text15{this, 1, 10, [](int) { return weightSpec(5); }};
    TextFields Text6{this, 1, 10, [](int) { return shiftSpec(6); }};
    TextFields Text16{this, 1, 10, [](int) { return weightSpec(6); }};
    CommandButton Command4{this,
                           {.name = "Command4",
                            .caption = "Загрузить  весовые коэффициенты",
                            .hint = "Прочитать веса из файла плана"}};
    CommandButton Command5{this,
                           {.name = "Command5",
                            .caption = "Сохранить",
                            .hint = "Записать веса в файл плана; перед этим загрузите их из того же плана"}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Просмотреть данные моделирования по одной планете",
                            .hint = "Прочитать расчетные смещения отмеченной планеты во всех экспериментах"}};
    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Сохранить",
                            .hint = "Записать смещения прочитанной планеты как они есть, без масштаба"}};
    CommandButton Command3{this,
                           {.name = "Command3", .caption = "Закрыть форму", .hint = "Закрыть форму 19"}};
    Picture Picture1{
        this, {.name = "Picture1", .width = 900, .height = 250, .hint = "Содержимое прочитанного файла"}};

private:
    static OptionButton::Spec planetSpec(int i);
    static TextField::Spec shiftSpec(int c);
    static TextField::Spec weightSpec(int c);
    /// Field of shift (weight) c of a planet.
    TextField& shiftField(int planet, int c) const;
    TextField& weightField(int planet, int c) const;

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
