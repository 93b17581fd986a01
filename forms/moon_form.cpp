#include "forms/moon_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/rows.h"
#include "forms/date_fields.h"
#include "forms/plot_grid.h"
#include "theories/elements.h"

namespace tarvex {

namespace {

/// Rows of the pair while it is checked and drawn: the Earth takes the place of the Sun.
constexpr int earthShown = rowPairCentre, moonShown = rowMoon, centreShown = rowCentre;

constexpr Color earthColor{0, 0, 250}, moonColor{0, 250, 0}, centreColor{250, 0, 0}, white{255, 255, 255},
    black{0, 0, 0};
constexpr double leastMomentum = 1e9;  ///< below it a relative change of the momentum says nothing

/// Relative change in percent, cut as the other forms of the laboratory cut it.
double percent(double now, double start) {
    return Fix(ratio(10000 * MK * MK * (now - start), start)) / MK / MK / 100;
}

std::string threeNumbers(double a, double b, double c) {
    return Format(a, "0000.0000") + "   " + Format(b, "0000.0000") + "   " + Format(c, "0000.0000");
}

}  // namespace

MoonForm::MoonForm(Laboratory& lab_)
    : MoonControls(lab_.desk, formName,
                   "Расчет барицентрических начальных данных для Луны и Земли    Tarvex7m4  - форма 20"),
      lab(lab_),
      check_(lab_.orbitCheck) {
    const Shown badData = orShow("Задайте правильно данные", "Tarvex7m"),
                badRun = orShow("Ошибка решения уравнений", "Tarvex7m");
    toJulianDate.onPress([this] { gregorianToJulian(lab, dateFields()); }, badData);
    toCalendarDate.onPress([this] { julianToGregorian(lab, dateFields()); }, badData);
    setInitialData.onPress([this] { setData(); }, badData);
    startCheck.onPress(
        [this] {
            start();
            stage("Ошибка решения уравнений", "Tarvex7m", [&] { OrbitCheckLoop(); });
        },
        orShow("Введите правильно данные", "Tarvex7m"));
    exactPassages.onChange([this] {
        stepDivider.setEnabled(!exactPassages.on());
        windowDegrees.setEnabled(!exactPassages.on());
    });
    stopCheck.onPress([this] { lab.s.kodStop = 1; });
    continueCheck.onPress(
        [this] {
            lab.s.kodStop = 0;
            OrbitCheckLoop();
        },
        badRun);
    clearDrawing.onPress([this] { clearPicture(); });
    closeForm.onPress([this] { close(); });
    geocentricElements.onChoose([this] { preset(true); });
    barycentricElements.onChoose([this] { preset(false); });
    for (OptionButton* option : {&centralMassEarth, &centralMassPair, &centralMassReduced})
        option->onChoose([this] { takeBary(); });
    scaleBar.onChange([this] { showScale(); });
    layOut();
}

DateFields MoonForm::dateFields() { return {year, month, day, julianDate}; }

void MoonForm::load() {
    lab.s.kodKalend = codeOf(Calendar::Gregorian);
    lab.s.TimeZone = 0;
    toJulianDate.press();
    clearPicture();
    preset(true);
}

void MoonForm::activate() {
    lab.s.kodKalend = codeOf(Calendar::Gregorian);
    lab.s.TimeZone = 0;
    showScale();
}

void MoonForm::unload() { gone_ = true; }

void MoonForm::showScale() {
    lab.s.Mx = scaleBar.value() * 1000000.0;
    scaleLabel.setCaption("Масштаб изображения= " + toText(scaleBar.value()) + " тыс.км/см");
}

void MoonForm::clearPicture() {
    showScale();
    orbitPicture.setBackground(white);
    drawGrid(orbitPicture, {.cell = {225, 225, 225}, .axis = {150, 150, 150}});
    orbitPicture.text(-9, 11.8, "Земля z  Луна l ", black);
}

/// The two meanings of the elements preset the central mass and the transformations.
void MoonForm::preset(bool geocentric) {
    (geocentric ? centralMassPair : centralMassReduced).choose();
    earthByRatio.set(true);
    earthByShare.set(false);
    shiftMoon.set(geocentric);
    scaleMoonSpeed.set(geocentric);
    earthSpeedByRatio.set(true);
    shiftMoonSpeed.set(false);
    // a sketch: from which point the Moon's radius vector counts
    pairSketch.setScale(-1, 1, 9, -1);
    pairSketch.clear();
    pairSketch.disc(0.3, 0, 0.35, earthColor);
    pairSketch.disc(8, 0, 0.2, moonColor);
    pairSketch.cross(1.2, 0, 0.2, centreColor);
    pairSketch.line(geocentric ? 0.3 : 1.2, 0, 8, 0, black);
    pairSketch.text(-0.2, 0.95, "z", black);
    pairSketch.text(7.8, 0.95, "l", black);
}

void MoonForm::takeBary() {
    lab.s.kodBary = codeOf(centralMassEarth.on()  ? CentralMass::Central
                           : centralMassPair.on() ? CentralMass::Pair
                                                  : CentralMass::AboutCentre);
}

void MoonForm::setData() {
    ModelState& s = lab.s;
    const MoonTheory theory = fromNew0.on()   ? MoonTheory::New0
                              : fromSer0.on() ? MoonTheory::Ser0
                                              : MoonTheory::Screen;
    moonMasses(s, theory);
    if (theory == MoonTheory::Screen) {
        s.AlfaL[rowMoon] = meanLongitude.number() / kUgol;
        s.Eks0[rowMoon] = eccentricity.number();
        s.AlfaP0[rowMoon] = perigeeLongitude.number() / kUgol;
        s.AlfaU0[rowMoon] = nodeLongitude.number() / kUgol;
        s.R0sr[rowMoon] = finite(semiMajorAxis.number() * MK);
        s.Betta0[rowMoon] = inclination.number() / kUgol;
        const double km = massRatio.number();
        s.m[rowMoon] = ratio(s.m[rowEarth], km);
        s.km[rowMoon] = km;
    } else {
        gregorianToJulian(lab, dateFields());
    }
    const double seconds = moonElements(s, theory);
    if (theory != MoonTheory::Screen) {
        etMinusUt.show(cut6(seconds));
        meanLongitude.show(kUgol * s.AlfaL[rowMoon]);
        eccentricity.show(s.Eks0[rowMoon]);
        perigeeLongitude.show(kUgol * s.AlfaP0[rowMoon]);
        nodeLongitude.show(kUgol * s.AlfaU0[rowMoon]);
        semiMajorAxis.show(s.R0sr[rowMoon] / MK);
        inclination.show(kUgol * s.Betta0[rowMoon]);
        massRatio.show(s.km[rowMoon]);
    }
    showElements();
    takeBary();
    moonInitialData(s, {.earthByRatio = earthByRatio.on(),
                        .earthByShare = earthByShare.on(),
                        .shiftMoon = shiftMoon.on(),
                        .scaleMoonSpeed = scaleMoonSpeed.on(),
                        .earthSpeedByRatio = earthSpeedByRatio.on(),
                        .earthSpeedByShare = earthSpeedByShare.on(),
                        .shiftMoonSpeed = shiftMoonSpeed.on()});

    drawInitial();
}

/// The pair as it was formed, and its numbers.
void MoonForm::drawInitial() {
    ModelState& s = lab.s;
    clearPicture();
    const Vec3 kept = placeOf(s, earthShown);  // the Earth stands there for the picture only
    setPlace(s, earthShown, placeOf(s, rowEarthMoon));
    OrbitCheck pair;
    pair.IplSel = pair.IplJ = rowMoon;
    pair.Icentr = rowEarth;
    orbitCheckCentre(s, pair);
    drawPair(earthColor, moonColor, centreColor);
    setPlace(s, earthShown, kept);
    orbitPicture.text(-9, -6.2,
                      "Xz  Yz  Zz (тыс.км)=        " +
                          threeNumbers(s.X0[earthShown] / MK, s.Y0[earthShown] / MK, s.Z0[earthShown] / MK),
                      black);
    orbitPicture.text(
        -9, -6.9,
        "Xl  Yl  Zl (тыс.км)=  " + threeNumbers(s.X0[rowMoon] / MK, s.Y0[rowMoon] / MK, s.Z0[rowMoon] / MK),
        black);
    orbitPicture.text(-9, -7.6,
                      "VXz  VYz  VZz (м/с)=        " +
                          threeNumbers(s.VX0[earthShown], s.VY0[earthShown], s.VZ0[earthShown]),
                      black);
    orbitPicture.text(-9, -8.3,
                      "VXl  VYl  VZl (м/с)=  " + threeNumbers(s.VX0[rowMoon], s.VY0[rowMoon], s.VZ0[rowMoon]),
                      black);
}

/// The given elements stand in the fields of the measured ones until the check replaces them.
void MoonForm::showElements() {
    const ModelState& s = lab.s;
    perigeeMeasured.show(kUgol * s.AlfaP0[rowMoon]);
    nodeMeasured.show(kUgol * s.AlfaU0[rowMoon]);
    eccentricityMeasured.show(cut6(100 * s.Eks0[rowMoon]));
    axisMeasured.show(s.R0sr[rowMoon] / MK);
    inclinationMeasured.show(cut6(s.Betta0[rowMoon] * kUgol));
}

void MoonForm::start() {
    ModelState& s = lab.s;
    OrbitCheck c;
    c.cosA = check_.cosA, c.sinA = check_.sinA;
    s.IplSel = c.IplSel = c.IplJ = rowMoon;
    s.Icentr = c.Icentr = rowEarth;
    c.origin = anglesFromBarycentre.on() ? centreShown : earthShown;
    c.moonBench = true;
    c.NC0 = s.NC0 = stepsPerDisplay.int16();
    c.Dt = s.Dt = step.number();
    c.kDt = s.kDt = stepDivider.int16();
    c.dAlfa = windowDegrees.number();
    c.exact = exactPassages.on();
    s.VYsys = systemSpeedY.number();
    for (const int i : {earthShown, moonShown}) {
        s.X[i] = s.X0[i];
        s.Y[i] = s.Y0[i];
        s.Z[i] = s.Z0[i];
        s.VX[i] = s.VX0[i];
        s.VY[i] = finite(s.VY0[i] + 1000 * s.VYsys);
        s.VZ[i] = s.VZ0[i];
    }
    orbitCheckCentre(s, c);
    startOrbitCheck(s, c);
    c.M0sys = finite(moonAngularMomentum(s));
    c.KD0sysY = finite(pairMomentumY(s));
    check_ = c;
    orbitPicture.text(-9, -4.1, "E0sys (Дж)=              " + toText(c.Esys0), black);
    orbitPicture.text(-9, -4.8, "M0sys (кг*м^2/с) =   " + toText(c.M0sys), black);
    orbitPicture.text(-9, -5.5, "KD0sysY (кг*м/с) =   " + toText(c.KD0sysY), black);
    for (TextField* result :
         {&firstPeriod, &period, &periodChange, &axisChange, &axisMeasured, &eccentricityChange,
          &eccentricityMeasured, &perigeeChange, &perigeeMeasured, &inclinationChange, &inclinationMeasured,
          &nodeChange, &nodeMeasured, &energyChange, &angularMomentumChange, &momentumYChange, &elapsedYears,
          &perigeesPassed, &longitude})
        result->show(0);
    for (const int i : {earthShown, moonShown, centreShown}) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    s.kodStop = 0;
}

void MoonForm::OrbitCheckLoop() {
    if (!check_.begun(true)) throw Failure("проверка орбиты еще не начата");
    Running running(*this);
    do {
        runOrbitCheckBatch(lab.s, check_, *this);
        display();
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (desk().anyLoaded() && !gone_ && check_.begun(true));
}

void MoonForm::nodePassed() {
    nodeMeasured.show(cut6(check_.AlfaU));
    nodeChange.show(cut6(check_.AlfaU - check_.AlfaU1));
}

void MoonForm::perihelionPassed() {
    const ModelState& s = lab.s;
    const OrbitCheck& c = check_;
    if (c.NZamer == 2) {
        firstPeriod_ = c.Tper;
        firstPeriod.show(cut6(c.Tper));
    } else if (c.NZamer > 2) {
        period.show(cut6(c.Tper));
        periodChange.show(cut6(c.Tper - firstPeriod_));
    }
    axisChange.show(cut6((s.Rr[rowMoon] - s.R0sr[rowMoon]) / MK));
    axisMeasured.show(cut6(s.Rr[rowMoon] / MK));
    eccentricityChange.show(cut6(100 * (c.Eks - s.Eks0[rowMoon])));
    eccentricityMeasured.show(cut6(100 * c.Eks));
    perigeeChange.show(cut6(c.AlfaP - c.AlfaP1));
    perigeeMeasured.show(cut6(c.AlfaP));
    inclinationMeasured.show(cut6(c.Betta * kUgol));
    inclinationChange.show(cut6((c.Betta - s.Betta0[rowMoon]) * kUgol));
}

void MoonForm::display() {
    ModelState& s = lab.s;
    if (!keepTracks.on()) {
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
        drawPair(white, white, white);
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
    }
    orbitCheckCentre(s, check_);
    for (const int i : {earthShown, moonShown, centreShown}) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    drawPair(earthColor, moonColor, centreColor);
    elapsedYears.show(Fix(MK * check_.Tsec / sekG) / MK);
    perigeesPassed.show(check_.NZamer);
    longitude.show(Fix(100 * s.LonPl[rowMoon]) / 100);
    s.RSol = s.Rcur;  // distance of the pair, m, in the cell of the Sun's radius, which is lost by it
    energyChange.show(percent(check_.Esys, check_.Esys0));
    angularMomentumChange.show(percent(moonAngularMomentum(s), check_.M0sys));
    if (std::abs(check_.KD0sysY) > leastMomentum)
        momentumYChange.show(percent(pairMomentumY(s), check_.KD0sysY));
}

void MoonForm::drawPair(Color earth, Color moon, Color centre) {
    const ModelState& s = lab.s;
    drawBothViews(orbitPicture, s.X[earthShown] / s.Mx, s.Y[earthShown] / s.Mx, s.Z[earthShown] / s.Mx, 0.1,
                  earth);
    drawBothViews(orbitPicture, s.X[rowMoon] / s.Mx, s.Y[rowMoon] / s.Mx, s.Z[rowMoon] / s.Mx, 0.07, moon);
    if (showBarycentre.on()) orbitPicture.cross(s.X[rowCentre] / s.Mx, s.Y[rowCentre] / s.Mx, 1, centre);
}

}  // namespace tarvex
