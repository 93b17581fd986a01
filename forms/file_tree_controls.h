#pragma once
// The controls of the screen of files, Form9, in tab order: the folders with their counts, and the listing.

#include <fmt/format.h>

#include <array>

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class FileTreeControls : public Form {
public:
    using Form::Form;

    Label program{this,
                  {.name = "Label1",
                   .caption = "Tarvex7m.exe - программа Tarvex7m",
                   .hint = "Программа читает и пишет файлы в папках этого дерева"}};
    Label dat{this,
              {.name = "Label2",
               .caption = "Dat - дополнительные файлы для работы программы и справочные файлы",
               .hint = "Элементы и начальные данные, возмущения, координаты прогонов, отчеты форм 10 и 16"}};
    Label jpl{
        this,
        {.name = "Label3",
         .caption = "JPL - имитатор Солнечной системы JPL (эфемериды DE405)",
         .hint = "Эфемериды по 20 лет в файле; ряды элементов имитаторов JPL0 и JPL2, их вековые сдвиги"}};
    Label newcomb{this,
                  {.name = "Label4",
                   .caption = "NEW - имитатор Солнечной системы Ньюкома",
                   .hint = "Ряды элементов имитатора New0 и их вековые сдвиги"}};
    Label ser{this,
              {.name = "Label5",
               .caption = "Ser - мой имитатор (получен по данным Obs и Tab) ",
               .hint = "Вековые сдвиги по наблюдениям; в папках Plan<k> - ряды элементов формы 13"}};
    Label observatories{this,
                        {.name = "Label6",
                         .caption = "Obs - данные оптических наблюдений обсерваторий",
                         .hint = "Наблюдения для формы 10; в папках Plan<k> - эксперименты формы 13"}};
    Label tables{this,
                 {.name = "Label7",
                  .caption = "Tab - данные древних астрономов в виде таблиц",
                  .hint = "Книги таблиц для форм 10 и 16; в папках Plan<k> - эксперименты формы 13"}};
    Label unplanned{this,
                    {.name = "Label8",
                     .caption = "Plan0 - параметры орбит полученные на модели без плана",
                     .hint = "Записи прогонов формы 2 без плана"}};
    Label plan1{this,
                {.name = "Label9",
                 .caption = "Plan1 - параметры орбит всех планет полученные по плану №1 многофакторного "
                            "эксперимента на модели Солнечной системы",
                 .hint = "План, расчетные сдвиги и записи его экспериментов; так же Plan2 и другие"}};
    Label mercury{this,
                  {.name = "Label10",
                   .caption = "Txt1 - папка Меркурия",
                   .hint = "Записи элементов Меркурия в прогонах без плана, Plan0/Txt1"}};
    Label moon{this,
               {.name = "Label11",
                .caption = "Txt11 - папка Луны",
                .hint = "Записи элементов Луны в прогонах без плана, Plan0/Txt11"}};
    Label archive{this,
                  {.name = "Label12",
                   .caption = "Arhiv",
                   .hint = "Ведется вручную; здесь же звук окончания расчета tada.wav"}};
    /// By the number of the label: how many files lie in its folder.
    TextFields fileCounts{this, firstFolder, firstFolder + static_cast<int>(folders.size()) - 1, countOf};
    TextField listing{this,
                      {.name = "Text2",
                       .hint = "Папки и файлы, как они есть на диске: размер и что в файле",
                       .readOnly = true,
                       .lines = 30,
                       .width = 84}};
    CommandButton readAgain{
        this, {.name = "Command2", .caption = "Обновить", .hint = "Прочитать дерево с диска заново"}};
    CommandButton closeForm{this, closingSpec("Command1")};

protected:
    static constexpr int firstFolder = 2;  ///< number of the first label that stands for a folder
    static constexpr std::array<const char*, 11> folders{
        "Dat", "JPL", "NEW", "Ser", "Obs", "Tab", "Plan0", "Plan1", "Plan0/Txt1", "Plan0/Txt11", "Arhiv"};

private:
    static TextField::Spec countOf(int i) {
        TextField::Spec spec{.name = "Text1", .readOnly = true, .width = 12};
        spec.hint = fmt::format("Сколько файлов в папке {} и ниже", folders[i - firstFolder]);
        return spec;
    }
};

}  // namespace tarvex
