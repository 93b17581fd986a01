#pragma once
// The controls of the parameter screen, Form1, in tab order: date and source, the table of bodies, initial
// data, the orbit check, the commands that open other forms and the picture.

#include <array>
#include <string>

#include "core/model_state.h"
#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class ElementsControls : public Form {
public:
    using Form::Form;

    Label given{this, givenSpec()};

    // --- date and source
    TextField year{this,
                   {.name = "Text34",
                    .label = "год",
                    .text = "1801",
                    .hint = "Год, астрономический счет (год 0 перед годом 1), целое число",
                    .width = 6}};
    TextField month{
        this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц, от 1 до 12", .width = 3}};
    TextField day{this,
                  {.name = "Text32",
                   .label = "день",
                   .text = "1,5",
                   .hint = "День с долями суток; 1,5 - полдень первого числа",
                   .width = 6}};
    CommandButton dateToJulian{
        this,
        {.name = "Command17",
         .caption = "G->J",
         .hint = "Из даты найти юлианскую дату; лишние дни переносятся в следующие месяцы"}};
    CommandButton julianToDate{
        this, {.name = "Command18", .caption = "J->G", .hint = "Из юлианской даты найти год, месяц и день"}};
    TextField julianDate{this,
                         {.name = "Text24", .label = "JD", .hint = "Юлианская дата, сутки", .width = 12}};

    OptionButton fromNew0{this,
                          {.name = "Option4",
                           .caption = "New0 (JD)",
                           .group = "source",
                           .hint = "Теория New0, равноденствие даты"}};
    OptionButton fromJpl0{this,
                          {.name = "Option5",
                           .caption = "JPL0 (J2000)",
                           .group = "source",
                           .hint = "Теория JPL0, равноденствие J2000, элементы линейны по времени"}};
    OptionButton fromSer0{this,
                          {.name = "Option8",
                           .caption = "Ser0 (J2000)",
                           .group = "source",
                           .on = true,
                           .hint = "Теория Ser0, равноденствие J2000; берется всемирное время без ET-UT"}};
    OptionButton fromJpl2{this,
                          {.name = "Option9",
                           .caption = "параметры и данные JPL2 (J2000)",
                           .group = "source",
                           .hint = "Элементы JPL0, а координаты и скорости из эфемерид DE405"}};
    OptionButton fromFile{
        this,
        {.name = "Option6",
         .caption = "параметры и данные из файла",
         .group = "source",
         .hint = "Все из файла Dat/Tarvex<N>.dat, дата тоже; масса Земли без Луны в файле не сохраняется"}};
    OptionButton fromScreen{this,
                            {.name = "Option7",
                             .caption = "параметры или данные с экрана",
                             .group = "source",
                             .hint = "Взять таблицу такой, как она напечатана на экране"}};
    TextField fileNumber{this,
                         {.name = "Text23",
                          .label = "файл №",
                          .text = "1",
                          .hint = "Номер N файла Dat/Tarvex<N>.dat, целое число",
                          .width = 6}};
    CommandButton loadParameters{
        this,
        {.name = "Command3",
         .caption = "Загрузить параметры на",
         .hint = "Заполнить модель из выбранного источника на эту дату; после этого нужна "
                 "команда расчета начальных данных",
         .isDefault = true,
         .disturbs = Disturbs::All}};
    CommandButton saveParameters{
        this,
        {.name = "Command4",
         .caption = "Сохранить данные в файле №",
         .hint = "Записать элементы, координаты и массы в Dat/Tarvex<N>.dat; режим "
                 "Земля-Луна при чтении не восстанавливается, а после JPL2 в строке 10 стоит X(10)"}};

    // --- table of bodies
    OptionButton viewElements{this,
                              {.name = "Option2",
                               .caption = "параметры орбит объектов",
                               .group = "view",
                               .on = true,
                               .hint = "Таблица показывает элементы орбит"}};
    OptionButton viewState{this,
                           {.name = "Option3",
                            .caption = "начальные данные",
                            .group = "view",
                            .hint = "Таблица показывает координаты, скорости и массы"}};
    Label longitudeHeading{this, {.name = "Label1", .hint = "Средняя долгота или координата X"}};
    Label semiAxisHeading{this, {.name = "Label2", .hint = "Большая полуось или координата Y"}};
    Label motionHeading{this, {.name = "Label3", .hint = "Среднее движение или координата Z"}};
    Label eccentricityHeading{this, {.name = "Label4", .hint = "Эксцентриситет или скорость по X"}};
    Label inclinationHeading{this, {.name = "Label5", .hint = "Наклон орбиты или скорость по Y"}};
    Label perihelionHeading{this, {.name = "Label6", .hint = "Долгота перигелия или скорость по Z"}};
    Label nodeHeading{
        this,
        {.name = "Label7", .hint = "Долгота восходящего узла или масса Солнца, деленная на массу объекта"}};
    CheckBoxes inModel{this, 0, 10, bodyTick};
    OptionButtons checkedBody{this, 0, 10, bodyChoice};
    TextFields longitudeOrX{this, 0, 10, cell<1>}, semiAxisOrY{this, 0, 10, cell<2>},
        motionOrZ{this, 0, 10, cell<3>}, eccentricityOrVx{this, 0, 10, cell<4>},
        inclinationOrVy{this, 0, 10, cell<5>}, perihelionOrVz{this, 0, 10, cell<6>},
        nodeOrMass{this, 0, 10, cell<7>};
    TextField sunMass{this,
                      {.name = "Text25",
                       .label = "mSol, кг",
                       .hint = "Масса Солнца, кг; с экрана берется при источнике «с экрана»",
                       .width = 12}};
    TextField gravityConstant{this,
                              {.name = "Text26",
                               .label = "gamma, н*м^2/кг^2",
                               .hint = "Гравитационная постоянная, Н*м^2/кг^2",
                               .width = 12}};
    TextField astronomicalUnit{this,
                               {.name = "Text11",
                                .label = "Lae, км",
                                .hint = "Астрономическая единица, км; каждая теория задает ее заново",
                                .width = 12}};
    TextField showStateTrigger{this,
                               {.name = "Text28",
                                .hint = "Служебное поле: запись в него показывает таблицу координат",
                                .hidden = true}};

    // --- initial data
    CommandButton computeInitialData{this,
                                     {.name = "Command12",
                                      .caption = "Рассчитать по параметрам орбит начальные данные",
                                      .hint = "Координаты и скорости всех объектов из элементов орбит",
                                      .disturbs = Disturbs::All}};
    CheckBox earthAndMoon{
        this,
        {.name = "Check3",
         .caption = "Земля-Луна, Ксена=Луна",
         .hint = "Строка 10 - Луна, строка 3 - Земля без Луны; действует при загрузке и расчете "
                 "начальных данных"}};
    CheckBox bary3{this,
                   {.name = "Check4",
                    .caption = "Bary3",
                    .hint = "Скорости относительно центра масс с Солнцем, Солнце уравновешивает Землю"}};
    CheckBox bary{
        this,
        {.name = "Check6", .caption = "Bary", .hint = "Скорость Луны относительно центра масс Земли и Луны"}};
    CommandButton findCentre{this,
                             {.name = "Command15",
                              .caption = "Найти координаты ЦМ системы",
                              .hint = "Центр масс отмеченных объектов по начальным данным, тыс. км",
                              .disturbs = Disturbs::All}};
    CommandButton moveCentreToOrigin{
        this,
        {.name = "Command2",
         .caption = "ЦМ системы в начало координат",
         .hint = "Сдвинуть все объекты, чтобы центр масс отмеченных стал началом координат",
         .disturbs = Disturbs::All}};
    CommandButton findSunVelocity{
        this,
        {.name = "Command16",
         .caption = "Найти по Vpl скорость Солнца Vsol",
         .hint = "Скорость Солнца, при которой количество движения отмеченных объектов равно нулю",
         .disturbs = Disturbs::All}};
    CheckBox drawCentre{this,
                        {.name = "Check7", .caption = "ЦМ системы", .hint = "Рисовать центр масс крестом"}};

    // --- orbit check
    TextField stepsPerDisplay{
        this,
        {.name = "Text29",
         .label = "NC0, шагов",
         .text = "1000",
         .hint = "Шагов между обновлениями экрана; от него зависит отклик на «Остановить»",
         .width = 7}};
    TextField step{this,
                   {.name = "Text30",
                    .label = "Шаг решения уравнений, с",
                    .text = "3600",
                    .hint = "Шаг решения уравнений, секунды",
                    .width = 7}};
    TextField stepDivider{this,
                          {.name = "Text31",
                           .label = "делитель шага",
                           .text = "100",
                           .hint = "Во сколько раз уменьшается шаг возле перигелия и узла",
                           .width = 7}};
    TextField windowDegrees{this,
                            {.name = "Text10",
                             .label = "+/-dAlfa, град",
                             .text = "1",
                             .hint = "Половина окна, в котором ищут перигелий и узел, градусы",
                             .width = 7}};
    CheckBox exactPassages{this,
                           {.name = "ExactPassages",
                            .caption = "точные прохождения",
                            .hint = "Находить перигелий и узел внутри шага до последнего знака: шаг "
                                    "постоянен, окна и делитель не нужны"}};
    CheckBox keepTrajectory{
        this, {.name = "Check1", .caption = "траектории", .hint = "Не стирать пройденный путь на рисунке"}};
    CheckBox relativeToCentre{
        this,
        {.name = "Check5", .caption = "относительно ЦМ", .hint = "Углы измеряются от центра масс пары"}};
    CommandButton checkOrbit{this,
                             {.name = "Command13",
                              .caption = "Проверить параметры орбиты и ошибку их определения",
                              .hint = "Решить задачу двух тел от начальных данных и измерить орбиту",
                              .disturbs = Disturbs::All}};
    CommandButton stopCheck{
        this, {.name = "Command5", .caption = "Остановить", .hint = "Остановить проверку орбиты"}};
    CommandButton continueCheck{this,
                                {.name = "Command6",
                                 .caption = "Продолжить ",
                                 .hint = "Продолжить проверку с того же места",
                                 .disturbs = Disturbs::All}};
    CommandButton checkSteps{this,
                             {.name = "Command7",
                              .caption = "сделать NC0 шагов",
                              .hint = "Сделать NC0 шагов проверки и остановиться",
                              .disturbs = Disturbs::All}};
    Label referencePeriod{this, {.name = "Label13", .hint = "Период обращения по справочнику, дни"}};
    TextField period{this, result("Text13", "T, дни", "Измеренный период обращения, дни")};
    TextField eccentricity{this, result("Text14", "Eks", "Измеренный эксцентриситет")};
    TextField meanSpeed{this, result("Text15", "Vsr, м/с", "Средняя скорость, м/с")};
    TextField meanRadius{this, result("Text16", "Rsr, тыс.км", "Средний радиус орбиты, тыс. км")};
    TextField perihelion{this, result("Text21", "AlfaP, град", "Долгота перигелия, градусы")};
    TextField perihelionShift{this,
                              result("Text8", "dAlfaP, сек", "Сдвиг перигелия от начального, секунды дуги")};
    TextField node{this, result("Text35", "AlfaU, град", "Долгота восходящего узла, градусы")};
    TextField nodeShift{this, result("Text12", "dAlfaU, сек", "Сдвиг узла от начального, секунды дуги")};
    TextField meanMotion{this, result("Text27", "Wsr, рад/год", "Измеренное среднее движение, рад/год")};
    TextField meanMotionPeriod{this, result("Text22", "2*pi*R0sr/V0sr=", "Период по среднему движению, дни")};
    TextField inclination{this, result("Text36", "Betta, град", "Наибольшая широта, наклон орбиты, градусы")};
    TextField longitude{this, result("Text37", "долгота, град", "Долгота планеты сейчас, градусы")};
    TextField greatestDistance{
        this, result("Text17", "Rmax (Xцм), тыс.км",
                     "Наибольшее расстояние; после команд центра масс - его координата X, тыс. км")};
    TextField leastDistance{
        this, result("Text18", "Rmin (Yцм), тыс.км",
                     "Наименьшее расстояние; после команд центра масс - его координата Y, тыс. км")};
    TextField greatestSpeed{
        this, result("Text19", "Vmax, м/с (Zцм)",
                     "Наибольшая скорость, м/с; после команд центра масс - его координата Z, тыс. км")};
    TextField leastSpeed{this, result("Text20", "Vmin, м/с", "Наименьшая скорость, м/с")};
    TextField checkTime{this, result("Text40", "dT, лет", "Время от начала проверки, лет")};
    TextField energyShift{this, result("Text9", "dEsys, %", "Изменение энергии пары, проценты")};

    // --- other forms
    CommandButton openRun{
        this,
        {.name = "Command1",
         .caption = "К моделированию",
         .hint =
             "Передать элементы модели и открыть форму 2; перед этим - загрузка и расчет начальных данных"}};
    CommandButton openObservations{this,
                                   {.name = "Command20",
                                    .caption = "К наблюдениям",
                                    .hint = "Форма 10: сравнение теории с таблицами и наблюдениями"}};
    CommandButton openSystemVelocity{this,
                                     {.name = "Command10",
                                      .caption = "Скорость системы* ",
                                      .hint = "Форма 4: скорость Солнечной системы как целого"}};
    CommandButton openNotation{
        this,
        {.name = "Command11", .caption = "Обозначения*", .hint = "Форма 5: система координат и обозначения"}};
    CommandButton openHelp{
        this,
        {.name = "Command8", .caption = "About*", .hint = "Форма 3: подсказка по всем формам и кнопкам"}};
    CommandButton openEclipses{this,
                               {.name = "Command19",
                                .caption = "ET-UT*",
                                .hint = "Форма 16: затмения, часы ET и UT; формулы ET-UT - на форме 17"}};
    CommandButton openPlanWorkshop{
        this,
        {.name = "Command21", .caption = "Планы*", .hint = "Форма 18: планы многофакторных экспериментов"}};
    CommandButton openConverter{
        this, {.name = "Command22", .caption = "Координаты*", .hint = "Форма 12: пересчет координат"}};
    CommandButton openEccentric{
        this, {.name = "Command23", .caption = "Эллипс*", .hint = "Форма 14: эллипс, эксцентр и эквант"}};
    CommandButton openAberration{
        this, {.name = "Command24", .caption = "Аберрация*", .hint = "Форма 11: составные части аберрации"}};
    CommandButton openMoon{this,
                           {.name = "Command25",
                            .caption = "Bary - Geo*",
                            .hint = "Форма 20: барицентрические начальные данные Земли и Луны"}};
    CommandButton openEphemeris{
        this, {.name = "Command26", .caption = "JPL (DE405)*", .hint = "Форма 24: проверка эфемерид DE405"}};
    CommandButton openTwoBodies{this,
                                {.name = "Command27",
                                 .caption = "2-а тела*",
                                 .hint = "Форма 25: задача двух тел с конечной скоростью гравитации"}};
    CommandButton exitProgram{this,
                              {.name = "Command9",
                               .caption = "Выход",
                               .hint = "Закрыть все формы и завершить программу",
                               .disturbs = Disturbs::All}};

    // --- picture
    Picture orbitPicture{this,
                         {.name = "Picture1",
                          .width = 400,
                          .height = 440,
                          .background = {0, 0, 0},
                          .hint = "Плоскость эклиптики и, вверху, вид сбоку"}};
    Label scaleLabel{this, {.name = "Label10", .hint = "Масштаб рисунка, млн. км в клетке"}};
    ScrollBar scale{this,
                    {.name = "HScroll1",
                     .min = 1,
                     .max = 10000,
                     .value = 3000,
                     .hint = "Масштаб рисунка, от 0,1 до 1000 млн. км в клетке"}};

private:
    static constexpr std::array bodyNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                             "Сатурн", "Уран",     "Нептун", "Плутон", "Ксена"};

    /// A field that only shows.
    static TextField::Spec result(const char* name, const char* label, const char* hint) {
        return {.name = name, .label = label, .hint = hint, .readOnly = true, .width = 11};
    }

    /// Whether a body takes part in the model.
    static CheckBox::Spec bodyTick(int i) {
        return {.name = "Check2",
                .caption = bodyNames[i],
                .on = i < rowXena,
                .hint = "Объект участвует в модели и в сумме центра масс"};
    }

    /// The body whose orbit is checked.
    static OptionButton::Spec bodyChoice(int i) {
        return {.name = "Option1",
                .caption = bodyNames[i],
                .group = "body",
                .on = i == 1,
                .hint = "Объект, орбиту которого проверяют"};
    }

    /// A cell of the table: its column from 1.
    template <int column>
    static TextField::Spec cell(int) {
        static constexpr std::array hints = {"Средняя долгота, градусы, или X, тыс. км",
                                             "Большая полуось или Y, тыс. км",
                                             "Среднее движение, рад/год, или Z, тыс. км",
                                             "Эксцентриситет или VX, м/с",
                                             "Наклон орбиты, градусы, или VY, м/с",
                                             "Долгота перигелия, градусы, или VZ, м/с",
                                             "Долгота узла, градусы, или масса Солнца / масса объекта"};
        return {.name = "Text" + std::to_string(column),
                .hint = std::string(hints[column - 1]) + "; с экрана берется командой загрузки",
                .width = column == 2 ? 13 : 12};  // semi-axes of the outer planets are the longest numbers
    }
};

}  // namespace tarvex
