#include "forms/converter_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/et_ut.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr double sideView = 13;      ///< height of the side view on the picture
constexpr double earthRadius = 1.2;  ///< of the Earth's disc on the picture
constexpr Color blue{0, 0, 230}, yellow{250, 210, 0}, grey{130, 130, 130}, black{0, 0, 0},
    light{230, 230, 230};

std::string hoursText(const ModelState& s) {
    return Format(s.ChasR, "00") + ":" + Format(s.MinR, "00") + ":" + Format(s.SekR, "00");
}

}  // namespace

ConverterForm::ConverterForm(Laboratory& lab_) : ConverterControls(lab_.desk), lab(lab_) {
    const Shown badData = orShow("Введите правильно данные", "Tarvex7");
    takeCoordinates.onPress([this] { setCoordinates(); }, badData);
    convertCoordinates.onPress([this] { convert(); }, badData);
    copyResultToSource.onPress([this] {
        sourceX.setText(resultX.text());
        sourceY.setText(resultY.text());
        sourceZ.setText(resultZ.text());
        sourceLongitude.setText(resultLongitude.text());
        sourceLatitude.setText(resultLatitude.text());
        sourceDistance.setText(resultDistance.text());
    });
    takeAtNextDate.onPress(
        [this] {
            julianDate.show(lab.s.JDut0 + dateStep.number());
            julianToDate();
            stage("Введите правильно данные", "Tarvex7", [&] { setCoordinates(); });
        },
        orShow("Введите правильно к-во дней", "Tarvex7"));
    readAngle.onPress([this] { angle_ = angleTyped(); }, badData);
    convertAngle.onPress([this] { showAngle(); }, badData);
    angleToLongitude.onPress([this] { sourceLongitude.show(cut6(angle_)); });
    angleToLatitude.onPress([this] { sourceLatitude.show(cut6(angle_)); });
    toJulianDate.onPress([this] { dateToJulian(); }, orShow("Введите правильно дату", "Tarvex7"));
    toCalendarDate.onPress([this] { julianToDate(); }, orShow("Введите правильно юлианскую дату", "Tarvex7"));
    closeForm.onPress([this] { close(); });
    drawingScale.onChange([this] { showScale(); });
}

void ConverterForm::load() {
    drawing.setScale(-10, 17, 10, -10);
    showScale();
    clearPicture();
    dateToJulian();
    // what is converted before any coordinates were set: the initial data of the laboratory
    for (std::size_t i = 0; i < base_.row.size(); ++i) base_.row[i] = {lab.s.X0[i], lab.s.Y0[i], lab.s.Z0[i]};
}

int ConverterForm::body() const {
    for (int i = 0; i <= typed; ++i)
        if (bodyChoice(i).on()) return i;
    return 1;
}

ConvFrame ConverterForm::frameChosen() const {
    using Plane = ConvFrame::Plane;
    using Origin = ConvFrame::Origin;
    return {.plane = planeEquator.on()   ? Plane::Equator
                     : planeHorizon.on() ? Plane::Horizon
                                         : Plane::Ecliptic,
            .origin = geocentric.on()    ? Origin::Earth
                      : topocentric.on() ? Origin::Observer
                                         : Origin::Sun,
            .j2000 = equinoxJ2000.on()};
}

void ConverterForm::setCoordinates() {
    ModelState& s = lab.s;
    const int i = body();
    const ConvFrame frame = frameChosen();
    if (planeHorizon.on() && !topocentric.on())
        throw Refusal("ГОРизонтальные координаты\r\nзадаются только ТОПОцентрические", "Tarvex7");
    dateToJulian();
    s.JDut0 = s.JD;
    const double seconds = EtUt1900(s);
    etMinusUt.show(cut6(seconds / 60));
    s.JDet = s.JDut0 + seconds / 86400;
    ConvPrepare(s, base_);
    greenwichSiderealTime.show(cut6(s.GMST));
    localSiderealTime.show(cut6(s.LMST / 15));
    if (i == typed) {
        stage("Введите правильно исходные координаты", "Tarvex7", [&] { typedToBase(i, frame); });
        ConvDraw(i, frame);
        return;
    }
    ConvBodyByTheory(s, base_, i);
    showFromBase(i, frame,
                 {&sourceX, &sourceY, &sourceZ, &sourceLongitude, &sourceLatitude, &sourceDistance});
}

/// The body in the frame into six fields: X, Y, Z, longitude, latitude, distance; its longitude becomes the
/// angle.
void ConverterForm::showFromBase(int i, const ConvFrame& frame, const std::array<TextField*, 6>& to) {
    ModelState& s = lab.s;
    ConvFromBase(s, base_, i, frame);
    to[0]->show(Fix(s.X[i]) / MK);
    to[1]->show(Fix(s.Y[i]) / MK);
    to[2]->show(Fix(s.Z[i]) / MK);
    if (frame.plane == ConvFrame::Plane::Horizon) hourAngle.show(cut6(s.TAU));
    ConvDraw(i, frame);
    PairGeometry(s, frame.originRow(), i);
    to[3]->show(s.LonPl[i]);
    to[4]->show(s.LatPl);
    to[5]->show(s.Rcur / MK);
    angle_ = s.LonPl[i];
    showAngle();
}

/// Typed coordinates into the base frame; the form of them that was not typed is filled in.
void ConverterForm::typedToBase(int i, const ConvFrame& frame) {
    ModelState& s = lab.s;
    if (typedPolar.on()) {
        s.LonPl[i] = sourceLongitude.number();
        s.LatPl = sourceLatitude.number();
        s.Rcur = finite(sourceDistance.number() * MK);
        SpherToXYZ(s, i, s.LonPl[i], s.LatPl, s.Rcur);
        sourceX.show(Fix(s.X[i]) / MK);
        sourceY.show(Fix(s.Y[i]) / MK);
        sourceZ.show(Fix(s.Z[i]) / MK);
    } else {
        s.X[i] = finite(sourceX.number() * MK);
        s.Y[i] = finite(sourceY.number() * MK);
        s.Z[i] = finite(sourceZ.number() * MK);
        PairGeometry(s, rowOrigin, i);
        sourceLongitude.show(s.LonPl[i]);
        sourceLatitude.show(s.LatPl);
        sourceDistance.show(s.Rcur / MK);
    }
    ConvToBase(s, base_, i, frame);
}

void ConverterForm::convert() {
    const int i = body();
    const ConvFrame frame = frameChosen();
    if (planeHorizon.on() && !topocentric.on())
        throw Refusal("Преобразование в ГОРизонтальные координаты\r\nпроизводится только в ТОПОцентрические",
                      "Tarvex7");
    showFromBase(i, frame,
                 {&resultX, &resultY, &resultZ, &resultLongitude, &resultLatitude, &resultDistance});
}

double ConverterForm::angleTyped() const {
    const double sign = signMinus.on() ? -1 : 1;
    if (unitHours.on())
        return (angleHours.number() + angleTimeMinutes.number() / 60 + angleTimeSeconds.number() / 3600) *
               sign * 15;
    if (unitDegreesMinutes.on())
        return (angleWholeDegrees.number() + angleArcMinutes.number() / 60 +
                angleArcSeconds.number() / 3600) *
               sign;
    return unitRadians.on() ? angleRadians.number() * kUgol : angleDegrees.number();
}

/// Shows the angle in the chosen unit; its sign goes to the sign options.
void ConverterForm::showAngle() {
    const double A = angle_;
    if (unitDegrees.on()) angleDegrees.show(cut6(A));
    if (unitRadians.on()) angleRadians.show(cut6(A / kUgol));
    if (!unitHours.on() && !unitDegreesMinutes.on()) return;
    const double units = std::abs(unitHours.on() ? A / 15 : A);
    const double whole = Fix(units), minutes = Fix((units - whole) * 60);
    const double seconds = cut6((units - whole - minutes / 60) * 3600);
    (unitHours.on() ? angleHours : angleWholeDegrees).show(whole);
    (unitHours.on() ? angleTimeMinutes : angleArcMinutes).show(minutes);
    (unitHours.on() ? angleTimeSeconds : angleArcSeconds).show(seconds);
    (A < 0 ? signMinus : signPlus).choose();
}

void ConverterForm::takeSite() {
    ModelState& s = lab.s;
    s.ObsL = siteLongitude.number();
    s.ObsB = siteLatitude.number();
    s.kodKalend = codeOf(Calendar::Gregorian);
    s.TimeZone = 0;
}

void ConverterForm::dateToJulian() {
    ModelState& s = lab.s;
    takeSite();
    NormalizeDate(s, day.number(), month.int32(), year.int32());
    s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    julianDate.show(s.JD);
    showLocalTimes();
}

void ConverterForm::julianToDate() {
    ModelState& s = lab.s;
    takeSite();
    s.JD = julianDate.number();
    DateFromJD(s, s.JD);
    day.show(s.DenR);
    month.show(s.MesR);
    year.show(s.GodR);
    showLocalTimes();
}

void ConverterForm::showLocalTimes() {
    ModelState& s = lab.s;
    const double date = s.DenR, zone = zoneHours.number();
    DayToHMS(s, date + s.ObsL / 15 / 24);
    localMeanTime.setText("LTut  =" + hoursText(s));
    DayToHMS(s, date + zone / 24);
    zoneTime.setText("LT =" + hoursText(s));
}

void ConverterForm::showScale() {
    lab.s.Mx = drawingScale.value() * 100000.0 * 1000;
    drawingScaleCaption.setCaption("Масштаб изображения=" + toText(drawingScale.value() / 10.0) +
                                   "млн.км/см");
}

void ConverterForm::clearPicture() {
    drawing.clear();
    for (int i = -10; i <= 10; ++i) drawing.line(i, -10, i, 17, light);
    for (int j = -10; j <= 17; ++j) drawing.line(-10, j, 10, j, light);
    for (const double y : {0.0, sideView}) drawing.line(-10, y, 10, y, grey);
    drawing.line(0, -10, 0, 17, grey);
}

/// The bodies in both views and the line from the origin of the frame to the body.
void ConverterForm::ConvDraw(int body, const ConvFrame& frame) {
    const ModelState& s = lab.s;
    if (clearBeforeDrawing.on()) clearPicture();
    const double Mx = s.Mx;
    constexpr int observer = rowsOfDate + plusObserverEcliptic;
    for (const bool side : {false, true}) {
        const auto y = [&](int row) { return side ? s.Z[row] / Mx + sideView : s.Y[row] / Mx; };
        const auto x = [&](int row) { return s.X[row] / Mx; };
        const auto offset = [&](int row, double unit) { return (side ? s.Z[row] : s.Y[row]) / unit; };
        const int origin = frame.originRow();
        drawing.disc(x(rowTerra), y(rowTerra), earthRadius, blue);
        drawing.cross(x(rowTerra), y(rowTerra), earthRadius, grey);
        drawing.disc(x(rowSun), y(rowSun), 0.6, yellow);
        const double moonX = x(rowTerra) + s.X[rowMoonDrawn], moonY = y(rowTerra) + offset(rowMoonDrawn, 1);
        drawing.disc(moonX, moonY, 0.4, yellow);
        drawing.disc(moonX + 0.12, moonY, 0.28, black);
        drawing.disc(x(rowTerra) + earthRadius * s.X[observer] / REarth,
                     y(rowTerra) + earthRadius * offset(observer, REarth), 0.1, black);
        drawing.line(x(origin), y(origin), x(body), y(body), black);
        if (body != rowSun && body != rowTerra)
            drawing.disc(x(body), y(body), 0.3, {s.ColorR[body], s.ColorG[body], s.ColorB[body]});
    }
}

}  // namespace tarvex
