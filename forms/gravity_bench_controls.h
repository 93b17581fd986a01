#pragma once
// The controls of the bench of two bodies, Form7, in tab order: conditions, what is shown, the positions now,
// the action of one body on the other, commands and picture.

#include <array>

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class GravityBenchControls : public Form {
public:
    using Form::Form;

    // --- conditions
    CheckBoxes inPair{this, 0, 9, body};  ///< body 0..9, exactly two
    TextField longitude1{
        this, {.name = "Text1", .label = "Alfa1", .text = "0", .hint = "Долгота первого тела, градусы"}};
    TextField longitude2{
        this, {.name = "Text2", .label = "Alfa2", .text = "135", .hint = "Долгота второго тела, градусы"}};
    TextField systemVx{this,
                       {.name = "Text3",
                        .label = "VXsys",
                        .text = "0",
                        .hint = "Скорость системы по оси X, км/с; идет в VXsys"}};
    TextField systemVy{this,
                       {.name = "Text4",
                        .label = "VYsys",
                        .text = "0",
                        .hint = "Скорость системы по оси Y, км/с; идет в VYsys"}};
    TextField systemVz{this,
                       {.name = "Text5",
                        .label = "VZsys",
                        .text = "0",
                        .hint = "Скорость системы по оси Z, км/с; идет в VZsys"}};
    CheckBox addSystemVelocity{
        this, {.name = "Check3", .caption = "+ (км/с)", .hint = "Прибавить скорость системы к обоим телам"}};
    TextField gravitySpeed{
        this,
        {.name = "Text6",
         .label = "Vgr=Vsv*",
         .text = "0,001",
         .hint = "Скорость гравитации в скоростях света; заменяет Vgr остановленного расчета"}};
    TextField k1{this,
                 {.name = "Text40",
                  .label = "kPgr1=",
                  .text = "1",
                  .hint = "Первый коэффициент закона; заменяет k1 остановленного расчета"}};
    TextField k2{this,
                 {.name = "Text62",
                  .label = "kPgr2=",
                  .text = "1",
                  .hint = "Второй коэффициент закона; заменяет k2 остановленного расчета"}};
    TextField forceScale{this,
                         {.name = "Text23",
                          .label = "MF, 10^12 Н/см",
                          .text = "1000",
                          .hint = "Масштаб стрелок силы, 10^12 Н в клетке"}};
    TextField velocityScale{this,
                            {.name = "Text46",
                             .label = "MV, (км/с)/см",
                             .text = "10",
                             .hint = "Масштаб стрелок скорости, км/с в клетке"}};
    CheckBox fromRun{this,
                     {.name = "Check2",
                      .caption = "+  координаты и скорости с формы 2",
                      .hint = "Взять состояние расчета формы 2 (он должен идти с отметкой «текст теста»)"}};
    CheckBox useDelay{this,
                      {.name = "Check4",
                       .caption = "учитывать DX",
                       .hint = "Брать тяготение от следа тела по выбранному на форме 23 запаздыванию"}};
    CheckBox usePressure{
        this,
        {.name = "Check5", .caption = "учитывать Pgr", .hint = "Учесть давление гравитации по закону Норин"}};
    // --- what is shown
    OptionButton planeXy{this,
                         {.name = "Option1",
                          .caption = "XY",
                          .group = "plane",
                          .on = true,
                          .hint = "Рисовать в плоскости эклиптики"}};
    OptionButton planeXz{
        this, {.name = "Option2", .caption = "XZ", .group = "plane", .hint = "Рисовать вид сбоку"}};
    OptionButton firstOnSecond{this,
                               {.name = "Option3",
                                .caption = "F12",
                                .group = "direction",
                                .on = true,
                                .hint = "Показывать действие первого тела на второе"}};
    OptionButton secondOnFirst{this,
                               {.name = "Option4",
                                .caption = "F21",
                                .group = "direction",
                                .hint = "Показывать действие второго тела на первое"}};
    // --- now
    TextField distanceNow{this,
                          {.name = "Text7",
                           .label = "L12=L21=",
                           .hint = "Расстояние между телами сейчас, тыс. км",
                           .readOnly = true}};
    TextField travelTimeNow{this,
                            {.name = "Text8",
                             .label = "T12=T21=",
                             .hint = "Время хода гравитации между телами, с",
                             .readOnly = true}};
    TextField forceNow{this,
                       {.name = "Text9",
                        .label = "F12=F21",
                        .hint = "Сила тяготения между положениями сейчас, Н",
                        .readOnly = true}};
    TextField iterations{this,
                         {.name = "Text10",
                          .label = "сделано итераций",
                          .hint = "Число итераций после задания положений",
                          .readOnly = true}};
    // --- positions in thousands of km and velocities in m/s, now and of the traces
    TextField x1{this, {.name = "Text11", .hint = "X тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField x2{this, {.name = "Text12", .hint = "X тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField y1{this, {.name = "Text13", .hint = "Y тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField y2{this, {.name = "Text14", .hint = "Y тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField z1{this, {.name = "Text15", .hint = "Z тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField z2{this, {.name = "Text16", .hint = "Z тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField vx1{this, {.name = "Text17", .hint = "VX тела 1, м/с", .readOnly = true, .width = 12}};
    TextField vx2{this, {.name = "Text18", .hint = "VX тела 2, м/с", .readOnly = true, .width = 12}};
    TextField vy1{this, {.name = "Text19", .hint = "VY тела 1, м/с", .readOnly = true, .width = 12}};
    TextField vy2{this, {.name = "Text20", .hint = "VY тела 2, м/с", .readOnly = true, .width = 12}};
    TextField vz1{this, {.name = "Text21", .hint = "VZ тела 1, м/с", .readOnly = true, .width = 12}};
    TextField vz2{this, {.name = "Text22", .hint = "VZ тела 2, м/с", .readOnly = true, .width = 12}};
    TextField traceX1{this,
                      {.name = "Text24", .hint = "X следа тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField traceX2{this,
                      {.name = "Text25", .hint = "X следа тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField traceY1{this,
                      {.name = "Text26", .hint = "Y следа тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField traceY2{this,
                      {.name = "Text27", .hint = "Y следа тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField traceZ1{this,
                      {.name = "Text28", .hint = "Z следа тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField traceZ2{this,
                      {.name = "Text29", .hint = "Z следа тела 2, тыс. км", .readOnly = true, .width = 12}};
    // --- action of the source i on the target k, by the chosen direction
    TextField sourceAngleVx{
        this, {.name = "Text31", .hint = "Угол VX тела i с направлением на k, градусы", .readOnly = true}};
    TextField sourceAngleVy{
        this, {.name = "Text32", .hint = "Угол VY тела i с направлением на k, градусы", .readOnly = true}};
    TextField sourceAngleVz{
        this, {.name = "Text33", .hint = "Угол VZ тела i с направлением на k, градусы", .readOnly = true}};
    TextField sourceRadialSpeed{
        this,
        {.name = "Text34", .hint = "Проекция скорости тела i на направление к k, м/с", .readOnly = true}};
    TextField targetAngleVx{
        this, {.name = "Text35", .hint = "Угол VX тела k с направлением от i, градусы", .readOnly = true}};
    TextField targetAngleVy{
        this, {.name = "Text36", .hint = "Угол VY тела k с направлением от i, градусы", .readOnly = true}};
    TextField targetAngleVz{
        this, {.name = "Text37", .hint = "Угол VZ тела k с направлением от i, градусы", .readOnly = true}};
    TextField targetRadialSpeed{
        this,
        {.name = "Text38", .hint = "Проекция скорости тела k на направление от i, м/с", .readOnly = true}};
    TextField pullLongitude{this,
                            {.name = "Text53",
                             .label = "Alfa i k",
                             .hint = "Долгота направления от следа i к k, градусы",
                             .readOnly = true}};
    TextField pullLatitude{this,
                           {.name = "Text54",
                            .label = "Betta i k",
                            .hint = "Широта направления от следа i к k, градусы",
                            .readOnly = true}};
    TextField pullDistance{this,
                           {.name = "Text55",
                            .label = "L i k",
                            .hint = "Расстояние от следа i до k, тыс. км",
                            .readOnly = true}};
    TextField pullTime{this,
                       {.name = "Text59",
                        .label = "T i k",
                        .hint = "Время хода гравитации от следа i до k, с",
                        .readOnly = true}};
    TextField recessionSpeed{this,
                             {.name = "Text60",
                              .label = "dVk - dVi",
                              .hint = "Скорость удаления вдоль направления, м/с",
                              .readOnly = true}};
    TextField distanceRatio{
        this,
        {.name = "Text61", .label = "L12/L21", .hint = "Отношение расстояний до следов", .readOnly = true}};
    TextField forceRatio{this,
                         {.name = "Text30", .label = "F12/F21", .hint = "Отношение сил", .readOnly = true}};
    TextField traceForce{this,
                         {.name = "Text41",
                          .label = "Fs (по следам)",
                          .hint = "Сила по следам без давления, Н",
                          .readOnly = true}};
    TextField force{this,
                    {.name = "Text42", .label = "Fsum ", .hint = "Сила с давлением, Н", .readOnly = true}};
    TextField forceX{
        this, {.name = "Text43", .label = "FXsum", .hint = "Составляющая FX силы, Н", .readOnly = true}};
    TextField forceY{
        this, {.name = "Text44", .label = "FYsum", .hint = "Составляющая FY силы, Н", .readOnly = true}};
    TextField forceZ{
        this, {.name = "Text45", .label = "FZsum", .hint = "Составляющая FZ силы, Н", .readOnly = true}};
    TextField pressureX{this,
                        {.name = "Text56",
                         .label = "FXsum - FXs",
                         .hint = "Отличие FX от силы по следам, Н",
                         .readOnly = true}};
    TextField pressureY{this,
                        {.name = "Text57",
                         .label = "FYsum - FYs",
                         .hint = "Отличие FY от силы по следам, Н",
                         .readOnly = true}};
    TextField pressureZ{this,
                        {.name = "Text58",
                         .label = "FZsum - FZs",
                         .hint = "Отличие FZ от силы по следам, Н",
                         .readOnly = true}};
    // --- velocities when the gravity left, m/s
    TextField lateVx1{this,
                      {.name = "Text47",
                       .hint = "VX тела 1 в мгновение ухода гравитации, м/с",
                       .readOnly = true,
                       .width = 12}};
    TextField lateVy1{this,
                      {.name = "Text48",
                       .hint = "VY тела 1 в мгновение ухода гравитации, м/с",
                       .readOnly = true,
                       .width = 12}};
    TextField lateVz1{this,
                      {.name = "Text49",
                       .hint = "VZ тела 1 в мгновение ухода гравитации, м/с",
                       .readOnly = true,
                       .width = 12}};
    TextField lateVx2{this,
                      {.name = "Text50",
                       .hint = "VX тела 2 в мгновение ухода гравитации, м/с",
                       .readOnly = true,
                       .width = 12}};
    TextField lateVy2{this,
                      {.name = "Text51",
                       .hint = "VY тела 2 в мгновение ухода гравитации, м/с",
                       .readOnly = true,
                       .width = 12}};
    TextField lateVz2{this,
                      {.name = "Text52",
                       .hint = "VZ тела 2 в мгновение ухода гравитации, м/с",
                       .readOnly = true,
                       .width = 12}};
    // --- commands and picture
    CommandButton placeBodies{this,
                              {.name = "Command1",
                               .caption = "Задать положение 2-х планет",
                               .hint = "Положения и силы сейчас; меняет массы, Vgr, k1, k2 и ускорения: "
                                       "остановленный расчет формы 2 после этого начинают заново",
                               .isDefault = true,
                               .disturbs = Disturbs::All}};
    CommandButton iterateOnce{this,
                              {.name = "Command3",
                               .caption = "Сделать 1 итерацию с заданными условиями движения",
                               .hint = "Найти следы и силы еще раз; повторять, пока поля не установятся",
                               .disturbs = Disturbs::All}};
    CommandButton closeForm{this, closingSpec("Command4")};
    ScrollBar scale{this,
                    {.name = "HScroll1",
                     .min = 1,
                     .max = 10000,
                     .value = 200,
                     .hint = "Масштаб рисунка, от 0,1 до 1000 млн. км в клетке; идет в Mx"}};
    Label scaleLabel{this,
                     {.name = "Label23",
                      .caption = "Масштаб = 20 млн. км./ см",
                      .hint = "Масштаб рисунка; его задает ползунок, млн. км в клетке"}};
    Picture pairPicture{this,
                        {.name = "Picture1",
                         .width = 600,
                         .height = 600,
                         .hint = "Тела, их следы, силы и скорости в выбранной плоскости"}};

private:
    static CheckBox::Spec body(int i) {
        static constexpr std::array bodyNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс",
                                                 "Юпитер", "Сатурн",   "Уран",   "Нептун", "Плутон"};
        return {
            .name = "Check1", .caption = bodyNames[i], .on = i <= 1, .hint = "Тело пары; отмечают ровно два"};
    }
};

}  // namespace tarvex
