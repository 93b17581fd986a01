#include "reduction/theory_places.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/failure.h"
#include "reduction/coordinate_chain.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr int bodiesWithTable = 4, terms = 8;

void placeAt(ModelState& s, double JD, void (*theory)(ModelState&)) {
    s.JD = JD;
    theory(s);
    ElementsToXYZ(s);
    ElementsToVXYZ(s);
}

/// An angle of the element rows in 0..2 pi.
double reduced(double angle) { return 2 * Pi * Frac1(angle / 2 / Pi); }

void requireTable(int b) {
    if (b < 1 || b > bodiesWithTable) throw SubscriptFailure("нет возмущений тела № " + std::to_string(b));
}

}  // namespace

void PosByNew0(ModelState& s) { placeAt(s, s.JDet, ElementsNew0); }
void PosByJPL0(ModelState& s) { placeAt(s, s.JDet, ElementsJPL0); }
void PosBySer0(ModelState& s) { placeAt(s, s.JDut0, ElementsSer0); }
void PosBySer0Plus(ModelState& s) { placeAt(s, s.JDut0, ElementsSer0Plus); }

void PlanetPerturbColumns(ModelState& s, int b) {
    requireTable(b);
    for (int row = 1; row <= 2; ++row)
        for (int k = 1; k <= terms; ++k) s.kLp[row][k] = s.kLp[row][b * 10 + k];
}

void PlanetPerturbFromColumns(ModelState& s, int b) {
    requireTable(b);
    using std::sin;
    const double l = reduced(s.AlfaL[b] - s.AlfaP0[b]);
    for (int row = 1; row <= 2; ++row) {
        const int other = row == 1 ? s.Ipert1[b] : s.Ipert2[b];
        if (other < 0 || other >= rowCount)
            throw SubscriptFailure("нет возмущающего тела № " + std::to_string(other));
        const double ls = reduced(s.AlfaL[other] - s.AlfaP0[other]), D = reduced(s.AlfaL[b] - s.AlfaL[other]);
        const auto& k = s.kLp[row];
        s.Lpl[b] += k[1] * sin(l - 2 * D) + k[2] * sin(2 * D) + k[3] * sin(D) + k[4] * sin(ls) +
                    k[5] * sin(2 * D - 2 * l) + k[6] * sin(2 * D - l - ls) + k[7] * sin(2 * D + l) +
                    k[8] * sin(ls - 2 * D);
    }
}

void PlanetPerturbApply(ModelState& s, int b) {
    PlanetPerturbColumns(s, b);
    PlanetPerturbFromColumns(s, b);
}

void AberrSource(ModelState& s, int b, double x0, double y0, double z0) {
    for (int pass = 1; pass <= 3; ++pass) {
        const double T = s.Tsv[3][b];
        s.X[b] = x0 - s.VX[b] * T;
        s.Y[b] = y0 - s.VY[b] * T;
        s.Z[b] = z0 - s.VZ[b] * T;
        PairGeometry(s, 3, b);
        s.Tsv[3][b] = s.Rcur / Vsv;
    }
}

void AberrReceiver(ModelState& s, int b) {
    const double T = s.Tsv[3][b];
    s.X[b] += s.VX[3] * T;
    s.Y[b] += s.VY[3] * T;
    s.Z[b] += s.VZ[3] * T;
}

void ObserverRow(ModelState& s, double JDut) {
    s.GMST = 24 * Frac1(SiderealTime(JDut - 2400000.5) / 24);
    s.LMST = s.ObsL / 15 + s.GMST;
    if (s.LMST > 24) s.LMST -= 24;
    s.LMST *= 15;
    SpherToXYZ(s, 12, s.LMST, s.ObsB, REarth);
}

void ToHorizon(ModelState& s, int b) {
    s.TAU = s.LMST - s.Lpl[b];
    if (s.TAU < 0) s.TAU += 360;
    HorizonToXYZ1(s, b);
    PairGeometry(s, 15, b);
    s.Azim = s.LonPl[b];
    s.Vys = s.LatPl;
}

}  // namespace tarvex
