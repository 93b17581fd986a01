#pragma once
// Controls of Form11, the bench of aberration.  Their order is the tab order.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class AberrationControls : public Form {
public:
    static constexpr const char* formName = "Form11";

    CheckBoxes objectChoice;  ///< object 0..10, exactly one
    TextField earthLongitude{
        this,
        {.name = "Text1",
         .label = "GelioL3",
         .text = "270",
         .hint = "Гелиоцентрическая долгота Земли, градусы; с теорией New0 показывается ее значение"}};
    TextField objectLongitude{
        this,
        {.name = "Text2",
         .label = "GelioLpl",
         .text = "90",
         .hint = "Гелиоцентрическая долгота объекта, градусы; с теорией New0 показывается ее значение"}};
    CheckBox longitudesByTheory{
        this,
        {.name = "Check2",
         .caption = "по теории New0 для",
         .hint = "Долготы Земли и объекта взять из теории New0 на дату, а не из полей"}};
    TextField systemVX{this,
                       {.name = "Text3",
                        .label = "VXsys",
                        .text = "0",
                        .hint = "Скорость системы по оси X, км/с; идет в VXsys"}};
    TextField systemVY{this,
                       {.name = "Text4",
                        .label = "VYsys",
                        .text = "0",
                        .hint = "Скорость системы по оси Y, км/с; идет в VYsys"}};
    TextField systemVZ{this,
                       {.name = "Text5",
                        .label = "VZsys",
                        .text = "0",
                        .hint = "Скорость системы по оси Z, км/с; идет в VZsys"}};
    TextField lightDivisor{
        this,
        {.name = "Text6",
         .label = "скорость света уменьшить в ",
         .text = "1000",
         .hint = "Делитель скорости света: 1 дает настоящую аберрацию, 1000 делает углы видимыми"}};
    TextField timeScale{this,
                        {.name = "Text7",
                         .label = "MT, лет/см",
                         .text = "0,25",
                         .hint = "Масштаб времени развертки, лет в клетке"}};
    TextField angleScale{this,
                         {.name = "Text8",
                          .label = "MAlfa, град/см",
                          .text = "0,5",
                          .hint = "Масштаб аберрации, градусов в клетке"}};
    TextField dateStep{
        this,
        {.name = "Text9", .label = "шаг, дни", .text = "0,01", .hint = "Шаг даты при расчете с шагом, дней"}};
    TextField day{this, {.name = "Text23", .label = "день", .text = "1,5", .hint = "День даты с долей, дни"}};
    TextField month{this, {.name = "Text33", .label = "месяц", .text = "1", .hint = "Месяц от 1 до 12"}};
    TextField year{
        this, {.name = "Text43", .label = "год", .text = "2000", .hint = "Год по григорианскому календарю"}};
    CheckBox plotSourceAberration{this,
                                  {.name = "Check3",
                                   .caption = "Аберрация источника Ais",
                                   .on = true,
                                   .hint = "Чертить сдвиг от движения источника (красный)"}};
    CheckBox plotReceiverAberration{this,
                                    {.name = "Check4",
                                     .caption = "Аберрация приемника Apr",
                                     .on = true,
                                     .hint = "Чертить сдвиг от движения приемника (синий)"}};
    CheckBox plotTotalAberration{this,
                                 {.name = "Check5",
                                  .caption = "Суммарная аберрация As",
                                  .on = true,
                                  .hint = "Чертить сумму обоих сдвигов (зеленый)"}};
    CheckBox absoluteValues{
        this,
        {.name = "Check6", .caption = "+abs", .hint = "На фазовой плоскости брать абсолютные значения"}};
    CheckBox timesCosLatitude{this,
                              {.name = "Check7",
                               .caption = "* cos(B)",
                               .hint = "Шаги по скорости умножить на косинус широты объекта"}};
    OptionButton planeXY{this,
                         {.name = "Option1",
                          .caption = "XY",
                          .group = "plane",
                          .on = true,
                          .hint = "Рисовать в плоскости эклиптики; на развертке - по долготе"}};
    OptionButton planeXZ{this,
                         {.name = "Option2",
                          .caption = "XZ",
                          .group = "plane",
                          .hint = "Рисовать вид сбоку; на развертке - по широте"}};
    OptionButton viewConstruction{this,
                                  {.name = "Option3",
                                   .caption = "построения",
                                   .group = "kind",
                                   .on = true,
                                   .hint = "Рисовать положения, скорости и лучи"}};
    OptionButton viewAgainstTime{this,
                                 {.name = "Option4",
                                  .caption = "развертка",
                                  .group = "kind",
                                  .hint = "Рисовать составляющие аберрации по времени"}};
    OptionButton viewPhasePlane{
        this,
        {.name = "Option5",
         .caption = "фазовая плоскость",
         .group = "kind",
         .hint = "Рисовать составляющие по направлению гелиоцентрической долготы Земли"}};

    TextField earthX{this, {.name = "Text11", .hint = "X Земли, тыс. км", .readOnly = true, .width = 13}};
    TextField earthY{this, {.name = "Text13", .hint = "Y Земли, тыс. км", .readOnly = true, .width = 13}};
    TextField earthZ{this, {.name = "Text15", .hint = "Z Земли, тыс. км", .readOnly = true, .width = 13}};
    TextField earthVX{this, {.name = "Text17", .hint = "VX Земли, км/с", .readOnly = true, .width = 10}};
    TextField earthVY{this, {.name = "Text19", .hint = "VY Земли, км/с", .readOnly = true, .width = 10}};
    TextField earthVZ{this, {.name = "Text21", .hint = "VZ Земли, км/с", .readOnly = true, .width = 10}};
    TextField objectX{
        this,
        {.name = "Text12", .text = "0", .hint = "X объекта, тыс. км; для звезды задается", .width = 13}};
    TextField objectY{
        this,
        {.name = "Text14", .text = "0", .hint = "Y объекта, тыс. км; для звезды задается", .width = 13}};
    TextField objectZ{
        this,
        {.name = "Text16", .text = "0", .hint = "Z объекта, тыс. км; для звезды задается", .width = 13}};
    TextField objectVX{
        this, {.name = "Text18", .text = "0", .hint = "VX объекта, км/с; для звезды задается", .width = 10}};
    TextField objectVY{
        this, {.name = "Text20", .text = "0", .hint = "VY объекта, км/с; для звезды задается", .width = 10}};
    TextField objectVZ{
        this, {.name = "Text22", .text = "0", .hint = "VZ объекта, км/с; для звезды задается", .width = 10}};
    TextField retardedX{this,
                        {.name = "Text24",
                         .hint = "X объекта после аберрации источника, тыс. км",
                         .readOnly = true,
                         .width = 13}};
    TextField retardedY{this,
                        {.name = "Text25",
                         .hint = "Y объекта после аберрации источника, тыс. км",
                         .readOnly = true,
                         .width = 13}};
    TextField retardedZ{this,
                        {.name = "Text26",
                         .hint = "Z объекта после аберрации источника, тыс. км",
                         .readOnly = true,
                         .width = 13}};
    TextField totalVX{
        this,
        {.name = "Text27", .hint = "VX объекта вместе с системой, км/с", .readOnly = true, .width = 10}};
    TextField totalVY{
        this,
        {.name = "Text28", .hint = "VY объекта вместе с системой, км/с", .readOnly = true, .width = 10}};
    TextField totalVZ{
        this,
        {.name = "Text29", .hint = "VZ объекта вместе с системой, км/с", .readOnly = true, .width = 10}};
    TextField distance{this,
                       {.name = "Text30",
                        .label = "S, тыс.км",
                        .hint = "Расстояние от Земли до объекта, тыс. км",
                        .readOnly = true,
                        .width = 14}};
    TextField lightTime{this,
                        {.name = "Text31",
                         .label = "T=S/Vsv, с",
                         .hint = "Время хода света при уменьшенной скорости, с",
                         .readOnly = true,
                         .width = 14}};
    TextField trueLongitude{this,
                            {.name = "Text37",
                             .label = "GeoL",
                             .hint = "Действительная геоцентрическая долгота, градусы",
                             .readOnly = true}};
    TextField trueLatitude{this,
                           {.name = "Text47",
                            .label = "GeoB",
                            .hint = "Действительная геоцентрическая широта, градусы",
                            .readOnly = true}};
    TextField sourceShiftLongitude{
        this, {.name = "Text32", .hint = "Сдвиг долготы от движения источника, градусы", .readOnly = true}};
    TextField sourceShiftLatitude{
        this, {.name = "Text42", .hint = "Сдвиг широты от движения источника, градусы", .readOnly = true}};
    TextField receiverShiftLongitude{
        this, {.name = "Text34", .hint = "Сдвиг долготы от движения приемника, градусы", .readOnly = true}};
    TextField receiverShiftLatitude{
        this, {.name = "Text44", .hint = "Сдвиг широты от движения приемника, градусы", .readOnly = true}};
    TextField totalShiftLongitude{
        this, {.name = "Text35", .hint = "Сумма сдвигов долготы, градусы", .readOnly = true}};
    TextField totalShiftLatitude{
        this, {.name = "Text45", .hint = "Сумма сдвигов широты, градусы", .readOnly = true}};
    TextField apparentLongitude{this,
                                {.name = "Text36", .hint = "Видимая долгота, градусы", .readOnly = true}};
    TextField apparentLatitude{this, {.name = "Text46", .hint = "Видимая широта, градусы", .readOnly = true}};
    TextField iterationCount{this,
                             {.name = "Text10",
                              .label = "сделано итераций",
                              .hint = "Число итераций после последней подготовки",
                              .readOnly = true}};

    CommandButton findPlaces{this,
                             {.name = "Command1",
                              .caption = "Найти параметры Земли и объекта наблюдения",
                              .hint = "Положения и скорости на дату, действительное направление на объект",
                              .isDefault = true,
                              .disturbs = Disturbs::All}};
    CommandButton iterateOnce{
        this,
        {.name = "Command3",
         .caption = "Расчет наблюдаемых координат планеты в движущейся Солнечной системе (одна итерация) при "
                    "заданной скорости Солнечной системы",
         .hint = "Одна итерация: сдвиги от источника и от приемника; сначала найти параметры",
         .disturbs = Disturbs::All}};
    CommandButton runByDates{
        this,
        {.name = "Command5",
         .caption = "С шагом",
         .hint = "Менять дату с шагом и считать, пока не остановят; включает теорию New0",
         .disturbs = Disturbs::All}};
    CommandButton stopRun{this, {.name = "Command6", .caption = "Stop", .hint = "Остановить расчет с шагом"}};
    CommandButton continueRun{this,
                              {.name = "Command7",
                               .caption = "Продолжить",
                               .hint = "Продолжить расчет с шагом",
                               .disturbs = Disturbs::All}};
    CommandButton stepOnce{
        this, {.name = "Command9", .caption = "+1шаг", .hint = "Один шаг даты", .disturbs = Disturbs::All}};
    CommandButton toStartDate{
        this,
        {.name = "Command8", .caption = "JD=JD0", .hint = "Вернуть дату, с которой начался расчет с шагом"}};
    CommandButton clearDrawing{this, {.name = "Command2", .caption = "Очистить", .hint = "Стереть рисунок"}};
    CommandButton closeForm{this, closingSpec("Command4", Disturbs::Own)};
    ScrollBar drawingScale{
        this,
        {.name = "HScroll1", .min = 1, .max = 10000, .value = 300, .hint = "Масштаб рисунка построений"}};
    Label drawingScaleCaption{this,
                              {.name = "Label1",
                               .caption = "Масштаб = 30 млн.км/см",
                               .hint = "Масштаб рисунка; его задает ползунок, млн. км в клетке"}};
    Picture drawing{this,
                    {.name = "Picture1",
                     .width = 620,
                     .height = 620,
                     .background = {0, 0, 0},
                     .hint = "Построения, развертка или фазовая плоскость; одна клетка - 1 см масштабов"}};

protected:
    explicit AberrationControls(Desk& desk);

private:
    void layOut();
};

}  // namespace tarvex
