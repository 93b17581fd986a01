#pragma once
// The controls of the ephemeris test, Form24, in tab order: date, body, what is shown, and the result.

#include "runtime/form.h"

namespace tarvex {

class EphemerisControls : public Form {
public:
    TextField year{this,
                   {.name = "Text9",
                    .label = "год",
                    .text = "1969",
                    .hint = "Год; файлы есть для 1960-2059 годов",
                    .width = 6}};
    TextField month{this,
                    {.name = "Text8", .label = "месяц", .text = "6", .hint = "Месяц от 1 до 12", .width = 4}};
    TextField day{this,
                  {.name = "Text7",
                   .label = "день",
                   .text = "28,0",
                   .hint = "День с долей; дата берется без поправки ET-UT",
                   .width = 8}};
    TextField julianDate{
        this, {.name = "Text10", .label = "JD", .hint = "Юлианская дата, дни; идет в JD", .width = 12}};
    Label etUtLabel{this,
                    {.name = "Label8",
                     .caption = "ET - UT = 0",
                     .hint = "Дата считается эфемеридным временем, без поправки"}};
    CommandButton toJulianDate{
        this, {.name = "Command2", .caption = "G > J", .hint = "Юлианская дата по году, месяцу и дню"}};
    CommandButton toCalendarDate{
        this, {.name = "Command3", .caption = "J > G", .hint = "Год, месяц и день по юлианской дате"}};
    CommandButton calculatePlace{
        this,
        {.name = "Command1",
         .caption = "рассчитать по DE405 координаты и скорости для объекта №",
         .hint = "Прочитать эфемериды на дату и показать координаты и скорости объекта",
         .isDefault = true,
         .disturbs = Disturbs::All}};
    TextField bodyNumber{
        this,
        {.name = "Text11",
         .text = "1",
         .hint = "Номер объекта: 0 Солнце, 1-9 планеты (3 - центр масс Земли и Луны), 10 и 11 "
                 "Луна относительно Земли",
         .width = 4}};
    OptionButton inMetres{this,
                          {.name = "Option1",
                           .caption = "м , м/с",
                           .group = "unit",
                           .on = true,
                           .hint = "Показать в метрах и метрах в секунду; VX при J2000 - по строке Ipl"}};
    OptionButton inAstronomicalUnits{this,
                                     {.name = "Option2",
                                      .caption = "АЕ , АЕ/день",
                                      .group = "unit",
                                      .hint = "Показать в астрономических единицах и в них за сутки"}};
    OptionButton barycentric{this,
                             {.name = "Option3",
                              .caption = "барицентрические",
                              .group = "origin",
                              .on = true,
                              .hint = "От центра масс Солнечной системы, как в эфемеридах"}};
    OptionButton heliocentric{this,
                              {.name = "Option4",
                               .caption = "гелиоцентрические",
                               .group = "origin",
                               .hint = "Вычесть координаты и скорость Солнца"}};
    OptionButton equinoxJ2000{this,
                              {.name = "Option5",
                               .caption = "J2000",
                               .group = "epoch",
                               .on = true,
                               .hint = "Равноденствие J2000, как в эфемеридах"}};
    OptionButton equinoxOfDate{this,
                               {.name = "Option6",
                                .caption = "JD",
                                .group = "epoch",
                                .hint = "Перевести прецессией к равноденствию даты"}};
    OptionButton equatorPlane{this,
                              {.name = "Option7",
                               .caption = "экватор",
                               .group = "plane",
                               .on = true,
                               .hint = "Плоскость экватора, как в эфемеридах"}};
    OptionButton eclipticPlane{this,
                               {.name = "Option8",
                                .caption = "эклиптика",
                                .group = "plane",
                                .hint = "Повернуть к плоскости эклиптики"}};
    TextField positionX{this,
                        {.name = "Text1",
                         .label = "X",
                         .hint = "Координата X объекта, м или АЕ",
                         .readOnly = true,
                         .width = 18}};
    TextField positionY{this,
                        {.name = "Text2",
                         .label = "Y",
                         .hint = "Координата Y объекта, м или АЕ",
                         .readOnly = true,
                         .width = 18}};
    TextField positionZ{this,
                        {.name = "Text3",
                         .label = "Z",
                         .hint = "Координата Z объекта, м или АЕ",
                         .readOnly = true,
                         .width = 18}};
    TextField velocityX{
        this,
        {.name = "Text4",
         .label = "VX",
         .hint = "Скорость VX объекта; в м/с она берется из строки Ipl, которую задает эпоха JD "
                 "или прежний расчет",
         .readOnly = true,
         .width = 18}};
    TextField velocityY{this,
                        {.name = "Text5",
                         .label = "VY",
                         .hint = "Скорость VY объекта, м/с или АЕ/день",
                         .readOnly = true,
                         .width = 18}};
    TextField velocityZ{this,
                        {.name = "Text6",
                         .label = "VZ",
                         .hint = "Скорость VZ объекта, м/с или АЕ/день",
                         .readOnly = true,
                         .width = 18}};

protected:
    using Form::Form;
    void layOut();
};

}  // namespace tarvex
