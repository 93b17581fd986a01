#pragma once
// Controls of Form14, the ellipse and the eccentric.  Their order is the tab order.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class EccentricControls : public Form {
public:
    static constexpr const char* formName = "Form14";

    TextField meanRadius{this,
                         {.name = "Text1",
                          .label = "Rsr, тыс.км.",
                          .text = "150000",
                          .hint = "Средний радиус орбиты R, тыс. км"}};
    TextField ellipseEccentricity{this,
                                  {.name = "Text2",
                                   .label = "Eks1 (эллипс)",
                                   .text = "0,2",
                                   .hint = "Эксцентриситет эллипса e1, доля большой полуоси"}};
    TextField eccentricShift{
        this,
        {.name = "Text3",
         .label = "Eks2 (эксцентр)",
         .text = "0,4",
         .hint = "Эксцентриситет эксцентра e2, доля радиуса; у экванта сравнивают с e2 = 2*e1"}};
    TextField meanMotion{this,
                         {.name = "Text4",
                          .label = "W, рад/год",
                          .text = "6,28",
                          .hint = "Среднее движение планеты, радиан в год"}};
    TextField drawingScale{this,
                           {.name = "Text5",
                            .label = "Mx, тыс.км./см",
                            .text = "20000",
                            .hint = "Масштаб левого рисунка, тыс. км в клетке"}};
    TextField timeScale{this,
                        {.name = "Text6",
                         .label = "МТ, дней/см",
                         .text = "36,525",
                         .hint = "Масштаб времени на графике разностей, дней в клетке"}};
    TextField longitudeScale{this,
                             {.name = "Text8",
                              .label = "MdAlfa, град/см",
                              .text = "1",
                              .hint = "Масштаб разности долгот на графике, градусов в клетке"}};
    TextField distanceScale{this,
                            {.name = "Text9",
                             .label = "MdR, тыс.км./см",
                             .text = "10000",
                             .hint = "Масштаб разности расстояний на графике, тыс. км в клетке"}};
    TextField timeStep{
        this, {.name = "Text10", .label = "шаг, дни", .text = "0,1", .hint = "Шаг расчета по времени, дней"}};

    OptionButton simpleEccentric{this,
                                 {.name = "Option1",
                                  .caption = "простой эксцентр",
                                  .group = "model",
                                  .on = true,
                                  .hint = "Равномерное движение по кругу, сдвинутому на R*e2"}};
    OptionButton withEquant{this,
                            {.name = "Option2",
                             .caption = "эксцентр с эквантом",
                             .group = "model",
                             .hint = "Центр круга в R*e2/2, равномерное движение видно из экванта в R*e2"}};
    CheckBox plotLongitudeDifference{
        this,
        {.name = "Check1",
         .caption = "dAlfa, град",
         .on = true,
         .hint = "Чертить разность долгот эллипса и второй модели (красные точки)"}};
    CheckBox plotDistanceDifference{
        this,
        {.name = "Check2",
         .caption = "dR, тыс.км.",
         .on = true,
         .hint = "Чертить разность расстояний эллипса и второй модели (синие точки)"}};

    TextField ellipseLongitude{
        this,
        {.name = "Text11", .label = "AlfaL1, град", .hint = "Долгота на эллипсе, градусы", .readOnly = true}};
    TextField modelLongitude{this,
                             {.name = "Text12",
                              .label = "AlfaL2, град",
                              .hint = "Долгота по второй модели, градусы",
                              .readOnly = true}};
    TextField longitudeDifference{
        this,
        {.name = "Text13", .label = "dAlfa, град", .hint = "Разность долгот, градусы", .readOnly = true}};
    TextField ellipseDistance{this,
                              {.name = "Text14",
                               .label = "R1, тыс.км.",
                               .hint = "Расстояние на эллипсе, тыс. км",
                               .readOnly = true}};
    TextField modelDistance{this,
                            {.name = "Text15",
                             .label = "R2, тыс.км.",
                             .hint = "Расстояние по второй модели, тыс. км",
                             .readOnly = true}};
    TextField distanceDifference{
        this,
        {.name = "Text16", .label = "dR, тыс.км.", .hint = "Разность расстояний, тыс. км", .readOnly = true}};
    TextField elapsedTime{
        this, {.name = "Text17", .label = "T, дни", .hint = "Время от афелия, дней", .readOnly = true}};

    CommandButton startRun{this,
                           {.name = "Command1",
                            .caption = "Начать расчет",
                            .hint = "Взять поля и вести планету от афелия",
                            .isDefault = true,
                            .disturbs = Disturbs::All}};
    CommandButton stopRun{this, {.name = "Command4", .caption = "Остановить", .hint = "Остановить расчет"}};
    CommandButton continueRun{this,
                              {.name = "Command5",
                               .caption = "Продолжить",
                               .hint = "Продолжить с того же места",
                               .disturbs = Disturbs::All}};
    CommandButton singleStep{this,
                             {.name = "Command6",
                              .caption = "Сделать 1 шаг",
                              .hint = "Один шаг расчета",
                              .disturbs = Disturbs::All}};
    CommandButton clearDrawings{
        this, {.name = "Command8", .caption = "Очистить рисунки", .hint = "Стереть оба рисунка"}};
    CommandButton closeForm{this, closingSpec("Command14", Disturbs::Own)};

    Picture orbitDrawing{this,
                         {.name = "Picture1",
                          .width = 720,
                          .height = 600,
                          .hint = "Эллипс (красный), эксцентр (синий), эквант (зеленый)"}};
    Picture differenceGraph{this,
                            {.name = "Picture2",
                             .width = 720,
                             .height = 600,
                             .hint = "Разности долгот (красные точки) и расстояний (синие) по времени"}};

protected:
    explicit EccentricControls(Desk& desk);

private:
    void layOut();
};

}  // namespace tarvex
