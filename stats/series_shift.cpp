#include "stats/series_shift.h"

#include "core/constants.h"
#include "stats/fit.h"
#include "stats/planet_terms.h"
#include "stats/slope_error.h"

namespace tarvex {

SeriesShift seriesShift(const SeriesData& d, int param, bool planetTerms) {
    FitSettings settings;
    settings.last = d.NP1max();
    settings.T0 = JD2000;
    SeriesData series = d;
    series.Nparam = static_cast<std::int16_t>(param);
    FitResult fit;
    formGroups(series, settings, 1, fit);
    fitGroups(settings.equation, fit);
    double slope = fit.b[1];
    auto error = slopeError(fit.groups, settings.equation, 0);
    if (planetTerms)
        if (const auto periodic = fitWithPeriods(fit.groups, settings.equation, d.Npl, 0)) {
            slope = periodic->slope;
            error = periodic->error;
        }
    const double scale = shiftUnit(param).scale;
    return {scale * slope, error ? scale * error->sigma : 0};
}

}  // namespace tarvex
