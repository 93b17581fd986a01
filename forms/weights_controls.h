#pragma once
// The controls of the weights screen, Form19, in tab order: plan and experiment, a row of shifts and weights
// for each planet, commands and the picture of the file read.

#include "runtime/form.h"

namespace tarvex {

class WeightsControls : public Form {
public:
    TextField planNumber{this,
                         {.name = "Text7",
                          .label = "план №",
                          .text = "1",
                          .hint = "Номер плана, в именах файлов",
                          .width = 4}};
    TextField experimentNumber{this,
                               {.name = "Text8",
                                .label = "эксперимент№",
                                .text = "1",
                                .hint = "Эксперимент, смещения которого стоят в полях",
                                .width = 4}};
    TextField recordsRead{this,
                          {.name = "Text10",
                           .label = "прочитано записей",
                           .hint = "К-во прочитанных или записанных экспериментов, шт",
                           .readOnly = true,
                           .width = 5}};
    OptionButtons viewedPlanet{this, 1, 10, [](int i) { return planetSpec(i); }};
    TextFields perihelionShift{this, 1, 10, [](int) { return shiftSpec(1); }};
    TextFields perihelionWeight{this, 1, 10, [](int) { return weightSpec(1); }};
    TextFields nodeShift{this, 1, 10, [](int) { return shiftSpec(2); }};
    TextFields nodeWeight{this, 1, 10, [](int) { return weightSpec(2); }};
    TextFields inclinationShift{this, 1, 10, [](int) { return shiftSpec(3); }};
    TextFields inclinationWeight{this, 1, 10, [](int) { return weightSpec(3); }};
    TextFields eccentricityShift{this, 1, 10, [](int) { return shiftSpec(4); }};
    TextFields eccentricityWeight{this, 1, 10, [](int) { return weightSpec(4); }};
    TextFields axisShift{this, 1, 10, [](int) { return shiftSpec(5); }};
    TextFields axisWeight{this, 1, 10, [](int) { return weightSpec(5); }};
    TextFields motionShift{this, 1, 10, [](int) { return shiftSpec(6); }};
    TextFields motionWeight{this, 1, 10, [](int) { return weightSpec(6); }};
    CommandButton loadWeightFile{this,
                                 {.name = "Command4",
                                  .caption = "Загрузить  весовые коэффициенты",
                                  .hint = "Прочитать веса из файла плана"}};
    CommandButton saveWeightFile{
        this,
        {.name = "Command5",
         .caption = "Сохранить",
         .hint = "Записать веса в файл плана; перед этим загрузите их из того же плана"}};
    CommandButton loadShiftFile{
        this,
        {.name = "Command1",
         .caption = "Просмотреть данные моделирования по одной планете",
         .hint = "Прочитать расчетные смещения отмеченной планеты во всех экспериментах"}};
    CommandButton saveShiftFile{this,
                                {.name = "Command2",
                                 .caption = "Сохранить",
                                 .hint = "Записать смещения прочитанной планеты как они есть, без масштаба"}};
    CommandButton closeForm{this,
                            {.name = "Command3", .caption = "Закрыть форму", .hint = "Закрыть форму 19"}};
    Picture fileContents{
        this, {.name = "Picture1", .width = 900, .height = 250, .hint = "Содержимое прочитанного файла"}};

protected:
    using Form::Form;
    void layOut();
    /// Field of shift (weight) c of a planet.
    TextField& shiftField(int planet, int c) const;
    TextField& weightField(int planet, int c) const;

private:
    static OptionButton::Spec planetSpec(int i);
    static TextField::Spec shiftSpec(int c);
    static TextField::Spec weightSpec(int c);
};

}  // namespace tarvex
