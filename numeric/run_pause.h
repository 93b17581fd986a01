#pragma once
// A run between two of its passes: other screens may then use the cells that it shares with them.

#include "numeric/run_loop.h"

namespace tarvex {

/// Copy of what a run finds in the shared state when it goes on: its body, clock, steps, rows and the record
/// of the ephemeris.  Initial data, masses and ticks are none of it: they act on a run that goes on when a
/// screen hands them over.
class RunPause {
public:
    explicit RunPause(const Experiment& e);
    /// Puts it back.
    /// @throws as DEOpen() when the ephemeris was moved to another date or closed and does not serve this one
    /// any more
    void end(const Experiment& e) const;

private:
    Rows X_, Y_, Z_, VX_, VY_, VZ_, LonPl_, Rr_;
    double LatPl_, Rcur_, JD_, JDjpl_, JDrec1_, Dt_, DtCur_;
    std::int32_t IplSel_, Icentr_;
    std::int16_t NC0_, kDt_, NFile_;
};

}  // namespace tarvex
