#include "forms/aberration_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "forms/picture_axes.h"
#include "reduction/sky_rows.h"
#include "theories/elements.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr Color red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, grid{60, 60, 60};
constexpr double visibleCells = 20;  ///< beyond this the marks of the orbits are not drawn

}  // namespace

AberrationForm::AberrationForm(Laboratory& lab_) : AberrationControls(lab_.desk), lab(lab_) {
    const Shown badData = orShow("Введите правильно данные ", "Tarvex7"),
                badRun = orShow("Ошибка при расчете", "Tarvex7");
    findPlaces.onPress(
        [this] {
            if (prepare(day.number())) bench_.JDorigin = lab.s.JD;
        },
        badData);
    iterateOnce.onPress([this] { iterate(); }, badRun);
    runByDates.onPress(
        [this] {
            longitudesByTheory.set(true);
            startDay_ = day.text();
            startMonth_ = month.text();
            startYear_ = year.text();
            dateStep.number();
            if (!prepare(day.number())) return;
            bench_.JDorigin = lab.s.JD;
            lab.s.kodStop = 0;
            stepLoop();
        },
        badData);
    stopRun.onPress([this] { lab.s.kodStop = 1; });
    continueRun.onPress(
        [this] {
            lab.s.kodStop = 0;
            stepLoop();
        },
        badData);
    stepOnce.onPress(
        [this] {
            lab.s.kodStop = 1;
            stepLoop();
        },
        badData);
    toStartDate.onPress([this] {
        if (startDay_.empty()) return;
        day.setText(startDay_);
        month.setText(startMonth_);
        year.setText(startYear_);
    });
    clearDrawing.onPress([this] { clearPicture(); });
    drawing.onWipe([this] { clearPicture(); });
    closeForm.onPress([this] { close(); });
    drawingScale.onChange([this] { showScale(); });
}

void AberrationForm::load() {
    drawing.setScale(-10, 10, 10, -10);
    showScale();
    clearPicture();
    // what is iterated before any places were found: the initial data of the laboratory
    const ModelState& s = lab.s;
    for (const int row : {rowTerra, bench_.body})
        (row == rowTerra ? bench_.earth : bench_.object) = {s.X0[row],  s.Y0[row],  s.Z0[row],  s.VX0[row],
                                                            s.VY0[row], s.VZ0[row], s.R0sr[row]};
}

void AberrationForm::unload() { gone_ = true; }

void AberrationForm::showScale() {
    lab.s.Mx = drawingScale.value() * 100000.0 * 1000;
    drawingScaleCaption.setCaption("Масштаб = " + toText(drawingScale.value() / 10.0) + " млн.км/см");
}

void AberrationForm::clearPicture() {
    drawing.clear();
    for (int i = -10; i <= 10; ++i) {
        drawing.line(i, -10, i, 10, grid);
        drawing.line(-10, i, 10, i, grid);
    }
    drawing.line(-10, 0, 10, 0, green);
    drawing.line(0, -10, 0, 10, green);
}

void AberrationForm::showBody(int row, TextField& x, TextField& y, TextField& z, TextField& vx, TextField& vy,
                              TextField& vz) {
    const ModelState& s = lab.s;
    x.show(cut6(s.X[row] / MK));
    y.show(cut6(s.Y[row] / MK));
    z.show(cut6(s.Z[row] / MK));
    vx.show(cut6(s.VX[row] / 1000));
    vy.show(cut6(s.VY[row] / 1000));
    vz.show(cut6(s.VZ[row] / 1000));
}

/// Reads the fields and forms the real places for this day, with its fraction, of the typed month and year;
/// false when that is no date.
bool AberrationForm::prepare(double date) {
    ModelState& s = lab.s;
    timeScale.number();
    angleScale.number();
    bench_.Vc = ratio(Vsv, lightDivisor.number());
    int ticked = 0, object = bench_.body;
    for (int i = 0; i <= 10; ++i) {
        if (!objectChoice(i).on()) continue;
        ++ticked;
        object = i;
    }
    if (ticked > 1) {
        s.kodStop = 1;
        throw Refusal("Должен быть отмечен только 1 объект", "Tarvex7");
    }
    bench_.body = object;

    {
        const CalendarKept kept(s);
        s.kodKalend = codeOf(Calendar::Gregorian);
        s.TimeZone = 0;
        s.kodErrDate = 0;
        s.JD = JDfromDate(s, date, month.int32(), year.int32());
    }
    if (s.kodErrDate != 0) return false;  // it has been complained of

    if (object == AberrationBench::star) {
        s.X[object] = finite(objectX.number() * MK);
        s.Y[object] = finite(objectY.number() * MK);
        s.Z[object] = finite(objectZ.number() * MK);
        s.VX[object] = finite(objectVX.number() * 1000);
        s.VY[object] = finite(objectVY.number() * 1000);
        s.VZ[object] = finite(objectVZ.number() * 1000);
    }
    AberrationPrepare(s, bench_, longitudesByTheory.on(), earthLongitude.number() / kUgol,
                      objectLongitude.number() / kUgol);

    if (longitudesByTheory.on()) {
        earthLongitude.show(cut6(bench_.earth.L));
        if (object != 0 && object != AberrationBench::star) objectLongitude.show(cut6(bench_.object.L));
    }
    showBody(rowTerra, earthX, earthY, earthZ, earthVX, earthVY, earthVZ);
    if (object != AberrationBench::star)
        showBody(object, objectX, objectY, objectZ, objectVX, objectVY, objectVZ);
    distance.show(cut6(s.Rcur / MK));
    lightTime.show(cut6(s.Tsv[rowTerra][object]));
    trueLongitude.show(cut6(bench_.GeoL));
    trueLatitude.show(cut6(bench_.GeoB));
    iterationCount.show(0);
    if (viewConstruction.on()) drawPlaces();
    return true;
}

void AberrationForm::iterate() {
    ModelState& s = lab.s;
    bench_.VXsys = systemVX.number();
    bench_.VYsys = systemVY.number();
    bench_.VZsys = systemVZ.number();
    AberrationIterate(s, bench_, timesCosLatitude.on());
    retardedX.show(cut6(bench_.XIs / MK));
    retardedY.show(cut6(bench_.YIs / MK));
    retardedZ.show(cut6(bench_.ZIs / MK));
    totalVX.show(cut6(s.VX[bench_.body] / 1000));
    totalVY.show(cut6(s.VY[bench_.body] / 1000));
    totalVZ.show(cut6(s.VZ[bench_.body] / 1000));
    distance.show(cut6(bench_.Rgeo / MK));
    lightTime.show(cut6(s.Tsv[rowTerra][bench_.body]));
    const double A = bench_.AlfaIs + bench_.AlfaPr, B = bench_.BettaIs + bench_.BettaPr;
    sourceShiftLongitude.show(cut6(bench_.AlfaIs));
    sourceShiftLatitude.show(cut6(bench_.BettaIs));
    receiverShiftLongitude.show(cut6(bench_.AlfaPr));
    receiverShiftLatitude.show(cut6(bench_.BettaPr));
    totalShiftLongitude.show(cut6(A));
    totalShiftLatitude.show(cut6(B));
    apparentLongitude.show(cut6(bench_.GeoL + A));
    apparentLatitude.show(cut6(bench_.GeoB + B));
    iterationCount.show(bench_.iterations);
    if (viewConstruction.on())
        drawConstruction();
    else
        drawComponents();
}

/// Dates one after another until the run is stopped.
void AberrationForm::stepLoop() {
    Running running(*this);
    do {
        const double date = day.number(), step = dateStep.number();
        if (!prepare(date)) break;
        stage("Ошибка при расчете", "Tarvex7", [&] { iterate(); });
        day.show(date + step);
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (lab.s.kodStop != 1 && !gone_);
}

/// Picture coordinate of a point in the chosen plane.
double AberrationForm::across(double x, double y, double z, bool horizontal) const {
    return (horizontal ? x : planeXY.on() ? y : z) / lab.s.Mx;
}

/// What the drawing means in the chosen plane and at the present scales: places, time, and the phase plane.
void AberrationForm::tellAxes() {
    const double cell = lab.s.Mx / inMillionKm.metres, MAlfa = angleScale.number();
    drawing.axes(layerPlaces, {scaledAxis("X", inMillionKm.name, cell),
                               scaledAxis(planeXY.on() ? "Y" : "Z", inMillionKm.name, cell)});
    drawing.axes(layerTime, {yearAxis(bench_.JDorigin, -10, timeScale.number() * 365.25),
                             scaledAxis("аберрация", "град", MAlfa)});
    drawing.axes(layerPhase,
                 {scaledAxis("A * cos(L)", "град", MAlfa), scaledAxis("A * sin(L)", "град", MAlfa)});
    const int layer = viewAgainstTime.on() ? layerTime : layerPhase;
    const auto component = [&](const char* name, int color) {
        return drawing.series({name, planeXY.on() ? "L" : "B", layer, color, planeXY.on() ? 0 : 1});
    };
    source_ = component("Ais", 1);
    receiver_ = component("Apr", 0);
    total_ = component("As", 2);
}

/// The series of the places of a body.
int AberrationForm::placesOf(int row) {
    return drawing.series(
        {.quantity = row == AberrationBench::star ? "звезда" : bodyName(row), .layer = layerPlaces});
}

/// The places of the Earth and the object and, in the plane of the ecliptic, their orbits.
void AberrationForm::drawPlaces() {
    for (const int row : {rowTerra, bench_.body}) {
        const AberrationBench::Place& p = bench_.placeOf(row);
        drawing.as(placesOf(row))
            .disc(across(p.X, p.Y, p.Z, true), across(p.X, p.Y, p.Z, false), 0.15, colorOf(row));
        if (planeXY.on() && row != AberrationBench::star && row != 0)
            drawing.circle(0, 0, p.R0sr / lab.s.Mx, {90, 90, 90});
    }
}

Color AberrationForm::colorOf(int row) const {
    const ModelState& s = lab.s;
    if (row == AberrationBench::star) return {255, 255, 255};
    return {s.ColorR[row], s.ColorG[row], s.ColorB[row]};
}

void AberrationForm::drawConstruction() {
    const ModelState& s = lab.s;
    const int b = bench_.body;
    const int n = bench_.iterations - 1;
    const int strength = static_cast<int>(100.0 / (4 * n + 1) + 155),
              sumStrength = static_cast<int>(100.0 / (4 * n + 1) + 125);
    const double ex = across(s.X[rowTerra], s.Y[rowTerra], s.Z[rowTerra], true),
                 ey = across(s.X[rowTerra], s.Y[rowTerra], s.Z[rowTerra], false);
    tellAxes();
    drawPlaces();
    for (const int row : {rowTerra, b}) {
        const AberrationBench::Place& p = bench_.placeOf(row);
        const double px = across(p.X, p.Y, p.Z, true), py = across(p.X, p.Y, p.Z, false);
        // velocity at one ten-thousandth of a cell for a metre a second
        drawing.line(px, py, px + s.VX[row] / 10000, py + (planeXY.on() ? s.VY[row] : s.VZ[row]) / 10000,
                     colorOf(row));
    }
    const auto ray = [&](double x, double y, double z, Color color) {
        drawing.line(ex, ey, across(x, y, z, true), across(x, y, z, false), color);
    };
    if (plotSourceAberration.on()) ray(bench_.XIs, bench_.YIs, bench_.ZIs, {strength, 0, 0});
    if (plotReceiverAberration.on()) {
        const double T = s.Tsv[rowTerra][b];
        const AberrationBench::Place& p = bench_.placeOf(b);
        ray(p.X + s.VX[rowTerra] * T, p.Y + s.VY[rowTerra] * T, p.Z + s.VZ[rowTerra] * T, {0, 0, strength});
        drawing.disc(across(bench_.XPr, bench_.YPr, bench_.ZPr, true),
                     across(bench_.XPr, bench_.YPr, bench_.ZPr, false), 0.07, {0, 0, strength});
    }
    if (plotTotalAberration.on()) ray(s.X[b], s.Y[b], s.Z[b], {0, sumStrength, 0});
}

/// A point of each ticked component: against time, or in the direction of the Earth's longitude.
void AberrationForm::drawComponents() {
    ModelState& s = lab.s;
    const double MT = timeScale.number(), MAlfa = angleScale.number();
    const bool byLongitude = planeXY.on();
    const double is = byLongitude ? bench_.AlfaIs : bench_.BettaIs,
                 pr = byLongitude ? bench_.AlfaPr : bench_.BettaPr;
    PairGeometry(s, rowSun, rowEarthMoon);
    const double l = s.LonPl[rowEarthMoon] / kUgol;
    tellAxes();
    const auto point = [&](int series, double c, Color color) {
        if (viewAgainstTime.on()) {
            drawing.as(series).disc(ratio((s.JD - bench_.JDorigin) / 365.25, MT) - 10, ratio(c, MAlfa), 0.05,
                                    color);
        } else {
            const double size = ratio(absoluteValues.on() ? std::abs(c) : c, MAlfa);
            drawing.as(series).disc(std::cos(l) * size, std::sin(l) * size, 0.05, color);
        }
    };
    if (plotSourceAberration.on()) point(source_, is, red);
    if (plotReceiverAberration.on()) point(receiver_, pr, blue);
    if (plotTotalAberration.on()) point(total_, is + pr, green);
    const int b = bench_.body;
    const AberrationBench::Place& object = bench_.placeOf(b);
    if (std::abs(across(object.X, object.Y, object.Z, true)) > visibleCells ||
        std::abs(across(object.X, object.Y, object.Z, false)) > visibleCells)
        return;
    for (const int row : {rowTerra, b}) {
        const AberrationBench::Place& p = bench_.placeOf(row);
        drawing.as(placesOf(row))
            .disc(across(p.X, p.Y, p.Z, true), across(p.X, p.Y, p.Z, false), 0.04, colorOf(row));
    }
}

}  // namespace tarvex
