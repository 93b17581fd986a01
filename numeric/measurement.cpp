#include "numeric/measurement.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/longitudes.h"
#include "theories/passages.h"

namespace tarvex {

namespace {

constexpr int rowLongitude = 20;      ///< cell of LonPl that keeps the longitude of the last apse
constexpr double straddles = 355;     ///< two longitudes further apart lie on both sides of 0, degrees
constexpr double nearFullTurn = 359;  ///< small steps from here, so that the wrap is timed well, degrees

double lessTurnAbove360(double a) { return a > 360 ? a - 360 : a; }

void followPeriod(ModelState& s, RunState& run, Passage& seen) {
    if (s.LonPl[s.IplSel] > run.LonOld) return;
    takeWrap(run, run.NZamer, seen);
}

void followNode(ModelState& s, RunState& run, Passage& seen) {
    const double now = s.Z[s.IplSel] - s.Z[s.Icentr];
    if (Sgn(run.ZOldSel) != Sgn(now)) takeNode(s, run, Sgn(run.ZOldSel) <= 0, seen);
    run.ZOldSel = now;
}

/// True when the body still approaches the apse of its window.
bool stillApproaching(const ModelState& s, RunState& run) {
    run.kodApsis = codeOf(ApseSearch::Idle);
    if (run.kodPeri == 1) {
        if (run.Rold >= s.Rcur) {
            run.kodApsis = codeOf(ApseSearch::Approaching);
            run.Rmin = s.Rcur;
        }
    } else if (run.Rold <= s.Rcur) {
        run.kodApsis = codeOf(ApseSearch::Approaching);
        run.Rmax = s.Rcur;
    }
    return run.kodApsis == codeOf(ApseSearch::Approaching);
}

/// Longitude of perihelion in the plane of the orbit from the longitude at which the apse was passed.
/// Leaves the distance and the latitude of the turned point in Rcur and LatPl, which scripts print.
void perihelionInOrbit(ModelState& s, RunState& run) {
    run.AlfaP = meanLongitude(run.LonOld, s.LonPl[s.IplSel], straddles);
    s.LonPl[rowLongitude] = run.AlfaP;
    double u = run.AlfaP - run.AlfaU;
    if (u <= 0) u += 360;
    SpherToXYZ(s, rowWork, u, kUgol * std::abs(s.LatPl), s.Rcur);
    s.Ipl = rowWork;
    TiltYZ(s, run.Betta);
    PairGeometry(s, rowOrigin, rowWork);
    run.AlfaP = run.AlfaU + s.LonPl[rowWork];
    if (run.kodPeri == 0) run.AlfaP -= 180;
    if (run.AlfaP < 0) {
        run.AlfaP += 360;
    } else if (run.AlfaP > 360) {
        run.AlfaP -= 360;
    }
}

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

    const auto addTurnBelow0 = [](double a) { return a < 0 ? a + 360 : a; };
    run.PeriHi = lessTurnAbove360(run.AlfaP + firstHalfWidth);
    run.PeriLo = addTurnBelow0(run.AlfaP - firstHalfWidth);
    run.AfelHi = lessTurnAbove360(run.AlfaP + 180 + firstHalfWidth);
    run.AfelLo = lessTurnAbove360(run.AlfaP + 180 - firstHalfWidth);
    run.UzelHi = lessTurnAbove360(run.AlfaU + run.dAlfa);
    run.UzelLo = addTurnBelow0(run.AlfaU - run.dAlfa);
    run.Uzel2Hi = lessTurnAbove360(run.AlfaU + 180 + run.dAlfa);
    run.Uzel2Lo = lessTurnAbove360(run.AlfaU + 180 - run.dAlfa);
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
    run.AlfaU = meanLongitude(run.LonOld, s.LonPl[s.IplSel], straddles);
    const double upper = lessTurnAbove360(run.AlfaU + run.dAlfa);
    const double lower = run.AlfaU - run.dAlfa < 0 ? run.AlfaU - run.dAlfa + 360 : run.AlfaU - run.dAlfa;
    seen.node = true;
    seen.ascending = ascending;
    if (seen.ascending) {
        run.UzelHi = upper;
        run.UzelLo = lower;
    } else {
        run.Uzel2Hi = upper;
        run.Uzel2Lo = lower;
        run.AlfaU = lessTurnAbove360(run.AlfaU + 180);  // always told as the ascending node
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
    const double upper = lessTurnAbove360(run.dAlfa + s.LonPl[rowLongitude]);
    const double lower = lessTurnAbove360(s.LonPl[rowLongitude] - run.dAlfa);
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
    followPeriod(s, run, seen);
    followNode(s, run, seen);

    const double longitude = s.LonPl[s.IplSel];
    bool inside = false;
    if (inWindow(longitude, run.PeriHi, run.PeriLo)) {
        run.kodPeri = 1;
        inside = true;
    } else if (inWindow(longitude, run.AfelHi, run.AfelLo)) {
        run.kodPeri = 0;
        inside = run.NZamer != 0;  // before the first perihelion an aphelion is not sought
    }
    if (!inside) {
        run.kodApsis = codeOf(ApseSearch::Idle);
        s.DtCur = s.Dt;
    } else if (run.kodApsis == codeOf(ApseSearch::Found)) {
        s.DtCur = s.Dt;
    } else {
        s.DtCur = ratio(s.Dt, s.kDt);
        if (!stillApproaching(s, run)) takeApse(s, run, seen);
    }
    run.Rold = s.Rcur;
    return seen;
}

void endApse(RunState& run) {
    run.Betta = 0;
    run.kodUzel = 0;
}

void refineStep(ModelState& s, const RunState& run) {
    const double longitude = s.LonPl[s.IplSel];
    if (run.kodUzel != 1 &&
        (inWindow(longitude, run.UzelHi, run.UzelLo) || inWindow(longitude, run.Uzel2Hi, run.Uzel2Lo)))
        s.DtCur = ratio(s.Dt, s.kDt);
    if (longitude > nearFullTurn) s.DtCur = ratio(s.Dt, s.kDt);
}

}  // namespace tarvex
