#pragma once
// The controls of the plan workshop, Form18, in tab order: kind of the plan, factors, criterion, commands,
// the regression's quality and the picture.

#include "forms/quality_panel.h"
#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class PlanWorkshopControls : public Form {
public:
    OptionButton orthogonalPlan{this,
                                {.name = "Option12",
                                 .caption = "ортогональный",
                                 .group = "plan",
                                 .on = true,
                                 .hint = "Ортогональный план второго порядка, kodPlan = 1"}};
    OptionButton rotatablePlan{this,
                               {.name = "Option13",
                                .caption = "рототабельный",
                                .group = "plan",
                                .hint = "Рототабельный план второго порядка, kodPlan = 2"}};
    OptionButton uniformRotatablePlan{this,
                                      {.name = "Option14",
                                       .caption = "униформрототабельный",
                                       .group = "plan",
                                       .hint = "Рототабельный план с равномерной точностью, kodPlan = 3"}};
    OptionButton dOptimalPlan{
        this,
        {.name = "Option15",
         .caption = "Dоптимал Бокса с N0=0",
         .group = "plan",
         .hint = "D-оптимальный план Бокса без нулевых точек, регрессия для 4 и 5 факторов, kodPlan = 4"}};
    OptionButton compositePlan{this,
                               {.name = "Option16",
                                .caption = "композиционный Бокса ",
                                .group = "plan",
                                .hint = "Композиционный план Бокса, kodPlan = 5"}};
    CheckBox givenCentrePoints{this,
                               {.name = "Check1",
                                .caption = "Задать N0=",
                                .hint = "Взять к-во нулевых точек из поля, а не по таблице плана"}};
    TextField centrePoints{this,
                           {.name = "Text5",
                            .label = "<=15",
                            .text = "0",
                            .hint = "К-во нулевых точек плана, шт; после создания плана - взятое",
                            .width = 4}};
    TextField factorCount{this,
                          {.name = "Text8",
                           .label = "Nf=",
                           .hint = "К-во факторов созданного плана, шт",
                           .readOnly = true,
                           .width = 4}};

    CheckBoxes useFactor{this, 1, 6, [](int i) {
                             return CheckBox::Spec{.name = "Check3",
                                                   .caption = "X" + std::to_string(i) + "=",
                                                   .hint = "Фактор участвует в плане"};
                         }};
    TextFields zeroLevel{
        this, 1, 6, [](int) {
            return TextField::Spec{
                .name = "Text1",
                .text = "0",
                .hint = "Нулевой уровень фактора, в его единицах; для f (X1...X6) - закодированное значение",
                .width = 10};
        }};
    TextFields interval{this, 1, 6, [](int) {
                            return TextField::Spec{.name = "Text2",
                                                   .text = "1",
                                                   .hint = "Интервал варьирования фактора, в его единицах",
                                                   .width = 10};
                        }};
    TextFields codedOptimum{this, 1, 6, [](int i) {
                                return TextField::Spec{
                                    .name = "Text3",
                                    .label = "X" + std::to_string(i) + "opt=",
                                    .text = "0",
                                    .hint = "Оптимум фактора, закодированный; от него графики",
                                    .width = 16};
                            }};
    TextFields optimum{this, 1, 6, [](int) {
                           return TextField::Spec{
                               .name = "Text4", .text = "0", .hint = "Оптимум фактора в его единицах"};
                       }};

    OptionButton standardTest{
        this,
        {.name = "Option6",
         .caption = "ст. теста",
         .group = "source",
         .on = true,
         .hint = "Критерий по полному квадратичному уравнению с единичными коэффициентами"}};
    OptionButton criterionFromFile{this,
                                   {.name = "Option7",
                                    .caption = "из файла",
                                    .group = "source",
                                    .hint = "Критерий из файла опытов Dat\\NabPlan по числу факторов"}};
    OptionButton additionalTests{this,
                                 {.name = "Option8",
                                  .caption = "доп. тестов",
                                  .group = "source",
                                  .hint = "Критерий по тесту, выбранному на форме 8"}};
    OptionButton criterionIsValue{
        this,
        {.name = "Option18", .caption = "Y", .group = "criterion", .on = true, .hint = "Критерий как есть"}};
    OptionButton criterionIsDifference{this,
                                       {.name = "Option19",
                                        .caption = "dY= Y - Yopt",
                                        .group = "criterion",
                                        .hint = "Разность критерия с Yopt"}};
    OptionButton criterionIsSquare{this,
                                   {.name = "Option20",
                                    .caption = "dY^2",
                                    .group = "criterion",
                                    .hint = "Квадрат разности критерия с Yopt"}};
    OptionButton criterionIsModulus{this,
                                    {.name = "Option21",
                                     .caption = "Abs(dY)",
                                     .group = "criterion",
                                     .hint = "Модуль разности критерия с Yopt"}};
    CheckBox divideByReference{this,
                               {.name = "Check4", .caption = "dY/Yopt", .hint = "Делить критерий на Yopt"}};
    TextField referenceValue{this,
                             {.name = "Text6",
                              .label = "Yopt для dY",
                              .text = "100",
                              .hint = "Yopt, заданное тестом или файлом, в единицах критерия"}};
    TextField criterionMinimum{
        this,
        {.name = "Text7", .label = "Ymin, ед", .hint = "Начало оси критерия на графике, в его единицах"}};
    TextField criterionScale{this,
                             {.name = "Text20",
                              .label = "Масштаб, ед/см",
                              .hint = "Единиц критерия в клетке графика; можно изменить перед построением"}};

    CommandButton createPlan{this,
                             {.name = "Command14",
                              .caption = "Создать план",
                              .hint = "Построить план выбранного вида по отмеченным факторам",
                              .disturbs = Disturbs::All}};
    CommandButton runExperiments{this,
                                 {.name = "Command4",
                                  .caption = "Выполнить эксперименты и рассчитать критерий",
                                  .hint = "Критерий во всех точках плана из выбранного источника",
                                  .disturbs = Disturbs::All}};
    CommandButton fitCoefficients{
        this,
        {.name = "Command1",
         .caption = "Найти коэффициенты уравнения регрессии",
         .hint = "Коэффициенты b0...b27 для закодированных факторов и качество регрессии"}};
    CommandButton optimizeFactors{
        this,
        {.name = "Command5",
         .caption = "Оптимизировать параметры",
         .hint = "Стационарная точка уравнения регрессии; значение в ней заменит отклик опыта 1"}};
    CommandButton drawPlots{this,
                            {.name = "Command13",
                             .caption = "Построить графики по уравнению регрессии при X(i)=X(i)opt",
                             .hint = "Уравнение вдоль каждого фактора от -1 до +1 через точку оптимума"}};
    CommandButton zeroOptimum{
        this, {.name = "Command6", .caption = "задать X(i)opt=0", .hint = "Обнулить оптимум факторов плана"}};
    CommandButton evaluatePoint{this,
                                {.name = "Command9",
                                 .caption = "f (X1...X6)=",
                                 .hint = "Значение уравнения при закодированных факторах из полей нулевых "
                                         "уровней; заменит отклик опыта 1"}};
    TextField pointResult{
        this, {.name = "Text9", .hint = "Значение уравнения регрессии в виде критерия", .readOnly = true}};
    CommandButton clearDrawing{
        this, {.name = "Command7", .caption = "Очистить рисунок", .hint = "Пустой рисунок с сеткой"}};
    CommandButton closeForm{this,
                            {.name = "Command3", .caption = "Закрыть форму", .hint = "Закрыть формы 18 и 8"}};
    Label fitQuality{this, fitQualitySpec("Label1")};
    Label stationaryPoint{this, stationaryPointSpec("Label2")};
    QualityPanel quality{this};
    Picture picture{this,
                    {.name = "Picture1",
                     .width = 797,
                     .height = 947,
                     .hint = "План, критерий (синие кружки), регрессия (красные кружки) и ее графики"}};

protected:
    using Form::Form;
    void layOut();
};

}  // namespace tarvex
