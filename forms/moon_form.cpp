#include "forms/moon_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "forms/date_fields.h"
#include "forms/plot_grid.h"

namespace tarvex {

namespace {

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
    : Form(lab_.desk, formName,
           "Расчет барицентрических начальных данных для Луны и Земли    Tarvex7m4  - форма 20"),
      lab(lab_),
      check_(lab_.orbitCheck) {
    const Shown badData = orShow("Задайте правильно данные", "Tarvex7m"),
                badRun = orShow("Ошибка решения уравнений", "Tarvex7m");
    Command10.onPress([this] { gregorianToJulian(lab, dateFields()); }, badData);
    Command11.onPress([this] { julianToGregorian(lab, dateFields()); }, badData);
    Command6.onPress([this] { setData(); }, badData);
    Command1.onPress(
        [this] {
            start();
            stage("Ошибка решения уравнений", "Tarvex7m", [&] { OrbitCheckLoop(); });
        },
        orShow("Введите правильно данные", "Tarvex7m"));
    Command2.onPress([this] { lab.s.kodStop = 1; });
    Command3.onPress(
        [this] {
            lab.s.kodStop = 0;
            OrbitCheckLoop();
        },
        badRun);
    Command4.onPress([this] { clearPicture(); });
    Command9.onPress([this] { close(); });
    Option5.onChoose([this] { preset(true); });
    Option6.onChoose([this] { preset(false); });
    for (OptionButton* option : {&Option2, &Option3, &Option4}) option->onChoose([this] { takeBary(); });
    HScroll1.onChange([this] { showScale(); });

    const Layout date = frame("Дата", column({fields(3, {Text34, Text33, Text32}),
                                              row({fields(1, {Text31}), Command10, Command11})}));
    const Layout source = frame("по выбранной теории или с экрана", row({Option7, Option10, Option9}));
    const Layout check = frame("Проверка орбиты", column({fields(1, {Text44, Text36, Text22, Text23, Text24}),
                                                          Check1, Command1, row({Command2, Command3})}));
    const Layout measured = frame("Измерено", column({fields(3, {Text25, Text6, Text4}),
                                                      table(4, {"",
                                                                "задано/начало",
                                                                "измерено",
                                                                "отличие",
                                                                "период, дни",
                                                                Text37,
                                                                Text3,
                                                                Text2,
                                                                "Rsr, тыс.км",
                                                                "",
                                                                Text30,
                                                                Text20,
                                                                "Eks, %",
                                                                "",
                                                                Text27,
                                                                Text17,
                                                                "AlfaP, град",
                                                                "",
                                                                Text28,
                                                                Text18,
                                                                "AlfaU, град",
                                                                "",
                                                                Text29,
                                                                Text19,
                                                                "Betta, град",
                                                                "",
                                                                Text39,
                                                                Text38}),
                                                      fields(3, {Text41, Text42, Text43})}));
    layout_ = row({
        column({
            row({column({date, source}),
                 frame("Элементы Луны", column({row({Option5, Option6}), Picture2}))}),
            frame("Элементы орбиты Луны (градусы, тыс.км)",
                  fields(4, {Text1, Text8, Text9, Text40, Text10, Text7, Text21, Text35})),
            row({frame("Центральная масса", column({Option2, Option3, Option4})),
                 frame("Положения", column({Check11, Check8, Check5})),
                 frame("Скорости", column({Check12, Check7, Check10, Check9}))}),
            Command6,
            row({check, measured}),
        }),
        column({Picture1, row({Label1, HScroll1}), row({Check3, Check4, Command4, Command9})}),
    });
}

DateFields MoonForm::dateFields() { return {Text34, Text33, Text32, Text31}; }

void MoonForm::load() {
    lab.s.kodKalend = 0;
    lab.s.TimeZone = 0;
    Command10.press();
    clearPicture();
    preset(true);
}

void MoonForm::activate() {
    lab.s.kodKalend = 0;
    lab.s.TimeZone = 0;
    showScale();
}

void MoonForm::unload() { gone_ = true; }

void MoonForm::showScale() {
    lab.s.Mx = HScroll1.value() * 1000000.0;
    Label1.setCaption("Масштаб изображения= " + toText(HScroll1.value()) + " тыс.км/см");
}

void MoonForm::clearPicture() {
    showScale();
    Picture1.setBackground(white);
    drawGrid(Picture1, {.cell = {225, 225, 225}, .axis = {150, 150, 150}});
    Picture1.text(-9, 11.8, "Земля z  Луна l ", black);
}

/// The two meanings of the elements preset the central mass and the transformations.
void MoonForm::preset(bool geocentric) {
    (geocentric ? Option3 : Option4).choose();
    Check11.set(true);
    Check8.set(false);
    Check5.set(geocentric);
    Check12.set(geocentric);
    Check7.set(true);
    Check9.set(false);
    // a sketch: from which point the Moon's radius vector counts
    Picture2.setScale(-1, 1, 9, -1);
    Picture2.clear();
    Picture2.disc(0.3, 0, 0.35, earthColor);
    Picture2.disc(8, 0, 0.2, moonColor);
    Picture2.cross(1.2, 0, 0.2, centreColor);
    Picture2.line(geocentric ? 0.3 : 1.2, 0, 8, 0, black);
    Picture2.text(-0.2, 0.95, "z", black);
    Picture2.text(7.8, 0.95, "l", black);
}

void MoonForm::takeBary() { lab.s.kodBary = Option2.on() ? 0 : Option3.on() ? 1 : 2; }

void MoonForm::setData() {
    ModelState& s = lab.s;
    const MoonTheory theory = Option7.on()    ? MoonTheory::New0
                              : Option10.on() ? MoonTheory::Ser0
                                              : MoonTheory::Screen;
    moonMasses(s, theory);
    if (theory == MoonTheory::Screen) {
        s.AlfaL[11] = Text1.number() / kUgol;
        s.Eks0[11] = Text7.number();
        s.AlfaP0[11] = Text8.number() / kUgol;
        s.AlfaU0[11] = Text9.number() / kUgol;
        s.R0sr[11] = finite(Text10.number() * MK);
        s.Betta0[11] = Text40.number() / kUgol;
        const double km = Text21.number();
        s.m[11] = ratio(s.m[13], km);
        s.km[11] = km;
    } else {
        gregorianToJulian(lab, dateFields());
    }
    const double seconds = moonElements(s, theory);
    if (theory != MoonTheory::Screen) {
        Text35.show(cut6(seconds));
        Text1.show(kUgol * s.AlfaL[11]);
        Text7.show(s.Eks0[11]);
        Text8.show(kUgol * s.AlfaP0[11]);
        Text9.show(kUgol * s.AlfaU0[11]);
        Text10.show(s.R0sr[11] / MK);
        Text40.show(kUgol * s.Betta0[11]);
        Text21.show(s.km[11]);
    }
    showElements();
    takeBary();
    moonInitialData(s, {.earthByRatio = Check11.on(),
                        .earthByShare = Check8.on(),
                        .shiftMoon = Check5.on(),
                        .scaleMoonSpeed = Check12.on(),
                        .earthSpeedByRatio = Check7.on(),
                        .earthSpeedByShare = Check10.on(),
                        .shiftMoonSpeed = Check9.on()});

    clearPicture();
    const double X = s.X[0], Y = s.Y[0], Z = s.Z[0];  // the Earth stands in row 0 for the picture only
    for (Rows* axis : {&s.X, &s.Y, &s.Z}) (*axis)[0] = (*axis)[3];
    OrbitCheck pair;
    pair.IplSel = pair.IplJ = 11;
    pair.Icentr = 13;
    orbitCheckCentre(s, pair);
    drawPair(earthColor, moonColor, centreColor);
    s.X[0] = X, s.Y[0] = Y, s.Z[0] = Z;
    Picture1.text(-9, -6.2,
                  "Xz  Yz  Zz (тыс.км)=        " + threeNumbers(s.X0[0] / MK, s.Y0[0] / MK, s.Z0[0] / MK),
                  black);
    Picture1.text(-9, -6.9,
                  "Xl  Yl  Zl (тыс.км)=  " + threeNumbers(s.X0[11] / MK, s.Y0[11] / MK, s.Z0[11] / MK),
                  black);
    Picture1.text(-9, -7.6, "VXz  VYz  VZz (м/с)=        " + threeNumbers(s.VX0[0], s.VY0[0], s.VZ0[0]),
                  black);
    Picture1.text(-9, -8.3, "VXl  VYl  VZl (м/с)=  " + threeNumbers(s.VX0[11], s.VY0[11], s.VZ0[11]), black);
}

/// The given elements stand in the fields of the measured ones until the check replaces them.
void MoonForm::showElements() {
    const ModelState& s = lab.s;
    Text28.show(kUgol * s.AlfaP0[11]);
    Text29.show(kUgol * s.AlfaU0[11]);
    Text27.show(cut6(100 * s.Eks0[11]));
    Text30.show(s.R0sr[11] / MK);
    Text39.show(cut6(s.Betta0[11] * kUgol));
}

double MoonForm::angularMomentum() const {
    const ModelState& s = lab.s;
    return ((s.VY[11] - s.VY[0]) * (s.X[11] - s.X[0]) - (s.VX[11] - s.VX[0]) * (s.Y[11] - s.Y[0])) * s.m[11];
}

double MoonForm::momentumY() const { return lab.s.m[13] * lab.s.VY[0] + lab.s.m[11] * lab.s.VY[11]; }

void MoonForm::start() {
    ModelState& s = lab.s;
    OrbitCheck c;
    c.cosA = check_.cosA, c.sinA = check_.sinA;
    s.IplSel = c.IplSel = c.IplJ = 11;
    s.Icentr = c.Icentr = 13;
    c.Iobs = Check1.on() ? 14 : 0;
    c.moonBench = true;
    c.NC0 = s.NC0 = Text36.int16();
    c.Dt = s.Dt = Text22.number();
    c.kDt = s.kDt = Text23.int16();
    c.dAlfa = Text24.number();
    s.VYsys = Text44.number();
    for (const int i : {0, 11}) {
        s.X[i] = s.X0[i];
        s.Y[i] = s.Y0[i];
        s.Z[i] = s.Z0[i];
        s.VX[i] = s.VX0[i];
        s.VY[i] = finite(s.VY0[i] + 1000 * s.VYsys);
        s.VZ[i] = s.VZ0[i];
    }
    orbitCheckCentre(s, c);
    startOrbitCheck(s, c);
    c.M0sys = finite(angularMomentum());
    c.KD0sysY = finite(momentumY());
    check_ = c;
    Picture1.text(-9, -4.1, "E0sys (Дж)=              " + toText(c.Esys0), black);
    Picture1.text(-9, -4.8, "M0sys (кг*м^2/с) =   " + toText(c.M0sys), black);
    Picture1.text(-9, -5.5, "KD0sysY (кг*м/с) =   " + toText(c.KD0sysY), black);
    for (TextField* result :
         {&Text37, &Text3, &Text2, &Text20, &Text30, &Text17, &Text27, &Text18, &Text28, &Text38, &Text39,
          &Text19, &Text29, &Text41, &Text42, &Text43, &Text25, &Text6, &Text4})
        result->show(0);
    for (const int i : {0, 11, 14}) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    s.kodStop = 0;
}

void MoonForm::OrbitCheckLoop() {
    if (!check_.begun(true)) throw Failure("no check to go on with");
    Running running(*this);
    do {
        runOrbitCheckBatch(lab.s, check_, *this);
        display();
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (desk().anyLoaded() && !gone_ && check_.begun(true));
}

void MoonForm::nodePassed() {
    Text29.show(cut6(check_.AlfaUcur));
    Text19.show(cut6(check_.AlfaUcur - check_.AlfaU1));
}

void MoonForm::perihelionPassed() {
    const ModelState& s = lab.s;
    const OrbitCheck& c = check_;
    if (c.NObs == 2) {
        firstPeriod_ = c.Tper;
        Text37.show(cut6(c.Tper));
    } else if (c.NObs > 2) {
        Text3.show(cut6(c.Tper));
        Text2.show(cut6(c.Tper - firstPeriod_));
    }
    Text20.show(cut6((s.Rr[11] - s.R0sr[11]) / MK));
    Text30.show(cut6(s.Rr[11] / MK));
    Text17.show(cut6(100 * (c.EksM - s.Eks0[11])));
    Text27.show(cut6(100 * c.EksM));
    Text18.show(cut6(c.AlfaPcur - c.AlfaP1));
    Text28.show(cut6(c.AlfaPcur));
    Text39.show(cut6(c.BettaMax * kUgol));
    Text38.show(cut6((c.BettaMax - s.Betta0[11]) * kUgol));
}

void MoonForm::display() {
    ModelState& s = lab.s;
    if (!Check3.on()) {
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
        drawPair(white, white, white);
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
    }
    orbitCheckCentre(s, check_);
    for (const int i : {0, 11, 14}) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    drawPair(earthColor, moonColor, centreColor);
    Text25.show(Fix(MK * check_.Tsec / sekG) / MK);
    Text6.show(check_.NObs);
    Text4.show(Fix(100 * s.LonPl[11]) / 100);
    s.RSol = s.Rcur;  // the distance of the pair stays where the Sun's radius was, as meant
    Text41.show(percent(check_.Esys, check_.Esys0));
    Text42.show(percent(angularMomentum(), check_.M0sys));
    if (std::abs(check_.KD0sysY) > leastMomentum) Text43.show(percent(momentumY(), check_.KD0sysY));
}

void MoonForm::drawPair(Color earth, Color moon, Color centre) {
    const ModelState& s = lab.s;
    drawBothViews(Picture1, s.X[0] / s.Mx, s.Y[0] / s.Mx, s.Z[0] / s.Mx, 0.1, earth);
    drawBothViews(Picture1, s.X[11] / s.Mx, s.Y[11] / s.Mx, s.Z[11] / s.Mx, 0.07, moon);
    if (Check4.on()) Picture1.cross(s.X[14] / s.Mx, s.Y[14] / s.Mx, 1, centre);
}

}  // namespace tarvex
