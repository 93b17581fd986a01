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
    : TwoBodiesControls(lab_.desk, formName,
                        "   Tarvex7m4  - форма 25    Задача двух тел с учетом скорости гравитации"),
      lab(lab_) {
    const Shown badData = orShow("Задайте правильно данные", "Tarvex7m"),
                badRun = orShow("Ошибка решения уравнений", "Tarvex7mm");
    loadParameters.onPress(
        [this] {
            ModelState& s = lab.s;
            InitMassesSer0(s);
            s.mSol = s.m[rowSun];
            if (fromFile.on())
                loadFromFile();
            else if (fromTheory.on())
                loadFromTheory();
            else
                throw Failure("не выбрано, откуда данные: из файла или по теории");
        },
        badData);
    saveParameters.onPress([this] { saveFile(); }, badData);
    setInitialData.onPress([this] { setData(); }, badData);
    startRun.onPress(
        [this] {
            start();
            stage("Ошибка решения уравнений", "Tarvex7mm", [&] { loop(); });
        },
        orShow("Задайте правильно данные", "Tarvex7mm"));
    stopRun.onPress([this] { lab.s.kodStop = 1; });
    continueRun.onPress(
        [this] {
            lab.s.kodStop = 0;
            takeNumbers();
            loop();
        },
        badRun);
    clearDrawings.onPress([this] { clearPictures(); });
    for (Picture* one : {&orbitPicture, &shiftPlots}) one->onWipe([this] { clearPictures(); });
    opens(openPulsar, "Form26");
    step.onChange([this] {
        if (auto* const pulsar = loadedScreen<PulsarScreen>(desk())) pulsar->showPulseRate();
    });
    closeForm.onPress([this] { close(); });
    exactPassages.onChange([this] {
        stepDivider.setEnabled(!exactPassages.on());
        windowDegrees.setEnabled(!exactPassages.on());
    });
    effectOn.onChoose([this] { beginEffect(); }, badRun);
    effectOff.onChoose([this] { endEffect(); }, badRun);
    scaleBar.onChange([this] { showScale(); });
    layOut();
}

void TwoBodiesForm::load() { clearPictures(); }
void TwoBodiesForm::activate() { showScale(); }
void TwoBodiesForm::unload() { gone_ = true; }

void TwoBodiesForm::showScale() {
    lab.s.Mx = scaleBar.value() * 1000000.0;
    tellViews(orbitPicture, lab.s.Mx, sideView, inThousandKm);
    scaleLabel.setCaption("Масштаб изображения= " + toText(scaleBar.value()) + " тыс.км/см");
}

void TwoBodiesForm::clearPictures() {
    showScale();
    orbitPicture.setBackground(white);
    drawGrid(orbitPicture, {.cell = grey, .axis = axis});
    for (const int row : {rowM2, rowM1, int{rowCentre}})
        series_[row] = bodySeries(orbitPicture, row == rowM2 ? "m2" : row == rowM1 ? "m1" : "ЦМ");
    shiftPlots.setScale(0, 8, 24, -8);
    shiftPlots.clear();
    for (int x = 0; x <= 24; ++x) shiftPlots.line(x, -8, x, 8, grey);
    for (int y = -8; y <= 8; ++y) shiftPlots.line(0, y, 24, y, y == 0 || y == 4 ? axis : grey);
    noteLine_ = noteTop;
}

/// What the plots mean at the scales of a run, from now on.
void TwoBodiesForm::tellPlots() {
    const PulsarExtras& p = lab.pulsar;
    const Axis time = scaledAxis("время", "сут", scales_.time / sekD);
    const auto tell = [&](Plotted what, const char* name, const char* unit, double scale, double zero = 0) {
        shiftPlots.axes(what, {time, scaledAxis(name, unit, scale, zero)});
        plotted_[what] = shiftPlots.series({name, "", what, what});
    };
    tell(dEks, "dEks1", "", scales_.Eks);
    tell(dAlfaP, "dAlfaP1", "град", scales_.AlfaP);
    tell(dR, "dR1", "тыс. км", scales_.Rsr);
    tell(dP, "dP1", "сек", scales_.Period);
    tell(radialSpeed, "VY", "м/с", p.radialScale * p.signVY, delayLine);
    tell(roemer, "dT Ремера", "сек", p.roemerScale, delayLine);
    tell(delayBySpeed, "dTv", "сек", p.delayBySpeedScale, delayLine);
    tell(delayByMass, "dTm", "сек", p.delayByMassScale, delayLine);
    tell(pulses, "dF импульсов", "Гц", p.pulsesScale, delayLine);
}

/// Prints one line on the plots, each below the last.
void TwoBodiesForm::note(const std::string& text) {
    shiftPlots.text(0.2, noteLine_, text, black);
    noteLine_ -= noteStep;
    if (noteLine_ < -7.5) noteLine_ = noteTop;
}

void TwoBodiesForm::loadFromFile() {
    const std::string name = files::pulsar(pulsarFile.int16());
    PulsarData d;
    try {
        d = readPulsar(lab.tree.at(name));
    } catch (const OpenFailure&) {
        throw Refusal("Не могу найти файл " + name, "Tarvex7m");
    } catch (const FileFailure&) {
        throw Refusal("Ошибка чтения данных из файла " + name, "Tarvex7m");
    }
    mass1.show(d.m1);
    mass2.show(d.m2);
    eccentricity.show(d.Eks);
    periastronLongitude.show(d.AlfaP);
    inclination.show(d.Betta);
    semiMajorAxis.show(d.Rsr / MK);
    step.show(d.P0);
    for (TextField* field : {&nodeLongitude, &periodDaysStart, &periodStart}) field->show(0);
}

void TwoBodiesForm::loadFromTheory() {
    ModelState& s = lab.s;
    const std::int16_t i = theoryBody.int16();
    if (i < 1 || i > rowMoon || i == rowXena)
        throw SubscriptFailure("нет теории тела № " + std::to_string(i));
    mass1.show(cut12(s.m[i] / s.mSol));
    mass2.show(cut12(s.m[i == rowMoon ? rowEarth : rowSun] / s.mSol));
    s.JD = dateOfTheory;
    s.Ipl = i;
    ElementsSer0(s);
    for (Rows* angle : {&s.AlfaL, &s.AlfaP0, &s.AlfaU0}) (*angle)[i] = Frac1((*angle)[i] / 2 / Pi) * 2 * Pi;
    meanLongitude.show(cut6(s.AlfaL[i] * kUgol));
    eccentricity.show(cut6(s.Eks0[i]));
    periastronLongitude.show(cut6(s.AlfaP0[i] * kUgol));
    nodeLongitude.show(cut6(s.AlfaU0[i] * kUgol));
    semiMajorAxis.show(cut6(s.R0sr[i] / MK));
    inclination.show(cut6(s.Betta0[i] * kUgol));
}

void TwoBodiesForm::saveFile() {
    const std::string name =
        files::pulsar(stage("Задайте номер файла", "Tarvex7m", [&] { return pulsarFile.int16(); }));
    const PulsarData data{.m1 = mass1.number(),
                          .m2 = mass2.number(),
                          .Eks = eccentricity.number(),
                          .AlfaP = periastronLongitude.number(),
                          .Betta = inclination.number(),
                          .Rsr = semiMajorAxis.number() * MK,
                          .P0 = step.number()};
    stage("Ошибка записи в файл " + name, "Tarvex7m", [&] { writePulsar(lab.tree.at(name), data); });
    std::string lost;
    if (data.m1 != 0 && Fix(MK * data.m1) == 0) lost = "m1";
    if (data.m2 != 0 && Fix(MK * data.m2) == 0) lost += lost.empty() ? "m2" : " и m2";
    if (!lost.empty()) setStatus("В файле масса " + lost + " меньше 0,000001 Msol и записана нулем");
}

void TwoBodiesForm::setData() {
    ModelState& s = lab.s;
    s.IplSel = rowM1;
    s.kodMoon = 1;
    s.kodBary = codeOf(barycentricElements.on() ? CentralMass::AboutCentre : CentralMass::Pair);
    s.AlfaL[rowM1] = meanLongitude.number() / kUgol;
    s.Eks0[rowM1] = eccentricity.number();
    s.AlfaP0[rowM1] = periastronLongitude.number() / kUgol;
    s.AlfaU0[rowM1] = nodeLongitude.number() / kUgol;
    s.R0sr[rowM1] = semiMajorAxis.number() * MK;
    s.Betta0[rowM1] = inclination.number() / kUgol;
    s.km[cellMass1] = mass1.number();
    s.km[cellMass2] = mass2.number();
    s.m[cellMass1] = s.mSol * s.km[cellMass1];
    s.m[cellMass2] = s.mSol * s.km[cellMass2];
    twoBodyInitialData(s);
    clearPictures();
    twoBodyCentre(s);
    drawBodies(m1Color, m2Color);
    orbitPicture.text(-9.6, -6.4,
                      "X1  Y1  Z1 (тыс.км)=  " +
                          threeNumbers(s.X0[rowM1] / MK, s.Y0[rowM1] / MK, s.Z0[rowM1] / MK, "000000.00"),
                      black);
    orbitPicture.text(-9.6, -7.2,
                      "X2  Y2  Z2 (тыс.км)=  " +
                          threeNumbers(s.X0[rowM2] / MK, s.Y0[rowM2] / MK, s.Z0[rowM2] / MK, "000000.00"),
                      black);
    orbitPicture.text(
        -9.6, -8,
        "VX1 VY1 VZ1 (м/с)=  " + threeNumbers(s.VX0[rowM1], s.VY0[rowM1], s.VZ0[rowM1], "0000.0000"), black);
    orbitPicture.text(
        -9.6, -8.8,
        "VX2 VY2 VZ2 (м/с)=  " + threeNumbers(s.VX0[rowM2], s.VY0[rowM2], s.VZ0[rowM2], "0000.0000"), black);
}

/// What a run reads where it begins or goes on after a stop.
void TwoBodiesForm::takeNumbers() {
    lab.twoBody.Vgr = gravitySpeed.number() * Vsv;
    lab.twoBody.NC0 = stepsPerDisplay.int16();
}

/// What may change while a run goes on.
void TwoBodiesForm::takeSettings() {
    TwoBody& b = lab.twoBody;
    const PulsarExtras& p = lab.pulsar;
    b.withVgr = effectOn.on();
    b.source = forceByRetardation.on() ? TwoBody::Ft::ByRetardation
               : forceByFormula.on()   ? TwoBody::Ft::ByFormula
                                       : TwoBody::Ft::Given;
    b.FtGiven = forceGiven.on() ? givenForce.number() : 0;
    b.byOtherSpeed = forceByOtherSpeed.on();
    b.alsoOnM2 = forceOnM2.on();
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
    b.Dt = step.number();
    b.kDt = stepDivider.int16();
    b.dAlfa = windowDegrees.number();
    b.exact = exactPassages.on();
    b.origin = longitudesFromBarycentre.on() ? int{rowCentre} : rowM2;
    scales_ = {.time = timeScale.number() * sekD,
               .Eks = eccentricityScale.number(),
               .AlfaP = periastronScale.number(),
               .Rsr = axisScale.number(),
               .Period = periodScale.number()};
    for (const double scale : {scales_.time, scales_.Eks, scales_.AlfaP, scales_.Rsr, scales_.Period})
        ratio(1, scale);
    ratio(1, b.Vgr);
    ratio(1, b.Dt);
    s.VXsys = systemSpeedX.number();
    s.VYsys = systemSpeedY.number();
    for (const int i : {rowM2, rowM1}) {
        s.X[i] = s.X0[i], s.Y[i] = s.Y0[i], s.Z[i] = s.Z0[i];
        s.VX[i] = finite(s.VX0[i] + 1000 * s.VXsys), s.VY[i] = finite(s.VY0[i] + 1000 * s.VYsys),
        s.VZ[i] = s.VZ0[i];
    }
    startTwoBody(s, b);
    s.kodStop = 0;
    started_ = true;
    effectStart_ = lastReceived_ = 0;
    orbitPicture.text(-9.6, -4.8, "E0sys (Дж)=               " + toText(b.E0sys), black);
    orbitPicture.text(-9.6, -5.6, "M0sys (кг*м^2/с) =   " + toText(b.MKD0sys), black);
    showStart();
    for (const int i : {rowM2, rowM1, int{rowCentre}})
        s.XOld[i] = s.X[i], s.YOld[i] = s.Y[i], s.ZOld[i] = s.Z[i];
}

/// The baselines, with nothing measured yet.
void TwoBodiesForm::showStart() {
    const TwoBody& b = lab.twoBody;
    eccentricityStart.show(cut6(b.EksNach));
    periastronStart.show(cut6(b.AlfaPnach));
    nodeStart.show(cut6(b.AlfaUnach));
    axisStart.show(cut6(b.RsrNach / MK));
    for (TextField* field : {&eccentricityNow, &eccentricityShift, &periastronNow, &periastronShift, &nodeNow,
                             &nodeShift, &axisNow, &axisShift, &periodDaysStart, &periodDaysNow,
                             &periodDaysShift, &periodStart, &periodNow, &periodShift, &revolutions})
        field->show(0);
}

void TwoBodiesForm::loop() {
    if (!started_) throw Failure("счет еще не начат");
    Running running(*this);
    tellPlots();
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
        periodDaysStart.show(cut6(b.Period / sekD));
        periodStart.show(cut6(b.Period));
        if (b.fromNode) printDelays("P2");
    } else if (b.NZamer > 2) {
        periodDaysNow.show(cut6(b.Period / sekD));
        periodDaysShift.show(cut6((b.Period - b.PeriodNach) / sekD));
        periodNow.show(cut6(b.Period));
        periodShift.show(cut6(b.Period - b.PeriodNach));
        if (plotPeriod.on())
            shiftPlots.as(plotted_[dP])
                .disc(plotX(), ratio(b.Period - b.PeriodNach, scales_.Period), 0.06, orange);
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
    nodeNow.show(cut6(b.AlfaU));
    nodeShift.show(cut6(b.AlfaU - b.AlfaUnach));
}

void TwoBodiesForm::periastronPassed() {
    ModelState& s = lab.s;
    TwoBody& b = lab.twoBody;
    revolutions.show(b.NZamer);
    if (b.NZamer == 2) {
        if (restartBaselines.on()) {
            takeBaselines(s, b);
            showStart();
            shiftPlots.line(plotX(), -8, plotX(), 8, red);
        }
        if (lab.pulsar.radialSpeed || lab.pulsar.roemer)
            note("Vmin=  " + toText(cut6(b.VYmin)) + "   Vmax=  " + toText(cut6(b.VYmax)) +
                 "   dTmin=  " + toText(cut6(b.Rem_min)) + "   dTmax=  " + toText(cut6(b.Rem_max)));
        if (!b.fromNode) printDelays("P1");
    }
    eccentricityNow.show(cut6(b.Eks));
    eccentricityShift.show(cut6(b.Eks - b.EksNach));
    periastronNow.show(cut6(b.AlfaP));
    periastronShift.show(cut6(b.AlfaP - b.AlfaPnach));
    axisNow.show(cut6(s.Rr[rowM1] / MK));
    axisShift.show(cut6((s.Rr[rowM1] - b.RsrNach) / MK));
    const double x = plotX();
    if (plotEccentricity.on())
        shiftPlots.as(plotted_[dEks]).disc(x, ratio(b.Eks - b.EksNach, scales_.Eks), 0.06, blue);
    if (plotPeriastron.on())
        shiftPlots.as(plotted_[dAlfaP]).disc(x, ratio(b.AlfaP - b.AlfaPnach, scales_.AlfaP), 0.06, red);
    if (plotAxis.on())
        shiftPlots.as(plotted_[dR]).disc(x, ratio((s.Rr[rowM1] - b.RsrNach) / MK, scales_.Rsr), 0.06, green);
}

/// The plots that have a point at every step.
void TwoBodiesForm::stepDone() {
    if (!anyPerStep_) return;
    const ModelState& s = lab.s;
    const TwoBody& b = lab.twoBody;
    const PulsarExtras& p = lab.pulsar;
    const double x = plotX();
    if (p.radialSpeed)
        shiftPlots.as(plotted_[radialSpeed])
            .disc(x, p.signVY * s.VY[rowM1] / p.radialScale + delayLine, 0.03, red);
    if (p.roemer)
        shiftPlots.as(plotted_[roemer]).disc(x, s.Y[rowM1] / Vsv / p.roemerScale + delayLine, 0.03, blue);
    if (p.delayBySpeed)
        shiftPlots.as(plotted_[delayBySpeed]).disc(x, b.dTv / p.delayBySpeedScale + delayLine, 0.03, green);
    if (p.delayByMass)
        shiftPlots.as(plotted_[delayByMass]).disc(x, b.dTm / p.delayByMassScale + delayLine, 0.03, violet);
}

void TwoBodiesForm::display() {
    ModelState& s = lab.s;
    const TwoBody& b = lab.twoBody;
    elapsedYears.show(cut6(b.Tsec / sekG));
    longitude.show(cut6(s.LonPl[rowM1]));
    const double received = s.Y[rowM1] / Vsv + b.Tsec;
    if (lab.pulsar.pulses && received != lastReceived_)
        shiftPlots.as(plotted_[pulses])
            .disc(plotX(),
                  (b.NC0 / (received - lastReceived_) - 1 / b.Dt) / lab.pulsar.pulsesScale + delayLine, 0.04,
                  black);
    lastReceived_ = received;
    forceOnM1.show(b.Ft1);
    energyChange.show(cut6(ratio(100 * (b.Esys - b.E0sys), b.E0sys)));
    momentumChange.show(cut6(ratio(100 * (b.MKDsys - b.MKD0sys), b.MKD0sys)));
    if (!keepTracks.on()) {
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
        drawBodies(white, white);
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
    }
    for (const int i : {rowM2, rowM1, int{rowCentre}})
        s.XOld[i] = s.X[i], s.YOld[i] = s.Y[i], s.ZOld[i] = s.Z[i];
    drawBodies(m1Color, m2Color);
}

void TwoBodiesForm::drawBodies(Color first, Color second) {
    const ModelState& s = lab.s;
    const int from = showM1FromBarycentre.on() || showBothFromBarycentre.on() ? int{rowCentre}
                     : showM1FromM2.on()                                      ? rowM2
                                                                              : int{rowOrigin};
    const auto mark = [&](int row, double radius, Color color) {
        drawBothViews(orbitPicture, (s.X[row] - s.X[from]) / s.Mx, (s.Y[row] - s.Y[from]) / s.Mx,
                      (s.Z[row] - s.Z[from]) / s.Mx, radius, color, series_[row]);
    };
    mark(rowM1, 0.08, first);
    if (showBothFromBarycentre.on() || showBothFromOrigin.on() || showM1FromM2.on())
        mark(rowM2, 0.12, second);
    if (showBarycentre.on())
        orbitPicture.cross((s.X[rowCentre] - s.X[from]) / s.Mx, (s.Y[rowCentre] - s.Y[from]) / s.Mx, 0.5,
                           first == white ? white : centreColor);
}

/// The speed of gravity begins to act at this moment.
void TwoBodiesForm::beginEffect() {
    if (!started_) return;
    TwoBody& b = lab.twoBody;
    if (restartBaselines.on()) b.NZamer = 0;
    b.withVgr = true;
    shiftPlots.line(plotX(), -8, plotX(), 8, red);
    effectStart_ = b.Tsec;
    takeBaselines(lab.s, b);
    showStart();
}

/// It ends: what the orbit has gained, and at which rate.
void TwoBodiesForm::endEffect() {
    if (!started_) throw Failure("расчет не начат");
    const ModelState& s = lab.s;
    TwoBody& b = lab.twoBody;
    b.withVgr = false;
    const double dT = b.Tsec - effectStart_, years = ratio(dT, sekG);
    ratio(1, years);
    shiftPlots.line(plotX(), -8, plotX(), 8, red);
    const auto rate = [&](const std::string& name, double now, double base, const std::string& unit) {
        note(name + "= ( " + toText(now) + " - " + toText(base) +
             " ) / dT = " + toText((now - base) / years) + unit);
    };
    note("dT=  " + toText(effectStart_) + " - " + toText(b.Tsec) + " = " + toText(dT) +
         "  сек = " + toText(cut6(years)) + " лет ");
    rate("dEks", b.Eks, b.EksNach, "  за год");
    rate("dAlfaP", b.AlfaP, b.AlfaPnach, "  град за год");
    rate("dRsr", s.Rr[rowM1] / MK, b.RsrNach / MK, "  тыс.км за год");
    rate("dP", b.Period, b.PeriodNach, "  сек за год");
    if (b.Period > 0 && b.PeriodNach > 0) {
        const double base = 2 * Pi * sekG / b.PeriodNach, now = 2 * Pi * sekG / b.Period;
        note("dW= ( " + toText(base) + " - " + toText(now) + " ) / dT = " + toText((now - base) / years) +
             "  рад в год за год");
    }
}

}  // namespace tarvex
