#pragma once
// The controls of the two-body screen, Form25, in tab order: orbit and masses, solution, plots, the force of
// retardation, what is shown, results, commands and pictures.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class TwoBodiesControls : public Form {
public:
    TextField meanLongitude{this,
                            {.name = "Text1",
                             .label = "AlfaL1, град",
                             .text = "0",
                             .hint = "Средняя долгота m1, градусы; идет в AlfaL(11)"}};
    TextField eccentricity{this,
                           {.name = "Text7",
                            .label = "Eks1 =",
                            .text = "0,055",
                            .hint = "Эксцентриситет орбиты m1; идет в Eks0(11)"}};
    TextField periastronLongitude{this,
                                  {.name = "Text8",
                                   .label = "AlfaP1, град",
                                   .text = "180",
                                   .hint = "Долгота периастра, градусы; идет в AlfaP0(11)"}};
    TextField nodeLongitude{this,
                            {.name = "Text9",
                             .label = "AlfaU1, град",
                             .text = "270",
                             .hint = "Долгота восходящего узла, градусы; идет в AlfaU0(11)"}};
    TextField semiMajorAxis{this,
                            {.name = "Text10",
                             .label = "R1, тыс.км.",
                             .text = "384,4",
                             .hint = "Большая полуось, тыс. км; идет в R0sr(11)",
                             .width = 13}};
    TextField inclination{this,
                          {.name = "Text37",
                           .label = "Betta1 ,град",
                           .text = "0",
                           .hint = "Наклон орбиты, градусы; идет в Betta0(11)",
                           .width = 13}};
    TextField mass1{this,
                    {.name = "Text4",
                     .label = "m1/ Msol",
                     .text = "3,694E-8",
                     .hint = "Масса m1 в долях массы Солнца; идет в km(11)",
                     .width = 13}};
    TextField mass2{this,
                    {.name = "Text5",
                     .label = "m2/ Msol",
                     .text = "3,004E-6",
                     .hint = "Масса m2 в долях массы Солнца; идет в km(13)",
                     .width = 13}};
    TextField theoryBody{this,
                         {.name = "Text12",
                          .label = "по теории Ser0 для планеты №",
                          .text = "11",
                          .hint = "Номер тела, элементы которого дает теория Ser0: 1-9 планеты, 11 Луна",
                          .width = 4}};
    TextField pulsarFile{this,
                         {.name = "Text2",
                          .label = "файл №",
                          .text = "1913",
                          .hint = "Номер файла пульсара Dat\\Pulsar<N>.dat",
                          .width = 6}};
    OptionButton fromFile{this,
                          {.name = "Option11",
                           .caption = "из файла",
                           .group = "source",
                           .hint = "Загружать параметры из файла пульсара"}};
    OptionButton fromTheory{this,
                            {.name = "Option12",
                             .caption = "по теории",
                             .group = "source",
                             .on = true,
                             .hint = "Загружать параметры на 1801 год по теории Ser0"}};
    CheckBox barycentricElements{this,
                                 {.name = "Check12",
                                  .caption = "kodBary=2",
                                  .hint = "Элементы относятся к центру масс пары, а не к m2: kodBary = 2"}};
    TextField step{this,
                   {.name = "Text22",
                    .label = "с шагом, сек",
                    .text = "60",
                    .hint = "Шаг решения вне окон Dt, с",
                    .width = 10}};
    TextField stepDivider{this,
                          {.name = "Text23",
                           .label = "делитель шага",
                           .text = "100",
                           .hint = "Во сколько раз шаг уменьшается в окнах периастра и узла, kDt",
                           .width = 10}};
    TextField stepsPerDisplay{this,
                              {.name = "Text36",
                               .label = "данные выводить через, шагов",
                               .text = "100",
                               .hint = "Через сколько шагов показывать, рисовать и останавливаться, NC0",
                               .width = 10}};
    TextField windowDegrees{this,
                            {.name = "Text24",
                             .label = "поиск в интервале +/- dAlfa, град=",
                             .text = "1",
                             .hint = "Полуширина окон периастра и узла, градусы",
                             .width = 10}};
    CheckBox exactPassages{this,
                           {.name = "ExactPassages",
                            .caption = "точные прохождения",
                            .hint = "Находить периастр и узел внутри шага до последнего знака: шаг "
                                    "постоянен, окна и делитель не нужны"}};
    TextField gravitySpeed{this,
                           {.name = "Text21",
                            .label = "Vgr = Vsv * ",
                            .text = "1",
                            .hint = "Vgr в скоростях света; берется при начале и продолжении решения",
                            .width = 10}};
    TextField systemSpeedX{this,
                           {.name = "Text31",
                            .label = "VXsys, км/с",
                            .text = "0",
                            .hint = "Скорость системы по оси X, км/с; идет в VXsys",
                            .width = 10}};
    TextField systemSpeedY{this,
                           {.name = "Text32",
                            .label = "VYsys, км/с",
                            .text = "0",
                            .hint = "Скорость системы по оси Y, км/с; идет в VYsys",
                            .width = 10}};
    TextField timeScale{this,
                        {.name = "Text6",
                         .label = "MT, дни /см",
                         .text = "365,25",
                         .hint = "Масштаб времени графиков, дней в клетке; масштабы берутся при начале",
                         .width = 8}};
    CheckBox plotEccentricity{
        this, {.name = "Check5", .caption = "dEks1  /", .hint = "Чертить сдвиг эксцентриситета"}};
    TextField eccentricityScale{
        this,
        {.name = "Text43", .text = "0,001", .hint = "Масштаб сдвига эксцентриситета в клетке", .width = 8}};
    CheckBox plotPeriastron{this,
                            {.name = "Check6", .caption = "dAlfaP1 /", .hint = "Чертить сдвиг периастра"}};
    TextField periastronScale{
        this,
        {.name = "Text44", .text = "0,1", .hint = "Масштаб сдвига периастра, градусов в клетке", .width = 8}};
    CheckBox plotAxis{this, {.name = "Check7", .caption = "dR1  /", .hint = "Чертить сдвиг полуоси"}};
    TextField axisScale{
        this,
        {.name = "Text45", .text = "10", .hint = "Масштаб сдвига полуоси, тыс. км в клетке", .width = 8}};
    CheckBox plotPeriod{this, {.name = "Check8", .caption = "dP1  /", .hint = "Чертить сдвиг периода"}};
    TextField periodScale{
        this, {.name = "Text46", .text = "1000", .hint = "Масштаб сдвига периода, с в клетке", .width = 8}};
    TextField givenForce{this,
                         {.name = "Text3",
                          .label = "Ft, Н",
                          .text = "1E+18",
                          .hint = "Сила вдоль скорости m1 при выборе \"с экрана\", Н"}};
    CheckBox longitudesFromBarycentre{
        this, {.name = "Check1", .caption = "от ЦМ", .hint = "Долготы считать от центра масс, а не от m2"}};
    CheckBox forceByOtherSpeed{this,
                               {.name = "Check9",
                                .caption = "Ft1 определять по V2",
                                .hint = "Силу на тело определять по скорости другого тела"}};
    CheckBox forceOnM2{
        this, {.name = "Check2", .caption = "+ Ft2", .hint = "Сила вдоль скорости действует и на m2"}};
    OptionButton forceByRetardation{this,
                                    {.name = "Option3",
                                     .caption = "численно",
                                     .group = "ft",
                                     .on = true,
                                     .hint = "Сила возникает сама из запаздывания положений"}};
    OptionButton forceByFormula{this,
                                {.name = "Option4",
                                 .caption = "аналитически",
                                 .group = "ft",
                                 .hint = "Силу брать по формуле Ft = V * F / Vgr"}};
    OptionButton forceGiven{
        this, {.name = "Option5", .caption = "с экрана", .group = "ft", .hint = "Силу брать из поля Ft, Н"}};
    OptionButton effectOn{this,
                          {.name = "Option9",
                           .caption = "начать",
                           .group = "window",
                           .hint = "С этого мгновения действует скорость гравитации"}};
    OptionButton effectOff{
        this,
        {.name = "Option10",
         .caption = "закончить",
         .group = "window",
         .on = true,
         .hint = "Прекратить действие скорости гравитации и напечатать скорости изменения орбиты"}};
    CheckBox restartBaselines{
        this,
        {.name = "Check10",
         .caption = "+0",
         .hint = "При начале действия и на втором обороте взять начальные значения заново"}};
    OptionButton showM1FromBarycentre{
        this,
        {.name = "Option1", .caption = "m1 от ЦМ", .group = "show", .hint = "Показывать m1 от центра масс"}};
    OptionButton showM1FromOrigin{this,
                                  {.name = "Option2",
                                   .caption = "m1 от 0",
                                   .group = "show",
                                   .on = true,
                                   .hint = "Показывать m1 от начала координат"}};
    OptionButton showM1FromM2{
        this, {.name = "Option6", .caption = " m1 от m2", .group = "show", .hint = "Показывать m1 от m2"}};
    OptionButton showBothFromBarycentre{this,
                                        {.name = "Option7",
                                         .caption = "m1 и m2 от ЦМ",
                                         .group = "show",
                                         .hint = "Показывать оба тела от центра масс"}};
    OptionButton showBothFromOrigin{this,
                                    {.name = "Option8",
                                     .caption = "m1 и m2 от 0",
                                     .group = "show",
                                     .hint = "Показывать оба тела от начала координат"}};
    CheckBox keepTracks{this, {.name = "Check3", .caption = "+ траектории", .hint = "Не стирать следы"}};
    CheckBox showBarycentre{
        this, {.name = "Check4", .caption = "+ ЦМ системы", .hint = "Рисовать крест в центре масс"}};

    TextField elapsedYears{
        this, {.name = "Text25", .label = "T, лет", .hint = "Время от начала, лет", .readOnly = true}};
    TextField longitude{
        this, {.name = "Text51", .label = "долгота, град", .hint = "Долгота m1, градусы", .readOnly = true}};
    TextField revolutions{this,
                          {.name = "Text47",
                           .label = "оборотов",
                           .hint = "Пройдено периастров от начала, шт",
                           .readOnly = true}};
    TextField forceOnM1{
        this, {.name = "Text11", .label = "Ft1, Н", .hint = "Сила вдоль скорости m1, Н", .readOnly = true}};
    TextField energyChange{
        this, {.name = "Text41", .label = "dEsys, %", .hint = "Изменение энергии, %", .readOnly = true}};
    TextField momentumChange{this,
                             {.name = "Text42",
                              .label = "dMsys, %",
                              .hint = "Изменение момента количества движения, %",
                              .readOnly = true}};
    TextField eccentricityStart{
        this, {.name = "Text16", .hint = "Начальный эксцентриситет", .readOnly = true, .width = 13}};
    TextField eccentricityNow{
        this, {.name = "Text17", .hint = "Измеренный эксцентриситет", .readOnly = true, .width = 13}};
    TextField eccentricityShift{this, {.name = "Text18", .hint = "Сдвиг эксцентриситета", .readOnly = true}};
    TextField periastronStart{
        this,
        {.name = "Text19", .hint = "Начальная долгота периастра, градусы", .readOnly = true, .width = 13}};
    TextField periastronNow{
        this,
        {.name = "Text20", .hint = "Измеренная долгота периастра, градусы", .readOnly = true, .width = 13}};
    TextField periastronShift{this, {.name = "Text26", .hint = "Сдвиг периастра, градусы", .readOnly = true}};
    TextField nodeStart{
        this, {.name = "Text27", .hint = "Начальная долгота узла, градусы", .readOnly = true, .width = 13}};
    TextField nodeNow{
        this, {.name = "Text28", .hint = "Измеренная долгота узла, градусы", .readOnly = true, .width = 13}};
    TextField nodeShift{this, {.name = "Text29", .hint = "Сдвиг узла, градусы", .readOnly = true}};
    TextField axisStart{
        this, {.name = "Text30", .hint = "Начальная полуось, тыс. км", .readOnly = true, .width = 13}};
    TextField axisNow{
        this, {.name = "Text35", .hint = "Измеренная полуось, тыс. км", .readOnly = true, .width = 13}};
    TextField axisShift{this, {.name = "Text38", .hint = "Сдвиг полуоси, тыс. км", .readOnly = true}};
    TextField periodDaysStart{
        this, {.name = "Text40", .hint = "Начальный период, дней", .readOnly = true, .width = 13}};
    TextField periodDaysNow{
        this, {.name = "Text34", .hint = "Измеренный период, дней", .readOnly = true, .width = 13}};
    TextField periodDaysShift{this, {.name = "Text33", .hint = "Сдвиг периода, дней", .readOnly = true}};
    TextField periodStart{this,
                          {.name = "Text13", .hint = "Начальный период, с", .readOnly = true, .width = 13}};
    TextField periodNow{this,
                        {.name = "Text15", .hint = "Измеренный период, с", .readOnly = true, .width = 13}};
    TextField periodShift{this, {.name = "Text14", .hint = "Сдвиг периода, с", .readOnly = true}};

    CommandButton loadParameters{this,
                                 {.name = "Command7",
                                  .caption = "Загрузить параметры",
                                  .hint = "Заполнить поля по теории или из файла",
                                  .disturbs = Disturbs::All}};
    CommandButton saveParameters{
        this,
        {.name = "Command8",
         .caption = "Сохранить в файле",
         .hint = "Записать поля в файл пульсара; масса меньше 0,000001 Msol станет нулем"}};
    CommandButton setInitialData{this,
                                 {.name = "Command6",
                                  .caption = "Задать координаты и скорости",
                                  .hint = "Начальные данные пары из элементов",
                                  .isDefault = true,
                                  .disturbs = Disturbs::All}};
    CommandButton startRun{this,
                           {.name = "Command1",
                            .caption = "Проверить параметры орбиты m1",
                            .hint = "Решать с заданных координат и измерять орбиту, пока не остановят",
                            .disturbs = Disturbs::All}};
    CommandButton stopRun{this,
                          {.name = "Command2",
                           .caption = "Остановить",
                           .hint = "Остановить решение при следующем показе; продолжить его можно"}};
    CommandButton continueRun{this,
                              {.name = "Command3",
                               .caption = "Продолжить",
                               .hint = "Продолжить остановленное решение с того же места",
                               .disturbs = Disturbs::All}};
    CommandButton clearDrawings{
        this, {.name = "Command4", .caption = "Очистить рисунки", .hint = "Стереть оба рисунка"}};
    CommandButton openPulsar{this,
                             {.name = "Command5",
                              .caption = "Доп. параметры*",
                              .hint = "Открыть форму 26: импульсы, запаздывания, сопротивление"}};
    CommandButton closeForm{this, closingSpec("Command9", Disturbs::Own)};
    ScrollBar scaleBar{this,
                       {.name = "HScroll1",
                        .min = 1,
                        .max = 10000,
                        .value = 50,
                        .hint = "Масштаб рисунка орбит, тыс. км в клетке; идет в Mx"}};
    Label scaleLabel{this,
                     {.name = "Label1", .hint = "Масштаб рисунка; его задает ползунок, тыс. км в клетке"}};
    Picture orbitPicture{this,
                         {.name = "Picture1",
                          .width = 420,
                          .height = 460,
                          .hint = "Движение тел: внизу плоскость XY, вверху вид сбоку"}};
    Picture shiftPlots{this,
                       {.name = "Picture2",
                        .width = 700,
                        .height = 460,
                        .hint = "Сдвиги элементов и графики формы 26 по времени"}};

protected:
    using Form::Form;
    void layOut();

private:
    Layout resultsLayout();
};

}  // namespace tarvex
