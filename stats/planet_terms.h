#pragma once
// Oscillations that the other planets force on an orbit: the line of a drift together with harmonics of their
// mean longitudes.  A single series of a drift is limited by them, not by arithmetic.

#include <optional>
#include <string>
#include <vector>

#include "stats/slope_error.h"

namespace tarvex {

/// One periodic term that stands out of the noise.
struct PlanetTerm {
    std::string name;                 ///< like "2*L(Юпитер)" or "2*L(Венера)-L"
    double period = 0;                ///< years
    double amplitude = 0, error = 0;  ///< unit of the series
};

struct PeriodicFit {
    double slope = 0;               ///< units a century, at D
    double value = 0;               ///< of the line or parabola at D
    SlopeError error;               ///< of that slope; no resampling
    double scatter = 0;             ///< of what the terms leave, one standard deviation
    std::vector<PlanetTerm> terms;  ///< amplitude above two errors, the largest first
};

/// Fits a line or a parabola and terms of the combinations k*L(planet) and k*L(planet) - L(body), which at
/// apses and nodes are all that can be seen.  Every combination takes part with a prior variance: the size
/// that first-order perturbations give it (mass and distance of the planet, slowness of the term) times one
/// factor, which the series itself decides by its likelihood.  So the error also holds what terms that a
/// short series cannot tell from its slope may do to it.
/// @param groups  time in centuries, value, weight
/// @param body    1..10, or 11 the Moon
/// @param D       centuries from the origin, where the slope of a parabola and the value are taken
/// @return none for a constant or for too few points
/// Source: D. A. Harville, J. Am. Stat. Assoc. 72, 320 (1977), mixed models by restricted likelihood; mean
/// motions of J. L. Simon et al., Astron. Astrophys. 282, 663 (1994).
std::optional<PeriodicFit> fitWithPeriods(const std::vector<Group>& groups, Equation equation, int body,
                                          double D);

}  // namespace tarvex
