#include "forms/eccentric_form.h"

#include <cmath>

#include "core/arithmetic.h"

namespace tarvex {

namespace {
constexpr Color white{255, 255, 255}, red{255, 0, 0}, blue{0, 0, 255}, green{0, 160, 0}, grey{200, 200, 200},
    black{0, 0, 0};
constexpr int circleSteps = 120;
}  // namespace

EccentricForm::EccentricForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Эллипс и эксцентр (сравнение)"), lab(lab_) {
    Command1.onPress([this] { start(); }, orShow("Введите правильно данные", "Tarvex7"));
    Command4.onPress([this] { lab.s.kodStop = 1; });
    Command5.onPress(
        [this] {
            lab.s.kodStop = 0;
            EccentricRun();
        },
        orShow("Ошибка при расчете координат", "Tarvex7"));
    Command6.onPress(
        [this] {
            lab.s.kodStop = 1;
            EccentricRun();
        },
        orShow("Ошибка при расчете координат", "Tarvex7"));
    Command8.onPress([this] { clearPictures(); });
    Command14.onPress([this] { close(); });

    layout_ = column({
        row({frame("Орбита", fields(1, {Text1, Text2, Text3, Text4})),
             frame("Вторая модель и графики", column({Option1, Option2, Check1, Check2})),
             frame("Масштабы и шаг", fields(1, {Text5, Text6, Text8, Text9, Text10})),
             frame("Результат", fields(2, {Text11, Text14, Text12, Text15, Text13, Text16, Text17})),
             column({Command1, Command4, Command5, Command6, Command8, Command14})}),
        row({Picture1, Picture2}),
    });
}

void EccentricForm::load() { clearPictures(); }

void EccentricForm::unload() { gone_ = true; }

void EccentricForm::clearPictures() {
    Picture1.setScale(-10, 10, 14, -10);
    Picture1.clear();
    Picture1.line(-10, 0, 14, 0, grey);
    Picture1.line(0, 10, 0, -10, grey);
    Picture2.setScale(0, 10, 24, -10);
    Picture2.clear();
    for (int x = 0; x <= 24; ++x) Picture2.line(x, -10, x, 10, {235, 235, 235});
    for (int y = -10; y <= 10; ++y) Picture2.line(0, y, 24, y, y == 0 ? grey : Color{235, 235, 235});
    Picture2.text(0.3, 9.8, "dAlfa, град - красные точки, dR, тыс.км. - синие", black);
}

void EccentricForm::start() {
    Eccentric p;
    p.R = Text1.number();
    p.e1 = Text2.number();
    p.e2 = Text3.number();
    p.W = Text4.number() / 365.25;
    p.equant = Option2.on();
    root(p.R * p.R * (1 - p.e1 * p.e1));  // an ellipse must have a minor axis
    Text11.show(p.W);
    for (const TextField* scale : {&Text5, &Text6, &Text8, &Text9})
        if (scale->number() == 0) throw ArithmeticFailure("a scale is zero");
    Text10.number();
    EccentricAt(p);
    const double start = model_.T * p.W;  // by the time that the last run has left, 0 at first: meant
    model_ = drawn_ = p;
    started_ = true;
    lab.s.kodStop = 0;
    clearPictures();
    const double radius = ratio(p.R, Text5.number());
    Picture1.disc(radius * std::cos(start), radius * std::sin(start), 0.1, black);
    stage("Ошибка при расчете координат", "Tarvex7", [&] { EccentricRun(); });
}

void EccentricForm::EccentricRun() {
    if (!started_) throw Failure("no run to go on with");
    const Desk::InHandler alive(desk());
    const ArithmeticGuard guard;
    Running running(*this);
    do {
        EccentricAt(model_);
        guard.check();
        Text11.show(cut6(model_.AlfaL1 * kUgol));
        Text12.show(cut6(model_.AlfaL2 * kUgol));
        Text13.show(cut6(model_.dAlfa * kUgol));
        Text14.show(cut6(model_.R1));
        Text15.show(cut6(model_.R2));
        Text16.show(cut6(model_.dR));
        Text17.show(model_.T);
        stage("Ошибка при рисовании", "Tarvex7", [&] { EccentricDraw(); });
        const double x = ratio(model_.T, Text6.number());
        if (Check1.on()) Picture2.disc(x, ratio(kUgol * model_.dAlfa, Text8.number()), 0.05, red);
        if (Check2.on()) Picture2.disc(x, ratio(model_.dR, Text9.number()), 0.05, blue);
        model_.T = finite(model_.T + Text10.number());
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (lab.s.kodStop != 1 && !gone_);
}

void EccentricForm::drawMarks(Color ellipse, Color eccentric, Color equant) {
    const double Mx = Text5.number();
    const auto at = [&](double v) { return ratio(v, Mx); };
    const Eccentric& d = drawn_;
    Picture1.line(0, 0, at(d.ellipse.x), at(d.ellipse.y), ellipse);
    Picture1.disc(at(d.ellipse.x), at(d.ellipse.y), 0.15, ellipse);
    Picture1.line(0, 0, at(d.eccentric.x), at(d.eccentric.y), eccentric);
    Picture1.disc(at(d.eccentric.x), at(d.eccentric.y), 0.15, eccentric);
    if (d.equant) {
        Picture1.line(at(d.R * d.e2), 0, at(d.deferent.x), at(d.deferent.y), equant);
        Picture1.disc(at(d.deferent.x), at(d.deferent.y), 0.1, equant);
    } else {
        Picture1.disc(at(d.deferent.x), at(d.deferent.y), 0.1, eccentric);
    }
}

/// Erases the marks of the last step and draws the figure and the marks of this one.
void EccentricForm::EccentricDraw() {
    drawMarks(white, white, white);
    const Eccentric& p = model_;
    const double Mx = Text5.number(), a = ratio(p.R, Mx), b = ratio(root(p.R * p.R * (1 - p.e1 * p.e1)), Mx);
    const auto curve = [&](double cx, double rx, double ry, Color color) {
        for (int i = 0; i < circleSteps; ++i) {
            const double t1 = 2 * Pi * i / circleSteps, t2 = 2 * Pi * (i + 1) / circleSteps;
            Picture1.line(cx + rx * std::cos(t1), ry * std::sin(t1), cx + rx * std::cos(t2),
                          ry * std::sin(t2), color);
        }
    };
    curve(0, a, a, black);
    Picture1.text(-9.8, 9.8, "деферент (эклиптика)", black);
    curve(a * p.e1, a, b, red);
    Picture1.text(-9.8, 9, "эллипс ", red);
    curve(p.equant ? a * p.e2 / 2 : a * p.e2, a, a, blue);
    Picture1.text(-9.8, 8.2, "эксцентр", blue);
    if (p.equant) {
        curve(a * p.e2, a, a, green);
        Picture1.text(-9.8, 7.4, "эквант", green);
        Picture1.cross(a * p.e2, 0, 0.2, green);
    }
    Picture1.cross(a * p.e1, 0, 0.2, red);
    drawn_ = model_;
    drawMarks(red, blue, green);
}

}  // namespace tarvex
