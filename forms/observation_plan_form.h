#pragma once
// Form13: a plan of experiments on observations.  The factors are the orbit parameters of one body, or the
// amplitudes of its perturbations; the experiments run on Form10.

#include "forms/laboratory.h"
#include "runtime/form.h"

namespace tarvex {

class ObservationsForm;

class ObservationPlanForm final : public Form {
public:
    static constexpr const char* formName = "Form13";
    explicit ObservationPlanForm(Laboratory& lab);
    void load() override;
    void activate() override;

    CheckBoxes Check1;  ///< factors 1..9
    TextFields Text1;   ///< zero levels
    TextFields Text2;   ///< intervals
    TextFields Text3;   ///< optimum, coded
    TextFields Text4;   ///< optimum, natural
    TextField Text5{this,
                    {.name = "Text5",
                     .label = "VXsys, км/с",
                     .text = "0",
                     .hint = "Скорость системы по X, км/с; идет в VXsys",
                     .width = 9}};
    TextField Text6{this,
                    {.name = "Text6",
                     .label = "VYsys, км/с",
                     .text = "0",
                     .hint = "Скорость системы по Y, км/с; идет в VYsys",
                     .width = 9}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "VZsys, км/с",
                     .text = "0",
                     .hint = "Скорость системы по Z, км/с; идет в VZsys",
                     .width = 9}};
    TextField Text26{this,
                     {.name = "Text26",
                      .label = "План №",
                      .text = "1",
                      .hint = "Номер плана; идет в NPlan и в имена файлов",
                      .width = 5}};
    TextField Text27{
        this,
        {.name = "Text27", .label = "Опыт №", .text = "1", .hint = "Номер опыта в имени файла", .width = 5}};
    OptionButton Option1{
        this,
        {.name = "Option1", .caption = "файла", .group = "from", .hint = "Параметры плана из файла опыта"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "шаблона",
                          .group = "from",
                          .on = true,
                          .hint = "Параметры плана по теории на дату формы 10"}};
    OptionButton Option4{
        this,
        {.name = "Option4", .caption = "Roto", .group = "kind", .hint = "Рототабельный план, kodPlan = 2"}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "Orto",
                          .group = "kind",
                          .on = true,
                          .hint = "Ортогональный план, kodPlan = 1"}};
    CheckBox Check2{this,
                    {.name = "Check2",
                     .caption = "план возмущений от планет №1 или №2",
                     .hint = "Факторы X2...X9 - амплитуды возмущений планеты, градусы"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "№1",
                          .group = "perturber",
                          .on = true,
                          .hint = "Возмущения от первой планеты пары"}};
    OptionButton Option6{this,
                         {.name = "Option6",
                          .caption = "№2",
                          .group = "perturber",
                          .hint = "Возмущения от второй планеты пары"}};
    TextField Text16{this,
                     {.name = "Text16", .hint = "Сигнал формы 10: прочитать поля плана", .hidden = true}};
    Label Label20{this, {.name = "Label20", .caption = "", .hint = "Источник и годы данных"}};

    CommandButton Command4{this,
                           {.name = "Command4",
                            .caption = "Создать план",
                            .hint = "План отмеченных факторов, от 2 до 6",
                            .isDefault = true}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Загрузить параметры плана из",
                            .hint = "Нулевые уровни и интервалы из шаблона или файла"}};
    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Записать план опыта в файл",
                            .hint = "Уровни, эксперименты и коэффициенты в файл опыта"}};
    CommandButton Command3{this,
                           {.name = "Command3",
                            .caption = "Оптимизировать отмеченные параметры",
                            .hint = "Оптимум уравнения регрессии, найденного на форме 10"}};
    CommandButton Command5{this,
                           {.name = "Command5",
                            .caption = "Задать нулевые уровни = X(i)opt",
                            .hint = "Перенести оптимум в нулевые уровни факторов плана"}};
    CommandButton Command6{
        this, {.name = "Command6", .caption = "X(i)opt=0", .hint = "Обнулить закодированный оптимум"}};
    CommandButton Command7{this,
                           {.name = "Command7",
                            .caption = "Добавить оптимальные параметры в файл",
                            .hint = "Добавить нулевые уровни записью в длинный ряд планеты"}};
    CommandButton Command8{this,
                           {.name = "Command8",
                            .caption = "возмущения на форму 22",
                            .hint = "Перенести X2...X9 в амплитуды возмущений формы 22"}};
    CommandButton Command9{
        this, {.name = "Command9", .caption = "К статистике", .hint = "Открыть статистику рядов (форма 6)"}};
    CommandButton Command10{
        this, {.name = "Command10", .caption = "Закрыть форму", .hint = "Закрыть форму 13; план остается"}};

private:
    void CreatePlan13();
    void LoadPlan13();
    void fromTemplate();
    void fromFile();
    void SavePlan13();
    void OptimizePlan13();
    void AddOptimumRecord();
    void SendToForm22();
    void ShowPlanFields();
    void ReadPlanFields();
    void readNumbers();
    bool sourceChosen(const ObservationsForm& data) const;
    std::string testFile(const ObservationsForm& data) const;
    void showSource();
    void printSeries(const std::string& asRead, int marked);

    Laboratory& lab;
    std::int32_t NOpyt_ = 1;
    double criterion_ = 0;  ///< without corrections, as last shown on Form10
};

}  // namespace tarvex
