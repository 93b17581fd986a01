#pragma once
// The controls of the experiment screen, Form2, in tab order: what is run, how it steps, what is measured and
// written, what is drawn, the commands and the results.

#include "forms/shared_controls.h"
#include "numeric/run_settings.h"
#include "runtime/form.h"

namespace tarvex {

class RunControls : public Form {
public:
    using Form::Form;

    Label given{this, givenSpec()};

    // --- what is run
    OptionButton model{this,
                       {.name = "Option3",
                        .caption = "модель",
                        .group = "kind",
                        .on = true,
                        .hint = "Численно решать уравнения движения отмеченных на форме 1 объектов"}};
    OptionButton imitator{
        this,
        {.name = "Option4",
         .caption = "имитатор",
         .group = "kind",
         .hint = "Двигать планеты по теории, уравнения не решаются; массы берутся из теории "
                 "и остаются после прогона"}};
    OptionButton classical{this,
                           {.name = "Option7",
                            .caption = "Классика",
                            .group = "law",
                            .on = true,
                            .hint = "Закон Ньютона с показателем nR и поправками на скорость гравитации"}};
    OptionButton relativistic{
        this,
        {.name = "Option8",
         .caption = "ОТО",
         .group = "law",
         .hint = "Постньютоновские уравнения; Vgr, DX и давление гравитации в них не участвуют"}};
    OptionButton theoryNew0{this,
                            {.name = "Option5",
                             .caption = "New0",
                             .group = "theory",
                             .on = true,
                             .hint = "Имитатор по теории New0, равноденствие даты"}};
    OptionButton theoryJpl2{
        this,
        {.name = "Option6",
         .caption = "JPL2",
         .group = "theory",
         .hint = "Имитатор по эфемеридам DE405; только вперед, нужны файлы JPL/ascp<год>.405"}};
    OptionButton theoryJpl0{this,
                            {.name = "Option9",
                             .caption = "JPL0",
                             .group = "theory",
                             .hint = "Имитатор по теории JPL0, равноденствие J2000"}};
    OptionButton forward{
        this,
        {.name = "Option1", .caption = "Вперед", .group = "time", .on = true, .hint = "Время идет вперед"}};
    OptionButton backward{this,
                          {.name = "Option2",
                           .caption = "Назад",
                           .group = "time",
                           .hint = "Время идет назад: все скорости меняют знак; можно сменить и перед "
                                   "«Продолжить»; измерить орбиту так нельзя"}};
    TextField experimentNumber{this,
                               {.name = "Text8",
                                .label = "эксперимент №",
                                .text = runDefaults().experiment.text(),
                                .hint = "Номер эксперимента NFile в именах файлов, целое число",
                                .width = 6}};
    CheckBox useGravitySpeed{
        this,
        {.name = "Check13",
         .caption = "Vgr=Vsv *",
         .hint = "Учитывать скорость гравитации; без нее давление гравитации и запаздывание не действуют"}};
    TextField gravitySpeed{
        this,
        {.name = "Text35",
         .text = runDefaults().gravitySpeed.text(),
         .hint = "Скорость гравитации Vgr в скоростях света; ноль недопустим и без отметки",
         .width = 9}};
    TextField distanceExponent{
        this,
        {.name = "Text45",
         .label = "F=G*m*M/R^",
         .text = runDefaults().distanceExponent.text(),
         .hint = "Показатель степени расстояния nR в законе тяготения; в законе Л-В не участвует",
         .width = 6}};

    // --- step
    TextField step{this,
                   {.name = "Text38",
                    .label = "Шаг решения, с",
                    .text = runDefaults().step.text(),
                    .hint = "Основной шаг решения Dt, секунды",
                    .width = 8}};
    TextField stepDivider{
        this,
        {.name = "Text39",
         .label = "уменьшить в, раз",
         .text = runDefaults().stepDivider.text(),
         .hint = "Делитель шага kDt у апсид и узлов, целое; 1 - шаг постоянен, так и надо с "
                 "DX3; ноль остановит прогон",
         .width = 7}};
    TextField stepsPerDisplay{this,
                              {.name = "Text37",
                               .label = "с выводом через",
                               .text = runDefaults().stepsPerDisplay.text(),
                               .hint = "Шагов NC0 между показами; остановка видна при следующем показе",
                               .width = 7}};
    CheckBox endAtYear{
        this,
        {.name = "Check14",
         .caption = "закончить в",
         .hint = "Кончить прогон с первой датой после этого года; без отметки прогон идет до остановки"}};
    TextField lastYear{
        this,
        {.name = "Text40",
         .text = runDefaults().lastYear.text(),
         .hint = "Последний год прогона, целое число; планеты за Сатурном за 200 лет записей не дают",
         .width = 7}};
    CheckBox originSun{this,
                       {.name = "Check17",
                        .caption = "Xsol=0",
                        .on = true,
                        .hint = "Солнце в начале координат; без этого элементы видны из уплывающего начала"}};
    CheckBox originEarth{
        this,
        {.name = "Check19", .caption = "Xzem=0", .hint = "Земля в начале координат; сильнее отметки Xsol=0"}};
    CheckBox originCentre{
        this,
        {.name = "Check18",
         .caption = "Хцм=0",
         .hint = "Центр масс отмеченных объектов в начале координат; сильнее двух других отметок"}};

    // --- measurement
    CheckBox measureOrbit{
        this,
        {.name = "Check4",
         .caption = "Найти показатели планеты №",
         .hint = "Измерять орбиту и уменьшать шаг у апсид и узлов; без отметки шаг не меняется"}};
    TextField bodyNumber{this,
                         {.name = "Text13",
                          .text = runDefaults().body.text(),
                          .hint = "Номер объекта, от 1 до 10; 0 (Солнце) - только без измерения",
                          .width = 4}};
    TextField windowDegrees{
        this,
        {.name = "Text17",
         .label = "при +/- dAlfa, град=",
         .text = runDefaults().windowDegrees.text(),
         .hint = "Половина окна апсид и узлов, градусы; больше угла одного шага; с 1 Юпитер "
                 "теряет перигелии, 10 их сохраняет",
         .width = 6}};
    CheckBox renewBaselines{this,
                            {.name = "Check22",
                             .caption = "+0 обновить",
                             .hint = "Взять начальные значения заново после первых оборотов"}};
    CheckBox exactPassages{
        this,
        {.name = "ExactPassages",
         .caption = "точные прохождения",
         .hint = "Апсиды, узлы и обороты находить внутри шага до последнего знака: окна и делитель шага не "
                 "нужны; и назад, со следующего «Начать»"}};
    CheckBox highOrder{this,
                       {.name = "HighOrder",
                        .caption = "высокий порядок",
                        .hint = "Решать методом 8-го порядка с постоянным шагом, сутки и больше (86400 с): "
                                "Классика без Vgr и ОТО; прохождения точные"}};
    CheckBox writeRecords{this,
                          {.name = "Check20",
                           .caption = "Записать параметры орбиты в файл",
                           .hint = "Запись при каждой апсиде после второго оборота: Plan<k>/Txt<i>, для "
                                   "имитаторов NEW или JPL; файл начинается заново"}};
    CheckBox writeTrack{this,
                        {.name = "Check2",
                         .caption = "Записать координаты  X, Y, Z",
                         .hint = "Строка в Dat/Tarvex<i>XYZ<N>.txt при каждом показе; файл начинается "
                                 "заново; Rpl в ней - только с измерением"}};
    CheckBox watchEnergy{
        this,
        {.name = "Check12",
         .caption = "dEsys, dMsys, %",
         .hint = "Считать энергию и момент количества движения; файл параметров орбиты тогда "
                 "хранит их, а не орбиту"}};
    CheckBox debugText{this,
                       {.name = "Check21",
                        .caption = "текст теста",
                        .hint = "Печатать силы и запаздывания пары N1, N2 и сохранять их для формы 7"}};

    // --- pictures
    CheckBox animation{
        this, {.name = "Check3", .caption = "Анимация", .hint = "Рисовать объекты при каждом показе"}};
    CheckBox keepTrajectories{
        this, {.name = "Check1", .caption = "Траектории ", .hint = "Не стирать прежние положения объектов"}};
    CheckBox drawX{this, {.name = "Check5", .caption = "X, тыс.км", .hint = "График X, красные точки"}};
    CheckBox drawY{this, {.name = "Check6", .caption = "Y, тыс.км", .hint = "График Y, синие точки"}};
    CheckBox drawZ{this, {.name = "Check7", .caption = "Z, тыс.км", .hint = "График Z, зеленые точки"}};
    CheckBox drawPerihelion{
        this,
        {.name = "Check8", .caption = "dAlfaP, сек", .hint = "График смещения перигелия, секунды дуги"}};
    CheckBox drawNode{
        this, {.name = "Check9", .caption = "dAlfaU, сек", .hint = "График смещения узла, секунды дуги"}};
    CheckBox drawInclination{
        this,
        {.name = "Check10", .caption = "dBetta, сек", .hint = "График изменения наклона, секунды дуги"}};
    CheckBox drawEccentricity{this,
                              {.name = "Check11",
                               .caption = "dEks",
                               .hint = "График изменения эксцентриситета, умножается на масштаб Mx"}};
    CheckBox drawSemiAxis{
        this,
        {.name = "Check15", .caption = "dRsr,тыс.км", .hint = "График изменения большой полуоси, тыс. км"}};
    CheckBox drawPeriod{
        this,
        {.name = "Check16", .caption = "dPeriod, дни", .hint = "График изменения периода, дни в клетке"}};
    TextField angleScale{this,
                         {.name = "Text5",
                          .label = "MdAlfa, сек/см",
                          .text = runDefaults().angleScale.text(),
                          .hint = "Масштаб углов на графиках, секунд дуги в клетке",
                          .width = 7}};
    TextField timeScale{this,
                        {.name = "Text9",
                         .label = "MT, лет/см",
                         .text = runDefaults().timeScale.text(),
                         .hint = "Масштаб времени на графиках, лет в клетке",
                         .width = 7}};
    TextField plotScale{
        this,
        {.name = "Text21",
         .label = "Mx, тыс.км/см ",
         .text = runDefaults().plotScale.text(),
         .hint = "Масштаб графиков: тыс. км или процентов в клетке; сдвиг эксцентриситета на него умножается",
         .width = 9}};
    TextField plotShift{this,
                        {.name = "Text36",
                         .label = "dY, см",
                         .text = runDefaults().plotShift.text(),
                         .hint = "Сдвиг графиков вверх, клетки",
                         .width = 6}};
    Picture orbitPicture{
        this,
        {.name = "Picture1",
         .width = 540,
         .height = 594,
         .background = {0, 0, 0},
         .hint = "Плоскость эклиптики, вверху вид сбоку; графики от левого края по времени"}};
    Picture systemView{this,
                       {.name = "Picture2",
                        .width = 190,
                        .height = 190,
                        .background = {0, 0, 0},
                        .hint = "Вид на всю систему от Солнца; щелчок левой кнопкой переносит середину"}};
    Label orbitScaleLabel{this,
                          {.name = "Label1",
                           .caption = "Масштаб орбит = 300 млн. км/см",
                           .hint = "Масштаб орбит на рисунке, млн. км в клетке"}};
    ScrollBar orbitScale{this,
                         {.name = "HScroll1",
                          .min = 1,
                          .max = 10000,
                          .value = 3000,
                          .hint = "Масштаб орбит, от 0,1 до 1000 млн. км в клетке"}};

    // --- commands
    CommandButton startRun{this,
                           {.name = "Command1",
                            .caption = "Начать",
                            .hint = "Начать эксперимент с начальных данных формы 1; перед этим там - "
                                    "загрузка и расчет начальных данных",
                            .isDefault = true,
                            .disturbs = Disturbs::All}};
    CommandButton stopRun{this,
                          {.name = "Command4",
                           .caption = "Остановить",
                           .hint = "Остановить прогон при следующем показе и закончить серию плана"}};
    CommandButton continueRun{this,
                              {.name = "Command5",
                               .caption = "Продолжить",
                               .hint = "Продолжить с новыми масштабами, шагом и направлением",
                               .disturbs = Disturbs::All}};
    CommandButton runSteps{this,
                           {.name = "Command2",
                            .caption = "NC0 шагов",
                            .hint = "Сделать NC0 шагов, показать и остановиться",
                            .disturbs = Disturbs::All}};
    CommandButton openLaws{this,
                           {.name = "Command9",
                            .caption = "Дополнительные параметры",
                            .hint = "Форма 23: законы действия скорости гравитации"}};
    CommandButton openGravityBench{
        this,
        {.name = "Command7", .caption = "Тест гравитации*", .hint = "Форма 7: силы и запаздывания двух тел"}};
    CommandButton openStatistics{
        this, {.name = "Command3", .caption = "К статистике", .hint = "Форма 6: вековые смещения элементов"}};
    CommandButton openPlan{
        this,
        {.name = "Command10", .caption = "К плану", .hint = "Форма 15: оптимизация скорости гравитации"}};
    CommandButton closeForm{this,
                            {.name = "Command8",
                             .caption = "Закрыть форму",
                             .hint = "Закрыть эту форму; идущий прогон кончится",
                             .disturbs = Disturbs::Own}};
    CommandButton exitProgram{this,
                              {.name = "Command6",
                               .caption = "Выход",
                               .hint = "Закрыть все формы и завершить программу",
                               .disturbs = Disturbs::All}};
    TextField startTrigger{
        this,
        {.name = "Text53", .hint = "Служебное поле: запись в него начинает эксперимент", .hidden = true}};

    // --- results
    TextField modelTime{this, result("Text1", " dTmod, лет", "Время модели от начала, лет")};
    TextField realTime{this, result("Text50", "dTreal, час", "Время расчета, часы")};
    TextField julianDate{this, result("Text14", "JD=", "Юлианская дата модели", 15)};
    TextField year{this, result("Text44", "год", "Дата модели: год", 6)};
    TextField month{this, result("Text43", "месяц", "Дата модели: месяц", 3)};
    TextField day{this, result("Text42", "день", "Дата модели: день", 9)};
    TextField longitude{this,
                        result("Text2", "долгота, град", "Долгота объекта из выбранного начала, градусы")};
    TextField bodyX{this, result("Text11", "X, тыс.км", "Координата X объекта (или центра масс), тыс. км")};
    TextField bodyY{this, result("Text12", "Y, тыс.км", "Координата Y объекта (или центра масс), тыс. км")};
    TextField bodyZ{this, result("Text30", "Z, тыс.км", "Координата Z объекта (или центра масс), тыс. км")};
    TextField turns{this, result("Text34", "К-во оборотов, шт",
                                 "Пройдено перигелиев; записи начинаются после второго", 6)};
    TextField nodeYear{this, result("Text33", "год", "Последний восходящий узел: год", 6)};
    TextField nodeMonth{this, result("Text32", "месяц", "Последний восходящий узел: месяц", 3)};
    TextField nodeDay{this, result("Text31", "день", "Последний восходящий узел: день", 9)};
    TextField perihelionYear{this, result("Text28", "год", "Последний перигелий: год", 6)};
    TextField perihelionMonth{this, result("Text27", "месяц", "Последний перигелий: месяц", 3)};
    TextField perihelionDay{this, result("Text26", "день", "Последний перигелий: день", 9)};
    TextField perihelionStart{this, result("Text3", "AlfaP, град", "Перигелий в начале, градусы")};
    TextField perihelionNow{this, result("Text4", "", "Перигелий сейчас, градусы")};
    TextField perihelionShift{this, result("Text25", "", "Смещение перигелия, секунды дуги")};
    TextField nodeStart{this, result("Text7", "AlfaU, град", "Узел в начале, градусы")};
    TextField nodeNow{this, result("Text24", "", "Узел сейчас, градусы")};
    TextField nodeShift{this, result("Text23", "", "Смещение узла, секунды дуги")};
    TextField inclinationStart{this, result("Text6", "Betta, град", "Наклон в начале, градусы")};
    TextField inclinationNow{this, result("Text22", "", "Наклон сейчас, градусы")};
    TextField inclinationShift{this, result("Text16", "", "Изменение наклона, секунды дуги")};
    TextField eccentricityStart{this, result("Text20", "Eks", "Эксцентриситет в начале")};
    TextField eccentricityNow{this, result("Text18", "", "Эксцентриситет сейчас")};
    TextField eccentricityShift{this, result("Text29", "", "Изменение эксцентриситета")};
    TextField semiAxisStart{this, result("Text46", "Rsr, тыс.км.", "Большая полуось в начале, тыс. км")};
    TextField semiAxisNow{this, result("Text47", "", "Большая полуось сейчас, тыс. км")};
    TextField semiAxisShift{this, result("Text10", "", "Изменение большой полуоси, тыс. км")};
    TextField periodStart{this, result("Text48", "Period, дни", "Период в начале, дни")};
    TextField periodNow{this, result("Text49", "", "Период сейчас, дни")};
    TextField periodShift{this, result("Text15", "", "Изменение периода, дни")};
    TextField energyShift{this, result("Text19", "dEsys, %", "Изменение энергии системы, проценты")};
    TextField momentumShift{
        this, result("Text41", "dMKDsys, %", "Изменение момента количества движения системы, проценты")};

protected:
    /// What the fields hold at first.
    static const RunSettings& runDefaults() {
        static const RunSettings defaults;
        return defaults;
    }

private:
    /// A field that only shows; its width in characters.
    static TextField::Spec result(const char* name, const char* label, const char* hint, int width = 11) {
        return {.name = name, .label = label, .hint = hint, .readOnly = true, .width = width};
    }
};

}  // namespace tarvex
