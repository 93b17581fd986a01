#pragma once
// Controls of Form13, the plan of experiments on observations.  Their order is the tab order.

#include "runtime/form.h"

namespace tarvex {

class ObservationPlanControls : public Form {
public:
    static constexpr int factors = 9;  ///< that a plan may vary

    CheckBoxes factorChosen;    ///< factors 1..9
    TextFields zeroLevel;       ///< zero levels
    TextFields interval;        ///< intervals
    TextFields codedOptimum;    ///< optimum, coded
    TextFields naturalOptimum;  ///< optimum, natural
    TextField systemVX{this,
                       {.name = "Text5",
                        .label = "VXsys, км/с",
                        .text = "0",
                        .hint = "Скорость системы по X, км/с; идет в VXsys",
                        .width = 9}};
    TextField systemVY{this,
                       {.name = "Text6",
                        .label = "VYsys, км/с",
                        .text = "0",
                        .hint = "Скорость системы по Y, км/с; идет в VYsys",
                        .width = 9}};
    TextField systemVZ{this,
                       {.name = "Text7",
                        .label = "VZsys, км/с",
                        .text = "0",
                        .hint = "Скорость системы по Z, км/с; идет в VZsys",
                        .width = 9}};
    TextField planNumber{this,
                         {.name = "Text26",
                          .label = "План №",
                          .text = "1",
                          .hint = "Номер плана; идет в NPlan и в имена файлов",
                          .width = 5}};
    TextField testNumber{
        this,
        {.name = "Text27", .label = "Опыт №", .text = "1", .hint = "Номер опыта в имени файла", .width = 5}};
    OptionButton fileSource{
        this,
        {.name = "Option1", .caption = "файла", .group = "from", .hint = "Параметры плана из файла опыта"}};
    OptionButton templateSource{this,
                                {.name = "Option2",
                                 .caption = "шаблона",
                                 .group = "from",
                                 .on = true,
                                 .hint = "Параметры плана по теории на дату формы 10"}};
    OptionButton rotatable{
        this,
        {.name = "Option4", .caption = "Roto", .group = "kind", .hint = "Рототабельный план, kodPlan = 2"}};
    OptionButton orthogonal{this,
                            {.name = "Option5",
                             .caption = "Orto",
                             .group = "kind",
                             .on = true,
                             .hint = "Ортогональный план, kodPlan = 1"}};
    CheckBox planOfPerturbations{this,
                                 {.name = "Check2",
                                  .caption = "план возмущений от планет №1 или №2",
                                  .hint = "Факторы X2...X9 - амплитуды возмущений планеты, градусы"}};
    OptionButton firstPerturber{this,
                                {.name = "Option3",
                                 .caption = "№1",
                                 .group = "perturber",
                                 .on = true,
                                 .hint = "Возмущения от первой планеты пары"}};
    OptionButton secondPerturber{this,
                                 {.name = "Option6",
                                  .caption = "№2",
                                  .group = "perturber",
                                  .hint = "Возмущения от второй планеты пары"}};
    TextField readSignal{this,
                         {.name = "Text16", .hint = "Сигнал формы 10: прочитать поля плана", .hidden = true}};
    Label sourceCaption{this, {.name = "Label20", .caption = "", .hint = "Источник и годы данных"}};

    CommandButton createPlan{this,
                             {.name = "Command4",
                              .caption = "Создать план",
                              .hint = "План отмеченных факторов, от 2 до 6",
                              .isDefault = true,
                              .disturbs = Disturbs::All}};
    CommandButton loadPlan{this,
                           {.name = "Command1",
                            .caption = "Загрузить параметры плана из",
                            .hint = "Нулевые уровни и интервалы из шаблона или файла",
                            .disturbs = Disturbs::All}};
    CommandButton savePlan{this,
                           {.name = "Command2",
                            .caption = "Записать план опыта в файл",
                            .hint = "Уровни, эксперименты и коэффициенты в файл опыта",
                            .disturbs = Disturbs::All}};
    CommandButton optimize{this,
                           {.name = "Command3",
                            .caption = "Оптимизировать отмеченные параметры",
                            .hint = "Оптимум уравнения регрессии, найденного на форме 10"}};
    CommandButton optimumToLevels{this,
                                  {.name = "Command5",
                                   .caption = "Задать нулевые уровни = X(i)opt",
                                   .hint = "Перенести оптимум в нулевые уровни факторов плана"}};
    CommandButton clearOptimum{
        this, {.name = "Command6", .caption = "X(i)opt=0", .hint = "Обнулить закодированный оптимум"}};
    CommandButton addOptimum{this,
                             {.name = "Command7",
                              .caption = "Добавить оптимальные параметры в файл",
                              .hint = "Добавить нулевые уровни записью в длинный ряд планеты"}};
    CommandButton sendPerturbations{this,
                                    {.name = "Command8",
                                     .caption = "возмущения на форму 22",
                                     .hint = "Перенести X2...X9 в амплитуды возмущений формы 22"}};
    CommandButton openStatistics{
        this, {.name = "Command9", .caption = "К статистике", .hint = "Открыть статистику рядов (форма 6)"}};
    CommandButton closeForm{
        this, {.name = "Command10", .caption = "Закрыть форму", .hint = "Закрыть форму 13; план остается"}};

protected:
    explicit ObservationPlanControls(Desk& desk);

private:
    void layOut();
};

}  // namespace tarvex
