#pragma once
// The controls of the plan screen, Form15, in tab order: the plan and its factors, its experiments and the
// criterion, the regression, its optimum and the picture.

#include "forms/quality_panel.h"
#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class PlanControls : public Form {
public:
    // --- the plan
    OptionButton orthogonalPlan{
        this,
        {.name = "Option1", .caption = "Orto", .group = "план", .on = true, .hint = "Ортогональный план"}};
    OptionButton rotatablePlan{
        this, {.name = "Option2", .caption = "Roto", .group = "план", .hint = "Рототабельный план"}};
    CommandButton createPlan{this,
                             {.name = "Command5",
                              .caption = "1-Создать план",
                              .hint = "Построить план по отмеченным факторам, от 2 до 6",
                              .disturbs = Disturbs::All}};
    CommandButton loadPlan{this,
                           {.name = "Command14",
                            .caption = "2-Загрузить параметры плана №",
                            .hint = "Прочитать уровни факторов и веса из файла плана",
                            .disturbs = Disturbs::All}};
    TextField planNumber{
        this, {.name = "Text4", .text = "1", .hint = "Номер плана, в имени файла и папки", .width = 4}};
    CommandButton savePlan{this,
                           {.name = "Command12",
                            .caption = "Сохранить",
                            .hint = "Записать уровни факторов и веса в файл плана"}};
    CheckBoxes useFactor{this, 1, 7, [](int i) { return factorSpec(i); }};
    TextFields zeroLevel{
        this, 1, 7, [](int) {
            return TextField::Spec{
                .name = "Text11",
                .text = "0",
                .hint = "Нулевой уровень фактора, в его единицах; Vgr, X6 и X7 равными нулю быть не могут",
                .width = 9};
        }};
    TextFields interval{this, 1, 7, [](int) {
                            return TextField::Spec{.name = "Text12",
                                                   .text = "1",
                                                   .hint = "Интервал варьирования фактора, в его единицах",
                                                   .width = 9};
                        }};
    TextFields currentLevel{this, 1, 7, [](int) {
                                return TextField::Spec{
                                    .name = "Text13",
                                    .text = "1",
                                    .hint = "Значение фактора в текущем эксперименте, в его единицах",
                                    .width = 9};
                            }};
    TextFields codedOptimum{
        this, 1, 7, [](int) {
            return TextField::Spec{
                .name = "Text14", .text = "0", .hint = "Оптимум фактора, закодированный", .width = 9};
        }};
    TextFields optimum{
        this, 1, 7, [](int) {
            return TextField::Spec{
                .name = "Text15", .text = "0", .hint = "Оптимум фактора в его единицах", .width = 9};
        }};
    CheckBox secondCoefficientZero{this,
                                   {.name = "Check5",
                                    .caption = "kPgr2=0",
                                    .hint = "Второй коэффициент закона равен 0, иначе он равен первому"}};
    CheckBox finiteGravitySpeed{
        this,
        {.name = "Check6",
         .caption = "с учетом Vgr (отметить Vgr=Vsv * на форме 2)",
         .hint = "Считать эксперименты с конечной скоростью гравитации; без отметки они от Vgr не зависят"}};

    // --- experiments and criterion
    OptionButton newcombImitator{this,
                                 {.name = "Option9",
                                  .caption = "New",
                                  .group = "имитатор",
                                  .on = true,
                                  .hint = "Наблюдаемые смещения имитатора Ньюкома"}};
    OptionButton jplImitator{this,
                             {.name = "Option11",
                              .caption = "JPL",
                              .group = "имитатор",
                              .hint = "Наблюдаемые смещения имитатора JPL"}};
    OptionButton ownImitator{this,
                             {.name = "Option12",
                              .caption = "Ser",
                              .group = "имитатор",
                              .hint = "Наблюдаемые смещения своего имитатора"}};
    CommandButton loadObservedShifts{
        this,
        {.name = "Command4",
         .caption = "3-Загрузить наблюдаемые вековые смещения параметров орбит планет",
         .hint = "Прочитать файл TarvexNab.dat отмеченного имитатора"}};
    OptionButton testExperiments{this,
                                 {.name = "Option5",
                                  .caption = "теста",
                                  .group = "источник",
                                  .hint = "Эксперименты теста: форма 2 ничего не интегрирует"}};
    OptionButton modelExperiments{this,
                                  {.name = "Option6",
                                   .caption = "модели",
                                   .group = "источник",
                                   .on = true,
                                   .hint = "Эксперименты на математической модели"}};
    CommandButton runExperiments{
        this,
        {.name = "Command8",
         .caption = "4-1-Выполнить на математической модели (форма2) эксперименты с №",
         .hint = "По одному на форме 2; элементы - с формы 1; массы, скорости и коды "
                 "законов остаются от последнего",
         .disturbs = Disturbs::All}};
    TextField firstExperiment{
        this, {.name = "Text5", .text = "1", .hint = "Первый эксперимент; при счете - текущий", .width = 4}};
    TextField lastExperiment{
        this, {.name = "Text6", .label = "по №", .text = "1", .hint = "Последний эксперимент", .width = 4}};
    CommandButton openWeights{this,
                              {.name = "Command6",
                               .caption = "Весовые коэффициенты и данные моделирования *",
                               .hint = "Открыть форму 19"}};
    CommandButton findCriterion{this,
                                {.name = "Command10",
                                 .caption = "4-2- Рассчитать критерий оптимизации по данным",
                                 .hint = "Критерий экспериментов по тесту или по файлам смещений плана"}};
    CheckBoxes useParameter{this, 1, 6, [](int i) { return paramSpec(i); }};
    CheckBoxes usePlanet{this, 1, 10, [](int i) { return planetSpec(i); }};
    OptionButton criterionIsShift{this,
                                  {.name = "Option18",
                                   .caption = "Y",
                                   .group = "критерий брать как",
                                   .on = true,
                                   .hint = "Критерий - расчетное смещение с весом"}};
    OptionButton criterionIsDifference{this,
                                       {.name = "Option19",
                                        .caption = "dY",
                                        .group = "критерий брать как",
                                        .hint = "Относительная разность с наблюдаемым смещением"}};
    OptionButton criterionIsSquare{this,
                                   {.name = "Option20",
                                    .caption = "dY^2",
                                    .group = "критерий брать как",
                                    .hint = "Квадрат относительной разности"}};
    OptionButton criterionIsModulus{this,
                                    {.name = "Option21",
                                     .caption = "Abs(dY)",
                                     .group = "критерий брать как",
                                     .hint = "Модуль относительной разности"}};

    // --- regression
    CommandButton fitCoefficients{this,
                                  {.name = "Command1",
                                   .caption = "5- Найти коэффициенты уравнения регрессии",
                                   .hint = "Коэффициенты уравнения для закодированных факторов"}};
    CommandButton optimizeFactors{this,
                                  {.name = "Command7",
                                   .caption = "6- Оптимизировать параметры",
                                   .hint = "Стационарная точка уравнения регрессии"}};
    CommandButton moveToOptimum{this,
                                {.name = "Command9",
                                 .caption = "7- задать X0(i) = X(i)opt",
                                 .hint = "Оптимум становится новым нулевым уровнем всех семи факторов"}};
    CommandButton drawPlots{this,
                            {.name = "Command13",
                             .caption = "8- Построить графики",
                             .hint = "Уравнение вдоль каждого фактора от -1 до +1"}};
    CheckBox plotThroughOptimum{this,
                                {.name = "Check4",
                                 .caption = "+X(i)=X(i)opt",
                                 .hint = "Графики через точку оптимума, без отметки - через центр плана"}};
    TextField criterionMinimum{this,
                               {.name = "Text1",
                                .label = "Ymin",
                                .text = "1",
                                .hint = "Начало оси критерия, в его единицах",
                                .width = 9}};
    TextField criterionScale{this,
                             {.name = "Text2",
                              .label = "М, ед/см",
                              .text = "1",
                              .hint = "Единиц критерия в клетке графика",
                              .width = 9}};
    QualityPanel quality{this};

    // --- the answer by drifts
    OptionButtons solveModel{this, 0, 1, [](int i) {
                                 return OptionButton::Spec{
                                     .name = "SolveModel",
                                     .caption = i == 0 ? "по V/Vgr" : "квадратичная",
                                     .group = "модель смещений",
                                     .on = i == 0,
                                     .hint = i == 0 ? "Каждое смещение линейно по V/Vgr и 1/Vgr"
                                                    : "Каждое смещение квадратично по кодам факторов"};
                             }};
    CheckBox pairedErrors{this,
                          {.name = "PairedErrors",
                           .caption = "погрешности парные",
                           .hint = "Погрешности расчета - разностей с наблюдениями по прохождениям: "
                                   "погрешности наблюдений в них уже вошли"}};
    CommandButton solveShifts{this,
                              {.name = "SolveShifts",
                               .caption = "Решить по смещениям",
                               .hint = "Факторы плана, при которых модель смещается как наблюдения: по "
                                       "смещениям отмеченных планет и параметров; уровни - те, с которыми "
                                       "считался план"}};
    struct SolvedFields {
        TextField value, error;
        SolvedFields(Form* form, const char* name, const char* caption, const char* unit)
            : value(form, {.name = std::string("Solved") + name,
                           .label = std::string(caption) + " =",
                           .hint = std::string("Решение по смещениям, ") + unit + "; пусто - не определено",
                           .readOnly = true,
                           .width = 11}),
              error(form, {.name = std::string("Solved") + name + "Error",
                           .hint = std::string("Стандартная погрешность решения, ") + unit,
                           .readOnly = true,
                           .width = 9}) {}
    };
    SolvedFields solvedVX{this, "VX", "VX", "км/с"}, solvedVY{this, "VY", "VY", "км/с"},
        solvedVZ{this, "VZ", "VZ", "км/с"}, solvedVgr{this, "Vgr", "Vgr", "в скоростях света"},
        solvedKPgr1{this, "kPgr1", "kPgr1", "без единицы"}, solvedM5{this, "M0M5", "m0/m5", "отношение масс"},
        solvedM2{this, "M0M2", "m0/m2", "отношение масс"};
    TextField solvedVgrLow{this,
                           {.name = "SolvedVgrLow",
                            .label = "Vgr не меньше",
                            .hint = "Нижняя граница Vgr с надежностью 95 %, когда 1/Vgr не отличается от 0",
                            .readOnly = true,
                            .width = 9}};
    TextField chiSquare{this,
                        {.name = "ChiSquare",
                         .label = "хи-квадрат",
                         .hint = "Сумма квадратов разностей смещений в их погрешностях",
                         .readOnly = true,
                         .width = 9}};
    TextField freedom{this,
                      {.name = "Freedom",
                       .label = "степеней свободы",
                       .hint = "Смещений меньше определенных неизвестных",
                       .readOnly = true,
                       .width = 4}};
    TextField verdict{this,
                      {.name = "Verdict",
                       .hint = "Что определено, что нет и согласны ли смещения",
                       .readOnly = true,
                       .lines = 3}};
    CommandButton confirmSolution{
        this,
        {.name = "ConfirmSolution",
         .caption = "Проверить экспериментом",
         .hint = "Эксперимент на форме 2 в точке решения по отмеченным планетам, его номер - следующий за "
                 "планом; предсказанные и измеренные смещения - на рисунок"}};
    CommandButton nextPlan{this,
                           {.name = "NextPlan",
                            .caption = "План вокруг решения",
                            .hint = "Уровни - в решение, интервалы - вдвое меньше, но не меньше двух "
                                    "погрешностей"}};

    CommandButton clearDrawing{
        this, {.name = "Command16", .caption = "Очистить", .hint = "Пустой рисунок с сеткой"}};
    CommandButton openFiles{this, {.name = "Command15", .caption = "Файлы*", .hint = "Открыть форму 9"}};
    CommandButton closeForm{this,
                            {.name = "Command3",
                             .caption = "Закрыть форму",
                             .hint = "Закрыть форму 15",
                             .disturbs = Disturbs::Own}};
    TextField experimentEnd{this,
                            {.name = "Text3",
                             .text = " Сюда приходят \r\n  сообщения с \r\n     формы 2\r\n",
                             .hint = "Время конца эксперимента на форме 2; запись сюда начинает следующий",
                             .readOnly = true,
                             .lines = 3}};
    Label fitQuality{this, fitQualitySpec("Label1")};
    Label stationaryPoint{this, stationaryPointSpec("Label2")};
    Label planStatus{
        this,
        {.name = "Label3",
         .caption = " ",
         .hint = "Состояние: откуда элементы, какой план читается, не изменились ли наблюдаемые смещения"}};

    Picture picture{this,
                    {.name = "Picture1",
                     .width = 797,
                     .height = 1444,
                     .hint = "План, критерий (синие кружки), регрессия (красные кружки) и ее графики"}};

protected:
    using Form::Form;
    void layOut();

private:
    static CheckBox::Spec factorSpec(int i);
    static CheckBox::Spec paramSpec(int i);
    static CheckBox::Spec planetSpec(int i);
};

}  // namespace tarvex
