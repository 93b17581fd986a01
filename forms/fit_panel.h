#pragma once
// The fit of the model to places, as the screen of observations asks for it and shows it.

#include "fit/place_fit.h"
#include "runtime/form.h"

namespace tarvex {

class FitPanel {
public:
    explicit FitPanel(Form* form_) : form(form_) {}

private:
    Form* form;  ///< before the controls, which are made on it

public:
    OptionButtons source{
        form, 0, 2, [](int i) {
            constexpr const char* captions[] = {"файл мест", "DE405", "наблюдения"};
            constexpr const char* hints[] = {
                "Места из файла \\Obs\\: строки JD, объект, X, Y, Z, км, от Солнца, эклиптика J2000",
                "Места по DE405 за годы, через равные промежутки",
                "Направления наблюдений, принятых в последнем прогоне с этой отметкой; земная орбита "
                "подгоняется, "
                "если среди "
                "объектов есть 3"};
            return OptionButton::Spec{.name = "FitSource",
                                      .caption = captions[i],
                                      .group = "fitSource",
                                      .on = i == 0,
                                      .hint = hints[i]};
        }};
    TextField file{
        form,
        {.name = "FitFile", .label = "файл в \\Obs", .hint = "Имя файла мест в папке \\Obs", .width = 20}};
    TextField from{form,
                   {.name = "FitFrom",
                    .label = "с года",
                    .text = "1961",
                    .hint = "Первый год мест DE405, с полудня 1 января",
                    .width = 6}};
    TextField to{
        form,
        {.name = "FitTo", .label = "по год", .text = "2000", .hint = "Последний год мест DE405", .width = 6}};
    TextField every{form,
                    {.name = "FitEvery",
                     .label = "через, суток",
                     .text = "30",
                     .hint = "Промежуток между местами DE405, сутки",
                     .width = 6}};
    TextField bodies{form,
                     {.name = "FitBodies",
                      .label = "объекты",
                      .text = "1",
                      .hint = "Номера объектов, чьи начальные данные подгоняются по их местам: 1,2,4-5",
                      .width = 12}};
    TextField parameters{
        form,
        {.name = "FitParameters",
         .label = "параметры",
         .hint = "Что подгонять кроме начальных данных: Vgr,VXsys,VYsys,VZsys,kPgr1,m1 ... m10",
         .width = 20}};
    TextField sigma{form,
                    {.name = "FitSigma",
                     .label = "погрешность",
                     .text = "100",
                     .hint = "Стандартная погрешность координаты места, км, или наблюдения, угл.сек",
                     .width = 8}};
    CommandButton fit{
        form,
        {.name = "FitPlaces",
         .caption = "Подогнать модель к местам",
         .hint = "Наименьшие квадраты: начальные данные формы 1, шаг и скорость гравитации формы 2, закон "
                 "формы 23; модель начинается не позже первого места и сама не меняется"}};
    CommandButton stop{form, {.name = "FitStop", .caption = "Прервать", .hint = "Прервать подгонку"}};
    TextField Vgr{form,
                  {.name = "FitVgr",
                   .label = "Vgr, Vsv",
                   .hint = "Скорость гравитации по местам; пусто, если не определена",
                   .readOnly = true,
                   .width = 10}};
    TextField VgrError{form,
                       {.name = "FitVgrError",
                        .label = "±",
                        .hint = "Стандартная погрешность скорости гравитации, Vsv",
                        .readOnly = true,
                        .width = 10}};
    TextField VgrLow{form,
                     {.name = "FitVgrLow",
                      .label = "не меньше",
                      .hint = "Нижняя граница Vgr (95 %), Vsv, когда 1/Vgr не отличается от нуля",
                      .readOnly = true,
                      .width = 10}};
    TextField chiSquare{form,
                        {.name = "FitChiSquare",
                         .label = "хи-квадрат",
                         .hint = "Сумма квадратов остатков в погрешностях",
                         .readOnly = true,
                         .width = 10}};
    TextField freedom{form,
                      {.name = "FitFreedom",
                       .label = "степеней свободы",
                       .hint = "Координат мест за вычетом определенных неизвестных",
                       .readOnly = true,
                       .width = 8}};
    TextField report{
        form,
        {.name = "FitReport",
         .hint = "Ответ: параметры, корреляции, начальные данные, остатки по объектам, что определено",
         .readOnly = true,
         .lines = 9}};

    Layout layout();
    /// What the fields ask for.  Throws as numberList() and toNumber() do.
    PlaceFitSettings settings() const;
    void clear();
    void show(const PlaceFit& found);
};

}  // namespace tarvex
