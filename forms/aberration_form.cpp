#include "forms/aberration_form.h"

#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "theories/elements.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr std::array objectNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс",  "Юпитер",
                                    "Сатурн", "Уран",     "Нептун", "Плутон", "Звезда"};
constexpr Color red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, grid{60, 60, 60};
constexpr double visibleCells = 20;  ///< beyond this the marks of the orbits are not drawn

}  // namespace

AberrationForm::AberrationForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "Компоненты аберрации (обратный отсчет в эклиптических координатах)"),
      Check1(this, 0, 10,
             [](int i) {
                 return CheckBox::Spec{.name = "Check1",
                                       .caption = objectNames[i],
                                       .on = i == 4,
                                       .hint = "Объект наблюдения; отмечен должен быть один"};
             }),
      lab(lab_) {
    const Shown badData = orShow("Введите правильно данные ", "Tarvex7"),
                badRun = orShow("Ошибка при расчете", "Tarvex7");
    Command1.onPress(
        [this] {
            if (prepare(Text23.number())) bench_.JDorigin = lab.s.JD;
        },
        badData);
    Command3.onPress([this] { iterate(); }, badRun);
    Command5.onPress(
        [this] {
            Check2.set(true);
            startDay_ = Text23.text();
            startMonth_ = Text33.text();
            startYear_ = Text43.text();
            Text9.number();
            if (!prepare(Text23.number())) return;
            bench_.JDorigin = lab.s.JD;
            lab.s.kodStop = 0;
            stepLoop();
        },
        badData);
    Command6.onPress([this] { lab.s.kodStop = 1; });
    Command7.onPress(
        [this] {
            lab.s.kodStop = 0;
            stepLoop();
        },
        badData);
    Command9.onPress(
        [this] {
            lab.s.kodStop = 1;
            stepLoop();
        },
        badData);
    Command8.onPress([this] {
        if (startDay_.empty()) return;
        Text23.setText(startDay_);
        Text33.setText(startMonth_);
        Text43.setText(startYear_);
    });
    Command2.onPress([this] { clearPicture(); });
    Command4.onPress([this] { close(); });
    HScroll1.onChange([this] { showScale(); });

    std::vector<Layout> objects;
    for (int i = 0; i <= 10; ++i) objects.emplace_back(Check1(i));
    layout_ = row({
        column({
            row({frame("Объект", column(objects)),
                 column({frame("Долготы, град", column({fields(2, {Text1, Text2}), Check2})),
                         frame("Дата", fields(3, {Text23, Text33, Text43, Text9})),
                         frame("Скорость системы, км/с", fields(3, {Text3, Text4, Text5})),
                         frame("Свет", fields(1, {Text6}))})}),
            frame(
                "Земля, объект и объект после аберрации источника",
                table(7, {"",       "X, тыс.км", "Y, тыс.км", "Z, тыс.км", "VX, км/с", "VY, км/с", "VZ, км/с",
                          "Земля",  Text11,      Text13,      Text15,      Text17,     Text19,     Text21,
                          "Объект", Text12,      Text14,      Text16,      Text18,     Text20,     Text22,
                          "Ais",    Text24,      Text25,      Text26,      Text27,     Text28,     Text29})),
            frame("Аберрация, град",
                  column({fields(3, {Text30, Text31, Text10, Text37, Text47}),
                          table(5, {"", "Ais", "Apr", "As", "видимая", "L", Text32, Text34, Text35, Text36,
                                    "B", Text42, Text44, Text45, Text46})})),
            Command1,
            Command3,
            row({Command5, Command6, Command7, Command9, Command8, Command2, Command4}),
        }),
        column({Picture1, row({Label1, HScroll1}),
                frame("Рисовать",
                      column({row({Option3, Option4, Option5}), row({Option1, Option2, Check6, Check7})})),
                frame("Кривые", column({Check3, Check4, Check5, fields(2, {Text7, Text8})}))}),
    });
}

void AberrationForm::load() {
    Picture1.setScale(-10, 10, 10, -10);
    showScale();
    clearPicture();
}

void AberrationForm::unload() { gone_ = true; }

void AberrationForm::showScale() {
    lab.s.Mx = HScroll1.value() * 100000.0 * 1000;
    Label1.setCaption("Масштаб = " + toText(HScroll1.value() / 10.0) + " млн.км/см");
}

void AberrationForm::clearPicture() {
    Picture1.clear();
    for (int i = -10; i <= 10; ++i) {
        Picture1.line(i, -10, i, 10, grid);
        Picture1.line(-10, i, 10, i, grid);
    }
    Picture1.line(-10, 0, 10, 0, green);
    Picture1.line(0, -10, 0, 10, green);
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

/// Reads the fields and forms the real places for the date with this day; false when that is no date.
bool AberrationForm::prepare(double day) {
    ModelState& s = lab.s;
    Text7.number();
    Text8.number();
    bench_.Vc = ratio(Vsv, Text6.number());
    int ticked = 0, object = bench_.body;
    for (int i = 0; i <= 10; ++i) {
        if (!Check1(i).on()) continue;
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
        s.kodKalend = 0;
        s.TimeZone = 0;
        s.kodErrDate = 0;
        s.JD = JDfromDate(s, day, Text33.int32(), Text43.int32());
    }
    if (s.kodErrDate != 0) return false;  // it has been complained of

    if (object == AberrationBench::star) {
        s.X[object] = finite(Text12.number() * MK);
        s.Y[object] = finite(Text14.number() * MK);
        s.Z[object] = finite(Text16.number() * MK);
        s.VX[object] = finite(Text18.number() * 1000);
        s.VY[object] = finite(Text20.number() * 1000);
        s.VZ[object] = finite(Text22.number() * 1000);
    }
    AberrationPrepare(s, bench_, Check2.on(), Text1.number() / kUgol, Text2.number() / kUgol);

    if (Check2.on()) {
        Text1.show(cut6(360 * Frac1(s.AlfaL[3] / 2 / Pi)));
        if (object != 0 && object != AberrationBench::star)
            Text2.show(cut6(360 * Frac1(s.AlfaL[object] / 2 / Pi)));
    }
    showBody(3, Text11, Text13, Text15, Text17, Text19, Text21);
    if (object != AberrationBench::star) showBody(object, Text12, Text14, Text16, Text18, Text20, Text22);
    Text30.show(cut6(s.Rcur / MK));
    Text31.show(cut6(s.Tsv[3][object]));
    Text37.show(cut6(bench_.GeoL));
    Text47.show(cut6(bench_.GeoB));
    Text10.show(0);
    if (Option3.on()) drawPlaces();
    return true;
}

void AberrationForm::iterate() {
    ModelState& s = lab.s;
    s.VXsys = Text3.number();
    s.VYsys = Text4.number();
    s.VZsys = Text5.number();
    AberrationIterate(s, bench_, Check7.on());
    Text24.show(cut6(bench_.XIs / MK));
    Text25.show(cut6(bench_.YIs / MK));
    Text26.show(cut6(bench_.ZIs / MK));
    Text27.show(cut6(s.VX[bench_.body] / 1000));
    Text28.show(cut6(s.VY[bench_.body] / 1000));
    Text29.show(cut6(s.VZ[bench_.body] / 1000));
    Text30.show(cut6(bench_.Rgeo / MK));
    Text31.show(cut6(s.Tsv[3][bench_.body]));
    const double A = bench_.AlfaIs + bench_.AlfaPr, B = bench_.BettaIs + bench_.BettaPr;
    Text32.show(cut6(bench_.AlfaIs));
    Text42.show(cut6(bench_.BettaIs));
    Text34.show(cut6(bench_.AlfaPr));
    Text44.show(cut6(bench_.BettaPr));
    Text35.show(cut6(A));
    Text45.show(cut6(B));
    Text36.show(cut6(bench_.GeoL + A));
    Text46.show(cut6(bench_.GeoB + B));
    Text10.show(bench_.iterations);
    if (Option3.on())
        drawConstruction();
    else
        drawComponents();
}

/// Dates one after another until the run is stopped.
void AberrationForm::stepLoop() {
    Running running(*this);
    do {
        const double day = Text23.number(), step = Text9.number();
        if (!prepare(day)) break;
        stage("Ошибка при расчете", "Tarvex7", [&] { iterate(); });
        Text23.show(day + step);
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (lab.s.kodStop != 1 && !gone_);
}

/// Picture coordinate of a point in the chosen plane.
double AberrationForm::across(double x, double y, double z, bool horizontal) const {
    return (horizontal ? x : Option1.on() ? y : z) / lab.s.Mx;
}

/// The places of the Earth and the object and, in the plane of the ecliptic, their orbits.
void AberrationForm::drawPlaces() {
    const ModelState& s = lab.s;
    for (const int row : {3, bench_.body}) {
        Picture1.disc(across(s.X0[row], s.Y0[row], s.Z0[row], true),
                      across(s.X0[row], s.Y0[row], s.Z0[row], false), 0.15, colorOf(row));
        if (Option1.on() && row != AberrationBench::star && row != 0)
            Picture1.circle(0, 0, s.R0sr[row] / s.Mx, {90, 90, 90});
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
    const double ex = across(s.X[3], s.Y[3], s.Z[3], true), ey = across(s.X[3], s.Y[3], s.Z[3], false);
    drawPlaces();
    for (const int row : {3, b}) {
        const double px = across(s.X0[row], s.Y0[row], s.Z0[row], true),
                     py = across(s.X0[row], s.Y0[row], s.Z0[row], false);
        // velocity at one ten-thousandth of a cell for a metre a second
        Picture1.line(px, py, px + s.VX[row] / 10000, py + (Option1.on() ? s.VY[row] : s.VZ[row]) / 10000,
                      colorOf(row));
    }
    const auto ray = [&](double x, double y, double z, Color color) {
        Picture1.line(ex, ey, across(x, y, z, true), across(x, y, z, false), color);
    };
    if (Check3.on()) ray(bench_.XIs, bench_.YIs, bench_.ZIs, {strength, 0, 0});
    if (Check4.on()) {
        const double T = s.Tsv[3][b];
        ray(s.X0[b] + s.VX[3] * T, s.Y0[b] + s.VY[3] * T, s.Z0[b] + s.VZ[3] * T, {0, 0, strength});
        Picture1.disc(across(bench_.XPr, bench_.YPr, bench_.ZPr, true),
                      across(bench_.XPr, bench_.YPr, bench_.ZPr, false), 0.07, {0, 0, strength});
    }
    if (Check5.on()) ray(s.X[b], s.Y[b], s.Z[b], {0, sumStrength, 0});
}

/// A point of each ticked component: against time, or in the direction of the Earth's longitude.
void AberrationForm::drawComponents() {
    ModelState& s = lab.s;
    const double MT = Text7.number(), MAlfa = Text8.number();
    const bool byLongitude = Option1.on();
    const double is = byLongitude ? bench_.AlfaIs : bench_.BettaIs,
                 pr = byLongitude ? bench_.AlfaPr : bench_.BettaPr;
    PairGeometry(s, 0, 3);
    const double l = s.LonPl[3] / kUgol;
    const auto point = [&](double c, Color color) {
        if (Option4.on()) {
            Picture1.disc(ratio((s.JD - bench_.JDorigin) / 365.25, MT) - 10, ratio(c, MAlfa), 0.05, color);
        } else {
            const double size = ratio(Check6.on() ? std::abs(c) : c, MAlfa);
            Picture1.disc(std::cos(l) * size, std::sin(l) * size, 0.05, color);
        }
    };
    if (Check3.on()) point(is, red);
    if (Check4.on()) point(pr, blue);
    if (Check5.on()) point(is + pr, green);
    const int b = bench_.body;
    if (std::abs(across(s.X0[b], s.Y0[b], s.Z0[b], true)) > visibleCells ||
        std::abs(across(s.X0[b], s.Y0[b], s.Z0[b], false)) > visibleCells)
        return;
    for (const int row : {3, b})
        Picture1.disc(across(s.X0[row], s.Y0[row], s.Z0[row], true),
                      across(s.X0[row], s.Y0[row], s.Z0[row], false), 0.04, colorOf(row));
}

}  // namespace tarvex
