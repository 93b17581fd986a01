#pragma once
// Form9: the map of the data tree.

#include "forms/laboratory.h"

namespace tarvex {

class Form9 final : public Form {
public:
    static constexpr const char* formName = "Form9";
    explicit Form9(Laboratory& lab);

    Label Label1{this,
                 {.name = "Label1",
                  .caption = "Tarvex7m.exe - программа Tarvex7m",
                  .hint = "Папки лежат рядом с программой"}};
    Label Label2{
        this,
        {.name = "Label2", .caption = "Dat - дополнительные файлы для работы программы и справочные файлы"}};
    Label Label3{this,
                 {.name = "Label3", .caption = "JPL - имитатор Солнечной системы JPL (эфемериды DE405)"}};
    Label Label4{this, {.name = "Label4", .caption = "NEW - имитатор Солнечной системы Ньюкома"}};
    Label Label5{this, {.name = "Label5", .caption = "Ser - мой имитатор (получен по данным Obs и Tab) "}};
    Label Label6{this, {.name = "Label6", .caption = "Obs - данные оптических наблюдений обсерваторий"}};
    Label Label7{this, {.name = "Label7", .caption = "Tab - данные древних астрономов в виде таблиц"}};
    Label Label8{this,
                 {.name = "Label8", .caption = "Plan0 - параметры орбит полученные на модели без плана"}};
    Label Label9{this,
                 {.name = "Label9",
                  .caption = "Plan1 - параметры орбит всех планет полученные по плану №1 многофакторного "
                             "эксперимента на модели Солнечной системы"}};
    Label Label10{this, {.name = "Label10", .caption = "Txt1 - папка Меркурия"}};
    Label Label11{this, {.name = "Label11", .caption = "Txt11 - папка Луны"}};
    Label Label12{this,
                  {.name = "Label12",
                   .caption = "Arhiv",
                   .hint = "Ведется вручную; здесь же звук окончания расчета tada.wav"}};
    CommandButton Command1{this,
                           {.name = "Command1", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};
};

}  // namespace tarvex
