#pragma once
// Form2: the experiment.  It runs the model or an imitator, measures the orbit of one body and keeps its
// records.

#include <map>

#include "forms/laboratory.h"
#include "numeric/experiment_start.h"

namespace tarvex {

class RunForm final : public Form, private RunPort {
public:
    static constexpr const char* formName = "Form2";
    explicit RunForm(Laboratory& lab);

    // --- what is run
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "модель",
                          .group = "kind",
                          .on = true,
                          .hint = "Численно решать уравнения движения отмеченных на форме 1 объектов"}};
    OptionButton Option4{this,
                         {.name = "Option4",
                          .caption = "имитатор",
                          .group = "kind",
                          .hint = "Двигать планеты по теории, уравнения не решаются; массы берутся из теории "
                                  "и остаются после прогона"}};
    OptionButton Option7{this,
                         {.name = "Option7",
                          .caption = "Классика",
                          .group = "law",
                          .on = true,
                          .hint = "Закон Ньютона с показателем nR и поправками на скорость гравитации"}};
    OptionButton Option8{
        this,
        {.name = "Option8",
         .caption = "ОТО",
         .group = "law",
         .hint = "Постньютоновские уравнения; Vgr, DX и давление гравитации в них не участвуют"}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "New0",
                          .group = "theory",
                          .on = true,
                          .hint = "Имитатор по теории New0, равноденствие даты"}};
    OptionButton Option6{
        this,
        {.name = "Option6",
         .caption = "JPL2",
         .group = "theory",
         .hint = "Имитатор по эфемеридам DE405; только вперед, нужны файлы JPL/ascp<год>.405"}};
    OptionButton Option9{this,
                         {.name = "Option9",
                          .caption = "JPL0",
                          .group = "theory",
                          .hint = "Имитатор по теории JPL0, равноденствие J2000"}};
    OptionButton Option1{
        this,
        {.name = "Option1", .caption = "Вперед", .group = "time", .on = true, .hint = "Время идет вперед"}};
    OptionButton Option2{
        this,
        {.name = "Option2",
         .caption = "Назад",
         .group = "time",
         .hint = "Время идет назад: все скорости меняют знак; можно сменить и перед «Продолжить»"}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "эксперимент №",
                     .text = runDefaults().Text8,
                     .hint = "Номер эксперимента NFile в именах файлов, целое число",
                     .width = 6}};
    CheckBox Check13{
        this,
        {.name = "Check13",
         .caption = "Vgr=Vsv *",
         .hint = "Учитывать скорость гравитации; без нее давление гравитации и запаздывание не действуют"}};
    TextField Text35{this,
                     {.name = "Text35",
                      .text = runDefaults().Text35,
                      .hint = "Скорость гравитации Vgr в скоростях света; ноль недопустим и без отметки",
                      .width = 9}};
    TextField Text45{
        this,
        {.name = "Text45",
         .label = "F=G*m*M/R^",
         .text = runDefaults().Text45,
         .hint = "Показатель степени расстояния nR в законе тяготения; в законе Л-В не участвует",
         .width = 6}};

    // --- step
    TextField Text38{this,
                     {.name = "Text38",
                      .label = "Шаг решения, с",
                      .text = runDefaults().Text38,
                      .hint = "Основной шаг решения Dt, секунды",
                      .width = 8}};
    TextField Text39{this,
                     {.name = "Text39",
                      .label = "уменьшить в, раз",
                      .text = runDefaults().Text39,
                      .hint = "Делитель шага kDt у апсид и узлов, целое; 1 - шаг постоянен, так и надо с "
                              "DX3; ноль остановит прогон",
                      .width = 7}};
    TextField Text37{this,
                     {.name = "Text37",
                      .label = "с выводом через",
                      .text = runDefaults().Text37,
                      .hint = "Шагов NC0 между показами; остановка видна при следующем показе",
                      .width = 7}};
    CheckBox Check14{
        this,
        {.name = "Check14",
         .caption = "закончить в",
         .hint = "Кончить прогон с первой датой после этого года; без отметки прогон идет до остановки"}};
    TextField Text40{
        this,
        {.name = "Text40",
         .text = runDefaults().Text40,
         .hint = "Последний год прогона, целое число; планеты за Сатурном за 200 лет записей не дают",
         .width = 7}};
    CheckBox Check17{this,
                     {.name = "Check17",
                      .caption = "Xsol=0",
                      .on = true,
                      .hint = "Солнце в начале координат; без этого элементы видны из уплывающего начала"}};
    CheckBox Check19{
        this,
        {.name = "Check19", .caption = "Xzem=0", .hint = "Земля в начале координат; сильнее отметки Xsol=0"}};
    CheckBox Check18{
        this,
        {.name = "Check18",
         .caption = "Хцм=0",
         .hint = "Центр масс отмеченных объектов в начале координат; сильнее двух других отметок"}};

    // --- measurement
    CheckBox Check4{this,
                    {.name = "Check4",
                     .caption = "Найти показатели планеты №",
                     .hint = "Измерять орбиту и уменьшать шаг у апсид и узлов; без отметки шаг не меняется"}};
    TextField Text13{this,
                     {.name = "Text13",
                      .text = runDefaults().Text13,
                      .hint = "Номер объекта, от 1 до 10; 0 (Солнце) - только без измерения",
                      .width = 4}};
    TextField Text17{this,
                     {.name = "Text17",
                      .label = "при +/- dAlfa, град=",
                      .text = runDefaults().Text17,
                      .hint = "Половина окна апсид и узлов, градусы; больше угла одного шага; с 1 Юпитер "
                              "теряет перигелии, 10 их сохраняет",
                      .width = 6}};
    CheckBox Check22{this,
                     {.name = "Check22",
                      .caption = "+0 обновить",
                      .hint = "Взять начальные значения заново после первых оборотов"}};
    CheckBox Check20{this,
                     {.name = "Check20",
                      .caption = "Записать параметры орбиты в файл",
                      .hint = "Запись при каждой апсиде после второго оборота: Plan<k>/Txt<i>, для "
                              "имитаторов NEW или JPL; файл начинается заново"}};
    CheckBox Check2{this,
                    {.name = "Check2",
                     .caption = "Записать координаты  X, Y, Z",
                     .hint = "Строка в Dat/Tarvex<i>XYZ<N>.txt при каждом показе; файл начинается заново"}};
    CheckBox Check12{this,
                     {.name = "Check12",
                      .caption = "dEsys, dMsys, %",
                      .hint = "Считать энергию и момент количества движения; файл параметров орбиты тогда "
                              "хранит их, а не орбиту"}};
    CheckBox Check21{this,
                     {.name = "Check21",
                      .caption = "текст теста",
                      .hint = "Печатать силы и запаздывания пары N1, N2 и сохранять их для формы 7"}};

    // --- pictures
    CheckBox Check3{this,
                    {.name = "Check3", .caption = "Анимация", .hint = "Рисовать объекты при каждом показе"}};
    CheckBox Check1{
        this, {.name = "Check1", .caption = "Траектории ", .hint = "Не стирать прежние положения объектов"}};
    CheckBox Check5{this, {.name = "Check5", .caption = "X, тыс.км", .hint = "График X, красные точки"}};
    CheckBox Check6{this, {.name = "Check6", .caption = "Y, тыс.км", .hint = "График Y, синие точки"}};
    CheckBox Check7{this, {.name = "Check7", .caption = "Z, тыс.км", .hint = "График Z, зеленые точки"}};
    CheckBox Check8{
        this,
        {.name = "Check8", .caption = "dAlfaP, сек", .hint = "График смещения перигелия, секунды дуги"}};
    CheckBox Check9{
        this, {.name = "Check9", .caption = "dAlfaU, сек", .hint = "График смещения узла, секунды дуги"}};
    CheckBox Check10{
        this,
        {.name = "Check10", .caption = "dBetta, сек", .hint = "График изменения наклона, секунды дуги"}};
    CheckBox Check11{this,
                     {.name = "Check11",
                      .caption = "dEks",
                      .hint = "График изменения эксцентриситета, умножается на масштаб Mx"}};
    CheckBox Check15{
        this,
        {.name = "Check15", .caption = "dRsr,тыс.км", .hint = "График изменения большой полуоси, тыс. км"}};
    CheckBox Check16{
        this,
        {.name = "Check16", .caption = "dPeriod, дни", .hint = "График изменения периода, дни в клетке"}};
    TextField Text5{this,
                    {.name = "Text5",
                     .label = "MdAlfa, сек/см",
                     .text = runDefaults().Text5,
                     .hint = "Масштаб углов на графиках, секунд дуги в клетке",
                     .width = 7}};
    TextField Text9{this,
                    {.name = "Text9",
                     .label = "MT, лет/см",
                     .text = runDefaults().Text9,
                     .hint = "Масштаб времени на графиках, лет в клетке",
                     .width = 7}};
    TextField Text21{
        this,
        {.name = "Text21",
         .label = "Mx, тыс.км/см ",
         .text = runDefaults().Text21,
         .hint = "Масштаб графиков: тыс. км или процентов в клетке; сдвиг эксцентриситета на него умножается",
         .width = 9}};
    TextField Text36{this,
                     {.name = "Text36",
                      .label = "dY, см",
                      .text = runDefaults().Text36,
                      .hint = "Сдвиг графиков вверх, клетки",
                      .width = 6}};
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 540,
                      .height = 594,
                      .background = {0, 0, 0},
                      .hint = "Плоскость эклиптики, вверху вид сбоку; графики от левого края по времени"}};
    Picture Picture2{this,
                     {.name = "Picture2",
                      .width = 190,
                      .height = 190,
                      .background = {0, 0, 0},
                      .hint = "Вид на всю систему от Солнца; щелчок левой кнопкой переносит середину"}};
    Label Label1{this,
                 {.name = "Label1",
                  .caption = "Масштаб орбит = 300 млн. км/см",
                  .hint = "Масштаб орбит на рисунке, млн. км в клетке"}};
    ScrollBar HScroll1{this,
                       {.name = "HScroll1",
                        .min = 1,
                        .max = 10000,
                        .value = 3000,
                        .hint = "Масштаб орбит, от 0,1 до 1000 млн. км в клетке"}};

    // --- commands
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Начать",
                            .hint = "Начать эксперимент с начальных данных формы 1; перед этим там - "
                                    "загрузка и расчет начальных данных",
                            .isDefault = true}};
    CommandButton Command4{this,
                           {.name = "Command4",
                            .caption = "Остановить",
                            .hint = "Остановить прогон при следующем показе и закончить серию плана"}};
    CommandButton Command5{this,
                           {.name = "Command5",
                            .caption = "Продолжить",
                            .hint = "Продолжить с новыми масштабами, шагом и направлением"}};
    CommandButton Command2{
        this,
        {.name = "Command2", .caption = "NC0 шагов", .hint = "Сделать NC0 шагов, показать и остановиться"}};
    CommandButton Command9{this,
                           {.name = "Command9",
                            .caption = "Дополнительные параметры",
                            .hint = "Форма 23: законы действия скорости гравитации"}};
    CommandButton Command7{
        this,
        {.name = "Command7", .caption = "Тест гравитации*", .hint = "Форма 7: силы и запаздывания двух тел"}};
    CommandButton Command3{
        this, {.name = "Command3", .caption = "К статистике", .hint = "Форма 6: вековые смещения элементов"}};
    CommandButton Command10{
        this,
        {.name = "Command10", .caption = "К плану", .hint = "Форма 15: оптимизация скорости гравитации"}};
    CommandButton Command8{this,
                           {.name = "Command8",
                            .caption = "Закрыть форму",
                            .hint = "Закрыть эту форму; идущий прогон кончится"}};
    CommandButton Command6{
        this, {.name = "Command6", .caption = "Выход", .hint = "Закрыть все формы и завершить программу"}};
    TextField Text53{
        this,
        {.name = "Text53", .hint = "Служебное поле: запись в него начинает эксперимент", .hidden = true}};

    // --- results
    TextField Text1{this, result("Text1", " dTmod, лет", "Время модели от начала, лет")};
    TextField Text50{this, result("Text50", "dTreal, час", "Время расчета, часы")};
    TextField Text14{this, result("Text14", "JD=", "Юлианская дата модели", 15)};
    TextField Text44{this, result("Text44", "год", "Дата модели: год", 6)};
    TextField Text43{this, result("Text43", "месяц", "Дата модели: месяц", 3)};
    TextField Text42{this, result("Text42", "день", "Дата модели: день", 9)};
    TextField Text2{this, result("Text2", "долгота, град", "Долгота объекта из выбранного начала, градусы")};
    TextField Text11{this, result("Text11", "X, тыс.км", "Координата X объекта (или центра масс), тыс. км")};
    TextField Text12{this, result("Text12", "Y, тыс.км", "Координата Y объекта (или центра масс), тыс. км")};
    TextField Text30{this, result("Text30", "Z, тыс.км", "Координата Z объекта (или центра масс), тыс. км")};
    TextField Text34{this, result("Text34", "К-во оборотов, шт",
                                  "Пройдено перигелиев; записи начинаются после второго", 6)};
    TextField Text33{this, result("Text33", "год", "Последний восходящий узел: год", 6)};
    TextField Text32{this, result("Text32", "месяц", "Последний восходящий узел: месяц", 3)};
    TextField Text31{this, result("Text31", "день", "Последний восходящий узел: день", 9)};
    TextField Text28{this, result("Text28", "год", "Последний перигелий: год", 6)};
    TextField Text27{this, result("Text27", "месяц", "Последний перигелий: месяц", 3)};
    TextField Text26{this, result("Text26", "день", "Последний перигелий: день", 9)};
    TextField Text3{this, result("Text3", "AlfaP, град", "Перигелий в начале, градусы")};
    TextField Text4{this, result("Text4", "", "Перигелий сейчас, градусы")};
    TextField Text25{this, result("Text25", "", "Смещение перигелия, секунды дуги")};
    TextField Text7{this, result("Text7", "AlfaU, град", "Узел в начале, градусы")};
    TextField Text24{this, result("Text24", "", "Узел сейчас, градусы")};
    TextField Text23{this, result("Text23", "", "Смещение узла, секунды дуги")};
    TextField Text6{this, result("Text6", "Betta, град", "Наклон в начале, градусы")};
    TextField Text22{this, result("Text22", "", "Наклон сейчас, градусы")};
    TextField Text16{this, result("Text16", "", "Изменение наклона, секунды дуги")};
    TextField Text20{this, result("Text20", "Eks", "Эксцентриситет в начале")};
    TextField Text18{this, result("Text18", "", "Эксцентриситет сейчас")};
    TextField Text29{this, result("Text29", "", "Изменение эксцентриситета")};
    TextField Text46{this, result("Text46", "Rsr, тыс.км.", "Большая полуось в начале, тыс. км")};
    TextField Text47{this, result("Text47", "", "Большая полуось сейчас, тыс. км")};
    TextField Text10{this, result("Text10", "", "Изменение большой полуоси, тыс. км")};
    TextField Text48{this, result("Text48", "Period, дни", "Период в начале, дни")};
    TextField Text49{this, result("Text49", "", "Период сейчас, дни")};
    TextField Text15{this, result("Text15", "", "Изменение периода, дни")};
    TextField Text19{this, result("Text19", "dEsys, %", "Изменение энергии системы, проценты")};
    TextField Text41{
        this, result("Text41", "dMKDsys, %", "Изменение момента количества движения системы, проценты")};

    void load() override;
    void activate() override;
    void unload() override;

private:
    static const RunSettings& runDefaults();
    static double clockSeconds();  ///< of the computer
    static TextField::Spec result(const char* name, const char* label, const char* hint, int width = 11);

    void bindCommands();
    void bindBoxes();
    void arrange();
    Layout elementTable();

    // --- commands
    RunSettings settings() const;
    RunBoxes boxes() const;
    void start();
    void resume();
    void runBatch();
    void stop();
    void run();
    void writeTestHead();
    void leaveFor(CommandButton& command, const char* form);
    void closeEphemeris();

    // --- what the run tells (RunPort)
    void passed(const Passage& seen) override;
    void showDate() override;
    void drawBodies() override;
    void showTrack() override;
    void showEnergy() override;
    void testExperiment() override;
    bool giveWay() override;

    // --- showing
    void showStartElements();
    void showShifts();
    void plotShifts();
    void showDebugText();
    void showNotes(const StartNotes& notes);
    void clearPictures();
    void clearView();
    void eraseBodies();
    void drawMarkers();
    void rescale();
    /// A point of a plot whose box is on; a plot that is off never reads its scale.
    void point(bool on, double value, double scale, Color color);
    /// Prints a line on the plot; the line printed before in its place goes.
    void note(int place, double x, double y, const std::string& text);
    double plotX() const;
    double shareDone() const;

    Laboratory& lab;
    std::map<int, std::string> notes_;  ///< lines that stand on the plot, by their place
    double viewX_ = 0, viewY_ = 0;      ///< middle of the second picture, its units
    bool gone_ = false;                 ///< unloaded: the run ends
};

}  // namespace tarvex
