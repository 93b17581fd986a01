#include "forms/eclipse_form.h"

#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/et_ut.h"
#include "forms/date_fields.h"
#include "forms/table_captions.h"
#include "reduction/coordinate_chain.h"
#include "reduction/eclipse_log.h"
#include "reduction/sky.h"
#include "reduction/sky_rows.h"

namespace tarvex {

namespace {

constexpr Color sunColor{240, 240, 0}, bodyGreen{0, 200, 0}, shadowColor{220, 220, 220}, white{255, 255, 255},
    black{0, 0, 0}, gridColor{235, 235, 235}, axisColor{150, 150, 150}, dayBlue{90, 110, 200};
constexpr std::int16_t egyptianKalend = 2;
constexpr double cellsOfSky = 30;          ///< degrees in a cell of the sky
constexpr double sideOfBodies = 12;        ///< height of the side view
constexpr double Mrow = 30000 * MK;        ///< metres in a cell of the picture of the bodies
constexpr std::size_t longestPath = 2000;  ///< points of the way over the disk that are kept
const std::string badData = "Введите правильно данные\r\n(целая часть числа отделяется запятой)";

const Eclipse::Sky& stageOf(const Eclipse::Stages& s, int stage) {
    const std::array<const Eclipse::Sky*, 7> all = {&s.geoJ2000, &s.source,   &s.receiver, &s.ofDate,
                                                    &s.equator,  &s.nutation, &s.topo};
    return *all[stage];
}

}  // namespace

EclipseForm::EclipseForm(Laboratory& lab_)
    : EclipseControls(lab_.desk, formName, "Неравномерность вращения Земли (ET-UT)"), lab(lab_) {
    const Shown bad = orShow(badData, "Tarvex7"), badRun = orShow("Ошибка решения уравнений", "Tarvex7");
    startRun.onPress([this] { start(); }, bad);
    stopRun.onPress([this] { lab.s.kodStop = 1; });
    continueRun.onPress(
        [this] {
            lab.s.kodStop = 0;
            EclipseRun();
        },
        badRun);
    makeOneStep.onPress(
        [this] {
            lab.s.kodStop = 1;
            EclipseRun();
        },
        badRun);
    restoreDate.onPress([this] {
        if (startDay_.empty()) return;
        day.setText(startDay_);
        month.setText(startMonth_);
        year.setText(startYear_);
    });
    opens(openEtUt, "Form17");
    opens(openMoonPerturbations, "Form21");
    opens(openPlanetPerturbations, "Form22");
    closeForm.onPress([this] { close(); });
    lunarEclipses.onChoose([this] { clearDisks(); });
    solarEclipses.onChoose([this] { clearDisks(); });
    fromTables.onChoose([this] { chooseData(true); });
    fromTheories.onChoose([this] { chooseData(false); });
    for (int i = 0; i <= 10; ++i) tableChoice(i).onChoose([this, i] { chooseTable(i); }, bad);
    for (int i = 1; i <= 4; ++i) theoryChoice(i).onChoose([this, i] { lab.s.NameData = theoryNames[i]; });
    logWithoutRefraction.setEnabled(logSolstices.on());
    logSolstices.onChange([this] { logWithoutRefraction.setEnabled(logSolstices.on()); });
    for (OptionButton* frameChoice : {&equatorialFrame, &horizontalFrame})
        frameChoice->onChoose([this] { clearDisks(); });
    for (Picture* one : {&bodiesPicture, &disksPicture, &skyPicture})
        one->onWipe([this] { clearPictures(); });
    layOut();
}

void EclipseForm::load() {
    ModelState& s = lab.s;
    // the perturbation tables, and the ET-UT laws unless the user has set his own
    for (const char* form : {"Form21", "Form22"})
        if (desk().knows(form)) desk().loadAndUnload(form);
    if (desk().knows("Form17") && s.kET[1][4] == 0) desk().loadAndUnload("Form17");
    bodiesPicture.setScale(-10, 14, 10, -10);
    disksPicture.setScale(-10, 10, 10, -10);
    skyPicture.setScale(-6, 3, 6, -3);
    tellAxes();
    clearPictures();
    s.Rpl[rowTerra][rowSun] = s.Lae;
}

void EclipseForm::unload() {
    gone_ = true;
    table_.close();
}

int EclipseForm::theory() const {
    for (int i = 1; i <= 4; ++i)
        if (theoryChoice(i).on()) return i;
    return 0;
}

/// What may change while a run goes on.
void EclipseForm::takeSettings() {
    using Places = Eclipse::Source;
    constexpr std::array sources = {Places::Ser0Plus, Places::New0, Places::JPL0, Places::JPL2,
                                    Places::Ser0Plus};
    e_.source = fromTables.on() ? Places::Tables : sources[theory()];
    e_.lunar = lunarEclipses.on();
    e_.moonTerms = moonPerturbations.on();
    e_.planetTerms = planetPerturbations.on();
    e_.refraction = withRefraction.on() && !(logSolstices.on() && logWithoutRefraction.on());
    e_.solstices = logSolstices.on();
    kodTimeDir = timeForward.on() ? 1 : -1;
}

/// Number of the body from its field, 0..11.
std::int32_t EclipseForm::bodyTyped() const {
    const std::int32_t body = bodyNumber.int32();
    if (body < 0 || body > rowMoon) throw SubscriptFailure("нет тела № " + std::to_string(body));
    return body;
}

/// The date fields in the chosen calendar and day start into the Julian date JD, days.
/// @return  false when they are no date: that has been complained of
bool EclipseForm::takeMoment() {
    ModelState& s = lab.s;
    kalend_ = julianCalendar.on() ? 1 : egyptianCalendar.on() ? 2 : 0;
    zone_ = dayFromNoon.on() ? 12 : 0;
    s.kodKalend = kalend_;
    s.TimeZone = zone_;
    s.kodErrDate = 0;
    NormalizeDate(s, day.number(), month.int32(), year.int32());
    s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
    return s.kodErrDate == 0;
}

void EclipseForm::start() {
    ModelState& s = lab.s;
    if (fromTables.on() && table_.table == nullptr) throw Refusal("Выберете имитатор", "Tarvex7");
    if (fromTheories.on() && theory() == 0) throw Refusal("Выберете теорию", "Tarvex7");
    const std::int32_t body = bodyTyped();
    if (body == 3) throw Refusal("Землю не наблюдали", "Tarvex7");
    s.IplSel = body;
    s.NameData = fromTables.on() ? table_.table->name : theoryNames[theory()];
    e_.readTable = [this] { readTable(correctPrecession.on()); };
    takeSettings();
    s.ObsL = placeLongitude.number();
    s.ObsB = placeLatitude.number();
    ratio(1, diskScale.number());
    ratio(1, stepDivider.number());
    stepDays.number();  // read only to refuse what is no number before the run
    if (!takeMoment()) return;
    startDay_ = day.text();
    startMonth_ = month.text();
    startYear_ = year.text();
    if (e_.source == Eclipse::Source::JPL2) {
        DEClose(lab.ephemeris);
        DEOpen(s, lab.ephemeris);
    }
    if (logPlaces.on()) beginPlacesLog(lab.tree, s);
    if (logSolstices.on()) beginSolsticeLog(lab.tree, s);
    contacts_.clear();
    for (int i = 1; i <= 4; ++i) contactTimes(i).setText("");
    sunrise.setText("");
    sunset.setText("");
    greatest_ = 0;
    riseAndSet_.clear();
    kodRefresh = refreshDisks.on() ? 1 : 0;
    s.kodStop = singleStep.on() ? 1 : 0;
    started_ = true;
    stage("Ошибка решения уравнений", "Tarvex7", [&] { EclipseRun(); });
}

void EclipseForm::EclipseRun() {
    if (!started_) throw Failure("счет еще не начат");
    Running running(*this);
    do {
        oneStep();
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (lab.s.kodStop != 1 && !gone_);
}

void EclipseForm::oneStep() {
    ModelState& s = lab.s;
    const ArithmeticGuard guard;
    takeSettings();
    ratio(1, diskScale.number());
    setClocks();
    EclipseAt(s, lab.ephemeris, e_, [this] { drawBodies(); });
    guard.check();
    showPlaces();
    tellCautions();
    noteRiseAndSet();
    if (kodRefresh == 1) {
        clearDisks();
        kodRefresh = 2;
    }
    drawSky();
    drawDisks();
    noteContacts();
    if (logPlaces.on()) tarvex::logPlaces(lab.tree, s, e_, day.number(), month.number(), year.number());
    if (e_.kodSolst)
        logSolstice(lab.tree, s, e_,
                    EclipseBack(s, e_, !logWithoutRefraction.on(), e_.source != Eclipse::Source::Tables));
    nextDate();
}

/// What a user may not expect of this step, for the status line.
void EclipseForm::tellCautions() {
    const ModelState& s = lab.s;
    std::string text;
    if (s.Lpl[rowSun] < 0 || s.Lpl[s.IplSel] < 0)
        text = "Прямые восхождения больше 350 град показаны меньшими на 360. ";
    if (logSolstices.on() && !logWithoutRefraction.on())
        text += "Журнал равноденствий без \"++Test\": обратный путь прибавляет рефракцию еще раз. ";
    if (kalend_ == egyptianKalend && zone_ == 0) text += egyptianFromMidnight;
    setStatus(text);
}

std::string EclipseForm::clockText(double moment) const { return timeOfFraction(lab.s, moment); }

/// The times of this step: JDut0 and the two clocks that run ahead of it.
void EclipseForm::setClocks() {
    ModelState& s = lab.s;
    s.JDut0 = s.JD;
    const double ET1 = typedEt1.on() ? et1MinusUt.number() * 60 : EtUtSelect(s, 1, s.JDut0);
    const double ET2 = typedEt2.on() ? et2MinusUt.number() * 60 : EtUtSelect(s, 2, s.JDut0);
    if (!typedEt1.on()) et1MinusUt.show(cut6(ET1 / 60));
    if (!typedEt2.on()) et2MinusUt.show(cut6(ET2 / 60));
    s.JDet = finite(s.JDut0 + ET1 / 86400);
    s.JDut = finite(s.JDut0 + ET2 / 86400);
    // the day begins at midnight, half a day after the whole Julian date
    const double local = s.ObsL / 15 / 24;
    clocks.setText("UT=" + clockText(s.JDut0 + 0.5) + "   LTut=" + clockText(s.JDut0 + 0.5 + local) +
                   "   UTet2=" + clockText(s.JDut + 0.5) + "   LTet2=" + clockText(s.JDut + 0.5 + local));
    if (e_.source == Eclipse::Source::Tables) return;
    const double T = sky::centuries(s.JDut0);
    PrecessMatrixEcl(s, (1579341 - JD2000) / 36525, T);
    precessionFromBase.show(cut6(s.Prec * kUgol));
    PrecessMatrixEcl(s, 0, T);
    precessionFromJ2000.show(cut6(s.Prec * kUgol));
}

void EclipseForm::showPlaces() {
    const int firstStage =
        e_.source == Eclipse::Source::Tables ? 3 : 0;  // a table gives apparent places of date
    for (int k = firstStage; k < static_cast<int>(stageNames.size()); ++k) {
        const auto &sun = stageOf(e_.sun, k), &body = stageOf(e_.body, k);
        sunStages(2 * k).show(cut6(sun.L));
        sunStages(2 * k + 1).show(cut6(sun.B));
        bodyStages(2 * k).show(cut6(body.L));
        bodyStages(2 * k + 1).show(cut6(body.B));
    }
    hourAngle.show(cut6(e_.Tsol));
    const double first = e_.lunar ? e_.RshadowSeen : e_.Rsun;
    separation.show(cut6(e_.separation));
    sumOfRadii.show(cut6(first + e_.Rbody));
    differenceOfRadii.show(cut6(std::abs(first - e_.Rbody)));
    magnitude.show(cut6(e_.magnitude));
    greatest_ = std::max(greatest_, e_.magnitude);
    greatestMagnitude.show(cut6(greatest_));
}

void EclipseForm::noteContacts() {
    ModelState& s = lab.s;
    const double first = e_.lunar ? e_.RshadowSeen : e_.Rsun;
    int count = 0;
    const auto found =
        contacts_.step(s.JDut0, e_.separation, first + e_.Rbody, std::abs(first - e_.Rbody), count);
    for (int i = 0; i < count; ++i) {
        // to the nearest second
        double JD = Int(found[i].JDut0 * sekD + 0.5) / sekD + 1e-9;
        const std::string time = timeOfFraction(s, JD + 0.5);
        DateFromJD(s, JD);
        contactTimes(static_cast<int>(found[i].kind) + 1)
            .setText(time + "  " + Format(Fix(s.DenR), "00") + "." + Format(s.MesR, "00") + "." +
                     Format(s.GodR, "0000"));
    }
}

void EclipseForm::noteRiseAndSet() {
    ModelState& s = lab.s;
    const bool first = !riseAndSet_.begun();
    const auto seen = riseAndSet_.step(e_.altitude[0] + e_.Rsun);
    if (first) return;
    const std::string time =
        timeOfFraction(s, (riseByUt.on() ? s.JDut0 : s.JDut) + 0.5);  // stays in the shared cells
    if (seen == RiseAndSet::Seen::Rise) sunrise.setText(time);
    if (seen == RiseAndSet::Seen::Set) sunset.setText(time);
}

void EclipseForm::nextDate() {
    ModelState& s = lab.s;
    const double step = e_.kodSolst ? ratio(stepDays.number(), stepDivider.number()) : stepDays.number();
    s.kodKalend = kalend_;
    s.TimeZone = zone_;
    s.kodErrDate = 0;
    if (kodTimeDir > 0) {
        NormalizeDate(s, day.number() + step, month.int32(), year.int32());
        s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    } else {
        double JD = s.JD = s.JDut0 - step;
        DateFromJD(s, JD);
    }
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
    if (s.kodErrDate != 0) s.kodStop = 1;  // the way ends where the calendar does
    day.show(s.DenR);
    month.show(s.MesR);
    year.show(s.GodR);
}

// ---------------------------------------------------------------------------------------------- pictures

void EclipseForm::tellAxes() {
    tellViews(bodiesPicture, Mrow, sideOfBodies);
    skyPicture.axes(0, {scaledAxis("азимут", "град", cellsOfSky), scaledAxis("высота", "град", cellsOfSky)});
    for (int row = 0; row <= rowShadow; ++row) {
        if (row > rowMoon && row < rowShadow) continue;
        const char* name = row == rowShadow ? "тень" : bodyName(row);
        marks_[row] = {bodySeries(bodiesPicture, name), skyPicture.series({.quantity = name}),
                       disksPicture.series({.quantity = name})};
    }
}

void EclipseForm::clearPictures() {
    bodiesPicture.clear();
    bodiesPicture.line(-10, 0, 10, 0, axisColor);
    bodiesPicture.line(0, -10, 0, 14, axisColor);
    bodiesPicture.line(-10, 12, 10, 12, axisColor);
    bodiesPicture.text(0.2, 13.8, "Z", black);
    bodiesPicture.text(0.2, 9.8, "Y", black);
    bodiesPicture.text(9.2, 1, "X", black);
    skyPicture.clear();
    for (int x = -6; x <= 6; ++x) skyPicture.line(x, -3, x, 3, gridColor);
    for (int y = -3; y <= 3; ++y) skyPicture.line(-6, y, 6, y, y == 0 ? axisColor : gridColor);
    skyPicture.text(-5.9, 2.95, "высота, град", black);
    skyPicture.text(2, -2.3, "азимут, град", black);
    skyPicture.text(0.1, 0.75, "Юг", black);
    skyPicture.text(-5.9, -0.05, "горизонт                          вид на юг", black);
    clearDisks();
}

void EclipseForm::clearDisks() {
    disksPicture.clear();
    drawDiskGrid();
    oldSun_ = oldBody_ = oldShadow_ = {};
    path_.clear();
}

void EclipseForm::drawDiskGrid() {
    for (int i = -10; i <= 10; ++i) {
        disksPicture.line(i, -10, i, 10, gridColor);
        disksPicture.line(-10, i, 10, i, gridColor);
    }
    disksPicture.line(-10, 0, 10, 0, axisColor);
    disksPicture.line(0, -10, 0, 10, axisColor);
    disksPicture.text(0.1, 9.9, "dB, град", black);
    disksPicture.text(7.4, 0.9, "dL, град", black);
}

/// The bodies in the plane of the ecliptic and from the side, heliocentric.
void EclipseForm::drawBodies() {
    const ModelState& s = lab.s;
    for (const int row : {0, 3, static_cast<int>(s.IplSel)}) {
        const Color color = row == 0 ? Color{230, 200, 0} : row == 3 ? Color{0, 0, 255} : bodyGreen;
        bodiesPicture.as(marks_[row].views.plane)
            .disc(s.X[row] / Mrow, s.Y[row] / Mrow, row == 0 ? 0.5 : 0.25, color);
        bodiesPicture.as(marks_[row].views.side)
            .disc(s.X[row] / Mrow, s.Z[row] / Mrow + sideOfBodies, row == 0 ? 0.5 : 0.25, color);
    }
}

void EclipseForm::drawSky() {
    const auto mark = [&](int row, Color color) {
        skyPicture.as(marks_[row].sky)
            .disc(e_.azimuth[row] / cellsOfSky, e_.altitude[row] / cellsOfSky, 0.06, color);
    };
    mark(0, {230, 190, 0});
    mark(lab.s.IplSel, bodyGreen);
    if (e_.lunar) mark(rowShadow, dayBlue);
}

/// The disks near each other: the Sun in the centre and the body, or the shadow in the centre and the Moon.
void EclipseForm::drawDisks() {
    const ModelState& s = lab.s;
    const int body = s.IplSel, centre = e_.lunar ? rowShadow : 0;
    const double MdB = diskScale.number();
    disksPicture.axes(0, {scaledAxis("dL", "град", MdB), scaledAxis("dB", "град", MdB)});
    const auto place = [&](int row, double radius) {
        Mark m;
        m.series = marks_[row].disk;
        m.radius = radius / MdB;
        if (equatorialFrame.on()) {
            m.x = (s.Lpl[centre] - s.Lpl[row]) * std::cos(s.Bpl[centre] / kUgol) / MdB;
            m.y = (s.Bpl[row] - s.Bpl[centre]) / MdB;
        } else {
            m.x = (e_.azimuth[row] - e_.azimuth[centre]) * std::cos(e_.altitude[centre] / kUgol) / MdB;
            m.y = (e_.altitude[row] - e_.altitude[centre]) / MdB;
        }
        return m;
    };
    const auto paint = [&](const Mark& m, Color color) {
        if (m.radius <= 0) return;
        disksPicture.as(m.series).disc(m.x, m.y, m.radius, color);
        disksPicture.circle(m.x, m.y, m.radius, color == white ? white : black);
    };
    if (!keepTracks.on()) {
        for (const Mark* old : {&oldSun_, &oldBody_, &oldShadow_}) paint(*old, white);
        drawDiskGrid();
    }
    oldSun_ = place(0, e_.Rsun);
    oldBody_ = place(body, e_.Rbody);
    oldShadow_ = e_.lunar ? place(rowShadow, e_.RshadowSeen) : Mark{};
    if (e_.lunar) {
        paint(oldSun_, sunColor);
        paint(oldBody_, bodyGreen);
        disksPicture.circle(oldShadow_.x, oldShadow_.y, oldShadow_.radius, black);
        disksPicture.as(oldShadow_.series).disc(oldShadow_.x, oldShadow_.y, oldShadow_.radius, shadowColor);
        disksPicture.circle(oldBody_.x, oldBody_.y, oldBody_.radius, bodyGreen);
    } else if (s.Rpl[rowObserver][body] >
               s.Rpl[rowObserver][rowSun]) {  // the farther disk first, so that the near one covers it
        paint(oldBody_, bodyGreen);
        paint(oldSun_, sunColor);
    } else {
        paint(oldSun_, sunColor);
        paint(oldBody_, bodyGreen);
    }
    if (pathOverSun.on()) {
        if (path_.size() == longestPath) path_.pop_front();
        path_.push_back(oldBody_);
        for (const Mark& m : path_) disksPicture.disc(m.x, m.y, 0.05, {200, 0, 0});
    }
    if (showEquator.on()) {
        const Mark east = place(rowLimb, 0), west = place(rowLimb + 4, 0);
        disksPicture.line(east.x, east.y, west.x, west.y, {120, 120, 220});
    }
}

}  // namespace tarvex
