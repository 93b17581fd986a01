#include "experiment/plan_run.h"

#include "core/arithmetic.h"
#include "initial/start_up.h"

namespace tarvex {

namespace {

/// Factors of the plan, the rows of XU.
enum Factor { systemVX = 1, systemVY, systemVZ, gravitySpeed, pressureCoefficient, sunToJupiter, sunToVenus };

constexpr int rowVenus = 2, rowJupiter = 5;

}  // namespace

bool planHasPressure(const PlanBlock& plan, bool ticked) {
    return ticked || plan.Xnul[pressureCoefficient] != 0;
}

void takePlanLaws(Motion& motion, const PlanSettings& set) {
    motion.kodDX = codeOf(Retardation::ByAccelerations);
    motion.kodPgr = codeOf(set.pressure ? Pressure::LienardWiechert : Pressure::None);
}

RunSettings settingsOfPlan(RunSettings run, const PlanSettings& set) {
    run.model = true;
    run.finiteGravitySpeed = set.finiteGravitySpeed;
    run.boxes.measure = run.boxes.records = run.boxes.renewBaselines = run.boxes.endAtYear = true;
    run.boxes.originSun = true;
    run.boxes.animation = run.boxes.energy = run.boxes.track = false;
    return run;
}

void applyLevels(const PlanBlock& plan, int u, const PlanSettings& set, const Experiment& e,
                 RunSettings& run) {
    if (u < 1 || u > maxPoints) throw SubscriptFailure("нет в плане эксперимента № " + std::to_string(u));
    const auto level = [&](Factor factor) { return plan.XU[factor][u]; };
    ModelState& s = e.s;
    s.VXsys = level(systemVX);
    s.VYsys = level(systemVY);
    s.VZsys = level(systemVZ);
    finite(level(gravitySpeed) * Vsv);
    e.motion.kPgr1 = level(pressureCoefficient);
    e.motion.kPgr2 = set.secondCoefficientZero ? 0 : level(pressureCoefficient);
    s.m[rowJupiter] = ratio(s.m[rowSun], level(sunToJupiter));
    s.m[rowVenus] = ratio(s.m[rowSun], level(sunToVenus));
    run.experiment = u;
    run.gravitySpeed = TypedText{toText(level(gravitySpeed))};  // to the digits that its field shows
}

ExperimentResult runPlanExperiment(const Experiment& e, const PlanBlock& plan, int u, const PlanSettings& set,
                                   const RunSettings& run, ExperimentPort& port) {
    if (!elementsHandedOver(e.s)) handOverElements(e.s);
    takePlanLaws(e.motion, set);
    ExperimentSettings one{.plan = set.plan, .run = settingsOfPlan(run, set)};
    stage("Ошибка при выполнение плана", "Tarvex7m", [&] {
        if (u > experiments(plan)) throw SubscriptFailure("нет в плане эксперимента № " + std::to_string(u));
        applyLevels(plan, u, set, e, one.run);
    });
    const auto outsidePlan = [&] { e.s.NPlan = 0; };
    try {
        ExperimentResult seen = runExperiment(e, one, port);
        outsidePlan();
        return seen;
    } catch (...) {
        outsidePlan();
        throw;
    }
}

}  // namespace tarvex
