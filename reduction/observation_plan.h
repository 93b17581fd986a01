#pragma once
// A plan of experiments on observations: levels of the orbit parameters from a theory or a file, and that
// file.

#include <string>

#include "core/data_tree.h"
#include "reduction/reduction_state.h"

namespace tarvex {

/// The body that stands for a chosen one in templates and names of series: the Earth for the Sun.
inline int planetOfPlan(int body) { return body == rowSun ? rowEarthMoon : body; }

/// Zero levels, intervals and rates by a theory at s.JD: JPL0 for elements in J2000, otherwise New0; optimum
/// 0 and the levels themselves; speeds of the system 0, precession 5029, weight 1.
void planTemplate(ModelState& s, ReductionState& r, PlanBlock& plan, bool epochJ2000);

/// What the head and the last lines of a plan file say beside the state.
struct PlanFileWords {
    bool epochJ2000 = true;
    bool byDistance = true, rootMeanSquare = false;  ///< the criterion
    double criterion = 0;                            ///< without corrections
    std::string today;
};

/// Name of the file of a test, "\Obs\Plan1\11_100_1.dat" or "\Tab\Plan1\11_1.dat".
/// @param file  number of the file of observations, empty for tables
std::string planTestFileName(const ModelState& s, int body, const std::string& file, std::int32_t NOpyt);

/// Writes the file of a test.  Xnul(7) is left divided by 1000, as the file has it; whoever shows the levels
/// restores it.
/// Throws FileFailure.
void savePlanTest(ModelState& s, ReductionState& r, PlanBlock& plan, const DataTree& tree,
                  const std::string& name, std::int32_t NOpyt, const PlanFileWords& words);

/// Reads lines 1 to 15 of such a file: dates, levels, optimum, speeds, precession, weight.  The state stays
/// as it was when they are not sound.  Throws OpenFailure or FileFailure.
void loadPlanTest(ModelState& s, ReductionState& r, PlanBlock& plan, const DataTree& tree,
                  const std::string& name);

}  // namespace tarvex
