// The experiment screen: what a run shows on its fields and pictures.

#include <algorithm>

#include "core/arithmetic.h"
#include "forms/plot_grid.h"
#include "forms/run_form.h"

namespace tarvex {

namespace {

constexpr Color black{0, 0, 0}, red{255, 0, 0}, blue{0, 0, 255}, green{0, 250, 0}, pale{200, 200, 200};
constexpr double markerRadius = 0.06, viewRadius = 0.05, pointRadius = 0.02;
constexpr double viewHalf = 5;  ///< the system view runs from -5 to 5

/// Places of the lines printed on the plot.
enum NotePlace : int { noteTrace = 0, noteTop = 10, noteFoot = 20, noteDebug = 30 };

void showDateIn(const ModelState& s, TextField& year, TextField& month, TextField& day) {
    year.show(s.GodR);
    month.show(s.MesR);
    day.show(cut6(s.DenR));
}

}  // namespace

// ------------------------------------------------------------------ fields

void RunForm::showStartElements() {
    const RunState& run = lab.run;
    const auto both = [](TextField& start, TextField& now, double v) {
        start.show(cut6(v));
        now.show(cut6(v));
    };
    both(perihelionStart, perihelionNow, run.AlfaP);
    both(nodeStart, nodeNow, run.AlfaU);
    both(inclinationStart, inclinationNow, run.Betta * kUgol);
    both(eccentricityStart, eccentricityNow, run.Eks);
    both(semiAxisStart, semiAxisNow, lab.s.Rr[lab.s.IplSel] / MK);
}

void RunForm::passed(const Passage& seen) {
    const RunState& run = lab.run;
    if (seen.periodRenewed) periodStart.show(cut6(run.PeriodNach));
    if (seen.node) {
        nodeNow.show(cut6(run.AlfaU));
        nodeShift.show(cut6((run.AlfaU - run.AlfaUnach) * 3600));
        if (seen.ascending) showDateIn(lab.s, nodeYear, nodeMonth, nodeDay);
    }
    if (!seen.apse) return;
    if (seen.first) {
        perihelionStart.show(cut6(run.AlfaP));
        perihelionNow.show(cut6(run.AlfaP));
    } else {
        if (seen.baselinesRenewed) {
            nodeStart.show(cut6(run.AlfaUnach));
            inclinationStart.show(cut6(run.BettaNach * kUgol));
            eccentricityStart.show(cut6(run.EksNach));
            semiAxisStart.show(cut6(run.RsrNach / MK));
        }
        showShifts();
        plotShifts();
    }
    if (!seen.turnCounted) return;
    turns.show(run.NZamer);
    showDateIn(lab.s, perihelionYear, perihelionMonth, perihelionDay);
}

void RunForm::showShifts() {
    const RunState& run = lab.run;
    const double Rsr = lab.s.Rr[lab.s.IplSel];
    perihelionNow.show(cut6(run.AlfaP));
    perihelionShift.show(cut6((run.AlfaP - run.AlfaPnach) * 3600));
    inclinationNow.show(cut6(run.Betta * kUgol));
    inclinationShift.show(cut6(3600 * kUgol * (run.Betta - run.BettaNach)));
    eccentricityNow.show(cut6(run.Eks));
    eccentricityShift.show(cut6(run.Eks - run.EksNach));
    semiAxisNow.show(cut6(Rsr / MK));
    semiAxisShift.show(cut6((Rsr - run.RsrNach) / MK));
    periodNow.show(cut6(run.Period));
    periodShift.show(cut6(run.Period - run.PeriodNach));
}

void RunForm::showDate() {
    const ModelState& s = lab.s;
    const RunState& run = lab.run;
    modelTime.show(Fix((run.Tsec - s.DtCur) * 100 / sekG) / 100);
    realTime.show(Fix((clockSeconds() - run.TimerStart) * 1000 / 3600) / 1000);
    showDateIn(s, year, month, day);
    julianDate.show(cut6(s.JD));
    longitude.show(Fix(1000 * s.LonPl[s.IplSel]) / 1000);
    progress(run.boxes.endAtYear ? shareDone(lab.experiment()) : endless);
}

bool RunForm::giveWay() {
    const RunPause pause(lab.experiment());
    const int runs = runs_;
    desk().yield();
    if (gone_ || !desk().anyLoaded()) return false;
    if (runs == runs_)
        pause.end(lab.experiment());  // unless the run was begun anew, or gone on with, meanwhile
    return true;
}

// ------------------------------------------------------------------ plots

double RunForm::timeOnPlot() const { return ratio(lab.run.Tsec / sekG, lab.run.MT) - 10; }

void RunForm::point(Plotted what, bool on, double value, double scale, Color color) {
    if (on)
        orbitPicture.as(plotted_[what])
            .disc(timeOnPlot(), ratio(value, scale) + lab.run.dYplot, pointRadius, color);
}

void RunForm::plotShifts() {
    const RunState& run = lab.run;
    const Color color = bodyColor(lab.s, lab.s.IplSel);
    const double Rsr = lab.s.Rr[lab.s.IplSel];
    point(plotPerihelion, drawPerihelion.on(), (run.AlfaP - run.AlfaPnach) * 3600, run.MdAlfa, color);
    point(plotNode, drawNode.on(), (run.AlfaU - run.AlfaUnach) * 3600, run.MdAlfa, color);
    point(plotInclination, drawInclination.on(), 3600 * kUgol * (run.Betta - run.BettaNach), run.MdAlfa,
          color);
    point(plotEccentricity, drawEccentricity.on(), (run.Eks - run.EksNach) * run.MxPlot, 1,
          color);  // this scale multiplies
    point(plotSemiAxis, drawSemiAxis.on(), (Rsr - run.RsrNach) / MK, run.MxPlot, color);
    point(plotPeriod, drawPeriod.on(), run.Period - run.PeriodNach, 1, color);
}

void RunForm::showTrack() {
    const ModelState& s = lab.s;
    double X = s.X[rowCentre], Y = s.Y[rowCentre], Z = s.Z[rowCentre];
    if (lab.motion.kodXcm == 0) {
        X = s.X[s.IplSel] - s.X[s.Icentr];
        Y = s.Y[s.IplSel] - s.Y[s.Icentr];
        Z = s.Z[s.IplSel] - s.Z[s.Icentr];
    }
    bodyX.show(cut6(X / MK));
    bodyY.show(cut6(Y / MK));
    bodyZ.show(cut6(Z / MK));
    point(plotX, drawX.on(), X / MK, lab.run.MxPlot, red);
    point(plotY, drawY.on(), Y / MK, lab.run.MxPlot, blue);
    point(plotZ, drawZ.on(), Z / MK, lab.run.MxPlot, green);
    if (lab.run.boxes.debugText) showDebugText();
}

void RunForm::showEnergy() {
    const RunState& run = lab.run;
    const double dE = ratio((run.Esys - run.E0sys) * 100, run.E0sys);
    const double dM = ratio((run.MKDsys - run.MKD0sys) * 100, run.MKD0sys);
    energyShift.show(cut6(dE));
    momentumShift.show(cut6(dM));
    orbitPicture.as(plotted_[plotEnergy])
        .circle(timeOnPlot(), ratio(dE, run.MxPlot) + run.dYplot, pointRadius, red);
    orbitPicture.as(plotted_[plotMomentum])
        .circle(timeOnPlot(), ratio(dM, run.MxPlot) + run.dYplot, pointRadius, blue);
}

/// What the pictures mean at the scale of the bodies.
void RunForm::tellAxes() {
    const double view = lab.run.MxView / inMillionKm.metres;
    tellViews(orbitPicture, lab.s.Mx, sideView);
    systemView.axes(layerPlane, {scaledAxis("X", inMillionKm.name, view, -viewX_),
                                 scaledAxis("Y", inMillionKm.name, view, -viewY_)});
    for (int i = 0; i < bodies; ++i) {
        bodies_[i] = bodySeries(orbitPicture, bodyName(i));
        viewed_[i] = systemView.series({.quantity = bodyName(i)});
    }
}

/// What the plots of a run mean at its scales, from now on.
void RunForm::tellPlots() {
    const FlagsKept flags;  // a plot that is off never reads its scale: one of 0 is no failure here
    const RunState& run = lab.run;
    const Axis time = yearAxis(lab.s.JDstart + run.Tmod / sekD, run.Tsec / sekG / run.MT - 10,
                               run.MT * sekG / sekD * run.kodTime);
    const std::string name = "эксп. " + experimentNumber.text();
    const auto tell = [&](Plotted what, const char* quantity, const char* unit, double scale,
                          const char* sign = "") {
        const int layer = static_cast<int>(layersAfterViews) + what;
        orbitPicture.axes(layer, {time, scaledAxis(quantity, unit, scale, run.dYplot, sign)});
        plotted_[what] = orbitPicture.series({quantity, name, layer, what, runsShown_});
    };
    tell(plotPerihelion, "dAlfaP", "сек", run.MdAlfa, "\"");
    tell(plotNode, "dAlfaU", "сек", run.MdAlfa, "\"");
    tell(plotInclination, "dBetta", "сек", run.MdAlfa, "\"");
    tell(plotEccentricity, "dEks", "", run.MxPlot != 0 ? 1 / run.MxPlot : 0);  // this scale multiplies
    tell(plotSemiAxis, "dRsr", inThousandKm.name, run.MxPlot);
    tell(plotPeriod, "dP", "сут", 1);
    tell(plotX, "X", inThousandKm.name, run.MxPlot);
    tell(plotY, "Y", inThousandKm.name, run.MxPlot);
    tell(plotZ, "Z", inThousandKm.name, run.MxPlot);
    tell(plotEnergy, "dEsys", "%", run.MxPlot, "%");
    tell(plotMomentum, "dMsys", "%", run.MxPlot, "%");
}

// ------------------------------------------------------------------ bodies

void RunForm::clearPictures() {
    GridStyle style{.cell = {70, 70, 70}, .axis = {100, 100, 100}};
    style.axesY.push_back(lab.run.dYplot);
    drawGrid(orbitPicture, style);
    notes_.clear();
    runsShown_ = 0;
    clearView();
}

void RunForm::clearView() {
    systemView.setScale(-viewHalf, viewHalf, viewHalf, -viewHalf);
    systemView.clear();
    tellAxes();
}

/// Markers of the ticked bodies at XOld, YOld, ZOld: at half strength below the ecliptic, or in black, which
/// wipes what was drawn there.
void RunForm::drawMarkers(bool wipe) {
    const ModelState& s = lab.s;
    for (int i = 0; i < bodies; ++i) {
        if (s.kodPl[i] == 0) continue;
        const Color color = wipe ? black : bodyColor(s, i, s.ZOld[i] < 0 ? 0.5 : 1);
        drawBothViews(orbitPicture, ratio(s.XOld[i], s.Mx), ratio(s.YOld[i], s.Mx), ratio(s.ZOld[i], s.Mx),
                      markerRadius, color, bodies_[i]);
        systemView.as(viewed_[i])
            .disc((s.XOld[i] - s.XOld[0]) / lab.run.MxView - viewX_,
                  (s.YOld[i] - s.YOld[0]) / lab.run.MxView - viewY_, viewRadius, color);
    }
}

void RunForm::drawBodies() {
    ModelState& s = lab.s;
    if (!keepTrajectories.on()) eraseBodies();
    for (int i = 0; i < bodies; ++i) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    drawMarkers();
}

void RunForm::rescale() {
    eraseBodies();
    lab.s.Mx = 100000. * 1000 * orbitScale.value();
    tellAxes();
    orbitScaleLabel.setCaption("Масштаб = " + toText(orbitScale.value() / 10.) + " млн.км/см");
    drawMarkers();
}

// ------------------------------------------------------------------ texts on the plot

void RunForm::note(int place, double x, double y, const std::string& text) {
    std::string& shown = notes_[place];
    if (!shown.empty()) orbitPicture.text(x, y, shown, black);
    shown = text;
    if (!shown.empty()) orbitPicture.text(x, y, shown, pale);
}

void RunForm::showNotes(const StartNotes& notes) {
    constexpr double left = -9.8, line = 0.55, top = 9.9, foot = -7.6, trace = 8.6;
    if (!notes.trace.empty()) note(noteTrace, left, trace, notes.trace);
    for (std::size_t k = 0; k < notes.top.size(); ++k)
        note(noteTop + static_cast<int>(k), left, top - line * static_cast<double>(k), notes.top[k]);
    for (std::size_t k = 0; k < notes.foot.size(); ++k)
        note(noteFoot + static_cast<int>(k), left, foot - line * static_cast<double>(k), notes.foot[k]);
}

void RunForm::showDebugText() {
    const Motion& m = lab.motion;
    const PairDebug &a = m.debug12, &b = m.debug21;
    constexpr double left = -9.8, top = 8, line = 0.55;
    const int iterations = m.kodVgr != 0 && m.kodDX != 0 ? 2 : 0;
    const std::string lines[] = {
        "X1= " + toText(a.X),
        "X1zap= " + toText(a.Xzap),
        "VX1= " + toText(a.VX),
        "VX1zap=  " + toText(a.VXzap),
        "F12= " + toText(a.F),
        " R12= " + toText(a.R),
        " T12= " + toText(a.T),
        "Betta12=  " + toText(a.Betta),
        "Alfa12=   " + toText(a.Alfa),
        "dV1=  " + toText(a.dV1),
        "dV2=  " + toText(a.dV2),
        "FX12= " + toText(a.FX),
        "X2= " + toText(b.X),
        "X2zap= " + toText(b.Xzap),
        "VX2= " + toText(b.VX),
        "VX2zap=  " + toText(b.VXzap),
        "F21= " + toText(b.F),
        " R21= " + toText(b.R),
        " T21= " + toText(b.T),
        "Betta21=  " + toText(b.Betta),
        "Alfa21=   " + toText(b.Alfa),
        "dV1=  " + toText(b.dV1),
        "dV2=  " + toText(b.dV2),
        "FX21= " + toText(b.FX),
        " число итераций DX= " + toText(iterations) + "   N1=  " + toText(m.N1) + "  N2=  " + toText(m.N2)};
    int place = noteDebug;
    for (const std::string& text : lines) {
        note(place, left, top - line * (place - noteDebug), text);
        ++place;
    }
}

}  // namespace tarvex
