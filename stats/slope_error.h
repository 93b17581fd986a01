#pragma once
// The error of a slope when the points remember each other: residuals of a drift are planetary oscillations,
// not independent readings, so their scatter alone says little of the error.

#include <optional>
#include <vector>

#include "stats/fit.h"

namespace tarvex {

struct SlopeError {
    double sigma = 0;                  ///< one standard error of the slope, units of Y a century
    double low = 0, high = 0;          ///< interval of 95 %, Student's t over the effective points
    double lagOne = 0;                 ///< correlation of neighbouring residuals
    double effectivePoints = 0;        ///< independent points that would give the same error
    int order = 0;                     ///< of the autoregression that describes the residuals
    double bootLow = 0, bootHigh = 0;  ///< interval of 95 % by resampling
    int resamples = 0;                 ///< 0 when none was made
};

/// Error of the slope of a line or a parabola through the groups, with the serial correlation of the
/// residuals.  Their covariance is that of an autoregression; the residual variance is freed from what the
/// fit itself has taken out of correlated residuals.
/// @param groups     time in centuries, value, weight (points of no weight are left out)
/// @param D          centuries from the origin at which the slope of a parabola is taken
/// @param resamples  how often the prewhitened residuals are resampled, 0 for no such interval
/// @return none for a constant, for points without freedom left or of one date
/// Source: P. M. Robinson, C. Velasco, Handbook of Statistics 15, 267 (1997); studentised resampling of
/// blocks: A. C. Davison, P. Hall, Austr. J. Stat. 35, 215 (1993), of prewhitened residuals.
std::optional<SlopeError> slopeError(const std::vector<Group>& groups, Equation equation, double D,
                                     int resamples = 0);

}  // namespace tarvex
