#pragma once
// Drifts of the orbits as DE405 has them, measured as a run of the model measures its own.

#include <functional>

#include "core/data_tree.h"
#include "stats/series.h"

namespace tarvex {

/// Apses of a planet by DE405 at the very moments of its passages, with the elements of a run's records.
/// @param planet  1..9, 3 the barycentre of Earth and Moon
/// @param from    the first year, from noon of 1 January on; @param to  the last year, to its end
/// @param goOn    asked now and then; false stops
/// @return        the series as the imitator of the run's screen would have written it; empty when it was
/// stopped
/// @throws OpenFailure naming the file of the ephemeris that is missing, FileFailure for a broken one;
/// Refusal for years
///         outside the ephemeris, Failure for too few passages
SeriesData ephemerisSeries(const DataTree& tree, int planet, int from, int to,
                           const std::function<bool()>& goOn = {});

}  // namespace tarvex
