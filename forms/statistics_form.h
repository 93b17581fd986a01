#pragma once
// Form6: series of orbit elements against time.  Loads a series, shows it, edits it, fits it, searches over
// the sizes of groups, and keeps the files of secular shifts.

#include <random>

#include "forms/laboratory.h"
#include "runtime/form.h"
#include "stats/fit.h"

namespace tarvex {

class StatisticsForm final : public Form {
public:
    static constexpr const char* formName = "Form6";
    explicit StatisticsForm(Laboratory& lab);
    void load() override;
    void activate() override;

    // --- what to load
    OptionButtons Option3{this, 1, 11, [](int i) { return planetSpec(i); }};
    OptionButtons Option4{this, 1, 8, [](int i) { return paramSpec(i); }};
    OptionButton Option7{this,
                         {.name = "Option7",
                          .caption = "имитаторе",
                          .group = "на",
                          .on = true,
                          .hint = "Данные, полученные на имитаторе"}};
    OptionButton Option8{this,
                         {.name = "Option8",
                          .caption = "модели",
                          .group = "на",
                          .hint = "Данные, полученные на модели по плану №"}};
    OptionButton Option13{
        this,
        {.name = "Option13", .caption = "New", .group = "имитаторы", .hint = "Имитатор Ньюкома, папка NEW"}};
    OptionButton Option14{
        this,
        {.name = "Option14", .caption = "JPL", .group = "имитаторы", .hint = "Имитатор JPL, папка JPL"}};
    OptionButton Option17{this,
                          {.name = "Option17",
                           .caption = "Ser",
                           .group = "имитаторы",
                           .on = true,
                           .hint = "Свой имитатор по наблюдениям, длинные записи в папке Ser\\Plan"}};
    TextField Text28{this,
                     {.name = "Text28",
                      .label = "план №",
                      .text = "1",
                      .hint = "Номер плана, в именах файлов",
                      .width = 4}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "эксперимент №",
                      .text = "1",
                      .hint = "Номер эксперимента плана, в имени файла и в таблице смещений",
                      .width = 4}};
    CommandButton Command6{this,
                           {.name = "Command6",
                            .caption = "Загрузить данные полученные",
                            .hint = "Прочитать записи из файла и нарисовать отмеченный параметр"}};
    CheckBox Check1{this, {.name = "Check1", .caption = "Fix(Alfa)", .hint = "Свести углы к 0...360 град"}};
    CheckBox Check2{this, {.name = "Check2", .caption = "как текст", .hint = "Показать записи текстом"}};
    CheckBox Check3{
        this,
        {.name = "Check3", .caption = "с наложением цветом №", .hint = "Рисовать поверх старого рисунка"}};
    TextField Text31{
        this, {.name = "Text31", .text = "11", .hint = "Номер цвета точек и линий, 0...12", .width = 3}};
    CheckBox Check10{this,
                     {.name = "Check10", .caption = "*P", .hint = "Для Луны вместо W* взять dP11, рад/век"}};
    CheckBox Check11{this,
                     {.name = "Check11", .caption = "*U", .hint = "Для Луны вместо W* взять dU11, рад/век"}};
    TextField Text1{
        this, {.name = "Text1", .label = "лет/см", .text = "15", .hint = "Лет в клетке рисунка", .width = 6}};
    TextField Text2{this,
                    {.name = "Text2",
                     .label = "ед/см",
                     .text = "0,1",
                     .hint = "Единиц параметра в клетке рисунка",
                     .width = 10}};

    // --- the sample
    TextField Text3{
        this,
        {.name = "Text3", .label = "записей", .text = "25", .hint = "К-во записей в данных, шт", .width = 6}};
    TextField Text15{this,
                     {.name = "Text15",
                      .label = "выборка с №",
                      .text = "1",
                      .hint = "Первая запись выборки; левая кнопка мыши на рисунке",
                      .width = 6}};
    TextField Text16{this,
                     {.name = "Text16",
                      .label = "по №",
                      .text = "25",
                      .hint = "Последняя запись выборки; правая кнопка мыши на рисунке",
                      .width = 6}};
    TextField Text17{this,
                     {.name = "Text17", .hint = "Параметр первой записи, в его единицах", .readOnly = true}};
    TextField Text18{
        this, {.name = "Text18", .hint = "Параметр последней записи, в его единицах", .readOnly = true}};
    TextField Text9{this, {.name = "Text9", .hint = "Год первой записи", .readOnly = true, .width = 5}};
    TextField Text8{this, {.name = "Text8", .hint = "Месяц первой записи", .readOnly = true, .width = 3}};
    TextField Text6{this, {.name = "Text6", .hint = "День первой записи", .readOnly = true, .width = 9}};
    TextField Text22{this, {.name = "Text22", .hint = "Год последней записи", .readOnly = true, .width = 5}};
    TextField Text21{this,
                     {.name = "Text21", .hint = "Месяц последней записи", .readOnly = true, .width = 3}};
    TextField Text20{this, {.name = "Text20", .hint = "День последней записи", .readOnly = true, .width = 9}};

    // --- the fit
    OptionButton Option9{this,
                         {.name = "Option9",
                          .caption = "const",
                          .group = "ур-е аппроксимации",
                          .hint = "Аппроксимация постоянной"}};
    OptionButton Option10{this,
                          {.name = "Option10",
                           .caption = "лин",
                           .group = "ур-е аппроксимации",
                           .on = true,
                           .hint = "Аппроксимация прямой"}};
    OptionButton Option11{this,
                          {.name = "Option11",
                           .caption = "квад",
                           .group = "ур-е аппроксимации",
                           .hint = "Аппроксимация параболой"}};
    TextField Text4{
        this,
        {.name = "Text4", .label = "точек", .text = "5", .hint = "Записей в одной группе, шт", .width = 6}};
    CheckBox Check6{this,
                    {.name = "Check6",
                     .caption = "+ с перебором всех вариантов разбивки выборки на группы",
                     .hint = "Повторить аппроксимацию для всех размеров групп"}};
    OptionButton Option12{this,
                          {.name = "Option12",
                           .caption = "min",
                           .group = "критерий при переборе",
                           .on = true,
                           .hint = "Размер группы с наименьшей погрешностью"}};
    OptionButton Option15{this,
                          {.name = "Option15",
                           .caption = "maxmin",
                           .group = "критерий при переборе",
                           .hint = "Самая узкая полоса, задевающая все интервалы"}};
    OptionButton Option16{this,
                          {.name = "Option16",
                           .caption = "sr",
                           .group = "критерий при переборе",
                           .hint = "Средние по всем размерам групп"}};
    TextField Text29{this,
                     {.name = "Text29",
                      .label = "точек/см",
                      .text = "25",
                      .hint = "Размеров группы в клетке графика перебора",
                      .width = 6}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "смещение/см",
                     .text = "10",
                     .hint = "Единиц смещения в клетке графика перебора",
                     .width = 6}};
    TextField Text23{this,
                     {.name = "Text23",
                      .label = "начало отсчета, год",
                      .text = "2000",
                      .hint = "Год начала отсчета времени T0",
                      .width = 6}};
    TextField Text19{this,
                     {.name = "Text19",
                      .label = "рассчитать смещение и параметр для года IG =",
                      .text = "2000",
                      .hint = "Год, для которого даются смещение и параметр",
                      .width = 6}};
    CheckBox Check4{this, {.name = "Check4", .caption = "+Ves=1", .hint = "Все веса равны 1"}};
    CheckBox Check7{this, {.name = "Check7", .caption = "+текст Ves", .hint = "Напечатать веса групп"}};
    CheckBox Check9{this, {.name = "Check9", .caption = "+текст k(i)", .hint = "Напечатать результаты"}};
    CommandButton Command9{
        this,
        {.name = "Command9",
         .caption = "Аппроксимировать данные выборки",
         .hint = "Вековое смещение параметра и его погрешность; они идут в таблицы смещений"}};
    TextField Text24{this,
                     {.name = "Text24",
                      .label = "смещение за век",
                      .text = "0",
                      .hint = "Смещение параметра за век в единицах справа; идет в таблицы смещений"}};
    Label Label20{this,
                  {.name = "Label20", .caption = "угл.сек.", .hint = "Единица смещения и его погрешности"}};
    TextField Text27{this,
                     {.name = "Text27",
                      .label = "2*Sigma",
                      .text = "0",
                      .hint = "Погрешность смещения с надежностью 95 %, в тех же единицах"}};
    TextField Text39{this,
                     {.name = "Text39",
                      .label = "параметр в  IG ",
                      .hint = "Параметр в году IG, в единицах записи",
                      .readOnly = true}};
    TextField Text11{
        this,
        {.name = "Text11", .label = "k0", .hint = "Свободный член, в единицах записи", .readOnly = true}};
    TextField Text12{this,
                     {.name = "Text12",
                      .label = "k1",
                      .hint = "Коэффициент при T, единиц записи в век",
                      .readOnly = true}};
    TextField Text13{this,
                     {.name = "Text13",
                      .label = "k2",
                      .hint = "Коэффициент при T^2, единиц записи в век^2",
                      .readOnly = true}};
    CheckBox Check8{this,
                    {.name = "Check8",
                     .caption = "Теста   Alfa = k0 + k1*dT + k2*dT^2 + k3*(Rnd (dT) - 0,5)",
                     .hint = "Вместо данных взять тестовый ряд на 25 веков, град"}};
    TextField Text37{this,
                     {.name = "Text37", .label = " k0=", .text = "0", .hint = "k0 теста, град", .width = 7}};
    TextField Text36{
        this, {.name = "Text36", .label = " k1=", .text = "1", .hint = "k1 теста, град/век", .width = 7}};
    TextField Text35{
        this, {.name = "Text35", .label = " k2=", .text = "0", .hint = "k2 теста, град/век^2", .width = 7}};
    TextField Text14{this,
                     {.name = "Text14",
                      .label = " k3=",
                      .text = "1",
                      .hint = "Размах случайной части теста, град",
                      .width = 7}};

    // --- editing and files
    CommandButton Command1{
        this,
        {.name = "Command1", .caption = "Удалить точку №", .hint = "Удалить запись из данных и из файла"}};
    TextField Text5{this,
                    {.name = "Text5",
                     .text = "2",
                     .hint = "Номер записи, которую удалит команда; правка идет и в файл",
                     .width = 6}};
    CommandButton Command2{
        this,
        {.name = "Command2",
         .caption = "Добавить в файл точку от",
         .hint = "Добавить запись с отмеченным параметром или заменить его в записи с той же датой"}};
    TextField Text34{
        this, {.name = "Text34", .label = "год", .text = "1600", .hint = "Год новой записи", .width = 6}};
    TextField Text33{
        this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц новой записи", .width = 4}};
    TextField Text32{
        this, {.name = "Text32", .label = "день", .text = "1,5", .hint = "День новой записи", .width = 6}};
    TextField Text38{this,
                     {.name = "Text38",
                      .label = "до",
                      .text = "1630",
                      .hint = "Год конца интервала новой записи",
                      .width = 6}};
    TextField Text30{this,
                     {.name = "Text30",
                      .label = "с параметром",
                      .text = "0",
                      .hint = "Отмеченный параметр новой записи, в единицах записи"}};
    CommandButton Command4{
        this,
        {.name = "Command4",
         .caption = "Смещение в файле =",
         .hint = "Прочитать файл смещений и показать смещение отмеченных планеты и параметра"}};
    TextField Text25{
        this, {.name = "Text25", .hint = "Смещение из файла за век, в единицах параметра", .readOnly = true}};
    CommandButton Command5{this,
                           {.name = "Command5",
                            .caption = "Изменить смещение в файле",
                            .hint = "Записать найденное смещение в файл имитатора или плана"}};
    CheckBox Check12{this,
                     {.name = "Check12",
                      .caption = "все из плана",
                      .hint = "Перед записью обработать все эксперименты плана"}};
    CommandButton Command7{this,
                           {.name = "Command7",
                            .caption = "Сохранить график как",
                            .hint = "Сохранить рисунок в папке Risunki, .bmp или .png по имени"}};
    TextField Text26{this,
                     {.name = "Text26",
                      .text = "Tar1",
                      .hint = "Имя файла рисунка в папке Risunki; с .png на конце PNG, иначе BMP",
                      .width = 12}};
    CommandButton Command16{this, {.name = "Command16", .caption = "К плану", .hint = "Открыть форму 15"}};
    CommandButton Command15{this, {.name = "Command15", .caption = "Файлы*", .hint = "Открыть форму 9"}};
    CommandButton Command3{this, {.name = "Command3", .caption = "Закрыть форму", .hint = "Закрыть форму 6"}};

    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 800,
                      .height = 500,
                      .hint = "Параметр по годам: левая кнопка - начало выборки, правая - конец"}};

    /// Clears the picture and scales it to rows x columns units; with a grid for points, without one for
    /// text.
    void drawEmpty(double rows, double columns, bool grid);

private:
    static OptionButton::Spec planetSpec(int i);
    static OptionButton::Spec paramSpec(int i);
    void layOut();

    // --- data (form6_data.cpp)
    void LoadSeries();
    void chooseFile();
    void chooseImitator();
    DataKind chosenKind() const;
    int chosenPlanet() const;
    std::int16_t chosenParam() const;
    void prepareForParam();
    bool sizePicture();
    void showSample();
    void drawSeries();
    std::vector<std::string> seriesText();
    void printLines(const std::vector<std::string>& lines);
    void showDate(double date, TextField& year, TextField& month, TextField& day);
    void pick(double x, Picture::Button button);
    void needEditable(const char* action);
    void DeleteRecord();
    void AddRecord();
    void rewrite(SeriesData changed);
    void LoadShifts();
    void printShifts(double y, int number, const ShiftRow& row, const char* betta, const char* w);
    void SaveShifts();

    // --- the fit (form6_fit.cpp)
    void FitSample();
    void makeTestSeries();
    void readSettings();
    void passOfSize(int NCP, bool single);
    void drawGroups();
    void drawCurves();
    void printResults();
    void GroupSearchReport(int last);
    void keepShift();

    double placeX(double days) const { return days / 365.25 / MT + 1; }
    double placeY(double value) const;
    Color chosenColor() const;

    Laboratory& lab;
    double MT = 15, Mpar = 0.1;         ///< years and units of the parameter in a picture unit
    double searchX = 25, searchY = 10;  ///< group sizes and units of the shift in a unit of the search graph
    double Ymin = 0, Ymax = 0;          ///< extremes of the parameter
    std::int16_t loadedParam = 0;       ///< parameter with which the series was loaded
    bool loadedRates = false;           ///< a rate of the Moon was copied into W* at the load
    bool shiftsLoaded = false;          ///< a file of shifts has been read since the form was opened
    double lineY = 0;                   ///< height of the next printed line

    FitSettings settings;
    FitResult fit;
    int count = 0;  ///< records that the fit may use
    double originYear = 2000, yearIG = 2000;
    double shift = 0, limit = 0;         ///< of the last pass, output units; the weight keeps the old ones
    double searchReference = 0;          ///< base line of the search graph; an overlay keeps it
    std::vector<double> dYgr, Sigma2gr;  ///< by group size
    std::mt19937 random;                 ///< not seeded: every start gives the same sequence
};

}  // namespace tarvex
