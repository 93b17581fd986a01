#pragma once
// Form7: test of the speed of gravity between two bodies, one iteration at a time.

#include "forms/laboratory.h"
#include "numeric/gravity_bench.h"

namespace tarvex {

class GravityBenchForm final : public Form {
public:
    static constexpr const char* formName = "Form7";
    explicit GravityBenchForm(Laboratory& lab);

    CheckBoxes Check1;  ///< body 0..9, exactly two
    TextField Text1{
        this, {.name = "Text1", .label = "Alfa1", .text = "0", .hint = "Долгота первого тела, градусы"}};
    TextField Text2{
        this, {.name = "Text2", .label = "Alfa2", .text = "135", .hint = "Долгота второго тела, градусы"}};
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
    CheckBox Check3{
        this, {.name = "Check3", .caption = "+ (км/с)", .hint = "Прибавить скорость системы к обоим телам"}};
    TextField Text6{this,
                    {.name = "Text6",
                     .label = "Vgr=Vsv*",
                     .text = "0,001",
                     .hint = "Скорость гравитации в скоростях света; заменяет Vgr остановленного расчета"}};
    TextField Text40{this,
                     {.name = "Text40",
                      .label = "kPgr1=",
                      .text = "1",
                      .hint = "Первый коэффициент закона; заменяет k1 остановленного расчета"}};
    TextField Text62{this,
                     {.name = "Text62",
                      .label = "kPgr2=",
                      .text = "1",
                      .hint = "Второй коэффициент закона; заменяет k2 остановленного расчета"}};
    TextField Text23{this,
                     {.name = "Text23",
                      .label = "MF, 10^12 Н/см",
                      .text = "1000",
                      .hint = "Масштаб стрелок силы, 10^12 Н в клетке"}};
    TextField Text46{this,
                     {.name = "Text46",
                      .label = "MV, (км/с)/см",
                      .text = "10",
                      .hint = "Масштаб стрелок скорости, км/с в клетке"}};
    CheckBox Check2{this,
                    {.name = "Check2",
                     .caption = "+  координаты и скорости с формы 2",
                     .hint = "Взять состояние расчета формы 2 (он должен идти с отметкой «текст теста»)"}};
    CheckBox Check4{this,
                    {.name = "Check4",
                     .caption = "учитывать DX",
                     .hint = "Брать тяготение от следа тела по выбранному на форме 23 запаздыванию"}};
    CheckBox Check5{
        this,
        {.name = "Check5", .caption = "учитывать Pgr", .hint = "Учесть давление гравитации по закону Норин"}};
    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "XY",
                          .group = "plane",
                          .on = true,
                          .hint = "Рисовать в плоскости эклиптики"}};
    OptionButton Option2{
        this, {.name = "Option2", .caption = "XZ", .group = "plane", .hint = "Рисовать вид сбоку"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "F12",
                          .group = "direction",
                          .on = true,
                          .hint = "Показывать действие первого тела на второе"}};
    OptionButton Option4{this,
                         {.name = "Option4",
                          .caption = "F21",
                          .group = "direction",
                          .hint = "Показывать действие второго тела на первое"}};
    TextField Text7{this,
                    {.name = "Text7",
                     .label = "L12=L21=",
                     .hint = "Расстояние между телами сейчас, тыс. км",
                     .readOnly = true}};
    TextField Text8{this,
                    {.name = "Text8",
                     .label = "T12=T21=",
                     .hint = "Время хода гравитации между телами, с",
                     .readOnly = true}};
    TextField Text9{this,
                    {.name = "Text9",
                     .label = "F12=F21",
                     .hint = "Сила тяготения между положениями сейчас, Н",
                     .readOnly = true}};
    TextField Text10{this,
                     {.name = "Text10",
                      .label = "сделано итераций",
                      .hint = "Число итераций после задания положений",
                      .readOnly = true}};
    TextField Text11{this, {.name = "Text11", .hint = "X тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField Text12{this, {.name = "Text12", .hint = "X тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField Text13{this, {.name = "Text13", .hint = "Y тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField Text14{this, {.name = "Text14", .hint = "Y тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField Text15{this, {.name = "Text15", .hint = "Z тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField Text16{this, {.name = "Text16", .hint = "Z тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField Text17{this, {.name = "Text17", .hint = "VX тела 1, м/с", .readOnly = true, .width = 12}};
    TextField Text18{this, {.name = "Text18", .hint = "VX тела 2, м/с", .readOnly = true, .width = 12}};
    TextField Text19{this, {.name = "Text19", .hint = "VY тела 1, м/с", .readOnly = true, .width = 12}};
    TextField Text20{this, {.name = "Text20", .hint = "VY тела 2, м/с", .readOnly = true, .width = 12}};
    TextField Text21{this, {.name = "Text21", .hint = "VZ тела 1, м/с", .readOnly = true, .width = 12}};
    TextField Text22{this, {.name = "Text22", .hint = "VZ тела 2, м/с", .readOnly = true, .width = 12}};
    TextField Text24{this,
                     {.name = "Text24", .hint = "X следа тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField Text25{this,
                     {.name = "Text25", .hint = "X следа тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField Text26{this,
                     {.name = "Text26", .hint = "Y следа тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField Text27{this,
                     {.name = "Text27", .hint = "Y следа тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField Text28{this,
                     {.name = "Text28", .hint = "Z следа тела 1, тыс. км", .readOnly = true, .width = 12}};
    TextField Text29{this,
                     {.name = "Text29", .hint = "Z следа тела 2, тыс. км", .readOnly = true, .width = 12}};
    TextField Text31{
        this, {.name = "Text31", .hint = "Угол VX тела i с направлением на k, градусы", .readOnly = true}};
    TextField Text32{
        this, {.name = "Text32", .hint = "Угол VY тела i с направлением на k, градусы", .readOnly = true}};
    TextField Text33{
        this, {.name = "Text33", .hint = "Угол VZ тела i с направлением на k, градусы", .readOnly = true}};
    TextField Text34{
        this,
        {.name = "Text34", .hint = "Проекция скорости тела i на направление к k, м/с", .readOnly = true}};
    TextField Text35{
        this, {.name = "Text35", .hint = "Угол VX тела k с направлением от i, градусы", .readOnly = true}};
    TextField Text36{
        this, {.name = "Text36", .hint = "Угол VY тела k с направлением от i, градусы", .readOnly = true}};
    TextField Text37{
        this, {.name = "Text37", .hint = "Угол VZ тела k с направлением от i, градусы", .readOnly = true}};
    TextField Text38{
        this,
        {.name = "Text38", .hint = "Проекция скорости тела k на направление от i, м/с", .readOnly = true}};
    TextField Text53{this,
                     {.name = "Text53",
                      .label = "Alfa i k",
                      .hint = "Долгота направления от следа i к k, градусы",
                      .readOnly = true}};
    TextField Text54{this,
                     {.name = "Text54",
                      .label = "Betta i k",
                      .hint = "Широта направления от следа i к k, градусы",
                      .readOnly = true}};
    TextField Text55{this,
                     {.name = "Text55",
                      .label = "L i k",
                      .hint = "Расстояние от следа i до k, тыс. км",
                      .readOnly = true}};
    TextField Text59{this,
                     {.name = "Text59",
                      .label = "T i k",
                      .hint = "Время хода гравитации от следа i до k, с",
                      .readOnly = true}};
    TextField Text60{this,
                     {.name = "Text60",
                      .label = "dVk - dVi",
                      .hint = "Скорость удаления вдоль направления, м/с",
                      .readOnly = true}};
    TextField Text61{
        this,
        {.name = "Text61", .label = "L12/L21", .hint = "Отношение расстояний до следов", .readOnly = true}};
    TextField Text30{this, {.name = "Text30", .label = "F12/F21", .hint = "Отношение сил", .readOnly = true}};
    TextField Text41{this,
                     {.name = "Text41",
                      .label = "Fs (по следам)",
                      .hint = "Сила по следам без давления, Н",
                      .readOnly = true}};
    TextField Text42{this,
                     {.name = "Text42", .label = "Fsum ", .hint = "Сила с давлением, Н", .readOnly = true}};
    TextField Text43{
        this, {.name = "Text43", .label = "FXsum", .hint = "Составляющая FX силы, Н", .readOnly = true}};
    TextField Text44{
        this, {.name = "Text44", .label = "FYsum", .hint = "Составляющая FY силы, Н", .readOnly = true}};
    TextField Text45{
        this, {.name = "Text45", .label = "FZsum", .hint = "Составляющая FZ силы, Н", .readOnly = true}};
    TextField Text56{this,
                     {.name = "Text56",
                      .label = "FXsum - FXs",
                      .hint = "Отличие FX от силы по следам, Н",
                      .readOnly = true}};
    TextField Text57{this,
                     {.name = "Text57",
                      .label = "FYsum - FYs",
                      .hint = "Отличие FY от силы по следам, Н",
                      .readOnly = true}};
    TextField Text58{this,
                     {.name = "Text58",
                      .label = "FZsum - FZs",
                      .hint = "Отличие FZ от силы по следам, Н",
                      .readOnly = true}};
    TextField Text47{this,
                     {.name = "Text47",
                      .hint = "VX тела 1 в мгновение ухода гравитации, м/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text48{this,
                     {.name = "Text48",
                      .hint = "VY тела 1 в мгновение ухода гравитации, м/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text49{this,
                     {.name = "Text49",
                      .hint = "VZ тела 1 в мгновение ухода гравитации, м/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text50{this,
                     {.name = "Text50",
                      .hint = "VX тела 2 в мгновение ухода гравитации, м/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text51{this,
                     {.name = "Text51",
                      .hint = "VY тела 2 в мгновение ухода гравитации, м/с",
                      .readOnly = true,
                      .width = 12}};
    TextField Text52{this,
                     {.name = "Text52",
                      .hint = "VZ тела 2 в мгновение ухода гравитации, м/с",
                      .readOnly = true,
                      .width = 12}};
    CommandButton Command1{this,
                           {.name = "Command1",
                            .caption = "Задать положение 2-х планет",
                            .hint = "Положения и силы сейчас; меняет массы, Vgr, k1, k2 и ускорения: "
                                    "остановленный расчет формы 2 после этого начинают заново",
                            .isDefault = true}};
    CommandButton Command3{this,
                           {.name = "Command3",
                            .caption = "Сделать 1 итерацию с заданными условиями движения",
                            .hint = "Найти следы и силы еще раз; повторять, пока поля не установятся"}};
    CommandButton Command4{this,
                           {.name = "Command4", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};
    ScrollBar HScroll1{this,
                       {.name = "HScroll1",
                        .min = 1,
                        .max = 10000,
                        .value = 200,
                        .hint = "Масштаб рисунка, от 0,1 до 1000 млн. км в клетке; идет в Mx"}};
    Label Label23{this,
                  {.name = "Label23",
                   .caption = "Масштаб = 20 млн. км./ см",
                   .hint = "Масштаб рисунка; его задает ползунок, млн. км в клетке"}};
    Picture Picture1{this,
                     {.name = "Picture1",
                      .width = 600,
                      .height = 600,
                      .hint = "Тела, их следы, силы и скорости в выбранной плоскости"}};

    void load() override;

private:
    void place();
    void iterate();
    void showPresent();
    void showAction();
    void draw();
    void printTrace();
    void clearPicture();

    Laboratory& lab;
    GravityBench bench_;
    bool placed_ = false;
};

}  // namespace tarvex
