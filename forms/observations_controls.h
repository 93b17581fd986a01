#pragma once
// Controls of Form10, the reduction of observations: data, date and place, theory, corrections, filter,
// results, pictures, commands.  Their order is the tab order.

#include <array>
#include <memory>

#include "forms/fit_panel.h"
#include "forms/quality_panel.h"
#include "forms/shared_controls.h"
#include "reduction/reduction_run.h"
#include "runtime/form.h"

namespace tarvex {

class ObservationsControls : public Form {
public:
    // --- the data
    OptionButton fromTables{this,
                            {.name = "Option1",
                             .caption = "Tab",
                             .group = "data",
                             .on = true,
                             .hint = "Данные - таблицы древних астрономов (книги папки Tab)"}};
    OptionButton fromObservatories{this,
                                   {.name = "Option2",
                                    .caption = "Obs",
                                    .group = "data",
                                    .hint = "Данные - наблюдения обсерваторий (файлы папки Obs)"}};
    OptionButtons tableChoice;        ///< table 0..10
    OptionButtons observatoryChoice;  ///< observatory 0..7
    TextField observatoryName{this,
                              {.name = "Text59",
                               .label = "иная Obs",
                               .text = "BERL",
                               .hint = "Имя обсерватории, которой нет в списке; входит в имя файла",
                               .width = 8}};
    TextField fileNumber{this,
                         {.name = "Text56",
                          .label = "файл Obs №",
                          .text = "100",
                          .hint = "Номер в именах файла наблюдений и отчетов",
                          .width = 6}};
    TextField goodFileNumber{this,
                             {.name = "Text57",
                              .label = "Good №",
                              .text = "41",
                              .hint = "Номер в имени файла принятых наблюдений (Good)",
                              .width = 6}};
    CheckBox openGoodFile{
        this,
        {.name = "Check3",
         .caption = "+Good File Obs",
         .hint = "Открывать файл Good, отобранный по критерию (LB - по расстоянию, L - по долготе)"}};
    CheckBox replacePrecession{
        this,
        {.name = "Check19",
         .caption = "+/-прецесс Tab*",
         .hint = "Заменить прецессию таблицы прецессией 5025 угл.сек за век от начальной даты"}};
    Label officeState{this, {.name = "Label58", .caption = "", .hint = "Идет ли запуск программы таблиц"}};

    // --- date, place, body
    TextField bodyNumber{this,
                         {.name = "Text1",
                          .label = "объект №",
                          .text = "11",
                          .hint = "Номер тела: 0 Солнце, 1, 2, 4..9 планеты, 11 Луна; идет в IplSel",
                          .width = 4}};
    TextField day{this,
                  {.name = "Text2",
                   .label = "DMY",
                   .text = "1,5",
                   .hint = "День начала с долей, дни; элементы плана отнесены к дате, с которой он загружен",
                   .width = 9}};
    TextField month{this, {.name = "Text3", .text = "1", .hint = "Месяц начала, от 1 до 12", .width = 4}};
    TextField year{this,
                   {.name = "Text4", .text = "2000", .hint = "Год начала, астрономический счет", .width = 6}};
    TextField julianDate{
        this,
        {.name = "Text5", .label = "JD", .text = "2451545", .hint = "Юлианская дата, дни", .width = 15}};
    TextField worldDate{this,
                        {.name = "Text58",
                         .label = "UT",
                         .hint = "Дата шага по григорианскому календарю, всемирное время",
                         .readOnly = true,
                         .width = 26}};
    TextField julianDateET{this,
                           {.name = "Text40",
                            .label = "JDet",
                            .hint = "Юлианская дата эфемеридного времени, дни",
                            .readOnly = true,
                            .width = 15}};
    TextField dataFirstYear{
        this, {.name = "Text16", .label = "данные с", .hint = "Первый год данных источника", .width = 6}};
    TextField dataLastYear{this,
                           {.name = "Text14",
                            .label = "по",
                            .hint = "Последний год данных источника; предел расчета - поле GodK",
                            .width = 6}};
    TextField lastYear{this,
                       {.name = "Text65",
                        .label = "GodK",
                        .text = "2000",
                        .hint = "Последний год расчета; идет в GodK",
                        .width = 6}};
    TextField tableStep{this,
                        {.name = "Text18",
                         .label = "шаг Tab, дни",
                         .text = "1,28",
                         .hint = "Шаг по датам таблицы, дни; идет в DtCur",
                         .width = 8}};
    TextField siteLongitude{this,
                            {.name = "Text24",
                             .label = "ObsL, град",
                             .text = "0",
                             .hint = "Долгота места к востоку, градусы; идет в ObsL",
                             .width = 9}};
    TextField siteLatitude{this,
                           {.name = "Text25",
                            .label = "ObsB, град",
                            .text = "0",
                            .hint = "Широта места, градусы; идет в ObsB",
                            .width = 9}};
    OptionButton gregorian{this,
                           {.name = "Option5",
                            .caption = "Григорианский",
                            .group = "calendar",
                            .on = true,
                            .hint = "Даты данных по григорианскому календарю"}};
    OptionButton julian{this,
                        {.name = "Option6",
                         .caption = "Юлианский",
                         .group = "calendar",
                         .hint = "Даты данных по юлианскому календарю"}};
    OptionButton egyptian{this,
                          {.name = "Option7",
                           .caption = "Египетский",
                           .group = "calendar",
                           .hint = "Даты данных по египетскому календарю"}};
    OptionButton dayFromMidnight{this, dayFromMidnightSpec("Option15")};
    OptionButton dayFromNoon{this, dayFromNoonSpec("Option16")};
    CommandButton toJulianDate{
        this, {.name = "Command2", .caption = "DMY->JD", .hint = "Юлианская дата по дню, месяцу и году"}};
    CommandButton toCalendarDate{
        this, {.name = "Command3", .caption = "JD->DMY", .hint = "День, месяц и год по юлианской дате"}};
    CommandButton toStartDate{
        this, {.name = "Command18", .caption = "JD = JD0", .hint = "Вернуть в поля даты начало данных"}};

    // --- theory
    OptionButton earthByJpl0{
        this, {.name = "Option19", .caption = "JPL0", .group = "earth", .hint = "Земля и Луна по JPL0"}};
    OptionButton earthBySer0{this,
                             {.name = "Option20",
                              .caption = "Ser0",
                              .group = "earth",
                              .on = true,
                              .hint = "Земля и Луна по Ser0"}};
    OptionButton earthBySer0Plus{
        this, {.name = "Option21", .caption = "Ser0+", .group = "earth", .hint = "Земля и Луна по Ser0+"}};
    OptionButton elementsOfPlan{this,
                                {.name = "Option10",
                                 .caption = "План",
                                 .group = "planet",
                                 .hint = "Параметры орбиты наблюдаемого тела из плана формы 13"}};
    OptionButton planetByJpl0{
        this, {.name = "Option11", .caption = "JPL0", .group = "planet", .hint = "Планета по JPL0"}};
    OptionButton planetBySer0{this,
                              {.name = "Option12",
                               .caption = "Ser0",
                               .group = "planet",
                               .on = true,
                               .hint = "Планета по Ser0 или, когда Земля по Ser0+, по Ser0+"}};
    OptionButton planEpochJ2000{this,
                                {.name = "Option13",
                                 .caption = "J2000",
                                 .group = "epoch",
                                 .on = true,
                                 .hint = "Параметры плана в равноденствии J2000"}};
    OptionButton planEpochOfDate{this,
                                 {.name = "Option14",
                                  .caption = "JD",
                                  .group = "epoch",
                                  .hint = "Параметры плана в равноденствии даты"}};
    TextField precessionRate{this,
                             {.name = "Text47",
                              .label = "Прецессия, сек",
                              .text = "5030",
                              .hint = "Прецессия параметров плана, угл.сек за век; идет в Precess",
                              .width = 8}};

    // --- corrections and what is seen
    CheckBox sourceAberration{
        this,
        {.name = "Check15",
         .caption = "Аберр. ис.",
         .on = true,
         .hint = "Аберрация источника: тело отходит по своей скорости на время хода света"}};
    CheckBox receiverAberration{this,
                                {.name = "Check16",
                                 .caption = "Аберр. пр.",
                                 .on = true,
                                 .hint = "Аберрация приемника: сдвиг по скорости Земли"}};
    CheckBox nutation{this,
                      {.name = "Check17", .caption = "Нутация", .hint = "Нутация к истинному экватору даты"}};
    CheckBox parallax{this,
                      {.name = "Check24",
                       .caption = "Параллакс",
                       .hint = "Параллакс: место тела с поверхности Земли, а не из ее центра"}};
    CheckBox refraction{
        this, {.name = "Check23", .caption = "Рефракция", .hint = "Рефракция: высота по теории уменьшается"}};
    CheckBox planetTerms{this,
                         {.name = "Check27",
                          .caption = "+dLp",
                          .hint = "Периодические возмущения наблюдаемой планеты (форма 22)"}};
    CheckBox earthMoonTerms{this,
                            {.name = "Check31",
                             .caption = "+dLzl",
                             .hint = "Периодические возмущения Земли и Луны (формы 22 и 21)"}};
    CheckBox visibleOnly{this,
                         {.name = "Check29",
                          .caption = "+Видимость",
                          .hint = "Отбрасывать то, что не видно: тело ниже высоты Hpl"}};
    TextField leastAltitude{this,
                            {.name = "Text46",
                             .label = "когда Hpl>",
                             .text = "1",
                             .hint = "Наименьшая высота тела, градусы; идет в HplMin",
                             .width = 6}};
    CheckBox darkSkyOnly{this,
                         {.name = "Check25",
                          .caption = "++Hsol<",
                          .hint = "Отбрасывать и то, что мешает видеть Солнце: оно выше этой высоты"}};
    TextField sunAltitudeLimit{this,
                               {.name = "Text48",
                                .text = "-0,2",
                                .hint = "Наибольшая высота Солнца, градусы; идет в HsolMax",
                                .width = 6}};

    // --- filter, statistics, files
    OptionButton judgeByDistance{this,
                                 {.name = "Option17",
                                  .caption = "dR",
                                  .group = "criterion",
                                  .on = true,
                                  .hint = "Критерий и отбор по расстоянию dR, тыс.км"}};
    OptionButton judgeByLongitude{this,
                                  {.name = "Option18",
                                   .caption = "Abs(dL)",
                                   .group = "criterion",
                                   .hint = "Критерий и отбор по долготе, угл.сек"}};
    CheckBox rootMeanSquare{this,
                            {.name = "Check7",
                             .caption = "+ Sqr(E(dR^2)/N)",
                             .hint = "Критерий - среднее квадратичное, а не среднее"}};
    CheckBox filterDeviations{this,
                              {.name = "Check20",
                               .caption = "+ dRmax, dLmax <=",
                               .hint = "Принимать только наблюдения с отклонением меньше предела"}};
    TextField deviationLimit{this,
                             {.name = "Text50",
                              .text = "200",
                              .hint = "Предел отклонения, тыс.км или угл.сек; идет в dMax",
                              .width = 8}};
    CheckBox collectStatistics{this,
                               {.name = "Check21",
                                .caption = "+Статистика",
                                .hint = "Считать гистограммы отклонений и записать файл Stat"}};
    CheckBox writeGoodBadFiles{this,
                               {.name = "Check22",
                                .caption = "++File Bad, Good №",
                                .hint = "Записывать принятые (Good) и отброшенные (Bad) наблюдения"}};
    CheckBox writeDebugFile{this,
                            {.name = "Check13",
                             .caption = "+File Отладка",
                             .hint = "Записывать координаты на каждой ступени в файл Ras_data"}};
    CheckBox weightByCount{this,
                           {.name = "Check26",
                            .caption = "+kVes=",
                            .hint = "Вес точки увеличить по числу и длительности наблюдений"}};
    TextField pointWeight{
        this, {.name = "Text29", .text = "", .hint = "Вес точки, Xnul(10)", .readOnly = true, .width = 12}};

    // --- results
    /// Theory at each stage of the chain, longitude or right ascension and latitude or declination, degrees;
    /// null for the precession to the date, which is not shown.  Last in the tab order.
    std::array<std::unique_ptr<TextField>, chainStages> stageLongitude, stageLatitude;
    TextField observedLongitude{this,
                                {.name = "Text63",
                                 .label = "Наблюдение L",
                                 .hint = "Долгота или прямое восхождение по данным, градусы",
                                 .readOnly = true,
                                 .width = 13}};
    TextField observedLatitude{this,
                               {.name = "Text64",
                                .label = "B",
                                .hint = "Широта или склонение по данным, градусы",
                                .readOnly = true,
                                .width = 13}};
    TextField azimuth{this,
                      {.name = "Text54",
                       .label = "Азимут",
                       .hint = "Азимут тела от юга к западу, градусы",
                       .readOnly = true,
                       .width = 13}};
    TextField altitude{
        this,
        {.name = "Text55", .label = "Высота", .hint = "Высота тела, градусы", .readOnly = true, .width = 13}};
    TextField longitudeResidual{this,
                                {.name = "Text7",
                                 .label = "dL, град",
                                 .hint = "Теория минус данные по долготе, градусы",
                                 .readOnly = true,
                                 .width = 13}};
    TextField latitudeResidual{this,
                               {.name = "Text8",
                                .label = "dB, град",
                                .hint = "Теория минус данные по широте, градусы",
                                .readOnly = true,
                                .width = 13}};
    TextField distanceResidual{this,
                               {.name = "Text15",
                                .label = "dR, тыс.км",
                                .hint = "Расстояние между теорией и данными, тыс.км",
                                .readOnly = true,
                                .width = 13}};
    TextField meanLongitudeResidual{this,
                                    {.name = "Text9",
                                     .label = "dLsr, град",
                                     .hint = "Среднее dL, градусы",
                                     .readOnly = true,
                                     .width = 13}};
    TextField meanLatitudeResidual{this,
                                   {.name = "Text10",
                                    .label = "dBsr, град",
                                    .hint = "Среднее dB, градусы",
                                    .readOnly = true,
                                    .width = 13}};
    TextField distanceCriterion{this,
                                {.name = "Text13",
                                 .label = "dR крит, тыс.км",
                                 .hint = "Критерий по расстоянию, тыс.км",
                                 .readOnly = true,
                                 .width = 13}};
    TextField longitudeCriterion{this,
                                 {.name = "Text11",
                                  .label = "dL крит, град",
                                  .hint = "Критерий по долготе, градусы",
                                  .readOnly = true,
                                  .width = 13}};
    TextField latitudeCriterion{this,
                                {.name = "Text12",
                                 .label = "dB крит, град",
                                 .hint = "Критерий по широте, градусы",
                                 .readOnly = true,
                                 .width = 13}};
    TextField acceptedCount{
        this,
        {.name = "Text23", .label = "N", .hint = "Принято наблюдений, NObs", .readOnly = true, .width = 8}};
    TextField positiveCount{this,
                            {.name = "Text60",
                             .label = "N+",
                             .hint = "Из них с положительным отклонением, NPlus",
                             .readOnly = true,
                             .width = 8}};
    TextField negativeCount{
        this, {.name = "Text78", .label = "N-", .hint = "NObs - NPlus", .readOnly = true, .width = 8}};

    // --- pictures
    TextField timeScale{this,
                        {.name = "Text6",
                         .label = "МТ, лет/см",
                         .text = "1",
                         .hint = "Масштаб времени нижнего графика, лет в клетке; идет в MT",
                         .width = 6}};
    TextField angleScale{this,
                         {.name = "Text19",
                          .label = "MAlfa, град/см",
                          .text = "90",
                          .hint = "Масштаб долгот и широт, градусов в клетке; идет в MAlfa",
                          .width = 6}};
    TextField angleResidualScale{this,
                                 {.name = "Text20",
                                  .label = "MdAlfa, угл.сек/см",
                                  .text = "100",
                                  .hint = "Масштаб отклонений по углам, угл.сек в клетке; идет в MdAlfa",
                                  .width = 6}};
    TextField distanceResidualScale{
        this,
        {.name = "Text49",
         .label = "MdR,тыс.км/см",
         .text = "50",
         .hint = "Масштаб отклонений dR, тыс.км в клетке; для гистограмм - точек в клетке",
         .width = 6}};
    TextField graphShift{this,
                         {.name = "Text53",
                          .label = "сдвиг",
                          .text = "0",
                          .hint = "Сдвиг нижнего графика вверх, клеток; идет в Ysdvig",
                          .width = 6}};
    TextField graphWidth{this,
                         {.name = "Text28",
                          .label = "ширина",
                          .text = "1",
                          .hint = "Во сколько раз шире нижний график, от 1 до 10; со следующего расчета",
                          .width = 4}};
    TextField pauseLength{
        this, {.name = "Text17", .text = "1000", .hint = "Пауза после шага, мс; идет в Pauza", .width = 6}};
    CheckBox pauseAfterStep{this,
                            {.name = "Check28", .caption = "пауза", .hint = "Ждать после каждого шага"}};
    CheckBox withoutAnimation{
        this,
        {.name = "Check4", .caption = "без анимации", .hint = "Не рисовать положения тел: так быстрее"}};
    CheckBox soundAtEnd{
        this, {.name = "Check30", .caption = "Звук в конце", .hint = "Сообщить об окончании экспериментов"}};
    CheckBox plotTheory{this,
                        {.name = "Check1", .caption = "Ras(ЭКЛ)", .hint = "Рисовать координаты по теории"}};
    CheckBox plotObserved{this,
                          {.name = "Check9", .caption = "Nab(ЭКЛ)", .hint = "Рисовать координаты по данным"}};
    CheckBox plotLongitudes{
        this,
        {.name = "Check11", .caption = "L", .on = true, .hint = "Рисовать долготы и считать их знаки в N+"}};
    CheckBox plotLatitudes{
        this, {.name = "Check12", .caption = "B", .hint = "Рисовать широты и считать их знаки в N+"}};
    CheckBox plotAngleResiduals{
        this,
        {.name = "Check10", .caption = "dL, dB, град", .on = true, .hint = "Рисовать отклонения по углам"}};
    CheckBox plotDistanceResidual{
        this, {.name = "Check14", .caption = "dR, тыс. км", .hint = "Рисовать отклонение по расстоянию"}};
    CheckBox plotMeanResiduals{
        this, {.name = "Check34", .caption = "dLsr, dBsr", .hint = "Рисовать средние отклонения"}};
    CheckBox plotDistanceCriterion{
        this, {.name = "Check6", .caption = "dRsr, тыс. км", .hint = "Рисовать критерий по расстоянию"}};
    CheckBox plotAngleCriteria{
        this, {.name = "Check35", .caption = "Abs(dL,dB)sr", .hint = "Рисовать критерии по углам"}};
    CheckBox plotAberration{
        this, {.name = "Check18", .caption = "Аберрация", .hint = "Рисовать сдвиги долготы от аберрации"}};
    OptionButton geocentricView{this,
                                {.name = "Option8",
                                 .caption = "ГЕО ЭКЛ",
                                 .group = "view",
                                 .on = true,
                                 .hint = "Рисовать тела в геоцентрических координатах"}};
    OptionButton horizonView{this,
                             {.name = "Option3",
                              .caption = "ТОПО ГОР",
                              .group = "view",
                              .hint = "Рисовать тело и Солнце на небе места: азимут и высота"}};
    ScrollBar systemScale{
        this, {.name = "HScroll2", .min = 1, .max = 10000, .value = 3000, .hint = "Масштаб рисунков тел"}};
    Label systemScaleCaption{
        this, {.name = "Label2", .caption = "Масштаб = 600 млн.км/см", .hint = "Масштаб рисунков тел"}};
    Picture systemPicture{
        this,
        {.name = "Picture1",
         .width = 330,
         .height = 363,
         .background = {0, 0, 0},
         .hint = "Солнце, Земля и тело, гелиоцентрические, эклиптика даты; вверху вид сбоку"}};
    Picture skyPicture{this,
                       {.name = "Picture3",
                        .width = 330,
                        .height = 363,
                        .background = {0, 0, 0},
                        .hint = "Геоцентрические положения или горизонт места"}};
    Picture residualGraph{this,
                          {.name = "Picture4",
                           .width = 797,
                           .height = 1146,
                           .hint = "Отклонения теории от данных по времени; план и его результаты"}};

    // --- commands
    CommandButton startRun{this,
                           {.name = "Command1",
                            .caption = "Начать",
                            .hint = "Прочитать поля, очистить рисунки и вести расчет с начальной даты",
                            .isDefault = true,
                            .disturbs = Disturbs::Others}};
    CommandButton stopRun{
        this, {.name = "Command4", .caption = "Остановить", .hint = "Остановить расчет после текущего шага"}};
    CommandButton continueRun{this,
                              {.name = "Command5",
                               .caption = "Продолжить",
                               .hint = "Продолжить остановленный расчет",
                               .disturbs = Disturbs::Others}};
    CommandButton singleStep{this,
                             {.name = "Command6",
                              .caption = "Сделать 1 шаг",
                              .hint = "Одна дата таблицы или одно наблюдение",
                              .disturbs = Disturbs::Others}};
    CommandButton drawHistograms{
        this,
        {.name = "Command15",
         .caption = "++Статистика",
         .hint =
             "Нарисовать гистограммы отклонений в масштабе поля MdR; с +Статистика и записать файл Stat"}};
    CommandButton performExperiments{
        this,
        {.name = "Command7",
         .caption = "Выполнить эксперименты с",
         .hint = "Провести расчет для каждого эксперимента плана от первого номера до последнего",
         .disturbs = Disturbs::Others}};
    TextField firstExperiment{
        this, {.name = "Text26", .text = "1", .hint = "Первый (и текущий) эксперимент", .width = 4}};
    TextField lastExperiment{
        this, {.name = "Text27", .label = "по", .text = "1", .hint = "Последний эксперимент", .width = 4}};
    CheckBox testRegression{this,
                            {.name = "Check8",
                             .caption = "использовать тест",
                             .hint = "Вместо данных - уравнение регрессии с единичными коэффициентами"}};
    CommandButton findCoefficients{this,
                                   {.name = "Command10",
                                    .caption = "Найти коэффициенты уравнения регрессии",
                                    .hint = "Регрессия критерия на факторы плана"}};
    CommandButton drawFactorCurves{this,
                                   {.name = "Command12",
                                    .caption = "Построить графики при X(i)=X(i)opt",
                                    .hint = "Регрессия вдоль каждого фактора через оптимум"}};
    QualityPanel quality{this};
    CommandButton openPlan{
        this, {.name = "Command9", .caption = "План * ", .hint = "Открыть план экспериментов (форма 13)"}};
    FitPanel fit{this};
    CommandButton openMoonTerms{
        this, {.name = "Command16", .caption = "dLl*", .hint = "Открыть возмущения Луны (форма 21)"}};
    CommandButton openPlanetTerms{
        this, {.name = "Command17", .caption = "dLp*", .hint = "Открыть возмущения планет (форма 22)"}};
    CommandButton openStatistics{
        this, {.name = "Command11", .caption = "К статистике", .hint = "Открыть статистику рядов (форма 6)"}};
    CommandButton closeForm{this,
                            {.name = "Command14",
                             .caption = "Закрыть форму",
                             .hint = "Закрыть файл, книгу и эту форму",
                             .disturbs = Disturbs::Own}};
    CommandButton exitProgram{this,
                              {.name = "Command13",
                               .caption = "Выход",
                               .hint = "Закончить работу программы",
                               .disturbs = Disturbs::All}};
    TextField dateSignal{this,
                         {.name = "Text51", .hint = "Сигнал формы 13: пересчитать дату", .hidden = true}};
    TextField planSignal{this, {.name = "Text52", .hint = "Сигнал формы 13: показать план", .hidden = true}};

protected:
    explicit ObservationsControls(Desk& desk);

private:
    void layOut();
    Layout dataPage();
    Layout theoryPage();
    Layout resultsPage();
    Layout drawingPage();
    Layout planPage();
};

}  // namespace tarvex
