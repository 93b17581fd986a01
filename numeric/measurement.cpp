#include "numeric/measurement.h"

#include <cmath>

#include "core/arithmetic.h"
#include "theories/geometry.h"

namespace tarvex {

namespace {

constexpr int rowLongitude = 20;  ///< cell of LonPl that keeps the longitude of the last apse
constexpr WatchRules runRules{
    .seam = 355, .aphelia = true, .descending = true, .standingWraps = true, .standingApproaches = true};

/// Longitude of perihelion in the plane of the orbit from the longitude at which the apse was passed.
/// Leaves the distance and the latitude of the turned point in Rcur and LatPl, which scripts print.
void perihelionInOrbit(ModelState& s, RunState& run) {
    run.AlfaP = passedLongitude(run, runRules, s.LonPl[s.IplSel]);
    s.LonPl[rowLongitude] = run.AlfaP;
    run.AlfaP = longitudeInOrbit(s, run, run.AlfaP, std::abs(s.LatPl), s.Rcur);
    if (run.kodPeri == 0) run.AlfaP -= 180;
    if (run.AlfaP < 0) {
        run.AlfaP += 360;
    } else if (run.AlfaP > 360) {
        run.AlfaP -= 360;
    }
}

/// What the run does with what its watch has noticed.
struct Noticed {
    double distance() const { return s.Rcur; }
    void wrapped() { takeWrap(run, run.NZamer, seen); }
    void node(bool ascending) { takeNode(s, run, ascending, seen); }
    void baseStep() { s.DtCur = s.Dt; }
    void smallStep() { s.DtCur = ratio(s.Dt, s.kDt); }
    void approaching() { (run.kodPeri == 1 ? run.Rmin : run.Rmax) = s.Rcur; }
    void apse() { takeApse(s, run, seen); }

    ModelState& s;
    RunState& run;
    Passage& seen;
};

}  // namespace

int originRow(const RunBoxes& boxes) {
    if (boxes.originCentre) return rowCentre;
    if (boxes.originEarth) return rowEarthMoon;
    if (boxes.originSun) return rowSun;
    return rowOrigin;
}

void startMeasurement(ModelState& s, RunState& run) {
    constexpr double firstHalfWidth = 45;
    const int i = s.IplSel;
    run.AlfaP = s.ElemStart[1][i] * kUgol;
    run.AlfaU = s.ElemStart[2][i] * kUgol;
    run.Betta = s.ElemStart[3][i];
    run.Eks = s.ElemStart[4][i];
    s.Rr[i] = s.ElemStart[5][i];
    run.Rmin = (1 - run.Eks) * s.Rr[i];
    run.Rmax = (1 + run.Eks) * s.Rr[i];
    run.AlfaPnach = run.AlfaP;
    run.AlfaUnach = run.AlfaU;
    run.BettaNach = run.Betta;
    run.EksNach = run.Eks;
    run.RsrNach = s.Rr[i];

    windowAround(run.AlfaP, firstHalfWidth, run.PeriHi, run.PeriLo);
    run.AfelHi = below360(run.AlfaP + 180 + firstHalfWidth);
    run.AfelLo = below360(run.AlfaP + 180 - firstHalfWidth);
    windowAround(run.AlfaU, run.dAlfa, run.UzelHi, run.UzelLo);
    run.Uzel2Hi = below360(run.AlfaU + 180 + run.dAlfa);
    run.Uzel2Lo = below360(run.AlfaU + 180 - run.dAlfa);
}

void look(ModelState& s) {
    PairGeometry(s, s.Icentr, s.IplSel);
    s.LatPl = std::abs(s.LatPl / kUgol);
}

void takeWrap(RunState& run, std::int32_t turns, Passage& seen) {
    if (turns > 0) {
        run.Period = (run.Tsec - run.Tper0) / sekD;
        if (run.boxes.renewBaselines && turns == 2) {
            run.PeriodNach = run.Period;
            seen.periodRenewed = true;
        }
    }
    run.Tper0 = run.Tsec;
}

void takeNode(const ModelState& s, RunState& run, bool ascending, Passage& seen) {
    run.AlfaU = passedLongitude(run, runRules, s.LonPl[s.IplSel]);
    seen.node = true;
    seen.ascending = ascending;
    if (ascending) {
        windowAround(run.AlfaU, run.dAlfa, run.UzelHi, run.UzelLo);
    } else {
        windowAround(run.AlfaU, run.dAlfa, run.Uzel2Hi, run.Uzel2Lo);
        run.AlfaU = below360(run.AlfaU + 180);  // always told as the ascending node
    }
    run.kodUzel = 1;
}

void takeApse(ModelState& s, RunState& run, Passage& seen) {
    run.kodApsis = codeOf(ApseSearch::Found);
    seen.apse = true;
    perihelionInOrbit(s, run);
    if (run.NZamer <= 0) {
        seen.first = true;
        run.AlfaPnach = run.AlfaP;
    } else {
        double& Rsr = s.Rr[s.IplSel];
        Rsr = (run.Rmin + run.Rmax) / 2;
        run.Eks = 1 - ratio(run.Rmin, Rsr);
        if (run.boxes.renewBaselines && run.NZamer == 1) {
            seen.baselinesRenewed = true;
            run.AlfaUnach = run.AlfaU;
            run.BettaNach = run.Betta;
            run.EksNach = run.Eks;
            run.RsrNach = Rsr;
        }
    }
    // The bounds lose a turn only above 360; a negative lower bound stays, and a window at 0 is half as wide.
    const double upper = below360(run.dAlfa + s.LonPl[rowLongitude]);
    const double lower = below360(s.LonPl[rowLongitude] - run.dAlfa);
    if (!seen.first && run.kodPeri == 0) {
        run.AfelHi = upper;
        run.AfelLo = lower;
        return;
    }
    seen.turnCounted = true;
    ++run.NZamer;
    run.PeriHi = upper;
    run.PeriLo = lower;
}

Passage measurePass(ModelState& s, RunState& run) {
    Passage seen;
    run.LonOld = s.LonPl[s.IplSel];
    look(s);
    if (run.Betta < s.LatPl) run.Betta = s.LatPl;
    Noticed user{s, run, seen};
    watchOrbit(run, runRules, {s.LonPl[s.IplSel], s.Z[s.IplSel] - s.Z[s.Icentr]}, user);
    return seen;
}

void endApse(RunState& run) {
    run.Betta = 0;
    run.kodUzel = 0;
}

void refineStep(ModelState& s, const RunState& run) {
    const double longitude = s.LonPl[s.IplSel];
    const bool atNode = run.kodUzel != 1 && (inWindow(longitude, run.UzelHi, run.UzelLo) ||
                                             inWindow(longitude, run.Uzel2Hi, run.Uzel2Lo));
    if (wantsSmallStep(longitude, atNode)) s.DtCur = ratio(s.Dt, s.kDt);
}

}  // namespace tarvex
