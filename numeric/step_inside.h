#pragma once
// The motion of the bodies inside the step that the model has just made, from what its integrator knows of
// it.

#include <array>
#include <optional>

#include "numeric/run_loop.h"
#include "theories/arc.h"

namespace tarvex {

/// Body IplSel as seen from the origin Icentr, by the state vector of the model: m, m/s.
OrbitPoint seenFromOrigin(const Experiment& e);

/// Of the step just made; it serves several bodies.  Asking leaves the run as it is, whatever its law carries
/// from step to step.
class StepInside {
public:
    explicit StepInside(const Experiment& e) : e_(e) {}

    /// Motion of the body IplSel about Icentr in the step: the quintic through both ends with their
    /// accelerations, or the dense output of order 7 of the step of order 8.
    /// @param before  seenFromOrigin() before the step
    /// @throws ArithmeticFailure where the right-hand side does
    Arc arc(const OrbitPoint& before);

private:
    Arc ofRungeKutta(const OrbitPoint& before);
    Arc ofOrder8(const OrbitPoint& before);

    const Experiment& e_;
    std::optional<std::array<double, equations>> slope_;  ///< derivatives at the end of the step
    bool complete_ = false;                               ///< the stages of the dense output have been made
};

}  // namespace tarvex
