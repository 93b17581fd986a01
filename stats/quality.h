#pragma once
// What a person needs to trust a regression: how well it fits, and what kind of point its optimum is.

#include <optional>
#include <string>
#include <vector>

#include "stats/plan_block.h"

namespace tarvex {

struct FitQuality {
    int degrees = 0;                           ///< of freedom: experiments less terms
    std::optional<double> residualMeanSquare;  ///< none without degrees of freedom
    std::optional<double> R2;                  ///< none for a criterion that does not vary
};
/// Quality of the regression values Yras against the criterion Yu: R2 = 1 - residual / total sum of squares.
FitQuality fitQuality(const PlanBlock& p);
/// The same in one line for the form.
std::string fitQualityText(const PlanBlock& p);

enum class StationaryKind { Minimum, Maximum, Saddle, Degenerate };
/// Kind of the stationary point, by the signs of the eigenvalues of the quadratic form.
StationaryKind stationaryKind(const PlanBlock& p);
/// Numbers of the plan's own factors (1..Nf) whose coded optimum lies beyond the core and the star.
std::vector<int> factorsOutside(const PlanBlock& p);
/// Kind and place of the optimum in words.
std::string stationaryText(const PlanBlock& p);

}  // namespace tarvex
