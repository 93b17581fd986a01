#pragma once
// Form11: the bench for the components of aberration in a moving Solar System.

#include "forms/laboratory.h"
#include "reduction/aberration_bench.h"

namespace tarvex {

class AberrationForm final : public Form {
public:
    static constexpr const char* formName = "Form11";
    explicit AberrationForm(Laboratory& lab);

    CheckBoxes Check1;  ///< object 0..10, exactly one
    TextField Text1{
        this,
        {.name = "Text1",
         .label = "GelioL3",
         .text = "270",
         .hint = "Гелиоцентрическая долгота Земли, градусы; с теорией New0 показывается ее значение"}};
    TextField Text2{
        this,
        {.name = "Text2",
         .label = "GelioLpl",
         .text = "90",
         .hint = "Гелиоцентрическая долгота объекта, градусы; с теорией New0 показывается ее значение"}};
    CheckBox Check2{this,
                    {.name = "Check2",
                     .caption = "по теории New0 для",
                     .hint = "Долготы Земли и объекта взять из теории New0 на дату, а не из полей"}};
    TextField Text3{this,
                    {.name = "Text3",
                     .label = "VXsys",
                     .text = "0",
                     .hint = "Скорость системы по оси X, км/с; идет в VXsys"}};
    TextField Text4{this,
                    {.name = "Text4",
                     .label = "VYsys",
                     .text = "0",
                     .hint = "Скорость системы по оси Y, км/с; идет в VYsys"}};
    TextField Text5{this,
                    {.name = "Text5",
                     .label = "VZsys",
                     .text = "0",
                     .hint = "Скорость системы по оси Z, км/с; идет в VZsys"}};
    TextField Text6{
        this,
        {.name = "Text6",
         .label = "скорость света уменьшить в ",
         .text = "1000",
         .hint = "Делитель скорости света: 1 дает настоящую аберрацию, 1000 делает углы видимыми"}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "MT, лет/см",
                     .text = "0,25",
                     .hint = "Масштаб времени развертки, лет в клетке"}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "MAlfa, град/см",
                     .text = "0,5",
                     .hint = "Масштаб аберрации, градусов в клетке"}};
    TextField Text9{
        this,
        {.name = "Text9", .label = "шаг, дни", .text = "0,01", .hint = "Шаг даты при расчете с шагом, дней"}};
    TextField Text23{this,
                     {.name = "Text23", .label = "день", .text = "1,5", .hint = "День даты с долей, дни"}};
    TextField Text33{this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц от 1 до 12"}};
    TextField Text43{
        this, {.name = "Text43", .label = "год", .text = "2000", .hint = "Год по григорианскому календарю"}};
    CheckBox Check3{this,
                    {.name = "Check3",
                     .caption = "Аберрация источника Ais",
                     .on = true,
                     .hint = "Чертить сдвиг от движения источника (красный)"}};
    CheckBox Check4{this,
                    {.name = "Check4",
                     .caption = "Аберрация приемника Apr",
                     .on = true,
                     .hint = "Чертить сдвиг от движения приемника (синий)"}};
    CheckBox Check5{this,
                    {.name = "Check5",
                     .caption = "Суммарная аберрация As",
                     .on = true,
                     .hint = "Чертить сумму обоих сдвигов (зеленый)"}};
    CheckBox Check6{
        this,
        {.name = "Check6", .caption = "+abs", .hint = "На фазовой плоскости брать абсолютные значения"}};
    CheckBox Check7{this,
                    {.name = "Check7",
                     .caption = "* cos(B)",
                     .hint = "Шаги по скорости умножить на косинус широты объекта"}};
    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "XY",
                          .group = "plane",
                          .on = true,
                          .hint = "Рисовать в плоскости эклиптики; на развертке - по долготе"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "XZ",
                          .group = "plane",
                          .hint = "Рисовать вид сбоку; на развертке - по широте"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "построения",
                          .group = "kind",
                          .on = true,
                          .hint = "Рисовать положения, скорости и лучи"}};
    OptionButton Option4{this,
                         {.name = "Option4",
                          .caption = "развертка",
                          .group = "kind",
                          .hint = "Рисовать составляющие аберрации по времени"}};
    OptionButton Option5{this,
                         {.name = "Option5",
                          .caption = "фазовая плоскость",
                          .group = "kind",
                          .hint = "Рисовать составляющие по направлению гелиоцентрической долготы Земли"}};

    TextField Text11{this, {.name = "Text11", .hint = "X Земли, тыс. км", .readOnly = true, .width = 13}};
    TextField Text13{this, {.name = "Text13", .hint = "Y Земли, тыс. км", .readOnly = true, .width = 13}};
    TextField Text15{this, {.name = "Text15", .hint = "Z Земли, тыс. км", .readOnly = true, .width = 13}};
    TextField Text17{this, {.name = "Text17", .hint = "VX Земли, км/с", .readOnly = true, .width = 10}};
    TextField Text19{this, {.name = "Text19", .hint = "VY Земли, км/с", .readOnly = true, .width = 10}};
    TextField Text21{this, {.name = "Text21", .hint = "VZ Земли, км/с", .readOnly = true, .width = 10}};
    TextField Text12{
        this,
        {.name = "Text12", .text = "0", .hint = "X объекта, тыс. км; для звезды задается", .width = 13}};
    TextField Text14{
        this,
        {.name = "Text14", .text = "0", .hint = "Y объекта, тыс. км; для звезды задается", .width = 13}};
    TextField Text16{
        this,
        {.name = "Text16", .text = "0", .hint = "Z объекта, тыс. км; для звезды задается", .width = 13}};
    TextField Text18{
        this, {.name = "Text18", .text = "0", .hint = "VX объекта, км/с; для звезды задается", .width = 10}};
    TextField Text20{
        this, {.name = "Text20", .text = "0", .hint = "VY объекта, км/с; для звезды задается", .width = 10}};
    TextField Text22{
        this, {.name = "Text22", .text = "0", .hint = "VZ объекта, км/с; для звезды задается", .width = 10}};
    TextField Text24{this,
                     {.name = "Text24",
                      .hint = "X объекта после аберрации источника, тыс. км",
                      .readOnly = true,
                      .width = 13}};
    TextField Text25{this,
                     {.name = "Text25",
                      .hint = "Y объекта после аберрации источника, тыс. км",
                      .readOnly = true,
                      .width = 13}};
    TextField Text26{this,
                     {.name = "Text26",
                      .hint = "Z объекта после аберрации источника, тыс. км",
                      .readOnly = true,
                      .width = 13}};
    TextField Text27{
        this,
        {.name = "Text27", .hint = "VX объекта вместе с системой, км/с", .readOnly = true, .width = 10}};
    TextField Text28{
        this,
        {.name = "Text28", .hint = "VY объекта вместе с системой, км/с", .readOnly = true, .width = 10}};
    TextField Text29{
        this,
        {.name = "Text29", .hint = "VZ объекта вместе с системой, км/с", .readOnly = true, .width = 10}};
    TextField Text30{this,
                     {.name = "Text30",
                      .label = "S, тыс.км",
                      .hint = "Расстояние от Земли до объекта, тыс. км",
                      .readOnly = true,
                      .width = 14}};
    TextField Text31{this,
                     {.name = "Text31",
                      .label = "T=S/Vsv, с",
                      .hint = "Время хода света при уменьшенной скорости, с",
                      .readOnly = true,
                      .width = 14}};
    TextField Text37{this,
                     {.name = "Text37",
                      .label = "GeoL",
                      .hint = "Действительная геоцентрическая долгота, градусы",
                      .readOnly = true}};
    TextField Text47{this,
                     {.name = "Text47",
                      .label = "GeoB",
                      .hint = "Действительная геоцентрическая широта, градусы",
                      .readOnly = true}};
    TextField Text32{
        this, {.name = "Text32", .hint = "Сдвиг долготы от движения источника, градусы", .readOnly = true}};
    TextField Text42{
        this, {.name = "Text42", .hint = "Сдвиг широты от движения источника, градусы", .readOnly = true}};
    TextField Text34{
        this, {.name = "Text34", .hint = "Сдвиг долготы от движения приемника, градусы", .readOnly = true}};
    TextField Text44{
        this, {.name = "Text44", .hint = "Сдвиг широты от движения приемника, градусы", .readOnly = true}};
    TextField Text35{this, {.name = "Text35", .hint = "Сумма сдвигов долготы, градусы", .readOnly = true}};
    TextField Text45{this, {.name = "Text45", .hint = "Сумма сдвигов широты, градусы", .readOnly = true}};
    TextField Text36{this, {.name = "Text36", .hint = "Видимая долгота, градусы", .readOnly = true}};
    TextField Text46{this, {.name = "Text46", .hint = "Видимая широта, градусы", .readOnly = true}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "сделано итераций",
                      .hint = "Число итераций после последней подготовки",
                      .readOnly = true}};

    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Найти параметры Земли и объекта наблюдения",
                            .hint = "Положения и скорости на дату, действительное направление на объект",
                            .isDefault = true}};
    CommandButton Command3{
        this,
        {.name = "Command3",
         .caption = "Расчет наблюдаемых координат планеты в движущейся Солнечной системе (одна итерация) при "
                    "заданной скорости Солнечной системы",
         .hint = "Одна итерация: сдвиги от источника и от приемника; сначала найти параметры"}};
    CommandButton Command5{
        this,
        {.name = "Command5",
         .caption = "С шагом",
         .hint = "Менять дату с шагом и считать, пока не остановят; включает теорию New0"}};
    CommandButton Command6{this,
                           {.name = "Command6", .caption = "Stop", .hint = "Остановить расчет с шагом"}};
    CommandButton Command7{
        this, {.name = "Command7", .caption = "Продолжить", .hint = "Продолжить расчет с шагом"}};
    CommandButton Command9{this, {.name = "Command9", .caption = "+1шаг", .hint = "Один шаг даты"}};
    CommandButton Command8{
        this,
        {.name = "Command8", .caption = "JD=JD0", .hint = "Вернуть дату, с которой начался расчет с шагом"}};
    CommandButton Command2{this, {.name = "Command2", .caption = "Очистить", .hint = "Стереть рисунок"}};
    CommandButton Command4{this,
                           {.name = "Command4", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};
    ScrollBar HScroll1{
        this,
        {.name = "HScroll1", .min = 1, .max = 10000, .value = 300, .hint = "Масштаб рисунка построений"}};
    Label Label1{this,
                 {.name = "Label1",
                  .caption = "Масштаб = 30 млн.км/см",
                  .hint = "Масштаб рисунка; его задает ползунок, млн. км в клетке"}};
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 620,
                      .height = 620,
                      .background = {0, 0, 0},
                      .hint = "Построения, развертка или фазовая плоскость; одна клетка - 1 см масштабов"}};

    void load() override;
    void unload() override;

private:
    bool prepare(double day);
    void iterate();
    void stepLoop();
    void showScale();
    void clearPicture();
    void showBody(int row, TextField& x, TextField& y, TextField& z, TextField& vx, TextField& vy,
                  TextField& vz);
    Color colorOf(int row) const;
    void drawPlaces();
    void drawConstruction();
    void drawComponents();
    double across(double x, double y, double z, bool horizontal) const;

    Laboratory& lab;
    AberrationBench bench_;
    bool gone_ = false;                              ///< the form has been closed
    std::string startDay_, startMonth_, startYear_;  ///< date fields kept by "С шагом"
};

}  // namespace tarvex
