#include "forms/eccentric_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "forms/picture_axes.h"

namespace tarvex {

namespace {
constexpr Color white{255, 255, 255}, red{255, 0, 0}, blue{0, 0, 255}, green{0, 160, 0}, grey{200, 200, 200},
    black{0, 0, 0};
constexpr int circleSteps = 120;
}  // namespace

EccentricForm::EccentricForm(Laboratory& lab_) : EccentricControls(lab_.desk), lab(lab_) {
    startRun.onPress([this] { start(); }, orShow("Введите правильно данные", "Tarvex7"));
    stopRun.onPress([this] { lab.s.kodStop = 1; });
    continueRun.onPress(
        [this] {
            lab.s.kodStop = 0;
            EccentricRun();
        },
        orShow("Ошибка при расчете координат", "Tarvex7"));
    singleStep.onPress(
        [this] {
            lab.s.kodStop = 1;
            EccentricRun();
        },
        orShow("Ошибка при расчете координат", "Tarvex7"));
    clearDrawings.onPress([this] { clearPictures(); });
    for (Picture* one : {&orbitDrawing, &differenceGraph}) one->onWipe([this] { clearPictures(); });
    closeForm.onPress([this] { close(); });
}

void EccentricForm::load() { clearPictures(); }

void EccentricForm::unload() { gone_ = true; }

void EccentricForm::clearPictures() {
    orbitDrawing.setScale(-10, 10, 14, -10);
    orbitDrawing.clear();
    orbitDrawing.line(-10, 0, 14, 0, grey);
    orbitDrawing.line(0, 10, 0, -10, grey);
    differenceGraph.setScale(0, 10, 24, -10);
    differenceGraph.clear();
    for (int x = 0; x <= 24; ++x) differenceGraph.line(x, -10, x, 10, {235, 235, 235});
    for (int y = -10; y <= 10; ++y) differenceGraph.line(0, y, 24, y, y == 0 ? grey : Color{235, 235, 235});
    differenceGraph.text(0.3, 9.8, "dAlfa, град - красные точки, dR, тыс.км. - синие", black);
}

void EccentricForm::start() {
    Eccentric p;
    p.R = meanRadius.number();
    p.e1 = ellipseEccentricity.number();
    p.e2 = eccentricShift.number();
    p.W = meanMotion.number() / 365.25;
    p.equant = withEquant.on();
    root(p.R * p.R * (1 - p.e1 * p.e1));  // an ellipse must have a minor axis
    ellipseLongitude.show(p.W);
    for (const TextField* scale : {&drawingScale, &timeScale, &longitudeScale, &distanceScale})
        if (scale->number() == 0) throw ArithmeticFailure("масштаб равен нулю");
    timeStep.number();
    EccentricAt(p);
    const double start = model_.T * p.W;  // a run goes on from where the last one ended
    model_ = drawn_ = p;
    started_ = true;
    lab.s.kodStop = 0;
    clearPictures();
    const double radius = ratio(p.R, drawingScale.number());
    orbitDrawing.disc(radius * std::cos(start), radius * std::sin(start), 0.1, black);
    stage("Ошибка при расчете координат", "Tarvex7", [&] { EccentricRun(); });
}

void EccentricForm::EccentricRun() {
    if (!started_) throw Failure("счет еще не начат");
    const Desk::InHandler alive(desk());
    const ArithmeticGuard guard;
    Running running(*this);
    do {
        EccentricAt(model_);
        guard.check();
        ellipseLongitude.show(cut6(model_.AlfaL1 * kUgol));
        modelLongitude.show(cut6(model_.AlfaL2 * kUgol));
        longitudeDifference.show(cut6(model_.dAlfa * kUgol));
        ellipseDistance.show(cut6(model_.R1));
        modelDistance.show(cut6(model_.R2));
        distanceDifference.show(cut6(model_.dR));
        elapsedTime.show(model_.T);
        stage("Ошибка при рисовании", "Tarvex7", [&] { EccentricDraw(); });
        const double x = ratio(model_.T, timeScale.number());
        tellAxes();
        if (plotLongitudeDifference.on())
            differenceGraph.as(dAlfa_).disc(x, ratio(kUgol * model_.dAlfa, longitudeScale.number()), 0.05,
                                            red);
        if (plotDistanceDifference.on())
            differenceGraph.as(dR_).disc(x, ratio(model_.dR, distanceScale.number()), 0.05, blue);
        model_.T = finite(model_.T + timeStep.number());
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (lab.s.kodStop != 1 && !gone_);
}

/// What the pictures mean at the present scales.
void EccentricForm::tellAxes() {
    const Axis time = scaledAxis("время", "дни", timeScale.number());
    const double Mx = drawingScale.number();
    differenceGraph.axes(0, {time, scaledAxis("dAlfa", "град", longitudeScale.number())});
    differenceGraph.axes(1, {time, scaledAxis("dR", inThousandKm.name, distanceScale.number())});
    orbitDrawing.axes(0, {scaledAxis("X", inThousandKm.name, Mx), scaledAxis("Y", inThousandKm.name, Mx)});
    if (dR_ != Plot::none) return;
    dAlfa_ = differenceGraph.series({.quantity = "dAlfa", .layer = 0, .color = 1});
    dR_ = differenceGraph.series({.quantity = "dR", .layer = 1, .color = 0, .mark = 1});
    onEllipse_ = orbitDrawing.series({.quantity = "на эллипсе"});
    onEccentric_ = orbitDrawing.series({.quantity = "на эксцентре"});
    onDeferent_ = orbitDrawing.series({.quantity = "на деференте"});
}

void EccentricForm::drawMarks(Color ellipse, Color eccentric, Color equant) {
    const double Mx = drawingScale.number();
    const auto at = [&](double v) { return ratio(v, Mx); };
    const Eccentric& d = drawn_;
    orbitDrawing.line(0, 0, at(d.ellipse.x), at(d.ellipse.y), ellipse);
    orbitDrawing.as(onEllipse_).disc(at(d.ellipse.x), at(d.ellipse.y), 0.15, ellipse);
    orbitDrawing.line(0, 0, at(d.eccentric.x), at(d.eccentric.y), eccentric);
    orbitDrawing.as(onEccentric_).disc(at(d.eccentric.x), at(d.eccentric.y), 0.15, eccentric);
    if (d.equant) {
        orbitDrawing.line(at(d.R * d.e2), 0, at(d.deferent.x), at(d.deferent.y), equant);
        orbitDrawing.as(onDeferent_).disc(at(d.deferent.x), at(d.deferent.y), 0.1, equant);
    } else {
        orbitDrawing.as(onDeferent_).disc(at(d.deferent.x), at(d.deferent.y), 0.1, eccentric);
    }
}

/// Erases the marks of the last step and draws the figure and the marks of this one.
void EccentricForm::EccentricDraw() {
    drawMarks(white, white, white);
    const Eccentric& p = model_;
    const double Mx = drawingScale.number(), a = ratio(p.R, Mx),
                 b = ratio(root(p.R * p.R * (1 - p.e1 * p.e1)), Mx);
    const auto curve = [&](double cx, double rx, double ry, Color color) {
        for (int i = 0; i < circleSteps; ++i) {
            const double t1 = 2 * Pi * i / circleSteps, t2 = 2 * Pi * (i + 1) / circleSteps;
            orbitDrawing.line(cx + rx * std::cos(t1), ry * std::sin(t1), cx + rx * std::cos(t2),
                              ry * std::sin(t2), color);
        }
    };
    curve(0, a, a, black);
    orbitDrawing.text(-9.8, 9.8, "деферент (эклиптика)", black);
    curve(a * p.e1, a, b, red);
    orbitDrawing.text(-9.8, 9, "эллипс ", red);
    curve(p.equant ? a * p.e2 / 2 : a * p.e2, a, a, blue);
    orbitDrawing.text(-9.8, 8.2, "эксцентр", blue);
    if (p.equant) {
        curve(a * p.e2, a, a, green);
        orbitDrawing.text(-9.8, 7.4, "эквант", green);
        orbitDrawing.cross(a * p.e2, 0, 0.2, green);
    }
    orbitDrawing.cross(a * p.e1, 0, 0.2, red);
    drawn_ = model_;
    drawMarks(red, blue, green);
}

}  // namespace tarvex
