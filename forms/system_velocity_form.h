#pragma once
// Form4: the velocity of the Solar System as a whole, summed from the known velocities of nested systems.

#include "forms/laboratory.h"

namespace tarvex {

class SystemVelocityForm final : public Form {
public:
    static constexpr const char* formName = "Form4";
    explicit SystemVelocityForm(Laboratory& lab);

    TextField Text1{
        this, {.name = "Text1", .label = "VXsys", .hint = "Скорость системы по оси X, км/с", .width = 12}};
    TextField Text2{
        this, {.name = "Text2", .label = "VYsys", .hint = "Скорость системы по оси Y, км/с", .width = 12}};
    TextField Text3{
        this, {.name = "Text3", .label = "VZsys", .hint = "Скорость системы по оси Z, км/с", .width = 12}};

    CheckBox Check1{this, tick("Check1", "Vsol относительно местной группы звезд MGZ (красные линии)")};
    TextField Text4{this, speed("Text4", "19,4")}, Text5{this, alfa("Text5", "270")},
        Text6{this, betta("Text6", "53")};
    OptionButton Option1{this, sign("Option1", "row1", true)}, Option2{this, sign("Option2", "row1", false)};
    TextField Text7{this, part("Text7", "VX")}, Text8{this, part("Text8", "VY")},
        Text9{this, part("Text9", "VZ")};

    CheckBox Check2{this, tick("Check2", "MGZ относительно центра нашей галактики CG (алые линии)")};
    TextField Text10{this, speed("Text10", "225")}, Text11{this, alfa("Text11", "347")},
        Text12{this, betta("Text12", "60")};
    OptionButton Option3{this, sign("Option3", "row2", true)}, Option4{this, sign("Option4", "row2", false)};
    TextField Text13{this, part("Text13", "VX")}, Text14{this, part("Text14", "VY")},
        Text15{this, part("Text15", "VZ")};

    CheckBox Check3{this, tick("Check3", "CG относительно местной группы галактик MGG (синие линии)")};
    TextField Text16{this, speed("Text16", "105")}, Text17{this, alfa("Text17", "28")},
        Text18{this, betta("Text18", "33")};
    OptionButton Option5{this, sign("Option5", "row3", true)}, Option6{this, sign("Option6", "row3", false)};
    TextField Text19{this, part("Text19", "VX")}, Text20{this, part("Text20", "VY")},
        Text21{this, part("Text21", "VZ")};

    CheckBox Check4{this, tick("Check4", "MGG относительно реликтового излучения (голубые линии)")};
    TextField Text22{this, speed("Text22", "635")}, Text23{this, alfa("Text23", "172")},
        Text24{this, betta("Text24", "-31")};
    OptionButton Option7{this, sign("Option7", "row4", true)}, Option8{this, sign("Option8", "row4", false)};
    TextField Text25{this, part("Text25", "VX")}, Text26{this, part("Text26", "VY")},
        Text27{this, part("Text27", "VZ")};

    CheckBox Check5{this, tick("Check5", "CG относительно реликтового излучения (зеленые линии)")};
    TextField Text28{this, speed("Text28", "552")}, Text29{this, alfa("Text29", "169")},
        Text30{this, betta("Text30", "-30")};
    OptionButton Option9{this, sign("Option9", "row5", true)},
        Option10{this, sign("Option10", "row5", false)};
    TextField Text31{this, part("Text31", "VX")}, Text32{this, part("Text32", "VY")},
        Text33{this, part("Text33", "VZ")};

    TextField Text34{this,
                     {.name = "Text34",
                      .label = "VXsum",
                      .text = "0",
                      .hint = "Сумма отмеченных скоростей по X, км/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text35{this,
                     {.name = "Text35",
                      .label = "VYsum",
                      .text = "0",
                      .hint = "Сумма отмеченных скоростей по Y, км/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text36{this,
                     {.name = "Text36",
                      .label = "VZsum",
                      .text = "0",
                      .hint = "Сумма отмеченных скоростей по Z, км/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text37{this,
                     {.name = "Text37",
                      .label = "MV, (км/с)/см",
                      .text = "50",
                      .hint = "Масштаб рисунка, км/с в клетке",
                      .width = 6}};

    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Разложить по осям отмеченные скорости и просуммировать",
                            .hint = "Проекции и сумма отмеченных строк; строка 0 скоростей модели занята, "
                                    "перед прогоном загрузите данные заново",
                            .isDefault = true}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Задать скорость системе",
                            .hint = "Взять VXsys, VYsys, VZsys в модель и показать скорости на форме 1"}};
    CommandButton Command4{
        this, {.name = "Command4", .caption = "Очистить рисунок", .hint = "Стереть линии, оставить сетку"}};
    CommandButton Command3{this,
                           {.name = "Command3", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 560,
                      .height = 560,
                      .hint = "Вверху плоскость X-Z, внизу плоскость X-Y"}};

    void load() override;
    void activate() override;

private:
    static CheckBox::Spec tick(const char* name, const char* caption);
    static TextField::Spec speed(const char* name, const char* text);
    static TextField::Spec alfa(const char* name, const char* text);
    static TextField::Spec betta(const char* name, const char* text);
    static TextField::Spec part(const char* name, const char* label);
    static OptionButton::Spec sign(const char* name, const char* group, bool plus);

    /// One reference system: its tick, fields, sign and colour.
    struct Row {
        CheckBox& tick;
        TextField &V, &Alfa, &Betta;
        TextField &VX, &VY, &VZ;
        OptionButton &plus, &minus;
        Color color;
    };
    std::array<Row, 5> rows();
    void clearPicture();
    void drawVelocity(double VX, double VY, double VZ, double MV, Color color);
    void resolveAndSum();
    void giveToSystem();

    Laboratory& lab;
};

}  // namespace tarvex
