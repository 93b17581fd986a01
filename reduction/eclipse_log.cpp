#include "reduction/eclipse_log.h"

#include <cmath>
#include <filesystem>

#include "core/calendar.h"
#include "core/numbers.h"
#include "core/text_files.h"

namespace tarvex {

namespace {

const std::string placesFile = "\\Dat\\Param_data.txt", solsticeFile = "\\Dat\\TimeYer_data.txt";

void begin(const std::filesystem::path& path, const std::string& first, const std::string& second) {
    if (std::filesystem::exists(path)) return;
    appendLine(path, first);
    appendLine(path, second);
}

}  // namespace

RiseAndSet::Seen RiseAndSet::step(double altitude) {
    const Seen seen = !known_                     ? Seen::Neither
                      : last_ < 0 && altitude > 0 ? Seen::Rise
                      : last_ > 0 && altitude < 0 ? Seen::Set
                                                  : Seen::Neither;
    last_ = altitude;
    known_ = true;
    return seen;
}

void beginPlacesLog(const DataTree& tree, const ModelState& s) {
    begin(tree.at(placesFile),
          "планета  № " + toText(s.IplSel) + "   обсерватория " + s.NameData + "   данные умножены на 1000 ",
          "дата наблюдения (день с часами, месяц, год), долгота и широта (Солнца потом планеты)");
}

void beginSolsticeLog(const DataTree& tree, const ModelState& s) {
    begin(tree.at(solsticeFile),
          "равноденствия и солнцестояния по " + s.NameData +
              "   ГЕО (ТОПО) координаты Солнца где JDut солнечное время для Гринвича",
          "LTet2  дата  JDut  L геоцентрическая J2000, L и B даты, L и B обратно из горизонта, A "
          "азимут, H высота");
}

void logPlaces(const DataTree& tree, const ModelState& s, const Eclipse& e, double day, double month,
               double year) {
    const int b = s.IplSel;
    const double reach = e.Rsun + e.Rbody;
    if (std::abs(e.azimuth[b] - e.azimuth[rowSun]) > reach ||
        std::abs(e.altitude[b] - e.altitude[rowSun]) > reach)
        return;
    std::string line;
    for (const double v : {Fix(1000 * day), 1000 * month, 1000 * year, Fix(1000 * s.Lpl[rowSun]),
                           Fix(1000 * s.Bpl[rowSun]), Fix(1000 * s.Lpl[b]), Fix(1000 * s.Bpl[b])})
        line += fileItem(v);
    appendLine(tree.at(placesFile), line);
}

void logSolstice(const DataTree& tree, ModelState& s, const Eclipse& e, const Eclipse::Sky& back) {
    double local = s.JDut + s.ObsL / 15 / 24;  // the clock of the line, and its date
    const std::string time = timeOfFraction(s, local + 0.5);
    DateFromJD(s, local);
    const std::string date =
        Format(Fix(s.DenR), "00") + "." + Format(s.MesR, "00") + "." + Format(s.GodR, "0000");
    appendLine(tree.at(solsticeFile),
               time + "  " + date + "  JDut= " + Format(s.JDut, "0000000.0000") + "   L= " +
                   Format(e.sun.geoJ2000.L, "000.000") + "   L= " + Format(e.sun.ofDate.L, "000.0000") +
                   "   B= " + Format(e.sun.ofDate.B, "00.00000000") + "   L= " + Format(back.L, "000.0000") +
                   "   B= " + Format(back.B, "00.00000000") + "   A= " + Format(e.azimuth[rowSun], "000.0") +
                   "   H= " + Format(e.altitude[rowSun], "00.0"));
}

std::string timeOfFraction(ModelState& s, double day) {
    DayToHMS(s, day);
    return Format(s.ChasR, "00") + ":" + Format(s.MinR, "00") + ":" + Format(s.SekR, "00");
}

}  // namespace tarvex
