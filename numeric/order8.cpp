#include "numeric/order8.h"

#include <algorithm>

#include "numeric/integrator.h"
#include "numeric/lane_kernels.h"

namespace tarvex {

namespace {

using order8::Term;

constexpr int firstAcceleration = 3 * bodies;  ///< cell of the first acceleration in dU
using State = std::array<double, equations>;

/// sum += weight*slope over all cells.
TARVEX_KERNEL void addTerm(double weight, const double* __restrict slope, double* __restrict sum) {
    for (int k = 0; k < equations; ++k) sum[k] += weight * slope[k];
}

/// U at the point of a row: the start of the step and h times the weighted slopes.
void toPoint(const Order8Stages& stages, std::span<const Term> row, double* U) {
    State sum{};
    for (const Term& term : row) addTerm(term.weight, stages.slope[term.stage].data(), sum.data());
    for (int k = 0; k < equations; ++k) U[k] = stages.start[k] + stages.h * sum[k];
}

void takeAccelerations(Motion& motion) {
    const double* const a = &motion.dU[firstAcceleration];
    std::copy_n(a, bodies, motion.AX.begin());
    std::copy_n(a + bodies, bodies, motion.AY.begin());
    std::copy_n(a + 2 * bodies, bodies, motion.AZ.begin());
}

/// dU at the present U; the relativistic terms with the accelerations of this very point.
void slopeOf(ModelState& s, Motion& motion) {
    const auto equations = motion.kodOTO == 0 ? Diffur : DiffurOTO;
    equations(s, motion);
    if (motion.kodOTO == 0 && motion.kodRelativity == 0) return;
    takeAccelerations(motion);  // those it has used were of a point nearby
    equations(s, motion);
}

void evaluate(ModelState& s, Motion& motion, Order8Stages& stages, int stage) {
    if (stage > 0) toPoint(stages, order8::rows[stage], motion.U.data());
    slopeOf(s, motion);
    stages.slope[stage] = motion.dU;
}

Vec3 sumOf(std::span<const Term> row, const std::array<Vec3, order8::allStages>& slope) {
    Vec3 sum;
    for (const Term& term : row) sum += term.weight * slope[term.stage];
    return sum;
}

NestedPolynomial denseOutput(double h, const Vec3& start, const std::array<Vec3, order8::allStages>& slope) {
    constexpr int atEnd = order8::stages;
    NestedPolynomial p{.start = start};
    p.F[0] = h * sumOf(order8::result, slope);
    p.F[1] = h * slope[0] - p.F[0];
    p.F[2] = 2 * p.F[0] - h * (slope[0] + slope[atEnd]);
    for (std::size_t k = 0; k < std::size(order8::dense); ++k)
        p.F[3 + k] = h * sumOf(order8::dense[k], slope);
    return p;
}

}  // namespace

void order8Step(ModelState& s, Motion& motion, Order8Stages& stages) {
    motion.NDiffur = 0;
    motion.dTstage = 0;
    stages.h = s.DtCur;
    std::copy_n(motion.U.begin(), equations, stages.start.begin());
    for (int stage = 0; stage < order8::stages; ++stage) evaluate(s, motion, stages, stage);
    toPoint(stages, order8::result, motion.U.data());
    motion.dU.fill(0);
    for (const Term& term : order8::result)
        addTerm(term.weight, stages.slope[term.stage].data(), motion.dU.data());
}

void completeStages(ModelState& s, Motion& motion, Order8Stages& stages) {
    State U, dU = motion.dU;
    std::copy_n(motion.U.begin(), equations, U.begin());
    const BodyArray AX = motion.AX, AY = motion.AY, AZ = motion.AZ;
    for (int stage = order8::stages; stage < order8::allStages; ++stage) evaluate(s, motion, stages, stage);
    std::copy(U.begin(), U.end(), motion.U.begin());
    motion.dU = dU;
    motion.AX = AX, motion.AY = AY, motion.AZ = AZ;
    unpackState(s, motion);
}

Arc order8Arc(double h, const OrbitPoint& start, const std::array<OrbitPoint, order8::allStages>& slope) {
    std::array<Vec3, order8::allStages> speed, acceleration;
    for (std::size_t k = 0; k < slope.size(); ++k) speed[k] = slope[k].r, acceleration[k] = slope[k].v;
    return {denseOutput(h, start.r, speed), denseOutput(h, start.v, acceleration)};
}

}  // namespace tarvex
