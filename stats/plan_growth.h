#pragma once
// Points added to a plan that has been run: where they tell most of the regression that is sought.

#include <vector>

#include "stats/plan_block.h"

namespace tarvex {

/// A grid of candidates: five levels a factor from centre - half to centre + half, coded.
std::vector<std::vector<double>> candidatesAround(const std::vector<double>& centre, double half);

/// Those of the candidates (one may come twice) that with the plan's points give the full quadratic the
/// largest determinant of information: one by one, then exchanged while that grows.
/// Source: V. V. Fedorov, Theory of Optimal Experiments (1972).
std::vector<std::vector<double>> dOptimalPoints(const PlanBlock& p,
                                                const std::vector<std::vector<double>>& candidates,
                                                int count);

/// Appends coded points to the plan, which becomes one of the kind planAugmented: its regression is fitted by
/// least squares.  Throws a Refusal above 91 points.
void addPoints(PlanBlock& p, const std::vector<std::vector<double>>& points);

/// The points that were added to the plan, coded; none of a plan that has not grown.
std::vector<std::vector<double>> addedPoints(const PlanBlock& p);

}  // namespace tarvex
