#pragma once
// The run that compares theory and data: one pass a table date or an observation, the sums and criteria, the
// experiments of a plan.

#include "core/data_tree.h"
#include "reduction/reduction_state.h"

namespace tarvex {

/// What a run tells the screen, and what it asks of it.  Every call may be left out.
class ReductionView {
public:
    virtual ~ReductionView() = default;
    virtual void readFields() {}    ///< read the fields that may change while the run goes on
    virtual void dateRead() {}      ///< date and place of the data are known
    virtual void heliocentric() {}  ///< rows 0, 3, IplSel heliocentric of the date
    virtual void placed() {}        ///< theory and visibility are known, also of what is not seen
    virtual void compared() {}      ///< stages and residuals are known
    virtual void rejected() {}      ///< by the filter
    virtual void accepted() {}      ///< sums and criteria are renewed
    virtual void pause(int) {}      ///< wait so many milliseconds
    virtual void giveWay() {}       ///< between two passes
};

/// What a run works on.
struct Reduction {
    ModelState& s;
    ReductionState& r;
    PlanBlock& plan;
    const DataTree& tree;
};

/// Clears sums and end mark and sets the date one step before JDepoha, so that the first step lands on it.
void startPasses(Reduction x);

/// Prepares a whole run outside a plan: zero levels into experiment 0, sums, histogram edges, heads of the
/// files that the choices ask for.  Throws FileFailure.
void startReduction(Reduction x);

/// Passes until kodStop, the end of the data or (tables) the end of the last year; JDut becomes the mean date
/// of the accepted observations.  At the end of a file outside a plan the file is rewound. Throws Refusal
/// with the message of a record or table that cannot be read (kodStop is set then), and Failure when a pass
/// cannot be computed.
void ReductionRun(Reduction x, ReductionView& view);

/// XU(1..9, k) for k up to `last`: zero levels, and the factors of the plan at their levels in point k.
void layOutExperiments(PlanBlock& plan, int last);

/// Responses without data: the regression with all coefficients 1 in every point of the plan.
void runTestOfRegression(PlanBlock& plan, int first, int last);

/// Fits the regression to the responses and evaluates it in every point: b, Yras.
void fitResponses(PlanBlock& plan);

}  // namespace tarvex
