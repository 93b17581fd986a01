#pragma once
// The plan file of the model, Plan<N>\TarvexPlan<N>.dat: levels of the seven factors and weights of the
// shifts.

#include <string>
#include <vector>

#include "stats/plan_block.h"
#include "stats/shifts.h"

namespace tarvex {

inline constexpr int gravityFactors = 7;  ///< VX, VY, VZ, Vgr, kPgr1, m0/m5, m0/m2
inline constexpr int weightPlanets = 10;

/// Head lines of a plan file.
struct PlanFileHead {
    std::string levels, kind, weights;
    /// Points that were added to the plan, coded, one value a factor; behind the weights, in a file of a plan
    /// that has grown alone.
    std::vector<std::vector<double>> added{};

    /// The heads of a new file of plan N.
    static PlanFileHead of(int N, bool roto, int Nf);
};

/// Reads the file of plan N: factors 1..7 into Xnul, dXvar, Xopt, XoptR and the weights of planets 1..10 into
/// Ves; both keep their values when the file is bad.  Added points stay in the head.  Throws OpenFailure or
/// FileFailure.
PlanFileHead readPlanFile(const DataTree& tree, int N, PlanBlock& p, ShiftTables& t);
/// Rewrites that file; levels are scaled by MK and cut, weights plain numbers.
void writePlanFile(const DataTree& tree, int N, const PlanFileHead& head, const PlanBlock& p,
                   const ShiftTables& t);

}  // namespace tarvex
