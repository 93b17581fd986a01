#pragma once
// The controls of the screen of the system's velocity, Form4, in tab order: the velocity of the model, five
// known velocities with direction and sign, their sum, the commands and the picture.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class SystemVelocityControls : public Form {
public:
    using Form::Form;

    TextField systemVx{
        this, {.name = "Text1", .label = "VXsys", .hint = "Скорость системы по оси X, км/с", .width = 12}};
    TextField systemVy{
        this, {.name = "Text2", .label = "VYsys", .hint = "Скорость системы по оси Y, км/с", .width = 12}};
    TextField systemVz{
        this, {.name = "Text3", .label = "VZsys", .hint = "Скорость системы по оси Z, км/с", .width = 12}};

    // --- the Sun in the local group of stars
    CheckBox addSun{this, tick("Check1", "Vsol относительно местной группы звезд MGZ (красные линии)")};
    TextField sunSpeed{this, speed("Text4", "19,4")}, sunLongitude{this, alfa("Text5", "270")},
        sunLatitude{this, betta("Text6", "53")};
    OptionButton sunForward{this, sign("Option1", "row1", true)},
        sunReversed{this, sign("Option2", "row1", false)};
    TextField sunVx{this, part("Text7", "VX")}, sunVy{this, part("Text8", "VY")},
        sunVz{this, part("Text9", "VZ")};

    // --- that group about the centre of the Galaxy
    CheckBox addStars{this, tick("Check2", "MGZ относительно центра нашей галактики CG (алые линии)")};
    TextField starsSpeed{this, speed("Text10", "225")}, starsLongitude{this, alfa("Text11", "347")},
        starsLatitude{this, betta("Text12", "60")};
    OptionButton starsForward{this, sign("Option3", "row2", true)},
        starsReversed{this, sign("Option4", "row2", false)};
    TextField starsVx{this, part("Text13", "VX")}, starsVy{this, part("Text14", "VY")},
        starsVz{this, part("Text15", "VZ")};

    // --- the Galaxy in the local group of galaxies
    CheckBox addGalaxy{this, tick("Check3", "CG относительно местной группы галактик MGG (синие линии)")};
    TextField galaxySpeed{this, speed("Text16", "105")}, galaxyLongitude{this, alfa("Text17", "28")},
        galaxyLatitude{this, betta("Text18", "33")};
    OptionButton galaxyForward{this, sign("Option5", "row3", true)},
        galaxyReversed{this, sign("Option6", "row3", false)};
    TextField galaxyVx{this, part("Text19", "VX")}, galaxyVy{this, part("Text20", "VY")},
        galaxyVz{this, part("Text21", "VZ")};

    // --- that group against the background radiation
    CheckBox addGroup{this, tick("Check4", "MGG относительно реликтового излучения (голубые линии)")};
    TextField groupSpeed{this, speed("Text22", "635")}, groupLongitude{this, alfa("Text23", "172")},
        groupLatitude{this, betta("Text24", "-31")};
    OptionButton groupForward{this, sign("Option7", "row4", true)},
        groupReversed{this, sign("Option8", "row4", false)};
    TextField groupVx{this, part("Text25", "VX")}, groupVy{this, part("Text26", "VY")},
        groupVz{this, part("Text27", "VZ")};

    // --- the Galaxy against the background radiation
    CheckBox addBackground{this, tick("Check5", "CG относительно реликтового излучения (зеленые линии)")};
    TextField backgroundSpeed{this, speed("Text28", "552")}, backgroundLongitude{this, alfa("Text29", "169")},
        backgroundLatitude{this, betta("Text30", "-30")};
    OptionButton backgroundForward{this, sign("Option9", "row5", true)},
        backgroundReversed{this, sign("Option10", "row5", false)};
    TextField backgroundVx{this, part("Text31", "VX")}, backgroundVy{this, part("Text32", "VY")},
        backgroundVz{this, part("Text33", "VZ")};

    // --- the sum, commands and picture
    TextField sumVx{this,
                    {.name = "Text34",
                     .label = "VXsum",
                     .text = "0",
                     .hint = "Сумма отмеченных скоростей по X, км/с",
                     .readOnly = true,
                     .width = 12}};
    TextField sumVy{this,
                    {.name = "Text35",
                     .label = "VYsum",
                     .text = "0",
                     .hint = "Сумма отмеченных скоростей по Y, км/с",
                     .readOnly = true,
                     .width = 12}};
    TextField sumVz{this,
                    {.name = "Text36",
                     .label = "VZsum",
                     .text = "0",
                     .hint = "Сумма отмеченных скоростей по Z, км/с",
                     .readOnly = true,
                     .width = 12}};
    TextField velocityScale{this,
                            {.name = "Text37",
                             .label = "MV, (км/с)/см",
                             .text = "50",
                             .hint = "Масштаб рисунка, км/с в клетке",
                             .width = 6}};

    CommandButton sumVelocities{
        this,
        {.name = "Command2",
         .caption = "Разложить по осям отмеченные скорости и просуммировать",
         .hint = "Проекции и сумма отмеченных строк; строка 0 скоростей модели занята, "
                 "перед прогоном загрузите данные заново",
         .isDefault = true,
         .disturbs = Disturbs::All}};
    CommandButton setSystemVelocity{
        this,
        {.name = "Command1",
         .caption = "Задать скорость системе",
         .hint = "Взять VXsys, VYsys, VZsys в модель и показать скорости на форме 1",
         .disturbs = Disturbs::All}};
    CommandButton clearLines{
        this, {.name = "Command4", .caption = "Очистить рисунок", .hint = "Стереть линии, оставить сетку"}};
    CommandButton closeForm{this, closingSpec("Command3")};
    Picture velocityPicture{this,
                            {.name = "Picture1",
                             .width = 560,
                             .height = 560,
                             .hint = "Вверху плоскость X-Z, внизу плоскость X-Y"}};

private:
    /// Takes a known velocity into the sum.
    static CheckBox::Spec tick(const char* name, const char* caption) {
        return {.name = name, .caption = caption, .hint = "Включить эту скорость в сумму"};
    }
    /// Size of a known velocity, km/s.
    static TextField::Spec speed(const char* name, const char* text) {
        return {.name = name,
                .label = "V, км/с",
                .text = text,
                .hint = "Величина скорости, км/с; раскладывается по осям",
                .width = 12};
    }
    /// Its longitude, degrees.
    static TextField::Spec alfa(const char* name, const char* text) {
        return {.name = name,
                .label = "Alfa, град",
                .text = text,
                .hint = "Долгота направления, градусы",
                .width = 12};
    }
    /// Its angle from the plane XY, degrees.
    static TextField::Spec betta(const char* name, const char* text) {
        return {.name = name,
                .label = "Betta, град",
                .text = text,
                .hint = "Угол направления от плоскости XY, градусы; минус - вниз",
                .width = 12};
    }
    /// Its part along an axis, km/s.
    static TextField::Spec part(const char* name, const char* label) {
        return {.name = name,
                .label = label,
                .hint = "Проекция скорости на ось, км/с",
                .readOnly = true,
                .width = 12};
    }
    /// Whether it is taken as given or turned about.
    static OptionButton::Spec sign(const char* name, const char* group, bool plus) {
        return {.name = name,
                .caption = plus ? "+" : "--",
                .group = group,
                .on = plus,
                .hint = plus ? "Направление как задано" : "Обратное направление"};
    }
};

}  // namespace tarvex
