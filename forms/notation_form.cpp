#include "forms/notation_form.h"

#include <cmath>

namespace tarvex {

namespace {

constexpr Color black{0, 0, 0}, grey{120, 120, 120}, blue{0, 0, 220}, red{220, 0, 0}, green{0, 140, 0};
constexpr double orbit = 6, nodeAngle = 40 / kUgol, inclination = 30 / kUgol, perihelion = 60 / kUgol,
                 planetAngle = 115 / kUgol;  // the drawn orbit; the last two from the node in its plane

struct Point {
    double x, y;
};

/// Where a point in space stands on the picture: X to the lower left, Y to the right, Z up.
Point seen(double X, double Y, double Z) { return {Y - 0.55 * X, Z - 0.4 * X}; }

/// A point of the orbit plane at an angle from the node.
Point onOrbit(double r, double u) {
    const double along = r * std::cos(u), across = r * std::sin(u);
    return seen(along * std::cos(nodeAngle) - across * std::sin(nodeAngle) * std::cos(inclination),
                along * std::sin(nodeAngle) + across * std::cos(nodeAngle) * std::cos(inclination),
                across * std::sin(inclination));
}

/// A point of the ecliptic at a longitude.
Point onEcliptic(double r, double a) { return seen(r * std::cos(a), r * std::sin(a), 0); }

template <class Curve>
void drawCurve(Picture& picture, Curve curve, double from, double to, Color color) {
    constexpr int steps = 90;
    Point last = curve(from);
    for (int k = 1; k <= steps; ++k) {
        const Point next = curve(from + (to - from) * k / steps);
        picture.line(last.x, last.y, next.x, next.y, color);
        last = next;
    }
}

/// A ray from the Sun with its name behind its end, moved aside by so much.
void drawRay(Picture& picture, Point to, const std::string& name, Color color, Point aside = {0.2, 0.2}) {
    picture.line(0, 0, to.x, to.y, color);
    picture.text(to.x + aside.x, to.y + aside.y, name, color);
}

constexpr const char* notation =
    R"(X, Y, Z - координаты, начало в Солнце, плоскость XY - эклиптика
VX, VY, VZ - скорости, м/с
AlfaL - средняя долгота
AlfaP - долгота перигелия (от X до узла по эклиптике, дальше по орбите)
AlfaU - долгота восходящего узла
Betta - наклон орбиты к эклиптике
Eks - эксцентриситет
R0sr - большая полуось;  W0sr - среднее движение
Mean, Anom - средняя и истинная аномалии
Uarg - аргумент широты, от узла до планеты
Rr - радиус-вектор
LonPl, LatPl - долгота и широта, как видны из другого тела
m, km - масса и отношение массы Солнца к массе объекта
Vgr, Vsv - скорость гравитации и скорость света
VXsys ... - скорость системы как целого, км/с
JD - юлианская дата;  ET-UT - поправка времени, с

0 в конце имени - начальное значение, d в начале - разность,
sr - среднее, sys - вся система, pl - планета.
На экране: тыс. км, м/с, градусы, рад/год.

Строки: 0 Солнце, 1 Меркурий, 2 Венера, 3 Земля (масса с Луной),
4 Марс, 5 Юпитер, 6 Сатурн, 7 Уран, 8 Нептун, 9 Плутон,
10 Ксена или Луна, 11 Луна, 13 Земля без Луны, 14 центр масс)";

}  // namespace

NotationForm::NotationForm(Laboratory& lab)
    : NotationControls(lab.desk, formName, "Обозначения      Tarvex7m - форма 5") {
    quantities.setText(notation);
    closeForm.onPress([this] { close(); });
    layout_ = row({orbitPicture, column({quantities, row({stretch(), closeForm})})});
}

void NotationForm::load() {
    orbitPicture.setScale(-9, 7.5, 9, -7.5);
    orbitPicture.clear();
    drawAxes();
    drawOrbit();
}

void NotationForm::drawAxes() {
    drawRay(orbitPicture, seen(8.5, 0, 0), "X (точка весны)", black, {0.3, 0.1});
    drawRay(orbitPicture, seen(0, 8, 0), "Y", black);
    drawRay(orbitPicture, seen(0, 0, 6.5), "Z (полюс эклиптики)", black);
    drawCurve(
        orbitPicture, [](double a) { return onEcliptic(orbit, a); }, 0, 2 * Pi, grey);
    orbitPicture.text(3.9, -2, "плоскость эклиптики", grey);
    orbitPicture.disc(0, 0, 0.3, {240, 200, 0});
    orbitPicture.text(-1.9, 0.9, "Солнце", black);
}

void NotationForm::drawOrbit() {
    drawCurve(
        orbitPicture, [](double u) { return onOrbit(orbit, u); }, 0, 2 * Pi, blue);
    drawRay(orbitPicture, onOrbit(orbit, 0), "узел", green);
    drawRay(orbitPicture, onOrbit(orbit, perihelion), "перигелий", red);
    const Point planet = onOrbit(orbit, planetAngle);
    drawRay(orbitPicture, planet, "планета", blue, {0.4, 0.5});
    orbitPicture.disc(planet.x, planet.y, 0.2, blue);

    drawCurve(
        orbitPicture, [](double a) { return onEcliptic(2.6, a); }, 0, nodeAngle, green);
    const Point atU = onEcliptic(3, nodeAngle / 2), atP = onOrbit(2.9, perihelion / 2),
                atA = onOrbit(3.6, 1.5);
    orbitPicture.text(atU.x - 0.6, atU.y - 0.2, "AlfaU", green);
    drawCurve(
        orbitPicture, [](double u) { return onOrbit(2.6, u); }, 0, perihelion, red);
    orbitPicture.text(atP.x - 0.25, atP.y - 0.45, "AlfaP - AlfaU", red);
    drawCurve(
        orbitPicture, [](double u) { return onOrbit(3.4, u); }, perihelion, planetAngle, blue);
    orbitPicture.text(atA.x, atA.y + 0.6, "Anom", blue);
    // the angle of the planes, at a right angle from the node
    const auto tilt = [](double b) {
        return seen(-4.5 * std::sin(nodeAngle) * std::cos(b), 4.5 * std::cos(nodeAngle) * std::cos(b),
                    4.5 * std::sin(b));
    };
    drawCurve(orbitPicture, tilt, 0, inclination, black);
    const Point atB = tilt(inclination / 2);
    orbitPicture.text(atB.x + 0.25, atB.y - 0.4, "Betta", black);
}

}  // namespace tarvex
