#pragma once
// The drift of one parameter of a series, as a line through all its records tells it.

#include "stats/series.h"

namespace tarvex {

struct SeriesShift {
    double shift = 0;  ///< a century, in the units of the tables of shifts
    double error = 0;  ///< one standard error, with the memory of the points; 0 where it is not known
};

/// The slope of the weighted line through all records of a series.
/// @param param        1..6, see Param
/// @param planetTerms  with the periodic terms that the planets force on the orbit of body d.Npl
/// Throws ArithmeticFailure or SubscriptFailure for a series of too few records.
SeriesShift seriesShift(const SeriesData& d, int param, bool planetTerms);

}  // namespace tarvex
