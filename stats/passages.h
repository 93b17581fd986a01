#pragma once
// Series of passages of apses or nodes: how many a run has missed, and the difference of two runs passage by
// passage.

#include <vector>

#include "stats/fit.h"

namespace tarvex {

struct PassageCount {
    int found = 0;
    int expected = 0;  ///< between the first and the last found, by the usual distance in time

    int lost() const { return expected - found; }
};
/// @param dates  of the passages in order of time, days
PassageCount countPassages(const std::vector<double>& dates);
/// Of the sample of a series.
PassageCount countPassages(const SeriesData& d, const FitSettings& settings);

struct PairedSeries {
    FitResult points;  ///< one group of weight 1 a pair: time, first less second in the unit of the records
    int unpaired = 0;  ///< passages of the first series' sample without a partner
};

/// Differences of parameter d.Nparam of two series, first less second.  A passage pairs with the one of the
/// other series that lies nearest in time when each is the nearest of the other and both lie closer than a
/// third of the usual distance of passages, so the numbers of passages agree and lost ones are skipped.
/// Angles come out within half a turn.
/// @param settings  the sample of the first series, and T0
/// Throws SubscriptFailure for a sample outside the series.
PairedSeries pairPassages(const SeriesData& first, const SeriesData& second, const FitSettings& settings);

}  // namespace tarvex
