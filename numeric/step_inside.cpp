#include "numeric/step_inside.h"

#include "numeric/advance.h"
#include "numeric/integrator.h"
#include "numeric/runge_kutta.h"

namespace tarvex {

namespace {

/// Blocks of 11 from a cell on: of U and dU the positions or velocities from 0, velocities or accelerations
/// from 33.
Vec3 block(const Experiment& e, const double* cells, int first) {
    return fromOrigin(e.s, e.run, {cells + first, cells + first + bodies, cells + first + 2 * bodies});
}
OrbitPoint bothBlocks(const Experiment& e, const double* cells) {
    return {block(e, cells, 0), block(e, cells, 3 * bodies)};
}

}  // namespace

OrbitPoint seenFromOrigin(const Experiment& e) { return bothBlocks(e, e.motion.U.data()); }

Arc StepInside::arc(const OrbitPoint& before) {
    return e_.run.stepper == Stepper::Order8 ? ofOrder8(before) : ofRungeKutta(before);
}

Arc StepInside::ofRungeKutta(const OrbitPoint& before) {
    const RunState& run = e_.run;
    if (e_.seat != nullptr) e_.seat->show();
    std::array<double, equations> change;
    for (std::size_t k = 0; k < change.size(); ++k)
        change[k] = sixfoldMean(run.K1[k], run.K2[k], run.K3[k], run.K4[k]) / 6;
    if (!slope_) slope_ = slopeAtEnd(e_.s, e_.motion);
    const auto [dr, dv] = bothBlocks(e_, change.data());
    return Arc::hermite(e_.s.DtCur, before, dr, dv, block(e_, run.A1.data(), 3 * bodies),
                        block(e_, slope_->data(), 3 * bodies));
}

Arc StepInside::ofOrder8(const OrbitPoint& before) {
    Order8Stages& stages = e_.run.stages;
    if (!complete_) completeStages(e_.s, e_.motion, stages);
    complete_ = true;
    std::array<OrbitPoint, order8::allStages> slope;
    for (std::size_t k = 0; k < slope.size(); ++k) slope[k] = bothBlocks(e_, stages.slope[k].data());
    return order8Arc(stages.h, before, slope);
}

}  // namespace tarvex
