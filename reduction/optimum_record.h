#pragma once
// The optimum of a plan on observations as a record of a series of elements, \Ser\Plan<N>\Tarvex<i>Nab.txt.

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/data_tree.h"
#include "stats/series.h"

namespace tarvex {

/// The levels of a plan as a record.
/// @param level   of factors 1..9 as the plan's screen shows them: R0sr in thousand million m, Eks, Betta,
/// AlfaP, AlfaU in
///                degrees, W, AlfaL0, dP11, dU11 in rad a century and degrees as the series holds them
/// @param weight  of the record
/// @param span    days that the observations cover
Record optimumRecord(const std::array<double, 10>& level, double weight, double span);

/// The series that the optimum is entered into, read from its file, with the plan and the day in its third
/// head line.
struct OptimumSeries {
    SeriesData series;
    std::string asRead;  ///< count and epoch of what was read, as a line of text
};
/// @param like   what else the series keeps of the one that is loaded
/// @param today  "21.11.2026"
/// @throws OpenFailure without the file, FileFailure for a damaged one
OptimumSeries readOptimumSeries(const DataTree& tree, const SeriesData& like, int plan, int planet,
                                const std::string& today);
/// Name of its file.
std::string optimumFile(int plan, int planet);

/// Enters a record by its date.
/// @param date     Julian date
/// @param replace  asked with its number where one of this date stands: true to replace it, which keeps its
/// dTd
/// @return         its number, from 1
int enterOptimum(SeriesData& d, double date, Record record, const std::function<bool(int)>& replace);

/// The series as lines: heads, what was read, the records, the marked one between lines.
std::vector<std::string> optimumLines(const OptimumSeries& s, int marked);

}  // namespace tarvex
