#include "forms/two_bodies_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "forms/plot_grid.h"
#include "numeric/pulsar_file.h"
#include "theories/elements.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr Color white{255, 255, 255}, black{0, 0, 0}, red{220, 0, 0}, green{0, 150, 0}, blue{0, 0, 220},
    orange{220, 130, 0}, violet{150, 0, 180}, grey{225, 225, 225}, axis{150, 150, 150}, m1Color{0, 160, 0},
    m2Color{200, 120, 0}, centreColor{0, 0, 250};
constexpr double dateOfTheory = 2378862;          ///< of the elements by the theory: 1 January 1801
constexpr double delayLine = 4;                   ///< height about which the plots of every step are drawn
constexpr double noteTop = -0.4, noteStep = 0.6;  ///< printed lines stand below the plots

/// Cut to twelve places: masses are small shares of the Sun.
double cut12(double v) { return Fix(v * MK * MK) / MK / MK; }

std::string threeNumbers(double a, double b, double c, const char* pattern) {
    return Format(a, pattern) + "   " + Format(b, pattern) + "   " + Format(c, pattern);
}

}  // namespace

TwoBodiesForm::TwoBodiesForm(Laboratory& lab_)
    : Form(lab_.desk, formName, "   Tarvex7m4  - форма 25    Задача двух тел с учетом скорости гравитации"),
      lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", "Tarvex7m"),
                badRun = orShow("Ошибка решения уравнений", "Tarvex7mm");
    Command7.onPress(
        [this] {
            ModelState& s = lab.s;
            InitMassesSer0(s);
            s.mSol = s.m[0];
            if (Option11.on())
                loadFromFile();
            else if (Option12.on())
                loadFromTheory();
            else
                throw Refusal("Задайте правильно данные", "Tarvex7m");
        },
        badData);
    Command8.onPress([this] { saveFile(); }, badData);
    Command6.onPress([this] { setData(); }, badData);
    Command1.onPress(
        [this] {
            start();
            stage("Ошибка решения уравнений", "Tarvex7mm", [&] { loop(); });
        },
        orShow("Задайте правильно данные", "Tarvex7mm"));
    Command2.onPress([this] { lab.s.kodStop = 1; });
    Command3.onPress(
        [this] {
            lab.s.kodStop = 0;
            takeNumbers();
            loop();
        },
        badRun);
    Command4.onPress([this] { clearPictures(); });
    opens(Command5, "Form26");
    Command9.onPress([this] { close(); });
    Option9.onChoose([this] { beginEffect(); }, badRun);
    Option10.onChoose([this] { endEffect(); }, badRun);
    HScroll1.onChange([this] { showScale(); });

    const Layout orbit =
        frame("Параметры орбиты и массы",
              column({fields(2, {Text1, Text10, Text7, Text37, Text8, Text4, Text9, Text5}), Check12}));
    const Layout source =
        frame("Источник", column({Option12, fields(1, {Text12}), Option11, fields(1, {Text2}),
                                  row({Command7, Command8}), Command6}));
    const Layout force =
        frame("возникающую при этом силу Ft определять",
              column({row({Option3, Option4, Option5}), fields(1, {Text3}), row({Check9, Check2})}));
    const Layout solution =
        row({frame("Решение",
                   column({fields(1, {Text22, Text23, Text36, Text24, Text21, Text31, Text32}), Check1})),
             column({force, frame("расчет с учетом Vgr", row({Option9, Option10, Check10})),
                     row({Command1, Command2, Command3})})});
    const Layout measured = frame(
        "Измерено",
        column(
            {fields(2, {Text25, Text47, Text51, Text11, Text41, Text42}),
             table(4,
                   {"",     "начало",      "сейчас",      "сдвиг",     "Eks",  Text16,        Text17,
                    Text18, "AlfaP, град", Text19,        Text20,      Text26, "AlfaU, град", Text27,
                    Text28, Text29,        "Rsr, тыс.км", Text30,      Text35, Text38,        "период, дни",
                    Text40, Text34,        Text33,        "период, с", Text13, Text15,        Text14})}));
    const Layout show =
        frame("Показывать", column({Option1, Option2, Option6, Option7, Option8, Check3, Check4}));
    const Layout plots = frame(
        "Графики сдвигов", column({table(2, {Check5, Text43, Check6, Text44, Check7, Text45, Check8, Text46}),
                                   fields(1, {Text6})}));
    layout_ = row({
        column({row({orbit, source}), solution,
                row({measured, column({row({show, plots}), row({Command5, Command4, Command9})})})}),
        column({Picture1, row({Label1, HScroll1}), Picture2}),
    });
}

void TwoBodiesForm::load() { clearPictures(); }
void TwoBodiesForm::activate() { showScale(); }
void TwoBodiesForm::unload() { gone_ = true; }

void TwoBodiesForm::showScale() {
    lab.s.Mx = HScroll1.value() * 1000000.0;
    Label1.setCaption("Масштаб изображения= " + toText(HScroll1.value()) + " тыс.км/см");
}

void TwoBodiesForm::clearPictures() {
    showScale();
    Picture1.setBackground(white);
    drawGrid(Picture1, {.cell = grey, .axis = axis});
    Picture2.setScale(0, 8, 24, -8);
    Picture2.clear();
    for (int x = 0; x <= 24; ++x) Picture2.line(x, -8, x, 8, grey);
    for (int y = -8; y <= 8; ++y) Picture2.line(0, y, 24, y, y == 0 || y == 4 ? axis : grey);
    noteLine_ = noteTop;
}

/// Prints one line on the plots, each below the last.
void TwoBodiesForm::note(const std::string& text) {
    Picture2.text(0.2, noteLine_, text, black);
    noteLine_ -= noteStep;
    if (noteLine_ < -7.5) noteLine_ = noteTop;
}

void TwoBodiesForm::loadFromFile() {
    const std::string name = files::pulsar(Text2.int16());
    PulsarData d;
    try {
        d = readPulsar(lab.tree.at(name));
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, "Tarvex7m");
    } catch (const FileFailure&) {
        throw Refusal("Ошибка чтения данных из файла " + name, "Tarvex7m");
    }
    Text4.show(d.m1);
    Text5.show(d.m2);
    Text7.show(d.Eks);
    Text8.show(d.AlfaP);
    Text37.show(d.Betta);
    Text10.show(d.Rsr / MK);
    Text22.show(d.P0);
    for (TextField* field : {&Text9, &Text40, &Text13}) field->show(0);
}

void TwoBodiesForm::loadFromTheory() {
    ModelState& s = lab.s;
    const std::int16_t i = Text12.int16();
    if (i < 1 || i > 11 || i == 10) throw SubscriptFailure("no theory of body " + std::to_string(i));
    Text4.show(cut12(s.m[i] / s.mSol));
    Text5.show(cut12(s.m[i == 11 ? 13 : 0] / s.mSol));
    s.JD = dateOfTheory;
    s.Ipl = i;
    ElementsSer0(s);
    for (Rows* angle : {&s.AlfaL, &s.AlfaP0, &s.AlfaU0}) (*angle)[i] = Frac1((*angle)[i] / 2 / Pi) * 2 * Pi;
    Text1.show(cut6(s.AlfaL[i] * kUgol));
    Text7.show(cut6(s.Eks0[i]));
    Text8.show(cut6(s.AlfaP0[i] * kUgol));
    Text9.show(cut6(s.AlfaU0[i] * kUgol));
    Text10.show(cut6(s.R0sr[i] / MK));
    Text37.show(cut6(s.Betta0[i] * kUgol));
}

void TwoBodiesForm::saveFile() {
    const std::string name =
        files::pulsar(stage("Задайте номер файла", "Tarvex7m", [&] { return Text2.int16(); }));
    const PulsarData data{.m1 = Text4.number(),
                          .m2 = Text5.number(),
                          .Eks = Text7.number(),
                          .AlfaP = Text8.number(),
                          .Betta = Text37.number(),
                          .Rsr = Text10.number() * MK,
                          .P0 = Text22.number()};
    stage("Ошибка записи в файл " + name, "Tarvex7m", [&] { writePulsar(lab.tree.at(name), data); });
}

void TwoBodiesForm::setData() {
    ModelState& s = lab.s;
    s.IplSel = 11;
    s.kodMoon = 1;
    s.kodBary = Check12.on() ? 2 : 1;
    s.AlfaL[11] = Text1.number() / kUgol;
    s.Eks0[11] = Text7.number();
    s.AlfaP0[11] = Text8.number() / kUgol;
    s.AlfaU0[11] = Text9.number() / kUgol;
    s.R0sr[11] = Text10.number() * MK;
    s.Betta0[11] = Text37.number() / kUgol;
    s.km[11] = Text4.number();
    s.km[13] = Text5.number();
    s.m[11] = s.mSol * s.km[11];
    s.m[13] = s.mSol * s.km[13];
    twoBodyInitialData(s);
    clearPictures();
    twoBodyCentre(s);
    drawBodies(m1Color, m2Color);
    Picture1.text(
        -9.6, -6.4,
        "X1  Y1  Z1 (тыс.км)=  " + threeNumbers(s.X0[11] / MK, s.Y0[11] / MK, s.Z0[11] / MK, "000000.00"),
        black);
    Picture1.text(
        -9.6, -7.2,
        "X2  Y2  Z2 (тыс.км)=  " + threeNumbers(s.X0[0] / MK, s.Y0[0] / MK, s.Z0[0] / MK, "000000.00"),
        black);
    Picture1.text(-9.6, -8,
                  "VX1 VY1 VZ1 (м/с)=  " + threeNumbers(s.VX0[11], s.VY0[11], s.VZ0[11], "0000.0000"), black);
    Picture1.text(-9.6, -8.8,
                  "VX2 VY2 VZ2 (м/с)=  " + threeNumbers(s.VX0[0], s.VY0[0], s.VZ0[0], "0000.0000"), black);
}

/// What a run reads where it begins or goes on after a stop.
void TwoBodiesForm::takeNumbers() {
    lab.twoBody.Vgr = Text21.number() * Vsv;
    lab.twoBody.NC0 = Text36.int16();
}

/// What may change while a run goes on.
void TwoBodiesForm::takeSettings() {
    TwoBody& b = lab.twoBody;
    const PulsarExtras& p = lab.pulsar;
    b.withVgr = Option9.on();
    b.source = Option3.on()   ? TwoBody::Ft::ByRetardation
               : Option4.on() ? TwoBody::Ft::ByFormula
                              : TwoBody::Ft::Given;
    b.FtGiven = Option5.on() ? Text3.number() : 0;
    b.byOtherSpeed = Check9.on();
    b.alsoOnM2 = Check2.on();
    b.kSopr = p.kSopr;
    b.dAlfaSopr = p.dAlfaSopr;
    b.fromNode = p.fromNode;
    b.dTvSr = p.dTvSr;
    b.dTmSr = p.dTmSr;
    anyPerStep_ = p.radialSpeed || p.roemer || p.delayBySpeed || p.delayByMass;
}

void TwoBodiesForm::start() {
    ModelState& s = lab.s;
    TwoBody& b = lab.twoBody;
    b = {};
    takeSettings();
    takeNumbers();
    b.Dt = Text22.number();
    b.kDt = Text23.int16();
    b.dAlfa = Text24.number();
    b.origin = Check1.on() ? 14 : 0;
    scales_ = {.time = Text6.number() * sekD,
               .Eks = Text43.number(),
               .AlfaP = Text44.number(),
               .Rsr = Text45.number(),
               .Period = Text46.number()};
    for (const double scale : {scales_.time, scales_.Eks, scales_.AlfaP, scales_.Rsr, scales_.Period})
        ratio(1, scale);
    ratio(1, b.Vgr);
    ratio(1, b.Dt);
    s.VXsys = Text31.number();
    s.VYsys = Text32.number();
    for (const int i : {0, 11}) {
        s.X[i] = s.X0[i], s.Y[i] = s.Y0[i], s.Z[i] = s.Z0[i];
        s.VX[i] = finite(s.VX0[i] + 1000 * s.VXsys), s.VY[i] = finite(s.VY0[i] + 1000 * s.VYsys),
        s.VZ[i] = s.VZ0[i];
    }
    startTwoBody(s, b);
    s.kodStop = 0;
    started_ = true;
    effectStart_ = lastReceived_ = 0;
    Picture1.text(-9.6, -4.8, "E0sys (Дж)=               " + toText(b.E0sys), black);
    Picture1.text(-9.6, -5.6, "M0sys (кг*м^2/с) =   " + toText(b.MKD0sys), black);
    showStart();
    for (const int i : {0, 11, 14}) s.XOld[i] = s.X[i], s.YOld[i] = s.Y[i], s.ZOld[i] = s.Z[i];
}

/// The baselines, with nothing measured yet.
void TwoBodiesForm::showStart() {
    const TwoBody& b = lab.twoBody;
    Text16.show(cut6(b.EksNach));
    Text19.show(cut6(b.AlfaPnach));
    Text27.show(cut6(b.AlfaUnach));
    Text30.show(cut6(b.RsrNach / MK));
    for (TextField* field : {&Text17, &Text18, &Text20, &Text26, &Text28, &Text29, &Text35, &Text38, &Text40,
                             &Text34, &Text33, &Text13, &Text15, &Text14, &Text47})
        field->show(0);
}

void TwoBodiesForm::loop() {
    if (!started_) throw Failure("no run to go on with");
    Running running(*this);
    do {
        takeSettings();
        runTwoBodyBatch(lab.s, lab.twoBody, *this);
        display();
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (desk().anyLoaded() && !gone_);
}

double TwoBodiesForm::plotX() const { return ratio(lab.twoBody.Tsec, scales_.time); }

void TwoBodiesForm::periodMeasured() {
    TwoBody& b = lab.twoBody;
    if (b.NZamer == 2) {
        Text40.show(cut6(b.Period / sekD));
        Text13.show(cut6(b.Period));
        if (b.fromNode) printDelays("P2");
    } else if (b.NZamer > 2) {
        Text34.show(cut6(b.Period / sekD));
        Text33.show(cut6((b.Period - b.PeriodNach) / sekD));
        Text15.show(cut6(b.Period));
        Text14.show(cut6(b.Period - b.PeriodNach));
        if (Check8.on()) Picture2.disc(plotX(), ratio(b.Period - b.PeriodNach, scales_.Period), 0.06, orange);
    }
}

/// The delays since the counting began, and their mean rates.
void TwoBodiesForm::printDelays(const std::string& period) {
    const TwoBody& b = lab.twoBody;
    const double T = b.Tsec - b.Tcount, bySpeed = ratio(b.dTv, T), byMass = ratio(b.dTm, T);
    note("dTv=  " + toText(b.dTv) + "   dTm=  " + toText(b.dTm));
    note("dTv/" + period + "=  " + toText(bySpeed) + "   dTm/" + period + "=  " + toText(byMass));
}

void TwoBodiesForm::nodePassed() {
    const TwoBody& b = lab.twoBody;
    Text28.show(cut6(b.AlfaU));
    Text29.show(cut6(b.AlfaU - b.AlfaUnach));
}

void TwoBodiesForm::periastronPassed() {
    ModelState& s = lab.s;
    TwoBody& b = lab.twoBody;
    Text47.show(b.NZamer);
    if (b.NZamer == 2) {
        if (Check10.on()) {
            takeBaselines(s, b);
            showStart();
            Picture2.line(plotX(), -8, plotX(), 8, red);
        }
        if (lab.pulsar.radialSpeed || lab.pulsar.roemer)
            note("Vmin=  " + toText(cut6(b.VYmin)) + "   Vmax=  " + toText(cut6(b.VYmax)) +
                 "   dTmin=  " + toText(cut6(b.Rem_min)) + "   dTmax=  " + toText(cut6(b.Rem_max)));
        if (!b.fromNode) printDelays("P1");
    }
    Text17.show(cut6(b.Eks));
    Text18.show(cut6(b.Eks - b.EksNach));
    Text20.show(cut6(b.AlfaP));
    Text26.show(cut6(b.AlfaP - b.AlfaPnach));
    Text35.show(cut6(s.Rr[11] / MK));
    Text38.show(cut6((s.Rr[11] - b.RsrNach) / MK));
    const double x = plotX();
    if (Check5.on()) Picture2.disc(x, ratio(b.Eks - b.EksNach, scales_.Eks), 0.06, blue);
    if (Check6.on()) Picture2.disc(x, ratio(b.AlfaP - b.AlfaPnach, scales_.AlfaP), 0.06, red);
    if (Check7.on()) Picture2.disc(x, ratio((s.Rr[11] - b.RsrNach) / MK, scales_.Rsr), 0.06, green);
}

/// The plots that have a point at every step.
void TwoBodiesForm::stepDone() {
    if (!anyPerStep_) return;
    const ModelState& s = lab.s;
    const TwoBody& b = lab.twoBody;
    const PulsarExtras& p = lab.pulsar;
    const double x = plotX();
    if (p.radialSpeed) Picture2.disc(x, p.signVY * s.VY[11] / p.radialScale + delayLine, 0.03, red);
    if (p.roemer) Picture2.disc(x, s.Y[11] / Vsv / p.roemerScale + delayLine, 0.03, blue);
    if (p.delayBySpeed) Picture2.disc(x, b.dTv / p.delayBySpeedScale + delayLine, 0.03, green);
    if (p.delayByMass) Picture2.disc(x, b.dTm / p.delayByMassScale + delayLine, 0.03, violet);
}

void TwoBodiesForm::display() {
    ModelState& s = lab.s;
    const TwoBody& b = lab.twoBody;
    Text25.show(cut6(b.Tsec / sekG));
    Text51.show(cut6(s.LonPl[11]));
    const double received = s.Y[11] / Vsv + b.Tsec;
    if (lab.pulsar.pulses && received != lastReceived_)
        Picture2.disc(plotX(),
                      (b.NC0 / (received - lastReceived_) - 1 / b.Dt) / lab.pulsar.pulsesScale + delayLine,
                      0.04, black);
    lastReceived_ = received;
    Text11.show(b.Ft1);
    Text41.show(ratio(100 * (b.Esys - b.E0sys), b.E0sys));
    Text42.show(ratio(100 * (b.MKDsys - b.MKD0sys), b.MKD0sys));
    if (!Check3.on()) {
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
        drawBodies(white, white);
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
    }
    for (const int i : {0, 11, 14}) s.XOld[i] = s.X[i], s.YOld[i] = s.Y[i], s.ZOld[i] = s.Z[i];
    drawBodies(m1Color, m2Color);
}

void TwoBodiesForm::drawBodies(Color first, Color second) {
    const ModelState& s = lab.s;
    const int from = Option1.on() || Option7.on() ? 14 : Option6.on() ? 0 : 15;
    const auto mark = [&](int row, double radius, Color color) {
        drawBothViews(Picture1, (s.X[row] - s.X[from]) / s.Mx, (s.Y[row] - s.Y[from]) / s.Mx,
                      (s.Z[row] - s.Z[from]) / s.Mx, radius, color);
    };
    mark(11, 0.08, first);
    if (Option7.on() || Option8.on() || Option6.on()) mark(0, 0.12, second);
    if (Check4.on())
        Picture1.cross((s.X[14] - s.X[from]) / s.Mx, (s.Y[14] - s.Y[from]) / s.Mx, 0.5,
                       first == white ? white : centreColor);
}

/// The speed of gravity begins to act at this moment.
void TwoBodiesForm::beginEffect() {
    if (!started_) return;
    TwoBody& b = lab.twoBody;
    if (Check10.on()) b.NZamer = 0;
    b.withVgr = true;
    Picture2.line(plotX(), -8, plotX(), 8, red);
    effectStart_ = b.Tsec;
    takeBaselines(lab.s, b);
    showStart();
}

/// It ends: what the orbit has gained, and at which rate.
void TwoBodiesForm::endEffect() {
    if (!started_) return;
    const ModelState& s = lab.s;
    TwoBody& b = lab.twoBody;
    b.withVgr = false;
    const double dT = b.Tsec - effectStart_, years = ratio(dT, sekG);
    ratio(1, years);
    Picture2.line(plotX(), -8, plotX(), 8, red);
    const auto rate = [&](const std::string& name, double now, double base, const std::string& unit) {
        note(name + "= ( " + toText(now) + " - " + toText(base) +
             " ) / dT = " + toText((now - base) / years) + unit);
    };
    note("dT=  " + toText(effectStart_) + " - " + toText(b.Tsec) + " = " + toText(dT) +
         "  сек = " + toText(cut6(years)) + " лет ");
    rate("dEks", b.Eks, b.EksNach, "  за год");
    rate("dAlfaP", b.AlfaP, b.AlfaPnach, "  град за год");
    rate("dRsr", s.Rr[11] / MK, b.RsrNach / MK, "  тыс.км за год");
    rate("dP", b.Period, b.PeriodNach, "  сек за год");
    if (b.Period > 0 && b.PeriodNach > 0) {
        const double base = 2 * Pi * sekG / b.PeriodNach, now = 2 * Pi * sekG / b.Period;
        note("dW= ( " + toText(now) + " - " + toText(base) + " ) / dT = " + toText((now - base) / years) +
             "  рад в год за год");
    }
}

}  // namespace tarvex
