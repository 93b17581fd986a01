// Form15: the experiments of a plan, one after another on Form2.

#include <chrono>

#include "core/arithmetic.h"
#include "forms/plan_form.h"
#include "initial/start_up.h"
#include "stats/gravity_plan.h"
#include "stats/plan_file.h"

namespace tarvex {

namespace {

constexpr const char* driven = "Form2";

template <class T>
T& controlOf(Form& form, const char* name) {
    auto* control = dynamic_cast<T*>(form.find(name));
    if (control == nullptr) throw Failure("на форме " + form.name() + " нет " + name);
    return *control;
}

/// Seconds of the day, the value that triggers a run.
double timer() {
    using namespace std::chrono;
    const auto now = system_clock::now().time_since_epoch();
    return cut6(duration<double>(now % hours(24)).count());
}

}  // namespace

void PlanForm::RunExperiments() {
    PlanBlock& p = lab.plan;
    p.NexpKon = lastExperiment.int16();
    readLevels();
    setNaturalLevels(p);
    for (int i = 1; i <= p.Nf; ++i) currentLevel(p.Nfact[i]).show(p.XU[p.Nfact[i]][p.Nplan]);
    startPlanCodes();
    lab.s.NPlan = planNumber.int16();
    p.kodTestHead = 0;
    const Running calculation(*this);
    if (useFactor(4).on() && !finiteGravitySpeed.on())
        setStatus("Фактор X4 без отметки \"с учетом Vgr\": эксперименты от Vgr не зависят");
    try {
        NextExperiment();  // the end of each run starts the next inside this call
    } catch (...) {
        endBatch();
        throw;
    }
    endBatch();
}

/// What every experiment of the plan has in common: the form of the experiment, the codes of the law.
void PlanForm::startPlanCodes() {
    // without the elements at Start nothing would be measured: "К моделированию" of Form1 was not pressed
    if (!elementsHandedOver(lab.s)) {
        handOverElements(lab.s);
        planRead = "Элементы орбит для измерений взяты с формы 1";
        tellState();
    }
    prepareForm2();
    lab.motion.kodVgr = 1;
    lab.motion.kodDX = 2;
    lab.motion.kodPgr = 5;
    lab.s.provenance.wrote(Given::Laws, 15);
    if (!useFactor(5).on() && lab.plan.Xnul[5] == 0) lab.motion.kodPgr = 0;
}

/// The batch is over: done, stopped, or ended by an error somewhere on the way.
void PlanForm::endBatch() {
    lab.s.NPlan = 0;
    if (lab.plan.Nexp <= lab.plan.NexpKon) lab.run.kodTest = 0;
}

void PlanForm::prepareForm2() {
    desk().show(driven);
    Form& form = desk().form(driven);
    controlOf<OptionButton>(form, "Option3").choose();
    struct Tick {
        const char* name;
        bool on;
    };
    // the start of a run reads kodVgr back from its tick "Vgr": without the tick of this form the plan runs
    // with no speed of gravity
    const Tick ticks[] = {{"Check3", false},
                          {"Check4", true},
                          {"Check20", true},
                          {"Check22", true},
                          {"Check13", finiteGravitySpeed.on()},
                          {"Check14", true},
                          {"Check17", true},
                          {"Check12", false},
                          {"Check2", false}};
    for (const Tick& tick : ticks) controlOf<CheckBox>(form, tick.name).set(tick.on);
}

void PlanForm::NextExperiment() {
    PlanBlock& p = lab.plan;
    p.Nexp = firstExperiment.int16();
    if (p.Nexp > p.NexpKon) {
        desk().screen().notify("Эксперименты плана выполнены   (\\Arhiv\\Zvuk_end1.wav)");
        return;
    }
    if (p.Nexp < 1 || p.Nexp > experiments(p))
        throw SubscriptFailure("нет в плане эксперимента № " + std::to_string(p.Nexp));
    FactorValues values{};
    for (int i = 1; i <= gravityFactors; ++i) values[static_cast<std::size_t>(i)] = p.XU[i][p.Nexp];
    progress((p.Nexp - 1.0) / p.NexpKon);
    startExperiment(values, p.Nexp);
}

/// Sets the factors on the model and starts a run with this number of its record file.
void PlanForm::startExperiment(const FactorValues& values, int number) {
    ModelState& s = lab.s;
    const auto factor = [&](int i) { return values[static_cast<std::size_t>(i)]; };
    s.VXsys = factor(1);
    s.VYsys = factor(2);
    s.VZsys = factor(3);
    lab.motion.Vgr = finite(factor(4) * Vsv);
    lab.motion.kPgr1 = factor(5);
    lab.motion.kPgr2 = secondCoefficientZero.on() ? 0 : factor(5);
    for (const int i : {4, 6, 7})
        if (factor(i) == 0) desk().suspect(zeroLevel(i));  // a message to come is about it
    s.m[5] = ratio(s.m[0], factor(6));
    s.m[2] = ratio(s.m[0], factor(7));
    for (int i = 1; i <= gravityFactors; ++i) currentLevel(i).show(factor(i));
    desk().show(driven);
    Form& form = desk().form(driven);
    controlOf<TextField>(form, "Text8").show(number);
    controlOf<TextField>(form, "Text35").show(factor(4));
    controlOf<TextField>(form, "Text53").show(timer());
}

/// One experiment outside the plan for a planet; false where it was stopped.
bool PlanForm::runSolution(const FactorValues& values, int planet, int number) {
    PlanBlock& p = lab.plan;
    p.Nexp = p.NexpKon = static_cast<std::int16_t>(number);
    for (int i = 1; i <= gravityFactors; ++i) p.XU[i][number] = values[static_cast<std::size_t>(i)];
    auto& measured = controlOf<TextField>(desk().form(driven), "Text13");
    const std::string before = measured.text();
    const auto end = [&] {
        confirming = false;
        measured.setText(before);
        endBatch();
    };
    confirmed = false;
    confirming = true;
    try {
        startPlanCodes();
        lab.s.NPlan = planNumber.int16();
        p.kodTestHead = 0;
        measured.show(planet);
        startExperiment(values, number);
    } catch (...) {
        end();
        throw;
    }
    end();
    return confirmed;
}

}  // namespace tarvex
