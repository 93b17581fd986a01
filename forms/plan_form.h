#pragma once
// Form15: the speed of gravity by a multifactor plan.  Creates the plan, drives Form2 experiment by
// experiment, compares calculated and observed secular shifts, fits the regression and solves for the
// optimum.

#include "forms/laboratory.h"
#include "forms/plan_picture.h"
#include "runtime/form.h"
#include "stats/bench.h"

namespace tarvex {

class PlanForm final : public Form {
public:
    static constexpr const char* formName = "Form15";
    explicit PlanForm(Laboratory& lab);
    void load() override;
    void activate() override;

    // --- the plan
    OptionButton Option1{
        this,
        {.name = "Option1", .caption = "Orto", .group = "план", .on = true, .hint = "Ортогональный план"}};
    OptionButton Option2{
        this, {.name = "Option2", .caption = "Roto", .group = "план", .hint = "Рототабельный план"}};
    CommandButton Command5{this,
                           {.name = "Command5",
                            .caption = "1-Создать план",
                            .hint = "Построить план по отмеченным факторам, от 2 до 6"}};
    CommandButton Command14{this,
                            {.name = "Command14",
                             .caption = "2-Загрузить параметры плана №",
                             .hint = "Прочитать уровни факторов и веса из файла плана"}};
    TextField Text4{this,
                    {.name = "Text4", .text = "1", .hint = "Номер плана, в имени файла и папки", .width = 4}};
    CommandButton Command12{this,
                            {.name = "Command12",
                             .caption = "Сохранить",
                             .hint = "Записать уровни факторов и веса в файл плана"}};
    CheckBoxes Check3{this, 1, 7, [](int i) { return factorSpec(i); }};
    TextFields Text11{
        this, 1, 7, [](int) {
            return TextField::Spec{
                .name = "Text11", .text = "0", .hint = "Нулевой уровень фактора, в его единицах", .width = 9};
        }};
    TextFields Text12{this, 1, 7, [](int) {
                          return TextField::Spec{.name = "Text12",
                                                 .text = "1",
                                                 .hint = "Интервал варьирования фактора, в его единицах",
                                                 .width = 9};
                      }};
    TextFields Text13{this, 1, 7, [](int) {
                          return TextField::Spec{
                              .name = "Text13",
                              .text = "1",
                              .hint = "Значение фактора в текущем эксперименте, в его единицах",
                              .width = 9};
                      }};
    TextFields Text14{
        this, 1, 7, [](int) {
            return TextField::Spec{
                .name = "Text14", .text = "0", .hint = "Оптимум фактора, закодированный", .width = 9};
        }};
    TextFields Text15{
        this, 1, 7, [](int) {
            return TextField::Spec{
                .name = "Text15", .text = "0", .hint = "Оптимум фактора в его единицах", .width = 9};
        }};
    CheckBox Check5{this,
                    {.name = "Check5",
                     .caption = "kPgr2=0",
                     .hint = "Второй коэффициент закона равен 0, иначе он равен первому"}};
    CheckBox Check6{
        this,
        {.name = "Check6",
         .caption = "с учетом Vgr (отметить Vgr=Vsv * на форме 2)",
         .hint = "Считать эксперименты с конечной скоростью гравитации; без отметки они от Vgr не зависят"}};

    // --- experiments and criterion
    OptionButton Option9{this,
                         {.name = "Option9",
                          .caption = "New",
                          .group = "имитатор",
                          .on = true,
                          .hint = "Наблюдаемые смещения имитатора Ньюкома"}};
    OptionButton Option11{this,
                          {.name = "Option11",
                           .caption = "JPL",
                           .group = "имитатор",
                           .hint = "Наблюдаемые смещения имитатора JPL"}};
    OptionButton Option12{this,
                          {.name = "Option12",
                           .caption = "Ser",
                           .group = "имитатор",
                           .hint = "Наблюдаемые смещения своего имитатора"}};
    CommandButton Command4{this,
                           {.name = "Command4",
                            .caption = "3-Загрузить наблюдаемые вековые смещения параметров орбит планет",
                            .hint = "Прочитать файл TarvexNab.dat отмеченного имитатора"}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "теста",
                          .group = "источник",
                          .hint = "Эксперименты теста: форма 2 ничего не интегрирует"}};
    OptionButton Option6{this,
                         {.name = "Option6",
                          .caption = "модели",
                          .group = "источник",
                          .on = true,
                          .hint = "Эксперименты на математической модели"}};
    CommandButton Command8{this,
                           {.name = "Command8",
                            .caption = "4-1-Выполнить на математической модели (форма2) эксперименты с №",
                            .hint = "По одному на форме 2; элементы - с формы 1; массы, скорости и коды "
                                    "законов остаются от последнего"}};
    TextField Text5{
        this, {.name = "Text5", .text = "1", .hint = "Первый эксперимент; при счете - текущий", .width = 4}};
    TextField Text6{
        this, {.name = "Text6", .label = "по №", .text = "1", .hint = "Последний эксперимент", .width = 4}};
    CommandButton Command6{this,
                           {.name = "Command6",
                            .caption = "Весовые коэффициенты и данные моделирования *",
                            .hint = "Открыть форму 19"}};
    CommandButton Command10{this,
                            {.name = "Command10",
                             .caption = "4-2- Рассчитать критерий оптимизации по данным",
                             .hint = "Критерий экспериментов по тесту или по файлам смещений плана"}};
    CheckBoxes Check2{this, 1, 6, [](int i) { return paramSpec(i); }};
    CheckBoxes Check1{this, 1, 10, [](int i) { return planetSpec(i); }};
    OptionButton Option18{this,
                          {.name = "Option18",
                           .caption = "Y",
                           .group = "критерий брать как",
                           .on = true,
                           .hint = "Критерий - расчетное смещение с весом"}};
    OptionButton Option19{this,
                          {.name = "Option19",
                           .caption = "dY",
                           .group = "критерий брать как",
                           .hint = "Относительная разность с наблюдаемым смещением"}};
    OptionButton Option20{this,
                          {.name = "Option20",
                           .caption = "dY^2",
                           .group = "критерий брать как",
                           .hint = "Квадрат относительной разности"}};
    OptionButton Option21{this,
                          {.name = "Option21",
                           .caption = "Abs(dY)",
                           .group = "критерий брать как",
                           .hint = "Модуль относительной разности"}};

    // --- regression
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "5- Найти коэффициенты уравнения регрессии",
                            .hint = "Коэффициенты уравнения для закодированных факторов"}};
    CommandButton Command7{this,
                           {.name = "Command7",
                            .caption = "6- Оптимизировать параметры",
                            .hint = "Стационарная точка уравнения регрессии"}};
    CommandButton Command9{this,
                           {.name = "Command9",
                            .caption = "7- задать X0(i) = X(i)opt",
                            .hint = "Оптимум становится новым нулевым уровнем всех семи факторов"}};
    CommandButton Command13{this,
                            {.name = "Command13",
                             .caption = "8- Построить графики",
                             .hint = "Уравнение вдоль каждого фактора от -1 до +1"}};
    CheckBox Check4{this,
                    {.name = "Check4",
                     .caption = "+X(i)=X(i)opt",
                     .hint = "Графики через точку оптимума, без отметки - через центр плана"}};
    TextField Text1{this,
                    {.name = "Text1",
                     .label = "Ymin",
                     .text = "1",
                     .hint = "Начало оси критерия, в его единицах",
                     .width = 9}};
    TextField Text2{this,
                    {.name = "Text2",
                     .label = "М, ед/см",
                     .text = "1",
                     .hint = "Единиц критерия в клетке графика",
                     .width = 9}};
    CommandButton Command16{this,
                            {.name = "Command16", .caption = "Очистить", .hint = "Пустой рисунок с сеткой"}};
    CommandButton Command15{this, {.name = "Command15", .caption = "Файлы*", .hint = "Открыть форму 9"}};
    CommandButton Command3{this,
                           {.name = "Command3", .caption = "Закрыть форму", .hint = "Закрыть форму 15"}};
    TextField Text3{this,
                    {.name = "Text3",
                     .text = " Сюда приходят \r\n  сообщения с \r\n     формы 2\r\n",
                     .hint = "Время конца эксперимента на форме 2; запись сюда начинает следующий",
                     .readOnly = true,
                     .lines = 3}};
    Label Label1{
        this,
        {.name = "Label1",
         .caption = " ",
         .hint = "Остаточная дисперсия в квадратах единиц критерия и доля объясненной вариации R^2"}};
    Label Label2{this,
                 {.name = "Label2",
                  .caption = " ",
                  .hint = "Вид стационарной точки по собственным числам квадратичной формы"}};
    Label Label3{
        this,
        {.name = "Label3",
         .caption = " ",
         .hint = "Состояние: откуда элементы, какой план читается, не изменились ли наблюдаемые смещения"}};

    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 797,
                      .height = 1444,
                      .hint = "План, критерий (синие кружки), регрессия (красные кружки) и ее графики"}};

private:
    static CheckBox::Spec factorSpec(int i);
    static CheckBox::Spec paramSpec(int i);
    static CheckBox::Spec planetSpec(int i);
    void layOut();

    void CreatePlan15();
    void LoadPlan15();
    void SavePlan15();
    void LoadObserved15();
    void RunExperiments();
    void NextExperiment();
    void ComputeCriterion();
    void Fit15();
    void Optimize15();
    void Plot15();

    void readLevels();
    void prepareForm2();
    void endBatch();
    void testCriterionOfPlan();
    void modelCriterion();
    void printPlan();
    void showPlan();
    void printColumn(double x, const std::array<double, 100>& values);
    void tellState();
    CriterionForm criterionForm() const;
    std::string planFileName(int N, bool withBlank) const;

    Laboratory& lab;
    PlanPage page;
    ShiftTable observedAtLoad{};  ///< observed shifts as "3-" has read them
    bool observedLoaded = false;
    std::string planRead;  ///< which plan the criterion was read from
};

}  // namespace tarvex
