// The plan: its experiments, one after another on the screen of runs.

#include "core/arithmetic.h"
#include "core/clock.h"
#include "forms/plan_form.h"
#include "initial/start_up.h"
#include "stats/gravity_plan.h"
#include "stats/plan_file.h"

#include <utility>

namespace tarvex {

namespace {

/// A batch is over: done, stopped, or ended by an error somewhere on the way.
template <class End>
class AtEnd {
public:
    explicit AtEnd(End end) : end_(std::move(end)) {}
    ~AtEnd() { end_(); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

private:
    End end_;
};

}  // namespace

void PlanForm::RunExperiments() {
    PlanBlock& p = lab.plan;
    p.NexpKon = lastExperiment.int16();
    readLevels();
    setNaturalLevels(p);
    for (int i = 1; i <= p.Nf; ++i) currentLevel(p.Nfact[i]).show(p.XU[p.Nfact[i]][p.Nplan]);
    startPlan();
    lab.s.NPlan = planNumber.int16();
    p.kodTestHead = 0;
    const Running calculation(*this);
    if (useFactor(4).on() && !finiteGravitySpeed.on())
        setStatus("Фактор X4 без отметки \"с учетом Vgr\": эксперименты от Vgr не зависят");
    const AtEnd end([this] { endBatch(); });
    runFromNext();
}

/// What is chosen for all experiments of the plan; its number is not read.
PlanSettings PlanForm::choices() const {
    return {.finiteGravitySpeed = finiteGravitySpeed.on(),
            .pressure = planHasPressure(lab.plan, useFactor(5).on()),
            .secondCoefficientZero = secondCoefficientZero.on()};
}

PlanSettings PlanForm::takePlan() {
    readLevels();
    setNaturalLevels(lab.plan);
    PlanSettings set = choices();
    set.plan = planNumber.int16();
    return set;
}

/// What every experiment of the plan has in common: the form of the experiment, the laws.
void PlanForm::startPlan() {
    // without the elements at Start nothing would be measured: "К моделированию" was not pressed
    if (!elementsHandedOver(lab.s)) {
        handOverElements(lab.s);
        planRead = "Элементы орбит для измерений взяты с формы 1";
        tellState();
    }
    desk().show(RunScreen::formName);
    screenOf<RunScreen>(desk()).chooseForPlan(finiteGravitySpeed.on());
    takePlanLaws(lab.motion, choices());
    lab.s.provenance.wrote(Given::Laws, 15);
}

void PlanForm::endBatch() {
    lab.s.NPlan = 0;
    if (lab.plan.Nexp <= lab.plan.NexpKon) lab.run.kodTest = 0;
}

/// The experiments from the one in its field, one after another; each end is told in its field.
void PlanForm::runFromNext() {
    bool ofPlan = false;
    const AtEnd end([&] {
        if (ofPlan) lab.s.NPlan = 0;
    });
    while (NextExperiment()) {
        ofPlan = true;
        if (gone) {  // closed meanwhile: the form that takes its place goes on
            screenOf<PlanScreen>(desk()).experimentEnded();
            return;
        }
        tellEnd();
        firstExperiment.show(lab.plan.Nexp + 1);
    }
}

void PlanForm::experimentEnded() { experimentEnd.setText(timeOfDay()); }

void PlanForm::tellEnd() {
    telling = true;
    experimentEnd.setText(timeOfDay());
    telling = false;
}

/// @return  true when there was one, and it has ended by itself
bool PlanForm::NextExperiment() {
    PlanBlock& p = lab.plan;
    p.Nexp = firstExperiment.int16();
    if (p.Nexp > p.NexpKon) {
        desk().screen().notify("Эксперименты плана выполнены   (\\Arhiv\\Zvuk_end1.wav)");
        return false;
    }
    if (p.Nexp < 1 || p.Nexp > experiments(p))
        throw SubscriptFailure("нет в плане эксперимента № " + std::to_string(p.Nexp));
    progress((p.Nexp - 1.0) / p.NexpKon);
    return runExperiment(p.Nexp);
}

/// Sets the levels of an experiment on the model and runs it with this number of its record file.
/// @return  true when it has ended by itself
bool PlanForm::runExperiment(int number) {
    const PlanBlock& p = lab.plan;
    for (const int i : {4, 6, 7})
        if (p.XU[i][number] == 0) desk().suspect(zeroLevel(i));  // a message to come is about it
    RunSettings levels;
    applyLevels(p, number, choices(), lab.experiment(), levels);
    for (int i = 1; i <= gravityFactors; ++i) currentLevel(i).show(p.XU[i][number]);
    desk().show(RunScreen::formName);
    return screenOf<RunScreen>(desk()).runOfPlan(number, levels.gravitySpeed.take("X4"));
}

/// One experiment outside the plan for a planet; false where it was stopped.
bool PlanForm::runSolution(const FactorValues& values, int planet, int number) {
    PlanBlock& p = lab.plan;
    p.Nexp = p.NexpKon = static_cast<std::int16_t>(number);
    for (int i = 1; i <= gravityFactors; ++i) p.XU[i][number] = values[static_cast<std::size_t>(i)];
    auto& screen = screenOf<RunScreen>(desk());
    const AtEnd end([&, before = screen.body()] {
        confirming = false;
        screen.setBody(before);
        endBatch();
    });
    confirming = true;
    startPlan();
    lab.s.NPlan = planNumber.int16();
    p.kodTestHead = 0;
    screen.setBody(std::to_string(planet));
    if (!runExperiment(number)) return false;
    tellEnd();
    return true;
}

}  // namespace tarvex
