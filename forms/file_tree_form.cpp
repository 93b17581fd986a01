#include "forms/file_tree_form.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "core/tree_listing.h"

namespace tarvex {

namespace {

constexpr int mostFilesShown = 24;

/// What a file is by its folder and name.
struct FileKind {
    const char *folder, *start, *end, *meaning;
};
constexpr std::array<FileKind, 18> fileKinds{{
    {"Dat", "Tarvex", "XYZ", "координаты прогона (форма 2)"},
    {"Dat", "Tarvex", ".dat", "элементы и начальные данные (форма 1)"},
    {"Dat", "dL", ".dat", "возмущения планеты (форма 22)"},
    {"Dat", "NabPlan", ".txt", "эксперименты теста (формы 2, 15, 18)"},
    {"Dat", "Pulsar", ".dat", "двойная система (форма 25)"},
    {"Dat", "Stat", ".txt", "статистика сравнения (форма 10)"},
    {"Dat", "Bad_data", ".txt", "отброшенные наблюдения (форма 10)"},
    {"Dat", "Ras_data", ".txt", "расчетные места (форма 10)"},
    {"Dat", "Param_data", ".txt", "ход затмения (форма 16)"},
    {"Dat", "TimeYer_data", ".txt", "восходы и заходы (форма 16)"},
    {"JPL", "ascp", ".405", "эфемериды DE405, 20 лет"},
    {"Obs", "", ".txt", "наблюдения (форма 10)"},
    {"Tab", "", ".xls", "древние таблицы (формы 10, 16)"},
    {"", "TarvexNab", ".dat", "вековые сдвиги имитатора (форма 6)"},
    {"", "TarvexPlan", ".dat", "план и веса (формы 15, 19)"},
    {"", "Tarvex", "Nab.txt", "ряд элементов имитатора (форма 6)"},
    {"", "Tarvex", "Ras.dat", "расчетные сдвиги по экспериментам (формы 6, 15, 19)"},
    {"", "Tarvex", "Ras", "элементы в эксперименте (форма 2)"},
}};

std::string meaningOf(const std::string& folder, const std::string& name) {
    for (const FileKind& kind : fileKinds) {
        const std::string_view end = kind.end;
        const bool ends = end.starts_with(".") || end.find('.') != end.npos ? name.ends_with(end)
                                                                            : name.find(end) != name.npos;
        if ((*kind.folder == '\0' || folder == kind.folder) && name.starts_with(kind.start) && ends)
            return kind.meaning;
    }
    if (name.find('_') != name.npos && name.ends_with(".dat")) return "эксперимент плана (форма 13)";
    return "";
}

/// "1 файл", "3 файла", "11 файлов".
std::string filesInWords(int n) {
    const bool teen = n % 100 / 10 == 1;
    const char* word = !teen && n % 10 == 1                  ? "файл"
                       : !teen && n % 10 >= 2 && n % 10 <= 4 ? "файла"
                                                             : "файлов";
    return fmt::format("{} {}", n, word);
}

std::string sizeInWords(std::uintmax_t bytes) { return fmt::format("{} кБ", (bytes + 1023) / 1024); }

void tell(const FolderListing& folder, int depth, std::string& text) {
    const std::string indent(4 * depth, ' ');
    text += fmt::format("{}{}/   {}", indent, folder.name,
                        folder.readable ? filesInWords(folder.count()) : "не читается");
    if (folder.count() > 0) text += ", " + sizeInWords(folder.bytes());
    text += "\n";
    int shown = 0;
    for (const FolderListing::File& file : folder.files) {
        if (++shown > mostFilesShown) {
            text += fmt::format("{}    ... и еще {}\n", indent,
                                filesInWords(static_cast<int>(folder.files.size()) - mostFilesShown));
            break;
        }
        const std::string meaning = meaningOf(folder.name, file.name);
        text += fmt::format("{}    {}   {}{}{}\n", indent, file.name, sizeInWords(file.bytes),
                            meaning.empty() ? "" : " - ", meaning);
    }
    for (std::size_t i = 0; i < folder.folders.size(); ++i) {  // neighbours without files on one line
        const std::size_t first = i;
        while (i < folder.folders.size() && folder.folders[i].count() == 0) ++i;
        if (i - first > 1)
            text += fmt::format("{}    {}/ ... {}/   пусто\n", indent, folder.folders[first].name,
                                folder.folders[i - 1].name);
        else
            i = first;
        if (i < folder.folders.size()) tell(folder.folders[i], depth + 1, text);
    }
}

}  // namespace

FileTreeForm::FileTreeForm(Laboratory& lab)
    : FileTreeControls(lab.desk, formName, "Файловая система программы      Tarvex7m   -  форма 9"),
      tree_(lab.tree) {
    closeForm.onPress([this] { close(); });
    readAgain.onPress([this] { refresh(); });
    std::vector<Layout> cells;
    int i = firstFolder;
    for (Label* caption : {&dat, &jpl, &newcomb, &ser, &observatories, &tables, &unplanned, &plan1, &mercury,
                           &moon, &archive}) {
        cells.push_back(*caption);
        cells.push_back(fileCounts(i++));
    }
    layout_ = row({column({frame("Папки", column({program, table(2, std::move(cells))})), stretch()}),
                   column({frame("На диске", listing), row({stretch(), readAgain, closeForm})})});
}

void FileTreeForm::load() { refresh(); }

void FileTreeForm::activate() { refresh(); }

void FileTreeForm::refresh() {
    for (std::size_t i = 0; i < folders.size(); ++i) {
        const FolderListing found = listFolder(tree_.root() / folders[i]);
        fileCounts(firstFolder + static_cast<int>(i))
            .setText(found.readable ? filesInWords(found.count()) : "нет папки");
    }
    FolderListing all = listFolder(tree_.root());
    std::string text = fmt::format("{}   {}, {}\n", tree_.root().string(), filesInWords(all.count()),
                                   sizeInWords(all.bytes()));
    for (const FolderListing& folder : all.folders) tell(folder, 0, text);
    listing.setText(text);
}

}  // namespace tarvex
