#pragma once
// The controls of the pulsar screen, Form26, in tab order: plots and their scales, drag, and where the delays
// count from.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class PulsarControls : public Form {
public:
    CheckBox plotPulses{this,
                        {.name = "Check1",
                         .caption = "Кол-во импульсов, шт/с  /",
                         .hint = "Чертить отличие числа принятых импульсов в секунду от среднего"}};
    TextField pulsesScale{
        this, {.name = "Text3", .text = "0,01", .hint = "Масштаб числа импульсов, шт/с в клетке"}};
    CheckBox plotRadialSpeed{this,
                             {.name = "Check2",
                              .caption = "Лучевая скорость (VY), км/с  /",
                              .hint = "Чертить скорость m1 вдоль луча зрения"}};
    TextField radialScale{
        this, {.name = "Text6", .text = "100", .hint = "Масштаб лучевой скорости, км/с в клетке"}};
    CheckBox plotRoemer{this,
                        {.name = "Check3",
                         .caption = "Запаздывание по Ремеру, с  / ",
                         .hint = "Чертить время хода света поперек орбиты"}};
    TextField roemerScale{
        this, {.name = "Text7", .text = "1", .hint = "Масштаб запаздывания по Ремеру, с в клетке"}};
    CheckBox plotDelayBySpeed{this,
                              {.name = "Check6",
                               .caption = "Запаздывание от скорости по СТО, с /",
                               .hint = "Чертить накопленное замедление часов от скорости m1"}};
    TextField delayBySpeedScale{
        this, {.name = "Text2", .text = "0,001", .hint = "Масштаб запаздывания от скорости, с в клетке"}};
    TextField meanDelayBySpeed{
        this,
        {.name = "Text9", .text = "0", .hint = "Среднее запаздывание от скорости dTvSr, вычитается, с / с"}};
    CheckBox plotDelayByMass{this,
                             {.name = "Check7",
                              .caption = "Запаздывание от массы по ОТО, с /",
                              .hint = "Чертить накопленное замедление часов от массы m2"}};
    TextField delayByMassScale{
        this, {.name = "Text5", .text = "0,001", .hint = "Масштаб запаздывания от массы, с в клетке"}};
    TextField meanDelayByMass{
        this,
        {.name = "Text10", .text = "0", .hint = "Среднее запаздывание от массы dTmSr, вычитается, с / с"}};
    TextField meanPulseRate{this,
                            {.name = "Text4",
                             .label = "от среднего значения 1/P0=",
                             .hint = "Среднее число импульсов в секунду: один импульс на шаг решения",
                             .readOnly = true}};
    TextField dragHalfWidth{this,
                            {.name = "Text8",
                             .label = "градусов от периастра",
                             .text = "60",
                             .hint = "Полуширина участка орбиты с сопротивлением, градусы"}};
    TextField dragCoefficient{this,
                              {.name = "Text1",
                               .label = "Сила сопротивления / V^2=",
                               .text = "0",
                               .hint = "Коэффициент силы сопротивления у периастра, Н с^2/м^2"}};
    CheckBox reverseRadialSpeed{this,
                                {.name = "Check5",
                                 .caption = "на графике VY = - VY",
                                 .hint = "Лучевую скорость чертить с обратным знаком"}};
    CheckBox reverseMotion{this,
                           {.name = "Check4",
                            .caption = "Задать обратное движение m1",
                            .hint = "Ставит kodTime = -1; на решение этой задачи не влияет"}};
    OptionButton delaysFromPeriastron{this,
                                      {.name = "Option1",
                                       .caption = "от периастра",
                                       .group = "start",
                                       .on = true,
                                       .hint = "Запаздывания считать от прохождения периастра"}};
    OptionButton delaysFromNode{this,
                                {.name = "Option2",
                                 .caption = "от картинной плоскости, т.е. от восходящего узла",
                                 .group = "start",
                                 .hint = "Запаздывания считать от восходящего узла"}};
    CommandButton storeParameters{this,
                                  {.name = "Command1",
                                   .caption = "Задать дополнительные параметры",
                                   .hint = "Передать все поля в расчет формы 25",
                                   .isDefault = true,
                                   .disturbs = Disturbs::All}};
    CommandButton closeForm{this, closingSpec("Command2")};

protected:
    using Form::Form;
    void layOut();
};

}  // namespace tarvex
