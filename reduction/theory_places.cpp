#include "reduction/theory_places.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/failure.h"
#include "core/rows.h"
#include "reduction/sky.h"
#include "reduction/sky_rows.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr int bodiesWithTable = 4, terms = 8;

void placeAt(ModelState& s, double JD, void (*theory)(ModelState&)) {
    s.JD = JD;
    theory(s);
    ElementsToState(s);
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

void ObserverRow(ModelState& s, double JDut) {
    const sky::Observer observer = sky::observerAt(JDut, s.ObsB, s.ObsL);
    s.GMST = observer.greenwich;
    s.LMST = observer.local;
    setPlace(s, rowObserver, observer.place);
}

}  // namespace tarvex
