#include "forms/run_form.h"

#include <chrono>

#include "core/arithmetic.h"
#include "core/clock.h"
#include "stats/test_plan.h"

namespace tarvex {

namespace {

constexpr std::int16_t headWritten = 88;  ///< kodTestHead once the head of the test file stands
constexpr double noteHeight = 13;         ///< the longest line on the plot fits its width
constexpr double longRun = 20;            ///< seconds: the end of a longer run is announced

/// True when the option of another form is on; a form that is not loaded has none on.
bool optionOn(Desk& desk, const std::string& form, const std::string& option) {
    if (!desk.isLoaded(form)) return false;
    Control* found = desk.form(form).find(option);
    return found != nullptr && found->kind() == Control::Kind::Option &&
           static_cast<OptionButton*>(found)->on();
}

/// Where the initial data come from, by the options of Form1.
DataSource dataSource(Desk& desk) {
    constexpr DataSource sources[] = {DataSource::New0,   DataSource::JPL0, DataSource::File,
                                      DataSource::Screen, DataSource::Ser0, DataSource::JPL2};
    for (int option = 4; option <= 9; ++option)
        if (optionOn(desk, "Form1", "Option" + std::to_string(option))) return sources[option - 4];
    return DataSource::Ser0;
}

}  // namespace

const RunSettings& RunForm::runDefaults() {
    static const RunSettings defaults;
    return defaults;
}

double RunForm::clockSeconds() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

TextField::Spec RunForm::result(const char* name, const char* label, const char* hint, int width) {
    return {.name = name, .label = label, .hint = hint, .readOnly = true, .width = width};
}

RunForm::RunForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Моделирование и имитирование движения планет    Tarvex7m5 - форма 2"),
      lab(lab_) {
    bindCommands();
    bindBoxes();
    arrange();
}

void RunForm::bindCommands() {
    const Shown bad = orShow("Задайте правильно данные", "Tarvex7");
    Command1.onPress([this] { start(); }, bad);
    Text53.onChange([this] { start(); }, bad);
    Command4.onPress([this] { stop(); });
    Command5.onPress([this] { resume(); }, bad);
    Command2.onPress([this] { runBatch(); }, bad);
    opens(Command9, "Form23");
    leaveFor(Command7, "Form7");
    leaveFor(Command3, "Form6");
    leaveFor(Command10, "Form15");
    Command8.onPress([this] {
        closeEphemeris();
        close();
    });
    Command6.onPress([this] {
        closeEphemeris();
        desk().unloadAll(formName);
    });
    HScroll1.onChange([this] { rescale(); });
    Picture2.onClick([this](double x, double y, Picture::Button button) {
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
    for (CheckBox* box : {&Check2, &Check3, &Check4, &Check12, &Check14, &Check17, &Check18, &Check19,
                          &Check20, &Check21, &Check22})
        box->onChange([this] { lab.run.boxes = boxes(); });
    for (OptionButton* option : {&Option5, &Option6, &Option9})
        option->onChoose([this] { lab.run.boxes = boxes(); });
}

/// A command that opens another form after closing the ephemeris file.
void RunForm::leaveFor(CommandButton& command, const char* form) {
    opens(command, form);
    if (!command.enabled()) return;
    command.onPress([this, form] {
        closeEphemeris();
        desk().show(form);
    });
}

void RunForm::closeEphemeris() {
    if (lab.ephemeris.kodJPLopen == 10) DEClose(lab.ephemeris);
}

Layout RunForm::elementTable() {
    std::vector<Layout> cells = {"", "начало", "сейчас", "сдвиг"};
    const auto line = [&cells](TextField& start, TextField& now, TextField& shift) {
        cells.insert(cells.end(), {Layout(start.caption()), start, now, shift});
    };
    line(Text3, Text4, Text25);
    line(Text7, Text24, Text23);
    line(Text6, Text22, Text16);
    line(Text20, Text18, Text29);
    line(Text46, Text47, Text10);
    line(Text48, Text49, Text15);
    return frame("Параметры орбиты, сдвиги углов в секундах", table(4, std::move(cells)));
}

void RunForm::arrange() {
    const Layout kind = frame(
        "Что решать", column({row({Option3, Option7, Option8}), row({Option4, Option5, Option6, Option9}),
                              row({Option1, Option2, stretch(), fields(1, {Text8})}),
                              row({Check13, Text35, stretch(), fields(1, {Text45})})}));
    const Layout stepping =
        frame("Шаг и начало координат",
              column({table(3, {Layout(Text38.caption()), Text38, fields(1, {Text39}),
                                Layout(Text37.caption()), Text37, "шагов", Check14, Text40, "году"}),
                      row({Check17, Check19, Check18})}));
    const Layout measuring =
        frame("Измерение и записи",
              column({table(3, {Check4, Text13, blank(), Layout(Text17.caption()), Text17, Check22}), Check20,
                      row({Check2, Check21}), Check12}));
    const Layout plots =
        frame("Графики", column({table(3, {Check8, Check9, Check10, Check11, Check15, Check16, Check5, Check6,
                                           Check7, Check3, Check1, blank()}),
                                 fields(2, {Text5, Text9, Text21, Text36})}));
    const Layout commands =
        frame("Команды", column({table(3, {Command1, Command4, Command5, Command2, Command3, Command10,
                                           Command7, Command8, Command6}),
                                 Command9}));
    const Layout clock =
        frame("Время",
              column({fields(2, {Text1, Text50, Text14}),
                      table(4, {"", "год", "месяц", "день", "дата", Text44, Text43, Text42, "AlfaP пройден",
                                Text28, Text27, Text26, "AlfaU пройден", Text33, Text32, Text31})}));
    const Layout place =
        frame("Положение", fields(1, {Text2, Text34, Text11, Text12, Text30, Text19, Text41}));
    layout_ = row({column({kind, stepping, measuring, plots, commands, stretch()}),
                   column({clock, elementTable(), row({place, Picture2})}),
                   column({Picture1, row({Label1, HScroll1})})});
}

void RunForm::load() {
    ModelState& s = lab.s;
    Motion& motion = lab.motion;
    s.Mx = 100000. * 1000 * HScroll1.value();
    lab.run.MxView = 1.8 * MK * MK;
    for (int i = 0; i < bodies; ++i) {
        s.X[i] = s.XOld[i] = s.X0[i];
        s.Y[i] = s.YOld[i] = s.Y0[i];
        s.Z[i] = s.ZOld[i] = s.Z0[i];
    }
    lab.run.dYplot = Text36.number();
    Picture1.setTextHeight(noteHeight);
    clearPictures();
    drawMarkers();
    Text14.show(cut6(s.JDstart));
    motion.kodPgr = motion.kodDX = motion.kodEpot = motion.kodXcm = motion.kodCMnow = 0;
    motion.kodSun = motion.kodDiffurV = 0;
    motion.kPgr1 = motion.kPgr2 = 0;
    lab.run.kodTest = 0;
    lab.plan.kodTestHead = 0;
    motion.N1 = 1;
    motion.N2 = 2;
    lab.run.kmTest2 = s.km[2];
    lab.run.kmTest5 = s.km[5];
}

void RunForm::activate() {
    lab.s.kodKalend = 0;
    lab.s.TimeZone = 0;
}

void RunForm::unload() { gone_ = true; }

RunBoxes RunForm::boxes() const {
    RunBoxes set;
    set.measure = Check4.on();
    set.records = Check20.on();
    set.track = Check2.on();
    set.energy = Check12.on();
    set.animation = Check3.on();
    set.originSun = Check17.on();
    set.originEarth = Check19.on();
    set.originCentre = Check18.on();
    set.endAtYear = Check14.on();
    set.renewBaselines = Check22.on();
    set.debugText = Check21.on();
    set.theory = Option6.on() ? Imitator::JPL2 : Option9.on() ? Imitator::JPL0 : Imitator::New0;
    return set;
}

RunSettings RunForm::settings() const {
    RunSettings set;
    set.Text13 = Text13.text();
    set.Text17 = Text17.text();
    set.Text8 = Text8.text();
    set.Text35 = Text35.text();
    set.Text45 = Text45.text();
    set.Text38 = Text38.text();
    set.Text39 = Text39.text();
    set.Text37 = Text37.text();
    set.Text5 = Text5.text();
    set.Text9 = Text9.text();
    set.Text21 = Text21.text();
    set.Text36 = Text36.text();
    set.Text40 = Text40.text();
    set.forward = Option1.on();
    set.model = Option3.on();
    set.relativistic = Option8.on();
    set.gravitySpeed = Check13.on();
    set.test = optionOn(desk(), "Form15", "Option5");
    set.boxes = boxes();
    set.source = dataSource(desk());
    return set;
}

void RunForm::start() {
    const RunSettings set = settings();
    takeSettings(lab.experiment(), set);
    for (TextField* shift : {&Text25, &Text23, &Text16, &Text29, &Text10, &Text15}) shift->setText("0");
    const StartNotes notes = prepareExperiment(lab.experiment(), set);
    ModelState& s = lab.s;
    if (s.NPlan > 0) clearPictures();
    eraseBodies();
    for (int i = 0; i < bodies; ++i) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    if (Check4.on()) showStartElements();
    Text48.show(cut6(lab.run.Period));
    Text49.setText("0");
    showNotes(notes);
    if (Check20.on() && lab.run.kodTest == 1 && lab.plan.kodTestHead != headWritten) writeTestHead();
    lab.run.TimerStart = clockSeconds();
    run();
}

void RunForm::writeTestHead() {
    const bool roto = optionOn(desk(), "Form15", "Option2");
    writeTestPlanHead(lab.tree, lab.plan, roto);
    showNotes({.trace = "", .top = testPlanHead(lab.plan, roto), .foot = {}});
    desk().screen().pause(5000);
}

void RunForm::resume() {
    continueExperiment(lab.experiment(), settings());
    setDirection(lab.experiment(), Option1.on() ? 1 : -1);
    run();
}

void RunForm::runBatch() {
    continueExperiment(lab.experiment(), settings());
    lab.s.kodStop = 1;  // the first display pass ends the loop
    run();
}

void RunForm::stop() {
    lab.s.kodStop = 1;
    lab.s.NPlan = 0;
    lab.plan.Nexp = lab.plan.Nplan;
}

/// Runs the loop and tells the plan, whose handler starts the next experiment inside this call.
void RunForm::run() {
    const double began = clockSeconds();
    {
        const Running running(*this);
        RunLoop(lab.experiment(), *this);
    }
    if (lab.s.NPlan > 0 && !gone_) {
        if (desk().knows("Form15"))
            if (Control* box = desk().form("Form15").find("Text3");
                box != nullptr && box->kind() == Control::Kind::Text)
                static_cast<TextField*>(box)->setText(timeOfDay());
        lab.s.NPlan = 0;
    } else if (!gone_ && clockSeconds() - began > longRun) {
        desk().screen().notify("Расчет эксперимента № " + Text8.text() + " закончен: " + lab.run.ModelName);
    }
}

void RunForm::testExperiment() {
    desk().screen().pause(1000);
    lab.plan.kodTestHead = headWritten;
    const int u = lab.plan.Nexp;
    const double y = testCriterion(lab.plan, u, lab.run.kmTest5, lab.run.kmTest2);
    lab.plan.Yu[u] = y;
    appendTestExperiment(lab.tree, lab.plan, u, y);
}

}  // namespace tarvex
