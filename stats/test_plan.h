#pragma once
// The file of experiments done in test mode, Dat\NabPlan<k>.txt: a head with the factors, then one line an
// experiment.  Values are scaled by MK and cut.

#include <string>
#include <vector>

#include "stats/plan_block.h"

namespace tarvex {

class DataTree;

/// Test criterion of experiment u of a plan for the speed of gravity: over the seven factors XU(1..7, u) the
/// sum of |x-t|/t and of ((x-t)/t)^2, with the targets 100, 100, 100, 100, 1, km5, km2.
double testCriterion(const PlanBlock& p, int u, double km5, double km2);

/// Head of the file of a plan of p.Nf factors, line by line: title, sizes, levels and intervals by position.
std::vector<std::string> testPlanHead(const PlanBlock& p, bool roto);
/// Replaces the file of p.Nf factors by its head.
void writeTestPlanHead(const DataTree& tree, const PlanBlock& p, bool roto);
/// Appends experiment u with its criterion y.
void appendTestExperiment(const DataTree& tree, const PlanBlock& p, int u, double y);

/// Reads the file of p.Nf factors into Xnul, dXvar, Yu and Yopt.
/// @return  false, with nothing taken, when the file is of another count of factors or points
/// Throws OpenFailure without a file and FileFailure for a damaged one.
bool readTestPlan(const DataTree& tree, PlanBlock& p);

}  // namespace tarvex
