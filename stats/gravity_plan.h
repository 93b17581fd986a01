#pragma once
// The plan for the speed of gravity: its factors in natural units, and the criterion of an experiment from
// the calculated and the observed secular shifts.

#include <vector>

#include "stats/bench.h"
#include "stats/shifts.h"

namespace tarvex {

/// Builds the plan of these factors, 1..7 in rising order, with its usual count of points.
/// @param kind  planOrtho or planRoto
/// @throws Refusal for less than 2 factors or more than 6
void createGravityPlan(PlanBlock& p, PlanKind kind, const std::vector<int>& factors);

/// XU(1..7, u) of every experiment: the zero levels, and level + code * interval for the factors of the plan.
void setNaturalLevels(PlanBlock& p);

/// Criterion of experiment u over planets and parameters (numbers in the tables): the sum of W*D/100, of
/// (D-O)*W/|O|/100, of ((D-O)*W/O/100)^2, or of |(D-O)/O|*W/100; D calculated, O observed, W the weight.
/// Throws ArithmeticFailure where an observed shift is 0 and divides.
double shiftCriterion(const ShiftTables& t, const std::vector<int>& planets, const std::vector<int>& params,
                      int u, CriterionForm form);

/// Test of the form: the regression with coefficients 1 at the coded points, in the chosen form; Z(1) keeps
/// the first value.
void codedTest(PlanBlock& p, CriterionForm form);

}  // namespace tarvex
