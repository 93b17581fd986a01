#include "forms/elements_form_check.h"

#include "core/arithmetic.h"
#include "forms/elements_form.h"
#include "forms/plot_grid.h"

namespace tarvex {

namespace {

constexpr Color black{0, 0, 0}, centreColor{0, 0, 250};
constexpr double planetRadius = 0.06;

double cut2(double v) { return Fix(100 * v) / 100; }

/// Metres as thousands of km with two decimals.
double thousandKm(double v) { return Fix(100 * v / MK) / 100; }

/// Share of the colour's strength: bodies below the plane are drawn dim.
double strength(double z) { return z < 0 ? 0.5 : 1; }

}  // namespace

ElementsFormCheck::ElementsFormCheck(ElementsForm& form, Laboratory& lab_)
    : form_(form), lab(lab_), check_(lab_.orbitCheck) {}

void ElementsFormCheck::start() {
    ModelState& s = lab.s;
    OrbitCheck c;
    c.cosA = check_.cosA, c.sinA = check_.sinA;
    for (int i = 0; i <= NPlanetMax; ++i)
        if (form_.checkedBody(i).on()) c.IplSel = i;
    const bool moon = c.IplSel == rowXena && s.kodMoon == 1;
    c.IplJ = moon ? rowMoon : c.IplSel;
    c.Icentr = moon ? rowEarth : rowSun;
    c.origin = form_.relativeToCentre.on() ? rowCentre : rowSun;
    s.IplSel = c.IplSel;
    s.IplJ = c.IplJ;
    s.Icentr = c.Icentr;
    form_.referencePeriod.setCaption("(справочно T= " + toText(s.Tsid.at(c.IplJ)) + " дней)");

    const auto place = [&](int row, int from) {
        s.X[row] = s.X0[from], s.Y[row] = s.Y0[from], s.Z[row] = s.Z0[from];
        s.VX[row] = finite(1000 * s.VXsys + s.VX0[from]);
        s.VY[row] = finite(1000 * s.VYsys + s.VY0[from]);
        s.VZ[row] = finite(1000 * s.VZsys + s.VZ0[from]);
    };
    place(rowSun, c.Icentr);
    place(c.IplSel, c.IplJ);
    orbitCheckCentre(s, c);
    c.NC0 = s.NC0 = form_.stepsPerDisplay.int16();
    c.Dt = s.Dt = form_.step.number();
    c.kDt = s.kDt = form_.stepDivider.int16();
    c.dAlfa = form_.windowDegrees.number();
    c.exact = form_.exactPassages.on();
    startOrbitCheck(s, c);
    check_ = c;
    s.kodStop = 0;
    for (const int row : {rowPairCentre, c.IplSel, int{rowCentre}})
        s.XOld[row] = s.X[row], s.YOld[row] = s.Y[row], s.ZOld[row] = s.Z[row];
    form_.perihelionShift.show(0);
    form_.nodeShift.show(0);
    form_.eccentricity.show(cut6(s.Eks0[c.IplJ]));
    form_.perihelion.show(cut6(c.AlfaP1));
    form_.node.show(cut6(c.AlfaU1));
    form_.meanMotionPeriod.show(Fix(ratio(ratio((MK + MK) * Pi * s.R0sr[c.IplSel], s.V0sr[c.IplSel]), sekD)) /
                                MK);
    stage("Ошибка решения уравнений", "Tarvex7m", [&] { OrbitCheckLoop(); });
}

void ElementsFormCheck::goOn() {
    lab.s.kodStop = 0;
    OrbitCheckLoop();
}

void ElementsFormCheck::batch() {
    lab.s.kodStop = 1;
    requireOwn();
    check_.NC = 0;
    check_.NC0 = lab.s.NC0 = form_.stepsPerDisplay.int16();
    OrbitCheckLoop();
}

void ElementsFormCheck::requireOwn() const {
    if (!check_.begun(false)) throw Failure("проверка орбиты еще не начата");
}

void ElementsFormCheck::OrbitCheckLoop() {
    requireOwn();
    Desk& desk = form_.desk();
    Form::Running running(form_);
    do {
        runOrbitCheckBatch(lab.s, check_, *this);
        display();
        if (lab.s.kodStop == 1) break;
        running.giveWay();
    } while (desk.anyLoaded() && !gone_ && check_.begun(false));
}

void ElementsFormCheck::nodePassed() {
    form_.node.show(Fix(10000 * check_.AlfaU) / 10000);
    form_.nodeShift.show(Fix((check_.AlfaU - check_.AlfaU1) * 36000000) / 10000);
}

void ElementsFormCheck::perihelionPassed() {
    const OrbitCheck& c = check_;
    const double Rr = lab.s.Rr[c.IplSel];
    form_.period.show(cut6(c.Tper));
    form_.eccentricity.show(cut6(c.Eks));
    form_.meanSpeed.show(Fix((c.Vmin + c.Vmax) * 100 / 2) / 100);
    form_.meanRadius.show(thousandKm(Rr));
    form_.perihelion.show(cut6(c.AlfaP));
    form_.meanMotion.show(Fix(MK * sekG * (c.Vmin + c.Vmax) / 2 / Rr) / MK);
    form_.perihelionShift.show(Fix((c.AlfaP - c.AlfaP1) * 36000000) / 10000);
}

void ElementsFormCheck::display() {
    ModelState& s = lab.s;
    const OrbitCheck& c = check_;
    if (!form_.keepTrajectory.on()) {
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
        drawPair(black, black, black);
        std::swap(s.X, s.XOld), std::swap(s.Y, s.YOld), std::swap(s.Z, s.ZOld);
    }
    orbitCheckCentre(s, c);
    for (const int row : {rowPairCentre, c.IplSel, int{rowCentre}})
        s.XOld[row] = s.X[row], s.YOld[row] = s.Y[row], s.ZOld[row] = s.Z[row];
    drawPair(bodyColor(s, rowPairCentre, strength(s.Z[rowPairCentre])),
             bodyColor(s, c.IplSel, strength(s.Z[c.IplSel])), centreColor);
    if (form_.viewState.on())
        for (const int row : {rowPairCentre, c.IplSel}) form_.showStateRow(row);
    form_.energyShift.show(Fix(ratio(10000 * MK * MK * (c.Esys - c.Esys0), c.Esys0)) / MK / MK / 100);
    form_.greatestDistance.show(thousandKm(c.Rmax));
    form_.leastDistance.show(thousandKm(c.Rmin));
    form_.greatestSpeed.show(cut2(c.Vmax));
    form_.leastSpeed.show(cut2(c.Vmin));
    form_.inclination.show(Fix(MK * c.Betta * kUgol) / MK);
    form_.longitude.show(s.LonPl[c.IplSel]);
    form_.checkTime.show(Fix(100 * c.Tstage / sekG) / 100);
}

void ElementsFormCheck::drawPair(Color centre, Color planet, Color cross) {
    const ModelState& s = lab.s;
    const int p = check_.IplSel;
    const double centreRadius = (check_.Icentr == rowEarth ? s.Diam[rowEarthMoon] / 2 : s.RSol) / s.Mx;
    drawBothViews(form_.orbitPicture, s.X[rowPairCentre] / s.Mx, s.Y[rowPairCentre] / s.Mx,
                  s.Z[rowPairCentre] / s.Mx, centreRadius, centre);
    drawBothViews(form_.orbitPicture, s.X[p] / s.Mx, s.Y[p] / s.Mx, s.Z[p] / s.Mx, planetRadius, planet);
    if (form_.drawCentre.on())
        form_.orbitPicture.cross(s.X[rowCentre] / s.Mx, s.Y[rowCentre] / s.Mx, 1, cross);
}

}  // namespace tarvex
