#include "forms/form9.h"

namespace tarvex {

namespace {

/// A folder of the tree: its caption and the files in it.
Layout folder(const char* name, Label& caption, std::vector<Layout> files) {
    std::vector<Layout> inside{caption};
    for (Layout& file : files) inside.push_back(std::move(file));
    return frame(name, column(std::move(inside)));
}

}  // namespace

Form9::Form9(Laboratory& lab)
    : Form(lab.desk, formName, "Файловая система программы      Tarvex7m   -  форма 9") {
    Command1.onPress([this] { close(); });
    layout_ = scrolled(column({
        Label1,
        row({column({folder("Dat", Label2,
                            {"Tarvex<N>.dat - элементы и начальные данные (форма 1)",
                             "dL<i>.dat - возмущения планет (форма 22)",
                             "Tarvex<i>XYZ<N>.txt - координаты прогона (форма 2)",
                             "NabPlan<k>.txt - эксперименты теста (форма 2)",
                             "Pulsar<N>.dat - двойная система (форма 25)",
                             "Stat..., Bad_data..., Ras_data_... - отчеты формы 10",
                             "Param_data.txt, TimeYer_data.txt - отчеты формы 16"}),
                     folder("JPL", Label3,
                            {"ascp<год>.405 - эфемериды, файл на 20 лет",
                             "Tarvex<i>Nab.txt - ряды имитаторов JPL0 и JPL2"}),
                     folder("NEW", Label4,
                            {"Tarvex<i>Nab.txt - ряды элементов имитатора",
                             "TarvexNab.dat - таблица вековых сдвигов"})}),
             column({folder("Ser", Label5,
                            {"TarvexNab.dat - таблица вековых сдвигов",
                             "Plan<k>/Tarvex<i>Nab.txt - ряды элементов по плану k"}),
                     folder("Obs", Label6,
                            {"<обсерватория><i>_G_<n>.txt - наблюдения",
                             "Plan<k>/<i>_<n>_<e>.dat - эксперименты плана (форма 13)"}),
                     folder("Tab", Label7,
                            {"<таблицы>.xls - книги древних астрономов",
                             "Plan<k>/<i>_<n>_<e>.dat - эксперименты плана (форма 13)"}),
                     folder("Plan<k>", Label8,
                            {Label9, "TarvexPlan<k>.dat - план (формы 15 и 19)",
                             "Tarvex<i>Ras.dat - расчетные сдвиги", row({Label10, Label11}),
                             "Txt<i>/Tarvex<i>Ras<e>.txt - элементы в эксперименте e (форма 2)"}),
                     frame("Arhiv", column({Label12})),
                     frame("Risunki", column({"*.bmp - сохраненные рисунки"}))})}),
        "N - номер файла, i - номер объекта (0 Солнце, 1..9 планеты, 11 Луна), k - номер плана, e - номер "
        "эксперимента, n - номер файла наблюдений",
        row({stretch(), Command1}),
    }));
}

}  // namespace tarvex
