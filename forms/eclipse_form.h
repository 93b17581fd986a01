#pragma once
// Form16: eclipses, transits, rise and set as seen from one place, with a clock for the planets and a clock
// for the Earth's rotation.

#include <deque>

#include "forms/laboratory.h"
#include "reduction/ancient_tables.h"
#include "reduction/eclipse.h"

namespace tarvex {

class EclipseForm final : public Form {
public:
    static constexpr const char* formName = "Form16";
    explicit EclipseForm(Laboratory& lab);

    TextField Text1{this,
                    {.name = "Text1",
                     .label = "Солнце и планета №",
                     .text = "11",
                     .hint = "Номер тела: 1 Меркурий, 2 Венера, 11 Луна; идет в IplSel",
                     .width = 4}};
    TextField Text2{this,
                    {.name = "Text2",
                     .label = "DMYut",
                     .text = "29,4",
                     .hint = "День начала с долей, дни, всемирное время"}};
    TextField Text3{this, {.name = "Text3", .text = "3", .hint = "Месяц начала, от 1 до 12"}};
    TextField Text4{this, {.name = "Text4", .text = "2006", .hint = "Год начала по выбранному календарю"}};
    TextField Text26{this,
                     {.name = "Text26",
                      .label = "шаг решения, дни",
                      .text = "0,0005",
                      .hint = "Шаг даты, дни; идет в DtCur"}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "делитель шага",
                     .text = "10",
                     .hint = "Во сколько раз шаг меньше возле равноденствий и солнцестояний"}};
    TextField Text24{this,
                     {.name = "Text24",
                      .label = "ObsL",
                      .text = "48,153",
                      .hint = "Долгота места к востоку, градусы; идет в ObsL"}};
    TextField Text25{
        this,
        {.name = "Text25", .label = "ObsB", .text = "45,874", .hint = "Широта места, градусы; идет в ObsB"}};
    TextField Text27{this,
                     {.name = "Text27",
                      .label = "MdB, град/см",
                      .text = "0,25",
                      .hint = "Масштаб рисунка дисков, градусов в клетке"}};
    TextField Text14{
        this,
        {.name = "Text14",
         .label = "ET1- UT, мин",
         .text = "0",
         .hint = "Поправка времени для движения планет, минут; показывается или берется с экрана"}};
    TextField Text15{
        this,
        {.name = "Text15",
         .label = "ET2- UT, мин",
         .text = "0",
         .hint = "Поправка времени для вращения Земли, минут; показывается или берется с экрана"}};
    CheckBox Check5{
        this,
        {.name = "Check5", .caption = "с экрана", .hint = "ET1-UT взять из поля, а не из формулы формы 17"}};
    CheckBox Check6{
        this,
        {.name = "Check6", .caption = "с экрана", .hint = "ET2-UT взять из поля, а не из формулы формы 17"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "Солнца",
                          .group = "kind",
                          .on = true,
                          .hint = "Рассчитать затмения Солнца и прохождения планет"}};
    OptionButton Option8{this,
                         {.name = "Option8",
                          .caption = "Луны",
                          .group = "kind",
                          .hint = "Рассчитать затмения Луны тенью Земли"}};
    OptionButton Option10{this,
                          {.name = "Option10",
                           .caption = "ut",
                           .group = "clock",
                           .on = true,
                           .hint = "Восход и заход по всемирному времени"}};
    OptionButton Option11{this,
                          {.name = "Option11",
                           .caption = "et",
                           .group = "clock",
                           .hint = "Восход и заход по времени вращения Земли ET2"}};
    OptionButton Option12{this,
                          {.name = "Option12",
                           .caption = "ЭКВ",
                           .group = "frame",
                           .on = true,
                           .hint = "Рисовать диски в экваториальных координатах"}};
    OptionButton Option13{this,
                          {.name = "Option13",
                           .caption = "ГОР",
                           .group = "frame",
                           .hint = "Рисовать диски в горизонтальных координатах"}};
    OptionButton Option18{this,
                          {.name = "Option18",
                           .caption = "вперед",
                           .group = "direction",
                           .on = true,
                           .hint = "Идти по времени вперед"}};
    OptionButton Option19{
        this,
        {.name = "Option19", .caption = "назад", .group = "direction", .hint = "Идти по времени назад"}};
    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "таблиц",
                          .group = "data",
                          .hint = "Положения из таблиц древних астрономов"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "теорий",
                          .group = "data",
                          .on = true,
                          .hint = "Положения по теориям и эфемеридам"}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "Григорианский",
                          .group = "calendar",
                          .on = true,
                          .hint = "Дата по григорианскому календарю"}};
    OptionButton Option6{this,
                         {.name = "Option6",
                          .caption = "Юлианский",
                          .group = "calendar",
                          .hint = "Дата по юлианскому календарю"}};
    OptionButton Option7{this,
                         {.name = "Option7",
                          .caption = "Египетский",
                          .group = "calendar",
                          .hint = "Дата по египетскому календарю"}};
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
    OptionButtons Option4;  ///< ancient table 0..10, item 0 blank
    OptionButtons Option9;  ///< theory 0..4, item 0 blank
    CheckBox Check1{
        this, {.name = "Check1", .caption = "Start+Stop", .hint = "После начала сделать только один шаг"}};
    CheckBox Check2{this, {.name = "Check2", .caption = "траектории", .hint = "Не стирать старые положения"}};
    CheckBox Check3{this,
                    {.name = "Check3",
                     .caption = "+ траектории на Солнце",
                     .hint = "Отмечать путь центра тела по диску"}};
    CheckBox Check4{this,
                    {.name = "Check4",
                     .caption = "исправить Prec* от года создания табл.",
                     .hint = "Заменить прецессию таблицы отсчетом от ее начала, 5025 сек. дуги за век"}};
    CheckBox Check7{this,
                    {.name = "Check7",
                     .caption = "+ экватор",
                     .hint = "Рисовать направление небесного экватора через центр диска"}};
    CheckBox Check8{
        this, {.name = "Check8", .caption = "+обновить", .hint = "Стереть рисунок дисков на первом шаге"}};
    CheckBox Check9{this, {.name = "Check9", .caption = "+dLl", .hint = "Учесть возмущения Луны с формы 21"}};
    CheckBox Check11{
        this, {.name = "Check11", .caption = "+dLp", .hint = "Учесть возмущения Земли и планеты с формы 22"}};
    CheckBox Check10{
        this, {.name = "Check10", .caption = "+Рефракция", .hint = "Поднять видимые высоты на рефракцию"}};
    CheckBox Check13{this,
                     {.name = "Check13",
                      .caption = "+File TimeYer",
                      .hint = "Записывать равноденствия и солнцестояния в Dat\\TimeYer_data.txt"}};
    CheckBox Check23{this,
                     {.name = "Check23",
                      .caption = "++Test",
                      .hint = "Без рефракции в записи; только вместе с +File TimeYer"}};
    CheckBox Check30{this,
                     {.name = "Check30",
                      .caption = "+File Param",
                      .hint = "Записывать положения при наложении дисков в Dat\\Param_data.txt"}};

    TextField Text17{this,
                     {.name = "Text17",
                      .label = "Tsol, час",
                      .hint = "Часовой угол центра диска, часов",
                      .readOnly = true}};
    TextField Text28{this,
                     {.name = "Text28",
                      .label = "восход",
                      .hint = "Время восхода верхнего края Солнца",
                      .readOnly = true,
                      .width = 12}};
    TextField Text29{this,
                     {.name = "Text29",
                      .label = "заход",
                      .hint = "Время захода верхнего края Солнца",
                      .readOnly = true,
                      .width = 12}};
    TextField Text31{
        this,
        {.name = "Text31",
         .label = "p от JD 1579341, град",
         .hint = "Общая прецессия от JD 1579341 до даты, градусы; с таблицей - прецессия таблицы",
         .readOnly = true}};
    TextField Text41{this,
                     {.name = "Text41",
                      .label = "p от J2000, град",
                      .hint = "Общая прецессия от J2000 до даты, градусы; с таблицей - прецессия, которой "
                              "заменяется ее собственная",
                      .readOnly = true}};
    TextFields StagesSun, StagesBody;  ///< longitude and latitude by stage: cells 2*stage and 2*stage + 1
    TextFields Contact;                ///< contacts 1..4, universal time
    TextField Separation{this,
                         {.name = "Separation",
                          .label = "между центрами, град",
                          .hint = "Угловое расстояние центров дисков (или Луны и тени), градусы",
                          .readOnly = true}};
    TextField SumOfRadii{this,
                         {.name = "SumOfRadii",
                          .label = "сумма радиусов",
                          .hint = "Сумма угловых радиусов дисков, градусы",
                          .readOnly = true}};
    TextField DifferenceOfRadii{this,
                                {.name = "DifferenceOfRadii",
                                 .label = "разность радиусов",
                                 .hint = "Разность угловых радиусов дисков, градусы",
                                 .readOnly = true}};
    TextField Magnitude{this,
                        {.name = "Magnitude",
                         .label = "фаза",
                         .hint = "Закрытая доля диаметра Солнца или Луны",
                         .readOnly = true}};
    TextField GreatestMagnitude{this,
                                {.name = "GreatestMagnitude",
                                 .label = "наибольшая фаза",
                                 .hint = "Наибольшая фаза с начала расчета",
                                 .readOnly = true}};
    TextField Clocks{this,
                     {.name = "Clocks",
                      .label = "часы",
                      .hint = "Всемирное и местное время, и они же по вращению Земли ET2",
                      .readOnly = true,
                      .width = 64}};

    CommandButton Command1{
        this,
        {.name = "Command1", .caption = "Начать", .hint = "Взять поля и идти по времени", .isDefault = true}};
    CommandButton Command4{this, {.name = "Command4", .caption = "Остановить", .hint = "Остановить расчет"}};
    CommandButton Command5{
        this, {.name = "Command5", .caption = "Продолжить", .hint = "Продолжить с того же места"}};
    CommandButton Command6{this,
                           {.name = "Command6", .caption = "Сделать 1 шаг", .hint = "Один шаг расчета"}};
    CommandButton Command18{this,
                            {.name = "Command18", .caption = "JD = JD0", .hint = "Вернуть дату начала"}};
    CommandButton Command7{
        this, {.name = "Command7", .caption = "ET-UT*", .hint = "Открыть форму 17: формулы ET-UT"}};
    CommandButton Command9{
        this, {.name = "Command9", .caption = "dLl*", .hint = "Открыть форму 21: возмущения Луны"}};
    CommandButton Command10{
        this, {.name = "Command10", .caption = "dLp*", .hint = "Открыть форму 22: возмущения планет"}};
    CommandButton Command14{this,
                            {.name = "Command14", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};
    Label Label16{this,
                  {.name = "Label16",
                   .caption = "день от 1.1.1 г. н.э.",
                   .hint = "С какого дня ведется счет дней в этом календаре"}};
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 270,
                      .height = 270,
                      .hint = "Тела: внизу плоскость XY, вверху вид сбоку"}};
    Picture Picture3{this,
                     {.name = "Picture3",
                      .width = 420,
                      .height = 420,
                      .hint = "Диски Солнца и тела (Луны и тени); клетка - MdB градусов"}};
    Picture Picture4{this,
                     {.name = "Picture4",
                      .width = 270,
                      .height = 141,
                      .hint = "Небо: азимут и высота, клетка 30 градусов"}};

    void load() override;
    void unload() override;

private:
    struct Mark {
        double x = 0, y = 0, radius = 0;
    };

    int theory() const;
    std::int32_t bodyTyped() const;
    void takeSettings();
    void chooseData(bool tables);
    void chooseTable(int i);
    void readTable(bool correct);
    void start();
    void EclipseRun();
    void oneStep();
    void setClocks();
    void showPlaces();
    void noteContacts();
    void noteRiseAndSet();
    void drawSky();
    void drawDisks();
    void drawBodies();
    void clearDisks();
    void drawDiskGrid();
    void clearPictures();
    void writeParam();
    void writeTimeYer();
    void nextDate();
    std::string clockText(double day) const;

    Laboratory& lab;
    Eclipse e_;
    Contacts contacts_;
    TableInUse table_;  ///< the workbook of this form
    std::string startDay_, startMonth_, startYear_;
    std::int16_t kalend_ = 0;  ///< calendar of the date fields
    double zone_ = 0;          ///< and their day start, hours
    int kodTimeDir = 1;
    int kodRefresh = 0;  ///< 1: the disk plot is to be cleared, 2: it has been
    bool started_ = false, gone_ = false, altitudeKnown_ = false;
    double lastAltitude_ = 0;  ///< of the Sun's upper limb at the last step, degrees
    double greatest_ = 0;
    Mark oldSun_, oldBody_, oldShadow_;
    std::deque<Mark> path_;  ///< of the body over the disk
};

}  // namespace tarvex
