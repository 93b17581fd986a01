#include "reduction/reduction_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "core/text_files.h"
#include "reduction/ancient_tables.h"
#include "reduction/observation_file.h"

namespace tarvex {

namespace {

std::string ofSource(const ModelState& s, const ReductionState& r, const char* kind) {
    return "\\Dat\\" + std::string(kind) + s.NameData + std::to_string(s.IplSel) + "_" +
           r.choices.fileNumber + ".txt";
}

std::string planetLine(const ModelState& s) {
    return "планета  № " + std::to_string(s.IplSel) + "   обсерватория " + s.NameData;
}

/// Path of one of the three reports.
std::filesystem::path report(const ModelState& s, const ReductionState& r, const DataTree& tree,
                             const std::string& name) {
    return sourcePath(tree, name, s.NameData, r.choices.fileNumber);
}

std::filesystem::path goodPath(const ModelState& s, const ReductionState& r, const DataTree& tree) {
    return sourcePath(tree, goodFileName(s, r), s.NameData, r.choices.goodNumber);
}

bool isKnownSource(const std::string& name) {
    for (int i = 1; i <= 10; ++i)
        if (name == ancientTable(i).name) return true;
    return std::find(observatoryNames.begin(), observatoryNames.end(), name) != observatoryNames.end();
}

constexpr int goodHeadLines = 5, headLines = 2;

double cut(double value, double scale) { return Fix(value * scale) / scale; }

}  // namespace

std::string goodFileName(const ModelState& s, const ReductionState& r) {
    return observationFileName(s.NameData, s.IplSel, r.choices.goodNumber, r.choices.byDistance ? "LB" : "L");
}
std::string badFileName(const ModelState& s, const ReductionState& r) { return ofSource(s, r, "Bad_data"); }
std::string stageFileName(const ModelState& s, const ReductionState& r) {
    return ofSource(s, r, "Ras_data_");
}
std::string statisticsFileName(const ModelState& s, const ReductionState& r) {
    return ofSource(s, r, "Stat");
}

std::filesystem::path sourcePath(const DataTree& tree, const std::string& name, const std::string& source,
                                 const std::string& number) {
    const bool plain = number.find_first_not_of("0123456789") == std::string::npos;
    return plain && isKnownSource(source) ? tree.at(name) : tree.typed(name);
}

void startGoodBadFiles(const ModelState& s, const ReductionState& r, const DataTree& tree) {
    if (!r.choices.tables) {
        const auto path = goodPath(s, r, tree);
        std::error_code error;
        if (std::filesystem::equivalent(path, r.file.path(), error))
            throw FileFailure("файл Good тот же, что читается: " + path.string());
        TextWriter good(path, goodHeadLines);
        good.line(r.header);
        good.items(s.God0, r.GodK);
        good.commit();
    }
    TextWriter bad(report(s, r, tree, badFileName(s, r)), headLines);
    bad.line(planetLine(s));
    bad.line("дата наблюдения и отклонения по долготе (сек) широте (сек) и расстоянию (тыс.км.)");
    bad.commit();
}

void appendGood(const ModelState& s, const ReductionState& r, const DataTree& tree) {
    if (!r.choices.tables) appendLine(goodPath(s, r, tree), r.line);
}

void appendBad(const ModelState& s, const ReductionState& r, const DataTree& tree) {
    std::string line;
    for (const double item : {cut6(r.date.DenObs), double(r.date.MesObs), double(r.date.GodObs),
                              cut(r.dL * 3600, 1000), cut(r.dB * 3600, 1000), cut(r.dR, 10)})
        line += fileItem(item);
    appendLine(report(s, r, tree, badFileName(s, r)), line);
}

void startStageFile(const ModelState& s, const ReductionState& r, const DataTree& tree) {
    TextWriter file(report(s, r, tree, stageFileName(s, r)), headLines);
    file.line(planetLine(s));
    file.line("долгота и широта - юлианская дата наблюдения и операция, ");
    file.commit();
}

void appendStage(const ModelState& s, const ReductionState& r, const DataTree& tree, const char* label,
                 double L, double B, double R) {
    appendLine(report(s, r, tree, stageFileName(s, r)),
               Format(L, "000.000000000") + "  " + Format(B, "00.000000000") + "   " +
                   Format(R / MK, "00.00") + "  " + std::to_string(r.date.MesObs) + "  " +
                   std::to_string(r.date.GodObs) + "  JD= " + toText(s.JD) + label);
}

void writeStatistics(const ModelState& s, const ReductionState& r, const DataTree& tree) {
    const auto arcSeconds = [&](int n) { return r.edge[n] * 3600; };
    const auto counted = [&](int n) { return Format(r.count[n], "0000"); };
    TextWriter file(report(s, r, tree, statisticsFileName(s, r)));
    file.line("статистика данных  " + s.NameData + "  по планете " + std::to_string(s.IplSel));
    file.line("интервалы dL и dB в угловых секундах dR в тыс.км.)");
    file.line("");
    for (int n = 1; n <= 18; ++n)
        file.line(fmt::format("{}...{}   {}        {}...{}   {}        {}...{}   {}",
                              Format(arcSeconds(n - 1), "00"), Format(arcSeconds(n), "00"), counted(n),
                              Format(arcSeconds(n + 19), "0.00"), Format(arcSeconds(n + 20), "0.00"),
                              counted(n + 20), Format(r.edge[n + 39], "000.00"),
                              Format(r.edge[n + 40], "000.00"), counted(n + 40)));
    file.line(fmt::format("{}...     {}        {}...       {}        {}...         {}",
                          Format(arcSeconds(18), "00"), counted(19), Format(arcSeconds(38), "0.00"),
                          counted(39), Format(r.edge[58], "000.00"), counted(59)));
    file.line("                 общее количество точек  " + std::to_string(r.NObs));
    file.line("dLsr= " + toText(cut6(ratio(r.sumAbsL * 3600, r.NObs))) +
              " секунд   dBsr= " + toText(cut6(ratio(r.sumAbsB * 3600, r.NObs))) +
              " секунд   dRsr= " + toText(cut6(ratio(r.sumR, r.NObs))) + " тыс. км.");
    file.commit();
}

}  // namespace tarvex
