#pragma once
// The bench of plans: built-in experiments and the forms in which their criterion is taken.

#include "stats/plan_block.h"

namespace tarvex {

/// How the criterion is taken: as it is, or as a difference from Yopt.
enum class CriterionForm { Y, dY, dY2, AbsDY };

/// Standard test: the full quadratic with all coefficients 1 at the natural values of every point, into Yu;
/// XU keeps the codes and Yopt becomes the number of terms.  Needs Xnul and dXvar.
void runStandardTest(PlanBlock& p);

/// Additional test 1..9 at the natural values of every point, into Yu; sets XU and Yopt.
/// Throws a Refusal at the first point where test 5 would divide by zero; earlier points keep their Yu.
void runAdditionalTest(PlanBlock& p, int test);

/// Brings Yu(1..Nplan) into the chosen form: Y/D, (Y-Yopt)/D, (Y-Yopt)^2/D, |Y-Yopt|/D with D = Yopt when
/// relative, else 1 (D stays in Yu(99)).  Sets Ymin, Ymax and Mcrit.
void takeCriterion(PlanBlock& p, CriterionForm form, bool relative);

/// The criterion y of one point in the chosen form, the divisor inside: y, (y-Yopt)/|D|, ((y-Yopt)/D)^2, and
/// |(y-Yopt)/D|, or |y-Yopt|/D where outside is set.
double pointCriterion(const PlanBlock& p, double y, CriterionForm form, bool relative, bool outside);

/// Ymin and Ymax of Yu(1..Nplan), and Mcrit = (Ymax-Ymin)/10.
void findExtremes(PlanBlock& p);

/// The regression at the coded point u, in the unit of the criterion, also in Z(u).
double evaluatePoint(PlanBlock& p, int u);

/// Yras(u) = the regression at every coded point.
void evaluatePlan(PlanBlock& p);

}  // namespace tarvex
