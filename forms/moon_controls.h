#pragma once
// The controls of the Moon screen, Form20, in tab order: date, source and meaning of the elements, the
// transformations, the check of the orbit and its results, commands and pictures.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class MoonControls : public Form {
public:
    TextField year{this,
                   {.name = "Text34",
                    .label = "год",
                    .text = "2000",
                    .hint = "Год по григорианскому календарю",
                    .width = 6}};
    TextField month{
        this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц от 1 до 12", .width = 4}};
    TextField day{this,
                  {.name = "Text32", .label = "день", .text = "1,5", .hint = "День с долей", .width = 10}};
    TextField julianDate{
        this, {.name = "Text31", .label = "JD =", .hint = "Юлианская дата, дни; идет в JD", .width = 13}};
    CommandButton toJulianDate{
        this, {.name = "Command10", .caption = "G->J", .hint = "Юлианская дата по году, месяцу и дню"}};
    CommandButton toCalendarDate{
        this, {.name = "Command11", .caption = "J->G", .hint = "Год, месяц и день по юлианской дате"}};
    OptionButton fromNew0{this,
                          {.name = "Option7",
                           .caption = "New0 (JD)",
                           .group = "source",
                           .hint = "Элементы Луны по теории New0, равноденствие даты"}};
    OptionButton fromSer0{this,
                          {.name = "Option10",
                           .caption = "Ser0 (J2000)",
                           .group = "source",
                           .on = true,
                           .hint = "Элементы Луны по теории Ser0, равноденствие J2000"}};
    OptionButton fromScreen{this,
                            {.name = "Option9",
                             .caption = "с экрана",
                             .group = "source",
                             .hint = "Элементы Луны из полей этой формы"}};
    TextField meanLongitude{this,
                            {.name = "Text1",
                             .label = "AlfaL0 ( l ), град",
                             .text = "0",
                             .hint = "Средняя долгота Луны, градусы; идет в AlfaL(11)",
                             .width = 10}};
    TextField eccentricity{this,
                           {.name = "Text7",
                            .label = "Eks=",
                            .text = "0,054838",
                            .hint = "Эксцентриситет орбиты Луны; идет в Eks0(11)",
                            .width = 10}};
    TextField perigeeLongitude{this,
                               {.name = "Text8",
                                .label = "AlfaP=",
                                .text = "180",
                                .hint = "Долгота перигея, градусы; идет в AlfaP0(11)",
                                .width = 10}};
    TextField nodeLongitude{this,
                            {.name = "Text9",
                             .label = "AlfaU=",
                             .text = "270",
                             .hint = "Долгота восходящего узла, градусы; идет в AlfaU0(11)",
                             .width = 10}};
    TextField semiMajorAxis{this,
                            {.name = "Text10",
                             .label = "Rsr =",
                             .text = "384,402",
                             .hint = "Большая полуось, тыс. км; идет в R0sr(11)",
                             .width = 10}};
    TextField inclination{this,
                          {.name = "Text40",
                           .label = "Betta=",
                           .text = "5,140155",
                           .hint = "Наклон орбиты, градусы; идет в Betta0(11)",
                           .width = 10}};
    TextField massRatio{this,
                        {.name = "Text21",
                         .label = "ml = mz /",
                         .text = "81,300585",
                         .hint = "Во сколько раз Земля тяжелее Луны; идет в km(11)",
                         .width = 10}};
    TextField etMinusUt{this,
                        {.name = "Text35",
                         .label = "ET-UT, сек=",
                         .hint = "Разность эфемеридного и всемирного времени, с",
                         .readOnly = true,
                         .width = 10}};
    OptionButton geocentricElements{
        this,
        {.name = "Option5",
         .caption = "геоцентрические",
         .group = "meaning",
         .on = true,
         .hint = "Элементы относятся к центру Земли; ставит отметки преобразований"}};
    OptionButton barycentricElements{
        this,
        {.name = "Option6",
         .caption = "барицентрические",
         .group = "meaning",
         .hint = "Элементы относятся к общему центру масс; ставит отметки преобразований"}};
    OptionButton centralMassEarth{this,
                                  {.name = "Option2",
                                   .caption = "mz",
                                   .group = "mass",
                                   .hint = "Центральная масса в скорости - Земля; kodBary = 0"}};
    OptionButton centralMassPair{this,
                                 {.name = "Option3",
                                  .caption = "mz + ml",
                                  .group = "mass",
                                  .on = true,
                                  .hint = "Центральная масса в скорости - Земля с Луной; kodBary = 1"}};
    OptionButton centralMassReduced{this,
                                    {.name = "Option4",
                                     .caption = "mz^3 / (mz + ml)^2",
                                     .group = "mass",
                                     .hint = "Центральная масса движения вокруг общего центра; kodBary = 2"}};
    CheckBox earthByRatio{
        this,
        {.name = "Check11", .caption = "Xz = -Xl * ml / mz", .hint = "Положение Земли по отношению масс"}};
    CheckBox earthByShare{this,
                          {.name = "Check8",
                           .caption = "Xz = - Xl * ml / (mz + ml)",
                           .hint = "Положение Земли по доле массы Луны; заменяет предыдущее"}};
    CheckBox shiftMoon{
        this, {.name = "Check5", .caption = "Xl = Xl + Xz", .hint = "Сдвинуть Луну вместе с Землей"}};
    CheckBox scaleMoonSpeed{
        this, {.name = "Check12", .caption = "VXl=VXl / (1+ ml / mz)", .hint = "Уменьшить скорость Луны"}};
    CheckBox earthSpeedByRatio{
        this,
        {.name = "Check7", .caption = "VXz = -VXl * ml / mz", .hint = "Скорость Земли по отношению масс"}};
    CheckBox earthSpeedByShare{this,
                               {.name = "Check10",
                                .caption = "VXz=-VXl * ml / (ml + mz)",
                                .hint = "Скорость Земли по доле массы Луны; берется со знаком плюс"}};
    CheckBox shiftMoonSpeed{this,
                            {.name = "Check9",
                             .caption = "VXl = VXl + VXz ",
                             .hint = "Сложить скорость Луны со скоростью Земли"}};
    CheckBox anglesFromBarycentre{this,
                                  {.name = "Check1",
                                   .caption = "от ЦМ ",
                                   .hint = "Углы Луны видны из общего центра масс, а не из Земли"}};
    CheckBox keepTracks{this,
                        {.name = "Check3", .caption = "траектории", .hint = "Не стирать следы на рисунке"}};
    CheckBox showBarycentre{
        this,
        {.name = "Check4", .caption = "центр масс системы", .hint = "Рисовать крест в общем центре масс"}};
    TextField systemSpeedY{this,
                           {.name = "Text44",
                            .label = "VYsys, км/с",
                            .text = "0",
                            .hint = "Скорость системы по оси Y, км/с; заменяет VYsys, заданную на форме 4",
                            .width = 8}};
    TextField stepsPerDisplay{this,
                              {.name = "Text36",
                               .label = "выводить через, шагов",
                               .text = "100",
                               .hint = "Через сколько шагов показывать положение и рисовать, NC0",
                               .width = 8}};
    TextField step{this,
                   {.name = "Text22",
                    .label = "шаг решения, с",
                    .text = "360",
                    .hint = "Шаг решения вне окон Dt, с",
                    .width = 8}};
    TextField stepDivider{this,
                          {.name = "Text23",
                           .label = "делитель шага",
                           .text = "10",
                           .hint = "Во сколько раз шаг уменьшается в окнах перигея и узла, kDt",
                           .width = 8}};
    TextField windowDegrees{this,
                            {.name = "Text24",
                             .label = "+/-dAlfa, град",
                             .text = "1",
                             .hint = "Полуширина окон перигея и узла dAlfa, градусы",
                             .width = 8}};
    CheckBox exactPassages{this,
                           {.name = "ExactPassages",
                            .caption = "точные прохождения",
                            .hint = "Находить перигей и узел внутри шага до последнего знака: шаг постоянен, "
                                    "окна и делитель не нужны"}};

    TextField elapsedYears{this,
                           {.name = "Text25",
                            .label = "T, лет",
                            .hint = "Время от начала проверки, лет",
                            .readOnly = true,
                            .width = 10}};
    TextField perigeesPassed{this,
                             {.name = "Text6",
                              .label = "перигеев",
                              .hint = "Пройдено перигеев от начала проверки, шт",
                              .readOnly = true,
                              .width = 7}};
    TextField longitude{this,
                        {.name = "Text4",
                         .label = "долгота, град",
                         .hint = "Долгота Луны, градусы",
                         .readOnly = true,
                         .width = 8}};
    TextField firstPeriod{
        this, {.name = "Text37", .hint = "Первый измеренный период, дней", .readOnly = true, .width = 10}};
    TextField period{this, {.name = "Text3", .hint = "Период, дней", .readOnly = true, .width = 10}};
    TextField periodChange{
        this, {.name = "Text2", .hint = "Изменение периода от первого, дней", .readOnly = true, .width = 10}};
    TextField axisMeasured{
        this,
        {.name = "Text30", .hint = "Измеренная большая полуось, тыс. км", .readOnly = true, .width = 10}};
    TextField axisChange{
        this,
        {.name = "Text20", .hint = "Отличие полуоси от заданной, тыс. км", .readOnly = true, .width = 10}};
    TextField eccentricityMeasured{
        this, {.name = "Text27", .hint = "Измеренный эксцентриситет, %", .readOnly = true, .width = 10}};
    TextField eccentricityChange{
        this,
        {.name = "Text17", .hint = "Отличие эксцентриситета от заданного, %", .readOnly = true, .width = 10}};
    TextField perigeeMeasured{
        this,
        {.name = "Text28", .hint = "Измеренная долгота перигея, градусы", .readOnly = true, .width = 10}};
    TextField perigeeChange{
        this,
        {.name = "Text18", .hint = "Сдвиг перигея от заданного, градусы", .readOnly = true, .width = 10}};
    TextField nodeMeasured{
        this, {.name = "Text29", .hint = "Измеренная долгота узла, градусы", .readOnly = true, .width = 10}};
    TextField nodeChange{
        this, {.name = "Text19", .hint = "Сдвиг узла от заданного, градусы", .readOnly = true, .width = 10}};
    TextField inclinationMeasured{
        this, {.name = "Text39", .hint = "Измеренный наклон, градусы", .readOnly = true, .width = 10}};
    TextField inclinationChange{
        this,
        {.name = "Text38", .hint = "Отличие наклона от заданного, градусы", .readOnly = true, .width = 10}};
    TextField energyChange{this,
                           {.name = "Text41",
                            .label = "dEsys, %",
                            .hint = "Изменение энергии пары, %",
                            .readOnly = true,
                            .width = 10}};
    TextField angularMomentumChange{this,
                                    {.name = "Text42",
                                     .label = "dMsys, %",
                                     .hint = "Изменение момента количества движения, %",
                                     .readOnly = true,
                                     .width = 10}};
    TextField momentumYChange{this,
                              {.name = "Text43",
                               .label = "dKDsysY, %",
                               .hint = "Изменение количества движения по оси Y, %",
                               .readOnly = true,
                               .width = 10}};

    CommandButton setInitialData{this,
                                 {.name = "Command6",
                                  .caption = "Задать координаты и скорости Луны и Земли",
                                  .hint = "Начальные данные пары; строка Солнца заменяется Землей",
                                  .isDefault = true,
                                  .disturbs = Disturbs::All}};
    CommandButton startCheck{
        this,
        {.name = "Command1",
         .caption = "Проверить параметры орбиты Луны",
         .hint = "Решать задачу двух тел с заданных координат и измерять орбиту, пока не остановят",
         .disturbs = Disturbs::All}};
    CommandButton stopCheck{
        this,
        {.name = "Command2", .caption = "Остановить", .hint = "Остановить проверку; продолжить ее можно"}};
    CommandButton continueCheck{this,
                                {.name = "Command3",
                                 .caption = "Продолжить",
                                 .hint = "Продолжить остановленную проверку с того же места",
                                 .disturbs = Disturbs::All}};
    CommandButton clearDrawing{
        this, {.name = "Command4", .caption = "Очистить рисунок", .hint = "Стереть рисунок"}};
    CommandButton closeForm{this, closingSpec("Command9", Disturbs::Own)};
    ScrollBar scaleBar{this,
                       {.name = "HScroll1",
                        .min = 1,
                        .max = 1000,
                        .value = 50,
                        .hint = "Масштаб рисунка, тыс. км в клетке; идет в Mx"}};
    Label scaleLabel{this,
                     {.name = "Label1", .hint = "Масштаб рисунка; его задает ползунок, тыс. км в клетке"}};
    Picture orbitPicture{
        this,
        {.name = "Picture1", .width = 500, .height = 550, .hint = "Внизу плоскость XY, вверху вид сбоку XZ"}};
    Picture pairSketch{
        this, {.name = "Picture2", .width = 200, .height = 90, .hint = "Земля, Луна и их общий центр"}};

protected:
    using Form::Form;
    void layOut();

private:
    Layout resultsLayout();
};

}  // namespace tarvex
