#include "forms/run_form.h"

#include <chrono>
#include <utility>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/clock.h"
#include "forms/given.h"
#include "forms/screens.h"
#include "numeric/records.h"
#include "stats/test_plan.h"

namespace tarvex {

namespace {

constexpr std::int16_t headWritten = 88;  ///< kodTestHead once the head of the test file stands
constexpr double noteHeight = 13;         ///< the longest line on the plot fits its width
constexpr double longRun = 20;            ///< seconds: the end of a longer run is announced

/// What stands in the trigger of a run.
double secondsOfDay() {
    using namespace std::chrono;
    return cut6(duration<double>(system_clock::now().time_since_epoch() % hours(24)).count());
}

}  // namespace

double RunForm::clockSeconds() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

RunForm::RunForm(Laboratory& lab_)
    : RunControls(lab_.desk, formName, "Моделирование и имитирование движения планет    Tarvex7m5 - форма 2"),
      lab(lab_) {
    bindCommands();
    bindBoxes();
    arrange();
}

void RunForm::bindCommands() {
    const Shown bad = orShow("Задайте правильно данные", "Tarvex7");
    startRun.onPress(
        [this] {
            start();
            runAlone();
        },
        bad);
    startTrigger.onChange(
        [this] {
            bool* const planEnd = std::exchange(planEnd_, nullptr);
            start();
            if (planEnd != nullptr)
                *planEnd = run();
            else
                runAlone();
        },
        bad);
    stopRun.onPress([this] { stop(); });
    continueRun.onPress([this] { resume(); }, bad);
    runSteps.onPress([this] { runBatch(); }, bad);
    opens(openLaws, "Form23");
    leaveFor(openGravityBench, "Form7");
    opens(openStatistics, StatisticsScreen::formName);
    openStatistics.onPress([this] { toStatistics(); });
    opens(openPlan, PlanScreen::formName);
    openPlan.onPress([this] { toPlan(); });
    closeForm.onPress([this] {
        closeEphemeris();
        close();
    });
    exitProgram.onPress([this] {
        closeEphemeris();
        desk().unloadAll(formName);
    });
    orbitScale.onChange([this] { rescale(); });
    orbitPicture.onWipe([this] {
        clearPictures();
        drawMarkers();
    });
    systemView.onWipe([this] {
        clearView();
        drawMarkers();
    });
    systemView.onClick([this](double x, double y, Picture::Button button) {
        if (button != Picture::Button::Left) return;
        const double toX = finite(viewX_ + x), toY = finite(viewY_ + y);
        viewX_ = toX;
        viewY_ = toY;
        clearView();
        drawMarkers();
    });
}

/// A tick that a run reads in every pass acts at once.
void RunForm::bindBoxes() {
    for (CheckBox* box : {&writeTrack, &animation, &measureOrbit, &watchEnergy, &endAtYear, &originSun,
                          &originCentre, &originEarth, &writeRecords, &debugText, &renewBaselines})
        box->onChange([this] { lab.run.boxes = boxes(); });
    for (OptionButton* option : {&theoryNew0, &theoryJpl2, &theoryJpl0})
        option->onChoose([this] { lab.run.boxes = boxes(); });
    // without windows nobody asks for their width and for the divider
    exactPassages.onChange([this] {
        stepDivider.setEnabled(!exactPassages.on());
        windowDegrees.setEnabled(!exactPassages.on());
        if (!exactPassages.on()) highOrder.set(false);
    });
    highOrder.onChange([this] {
        if (highOrder.on()) exactPassages.set(true);
    });
}

/// A command that opens another form after closing the ephemeris file.
void RunForm::leaveFor(CommandButton& command, const char* form) {
    opens(command, form);
    if (!command.enabled()) return;
    command.onPress([this, form] {
        if (!desk().calculating()) closeEphemeris();  // a run that goes on may be reading it
        desk().show(form);
    });
}

/// To what the last run has recorded, where the user has not done anything there yet.
void RunForm::toStatistics() {
    closeEphemeris();
    const bool fresh = !lab.session.keeper.used(StatisticsScreen::formName);
    desk().show(StatisticsScreen::formName);
    if (!fresh || lab.run.FileRas.empty() || !lab.run.boxes.records) return;
    screenOf<StatisticsScreen>(desk()).showRun({.model = lab.run.kodModel == 1,
                                                .newcomb = lab.run.boxes.theory == Imitator::New0,
                                                .body = fileBody(lab.s),
                                                .plan = lab.s.NPlan,
                                                .experiment = lab.s.NFile});
}

void RunForm::toPlan() {
    closeEphemeris();
    openFreshPlan(lab, lab.s.NPlan);
}

void RunForm::closeEphemeris() {
    if (lab.ephemeris.kodJPLopen == 10) DEClose(lab.ephemeris);
}

Layout RunForm::elementTable() {
    std::vector<Layout> cells = {"", "начало", "сейчас", "сдвиг"};
    const auto line = [&cells](TextField& start, TextField& now, TextField& shift) {
        cells.insert(cells.end(), {Layout(start.caption()), start, now, shift});
    };
    line(perihelionStart, perihelionNow, perihelionShift);
    line(nodeStart, nodeNow, nodeShift);
    line(inclinationStart, inclinationNow, inclinationShift);
    line(eccentricityStart, eccentricityNow, eccentricityShift);
    line(semiAxisStart, semiAxisNow, semiAxisShift);
    line(periodStart, periodNow, periodShift);
    return frame("Параметры орбиты, сдвиги углов в секундах", table(4, std::move(cells)));
}

void RunForm::arrange() {
    const Layout kind = frame(
        "Что решать",
        column({row({model, classical, relativistic}), row({imitator, theoryNew0, theoryJpl2, theoryJpl0}),
                row({forward, backward, stretch(), fields(1, {experimentNumber})}),
                row({useGravitySpeed, gravitySpeed, stretch(), fields(1, {distanceExponent})})}));
    const Layout stepping = frame("Шаг и начало координат",
                                  column({table(3, {Layout(step.caption()), step, fields(1, {stepDivider}),
                                                    Layout(stepsPerDisplay.caption()), stepsPerDisplay,
                                                    "шагов", endAtYear, lastYear, "году"}),
                                          row({originSun, originEarth, originCentre})}));
    const Layout measuring = frame(
        "Измерение и записи",
        column({table(3, {measureOrbit, bodyNumber, blank(), Layout(windowDegrees.caption()), windowDegrees,
                          renewBaselines}),
                row({exactPassages, highOrder}), writeRecords, row({writeTrack, debugText, watchEnergy})}));
    const Layout plots =
        frame("Графики",
              column({table(3, {drawPerihelion, drawNode, drawInclination, drawEccentricity, drawSemiAxis,
                                drawPeriod, drawX, drawY, drawZ, animation, keepTrajectories, blank()}),
                      fields(2, {angleScale, timeScale, plotScale, plotShift})}));
    const Layout commands =
        frame("Команды", column({table(3, {startRun, stopRun, continueRun, runSteps, openStatistics, openPlan,
                                           openGravityBench, closeForm, exitProgram}),
                                 openLaws}));
    const Layout clock =
        frame("Время", column({fields(2, {modelTime, realTime, julianDate}),
                               table(4, {"", "год", "месяц", "день", "дата", year, month, day,
                                         "AlfaP пройден", perihelionYear, perihelionMonth, perihelionDay,
                                         "AlfaU пройден", nodeYear, nodeMonth, nodeDay})}));
    const Layout place =
        frame("Положение", fields(1, {longitude, turns, bodyX, bodyY, bodyZ, energyShift, momentumShift}));
    layout_ = row({column({kind, stepping, measuring, plots, commands, stretch()}),
                   column({clock, elementTable(), row({place, systemView}), stretch()}),
                   column({given, orbitPicture, row({orbitScaleLabel, orbitScale})})});
}

void RunForm::load() {
    ModelState& s = lab.s;
    Motion& motion = lab.motion;
    s.Mx = 100000. * 1000 * orbitScale.value();
    lab.run.MxView = 1.8 * MK * MK;
    for (int i = 0; i < bodies; ++i) {
        s.X[i] = s.XOld[i] = s.X0[i];
        s.Y[i] = s.YOld[i] = s.Y0[i];
        s.Z[i] = s.ZOld[i] = s.Z0[i];
    }
    lab.run.dYplot = plotShift.number();
    orbitPicture.setTextHeight(noteHeight);
    clearPictures();
    drawMarkers();
    julianDate.show(cut6(s.JDstart));
    offerCommands();
    motion.kodPgr = motion.kodDX = motion.kodEpot = motion.kodXcm = motion.kodCMnow = 0;
    motion.kodSun = motion.kodDiffurV = motion.kodRelativity = 0;
    motion.kPgr1 = motion.kPgr2 = 0;
    lab.s.provenance.wrote(Given::Laws, 2);
    lab.run.kodTest = 0;
    lab.plan.kodTestHead = 0;
    motion.N1 = 1;
    motion.N2 = 2;
    lab.run.kmTest2 = s.km[2];
    lab.run.kmTest5 = s.km[5];
}

void RunForm::activate() {
    lab.s.kodKalend = codeOf(Calendar::Gregorian);
    lab.s.TimeZone = 0;
}

void RunForm::unload() { gone_ = true; }

/// While a run goes on, the label tells what it began with.
void RunForm::settled() noexcept {
    if (!desk().calculating(formName)) showGiven(lab, given, true);
}

RunBoxes RunForm::boxes() const {
    RunBoxes set;
    set.measure = measureOrbit.on();
    set.records = writeRecords.on();
    set.track = writeTrack.on();
    set.energy = watchEnergy.on();
    set.animation = animation.on();
    set.originSun = originSun.on();
    set.originEarth = originEarth.on();
    set.originCentre = originCentre.on();
    set.endAtYear = endAtYear.on();
    set.renewBaselines = renewBaselines.on();
    set.debugText = debugText.on();
    set.theory = theoryJpl2.on() ? Imitator::JPL2 : theoryJpl0.on() ? Imitator::JPL0 : Imitator::New0;
    return set;
}

RunSettings RunForm::settings() const {
    RunSettings set;
    set.body = TypedText{bodyNumber.text()};
    set.windowDegrees = TypedText{windowDegrees.text()};
    set.experiment = TypedText{experimentNumber.text()};
    set.gravitySpeed = TypedText{gravitySpeed.text()};
    set.distanceExponent = TypedText{distanceExponent.text()};
    set.step = TypedText{step.text()};
    set.stepDivider = TypedText{stepDivider.text()};
    set.stepsPerDisplay = TypedText{stepsPerDisplay.text()};
    set.angleScale = TypedText{angleScale.text()};
    set.timeScale = TypedText{timeScale.text()};
    set.plotScale = TypedText{plotScale.text()};
    set.plotShift = TypedText{plotShift.text()};
    set.lastYear = TypedText{lastYear.text()};
    set.forward = forward.on();
    set.model = model.on();
    set.relativistic = relativistic.on();
    set.finiteGravitySpeed = useGravitySpeed.on();
    const PlanScreen* const plan = loadedScreen<PlanScreen>(desk());
    set.test = plan != nullptr && plan->testsPlan();
    set.measuring = exactPassages.on() ? Measuring::ExactPassages : Measuring::Windows;
    set.stepper = highOrder.on() ? Stepper::Order8 : Stepper::RungeKutta4;
    set.boxes = boxes();
    return set;
}

void RunForm::start() {
    showGiven(lab, given, true);
    beginExperiment(lab.experiment(), {.run = settings()}, *this);
}

void RunForm::settingsTaken() {
    for (TextField* shift :
         {&perihelionShift, &nodeShift, &inclinationShift, &eccentricityShift, &semiAxisShift, &periodShift})
        shift->setText("0");
}

void RunForm::started(const StartNotes& notes) {
    ModelState& s = lab.s;
    if (s.NPlan > 0) clearPictures();
    eraseBodies();
    for (int i = 0; i < bodies; ++i) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    if (measureOrbit.on()) showStartElements();
    periodStart.show(cut6(lab.run.Period));
    periodNow.setText("0");
    showNotes(notes);
    tellPlots();
    ++runsShown_;
    if (writeRecords.on() && lab.run.kodTest == 1 && lab.plan.kodTestHead != headWritten) writeTestHead();
    lab.run.TimerStart = clockSeconds();
    setStatus(cautions());
}

/// What the records of these settings do not hold, for the status line.
std::string RunForm::cautions() const {
    std::string text;
    if (backward.on() && measureOrbit.on())
        text = "Назад: окна измерения рассчитаны на ход вперед, апсиды и узлы не находятся. ";
    if (writeTrack.on() && !measureOrbit.on())
        text += "Координаты без измерения: Rpl в файле не обновляется. ";
    return text;
}

void RunForm::writeTestHead() {
    const PlanScreen* const plan = loadedScreen<PlanScreen>(desk());
    const bool roto = plan != nullptr && plan->rotatable();
    writeTestPlanHead(lab.tree, lab.plan, roto);
    showNotes({.trace = "", .top = testPlanHead(lab.plan, roto), .foot = {}});
    desk().pause(5000);
}

/// The run that was left takes back what other screens have used since.
void RunForm::goOn() {
    if (pause_) pause_->end(lab.experiment());
}

void RunForm::resume() {
    goOn();
    continueExperiment(lab.experiment(), settings());
    setDirection(lab.experiment(), forward.on() ? 1 : -1);
    runsShown_ -= runsShown_ > 0;  // the same run goes on
    tellPlots();
    ++runsShown_;
    if (lab.run.boxes.endAtYear && lab.run.GodEnd + 1.0 <= lab.s.GodR)
        setStatus("Прогон уже дошел до года окончания " + lastYear.text() + ": задайте более поздний");
    runAlone();
}

void RunForm::runBatch() {
    goOn();
    continueExperiment(lab.experiment(), settings());
    lab.s.kodStop = 1;  // the first display pass ends the loop
    runAlone();
}

void RunForm::stop() {
    lab.s.kodStop = 1;
    lab.s.NPlan = lab.run.NPlanStart = 0;
    lab.plan.Nexp = lab.plan.Nplan;
}

/// Held while a run goes on, or one inside another: only then can it be stopped, and only then not continued.
class RunForm::GoesOn {
public:
    explicit GoesOn(RunForm& form) : form_(form) {
        ++form_.goingOn_;
        form_.offerCommands();
    }
    ~GoesOn() {
        --form_.goingOn_;
        form_.offerCommands();
    }
    GoesOn(const GoesOn&) = delete;
    GoesOn& operator=(const GoesOn&) = delete;

private:
    RunForm& form_;
};

void RunForm::offerCommands() {
    for (Control* command : {&stopRun, &continueRun, &runSteps}) desk().screen().controlChanged(*command);
}

bool RunForm::rests(const Control& command) const {
    if (&command == &stopRun) return goingOn_ == 0;
    if (&command == &continueRun || &command == &runSteps) return goingOn_ > 0 || lab.run.TimerStart <= 0;
    return false;
}

/// Runs the loop.
/// @return  true when an experiment of a plan has ended by itself
bool RunForm::run() {
    {
        const Running running(*this);
        ++runs_;
        const GoesOn goesOn(*this);
        RunLoop(lab.experiment(), *this);
        pause_.emplace(lab.experiment());
    }
    if (lab.run.NPlanStart == 0 || gone_) return false;
    // whatever other forms have set since: the next experiment is of this plan
    lab.s.NPlan = lab.run.NPlanStart;
    return true;
}

/// Runs the loop; the plan, if the run is one of its, goes on inside this call.
void RunForm::runAlone() {
    const double began = clockSeconds();
    if (run()) {
        if (desk().knows(PlanScreen::formName)) screenOf<PlanScreen>(desk()).experimentEnded();
        lab.s.NPlan = 0;
    } else if (!gone_ && clockSeconds() - began > longRun) {
        desk().screen().notify("Расчет эксперимента № " + experimentNumber.text() +
                               " закончен: " + lab.run.ModelName);
    }
}

void RunForm::chooseForPlan(bool finiteGravitySpeed) {
    model.choose();
    struct Tick {
        CheckBox& box;
        bool on;
    };
    const Tick ticks[] = {{animation, false},
                          {measureOrbit, true},
                          {writeRecords, true},
                          {renewBaselines, true},
                          {useGravitySpeed, finiteGravitySpeed},
                          {endAtYear, true},
                          {originSun, true},
                          {watchEnergy, false},
                          {writeTrack, false}};
    for (const Tick& tick : ticks) tick.box.set(tick.on);
}

bool RunForm::runOfPlan(int number, double speed) {
    experimentNumber.show(number);
    gravitySpeed.show(speed);
    bool ended = false;
    planEnd_ = &ended;
    startTrigger.show(secondsOfDay());
    return ended;
}

void RunForm::testExperiment() {
    desk().pause(1000);
    lab.plan.kodTestHead = headWritten;
    const int u = lab.plan.Nexp;
    const double y = testCriterion(lab.plan, u, lab.run.kmTest5, lab.run.kmTest2);
    lab.plan.Yu[u] = y;
    appendTestExperiment(lab.tree, lab.plan, u, y);
}

}  // namespace tarvex
