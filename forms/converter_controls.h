#pragma once
// Controls of Form12, the coordinate converter.  Their order is the tab order.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class ConverterControls : public Form {
public:
    static constexpr const char* formName = "Form12";

    static constexpr int typed = 11;  ///< the body whose coordinates are typed
    OptionButtons bodyChoice;         ///< 0..11
    OptionButton typedPolar{this,
                            {.name = "Option2",
                             .caption = "полярные",
                             .group = "form",
                             .on = true,
                             .hint = "С экрана берутся полярные координаты"}};
    OptionButton typedCartesian{this,
                                {.name = "Option3",
                                 .caption = "декартовы",
                                 .group = "form",
                                 .hint = "С экрана берутся декартовы координаты"}};
    OptionButton planeEcliptic{this,
                               {.name = "Option8",
                                .caption = "эклиптики",
                                .group = "plane",
                                .on = true,
                                .hint = "Основная плоскость - эклиптика"}};
    OptionButton planeEquator{
        this,
        {.name = "Option9", .caption = "экватора", .group = "plane", .hint = "Основная плоскость - экватор"}};
    OptionButton planeHorizon{this,
                              {.name = "Option10",
                               .caption = "горизонта",
                               .group = "plane",
                               .hint = "Основная плоскость - горизонт; только топоцентрическая система"}};
    OptionButton equinoxOfDate{this,
                               {.name = "Option16",
                                .caption = "эпоха даты JD",
                                .group = "equinox",
                                .on = true,
                                .hint = "К равноденствию даты"}};
    OptionButton equinoxJ2000{
        this, {.name = "Option17", .caption = "J2000", .group = "equinox", .hint = "К равноденствию J2000"}};
    OptionButton heliocentric{this,
                              {.name = "Option18",
                               .caption = "гелиоцентрическая",
                               .group = "origin",
                               .on = true,
                               .hint = "Начало в центре Солнца"}};
    OptionButton geocentric{this,
                            {.name = "Option19",
                             .caption = "геоцентрическая",
                             .group = "origin",
                             .hint = "Начало в центре Земли"}};
    OptionButton topocentric{
        this,
        {.name = "Option20",
         .caption = "топоцентрическая",
         .group = "origin",
         .hint = "Начало в месте наблюдателя; параллакс приближенный, точен при малых широтах светила"}};
    OptionButton unitHours{this,
                           {.name = "Option4",
                            .caption = "часы-минуты-секунды",
                            .group = "unit",
                            .hint = "Угол в часах, минутах и секундах"}};
    OptionButton unitDegreesMinutes{this,
                                    {.name = "Option5",
                                     .caption = "градусы-минуты-секунды",
                                     .group = "unit",
                                     .hint = "Угол в градусах, минутах и секундах"}};
    OptionButton unitDegrees{this,
                             {.name = "Option6",
                              .caption = "градусы",
                              .group = "unit",
                              .on = true,
                              .hint = "Угол в градусах с долями"}};
    OptionButton unitRadians{
        this, {.name = "Option7", .caption = "радианы", .group = "unit", .hint = "Угол в радианах"}};
    OptionButton signPlus{
        this,
        {.name = "Option11", .caption = "+", .group = "sign", .on = true, .hint = "Угол положительный"}};
    OptionButton signMinus{
        this, {.name = "Option21", .caption = "--", .group = "sign", .hint = "Угол отрицательный"}};

    TextField sourceX{this,
                      {.name = "Text1",
                       .label = "X, тыс.км.",
                       .text = "0",
                       .hint = "Исходная координата X, тыс. км",
                       .width = 14}};
    TextField sourceY{this,
                      {.name = "Text2",
                       .label = "Y, тыс.км.",
                       .text = "0",
                       .hint = "Исходная координата Y, тыс. км",
                       .width = 14}};
    TextField sourceZ{this,
                      {.name = "Text3",
                       .label = "Z, тыс.км.",
                       .text = "0",
                       .hint = "Исходная координата Z, тыс. км",
                       .width = 14}};
    TextField sourceLongitude{
        this,
        {.name = "Text11",
         .label = "L(RA или A), град",
         .text = "45",
         .hint = "Исходная долгота, прямое восхождение или азимут (от юга к западу), градусы",
         .width = 15}};
    TextField sourceLatitude{this,
                             {.name = "Text12",
                              .label = "B(Dec или H), град",
                              .text = "10",
                              .hint = "Исходная широта, склонение или высота, градусы",
                              .width = 15}};
    TextField sourceDistance{this,
                             {.name = "Text13",
                              .label = "R, тыс. км.",
                              .text = "300000",
                              .hint = "Исходное расстояние, тыс. км",
                              .width = 15}};
    TextField resultX{this,
                      {.name = "Text4",
                       .label = "X, тыс.км.",
                       .hint = "Преобразованная координата X, тыс. км",
                       .readOnly = true,
                       .width = 14}};
    TextField resultY{this,
                      {.name = "Text5",
                       .label = "Y, тыс.км.",
                       .hint = "Преобразованная координата Y, тыс. км",
                       .readOnly = true,
                       .width = 14}};
    TextField resultZ{this,
                      {.name = "Text6",
                       .label = "Z, тыс.км.",
                       .hint = "Преобразованная координата Z, тыс. км",
                       .readOnly = true,
                       .width = 14}};
    TextField resultLongitude{
        this,
        {.name = "Text14",
         .label = "L(RA или A), град",
         .hint = "Преобразованная долгота, прямое восхождение или азимут (от юга к западу), градусы",
         .readOnly = true,
         .width = 15}};
    TextField resultLatitude{this,
                             {.name = "Text15",
                              .label = "B(Dec или H), град",
                              .hint = "Преобразованная широта, склонение или высота, градусы",
                              .readOnly = true,
                              .width = 15}};
    TextField resultDistance{this,
                             {.name = "Text16",
                              .label = "R, тыс. км.",
                              .hint = "Преобразованное расстояние, тыс. км",
                              .readOnly = true,
                              .width = 15}};
    TextField angleHours{
        this,
        {.name = "Text7", .text = "0", .hint = "Часы угла в часовой мере, 1 час = 15 градусов", .width = 6}};
    TextField angleTimeMinutes{
        this, {.name = "Text8", .text = "0", .hint = "Минуты времени к часам угла", .width = 6}};
    TextField angleTimeSeconds{
        this, {.name = "Text9", .text = "0", .hint = "Секунды времени к часам угла", .width = 8}};
    TextField angleWholeDegrees{this,
                                {.name = "Text17", .text = "0", .hint = "Целые градусы угла", .width = 6}};
    TextField angleArcMinutes{
        this, {.name = "Text18", .text = "0", .hint = "Минуты дуги к градусам угла", .width = 6}};
    TextField angleArcSeconds{
        this, {.name = "Text19", .text = "0", .hint = "Секунды дуги к градусам угла", .width = 8}};
    TextField angleDegrees{this,
                           {.name = "Text10", .text = "0", .hint = "Угол в градусах с долями", .width = 15}};
    TextField angleRadians{this, {.name = "Text20", .text = "0", .hint = "Угол в радианах", .width = 15}};
    TextField siteLongitude{this,
                            {.name = "Text21",
                             .label = "ObsL, град",
                             .text = "44,5",
                             .hint = "Долгота наблюдателя к востоку, градусы; идет в ObsL"}};
    TextField siteLatitude{this,
                           {.name = "Text22",
                            .label = "ObsB, град",
                            .text = "48,7",
                            .hint = "Широта наблюдателя, градусы; идет в ObsB"}};
    TextField day{this,
                  {.name = "Text32",
                   .label = "день",
                   .text = "1,5",
                   .hint = "День даты с долей, дни, по всемирному времени",
                   .width = 9}};
    TextField month{
        this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц от 1 до 12", .width = 4}};
    TextField year{this,
                   {.name = "Text34",
                    .label = "год",
                    .text = "2000",
                    .hint = "Год по григорианскому календарю",
                    .width = 6}};
    TextField julianDate{this,
                         {.name = "Text31",
                          .label = "JD =",
                          .hint = "Юлианская дата, дни, по всемирному времени",
                          .width = 15}};
    TextField zoneHours{
        this,
        {.name = "Text28", .label = " час. пояса", .text = "3", .hint = "Часовой пояс, часов к востоку"}};
    TextField dateStep{this,
                       {.name = "Text29",
                        .label = "шаг, дни",
                        .text = "0,25",
                        .hint = "На сколько дней сдвигается дата при следующем расчете"}};
    TextField etMinusUt{this,
                        {.name = "Text23",
                         .label = "ET- UT, мин",
                         .hint = "Разность эфемеридного и всемирного времени, минут",
                         .readOnly = true}};
    TextField localSiderealTime{
        this,
        {.name = "Text24", .label = "LMST, час", .hint = "Местное звездное время, часов", .readOnly = true}};
    TextField hourAngle{this,
                        {.name = "Text25",
                         .label = "TAU, град",
                         .hint = "Часовой угол, градусы, без приведения к одному обороту",
                         .readOnly = true}};
    TextField greenwichSiderealTime{this,
                                    {.name = "Text26",
                                     .label = "GMST, час",
                                     .hint = "Звездное время в Гринвиче, часов",
                                     .readOnly = true}};
    TextField zoneTime{
        this,
        {.name = "Text27", .hint = "Поясное время, часы, минуты и секунды", .readOnly = true, .width = 18}};
    TextField localMeanTime{this,
                            {.name = "Text30",
                             .hint = "Местное среднее время по долготе наблюдателя, часы, минуты и секунды",
                             .readOnly = true,
                             .width = 18}};
    CheckBox clearBeforeDrawing{this,
                                {.name = "Check3",
                                 .caption = "с очисткой экрана",
                                 .on = true,
                                 .hint = "Стирать рисунок перед каждым показом"}};

    CommandButton takeCoordinates{
        this,
        {.name = "Command6",
         .caption = "Задать координаты",
         .hint = "Рассчитать исходные координаты тела по теории JPL0 или взять с экрана",
         .isDefault = true,
         .disturbs = Disturbs::All}};
    CommandButton convertCoordinates{this,
                                     {.name = "Command7",
                                      .caption = "Преобразовать координаты",
                                      .hint = "Перевести заданное тело в выбранную систему",
                                      .disturbs = Disturbs::All}};
    CommandButton copyResultToSource{
        this,
        {.name = "Command1",
         .caption = "Показать преобразованные координаты в окошках исходных данных",
         .hint = "Скопировать результат в исходные поля"}};
    CommandButton takeAtNextDate{this,
                                 {.name = "Command2",
                                  .caption = "Задать координаты для JD = JD + ",
                                  .hint = "Сдвинуть дату на шаг и задать координаты",
                                  .disturbs = Disturbs::All}};
    CommandButton readAngle{
        this,
        {.name = "Command4", .caption = "Считать угол ", .hint = "Взять угол из полей выбранной единицы"}};
    CommandButton convertAngle{this,
                               {.name = "Command5",
                                .caption = "Преобразовать угол",
                                .hint = "Показать угол в выбранной единице",
                                .disturbs = Disturbs::All}};
    CommandButton angleToLongitude{this,
                                   {.name = "Command12",
                                    .caption = "Задать долготу в град.",
                                    .hint = "Записать угол в исходную долготу"}};
    CommandButton angleToLatitude{
        this,
        {.name = "Command13", .caption = "Задать широту в град.", .hint = "Записать угол в исходную широту"}};
    CommandButton toJulianDate{
        this, {.name = "Command10", .caption = "G->J", .hint = "Юлианская дата из календарной"}};
    CommandButton toCalendarDate{
        this, {.name = "Command11", .caption = "J->G", .hint = "Календарная дата из юлианской"}};
    CommandButton closeForm{this, closingSpec("Command3")};
    ScrollBar drawingScale{this,
                           {.name = "HScroll1",
                            .min = 1,
                            .max = 10000,
                            .value = 300,
                            .hint = "Масштаб рисунка, млн. км в клетке"}};
    Label drawingScaleCaption{
        this, {.name = "Label1", .hint = "Масштаб рисунка; его задает ползунок, млн. км в клетке"}};
    Picture drawing{
        this,
        {.name = "Picture1", .width = 460, .height = 600, .hint = "Внизу плоскость XY, вверху вид сбоку XZ"}};

protected:
    explicit ConverterControls(Desk& desk);

private:
    void layOut();
};

}  // namespace tarvex
