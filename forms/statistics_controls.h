#pragma once
// The controls of the statistics screen, Form6, in tab order: what to load, the sample, the fit and the
// search over the sizes of groups, editing, and the files of secular shifts.

#include "runtime/form.h"

namespace tarvex {

class StatisticsControls : public Form {
public:
    // --- what to load
    OptionButtons planet{this, 1, 11, [](int i) { return planetSpec(i); }};
    OptionButtons parameter{this, 1, 8, [](int i) { return paramSpec(i); }};
    OptionButton fromImitator{this,
                              {.name = "Option7",
                               .caption = "имитаторе",
                               .group = "на",
                               .on = true,
                               .hint = "Данные, полученные на имитаторе"}};
    OptionButton fromModel{this,
                           {.name = "Option8",
                            .caption = "модели",
                            .group = "на",
                            .hint = "Данные, полученные на модели по плану №"}};
    OptionButton newcombImitator{
        this,
        {.name = "Option13", .caption = "New", .group = "имитаторы", .hint = "Имитатор Ньюкома, папка NEW"}};
    OptionButton jplImitator{
        this,
        {.name = "Option14", .caption = "JPL", .group = "имитаторы", .hint = "Имитатор JPL, папка JPL"}};
    OptionButton ownImitator{this,
                             {.name = "Option17",
                              .caption = "Ser",
                              .group = "имитаторы",
                              .on = true,
                              .hint = "Свой имитатор по наблюдениям, длинные записи в папке Ser\\Plan"}};
    TextField planNumber{this,
                         {.name = "Text28",
                          .label = "план №",
                          .text = "1",
                          .hint = "Номер плана, в именах файлов",
                          .width = 4}};
    TextField experimentNumber{this,
                               {.name = "Text10",
                                .label = "эксперимент №",
                                .text = "1",
                                .hint = "Номер эксперимента плана, в имени файла и в таблице смещений",
                                .width = 4}};
    CommandButton loadData{this,
                           {.name = "Command6",
                            .caption = "Загрузить данные полученные",
                            .hint = "Прочитать записи из файла и нарисовать отмеченный параметр"}};
    CheckBox anglesWithinTurn{
        this, {.name = "Check1", .caption = "Fix(Alfa)", .hint = "Свести углы к 0...360 град"}};
    CheckBox showAsText{this, {.name = "Check2", .caption = "как текст", .hint = "Показать записи текстом"}};
    CheckBox overlay{
        this,
        {.name = "Check3", .caption = "с наложением цветом №", .hint = "Рисовать поверх старого рисунка"}};
    TextField colorNumber{
        this, {.name = "Text31", .text = "11", .hint = "Номер цвета точек и линий, 0...12", .width = 3}};
    CheckBox moonPerigeeRate{
        this, {.name = "Check10", .caption = "*P", .hint = "Для Луны вместо W* взять dP11, рад/век"}};
    CheckBox moonNodeRate{
        this, {.name = "Check11", .caption = "*U", .hint = "Для Луны вместо W* взять dU11, рад/век"}};
    TextField timeScale{
        this, {.name = "Text1", .label = "лет/см", .text = "15", .hint = "Лет в клетке рисунка", .width = 6}};
    TextField parameterScale{this,
                             {.name = "Text2",
                              .label = "ед/см",
                              .text = "0,1",
                              .hint = "Единиц параметра в клетке рисунка",
                              .width = 10}};

    // --- the sample
    TextField recordCount{
        this,
        {.name = "Text3", .label = "записей", .text = "25", .hint = "К-во записей в данных, шт", .width = 6}};
    TextField firstRecord{this,
                          {.name = "Text15",
                           .label = "выборка с №",
                           .text = "1",
                           .hint = "Первая запись выборки; левая кнопка мыши на рисунке",
                           .width = 6}};
    TextField lastRecord{this,
                         {.name = "Text16",
                          .label = "по №",
                          .text = "25",
                          .hint = "Последняя запись выборки; правая кнопка мыши на рисунке",
                          .width = 6}};
    TextField firstValue{
        this, {.name = "Text17", .hint = "Параметр первой записи, в его единицах", .readOnly = true}};
    TextField lastValue{
        this, {.name = "Text18", .hint = "Параметр последней записи, в его единицах", .readOnly = true}};
    TextField firstYear{this, {.name = "Text9", .hint = "Год первой записи", .readOnly = true, .width = 5}};
    TextField firstMonth{this,
                         {.name = "Text8", .hint = "Месяц первой записи", .readOnly = true, .width = 3}};
    TextField firstDay{this, {.name = "Text6", .hint = "День первой записи", .readOnly = true, .width = 9}};
    TextField lastYear{this,
                       {.name = "Text22", .hint = "Год последней записи", .readOnly = true, .width = 5}};
    TextField lastMonth{this,
                        {.name = "Text21", .hint = "Месяц последней записи", .readOnly = true, .width = 3}};
    TextField lastDay{this,
                      {.name = "Text20", .hint = "День последней записи", .readOnly = true, .width = 9}};

    // --- the fit
    OptionButton fitConstant{this,
                             {.name = "Option9",
                              .caption = "const",
                              .group = "ур-е аппроксимации",
                              .hint = "Аппроксимация постоянной"}};
    OptionButton fitLine{this,
                         {.name = "Option10",
                          .caption = "лин",
                          .group = "ур-е аппроксимации",
                          .on = true,
                          .hint = "Аппроксимация прямой"}};
    OptionButton fitParabola{this,
                             {.name = "Option11",
                              .caption = "квад",
                              .group = "ур-е аппроксимации",
                              .hint = "Аппроксимация параболой"}};
    TextField groupSize{
        this,
        {.name = "Text4", .label = "точек", .text = "5", .hint = "Записей в одной группе, шт", .width = 6}};
    CheckBox searchGroupSizes{this,
                              {.name = "Check6",
                               .caption = "+ с перебором всех вариантов разбивки выборки на группы",
                               .hint = "Повторить аппроксимацию для всех размеров групп"}};
    OptionButton searchMinimum{this,
                               {.name = "Option12",
                                .caption = "min",
                                .group = "критерий при переборе",
                                .on = true,
                                .hint = "Размер группы с наименьшей погрешностью"}};
    OptionButton searchMaximin{this,
                               {.name = "Option15",
                                .caption = "maxmin",
                                .group = "критерий при переборе",
                                .hint = "Самая узкая полоса, задевающая все интервалы"}};
    OptionButton searchMean{this,
                            {.name = "Option16",
                             .caption = "sr",
                             .group = "критерий при переборе",
                             .hint = "Средние по всем размерам групп"}};
    TextField searchSizeScale{this,
                              {.name = "Text29",
                               .label = "точек/см",
                               .text = "25",
                               .hint = "Размеров группы в клетке графика перебора",
                               .width = 6}};
    TextField searchShiftScale{this,
                               {.name = "Text7",
                                .label = "смещение/см",
                                .text = "10",
                                .hint = "Единиц смещения в клетке графика перебора",
                                .width = 6}};
    TextField epochYear{this,
                        {.name = "Text23",
                         .label = "начало отсчета, год",
                         .text = "2000",
                         .hint = "Год начала отсчета времени T0",
                         .width = 6}};
    TextField targetYear{this,
                         {.name = "Text19",
                          .label = "рассчитать смещение и параметр для года IG =",
                          .text = "2000",
                          .hint = "Год, для которого даются смещение и параметр",
                          .width = 6}};
    CheckBox equalWeights{this, {.name = "Check4", .caption = "+Ves=1", .hint = "Все веса равны 1"}};
    CheckBox weightsAsText{this,
                           {.name = "Check7", .caption = "+текст Ves", .hint = "Напечатать веса групп"}};
    CheckBox resultsAsText{this,
                           {.name = "Check9", .caption = "+текст k(i)", .hint = "Напечатать результаты"}};
    CommandButton fitData{
        this,
        {.name = "Command9",
         .caption = "Аппроксимировать данные выборки",
         .hint = "Вековое смещение параметра и его погрешность; они идут в таблицы смещений"}};
    TextField secularShift{this,
                           {.name = "Text24",
                            .label = "смещение за век",
                            .text = "0",
                            .hint = "Смещение параметра за век в единицах справа; идет в таблицы смещений"}};
    Label secularShiftUnit{
        this, {.name = "Label20", .caption = "угл.сек.", .hint = "Единица смещения и его погрешности"}};
    TextField secularShiftError{
        this,
        {.name = "Text27",
         .label = "2*Sigma",
         .text = "0",
         .hint = "Разброс точек вокруг линии, два стандартных отклонения; это не погрешность "
                 "смещения, она рядом"}};
    TextField slopeError{this,
                         {.name = "SlopeError",
                          .label = "± погрешность",
                          .hint = "Стандартная погрешность смещения с учетом связи соседних точек, в его "
                                  "единицах; пишется в файл погрешностей"}};
    TextField slopeLow{this,
                       {.name = "SlopeLow",
                        .label = "от",
                        .hint = "Нижний конец интервала смещения, надежность 95 %",
                        .readOnly = true}};
    TextField slopeHigh{this,
                        {.name = "SlopeHigh",
                         .label = "до",
                         .hint = "Верхний конец интервала смещения, надежность 95 %",
                         .readOnly = true}};
    TextField lagOne{this,
                     {.name = "LagOne",
                      .label = "связь соседних",
                      .hint = "Корреляция соседних остатков: 0 - точки независимы, 1 - повторяют друг друга",
                      .readOnly = true,
                      .width = 7}};
    TextField effectivePoints{this,
                              {.name = "EffectivePoints",
                               .label = "действ. точек",
                               .hint = "Сколько независимых точек дали бы ту же погрешность",
                               .readOnly = true,
                               .width = 7}};
    TextField resampledLow{this,
                           {.name = "ResampledLow",
                            .label = "по выборкам от",
                            .hint = "Нижний конец интервала 95 % по повторным выборкам блоков остатков",
                            .readOnly = true}};
    TextField resampledHigh{this,
                            {.name = "ResampledHigh",
                             .label = "до",
                             .hint = "Верхний конец интервала 95 % по повторным выборкам блоков остатков",
                             .readOnly = true}};
    CheckBox withPeriods{this,
                         {.name = "WithPeriods",
                          .caption = "с колебаниями от планет",
                          .hint = "Прямая или парабола вместе с гармониками средних долгот возмущающих "
                                  "планет; смещение и погрешность - по ней"}};
    TextField passagesFound{this,
                            {.name = "PassagesFound",
                             .label = "прохождений",
                             .hint = "Записей прохождений в выборке",
                             .readOnly = true,
                             .width = 6}};
    TextField passagesExpected{this,
                               {.name = "PassagesExpected",
                                .label = "из",
                                .hint = "Прохождений ожидалось между первым и последним в выборке",
                                .readOnly = true,
                                .width = 6}};
    Label passageNotice{
        this, {.name = "PassageNotice", .caption = " ", .hint = "Сколько прохождений эксперимент потерял"}};
    TextField targetValue{this,
                          {.name = "Text39",
                           .label = "параметр в  IG ",
                           .hint = "Параметр в году IG, в единицах записи",
                           .readOnly = true}};
    TextField coefficient0{
        this,
        {.name = "Text11", .label = "k0", .hint = "Свободный член, в единицах записи", .readOnly = true}};
    TextField coefficient1{this,
                           {.name = "Text12",
                            .label = "k1",
                            .hint = "Коэффициент при T, единиц записи в век",
                            .readOnly = true}};
    TextField coefficient2{this,
                           {.name = "Text13",
                            .label = "k2",
                            .hint = "Коэффициент при T^2, единиц записи в век^2",
                            .readOnly = true}};
    CheckBox useTestSeries{this,
                           {.name = "Check8",
                            .caption = "Теста   Alfa = k0 + k1*dT + k2*dT^2 + k3*(Rnd (dT) - 0,5)",
                            .hint = "Вместо данных взять тестовый ряд на 25 веков, град"}};
    TextField testK0{this,
                     {.name = "Text37", .label = " k0=", .text = "0", .hint = "k0 теста, град", .width = 7}};
    TextField testK1{
        this, {.name = "Text36", .label = " k1=", .text = "1", .hint = "k1 теста, град/век", .width = 7}};
    TextField testK2{
        this, {.name = "Text35", .label = " k2=", .text = "0", .hint = "k2 теста, град/век^2", .width = 7}};
    TextField testK3{this,
                     {.name = "Text14",
                      .label = " k3=",
                      .text = "1",
                      .hint = "Размах случайной части теста, град",
                      .width = 7}};

    // --- differences of two series, passage by passage
    OptionButtons pairSource{this, 0, 3, [](int i) { return pairSpec(i); }};
    TextField pairPlan{this,
                       {.name = "PairPlan",
                        .label = "план №",
                        .text = "0",
                        .hint = "Номер плана второго ряда: модели или Ser",
                        .width = 4}};
    TextField pairExperiment{this,
                             {.name = "PairExperiment",
                              .label = "эксперимент №",
                              .text = "1",
                              .hint = "Номер эксперимента второго ряда на модели",
                              .width = 4}};
    CommandButton pairedFit{this,
                            {.name = "PairedFit",
                             .caption = "Разность загруженного ряда и второго по прохождениям",
                             .hint = "Общие колебания от планет вычитаются, остается разность смещений"}};
    TextField pairedShift{this,
                          {.name = "PairedShift",
                           .label = "разность смещений за век",
                           .hint = "Смещение загруженного ряда без смещения второго, в единицах смещения",
                           .readOnly = true}};
    TextField pairedError{this,
                          {.name = "PairedError",
                           .label = "± погрешность",
                           .hint = "Стандартная погрешность разности с учетом связи соседних точек",
                           .readOnly = true}};
    TextField pairedCount{this,
                          {.name = "PairedCount",
                           .label = "пар",
                           .hint = "Прохождений, найденных в обоих рядах",
                           .readOnly = true,
                           .width = 6}};
    CheckBox pairedToTable{this,
                           {.name = "PairedToTable",
                            .caption = "погрешность пары - в таблицу смещений",
                            .hint = "Погрешностью смещения считать погрешность разности: второй ряд - "
                                    "наблюдения за те же годы"}};

    CheckBox pairedShiftToTable{
        this,
        {.name = "PairedShiftToTable",
         .caption = "и смещение: второго ряда плюс разность",
         .hint =
             "В таблицу смещений эксперимента - смещение второго ряда плюс разность пар: тогда с наблюдаемым "
             "смещением этого ряда сравниваются только общие прохождения"}};

    // --- observed shifts on the model's own window
    CommandButton observedFromDE405{this,
                                    {.name = "ObservedFromDE405",
                                     .caption = "наблюдаемые из DE405",
                                     .hint = "Измерить смещения по DE405 за эти годы, с точными "
                                             "прохождениями, для планет формы 15 (Земля - центр "
                                             "масс с Луной); записать ряды, таблицу JPL и погрешности"}};
    TextField observedFrom{this,
                           {.name = "ObservedFrom",
                            .label = "с",
                            .text = "1960",
                            .hint = "Первый год: как у эксперимента, с которым сравнивать",
                            .width = 5}};
    TextField observedTo{this,
                         {.name = "ObservedTo",
                          .label = "по",
                          .text = "2059",
                          .hint = "Последний год, до его конца",
                          .width = 5}};

    // --- editing and files
    CommandButton deletePoint{
        this,
        {.name = "Command1", .caption = "Удалить точку №", .hint = "Удалить запись из данных и из файла"}};
    TextField markedRecord{this,
                           {.name = "Text5",
                            .text = "2",
                            .hint = "Номер записи, которую удалит команда; правка идет и в файл",
                            .width = 6}};
    CommandButton addPoint{
        this,
        {.name = "Command2",
         .caption = "Добавить в файл точку от",
         .hint = "Добавить запись с отмеченным параметром или заменить его в записи с той же датой"}};
    TextField newYear{
        this, {.name = "Text34", .label = "год", .text = "1600", .hint = "Год новой записи", .width = 6}};
    TextField newMonth{
        this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц новой записи", .width = 4}};
    TextField newDay{
        this, {.name = "Text32", .label = "день", .text = "1,5", .hint = "День новой записи", .width = 6}};
    TextField newEndYear{this,
                         {.name = "Text38",
                          .label = "до",
                          .text = "1630",
                          .hint = "Год конца интервала новой записи",
                          .width = 6}};
    TextField newValue{this,
                       {.name = "Text30",
                        .label = "с параметром",
                        .text = "0",
                        .hint = "Отмеченный параметр новой записи, в единицах записи"}};
    CommandButton loadShiftFile{
        this,
        {.name = "Command4",
         .caption = "Смещение в файле =",
         .hint = "Прочитать файл смещений и показать смещение отмеченных планеты и параметра"}};
    TextField shiftInFile{
        this, {.name = "Text25", .hint = "Смещение из файла за век, в единицах параметра", .readOnly = true}};
    CommandButton saveShiftFile{this,
                                {.name = "Command5",
                                 .caption = "Изменить смещение в файле",
                                 .hint = "Записать найденное смещение в файл имитатора или плана"}};
    CheckBox wholePlan{this,
                       {.name = "Check12",
                        .caption = "все из плана",
                        .hint = "Перед записью обработать все эксперименты плана"}};
    CommandButton savePicture{this,
                              {.name = "Command7",
                               .caption = "Сохранить график как",
                               .hint = "Сохранить рисунок в папке Risunki, .bmp или .png по имени"}};
    TextField pictureName{this,
                          {.name = "Text26",
                           .text = "Tar1",
                           .hint = "Имя файла рисунка в папке Risunki; с .png на конце PNG, иначе BMP",
                           .width = 12}};
    CommandButton openPlan{this, {.name = "Command16", .caption = "К плану", .hint = "Открыть форму 15"}};
    CommandButton openFiles{this, {.name = "Command15", .caption = "Файлы*", .hint = "Открыть форму 9"}};
    CommandButton closeForm{this,
                            {.name = "Command3", .caption = "Закрыть форму", .hint = "Закрыть форму 6"}};

    Picture picture{this,
                    {.name = "Picture1",
                     .width = 800,
                     .height = 500,
                     .hint = "Параметр по годам: левая кнопка - начало выборки, правая - конец"}};

protected:
    using Form::Form;
    void layOut();

private:
    static OptionButton::Spec planetSpec(int i);
    static OptionButton::Spec paramSpec(int i);
    static OptionButton::Spec pairSpec(int i);
};

}  // namespace tarvex
