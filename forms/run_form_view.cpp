// Form2: what a run shows on its fields and pictures.

#include <algorithm>

#include "core/arithmetic.h"
#include "forms/plot_grid.h"
#include "forms/run_form.h"

namespace tarvex {

namespace {

constexpr Color black{0, 0, 0}, red{255, 0, 0}, blue{0, 0, 255}, green{0, 250, 0}, pale{200, 200, 200};
constexpr double markerRadius = 0.06, viewRadius = 0.05, pointRadius = 0.02;
constexpr double viewHalf = 5;  ///< the second picture runs from -5 to 5

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
    both(Text3, Text4, run.AlfaP);
    both(Text7, Text24, run.AlfaU);
    both(Text6, Text22, run.Betta * kUgol);
    both(Text20, Text18, run.Eks);
    both(Text46, Text47, lab.s.Rr[lab.s.IplSel] / MK);
}

void RunForm::passed(const Passage& seen) {
    const RunState& run = lab.run;
    if (seen.periodRenewed) Text48.show(cut6(run.PeriodNach));
    if (seen.node) {
        Text24.show(cut6(run.AlfaU));
        Text23.show(cut6((run.AlfaU - run.AlfaUnach) * 3600));
        if (seen.ascending) showDateIn(lab.s, Text33, Text32, Text31);
    }
    if (!seen.apse) return;
    if (seen.first) {
        Text3.show(cut6(run.AlfaP));
        Text4.show(cut6(run.AlfaP));
    } else {
        if (seen.baselinesRenewed) {
            Text7.show(cut6(run.AlfaUnach));
            Text6.show(cut6(run.BettaNach * kUgol));
            Text20.show(cut6(run.EksNach));
            Text46.show(cut6(run.RsrNach / MK));
        }
        showShifts();
        plotShifts();
    }
    if (!seen.turnCounted) return;
    Text34.show(run.NZamer);
    showDateIn(lab.s, Text28, Text27, Text26);
}

void RunForm::showShifts() {
    const RunState& run = lab.run;
    const double Rsr = lab.s.Rr[lab.s.IplSel];
    Text4.show(cut6(run.AlfaP));
    Text25.show(cut6((run.AlfaP - run.AlfaPnach) * 3600));
    Text22.show(cut6(run.Betta * kUgol));
    Text16.show(cut6(3600 * kUgol * (run.Betta - run.BettaNach)));
    Text18.show(cut6(run.Eks));
    Text29.show(cut6(run.Eks - run.EksNach));
    Text47.show(cut6(Rsr / MK));
    Text10.show(cut6((Rsr - run.RsrNach) / MK));
    Text49.show(cut6(run.Period));
    Text15.show(cut6(run.Period - run.PeriodNach));
}

void RunForm::showDate() {
    const ModelState& s = lab.s;
    const RunState& run = lab.run;
    Text1.show(Fix((run.Tsec - s.DtCur) * 100 / sekG) / 100);
    Text50.show(Fix((clockSeconds() - run.TimerStart) * 1000 / 3600) / 1000);
    showDateIn(s, Text44, Text43, Text42);
    Text14.show(cut6(s.JD));
    Text2.show(Fix(1000 * s.LonPl[s.IplSel]) / 1000);
    progress(run.boxes.endAtYear ? shareDone() : endless);
}

/// Share of the run that ends with its year.
double RunForm::shareDone() const {
    const RunState& run = lab.run;
    const double begun = lab.s.God0 + (lab.s.Mes0 - 1) / 12.;
    const double all = (run.GodEnd + 1 - begun) * sekG;
    return all > 0 ? std::clamp(run.Tsec / all, 0., 1.) : 0;
}

bool RunForm::giveWay() {
    desk().yield();
    return !gone_ && desk().anyLoaded();
}

// ------------------------------------------------------------------ plots

double RunForm::plotX() const { return ratio(lab.run.Tsec / sekG, lab.run.MT) - 10; }

void RunForm::point(bool on, double value, double scale, Color color) {
    if (on) Picture1.disc(plotX(), ratio(value, scale) + lab.run.dYplot, pointRadius, color);
}

void RunForm::plotShifts() {
    const RunState& run = lab.run;
    const Color color = bodyColor(lab.s, lab.s.IplSel);
    const double Rsr = lab.s.Rr[lab.s.IplSel];
    point(Check8.on(), (run.AlfaP - run.AlfaPnach) * 3600, run.MdAlfa, color);
    point(Check9.on(), (run.AlfaU - run.AlfaUnach) * 3600, run.MdAlfa, color);
    point(Check10.on(), 3600 * kUgol * (run.Betta - run.BettaNach), run.MdAlfa, color);
    point(Check11.on(), (run.Eks - run.EksNach) * run.MxPlot, 1, color);  // multiplied: meant
    point(Check15.on(), (Rsr - run.RsrNach) / MK, run.MxPlot, color);
    point(Check16.on(), run.Period - run.PeriodNach, 1, color);
}

void RunForm::showTrack() {
    const ModelState& s = lab.s;
    double X = s.X[rowCentre], Y = s.Y[rowCentre], Z = s.Z[rowCentre];
    if (lab.motion.kodXcm == 0) {
        X = s.X[s.IplSel] - s.X[s.Icentr];
        Y = s.Y[s.IplSel] - s.Y[s.Icentr];
        Z = s.Z[s.IplSel] - s.Z[s.Icentr];
    }
    Text11.show(cut6(X / MK));
    Text12.show(cut6(Y / MK));
    Text30.show(cut6(Z / MK));
    point(Check5.on(), X / MK, lab.run.MxPlot, red);
    point(Check6.on(), Y / MK, lab.run.MxPlot, blue);
    point(Check7.on(), Z / MK, lab.run.MxPlot, green);
    if (lab.run.boxes.debugText) showDebugText();
}

void RunForm::showEnergy() {
    const RunState& run = lab.run;
    const double dE = ratio((run.Esys - run.E0sys) * 100, run.E0sys);
    const double dM = ratio((run.MKDsys - run.MKD0sys) * 100, run.MKD0sys);
    Text19.show(cut6(dE));
    Text41.show(cut6(dM));
    Picture1.circle(plotX(), ratio(dE, run.MxPlot) + run.dYplot, pointRadius, red);
    Picture1.circle(plotX(), ratio(dM, run.MxPlot) + run.dYplot, pointRadius, blue);
}

// ------------------------------------------------------------------ bodies

void RunForm::clearPictures() {
    GridStyle style{.cell = {70, 70, 70}, .axis = {100, 100, 100}};
    style.axesY.push_back(lab.run.dYplot);
    drawGrid(Picture1, style);
    notes_.clear();
    clearView();
}

void RunForm::clearView() {
    Picture2.setScale(-viewHalf, viewHalf, viewHalf, -viewHalf);
    Picture2.clear();
}

/// Old markers in black, where the bodies were last drawn.
void RunForm::eraseBodies() {
    const ModelState& s = lab.s;
    for (int i = 0; i < bodies; ++i) {
        if (s.kodPl[i] == 0) continue;
        drawBothViews(Picture1, ratio(s.XOld[i], s.Mx), ratio(s.YOld[i], s.Mx), ratio(s.ZOld[i], s.Mx),
                      markerRadius, black);
        Picture2.disc((s.XOld[i] - s.XOld[0]) / lab.run.MxView - viewX_,
                      (s.YOld[i] - s.YOld[0]) / lab.run.MxView - viewY_, viewRadius, black);
    }
}

/// Markers of the ticked bodies at XOld, YOld, ZOld, at half strength below the ecliptic.
void RunForm::drawMarkers() {
    const ModelState& s = lab.s;
    for (int i = 0; i < bodies; ++i) {
        if (s.kodPl[i] == 0) continue;
        const Color color = bodyColor(s, i, s.ZOld[i] < 0 ? 0.5 : 1);
        drawBothViews(Picture1, ratio(s.XOld[i], s.Mx), ratio(s.YOld[i], s.Mx), ratio(s.ZOld[i], s.Mx),
                      markerRadius, color);
        Picture2.disc((s.XOld[i] - s.XOld[0]) / lab.run.MxView - viewX_,
                      (s.YOld[i] - s.YOld[0]) / lab.run.MxView - viewY_, viewRadius, color);
    }
}

void RunForm::drawBodies() {
    ModelState& s = lab.s;
    if (!Check1.on()) eraseBodies();
    for (int i = 0; i < bodies; ++i) {
        s.XOld[i] = s.X[i];
        s.YOld[i] = s.Y[i];
        s.ZOld[i] = s.Z[i];
    }
    drawMarkers();
}

void RunForm::rescale() {
    eraseBodies();
    lab.s.Mx = 100000. * 1000 * HScroll1.value();
    Label1.setCaption("Масштаб = " + toText(HScroll1.value() / 10.) + " млн.км/см");
    drawMarkers();
}

// ------------------------------------------------------------------ texts on the plot

void RunForm::note(int place, double x, double y, const std::string& text) {
    std::string& shown = notes_[place];
    if (!shown.empty()) Picture1.text(x, y, shown, black);
    shown = text;
    if (!shown.empty()) Picture1.text(x, y, shown, pale);
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
