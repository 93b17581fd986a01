#pragma once
// From a date to the place where the theory puts the body, in the frame of the data.  The chain runs forward,
// from theory to observation: the data are never reduced.

#include <functional>

#include "reduction/reduction_state.h"

namespace tarvex {

/// Told of each stage that is passed: label, longitude and latitude in degrees, distance in m.
using StageLog = std::function<void(const char* label, double L, double B, double R)>;

/// Called when rows 0, 3 and IplSel are heliocentric, ecliptic, of the date.
using HeliocentricView = std::function<void()>;

/// Place, m, and velocity, m/s, of body Ipl by the elements of the current experiment of the plan, at JDut0;
/// its row of elements is that of the plan then, the masses are those of Ser0.
/// @throws ArithmeticFailure for an orbit that is none
void PosByPlan(ModelState& s, const ReductionState& r, const PlanBlock& plan);

/// One pass at s.JD (universal time): theory, visibility, the chain.  Elements, masses and the Earth-Moon
/// mode of the state stay as they were.  Leaves Lt, Bt, Rgeo, the stages and kodVidim in r; row IplSel holds
/// the vector of the theory in the frame of the data, unless the body is not visible. Throws Failure: no
/// orbit of the body, a zero distance, a body without a perturbation table.
void reduceTheory(ModelState& s, ReductionState& r, const PlanBlock& plan, const StageLog& log,
                  const HeliocentricView& view);

/// dL, dB, degrees, and dR, thousand km, of the theory in row IplSel against Ln, Bn.
/// @throws ArithmeticFailure for differences beyond numbers
void compareWithData(ModelState& s, ReductionState& r);

}  // namespace tarvex
