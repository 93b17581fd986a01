#pragma once
// Form9: the data tree as it stands on the disk.

#include "forms/laboratory.h"

namespace tarvex {

class FileTreeForm final : public Form {
public:
    static constexpr const char* formName = "Form9";
    explicit FileTreeForm(Laboratory& lab);

    Label Label1{this,
                 {.name = "Label1",
                  .caption = "Tarvex7m.exe - программа Tarvex7m",
                  .hint = "Программа читает и пишет файлы в папках этого дерева"}};
    Label Label2{
        this,
        {.name = "Label2",
         .caption = "Dat - дополнительные файлы для работы программы и справочные файлы",
         .hint = "Элементы и начальные данные, возмущения, координаты прогонов, отчеты форм 10 и 16"}};
    Label Label3{
        this,
        {.name = "Label3",
         .caption = "JPL - имитатор Солнечной системы JPL (эфемериды DE405)",
         .hint = "Эфемериды по 20 лет в файле; ряды элементов имитаторов JPL0 и JPL2, их вековые сдвиги"}};
    Label Label4{this,
                 {.name = "Label4",
                  .caption = "NEW - имитатор Солнечной системы Ньюкома",
                  .hint = "Ряды элементов имитатора New0 и их вековые сдвиги"}};
    Label Label5{this,
                 {.name = "Label5",
                  .caption = "Ser - мой имитатор (получен по данным Obs и Tab) ",
                  .hint = "Вековые сдвиги по наблюдениям; в папках Plan<k> - ряды элементов формы 13"}};
    Label Label6{this,
                 {.name = "Label6",
                  .caption = "Obs - данные оптических наблюдений обсерваторий",
                  .hint = "Наблюдения для формы 10; в папках Plan<k> - эксперименты формы 13"}};
    Label Label7{this,
                 {.name = "Label7",
                  .caption = "Tab - данные древних астрономов в виде таблиц",
                  .hint = "Книги таблиц для форм 10 и 16; в папках Plan<k> - эксперименты формы 13"}};
    Label Label8{this,
                 {.name = "Label8",
                  .caption = "Plan0 - параметры орбит полученные на модели без плана",
                  .hint = "Записи прогонов формы 2 без плана"}};
    Label Label9{this,
                 {.name = "Label9",
                  .caption = "Plan1 - параметры орбит всех планет полученные по плану №1 многофакторного "
                             "эксперимента на модели Солнечной системы",
                  .hint = "План, расчетные сдвиги и записи его экспериментов; так же Plan2 и другие"}};
    Label Label10{this,
                  {.name = "Label10",
                   .caption = "Txt1 - папка Меркурия",
                   .hint = "Записи элементов Меркурия в прогонах без плана, Plan0/Txt1"}};
    Label Label11{this,
                  {.name = "Label11",
                   .caption = "Txt11 - папка Луны",
                   .hint = "Записи элементов Луны в прогонах без плана, Plan0/Txt11"}};
    Label Label12{this,
                  {.name = "Label12",
                   .caption = "Arhiv",
                   .hint = "Ведется вручную; здесь же звук окончания расчета tada.wav"}};
    TextFields Text1;  ///< by the index of the label: how many files lie in its folder
    TextField Text2{this,
                    {.name = "Text2",
                     .hint = "Папки и файлы, как они есть на диске: размер и что в файле",
                     .readOnly = true,
                     .lines = 30,
                     .width = 84}};
    CommandButton Command2{
        this, {.name = "Command2", .caption = "Обновить", .hint = "Прочитать дерево с диска заново"}};
    CommandButton Command1{this,
                           {.name = "Command1", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};

    void load() override;
    void activate() override;

private:
    void refresh();

    const DataTree& tree_;
};

}  // namespace tarvex
