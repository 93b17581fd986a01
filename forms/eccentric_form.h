#pragma once
// Form14: how close the eccentric and the equant come to a Kepler ellipse.

#include "forms/laboratory.h"
#include "reduction/eccentric.h"

namespace tarvex {

class EccentricForm final : public Form {
public:
    static constexpr const char* formName = "Form14";
    explicit EccentricForm(Laboratory& lab);

    TextField Text1{this,
                    {.name = "Text1",
                     .label = "Rsr, тыс.км.",
                     .text = "150000",
                     .hint = "Средний радиус орбиты R, тыс. км"}};
    TextField Text2{this,
                    {.name = "Text2",
                     .label = "Eks1 (эллипс)",
                     .text = "0,2",
                     .hint = "Эксцентриситет эллипса e1, доля большой полуоси"}};
    TextField Text3{this,
                    {.name = "Text3",
                     .label = "Eks2 (эксцентр)",
                     .text = "0,4",
                     .hint = "Эксцентриситет эксцентра e2, доля радиуса; у экванта сравнивают с e2 = 2*e1"}};
    TextField Text4{this,
                    {.name = "Text4",
                     .label = "W, рад/год",
                     .text = "6,28",
                     .hint = "Среднее движение планеты, радиан в год"}};
    TextField Text5{this,
                    {.name = "Text5",
                     .label = "Mx, тыс.км./см",
                     .text = "20000",
                     .hint = "Масштаб левого рисунка, тыс. км в клетке"}};
    TextField Text6{this,
                    {.name = "Text6",
                     .label = "МТ, дней/см",
                     .text = "36,525",
                     .hint = "Масштаб времени на графике разностей, дней в клетке"}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "MdAlfa, град/см",
                     .text = "1",
                     .hint = "Масштаб разности долгот на графике, градусов в клетке"}};
    TextField Text9{this,
                    {.name = "Text9",
                     .label = "MdR, тыс.км./см",
                     .text = "10000",
                     .hint = "Масштаб разности расстояний на графике, тыс. км в клетке"}};
    TextField Text10{
        this, {.name = "Text10", .label = "шаг, дни", .text = "0,1", .hint = "Шаг расчета по времени, дней"}};

    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "простой эксцентр",
                          .group = "model",
                          .on = true,
                          .hint = "Равномерное движение по кругу, сдвинутому на R*e2"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "эксцентр с эквантом",
                          .group = "model",
                          .hint = "Центр круга в R*e2/2, равномерное движение видно из экванта в R*e2"}};
    CheckBox Check1{this,
                    {.name = "Check1",
                     .caption = "dAlfa, град",
                     .on = true,
                     .hint = "Чертить разность долгот эллипса и второй модели (красные точки)"}};
    CheckBox Check2{this,
                    {.name = "Check2",
                     .caption = "dR, тыс.км.",
                     .on = true,
                     .hint = "Чертить разность расстояний эллипса и второй модели (синие точки)"}};

    TextField Text11{
        this,
        {.name = "Text11", .label = "AlfaL1, град", .hint = "Долгота на эллипсе, градусы", .readOnly = true}};
    TextField Text12{this,
                     {.name = "Text12",
                      .label = "AlfaL2, град",
                      .hint = "Долгота по второй модели, градусы",
                      .readOnly = true}};
    TextField Text13{
        this,
        {.name = "Text13", .label = "dAlfa, град", .hint = "Разность долгот, градусы", .readOnly = true}};
    TextField Text14{this,
                     {.name = "Text14",
                      .label = "R1, тыс.км.",
                      .hint = "Расстояние на эллипсе, тыс. км",
                      .readOnly = true}};
    TextField Text15{this,
                     {.name = "Text15",
                      .label = "R2, тыс.км.",
                      .hint = "Расстояние по второй модели, тыс. км",
                      .readOnly = true}};
    TextField Text16{
        this,
        {.name = "Text16", .label = "dR, тыс.км.", .hint = "Разность расстояний, тыс. км", .readOnly = true}};
    TextField Text17{
        this, {.name = "Text17", .label = "T, дни", .hint = "Время от афелия, дней", .readOnly = true}};

    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Начать расчет",
                            .hint = "Взять поля и вести планету от афелия",
                            .isDefault = true}};
    CommandButton Command4{this, {.name = "Command4", .caption = "Остановить", .hint = "Остановить расчет"}};
    CommandButton Command5{
        this, {.name = "Command5", .caption = "Продолжить", .hint = "Продолжить с того же места"}};
    CommandButton Command6{this,
                           {.name = "Command6", .caption = "Сделать 1 шаг", .hint = "Один шаг расчета"}};
    CommandButton Command8{
        this, {.name = "Command8", .caption = "Очистить рисунки", .hint = "Стереть оба рисунка"}};
    CommandButton Command14{this,
                            {.name = "Command14", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};

    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 720,
                      .height = 600,
                      .hint = "Эллипс (красный), эксцентр (синий), эквант (зеленый)"}};
    Picture Picture2{this,
                     {.name = "Picture2",
                      .width = 720,
                      .height = 600,
                      .hint = "Разности долгот (красные точки) и расстояний (синие) по времени"}};

    void load() override;
    void unload() override;

private:
    void start();
    void EccentricRun();
    void EccentricDraw();
    void drawMarks(Color ellipse, Color eccentric, Color equant);
    void clearPictures();

    Laboratory& lab;
    Eccentric model_;
    Eccentric drawn_;  ///< where the marks stand that the next drawing erases
    bool started_ = false, gone_ = false;
};

}  // namespace tarvex
