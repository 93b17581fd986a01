#pragma once
// Form1: elements and initial data of all bodies for a date, from a theory, the ephemeris, a file or the
// screen.

#include "forms/elements_form_check.h"
#include "forms/laboratory.h"
#include "initial/load_source.h"

namespace tarvex {

class ElementsForm final : public Form {
public:
    static constexpr const char* formName = "Form1";
    explicit ElementsForm(Laboratory& lab);

    // --- date and source
    TextField Text34{this,
                     {.name = "Text34",
                      .label = "год",
                      .text = "1801",
                      .hint = "Год, астрономический счет (год 0 перед годом 1), целое число",
                      .width = 6}};
    TextField Text33{
        this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц, от 1 до 12", .width = 3}};
    TextField Text32{this,
                     {.name = "Text32",
                      .label = "день",
                      .text = "1,5",
                      .hint = "День с долями суток; 1,5 - полдень первого числа",
                      .width = 6}};
    CommandButton Command17{
        this,
        {.name = "Command17",
         .caption = "G->J",
         .hint = "Из даты найти юлианскую дату; лишние дни переносятся в следующие месяцы"}};
    CommandButton Command18{
        this, {.name = "Command18", .caption = "J->G", .hint = "Из юлианской даты найти год, месяц и день"}};
    TextField Text24{this, {.name = "Text24", .label = "JD", .hint = "Юлианская дата, сутки", .width = 12}};

    OptionButton Option4{this,
                         {.name = "Option4",
                          .caption = "New0 (JD)",
                          .group = "source",
                          .hint = "Теория New0, равноденствие даты"}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "JPL0 (J2000)",
                          .group = "source",
                          .hint = "Теория JPL0, равноденствие J2000, элементы линейны по времени"}};
    OptionButton Option8{this,
                         {.name = "Option8",
                          .caption = "Ser0 (J2000)",
                          .group = "source",
                          .on = true,
                          .hint = "Теория Ser0, равноденствие J2000; берется всемирное время без ET-UT"}};
    OptionButton Option9{this,
                         {.name = "Option9",
                          .caption = "параметры и данные JPL2 (J2000)",
                          .group = "source",
                          .hint = "Элементы JPL0, а координаты и скорости из эфемерид DE405"}};
    OptionButton Option6{
        this,
        {.name = "Option6",
         .caption = "параметры и данные из файла",
         .group = "source",
         .hint = "Все из файла Dat/Tarvex<N>.dat, дата тоже; масса Земли без Луны в файле не сохраняется"}};
    OptionButton Option7{this,
                         {.name = "Option7",
                          .caption = "параметры или данные с экрана",
                          .group = "source",
                          .hint = "Взять таблицу такой, как она напечатана на экране"}};
    TextField Text23{this,
                     {.name = "Text23",
                      .label = "файл №",
                      .text = "1",
                      .hint = "Номер N файла Dat/Tarvex<N>.dat, целое число",
                      .width = 6}};
    CommandButton Command3{this,
                           {.name = "Command3",
                            .caption = "Загрузить параметры на",
                            .hint = "Заполнить модель из выбранного источника на эту дату; после этого нужна "
                                    "команда расчета начальных данных",
                            .isDefault = true}};
    CommandButton Command4{this,
                           {.name = "Command4",
                            .caption = "Сохранить данные в файле №",
                            .hint = "Записать элементы, координаты и массы в Dat/Tarvex<N>.dat; режим "
                                    "Земля-Луна при чтении не восстанавливается"}};

    // --- table of bodies
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "параметры орбит объектов",
                          .group = "view",
                          .on = true,
                          .hint = "Таблица показывает элементы орбит"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "начальные данные",
                          .group = "view",
                          .hint = "Таблица показывает координаты, скорости и массы"}};
    Label Label1{this, {.name = "Label1", .hint = "Средняя долгота или координата X"}};
    Label Label2{this, {.name = "Label2", .hint = "Большая полуось или координата Y"}};
    Label Label3{this, {.name = "Label3", .hint = "Среднее движение или координата Z"}};
    Label Label4{this, {.name = "Label4", .hint = "Эксцентриситет или скорость по X"}};
    Label Label5{this, {.name = "Label5", .hint = "Наклон орбиты или скорость по Y"}};
    Label Label6{this, {.name = "Label6", .hint = "Долгота перигелия или скорость по Z"}};
    Label Label7{
        this,
        {.name = "Label7", .hint = "Долгота восходящего узла или масса Солнца, деленная на массу объекта"}};
    CheckBoxes Check2{this, 0, 10, bodyTick};
    OptionButtons Option1{this, 0, 10, bodyChoice};
    TextFields Text1{this, 0, 10, cell<1>}, Text2{this, 0, 10, cell<2>}, Text3{this, 0, 10, cell<3>},
        Text4{this, 0, 10, cell<4>}, Text5{this, 0, 10, cell<5>}, Text6{this, 0, 10, cell<6>},
        Text7{this, 0, 10, cell<7>};
    TextField Text25{this,
                     {.name = "Text25",
                      .label = "mSol, кг",
                      .hint = "Масса Солнца, кг; с экрана берется при источнике «с экрана»",
                      .width = 12}};
    TextField Text26{this,
                     {.name = "Text26",
                      .label = "gamma, н*м^2/кг^2",
                      .hint = "Гравитационная постоянная, Н*м^2/кг^2",
                      .width = 12}};
    TextField Text11{this,
                     {.name = "Text11",
                      .label = "Lae, км",
                      .hint = "Астрономическая единица, км; каждая теория задает ее заново",
                      .width = 12}};
    TextField Text28{this,
                     {.name = "Text28",
                      .hint = "Служебное поле: запись в него показывает таблицу координат",
                      .hidden = true}};

    // --- initial data
    CommandButton Command12{this,
                            {.name = "Command12",
                             .caption = "Рассчитать по параметрам орбит начальные данные",
                             .hint = "Координаты и скорости всех объектов из элементов орбит"}};
    CheckBox Check3{this,
                    {.name = "Check3",
                     .caption = "Земля-Луна, Ксена=Луна",
                     .hint = "Строка 10 - Луна, строка 3 - Земля без Луны; действует при загрузке и расчете "
                             "начальных данных"}};
    CheckBox Check4{this,
                    {.name = "Check4",
                     .caption = "Bary3",
                     .hint = "Скорости относительно центра масс с Солнцем, Солнце уравновешивает Землю"}};
    CheckBox Check6{
        this,
        {.name = "Check6", .caption = "Bary", .hint = "Скорость Луны относительно центра масс Земли и Луны"}};
    CommandButton Command15{this,
                            {.name = "Command15",
                             .caption = "Найти координаты ЦМ системы",
                             .hint = "Центр масс отмеченных объектов по начальным данным, тыс. км"}};
    CommandButton Command2{
        this,
        {.name = "Command2",
         .caption = "ЦМ системы в начало координат",
         .hint = "Сдвинуть все объекты, чтобы центр масс отмеченных стал началом координат"}};
    CommandButton Command16{
        this,
        {.name = "Command16",
         .caption = "Найти по Vpl скорость Солнца Vsol",
         .hint = "Скорость Солнца, при которой количество движения отмеченных объектов равно нулю"}};
    CheckBox Check7{this, {.name = "Check7", .caption = "ЦМ системы", .hint = "Рисовать центр масс крестом"}};

    // --- orbit check
    TextField Text29{this,
                     {.name = "Text29",
                      .label = "NC0, шагов",
                      .text = "1000",
                      .hint = "Шагов между обновлениями экрана; от него зависит отклик на «Остановить»",
                      .width = 7}};
    TextField Text30{this,
                     {.name = "Text30",
                      .label = "Шаг решения уравнений, с",
                      .text = "3600",
                      .hint = "Шаг решения уравнений, секунды",
                      .width = 7}};
    TextField Text31{this,
                     {.name = "Text31",
                      .label = "делитель шага",
                      .text = "100",
                      .hint = "Во сколько раз уменьшается шаг возле перигелия и узла",
                      .width = 7}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "+/-dAlfa, град",
                      .text = "1",
                      .hint = "Половина окна, в котором ищут перигелий и узел, градусы",
                      .width = 7}};
    CheckBox Check1{
        this, {.name = "Check1", .caption = "траектории", .hint = "Не стирать пройденный путь на рисунке"}};
    CheckBox Check5{
        this,
        {.name = "Check5", .caption = "относительно ЦМ", .hint = "Углы измеряются от центра масс пары"}};
    CommandButton Command13{this,
                            {.name = "Command13",
                             .caption = "Проверить параметры орбиты и ошибку их определения",
                             .hint = "Решить задачу двух тел от начальных данных и измерить орбиту"}};
    CommandButton Command5{
        this, {.name = "Command5", .caption = "Остановить", .hint = "Остановить проверку орбиты"}};
    CommandButton Command6{
        this, {.name = "Command6", .caption = "Продолжить ", .hint = "Продолжить проверку с того же места"}};
    CommandButton Command7{this,
                           {.name = "Command7",
                            .caption = "сделать NC0 шагов",
                            .hint = "Сделать NC0 шагов проверки и остановиться"}};
    Label Label13{this, {.name = "Label13", .hint = "Период обращения по справочнику, дни"}};
    TextField Text13{this, result("Text13", "T, дни", "Измеренный период обращения, дни")};
    TextField Text14{this, result("Text14", "Eks", "Измеренный эксцентриситет")};
    TextField Text15{this, result("Text15", "Vsr, м/с", "Средняя скорость, м/с")};
    TextField Text16{this, result("Text16", "Rsr, тыс.км", "Средний радиус орбиты, тыс. км")};
    TextField Text21{this, result("Text21", "AlfaP, град", "Долгота перигелия, градусы")};
    TextField Text8{this, result("Text8", "dAlfaP, сек", "Сдвиг перигелия от начального, секунды дуги")};
    TextField Text35{this, result("Text35", "AlfaU, град", "Долгота восходящего узла, градусы")};
    TextField Text12{this, result("Text12", "dAlfaU, сек", "Сдвиг узла от начального, секунды дуги")};
    TextField Text27{this, result("Text27", "Wsr, рад/год", "Измеренное среднее движение, рад/год")};
    TextField Text22{this, result("Text22", "2*pi*R0sr/V0sr=", "Период по среднему движению, дни")};
    TextField Text36{this, result("Text36", "Betta, град", "Наибольшая широта, наклон орбиты, градусы")};
    TextField Text37{this, result("Text37", "долгота, град", "Долгота планеты сейчас, градусы")};
    TextField Text17{this,
                     result("Text17", "Rmax (Xцм), тыс.км",
                            "Наибольшее расстояние; после команд центра масс - его координата X, тыс. км")};
    TextField Text18{this,
                     result("Text18", "Rmin (Yцм), тыс.км",
                            "Наименьшее расстояние; после команд центра масс - его координата Y, тыс. км")};
    TextField Text19{
        this, result("Text19", "Vmax, м/с (Zцм)",
                     "Наибольшая скорость, м/с; после команд центра масс - его координата Z, тыс. км")};
    TextField Text20{this, result("Text20", "Vmin, м/с", "Наименьшая скорость, м/с")};
    TextField Text40{this, result("Text40", "dT, лет", "Время от начала проверки, лет")};
    TextField Text9{this, result("Text9", "dEsys, %", "Изменение энергии пары, проценты")};

    // --- other forms
    CommandButton Command1{
        this,
        {.name = "Command1",
         .caption = "К моделированию",
         .hint =
             "Передать элементы модели и открыть форму 2; перед этим - загрузка и расчет начальных данных"}};
    CommandButton Command20{this,
                            {.name = "Command20",
                             .caption = "К наблюдениям",
                             .hint = "Форма 10: сравнение теории с таблицами и наблюдениями"}};
    CommandButton Command10{this,
                            {.name = "Command10",
                             .caption = "Скорость системы* ",
                             .hint = "Форма 4: скорость Солнечной системы как целого"}};
    CommandButton Command11{
        this,
        {.name = "Command11", .caption = "Обозначения*", .hint = "Форма 5: система координат и обозначения"}};
    CommandButton Command8{
        this,
        {.name = "Command8", .caption = "About*", .hint = "Форма 3: подсказка по всем формам и кнопкам"}};
    CommandButton Command19{
        this, {.name = "Command19", .caption = "ET-UT*", .hint = "Форма 16: затмения и поправка ET-UT"}};
    CommandButton Command21{
        this,
        {.name = "Command21", .caption = "Планы*", .hint = "Форма 18: планы многофакторных экспериментов"}};
    CommandButton Command22{
        this, {.name = "Command22", .caption = "Координаты*", .hint = "Форма 12: пересчет координат"}};
    CommandButton Command23{
        this, {.name = "Command23", .caption = "Эллипс*", .hint = "Форма 14: эллипс, эксцентр и эквант"}};
    CommandButton Command24{
        this, {.name = "Command24", .caption = "Аберрация*", .hint = "Форма 11: составные части аберрации"}};
    CommandButton Command25{this,
                            {.name = "Command25",
                             .caption = "Bary - Geo*",
                             .hint = "Форма 20: барицентрические начальные данные Земли и Луны"}};
    CommandButton Command26{
        this, {.name = "Command26", .caption = "JPL (DE405)*", .hint = "Форма 24: проверка эфемерид DE405"}};
    CommandButton Command27{this,
                            {.name = "Command27",
                             .caption = "2-а тела*",
                             .hint = "Форма 25: задача двух тел с конечной скоростью гравитации"}};
    CommandButton Command9{
        this, {.name = "Command9", .caption = "Выход", .hint = "Закрыть все формы и завершить программу"}};

    // --- picture
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 400,
                      .height = 440,
                      .background = {0, 0, 0},
                      .hint = "Плоскость эклиптики и, вверху, вид сбоку"}};
    Label Label10{this, {.name = "Label10", .hint = "Масштаб рисунка, млн. км в клетке"}};
    ScrollBar HScroll1{this,
                       {.name = "HScroll1",
                        .min = 1,
                        .max = 10000,
                        .value = 3000,
                        .hint = "Масштаб рисунка, от 0,1 до 1000 млн. км в клетке"}};

    void load() override;
    void activate() override;
    void unload() override;

    /// Draws grid and bodies anew at the current scale.
    void redrawPicture();
    /// Shows the table in the chosen view.
    void showTable();
    /// Shows coordinates and velocities of one body in its row of the table, with 7 columns its mass too.
    void showStateRow(int body, int columns = 6);

private:
    static TextField::Spec result(const char* name, const char* label, const char* hint);
    static CheckBox::Spec bodyTick(int i);
    static OptionButton::Spec bodyChoice(int i);
    template <int column>
    static TextField::Spec cell(int i);

    void bindCommands();
    void bindForms();
    void arrange();

    Source source() const;
    void loadParameters();
    void loadFile();
    void loadScreen();
    void plotRow(int body);
    void saveParameters();
    void formInitialData();
    void showCentre();
    void tick();
    void moonMode();
    void showState();
    void setScale(const char* blankBeforeUnit);

    TextField& cellAt(int column, int body);

    Laboratory& lab;
    Form1Check check_;
};

}  // namespace tarvex
