#pragma once
// Form24: test of the DE405 ephemeris, one body at one date.

#include "forms/laboratory.h"

namespace tarvex {

class EphemerisForm final : public Form {
public:
    static constexpr const char* formName = "Form24";
    explicit EphemerisForm(Laboratory& lab);

    TextField Text9{this,
                    {.name = "Text9",
                     .label = "год",
                     .text = "1969",
                     .hint = "Год; файлы есть для 1960-2059 годов",
                     .width = 6}};
    TextField Text8{this,
                    {.name = "Text8", .label = "месяц", .text = "6", .hint = "Месяц от 1 до 12", .width = 4}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "день",
                     .text = "28,0",
                     .hint = "День с долей; дата берется без поправки ET-UT",
                     .width = 8}};
    TextField Text10{
        this, {.name = "Text10", .label = "JD", .hint = "Юлианская дата, дни; идет в JD", .width = 12}};
    Label Label8{this,
                 {.name = "Label8",
                  .caption = "ET - UT = 0",
                  .hint = "Дата считается эфемеридным временем, без поправки"}};
    CommandButton Command2{
        this, {.name = "Command2", .caption = "G > J", .hint = "Юлианская дата по году, месяцу и дню"}};
    CommandButton Command3{
        this, {.name = "Command3", .caption = "J > G", .hint = "Год, месяц и день по юлианской дате"}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "рассчитать по DE405 координаты и скорости для объекта №",
                            .hint = "Прочитать эфемериды на дату и показать координаты и скорости объекта",
                            .isDefault = true}};
    TextField Text11{this,
                     {.name = "Text11",
                      .text = "1",
                      .hint = "Номер объекта: 0 Солнце, 1-9 планеты (3 - центр масс Земли и Луны), 10 и 11 "
                              "Луна относительно Земли",
                      .width = 4}};
    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "м , м/с",
                          .group = "unit",
                          .on = true,
                          .hint = "Показать в метрах и метрах в секунду"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "АЕ , АЕ/день",
                          .group = "unit",
                          .hint = "Показать в астрономических единицах и в них за сутки"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "барицентрические",
                          .group = "origin",
                          .on = true,
                          .hint = "От центра масс Солнечной системы, как в эфемеридах"}};
    OptionButton Option4{this,
                         {.name = "Option4",
                          .caption = "гелиоцентрические",
                          .group = "origin",
                          .hint = "Вычесть координаты и скорость Солнца"}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "J2000",
                          .group = "epoch",
                          .on = true,
                          .hint = "Равноденствие J2000, как в эфемеридах"}};
    OptionButton Option6{this,
                         {.name = "Option6",
                          .caption = "JD",
                          .group = "epoch",
                          .hint = "Перевести прецессией к равноденствию даты"}};
    OptionButton Option7{this,
                         {.name = "Option7",
                          .caption = "экватор",
                          .group = "plane",
                          .on = true,
                          .hint = "Плоскость экватора, как в эфемеридах"}};
    OptionButton Option8{this,
                         {.name = "Option8",
                          .caption = "эклиптика",
                          .group = "plane",
                          .hint = "Повернуть к плоскости эклиптики"}};
    TextField Text1{this,
                    {.name = "Text1",
                     .label = "X",
                     .hint = "Координата X объекта, м или АЕ",
                     .readOnly = true,
                     .width = 18}};
    TextField Text2{this,
                    {.name = "Text2",
                     .label = "Y",
                     .hint = "Координата Y объекта, м или АЕ",
                     .readOnly = true,
                     .width = 18}};
    TextField Text3{this,
                    {.name = "Text3",
                     .label = "Z",
                     .hint = "Координата Z объекта, м или АЕ",
                     .readOnly = true,
                     .width = 18}};
    TextField Text4{this,
                    {.name = "Text4",
                     .label = "VX",
                     .hint = "Скорость VX объекта; в м/с она берется из строки Ipl, которую задает эпоха JD "
                             "или прежний расчет",
                     .readOnly = true,
                     .width = 18}};
    TextField Text5{this,
                    {.name = "Text5",
                     .label = "VY",
                     .hint = "Скорость VY объекта, м/с или АЕ/день",
                     .readOnly = true,
                     .width = 18}};
    TextField Text6{this,
                    {.name = "Text6",
                     .label = "VZ",
                     .hint = "Скорость VZ объекта, м/с или АЕ/день",
                     .readOnly = true,
                     .width = 18}};

private:
    void calculate();
    void ownCalendar();

    Laboratory& lab;
};

}  // namespace tarvex
