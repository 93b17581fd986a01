#include "reduction/aberration_bench.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/run_inputs.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

/// Difference of two angles brought into -180..180 by one turn.
double within180(double d) { return d > 180 ? d - 360 : d < -180 ? d + 360 : d; }

void placeByTheory(ModelState& s, int body, bool byTheory, double L) {
    s.Ipl = static_cast<std::int16_t>(body);
    ElementsNew0(s);
    if (!byTheory) s.AlfaL[body] = L;
    ElementsToXYZ(s);
    ElementsToVXYZ(s);
}

AberrationBench::Place placeFrom(const ModelState& s, int row) {
    AberrationBench::Place p{s.X[row], s.Y[row], s.Z[row], s.VX[row], s.VY[row], s.VZ[row]};
    if (row == rowSun || row == AberrationBench::star) return p;
    p.R0sr = s.R0sr[row];
    p.L = 360 * Frac1(s.AlfaL[row] / 2 / Pi);
    return p;
}

}  // namespace

void AberrationPrepare(ModelState& s, AberrationBench& a, bool byTheory, double L3, double Lbody) {
    const int b = a.body;
    a.iterations = 0;
    // the bench is heliocentric also while the laboratory works on the Moon
    const RunInputsKept kept(s);
    s.kodMoon = s.kodBary = 0;
    InitMassesNew0(s);
    placeByTheory(s, 3, byTheory, L3);
    for (Rows* row : {&s.X, &s.Y, &s.Z, &s.VX, &s.VY, &s.VZ}) (*row)[0] = 0;
    if (b != 0 && b != AberrationBench::star) placeByTheory(s, b, byTheory, Lbody);
    a.earth = placeFrom(s, 3);
    a.object = placeFrom(s, b);
    PairGeometry(s, 3, b);
    a.GeoL = s.LonPl[b];
    a.GeoB = s.LatPl;
    s.Tsv[3][b] = ratio(s.Rcur, a.Vc);
}

void AberrationIterate(ModelState& s, AberrationBench& a, bool withCosB) {
    const int b = a.body;
    const double cosB = std::cos(a.GeoB / kUgol);
    for (const int i : {3, b}) {
        const bool own = i == AberrationBench::star;  // a star keeps its own velocity
        const AberrationBench::Place& p = a.placeOf(i);
        s.VX[i] = finite((own ? 0 : 1000 * a.VXsys) + p.VX);
        s.VY[i] = finite((own ? 0 : 1000 * a.VYsys) + p.VY);
        s.VZ[i] = finite((own ? 0 : 1000 * a.VZsys) + p.VZ);
    }

    const AberrationBench::Place& real = a.placeOf(b);
    s.X[b] = a.XIs = real.X - s.VX[b] * s.Tsv[3][b];
    s.Y[b] = a.YIs = real.Y - s.VY[b] * s.Tsv[3][b];
    s.Z[b] = a.ZIs = real.Z - s.VZ[b] * s.Tsv[3][b];
    PairGeometry(s, 3, b);
    a.Rgeo = s.Rcur;
    const double T = s.Tsv[3][b] = ratio(s.Rcur, a.Vc);
    double La = s.LonPl[b];
    const double Ba = s.LatPl;
    if (withCosB) {
        s.X[12] = real.X - cosB * s.VX[b] * T;
        s.Y[12] = real.Y - cosB * s.VY[b] * T;
        PairGeometry(s, 3, 12);
        La = s.LonPl[12];
    }
    a.AlfaIs = within180(La - a.GeoL);
    a.BettaIs = within180(Ba - a.GeoB);

    s.X[13] = a.XPr = s.X[3] - s.VX[3] * T;
    s.Y[13] = a.YPr = s.Y[3] - s.VY[3] * T;
    s.Z[13] = a.ZPr = s.Z[3] - s.VZ[3] * T;
    s.X[b] += s.VX[3] * T;
    s.Y[b] += s.VY[3] * T;
    s.Z[b] += s.VZ[3] * T;
    PairGeometry(s, 3, b);
    double Lo = s.LonPl[b];
    const double Bo = s.LatPl;
    if (withCosB) {
        s.X[11] = s.X[12] + cosB * s.VX[3] * T;
        s.Y[11] = s.Y[12] + cosB * s.VY[3] * T;
        PairGeometry(s, 3, 11);
        Lo = s.LonPl[11];
    }
    a.AlfaPr = within180(Lo - La);
    a.BettaPr = within180(Bo - Ba);
    ++a.iterations;
}

}  // namespace tarvex
