#pragma once
// Form10: the reduction.  Theory against ancient tables or the files of observatories, through all
// corrections, for one run or for the experiments of a plan.

#include "forms/laboratory.h"
#include "forms/plan_picture.h"
#include "reduction/reduction_run.h"
#include "runtime/form.h"

namespace tarvex {

class ObservationsForm final : public Form, private ReductionView {
public:
    static constexpr const char* formName = "Form10";
    explicit ObservationsForm(Laboratory& lab);
    void load() override;
    void unload() override;

    // --- the data
    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "Tab",
                          .group = "data",
                          .on = true,
                          .hint = "Данные - таблицы древних астрономов (книги папки Tab)"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "Obs",
                          .group = "data",
                          .hint = "Данные - наблюдения обсерваторий (файлы папки Obs)"}};
    OptionButtons Option4;  ///< table 0..10
    OptionButtons Option9;  ///< observatory 0..7
    TextField Text59{this,
                     {.name = "Text59",
                      .label = "иная Obs",
                      .text = "BERL",
                      .hint = "Имя обсерватории, которой нет в списке; входит в имя файла",
                      .width = 8}};
    TextField Text56{this,
                     {.name = "Text56",
                      .label = "файл Obs №",
                      .text = "100",
                      .hint = "Номер в именах файла наблюдений и отчетов",
                      .width = 6}};
    TextField Text57{this,
                     {.name = "Text57",
                      .label = "Good №",
                      .text = "41",
                      .hint = "Номер в имени файла принятых наблюдений (Good)",
                      .width = 6}};
    CheckBox Check3{
        this,
        {.name = "Check3",
         .caption = "+Good File Obs",
         .hint = "Открывать файл Good, отобранный по критерию (LB - по расстоянию, L - по долготе)"}};
    CheckBox Check19{this,
                     {.name = "Check19",
                      .caption = "+/-прецесс Tab*",
                      .hint = "Заменить прецессию таблицы прецессией 5025 угл.сек за век от начальной даты"}};
    Label Label58{this, {.name = "Label58", .caption = "", .hint = "Идет ли запуск программы таблиц"}};

    // --- date, place, body
    TextField Text1{this,
                    {.name = "Text1",
                     .label = "объект №",
                     .text = "11",
                     .hint = "Номер тела: 0 Солнце, 1, 2, 4..9 планеты, 11 Луна; идет в IplSel",
                     .width = 4}};
    TextField Text2{
        this,
        {.name = "Text2", .label = "DMY", .text = "1,5", .hint = "День начала с долей, дни", .width = 9}};
    TextField Text3{this, {.name = "Text3", .text = "1", .hint = "Месяц начала, от 1 до 12", .width = 4}};
    TextField Text4{
        this, {.name = "Text4", .text = "2000", .hint = "Год начала, астрономический счет", .width = 6}};
    TextField Text5{
        this,
        {.name = "Text5", .label = "JD", .text = "2451545", .hint = "Юлианская дата, дни", .width = 15}};
    TextField Text58{this,
                     {.name = "Text58",
                      .label = "UT",
                      .hint = "Дата шага по григорианскому календарю, всемирное время",
                      .readOnly = true,
                      .width = 26}};
    TextField Text40{this,
                     {.name = "Text40",
                      .label = "JDet",
                      .hint = "Юлианская дата эфемеридного времени, дни",
                      .readOnly = true,
                      .width = 15}};
    TextField Text16{
        this, {.name = "Text16", .label = "данные с", .hint = "Первый год данных источника", .width = 6}};
    TextField Text14{this,
                     {.name = "Text14",
                      .label = "по",
                      .hint = "Последний год данных источника; предел расчета - поле GodK",
                      .width = 6}};
    TextField Text65{this,
                     {.name = "Text65",
                      .label = "GodK",
                      .text = "2000",
                      .hint = "Последний год расчета; идет в GodK",
                      .width = 6}};
    TextField Text18{this,
                     {.name = "Text18",
                      .label = "шаг Tab, дни",
                      .text = "1,28",
                      .hint = "Шаг по датам таблицы, дни; идет в DtCur",
                      .width = 8}};
    TextField Text24{this,
                     {.name = "Text24",
                      .label = "ObsL, град",
                      .text = "0",
                      .hint = "Долгота места к востоку, градусы; идет в ObsL",
                      .width = 9}};
    TextField Text25{this,
                     {.name = "Text25",
                      .label = "ObsB, град",
                      .text = "0",
                      .hint = "Широта места, градусы; идет в ObsB",
                      .width = 9}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "Григорианский",
                          .group = "calendar",
                          .on = true,
                          .hint = "Даты данных по григорианскому календарю"}};
    OptionButton Option6{this,
                         {.name = "Option6",
                          .caption = "Юлианский",
                          .group = "calendar",
                          .hint = "Даты данных по юлианскому календарю"}};
    OptionButton Option7{this,
                         {.name = "Option7",
                          .caption = "Египетский",
                          .group = "calendar",
                          .hint = "Даты данных по египетскому календарю"}};
    OptionButton Option15{this,
                          {.name = "Option15",
                           .caption = "день от 0 час.",
                           .group = "daystart",
                           .on = true,
                           .hint = "Сутки начинаются в полночь"}};
    OptionButton Option16{this,
                          {.name = "Option16",
                           .caption = "день от 12 час.",
                           .group = "daystart",
                           .hint = "Сутки начинаются в полдень"}};
    CommandButton Command2{
        this, {.name = "Command2", .caption = "DMY->JD", .hint = "Юлианская дата по дню, месяцу и году"}};
    CommandButton Command3{
        this, {.name = "Command3", .caption = "JD->DMY", .hint = "День, месяц и год по юлианской дате"}};
    CommandButton Command18{
        this, {.name = "Command18", .caption = "JD = JD0", .hint = "Вернуть в поля даты начало данных"}};

    // --- theory
    OptionButton Option19{
        this, {.name = "Option19", .caption = "JPL0", .group = "earth", .hint = "Земля и Луна по JPL0"}};
    OptionButton Option20{this,
                          {.name = "Option20",
                           .caption = "Ser0",
                           .group = "earth",
                           .on = true,
                           .hint = "Земля и Луна по Ser0"}};
    OptionButton Option21{
        this, {.name = "Option21", .caption = "Ser0+", .group = "earth", .hint = "Земля и Луна по Ser0+"}};
    OptionButton Option10{this,
                          {.name = "Option10",
                           .caption = "План",
                           .group = "planet",
                           .hint = "Параметры орбиты наблюдаемого тела из плана формы 13"}};
    OptionButton Option11{
        this, {.name = "Option11", .caption = "JPL0", .group = "planet", .hint = "Планета по JPL0"}};
    OptionButton Option12{this,
                          {.name = "Option12",
                           .caption = "Ser0",
                           .group = "planet",
                           .on = true,
                           .hint = "Планета по Ser0 или, когда Земля по Ser0+, по Ser0+"}};
    OptionButton Option13{this,
                          {.name = "Option13",
                           .caption = "J2000",
                           .group = "epoch",
                           .on = true,
                           .hint = "Параметры плана в равноденствии J2000"}};
    OptionButton Option14{this,
                          {.name = "Option14",
                           .caption = "JD",
                           .group = "epoch",
                           .hint = "Параметры плана в равноденствии даты"}};
    TextField Text47{this,
                     {.name = "Text47",
                      .label = "Прецессия, сек",
                      .text = "5030",
                      .hint = "Прецессия параметров плана, угл.сек за век; идет в Precess",
                      .width = 8}};

    // --- corrections and what is seen
    CheckBox Check15{this,
                     {.name = "Check15",
                      .caption = "Аберр. ис.",
                      .on = true,
                      .hint = "Аберрация источника: тело отходит по своей скорости на время хода света"}};
    CheckBox Check16{this,
                     {.name = "Check16",
                      .caption = "Аберр. пр.",
                      .on = true,
                      .hint = "Аберрация приемника: сдвиг по скорости Земли"}};
    CheckBox Check17{this,
                     {.name = "Check17", .caption = "Нутация", .hint = "Нутация к истинному экватору даты"}};
    CheckBox Check24{this,
                     {.name = "Check24",
                      .caption = "Параллакс",
                      .hint = "Параллакс: место тела с поверхности Земли, а не из ее центра"}};
    CheckBox Check23{
        this, {.name = "Check23", .caption = "Рефракция", .hint = "Рефракция: высота по теории уменьшается"}};
    CheckBox Check27{this,
                     {.name = "Check27",
                      .caption = "+dLp",
                      .hint = "Периодические возмущения наблюдаемой планеты (форма 22)"}};
    CheckBox Check31{this,
                     {.name = "Check31",
                      .caption = "+dLzl",
                      .hint = "Периодические возмущения Земли и Луны (формы 22 и 21)"}};
    CheckBox Check29{this,
                     {.name = "Check29",
                      .caption = "+Видимость",
                      .hint = "Отбрасывать то, что не видно: тело ниже высоты Hpl"}};
    TextField Text46{this,
                     {.name = "Text46",
                      .label = "когда Hpl>",
                      .text = "1",
                      .hint = "Наименьшая высота тела, градусы; идет в HplMin",
                      .width = 6}};
    CheckBox Check25{this,
                     {.name = "Check25",
                      .caption = "++Hsol<",
                      .hint = "Отбрасывать и то, что мешает видеть Солнце: оно выше этой высоты"}};
    TextField Text48{this,
                     {.name = "Text48",
                      .text = "-0,2",
                      .hint = "Наибольшая высота Солнца, градусы; идет в HsolMax",
                      .width = 6}};

    // --- filter, statistics, files
    OptionButton Option17{this,
                          {.name = "Option17",
                           .caption = "dR",
                           .group = "criterion",
                           .on = true,
                           .hint = "Критерий и отбор по расстоянию dR, тыс.км"}};
    OptionButton Option18{this,
                          {.name = "Option18",
                           .caption = "Abs(dL)",
                           .group = "criterion",
                           .hint = "Критерий и отбор по долготе, угл.сек"}};
    CheckBox Check7{this,
                    {.name = "Check7",
                     .caption = "+ Sqr(E(dR^2)/N)",
                     .hint = "Критерий - среднее квадратичное, а не среднее"}};
    CheckBox Check20{this,
                     {.name = "Check20",
                      .caption = "+ dRmax, dLmax <=",
                      .hint = "Принимать только наблюдения с отклонением меньше предела"}};
    TextField Text50{this,
                     {.name = "Text50",
                      .text = "200",
                      .hint = "Предел отклонения, тыс.км или угл.сек; идет в dMax",
                      .width = 8}};
    CheckBox Check21{this,
                     {.name = "Check21",
                      .caption = "+Статистика",
                      .hint = "Считать гистограммы отклонений и записать файл Stat"}};
    CheckBox Check22{this,
                     {.name = "Check22",
                      .caption = "++File Bad, Good №",
                      .hint = "Записывать принятые (Good) и отброшенные (Bad) наблюдения"}};
    CheckBox Check13{this,
                     {.name = "Check13",
                      .caption = "+File Отладка",
                      .hint = "Записывать координаты на каждой ступени в файл Ras_data"}};
    CheckBox Check26{this,
                     {.name = "Check26",
                      .caption = "+kVes=",
                      .hint = "Вес точки увеличить по числу и длительности наблюдений"}};
    TextField Text29{
        this, {.name = "Text29", .text = "", .hint = "Вес точки, Xnul(10)", .readOnly = true, .width = 12}};

    // --- results
    /// Longitude or right ascension, latitude or declination of the stages: Text21, Text22; Text31, Text41;
    /// ...
    std::array<std::unique_ptr<TextField>, chainStages> stageL, stageB;
    TextField Text63{this,
                     {.name = "Text63",
                      .label = "Наблюдение L",
                      .hint = "Долгота или прямое восхождение по данным, градусы",
                      .readOnly = true,
                      .width = 13}};
    TextField Text64{this,
                     {.name = "Text64",
                      .label = "B",
                      .hint = "Широта или склонение по данным, градусы",
                      .readOnly = true,
                      .width = 13}};
    TextField Text54{this,
                     {.name = "Text54",
                      .label = "Азимут",
                      .hint = "Азимут тела от юга к западу, градусы",
                      .readOnly = true,
                      .width = 13}};
    TextField Text55{
        this,
        {.name = "Text55", .label = "Высота", .hint = "Высота тела, градусы", .readOnly = true, .width = 13}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "dL, град",
                     .hint = "Теория минус данные по долготе, градусы",
                     .readOnly = true,
                     .width = 13}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "dB, град",
                     .hint = "Теория минус данные по широте, градусы",
                     .readOnly = true,
                     .width = 13}};
    TextField Text15{this,
                     {.name = "Text15",
                      .label = "dR, тыс.км",
                      .hint = "Расстояние между теорией и данными, тыс.км",
                      .readOnly = true,
                      .width = 13}};
    TextField Text9{this,
                    {.name = "Text9",
                     .label = "dLsr, град",
                     .hint = "Среднее dL, градусы",
                     .readOnly = true,
                     .width = 13}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "dBsr, град",
                      .hint = "Среднее dB, градусы",
                      .readOnly = true,
                      .width = 13}};
    TextField Text13{this,
                     {.name = "Text13",
                      .label = "dR крит, тыс.км",
                      .text = "Text13",
                      .hint = "Критерий по расстоянию, тыс.км",
                      .readOnly = true,
                      .width = 13}};
    TextField Text11{this,
                     {.name = "Text11",
                      .label = "dL крит, град",
                      .hint = "Критерий по долготе, градусы",
                      .readOnly = true,
                      .width = 13}};
    TextField Text12{this,
                     {.name = "Text12",
                      .label = "dB крит, град",
                      .hint = "Критерий по широте, градусы",
                      .readOnly = true,
                      .width = 13}};
    TextField Text23{
        this,
        {.name = "Text23", .label = "N", .hint = "Принято наблюдений, NObs", .readOnly = true, .width = 8}};
    TextField Text60{this,
                     {.name = "Text60",
                      .label = "N+",
                      .hint = "Из них с положительным отклонением, NPlus",
                      .readOnly = true,
                      .width = 8}};
    TextField Text78{this,
                     {.name = "Text78", .label = "N-", .hint = "NObs - NPlus", .readOnly = true, .width = 8}};

    // --- pictures
    TextField Text6{this,
                    {.name = "Text6",
                     .label = "МТ, лет/см",
                     .text = "1",
                     .hint = "Масштаб времени нижнего графика, лет в клетке; идет в MT",
                     .width = 6}};
    TextField Text19{this,
                     {.name = "Text19",
                      .label = "MAlfa, град/см",
                      .text = "90",
                      .hint = "Масштаб долгот и широт, градусов в клетке; идет в MAlfa",
                      .width = 6}};
    TextField Text20{this,
                     {.name = "Text20",
                      .label = "MdAlfa, угл.сек/см",
                      .text = "100",
                      .hint = "Масштаб отклонений по углам, угл.сек в клетке; идет в MdAlfa",
                      .width = 6}};
    TextField Text49{this,
                     {.name = "Text49",
                      .label = "MdR,тыс.км/см",
                      .text = "50",
                      .hint = "Масштаб отклонений dR, тыс.км в клетке; для гистограмм - точек в клетке",
                      .width = 6}};
    TextField Text53{this,
                     {.name = "Text53",
                      .label = "сдвиг",
                      .text = "0",
                      .hint = "Сдвиг нижнего графика вверх, клеток; идет в Ysdvig",
                      .width = 6}};
    TextField Text28{this,
                     {.name = "Text28",
                      .label = "ширина",
                      .text = "1",
                      .hint = "Во сколько раз шире нижний график, от 1 до 10; со следующего расчета",
                      .width = 4}};
    TextField Text17{
        this, {.name = "Text17", .text = "1000", .hint = "Пауза после шага, мс; идет в Pauza", .width = 6}};
    CheckBox Check28{this, {.name = "Check28", .caption = "пауза", .hint = "Ждать после каждого шага"}};
    CheckBox Check4{
        this,
        {.name = "Check4", .caption = "без анимации", .hint = "Не рисовать положения тел: так быстрее"}};
    CheckBox Check30{
        this, {.name = "Check30", .caption = "Звук в конце", .hint = "Сообщить об окончании экспериментов"}};
    CheckBox Check1{this, {.name = "Check1", .caption = "Ras(ЭКЛ)", .hint = "Рисовать координаты по теории"}};
    CheckBox Check9{this, {.name = "Check9", .caption = "Nab(ЭКЛ)", .hint = "Рисовать координаты по данным"}};
    CheckBox Check11{
        this,
        {.name = "Check11", .caption = "L", .on = true, .hint = "Рисовать долготы и считать их знаки в N+"}};
    CheckBox Check12{this,
                     {.name = "Check12", .caption = "B", .hint = "Рисовать широты и считать их знаки в N+"}};
    CheckBox Check10{
        this,
        {.name = "Check10", .caption = "dL, dB, град", .on = true, .hint = "Рисовать отклонения по углам"}};
    CheckBox Check14{
        this, {.name = "Check14", .caption = "dR, тыс. км", .hint = "Рисовать отклонение по расстоянию"}};
    CheckBox Check34{this,
                     {.name = "Check34", .caption = "dLsr, dBsr", .hint = "Рисовать средние отклонения"}};
    CheckBox Check6{
        this, {.name = "Check6", .caption = "dRsr, тыс. км", .hint = "Рисовать критерий по расстоянию"}};
    CheckBox Check35{this,
                     {.name = "Check35", .caption = "Abs(dL,dB)sr", .hint = "Рисовать критерии по углам"}};
    CheckBox Check18{
        this, {.name = "Check18", .caption = "Аберрация", .hint = "Рисовать сдвиги долготы от аберрации"}};
    OptionButton Option8{this,
                         {.name = "Option8",
                          .caption = "ГЕО ЭКЛ",
                          .group = "view",
                          .on = true,
                          .hint = "Рисовать тела в геоцентрических координатах"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "ТОПО ГОР",
                          .group = "view",
                          .hint = "Рисовать тело и Солнце на небе места: азимут и высота"}};
    ScrollBar HScroll2{
        this, {.name = "HScroll2", .min = 1, .max = 10000, .value = 3000, .hint = "Масштаб рисунков тел"}};
    Label Label2{this,
                 {.name = "Label2", .caption = "Масштаб = 600 млн.км/см", .hint = "Масштаб рисунков тел"}};
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 330,
                      .height = 363,
                      .background = {0, 0, 0},
                      .hint = "Солнце, Земля и тело, гелиоцентрические, эклиптика даты; вверху вид сбоку"}};
    Picture Picture3{this,
                     {.name = "Picture3",
                      .width = 330,
                      .height = 363,
                      .background = {0, 0, 0},
                      .hint = "Геоцентрические положения или горизонт места"}};
    Picture Picture4{this,
                     {.name = "Picture4",
                      .width = 797,
                      .height = 1146,
                      .hint = "Отклонения теории от данных по времени; план и его результаты"}};

    // --- commands
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Начать",
                            .hint = "Прочитать поля, очистить рисунки и вести расчет с начальной даты",
                            .isDefault = true}};
    CommandButton Command4{
        this, {.name = "Command4", .caption = "Остановить", .hint = "Остановить расчет после текущего шага"}};
    CommandButton Command5{
        this, {.name = "Command5", .caption = "Продолжить", .hint = "Продолжить остановленный расчет"}};
    CommandButton Command6{
        this,
        {.name = "Command6", .caption = "Сделать 1 шаг", .hint = "Одна дата таблицы или одно наблюдение"}};
    CommandButton Command15{
        this,
        {.name = "Command15",
         .caption = "++Статистика",
         .hint =
             "Нарисовать гистограммы отклонений в масштабе поля MdR; с +Статистика и записать файл Stat"}};
    CommandButton Command7{
        this,
        {.name = "Command7",
         .caption = "Выполнить эксперименты с",
         .hint = "Провести расчет для каждого эксперимента плана от первого номера до последнего"}};
    TextField Text26{this,
                     {.name = "Text26", .text = "1", .hint = "Первый (и текущий) эксперимент", .width = 4}};
    TextField Text27{
        this, {.name = "Text27", .label = "по", .text = "1", .hint = "Последний эксперимент", .width = 4}};
    CheckBox Check8{this,
                    {.name = "Check8",
                     .caption = "использовать тест",
                     .hint = "Вместо данных - уравнение регрессии с единичными коэффициентами"}};
    CommandButton Command10{this,
                            {.name = "Command10",
                             .caption = "Найти коэффициенты уравнения регрессии",
                             .hint = "Регрессия критерия на факторы плана"}};
    CommandButton Command12{this,
                            {.name = "Command12",
                             .caption = "Построить графики при X(i)=X(i)opt",
                             .hint = "Регрессия вдоль каждого фактора через оптимум"}};
    CommandButton Command9{
        this, {.name = "Command9", .caption = "План * ", .hint = "Открыть план экспериментов (форма 13)"}};
    CommandButton Command16{
        this, {.name = "Command16", .caption = "dLl*", .hint = "Открыть возмущения Луны (форма 21)"}};
    CommandButton Command17{
        this, {.name = "Command17", .caption = "dLp*", .hint = "Открыть возмущения планет (форма 22)"}};
    CommandButton Command11{
        this, {.name = "Command11", .caption = "К статистике", .hint = "Открыть статистику рядов (форма 6)"}};
    CommandButton Command14{
        this, {.name = "Command14", .caption = "Закрыть форму", .hint = "Закрыть файл, книгу и эту форму"}};
    CommandButton Command13{this,
                            {.name = "Command13", .caption = "Выход", .hint = "Закончить работу программы"}};
    TextField Text51{this, {.name = "Text51", .hint = "Сигнал формы 13: пересчитать дату", .hidden = true}};
    TextField Text52{this, {.name = "Text52", .hint = "Сигнал формы 13: показать план", .hidden = true}};

    /// Empties the lower graph and sizes it for the plan.
    void clearGraph();
    /// Top of the lower graph, picture units.
    double graphTop() const { return page_.rows; }

private:
    void layOut();

    // --- sources (form10_sources.cpp)
    void chooseKind(bool tables);
    void chooseTable(int i);
    void chooseObservatory(int i);
    void setDate(const char* day, const char* month, const std::string& year);
    void closeSources();

    // --- a run (form10_run.cpp)
    bool ReadRunParams();
    void takeCalendar();
    std::int32_t bodyTyped() const;
    void readChoices();
    void convertDate();
    void convertJulian();
    void restoreStart();
    void start();
    void pass();
    void drawLimits();
    void showStatistics();

    void readFields() override;
    void dateRead() override;
    void heliocentric() override;
    void placed() override;
    void compared() override;
    void rejected() override;
    void accepted() override;
    void pause(int milliseconds) override;
    void giveWay() override;
    void clearSystem();
    void drawSky();
    void graphPoint(double y, Color color);

    // --- plans (form10_plan.cpp)
    void runExperiments();
    void showExperiments();
    void printResponse(int k);
    void findRegression();
    void plotFactors();
    void ShowPlanSummary();

    Reduction reduction() { return {lab.s, lab.reduction, lab.plan, lab.tree}; }

    Laboratory& lab;
    PlanPage page_;
    bool running_ = false, gone_ = false;  ///< a run goes on; the form has been closed
    int passes_ = 0;
    double MT_ = 1, MAlfa_ = 90, MdAlfa_ = 100, MdR_ = 50, Ysdvig_ = 0;  ///< scales of the lower graph
};

}  // namespace tarvex
