#pragma once
// The controls of the screen of ET-UT, Form17, in tab order: the two formulas, their kinds and signs,
// diameters and commands.

#include <array>

#include "runtime/form.h"

namespace tarvex {

class EtUtControls : public Form {
public:
    using Form::Form;

    TextField planetsA{this, {.name = "Text1", .hint = "Коэффициент a формулы ET1, с", .width = 8}};
    TextField planetsB{this,
                       {.name = "Text2", .hint = "Коэффициент b формулы ET1, с за столетие", .width = 8}};
    TextField planetsC{
        this, {.name = "Text3", .hint = "Коэффициент c формулы ET1, с за квадрат столетия", .width = 8}};
    TextField planetsYear{this,
                          {.name = "Text10",
                           .label = "T01=",
                           .hint = "Год, от которого считается время формулы ET1 (1 января, день 1,5)",
                           .width = 6}};
    TextField earthA{this, {.name = "Text11", .hint = "Коэффициент a формулы ET2, с", .width = 8}};
    TextField earthB{this,
                     {.name = "Text12", .hint = "Коэффициент b формулы ET2, с за столетие", .width = 8}};
    TextField earthC{
        this, {.name = "Text13", .hint = "Коэффициент c формулы ET2, с за квадрат столетия", .width = 8}};
    TextField earthYear{this,
                        {.name = "Text20",
                         .label = "T02=",
                         .hint = "Год, от которого считается время формулы ET2 (1 января, день 1,5)",
                         .width = 6}};
    OptionButtons planetsFormula{this, 0, 5, planetsKind}, earthFormula{this, 0, 5, earthKind};
    OptionButton planetsPlus{this,
                             {.name = "Option1",
                              .caption = "+",
                              .group = "sign1",
                              .on = true,
                              .hint = "Знак поправки ET1: прибавлять"}};
    OptionButton planetsMinus{this,
                              {.name = "Option2",
                               .caption = "--",
                               .group = "sign1",
                               .hint = "Знак поправки ET1: вся формула с обратным знаком"}};
    OptionButton earthPlus{
        this, {.name = "Option3", .caption = "+", .group = "sign2", .hint = "Знак поправки ET2: прибавлять"}};
    OptionButton earthMinus{this,
                            {.name = "Option4",
                             .caption = "--",
                             .group = "sign2",
                             .on = true,
                             .hint = "Знак поправки ET2: вся формула с обратным знаком"}};
    TextField sunDiameter{this,
                          {.name = "Text6",
                           .label = "Dsun",
                           .text = "1392,0",
                           .hint = "Диаметр Солнца, тыс. км; идет в Diam(0)",
                           .width = 10}};
    TextField earthDiameter{this,
                            {.name = "Text7",
                             .label = "Death",
                             .text = "12,75628",
                             .hint = "Диаметр Земли, тыс. км; идет в Diam(3)",
                             .width = 10}};
    TextField moonDiameter{this,
                           {.name = "Text8",
                            .label = "Dmoon",
                            .text = "3,475",
                            .hint = "Диаметр Луны, тыс. км; идет в Diam(11)",
                            .width = 10}};
    TextField setTrigger{this,
                         {.name = "Text5",
                          .text = "Time",
                          .hint = "Запись сюда с другой формы задает значения",
                          .hidden = true}};
    CommandButton setModel{this,
                           {.name = "Command1",
                            .caption = "Задать значения",
                            .hint = "Перенести формулы и диаметры в модель: kET, JDt01, JDt02, Diam",
                            .isDefault = true}};
    CommandButton closeForm{this,
                            {.name = "Command2",
                             .caption = "Закрыть форму",
                             .hint = "Закрыть эту форму; заданные значения остаются"}};

protected:
    /// A relation ET - UT = a + b (T - T0) + c (T - T0)^2, in seconds, T in centuries from the year T0.
    struct Formula {
        const char* caption;
        double a, b, c, T0;
        const char* hint;
    };
    static constexpr std::array<Formula, 6> formulas = {{
        {"задать вручную", 0, 0, 0, 0, "Коэффициенты и год отсчета берутся из полей"},
        {"ET-UT=24.35+72.32*(T-T0)+29.95*(T-T0)^2  Джонс 1939  T0=1900", 24.35, 72.32, 29.95, 1900,
         "Парабола Джонса от 1900 года, с"},
        {"ET-UT=31.5*(T-T0)^2   Долмау 1997  T0=1800", 0, 0, 31.5, 1800, "Парабола от 1800 года, с"},
        {"ET-UT=31.5*(T-T0)^2   Норин 2010  T0= JD0 (для поворота планет)", 0, 0, 31.5, 1800,
         "Парабола от 1800 года для поворота планет, с"},
        {"ET-UT=31.5*(T-T0)^2   Норин 2010  T0= JD0 (для вращения Земли)", 0, 0, 31.5, 1800,
         "Парабола от 1800 года для вращения Земли, с"},
        {"кусочная аппроксимация от 1700 до 2000 и далее прогноз", 0, 0, 0, 1900,
         "Таблица многочленов, с; последний из них к 2020 году дает примерно на 60 с больше действительного"},
    }};

private:
    static OptionButton::Spec planetsKind(int i) {
        return {.name = "Option8",
                .caption = formulas[i].caption,
                .group = "ET1",
                .on = i == 1,
                .hint = formulas[i].hint};
    }
    static OptionButton::Spec earthKind(int i) {
        return {.name = "Option9",
                .caption = formulas[i].caption,
                .group = "ET2",
                .on = i == 4,
                .hint = formulas[i].hint};
    }
};

}  // namespace tarvex
