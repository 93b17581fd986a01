#pragma once
// Form25: the problem of two bodies with the speed of gravity.

#include "forms/laboratory.h"

namespace tarvex {

class TwoBodiesForm final : public Form, private TwoBodyPort {
public:
    static constexpr const char* formName = "Form25";
    explicit TwoBodiesForm(Laboratory& lab);

    TextField Text1{this,
                    {.name = "Text1",
                     .label = "AlfaL1, град",
                     .text = "0",
                     .hint = "Средняя долгота m1, градусы; идет в AlfaL(11)"}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "Eks1 =",
                     .text = "0,055",
                     .hint = "Эксцентриситет орбиты m1; идет в Eks0(11)"}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "AlfaP1, град",
                     .text = "180",
                     .hint = "Долгота периастра, градусы; идет в AlfaP0(11)"}};
    TextField Text9{this,
                    {.name = "Text9",
                     .label = "AlfaU1, град",
                     .text = "270",
                     .hint = "Долгота восходящего узла, градусы; идет в AlfaU0(11)"}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "R1, тыс.км.",
                      .text = "384,4",
                      .hint = "Большая полуось, тыс. км; идет в R0sr(11)",
                      .width = 13}};
    TextField Text37{this,
                     {.name = "Text37",
                      .label = "Betta1 ,град",
                      .text = "0",
                      .hint = "Наклон орбиты, градусы; идет в Betta0(11)",
                      .width = 13}};
    TextField Text4{this,
                    {.name = "Text4",
                     .label = "m1/ Msol",
                     .text = "3,694E-8",
                     .hint = "Масса m1 в долях массы Солнца; идет в km(11)",
                     .width = 13}};
    TextField Text5{this,
                    {.name = "Text5",
                     .label = "m2/ Msol",
                     .text = "3,004E-6",
                     .hint = "Масса m2 в долях массы Солнца; идет в km(13)",
                     .width = 13}};
    TextField Text12{this,
                     {.name = "Text12",
                      .label = "по теории Ser0 для планеты №",
                      .text = "11",
                      .hint = "Номер тела, элементы которого дает теория Ser0: 1-9 планеты, 11 Луна",
                      .width = 4}};
    TextField Text2{this,
                    {.name = "Text2",
                     .label = "файл №",
                     .text = "1913",
                     .hint = "Номер файла пульсара Dat\\Pulsar<N>.dat",
                     .width = 6}};
    OptionButton Option11{this,
                          {.name = "Option11",
                           .caption = "из файла",
                           .group = "source",
                           .hint = "Загружать параметры из файла пульсара"}};
    OptionButton Option12{this,
                          {.name = "Option12",
                           .caption = "по теории",
                           .group = "source",
                           .on = true,
                           .hint = "Загружать параметры на 1801 год по теории Ser0"}};
    CheckBox Check12{this,
                     {.name = "Check12",
                      .caption = "kodBary=2",
                      .hint = "Элементы относятся к центру масс пары, а не к m2: kodBary = 2"}};
    TextField Text22{this,
                     {.name = "Text22",
                      .label = "с шагом, сек",
                      .text = "60",
                      .hint = "Шаг решения вне окон Dt, с",
                      .width = 10}};
    TextField Text23{this,
                     {.name = "Text23",
                      .label = "делитель шага",
                      .text = "100",
                      .hint = "Во сколько раз шаг уменьшается в окнах периастра и узла, kDt",
                      .width = 10}};
    TextField Text36{this,
                     {.name = "Text36",
                      .label = "данные выводить через, шагов",
                      .text = "100",
                      .hint = "Через сколько шагов показывать, рисовать и останавливаться, NC0",
                      .width = 10}};
    TextField Text24{this,
                     {.name = "Text24",
                      .label = "поиск в интервале +/- dAlfa, град=",
                      .text = "1",
                      .hint = "Полуширина окон периастра и узла, градусы",
                      .width = 10}};
    TextField Text21{this,
                     {.name = "Text21",
                      .label = "Vgr = Vsv * ",
                      .text = "1",
                      .hint = "Vgr в скоростях света; берется при начале и продолжении решения",
                      .width = 10}};
    TextField Text31{this,
                     {.name = "Text31",
                      .label = "VXsys, км/с",
                      .text = "0",
                      .hint = "Скорость системы по оси X, км/с; идет в VXsys",
                      .width = 10}};
    TextField Text32{this,
                     {.name = "Text32",
                      .label = "VYsys, км/с",
                      .text = "0",
                      .hint = "Скорость системы по оси Y, км/с; идет в VYsys",
                      .width = 10}};
    TextField Text6{this,
                    {.name = "Text6",
                     .label = "MT, дни /см",
                     .text = "365,25",
                     .hint = "Масштаб времени графиков, дней в клетке; масштабы берутся при начале",
                     .width = 8}};
    CheckBox Check5{this, {.name = "Check5", .caption = "dEks1  /", .hint = "Чертить сдвиг эксцентриситета"}};
    TextField Text43{
        this,
        {.name = "Text43", .text = "0,001", .hint = "Масштаб сдвига эксцентриситета в клетке", .width = 8}};
    CheckBox Check6{this, {.name = "Check6", .caption = "dAlfaP1 /", .hint = "Чертить сдвиг периастра"}};
    TextField Text44{
        this,
        {.name = "Text44", .text = "0,1", .hint = "Масштаб сдвига периастра, градусов в клетке", .width = 8}};
    CheckBox Check7{this, {.name = "Check7", .caption = "dR1  /", .hint = "Чертить сдвиг полуоси"}};
    TextField Text45{
        this,
        {.name = "Text45", .text = "10", .hint = "Масштаб сдвига полуоси, тыс. км в клетке", .width = 8}};
    CheckBox Check8{this, {.name = "Check8", .caption = "dP1  /", .hint = "Чертить сдвиг периода"}};
    TextField Text46{
        this, {.name = "Text46", .text = "1000", .hint = "Масштаб сдвига периода, с в клетке", .width = 8}};
    TextField Text3{this,
                    {.name = "Text3",
                     .label = "Ft, Н",
                     .text = "1E+18",
                     .hint = "Сила вдоль скорости m1 при выборе \"с экрана\", Н"}};
    CheckBox Check1{
        this, {.name = "Check1", .caption = "от ЦМ", .hint = "Долготы считать от центра масс, а не от m2"}};
    CheckBox Check9{this,
                    {.name = "Check9",
                     .caption = "Ft1 определять по V2",
                     .hint = "Силу на тело определять по скорости другого тела"}};
    CheckBox Check2{this,
                    {.name = "Check2", .caption = "+ Ft2", .hint = "Сила вдоль скорости действует и на m2"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "численно",
                          .group = "ft",
                          .on = true,
                          .hint = "Сила возникает сама из запаздывания положений"}};
    OptionButton Option4{this,
                         {.name = "Option4",
                          .caption = "аналитически",
                          .group = "ft",
                          .hint = "Силу брать по формуле Ft = V * F / Vgr"}};
    OptionButton Option5{
        this, {.name = "Option5", .caption = "с экрана", .group = "ft", .hint = "Силу брать из поля Ft, Н"}};
    OptionButton Option9{this,
                         {.name = "Option9",
                          .caption = "начать",
                          .group = "window",
                          .hint = "С этого мгновения действует скорость гравитации"}};
    OptionButton Option10{
        this,
        {.name = "Option10",
         .caption = "закончить",
         .group = "window",
         .on = true,
         .hint = "Прекратить действие скорости гравитации и напечатать скорости изменения орбиты"}};
    CheckBox Check10{this,
                     {.name = "Check10",
                      .caption = "+0",
                      .hint = "При начале действия и на втором обороте взять начальные значения заново"}};
    OptionButton Option1{
        this,
        {.name = "Option1", .caption = "m1 от ЦМ", .group = "show", .hint = "Показывать m1 от центра масс"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "m1 от 0",
                          .group = "show",
                          .on = true,
                          .hint = "Показывать m1 от начала координат"}};
    OptionButton Option6{
        this, {.name = "Option6", .caption = " m1 от m2", .group = "show", .hint = "Показывать m1 от m2"}};
    OptionButton Option7{this,
                         {.name = "Option7",
                          .caption = "m1 и m2 от ЦМ",
                          .group = "show",
                          .hint = "Показывать оба тела от центра масс"}};
    OptionButton Option8{this,
                         {.name = "Option8",
                          .caption = "m1 и m2 от 0",
                          .group = "show",
                          .hint = "Показывать оба тела от начала координат"}};
    CheckBox Check3{this, {.name = "Check3", .caption = "+ траектории", .hint = "Не стирать следы"}};
    CheckBox Check4{this,
                    {.name = "Check4", .caption = "+ ЦМ системы", .hint = "Рисовать крест в центре масс"}};

    TextField Text25{this,
                     {.name = "Text25", .label = "T, лет", .hint = "Время от начала, лет", .readOnly = true}};
    TextField Text51{
        this, {.name = "Text51", .label = "долгота, град", .hint = "Долгота m1, градусы", .readOnly = true}};
    TextField Text47{this,
                     {.name = "Text47",
                      .label = "оборотов",
                      .hint = "Пройдено периастров от начала, шт",
                      .readOnly = true}};
    TextField Text11{
        this, {.name = "Text11", .label = "Ft1, Н", .hint = "Сила вдоль скорости m1, Н", .readOnly = true}};
    TextField Text41{
        this, {.name = "Text41", .label = "dEsys, %", .hint = "Изменение энергии, %", .readOnly = true}};
    TextField Text42{this,
                     {.name = "Text42",
                      .label = "dMsys, %",
                      .hint = "Изменение момента количества движения, %",
                      .readOnly = true}};
    TextField Text16{this,
                     {.name = "Text16", .hint = "Начальный эксцентриситет", .readOnly = true, .width = 13}};
    TextField Text17{this,
                     {.name = "Text17", .hint = "Измеренный эксцентриситет", .readOnly = true, .width = 13}};
    TextField Text18{this, {.name = "Text18", .hint = "Сдвиг эксцентриситета", .readOnly = true}};
    TextField Text19{
        this,
        {.name = "Text19", .hint = "Начальная долгота периастра, градусы", .readOnly = true, .width = 13}};
    TextField Text20{
        this,
        {.name = "Text20", .hint = "Измеренная долгота периастра, градусы", .readOnly = true, .width = 13}};
    TextField Text26{this, {.name = "Text26", .hint = "Сдвиг периастра, градусы", .readOnly = true}};
    TextField Text27{
        this, {.name = "Text27", .hint = "Начальная долгота узла, градусы", .readOnly = true, .width = 13}};
    TextField Text28{
        this, {.name = "Text28", .hint = "Измеренная долгота узла, градусы", .readOnly = true, .width = 13}};
    TextField Text29{this, {.name = "Text29", .hint = "Сдвиг узла, градусы", .readOnly = true}};
    TextField Text30{this,
                     {.name = "Text30", .hint = "Начальная полуось, тыс. км", .readOnly = true, .width = 13}};
    TextField Text35{
        this, {.name = "Text35", .hint = "Измеренная полуось, тыс. км", .readOnly = true, .width = 13}};
    TextField Text38{this, {.name = "Text38", .hint = "Сдвиг полуоси, тыс. км", .readOnly = true}};
    TextField Text40{this,
                     {.name = "Text40", .hint = "Начальный период, дней", .readOnly = true, .width = 13}};
    TextField Text34{this,
                     {.name = "Text34", .hint = "Измеренный период, дней", .readOnly = true, .width = 13}};
    TextField Text33{this, {.name = "Text33", .hint = "Сдвиг периода, дней", .readOnly = true}};
    TextField Text13{this, {.name = "Text13", .hint = "Начальный период, с", .readOnly = true, .width = 13}};
    TextField Text15{this, {.name = "Text15", .hint = "Измеренный период, с", .readOnly = true, .width = 13}};
    TextField Text14{this, {.name = "Text14", .hint = "Сдвиг периода, с", .readOnly = true}};

    CommandButton Command7{this,
                           {.name = "Command7",
                            .caption = "Загрузить параметры",
                            .hint = "Заполнить поля по теории или из файла"}};
    CommandButton Command8{
        this, {.name = "Command8", .caption = "Сохранить в файле", .hint = "Записать поля в файл пульсара"}};
    CommandButton Command6{this,
                           {.name = "Command6",
                            .caption = "Задать координаты и скорости",
                            .hint = "Начальные данные пары из элементов",
                            .isDefault = true}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Проверить параметры орбиты m1",
                            .hint = "Решать с заданных координат и измерять орбиту, пока не остановят"}};
    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Остановить",
                            .hint = "Остановить решение при следующем показе; продолжить его можно"}};
    CommandButton Command3{this,
                           {.name = "Command3",
                            .caption = "Продолжить",
                            .hint = "Продолжить остановленное решение с того же места"}};
    CommandButton Command4{
        this, {.name = "Command4", .caption = "Очистить рисунки", .hint = "Стереть оба рисунка"}};
    CommandButton Command5{this,
                           {.name = "Command5",
                            .caption = "Доп. параметры*",
                            .hint = "Открыть форму 26: импульсы, запаздывания, сопротивление"}};
    CommandButton Command9{this,
                           {.name = "Command9", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};
    ScrollBar HScroll1{this,
                       {.name = "HScroll1",
                        .min = 1,
                        .max = 10000,
                        .value = 50,
                        .hint = "Масштаб рисунка орбит, тыс. км в клетке; идет в Mx"}};
    Label Label1{this, {.name = "Label1", .hint = "Масштаб рисунка; его задает ползунок, тыс. км в клетке"}};
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 420,
                      .height = 460,
                      .hint = "Движение тел: внизу плоскость XY, вверху вид сбоку"}};
    Picture Picture2{this,
                     {.name = "Picture2",
                      .width = 700,
                      .height = 460,
                      .hint = "Сдвиги элементов и графики формы 26 по времени"}};

    void load() override;
    void activate() override;
    void unload() override;

private:
    void periodMeasured() override;
    void nodePassed() override;
    void periastronPassed() override;
    void stepDone() override;

    void loadFromFile();
    void loadFromTheory();
    void saveFile();
    void setData();
    void start();
    void loop();
    void takeSettings();
    void takeNumbers();
    void display();
    void showStart();
    void drawBodies(Color first, Color second);
    void clearPictures();
    void showScale();
    void beginEffect();
    void endEffect();
    void printDelays(const std::string& period);
    void note(const std::string& text);
    double plotX() const;

    Laboratory& lab;
    bool started_ = false, gone_ = false;
    struct {
        double time = 0, Eks = 0, AlfaP = 0, Rsr = 0, Period = 0;
    } scales_;                 ///< of the plots, a unit, as the run began: s, 1, degrees, thousand km, s
    double effectStart_ = 0;   ///< when the speed of gravity began to act, s
    double lastReceived_ = 0;  ///< time at which the last pulse shown was received, s
    bool anyPerStep_ = false;  ///< some plot of every step is on
    double noteLine_ = 0;      ///< height of the next printed line on Picture2
};

}  // namespace tarvex
