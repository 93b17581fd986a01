#include "reduction/converter.h"

#include <cmath>

#include "core/run_inputs.h"
#include "reduction/coordinate_chain.h"
#include "reduction/theory_places.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

double centuries(double JD) { return (JD - JD2000) / 36525; }

void copyRow(ModelState& s, int from, int to) {
    s.X[to] = s.X[from];
    s.Y[to] = s.Y[from];
    s.Z[to] = s.Z[from];
}

void keepBase(const ModelState& s, ConvBase& base, int row) {
    base.row.at(row) = {s.X[row], s.Y[row], s.Z[row]};
}

void takeBase(ModelState& s, const ConvBase& base, int row) {
    s.X[row] = base.row.at(row)[0];
    s.Y[row] = base.row.at(row)[1];
    s.Z[row] = base.row.at(row)[2];
}

void zeroRow(ModelState& s, int row) { s.X[row] = s.Y[row] = s.Z[row] = 0; }

void addRow(ModelState& s, int row, int other, double sign) {
    s.X[row] += sign * s.X[other];
    s.Y[row] += sign * s.Y[other];
    s.Z[row] += sign * s.Z[other];
}

/// The parallax of this system: the cosine of the latitude on X and Y, none on Z, as meant.
void addObserver(ModelState& s, int body, int observer, double sign) {
    const double cosB = std::cos(s.LatPl / kUgol);
    s.X[body] += sign * cosB * s.X[observer];
    s.Y[body] += sign * cosB * s.Y[observer];
    s.Z[body] += sign * s.Z[observer];
}

void precessRow(ModelState& s, int row) {
    s.Ipl = static_cast<std::int16_t>(row);
    ApplyPrecessXYZ(s);
}

/// Heliocentric place of the body on the ecliptic of the date.
void placeOnDate(ModelState& s, int body) {
    s.Ipl = static_cast<std::int16_t>(body);
    s.JD = s.JDet;
    ElementsJPL0(s);
    ElementsToXYZ(s);
    s.JD = s.JDut0;
    PrecessMatrixEcl(s, 0, centuries(s.JDut0));
    ApplyPrecessXYZ(s);
}

}  // namespace

void ConvPrepare(ModelState& s, ConvBase& base) {
    const RunInputsKept kept(s);
    const double T = centuries(s.JDut0);
    InitMassesJPL0(s);
    zeroRow(s, 0);
    zeroRow(s, 15);
    keepBase(s, base, 0);

    placeOnDate(s, 3);
    s.JD = s.JDet;
    MoonInequalities(s, centuries(s.JDet));
    s.JD = s.JDut0;
    s.Lpl[10] = s.Lpl[11];
    s.Bpl[10] = s.Bpl[11];
    SpherToXYZ(s, 14, s.Lpl[10], s.Bpl[10], s.Rpl[3][11] * s.m[11] / s.m[3]);
    addRow(s, 3, 14, -1);  // from the common centre of the Earth and the Moon to the Earth
    keepBase(s, base, 3);
    SpherToXYZ(s, 10, s.Lpl[10], s.Bpl[10], s.Rpl[3][11]);
    addRow(s, 10, 3, 1);
    keepBase(s, base, 10);
    SpherToXYZ(s, 14, s.Lpl[10], s.Bpl[10], 2.5);

    ObserverRow(s, s.JDut0);
    copyRow(s, 12, 16);
    s.Ipl = 16;
    EquToEcl(s, T);

    copyRow(s, 3, 13);
    copyRow(s, 13, 23);
    copyRow(s, 12, 22);
    copyRow(s, 16, 26);
    PrecessMatrixEcl(s, T, 0);
    precessRow(s, 23);
    precessRow(s, 26);
    PrecessMatrixEqu(s, T, 0);
    precessRow(s, 22);
}

void ConvBodyByTheory(ModelState& s, ConvBase& base, int body) {
    if (body == 0 || body == 3 || body == 10) return;
    const RunInputsKept kept(s);
    placeOnDate(s, body);
    keepBase(s, base, body);
}

void ConvFromBase(ModelState& s, const ConvBase& base, int body, const ConvFrame& frame) {
    const double T = centuries(s.JDut0);
    takeBase(s, base, 0);
    takeBase(s, base, 3);
    takeBase(s, base, body);
    if (frame.j2000) {
        PrecessMatrixEcl(s, T, 0);
        precessRow(s, 3);
        if (body != 3) precessRow(s, body);
    }
    if (frame.plane != ConvFrame::Plane::Ecliptic) {
        // the obliquity is that of the date also for J2000, as meant
        s.Ipl = 3;
        EclToEqu(s, T);
        if (body != 3) {
            s.Ipl = static_cast<std::int16_t>(body);
            EclToEqu(s, T);
        }
    }
    if (frame.origin != ConvFrame::Origin::Sun) {
        zeroRow(s, 0);
        addRow(s, 0, 3, -1);
        if (body != 0 && body != 3) addRow(s, body, 3, -1);
        zeroRow(s, 3);
    }
    if (frame.origin != ConvFrame::Origin::Observer) return;

    PairGeometry(s, 3, body);
    addObserver(s, body, frame.base() + (frame.plane == ConvFrame::Plane::Ecliptic ? 6 : 2), -1);
    if (frame.plane != ConvFrame::Plane::Horizon) return;
    PairGeometry(s, 15, body);
    s.Lpl[body] = s.LonPl[body];
    s.Bpl[body] = s.LatPl;
    const double Rgeo = s.Rcur;
    s.TAU = s.LMST - s.Lpl[body];
    HorizonToXYZ1(s, body);
    PairGeometry(s, 15, body);
    SpherToXYZ(s, body, s.LonPl[body], s.LatPl, Rgeo);
}

void ConvToBase(ModelState& s, ConvBase& base, int body, const ConvFrame& frame) {
    const double T = centuries(s.JDut0), Rgeo = s.Rcur;
    if (frame.origin == ConvFrame::Origin::Observer) {
        if (frame.plane == ConvFrame::Plane::Horizon) {
            s.Vys = s.LatPl;
            s.Azim = s.LonPl[body];
            HorizonToXYZ2(s, body);
            PairGeometry(s, 15, body);
            s.TAU = s.LonPl[body];
            s.Lpl[body] = s.LMST - s.TAU;
            if (s.Lpl[body] < 0) s.Lpl[body] += 360;
            SpherToXYZ(s, body, s.Lpl[body], s.LatPl, Rgeo);
        }
        addObserver(s, body, frame.base() + (frame.plane == ConvFrame::Plane::Ecliptic ? 6 : 2), 1);
    }
    s.Ipl = static_cast<std::int16_t>(body);
    if (frame.plane != ConvFrame::Plane::Ecliptic) EquToEcl(s, T);
    if (frame.origin != ConvFrame::Origin::Sun) addRow(s, body, frame.base() + 3, 1);
    if (frame.j2000) {
        PrecessMatrixEcl(s, 0, T);
        ApplyPrecessXYZ(s);
    }
    keepBase(s, base, body);
}

}  // namespace tarvex
