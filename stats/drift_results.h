#pragma once
// What the last answer of a plan left behind, by factor, and by planet and parameter, for scripts and for the
// picture.  Cells that no drift belongs to are 0.

#include <array>

#include "stats/drift_solution.h"
#include "stats/shifts.h"

namespace tarvex {

class NameTable;

struct DriftResults {
    /// Correlation of factors 1..7; 0 where one of them was not sought.
    std::array<std::array<double, gravityFactors + 1>, gravityFactors + 1> SolvedCorrelation{};
    ShiftTable SolvedResidual{};  ///< observed less predicted in its sigma
    ShiftTable LeftOut{};         ///< the same, predicted by the other planets alone
    ShiftTable Predicted{};       ///< at the solution, units of the shifts
    ShiftTable Measured{};        ///< by an experiment there
};

void addNames(NameTable& table, const DriftResults& r);

/// Writes what a solution and its left-out predictions say; Measured is cleared.
void keepSolution(const DriftProblem& problem, const DriftSolution& solution,
                  const std::vector<LeftOutDrift>& leftOut, DriftResults& results);

/// The problem of a plan: its experiments, and the drifts of these planets and parameters from the tables.
/// An error that all experiments share is the root mean square of theirs.
DriftProblem problemOf(const PlanBlock& p, const ShiftTables& t, const std::vector<int>& planets,
                       const std::vector<int>& params, DriftModel model);

/// The answer as lines for a picture: drifts with residuals, correlations, singular values, left-out planets.
std::vector<std::string> solutionLines(const DriftProblem& problem, const DriftSolution& solution,
                                       const std::vector<LeftOutDrift>& leftOut);

}  // namespace tarvex
