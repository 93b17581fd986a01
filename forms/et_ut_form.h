#pragma once
// Form17: the two relations of ephemeris and universal time, ET1 for the turning of the planets and ET2 for
// the rotation of the Earth.

#include "forms/laboratory.h"

namespace tarvex {

class EtUtForm final : public Form {
public:
    static constexpr const char* formName = "Form17";
    explicit EtUtForm(Laboratory& lab);

    TextField Text1{this, {.name = "Text1", .hint = "Коэффициент a формулы ET1, с", .width = 8}};
    TextField Text2{this, {.name = "Text2", .hint = "Коэффициент b формулы ET1, с за столетие", .width = 8}};
    TextField Text3{
        this, {.name = "Text3", .hint = "Коэффициент c формулы ET1, с за квадрат столетия", .width = 8}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "T01=",
                      .hint = "Год, от которого считается время формулы ET1 (1 января, день 1,5)",
                      .width = 6}};
    TextField Text11{this, {.name = "Text11", .hint = "Коэффициент a формулы ET2, с", .width = 8}};
    TextField Text12{this,
                     {.name = "Text12", .hint = "Коэффициент b формулы ET2, с за столетие", .width = 8}};
    TextField Text13{
        this, {.name = "Text13", .hint = "Коэффициент c формулы ET2, с за квадрат столетия", .width = 8}};
    TextField Text20{this,
                     {.name = "Text20",
                      .label = "T02=",
                      .hint = "Год, от которого считается время формулы ET2 (1 января, день 1,5)",
                      .width = 6}};
    OptionButtons Option8, Option9;
    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "+",
                          .group = "sign1",
                          .on = true,
                          .hint = "Знак поправки ET1: прибавлять"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "--",
                          .group = "sign1",
                          .hint = "Знак поправки ET1: вся формула с обратным знаком"}};
    OptionButton Option3{
        this, {.name = "Option3", .caption = "+", .group = "sign2", .hint = "Знак поправки ET2: прибавлять"}};
    OptionButton Option4{this,
                         {.name = "Option4",
                          .caption = "--",
                          .group = "sign2",
                          .on = true,
                          .hint = "Знак поправки ET2: вся формула с обратным знаком"}};
    TextField Text6{this,
                    {.name = "Text6",
                     .label = "Dsun",
                     .text = "1392,0",
                     .hint = "Диаметр Солнца, тыс. км; идет в Diam(0)",
                     .width = 10}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "Death",
                     .text = "12,75628",
                     .hint = "Диаметр Земли, тыс. км; идет в Diam(3)",
                     .width = 10}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "Dmoon",
                     .text = "3,475",
                     .hint = "Диаметр Луны, тыс. км; идет в Diam(11)",
                     .width = 10}};
    TextField Text5{this,
                    {.name = "Text5",
                     .text = "Time",
                     .hint = "Запись сюда с другой формы задает значения",
                     .hidden = true}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Задать значения",
                            .hint = "Перенести формулы и диаметры в модель: kET, JDt01, JDt02, Diam",
                            .isDefault = true}};
    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Закрыть форму",
                            .hint = "Закрыть эту форму; заданные значения остаются"}};

    void load() override;

private:
    struct Row;
    void setValues();
    void setFormula(int k);
    Row rowOf(int k);

    Laboratory& lab;
};

}  // namespace tarvex
