#include "forms/elements_form.h"

#include <chrono>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "forms/date_fields.h"
#include "forms/given.h"
#include "forms/plot_grid.h"
#include "initial/initial_data.h"
#include "initial/parameter_file.h"
#include "initial/start_up.h"
#include "theories/ephemeris.h"

namespace tarvex {

namespace {

constexpr const char* boxTitle = "Tarvex7m";
constexpr double bodyRadius = 0.06, loadedRadius = 0.04;
constexpr Color centreColor{0, 0, 250};

/// Headings of the table in the two views.
constexpr std::array elementHeadings = {"AlfaL, град", "R0sr, тыс.км", "W0sr, рад/год", "Eks",
                                        "Betta, град", "AlfaP, град",  "AlfaU, град"};
constexpr std::array stateHeadings = {"X, тыс.км", "Y, тыс.км ", "Z, тыс.км", "VX, м/с",
                                      "VY, м/с",   "VZ, м/с",    "mSol/mPl"};

/// A text that differs from second to second, for the trigger of another form.
std::string presentTime() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return toText(static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()));
}

}  // namespace

ElementsForm::ElementsForm(Laboratory& lab_)
    : ElementsControls(lab_.desk, formName, "Параметры объектов и начальные данные  Tarvex7m4 - форма 1"),
      lab(lab_),
      check_(*this, lab_) {
    bindCommands();
    bindForms();
    arrange();
}

void ElementsForm::bindCommands() {
    const DateFields date{year, month, day, julianDate};
    dateToJulian.onPress([this, date] { gregorianToJulian(lab, date); });
    julianToDate.onPress([this, date] { julianToGregorian(lab, date); });
    loadParameters.onPress([this] { fillFromSource(); });
    saveParameters.onPress([this] { writeFile(); }, orShow("Задайте номер файла", boxTitle));
    computeInitialData.onPress([this] { formInitialData(); });
    findCentre.onPress(
        [this] {
            centreOfMass(lab.s);
            showCentre();
        },
        orShow("Ошибка", boxTitle));
    moveCentreToOrigin.onPress(
        [this] {
            balance([this] { centreToOrigin(lab.s); }, "ЦМ в начале координат");
            viewState.choose();
            showCentre();
        },
        orShow("Ошибка", boxTitle));
    findSunVelocity.onPress(
        [this] {
            balance([this] { sunFromMomentum(lab.s); }, "скорость Солнца по Vpl");
            viewState.choose();
        },
        orShow("Ошибка", boxTitle));
    exitProgram.onPress([this] {
        if (lab.ephemeris.kodJPLopen == 10) DEClose(lab.ephemeris);
        desk().unloadAll(formName);
    });

    viewElements.onChoose([this] { showTable(); });
    viewState.onChoose([this] { showTable(); });
    showStateTrigger.onChange([this] { showState(); });
    for (int i = 0; i <= NPlanetMax; ++i) inModel(i).onChange([this] { tick(); });
    earthAndMoon.onChange([this] { moonMode(); });
    scale.onChange([this] {
        setScale(" ");
        drawGrid(orbitPicture, {});
    });

    const Shown badRun = orShow("Ошибка решения уравнений", boxTitle);
    checkOrbit.onPress([this] { check_.start(); });
    exactPassages.onChange([this] {
        stepDivider.setEnabled(!exactPassages.on());
        windowDegrees.setEnabled(!exactPassages.on());
    });
    stopCheck.onPress([this] { lab.s.kodStop = 1; });
    continueCheck.onPress([this] { check_.goOn(); }, badRun);
    checkSteps.onPress([this] { check_.batch(); }, badRun);
}

void ElementsForm::bindForms() {
    opens(openRun, "Form2");
    if (openRun.enabled())
        openRun.onPress([this] {
            handOverElements(lab.s);
            desk().show("Form2");
        });
    opens(openObservations, "Form10");
    opens(openSystemVelocity, "Form4");
    opens(openNotation, "Form5");
    opens(openHelp, "Form3");
    opens(openEclipses, "Form16");
    opens(openPlanWorkshop, "Form18");
    opens(openConverter, "Form12");
    opens(openEccentric, "Form14");
    opens(openAberration, "Form11");
    opens(openMoon, "Form20");
    opens(openEphemeris, "Form24");
    opens(openTwoBodies, "Form25");
}

void ElementsForm::arrange() {
    std::vector<Layout> cells = {"в модели",         "проверять",       longitudeHeading,
                                 semiAxisHeading,    motionHeading,     eccentricityHeading,
                                 inclinationHeading, perihelionHeading, nodeHeading};
    for (int i = 0; i <= NPlanetMax; ++i) {
        cells.push_back(inModel(i));
        cells.push_back(checkedBody(i));
        for (int column = 1; column <= 7; ++column) cells.push_back(cellAt(column, i));
    }
    const Layout loading = frame(
        "Источник и дата",
        column({fields(3, {year, month, day}), row({dateToJulian, julianToDate, fields(1, {julianDate})}),
                row({fromNew0, fromJpl0, fromSer0}), fromJpl2, fromFile, fromScreen,
                table(2, {loadParameters, fields(1, {fileNumber}), saveParameters, blank()})}));
    const Layout initial =
        frame("Начальные данные", column({row({earthAndMoon, bary3, bary}), computeInitialData, findCentre,
                                          moveCentreToOrigin, findSunVelocity, drawCentre}));
    const Layout check = frame(
        "Проверка орбиты",
        column({fields(2, {stepsPerDisplay, step, windowDegrees, stepDivider}),
                row({exactPassages, keepTrajectory, relativeToCentre}), referencePeriod, checkOrbit,
                row({stopCheck, continueCheck, checkSteps}),
                fields(2, {period, checkTime, meanSpeed, meanRadius, perihelion, perihelionShift, node,
                           nodeShift, meanMotion, meanMotionPeriod, eccentricity, energyShift, longitude,
                           inclination, greatestDistance, leastDistance, greatestSpeed, leastSpeed})}));
    const Layout forms =
        frame("Формы", table(3, {openRun, openObservations, openSystemVelocity, openNotation, openHelp,
                                 openEclipses, openPlanWorkshop, openConverter, openEccentric, openAberration,
                                 openMoon, openEphemeris, openTwoBodies, exitProgram}));
    layout_ = row({column({row({viewElements, viewState, stretch(),
                                fields(3, {sunMass, gravityConstant, astronomicalUnit})}),
                           table(9, std::move(cells)), row({column({loading, initial}), check})}),
                   column({given, orbitPicture, row({scaleLabel, scale}), forms})});
}

void ElementsForm::load() {
    startUp(lab.s);
    lab.s.provenance.handOver(lab.s, {Given::SystemVelocity});
    tick();
    loadParameters.press();
    computeInitialData.press();
}

void ElementsForm::unload() { check_.leave(); }

void ElementsForm::activate() {
    lab.s.kodKalend = codeOf(Calendar::Gregorian);
    lab.s.TimeZone = 0;
    setScale("");
    lab.s.NEqMax = (NPlanetMax + 1) * 6 - 1;
}

void ElementsForm::setScale(const char* blankBeforeUnit) {
    lab.s.Mx = scale.value() * 100000. * 1000;
    scaleLabel.setCaption("Масштаб изображения=" + toText(scale.value() / 10.) + blankBeforeUnit +
                          "млн.км/см");
}

void ElementsForm::settled() noexcept { showGiven(lab, given, false); }

TextField& ElementsForm::cellAt(int column, int body) const {
    const std::array<const TextFields*, 7> columns = {&longitudeOrX,     &semiAxisOrY,     &motionOrZ,
                                                      &eccentricityOrVx, &inclinationOrVy, &perihelionOrVz,
                                                      &nodeOrMass};
    return (*columns.at(column - 1))(body);
}

// ---------------------------------------------------------------- loading and saving

Source ElementsForm::source() const {
    if (fromJpl0.on()) return Source::JPL0;
    if (fromSer0.on()) return Source::Ser0;
    if (fromJpl2.on()) return Source::JPL2;
    if (fromFile.on()) return Source::File;
    if (fromScreen.on()) return Source::Screen;
    return Source::New0;
}

void ElementsForm::fillFromSource() {
    ModelState& s = lab.s;
    s.provenance.complete = false;
    clearSunElements(s);
    s.God0 = year.int32();
    s.Mes0 = month.int32();
    s.Den0 = day.number();
    enterDate(s);
    julianDate.show(s.JD0);
    const Source from = source();
    enterTime(s, from);
    s.kodMoon = earthAndMoon.on() ? 1 : 0;
    loadBy(from);
    meanSpeeds(s);
    sunMass.show(s.mSol);
    gravityConstant.show(s.gamma);
    astronomicalUnit.show(s.Lae / 1000);
    showTable();
    tellLoaded(from);
    redrawPicture();
}

/// Loads what the source holds, and tells whose these groups of the state are now.
void ElementsForm::loadBy(Source from) {
    ModelState& s = lab.s;
    Provenance& p = s.provenance;
    const bool massesOwn = !p.moved(s, Given::Masses);
    switch (from) {
        case Source::File:
            loadFile();
            p.handOver(s, {Given::Elements, Given::Masses}, "файл");
            p.handOver(s, {Given::InitialData}, "из файла");
            break;
        case Source::Screen:
            loadScreen();
            if (viewElements.on()) {
                p.handOver(s, {Given::Elements}, "экран");
                if (massesOwn) p.handOver(s, {Given::Masses}, "экран");
            } else {
                p.handOver(s, {Given::InitialData}, "с экрана");
                p.handOver(s, {Given::Masses}, "экран");
            }
            break;
        case Source::JPL2:
            loadEphemeris(s, lab.ephemeris);
            p.handOver(s, {Given::Elements, Given::Masses}, "JPL2");
            p.handOver(s, {Given::InitialData}, "по эфемеридам");
            break;
        default:
            loadTheory(s, from);
            p.handOver(s, {Given::Elements, Given::Masses},
                       from == Source::New0   ? "New0"
                       : from == Source::JPL0 ? "JPL0"
                                              : "Ser0");
    }
    p.handOver(s, {Given::Date, Given::EarthMoon});
}

void ElementsForm::tellLoaded(Source from) {
    Provenance& p = lab.s.provenance;
    p.source = from;
    p.file = lab.s.NFile;
    p.year = lab.s.God0;
    p.month = lab.s.Mes0;
    p.day = lab.s.Den0;
    p.complete = true;
    loaded_ = typed();
}

ElementsForm::Typed ElementsForm::typed() const {
    return {.date = {year.text(), month.text(), day.text()},
            .constants = {sunMass.text(), gravityConstant.text(), astronomicalUnit.text()},
            .source = source(),
            .file = fileNumber.text(),
            .moon = earthAndMoon.on(),
            .bary3 = bary3.on(),
            .bary = bary.on()};
}

std::vector<std::string> ElementsForm::notLoaded() const {
    constexpr const char* sources[] = {"New0", "JPL0", "Ser0", "JPL2", "файл", "экран"};
    const Typed now = typed();
    std::vector<std::string> all;
    if (now.date != loaded_.date) all.emplace_back("дата");
    if (now.source != loaded_.source) {
        all.push_back(std::string("источник ") + sources[static_cast<int>(now.source)]);
    } else if (now.source == Source::File && now.file != loaded_.file) {
        all.push_back("файл № " + now.file);
    }
    if (now.moon != loaded_.moon) all.emplace_back("Земля-Луна");
    if (formed_ && (now.bary3 != formed_->bary3 || (now.moon && now.bary != formed_->bary)))
        all.emplace_back("Bary");
    bool table = now.constants != loaded_.constants;
    for (int i = 0; i < bodies; ++i)
        for (int k = 1; k <= 7; ++k) table = table || cellAt(k, i).text() != shown_[k - 1][i];
    if (table) all.emplace_back("таблица");
    return all;
}

void ElementsForm::loadFile() {
    ModelState& s = lab.s;
    s.NFile = fileNumber.int16();
    const std::string name = files::parameters(s.NFile);
    const auto open = [&] {
        try {
            return ParameterReader(lab.tree, s.NFile);
        } catch (const OpenFailure&) {
            throw Refusal("Не могу найти файл " + name, boxTitle);
        }
    };
    ParameterReader file = open();
    stage("Ошибка чтения данных из файла " + name, boxTitle, [&] {
        file.date(s);
        year.show(s.God0);
        month.show(s.Mes0);
        day.show(s.Den0);
        enterDate(s);
        julianDate.show(s.JD0);
        file.bodies(s, [this](int body) { plotRow(body); });
    });
}

void ElementsForm::loadScreen() {
    ModelState& s = lab.s;
    s.mSol = sunMass.number();
    s.gamma = gravityConstant.number();
    s.Lae = finite(astronomicalUnit.number() * 1000);
    for (int i = 0; i <= NPlanetMax; ++i) {
        const auto typed = [&](int column) { return cellAt(column, i).number(); };
        if (viewElements.on()) {
            enterElements(s, i, typed);
        } else {
            enterState(s, i, typed);
            plotRow(i);
        }
    }
}

void ElementsForm::plotRow(int body) {
    const ModelState& s = lab.s;
    orbitPicture.disc(s.X[body] / s.Mx, s.Y[body] / s.Mx, loadedRadius, bodyColor(s, body));
}

void ElementsForm::writeFile() {
    ModelState& s = lab.s;
    s.NFile = fileNumber.int16();
    s.God0 = year.int32();
    s.Mes0 = month.int32();
    s.Den0 = day.number();
    const std::string name = files::parameters(s.NFile);
    try {
        writeParameters(s, lab.tree, s.NFile);
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, boxTitle);
    } catch (const Failure&) {
        throw Refusal("Ошибка записи в файл " + name, boxTitle);
    }
    const bool moonIsWritten =
        s.X[rowXena] == s.X0[rowXena] && s.Y[rowXena] == s.Y0[rowXena] && s.Z[rowXena] == s.Z0[rowXena];
    if (s.kodMoon == 1 && !moonIsWritten)
        setStatus("В строке 10 файла - X(10), а не начальные данные Луны: они другие");
}

// ---------------------------------------------------------------- initial data

void ElementsForm::formInitialData() {
    ModelState& s = lab.s;
    Provenance& p = s.provenance;
    const bool massesOwn = !p.moved(s, Given::Masses), elementsOwn = !p.moved(s, Given::Elements);
    initialDataFromElements(s, {.moon = earthAndMoon.on(), .bary3 = bary3.on(), .bary = bary.on()});
    p.handOver(s, {Given::EarthMoon, Given::Bary});
    if (massesOwn) p.handOver(s, {Given::Masses}, p.last(Given::Masses).how);
    if (elementsOwn) {
        p.handOver(s, {Given::InitialData}, "по элементам");
    } else {
        p.wrote(Given::InitialData, 1, "по элементам, измененным после загрузки");
    }
    formed_ = typed();
    showTable();
    redrawPicture();
}

/// A command that works on the initial data as they stand: they are this form's only when they were before.
void ElementsForm::balance(const std::function<void()>& command, const char* how) {
    const bool own = !lab.s.provenance.moved(lab.s, Given::InitialData);
    command();
    if (own) lab.s.provenance.handOver(lab.s, {Given::InitialData}, how);
}

void ElementsForm::showCentre() {
    const ModelState& s = lab.s;
    const double x = s.X[rowCentre], y = s.Y[rowCentre], z = s.Z[rowCentre];
    if (drawCentre.on()) orbitPicture.cross(x / s.Mx, y / s.Mx, 1, centreColor);
    greatestDistance.show(Fix(x) / MK);
    leastDistance.show(Fix(y) / MK);
    greatestSpeed.show(Fix(z) / MK);
}

// ---------------------------------------------------------------- table and picture

void ElementsForm::showTable() {
    if (!viewElements.on()) return showState();
    const std::array<Label*, 7> headings = {&longitudeHeading,    &semiAxisHeading,    &motionHeading,
                                            &eccentricityHeading, &inclinationHeading, &perihelionHeading,
                                            &nodeHeading};
    for (int k = 0; k < 7; ++k) headings[k]->setCaption(elementHeadings[k]);
    for (int i = 0; i <= NPlanetMax; ++i) {
        const auto shown = shownElements(lab.s, i);
        for (int k = 0; k < 7; ++k) showCell(k + 1, i, shown[k]);
    }
}

void ElementsForm::showState() {
    const std::array<Label*, 7> headings = {&longitudeHeading,    &semiAxisHeading,    &motionHeading,
                                            &eccentricityHeading, &inclinationHeading, &perihelionHeading,
                                            &nodeHeading};
    for (int k = 0; k < 7; ++k) headings[k]->setCaption(stateHeadings[k]);
    for (int i = 0; i <= NPlanetMax; ++i) showStateRow(i, 7);
}

void ElementsForm::showStates() {
    viewState.choose();
    showStateTrigger.setText(presentTime());
}

void ElementsForm::showStateRow(int body, int columns) {
    const auto shown = shownState(lab.s, body);
    for (int k = 0; k < columns; ++k) showCell(k + 1, body, shown[k]);
}

void ElementsForm::showCell(int column, int body, double value) {
    TextField& cell = cellAt(column, body);
    cell.show(value);
    shown_[column - 1][body] = cell.text();
}

void ElementsForm::redrawPicture() {
    const ModelState& s = lab.s;
    drawGrid(orbitPicture, {});
    for (int i = 0; i <= NPlanetMax; ++i)
        drawBothViews(orbitPicture, s.X[i] / s.Mx, s.Y[i] / s.Mx, s.Z[i] / s.Mx, bodyRadius, bodyColor(s, i));
}

void ElementsForm::tick() {
    std::array<bool, bodies> ticked{};
    for (int i = 0; i <= NPlanetMax; ++i) {
        ticked[i] = inModel(i).on();
        checkedBody(i).setEnabled(ticked[i]);
    }
    tickBodies(lab.s, ticked);
    checkedBody(rowSun).setEnabled(false);  // the Sun has no orbit to check
}

void ElementsForm::moonMode() {
    const bool moon = earthAndMoon.on();
    for (Control* control :
         {static_cast<Control*>(&inModel(rowXena)), static_cast<Control*>(&checkedBody(rowXena))})
        control->setCaption(moon ? "Луна" : "Ксена");
    inModel(rowXena).set(moon);
    checkedBody(rowEarthMoon).setEnabled(!moon);
    checkedBody(rowXena).setEnabled(inModel(rowXena).on());
}

}  // namespace tarvex
