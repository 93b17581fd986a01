#pragma once
// The controls of the eclipse screen, Form16, in tab order: body, moment and place, the two clocks, choices
// and ticks, results, commands and pictures.

#include <array>

#include "forms/shared_controls.h"
#include "forms/table_captions.h"
#include "runtime/form.h"

namespace tarvex {

class EclipseControls : public Form {
public:
    TextField bodyNumber{this,
                         {.name = "Text1",
                          .label = "Солнце и планета №",
                          .text = "11",
                          .hint = "Номер тела: 1 Меркурий, 2 Венера, 11 Луна; идет в IplSel",
                          .width = 4}};
    TextField day{this,
                  {.name = "Text2",
                   .label = "DMYut",
                   .text = "29,4",
                   .hint = "День начала с долей, дни, всемирное время"}};
    TextField month{this, {.name = "Text3", .text = "3", .hint = "Месяц начала, от 1 до 12"}};
    TextField year{this, {.name = "Text4", .text = "2006", .hint = "Год начала по выбранному календарю"}};
    TextField stepDays{this,
                       {.name = "Text26",
                        .label = "шаг решения, дни",
                        .text = "0,0005",
                        .hint = "Шаг даты, дни; идет в DtCur"}};
    TextField stepDivider{this,
                          {.name = "Text8",
                           .label = "делитель шага",
                           .text = "10",
                           .hint = "Во сколько раз шаг меньше возле равноденствий и солнцестояний"}};
    TextField placeLongitude{this,
                             {.name = "Text24",
                              .label = "ObsL",
                              .text = "48,153",
                              .hint = "Долгота места к востоку, градусы; идет в ObsL"}};
    TextField placeLatitude{
        this,
        {.name = "Text25", .label = "ObsB", .text = "45,874", .hint = "Широта места, градусы; идет в ObsB"}};
    TextField diskScale{this,
                        {.name = "Text27",
                         .label = "MdB, град/см",
                         .text = "0,25",
                         .hint = "Масштаб рисунка дисков, градусов в клетке"}};
    TextField et1MinusUt{
        this,
        {.name = "Text14",
         .label = "ET1- UT, мин",
         .text = "0",
         .hint = "Поправка времени для движения планет, минут; показывается или берется с экрана"}};
    TextField et2MinusUt{
        this,
        {.name = "Text15",
         .label = "ET2- UT, мин",
         .text = "0",
         .hint = "Поправка времени для вращения Земли, минут; показывается или берется с экрана"}};
    CheckBox typedEt1{
        this,
        {.name = "Check5", .caption = "с экрана", .hint = "ET1-UT взять из поля, а не из формулы формы 17"}};
    CheckBox typedEt2{
        this,
        {.name = "Check6", .caption = "с экрана", .hint = "ET2-UT взять из поля, а не из формулы формы 17"}};
    OptionButton solarEclipses{this,
                               {.name = "Option3",
                                .caption = "Солнца",
                                .group = "kind",
                                .on = true,
                                .hint = "Рассчитать затмения Солнца и прохождения планет"}};
    OptionButton lunarEclipses{this,
                               {.name = "Option8",
                                .caption = "Луны",
                                .group = "kind",
                                .hint = "Рассчитать затмения Луны тенью Земли"}};
    OptionButton riseByUt{this,
                          {.name = "Option10",
                           .caption = "ut",
                           .group = "clock",
                           .on = true,
                           .hint = "Восход и заход по всемирному времени"}};
    OptionButton riseByEt{this,
                          {.name = "Option11",
                           .caption = "et",
                           .group = "clock",
                           .hint = "Восход и заход по времени вращения Земли ET2"}};
    OptionButton equatorialFrame{this,
                                 {.name = "Option12",
                                  .caption = "ЭКВ",
                                  .group = "frame",
                                  .on = true,
                                  .hint = "Рисовать диски в экваториальных координатах"}};
    OptionButton horizontalFrame{this,
                                 {.name = "Option13",
                                  .caption = "ГОР",
                                  .group = "frame",
                                  .hint = "Рисовать диски в горизонтальных координатах"}};
    OptionButton timeForward{this,
                             {.name = "Option18",
                              .caption = "вперед",
                              .group = "direction",
                              .on = true,
                              .hint = "Идти по времени вперед"}};
    OptionButton timeBackward{
        this,
        {.name = "Option19", .caption = "назад", .group = "direction", .hint = "Идти по времени назад"}};
    OptionButton fromTables{this,
                            {.name = "Option1",
                             .caption = "таблиц",
                             .group = "data",
                             .hint = "Положения из таблиц древних астрономов"}};
    OptionButton fromTheories{this,
                              {.name = "Option2",
                               .caption = "теорий",
                               .group = "data",
                               .on = true,
                               .hint = "Положения по теориям и эфемеридам"}};
    OptionButton gregorianCalendar{this,
                                   {.name = "Option5",
                                    .caption = "Григорианский",
                                    .group = "calendar",
                                    .on = true,
                                    .hint = "Дата по григорианскому календарю"}};
    OptionButton julianCalendar{this,
                                {.name = "Option6",
                                 .caption = "Юлианский",
                                 .group = "calendar",
                                 .hint = "Дата по юлианскому календарю"}};
    OptionButton egyptianCalendar{this,
                                  {.name = "Option7",
                                   .caption = "Египетский",
                                   .group = "calendar",
                                   .hint = "Дата по египетскому календарю"}};
    OptionButton dayFromMidnight{this, dayFromMidnightSpec("Option15")};
    OptionButton dayFromNoon{this, dayFromNoonSpec("Option16")};
    OptionButtons tableChoice{this, 0, 10, tableOption};                          ///< ancient tables; 0: none
    OptionButtons theoryChoice{this, 0, 4, [](int i) { return theorySpec(i); }};  ///< theories; 0: none
    CheckBox singleStep{
        this, {.name = "Check1", .caption = "Start+Stop", .hint = "После начала сделать только один шаг"}};
    CheckBox keepTracks{this,
                        {.name = "Check2", .caption = "траектории", .hint = "Не стирать старые положения"}};
    CheckBox pathOverSun{this,
                         {.name = "Check3",
                          .caption = "+ траектории на Солнце",
                          .hint = "Отмечать путь центра тела по диску"}};
    CheckBox correctPrecession{
        this,
        {.name = "Check4",
         .caption = "исправить Prec* от года создания табл.",
         .hint = "Заменить прецессию таблицы отсчетом от ее начала, 5025 сек. дуги за век"}};
    CheckBox showEquator{this,
                         {.name = "Check7",
                          .caption = "+ экватор",
                          .hint = "Рисовать направление небесного экватора через центр диска"}};
    CheckBox refreshDisks{
        this, {.name = "Check8", .caption = "+обновить", .hint = "Стереть рисунок дисков на первом шаге"}};
    CheckBox moonPerturbations{
        this, {.name = "Check9", .caption = "+dLl", .hint = "Учесть возмущения Луны с формы 21"}};
    CheckBox planetPerturbations{
        this, {.name = "Check11", .caption = "+dLp", .hint = "Учесть возмущения Земли и планеты с формы 22"}};
    CheckBox withRefraction{
        this, {.name = "Check10", .caption = "+Рефракция", .hint = "Поднять видимые высоты на рефракцию"}};
    CheckBox logSolstices{this,
                          {.name = "Check13",
                           .caption = "+File TimeYer",
                           .hint = "Записывать равноденствия и солнцестояния в Dat\\TimeYer_data.txt"}};
    CheckBox logWithoutRefraction{
        this,
        {.name = "Check23",
         .caption = "++Test",
         .hint = "Без рефракции в записи, иначе она прибавлена дважды; только вместе с +File TimeYer"}};
    CheckBox logPlaces{this,
                       {.name = "Check30",
                        .caption = "+File Param",
                        .hint = "Записывать положения при наложении дисков в Dat\\Param_data.txt"}};

    TextField hourAngle{this,
                        {.name = "Text17",
                         .label = "Tsol, час",
                         .hint = "Часовой угол центра диска, часов",
                         .readOnly = true}};
    TextField sunrise{this,
                      {.name = "Text28",
                       .label = "восход",
                       .hint = "Время восхода верхнего края Солнца",
                       .readOnly = true,
                       .width = 12}};
    TextField sunset{this,
                     {.name = "Text29",
                      .label = "заход",
                      .hint = "Время захода верхнего края Солнца",
                      .readOnly = true,
                      .width = 12}};
    TextField precessionFromBase{
        this,
        {.name = "Text31",
         .label = "p от JD 1579341, град",
         .hint = "Общая прецессия от JD 1579341 до даты, градусы; с таблицей - прецессия таблицы",
         .readOnly = true}};
    TextField precessionFromJ2000{
        this,
        {.name = "Text41",
         .label = "p от J2000, град",
         .hint = "Общая прецессия от J2000 до даты, градусы; с таблицей - прецессия, которой "
                 "заменяется ее собственная",
         .readOnly = true}};
    /// Longitude and latitude by stage, degrees: cells 2 * stage and 2 * stage + 1.
    TextFields sunStages{this, 0, 13, [](int i) { return stageSpec("StagesSun", "Солнца", i); }};
    TextFields bodyStages{this, 0, 13, [](int i) { return stageSpec("StagesBody", "тела", i); }};
    TextFields contactTimes{this, 1, 4,
                            [](int i) { return contactSpec(i); }};  ///< universal time of contacts 1..4
    TextField separation{this,
                         {.name = "Separation",
                          .label = "между центрами, град",
                          .hint = "Угловое расстояние центров дисков (или Луны и тени), градусы",
                          .readOnly = true}};
    TextField sumOfRadii{this,
                         {.name = "SumOfRadii",
                          .label = "сумма радиусов",
                          .hint = "Сумма угловых радиусов дисков, градусы",
                          .readOnly = true}};
    TextField differenceOfRadii{this,
                                {.name = "DifferenceOfRadii",
                                 .label = "разность радиусов",
                                 .hint = "Разность угловых радиусов дисков, градусы",
                                 .readOnly = true}};
    TextField magnitude{this,
                        {.name = "Magnitude",
                         .label = "фаза",
                         .hint = "Закрытая доля диаметра Солнца или Луны",
                         .readOnly = true}};
    TextField greatestMagnitude{this,
                                {.name = "GreatestMagnitude",
                                 .label = "наибольшая фаза",
                                 .hint = "Наибольшая фаза с начала расчета",
                                 .readOnly = true}};
    TextField clocks{this,
                     {.name = "Clocks",
                      .label = "часы",
                      .hint = "Всемирное и местное время, и они же по вращению Земли ET2",
                      .readOnly = true,
                      .width = 64}};

    CommandButton startRun{this,
                           {.name = "Command1",
                            .caption = "Начать",
                            .hint = "Взять поля и идти по времени",
                            .isDefault = true,
                            .disturbs = Disturbs::All}};
    CommandButton stopRun{this, {.name = "Command4", .caption = "Остановить", .hint = "Остановить расчет"}};
    CommandButton continueRun{this,
                              {.name = "Command5",
                               .caption = "Продолжить",
                               .hint = "Продолжить с того же места",
                               .disturbs = Disturbs::All}};
    CommandButton makeOneStep{this,
                              {.name = "Command6",
                               .caption = "Сделать 1 шаг",
                               .hint = "Один шаг расчета",
                               .disturbs = Disturbs::All}};
    CommandButton restoreDate{this,
                              {.name = "Command18", .caption = "JD = JD0", .hint = "Вернуть дату начала"}};
    CommandButton openEtUt{
        this, {.name = "Command7", .caption = "ET-UT*", .hint = "Открыть форму 17: формулы ET-UT"}};
    CommandButton openMoonPerturbations{
        this, {.name = "Command9", .caption = "dLl*", .hint = "Открыть форму 21: возмущения Луны"}};
    CommandButton openPlanetPerturbations{
        this, {.name = "Command10", .caption = "dLp*", .hint = "Открыть форму 22: возмущения планет"}};
    CommandButton closeForm{this, closingSpec("Command14", Disturbs::Own)};
    Label dayCountLabel{this,
                        {.name = "Label16",
                         .caption = "день от 1.1.1 г. н.э.",
                         .hint = "С какого дня ведется счет дней в этом календаре"}};
    Picture bodiesPicture{this,
                          {.name = "Picture1",
                           .width = 270,
                           .height = 270,
                           .hint = "Тела: внизу плоскость XY, вверху вид сбоку"}};
    Picture disksPicture{this,
                         {.name = "Picture3",
                          .width = 420,
                          .height = 420,
                          .hint = "Диски Солнца и тела (Луны и тени); клетка - MdB градусов"}};
    Picture skyPicture{this,
                       {.name = "Picture4",
                        .width = 270,
                        .height = 141,
                        .hint = "Небо: азимут и высота, клетка 30 градусов"}};

protected:
    using Form::Form;
    void layOut();
    static constexpr std::array theoryNames = {"", "New0", "JPL0", "JPL2", "Ser0+"};
    /// Stages of the reduction, from the geometric place to the apparent one as seen from the place.
    static constexpr std::array stageNames = {"ГЕО ЭКЛ J2000", "+Аберр. планетн.", "+Аберр. звездн.",
                                              "J2000 -> JD",   "ГЕО ЭКВ JD",       "+Нутация",
                                              "ТОПО ЭКВ"};

private:
    static OptionButton::Spec theorySpec(int i);
    static TextField::Spec stageSpec(const char* name, const char* whose, int i);
    static TextField::Spec contactSpec(int i);
};

}  // namespace tarvex
