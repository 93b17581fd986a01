#include "reduction/eclipse.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/run_inputs.h"
#include "reduction/coordinate_chain.h"
#include "reduction/theory_places.h"
#include "theories/ephemeris.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

double centuries(double JD) { return (JD - JD2000) / 36525; }

void addRow(ModelState& s, int row, int other, double factor) {
    s.X[row] += factor * s.X[other];
    s.Y[row] += factor * s.Y[other];
    s.Z[row] += factor * s.Z[other];
}

void addVelocity(ModelState& s, int row, int other, double factor) {
    s.VX[row] += factor * s.VX[other];
    s.VY[row] += factor * s.VY[other];
    s.VZ[row] += factor * s.VZ[other];
}

void zeroRow(ModelState& s, int row) { s.X[row] = s.Y[row] = s.Z[row] = 0; }
void zeroVelocity(ModelState& s, int row) { s.VX[row] = s.VY[row] = s.VZ[row] = 0; }

void setBody(ModelState& s, int row) { s.Ipl = static_cast<std::int16_t>(row); }

/// Angles of row b from row a into Lpl and Bpl.
Eclipse::Sky anglesOf(ModelState& s, int a, int b) {
    PairGeometry(s, a, b);
    s.Lpl[b] = s.LonPl[b];
    s.Bpl[b] = s.LatPl;
    return {s.Lpl[b], s.Bpl[b]};
}

double angularRadius(double size, double distance) { return std::atan(ratio(size / 2, distance)) * kUgol; }

void placesByEphemeris(ModelState& s, Ephemeris& ephemeris) {
    ephemeris.JDjpl = s.JD;
    DESeek(s, ephemeris);
    std::array rows = {0, 3, 11, static_cast<int>(s.IplSel)};
    const int count = s.IplSel == 0 || s.IplSel == 11 ? 3 : 4;
    for (int k = 0; k < count; ++k) DEEvaluate(s, ephemeris, rows[k], 1);
    anglesOf(s, 15, 11);
    s.Rpl[3][11] = s.Rcur;
    const double share = s.m[11] / s.m[13];
    addRow(s, 3, 11, -share);
    addVelocity(s, 3, 11, -share);
    addRow(s, 11, 3, 1);
    addVelocity(s, 11, 3, 1);
    for (int k = 1; k < count; ++k) {
        addRow(s, rows[k], 0, -1);
        addVelocity(s, rows[k], 0, -1);
    }
    zeroRow(s, 0);
    zeroVelocity(s, 0);
}

void placeBy(ModelState& s, Eclipse::Source source) {
    switch (source) {
        case Eclipse::Source::New0:
            return PosByNew0(s);
        case Eclipse::Source::JPL0:
            return PosByJPL0(s);
        default:
            return PosBySer0Plus(s);
    }
}

void moonByTheory(ModelState& s, const Eclipse& e) {
    if (e.source == Eclipse::Source::New0) {
        MoonInequalities(s, centuries(s.JDet));
        SpherToXYZ(s, 11, s.Lpl[11], s.Bpl[11], s.Rpl[3][11]);
        return;
    }
    setBody(s, 11);
    s.kodBary = 0;
    s.kodMoon = 1;
    placeBy(s, e.source);
    if (e.source == Eclipse::Source::JPL0) {  // this theory's Moon is of the date
        PrecessMatrixEcl(s, centuries(s.JDut0), 0);
        ApplyPrecessXYZ(s);
    }
    anglesOf(s, 15, 11);
    s.Rpl[3][11] = s.Rcur;
    if (!e.moonTerms) return;
    MoonPerturbApply(s);
    SpherToXYZ(s, 11, s.Lpl[11], s.Bpl[11], s.Rpl[3][11]);
}

/// Periodic terms of a planet on its heliocentric longitude.
void perturbPlanet(ModelState& s, int b) {
    anglesOf(s, 0, b);
    const double R = s.Rcur;
    PlanetPerturbApply(s, b);
    SpherToXYZ(s, b, s.Lpl[b], s.Bpl[b], R);
}

void placesByTheory(ModelState& s, const Eclipse& e) {
    s.JD = s.JDet;
    for (int i = 1; i <= 9; ++i) {
        setBody(s, i);
        ElementsSer0Plus(s);
    }
    moonByTheory(s, e);
    SpherToXYZ(s, 14, s.Lpl[11], s.Bpl[11], s.Rpl[3][11] * s.m[11] / s.m[3]);
    s.kodMoon = 0;
    setBody(s, 3);
    placeBy(s, e.source);
    addRow(s, 3, 14, -1);
    addRow(s, 11, 3, 1);
    s.VX[11] = s.VX[3], s.VY[11] = s.VY[3], s.VZ[11] = s.VZ[3];
    if (e.planetTerms) perturbPlanet(s, 3);
    zeroRow(s, 0);
    zeroVelocity(s, 0);
    const int b = s.IplSel;
    if (b == 11) return;
    setBody(s, b);
    placeBy(s, e.source);
    if (e.planetTerms) perturbPlanet(s, b);
}

/// Distances and light times of the Sun and the body from the Earth.
void lightTimes(ModelState& s) {
    for (const int b : {0, static_cast<int>(s.IplSel)}) {
        PairGeometry(s, 3, b);
        s.Rpl[3][b] = s.Rcur;
        s.Tsv[3][b] = s.Rcur / Vsv;
    }
}

/// Rows 0 and the body from the angles of an ancient table at the theory's distances, heliocentric again.
void placesByTable(ModelState& s, const Eclipse& e) {
    const int b = s.IplSel;
    const double RSun = s.Rpl[3][0], R = s.Rpl[3][b];
    e.readTable();
    SpherToXYZ(s, 0, s.Lpl[0], s.Bpl[0], RSun);
    if (b != 0) SpherToXYZ(s, b, s.Lpl[b], s.Bpl[b], R);
    zeroRow(s, 3);
    addRow(s, 3, 0, -1);
    if (b != 0) addRow(s, b, 3, 1);
    zeroRow(s, 0);
}

/// Where the body was when the light left it.
void AberrSource16(ModelState& s) {
    const int b = s.IplSel;
    AberrSource(s, b, s.X[b], s.Y[b], s.Z[b]);
}

/// The Sun and the body as the moving Earth sees them.
void AberrReceiver16(ModelState& s) {
    AberrReceiver(s, 0);
    AberrReceiver(s, s.IplSel);
}

/// From the mean equator of the date to the true one.
void Nut16(ModelState& s, double T) {
    for (const int row : {0, int{s.IplSel}}) Nutation(T, s.X[row], s.Y[row], s.Z[row], 0);
}

/// Masses of a source.
void setMasses(ModelState& s, Eclipse::Source source) {
    InitMassesNew0(s);
    if (source == Eclipse::Source::JPL0 || source == Eclipse::Source::JPL2) InitMassesJPL0(s);
    if (source == Eclipse::Source::Ser0Plus) InitMassesSer0(s);
}

/// Steps of the chain up to the true equator of the date, geocentric.
void chainToEquator(ModelState& s, Eclipse& e) {
    const int b = s.IplSel;
    const double T = centuries(s.JDut0);
    const bool theory = e.source != Eclipse::Source::Tables;
    const auto both = [&](Eclipse::Sky Eclipse::Stages::*stageOf, int from) {
        e.sun.*stageOf = anglesOf(s, from, 0);
        e.body.*stageOf = anglesOf(s, from, b);
    };
    if (theory) {
        both(&Eclipse::Stages::geoJ2000, 3);
        AberrSource16(s);
        both(&Eclipse::Stages::source, 3);
        AberrReceiver16(s);
        both(&Eclipse::Stages::receiver, 3);
        if (e.source != Eclipse::Source::New0) {
            PrecessMatrixEcl(s, 0, T);
            for (const int row : {0, b}) {
                setBody(s, row);
                ApplyPrecessXYZ(s);
            }
        }
    }
    both(&Eclipse::Stages::ofDate, 3);
    const double L = s.Lpl[0];
    e.kodSolst = e.solstices &&
                 (L > 359 || L < 1 || std::abs(L - 90) < 1 || std::abs(L - 180) < 1 || std::abs(L - 270) < 1);
    for (const int row : {0, b}) {
        setBody(s, row);
        EclToEqu(s, T);
    }
    both(&Eclipse::Stages::equator, 3);
    for (const int row : {0, b}) {
        PairGeometry(s, 3, row);
        s.Rpl[3][row] = s.Rpl[12][row] = s.Rcur;
    }
    if (theory) Nut16(s, T);
    both(&Eclipse::Stages::nutation, 3);
}

void shadowRow(ModelState& s, Eclipse& e) {
    double& L = s.Lpl[rowShadow];
    L = s.Lpl[0] - 180;
    if (L < 0) L += 360;
    s.Bpl[rowShadow] = -s.Bpl[0];
    const double R = s.Rpl[3][11];
    SpherToXYZ(s, rowShadow, L, s.Bpl[rowShadow], R);
    const double cone = std::atan(ratio((s.Diam[0] - s.Diam[3]) / 2, s.Rpl[3][0]));
    s.Diam[rowShadow] = s.Diam[3] - 2 * R * std::tan(cone);
    e.Rshadow = angularRadius(s.Diam[rowShadow], R);
}

/// From the observer: directions, radii of the disks, the limb.
void Topo16(ModelState& s, Eclipse& e) {
    const int b = s.IplSel;
    ObserverRow(s, s.JDut);
    for (const int row : {0, b, rowShadow}) {
        if (row == b && b == 0) continue;
        addRow(s, row, 12, -1);
        const auto sky = anglesOf(s, 15, row);
        s.Rpl[12][row] = s.Rcur;
        if (row == 0) e.sun.topo = sky;
        if (row == b) e.body.topo = sky;
    }
    for (int row = 0; row <= 13; ++row)
        if (s.Lpl[row] > 350) s.Lpl[row] -= 360;  // so that an eclipse is not split at 0
    e.Rsun = angularRadius(s.Diam[0], s.Rpl[12][0]);
    e.Rbody = angularRadius(s.Diam[b], s.Rpl[12][b]);
    e.RshadowSeen = b == 11 ? e.Rshadow * s.Rpl[3][11] / s.Rpl[12][11] : e.Rshadow;

    const int centre = e.lunar ? b : 0;
    const double radius = e.lunar ? e.Rbody : e.Rsun, secant = 1 / std::cos(s.Bpl[centre] / kUgol);
    for (int n = 0; n < limbPoints; ++n) {
        const double angle = 45.0 * n / kUgol;
        s.Lpl[rowLimb + n] = s.Lpl[centre] + radius * std::cos(angle) * secant;
        s.Bpl[rowLimb + n] = s.Bpl[centre] + radius * std::sin(angle);
    }
}

double separationOf(const ModelState& s, int a, int b) {
    const double d1 = s.Bpl[a] / kUgol, d2 = s.Bpl[b] / kUgol, dL = (s.Lpl[a] - s.Lpl[b]) / kUgol;
    // half-angle form: exact also for the small angles that matter here
    const double h =
        std::pow(std::sin((d1 - d2) / 2), 2) + std::cos(d1) * std::cos(d2) * std::pow(std::sin(dL / 2), 2);
    return 2 * std::asin(std::min(1.0, std::sqrt(h))) * kUgol;
}

/// Azimuths and altitudes of the bodies, the shadow and the limb.
void ToHorizon16(ModelState& s, Eclipse& e) {
    std::array<int, 3 + limbPoints> rows{};
    rows[0] = 0;
    rows[1] = s.IplSel;
    rows[2] = rowShadow;
    for (int n = 0; n < limbPoints; ++n) rows[3 + n] = rowLimb + n;
    for (const int row : rows) {
        ToHorizon(s, row);
        if (row == rowLimb) e.Tsol = s.TAU / 15;
        e.azimuth[row] = s.Azim > 180 ? s.Azim - 360 : s.Azim;
        // the air raises: a real sky is shown here
        e.altitude[row] = s.Vys + (e.refraction ? Refraction(90 - s.Vys) : 0);
    }
}

}  // namespace

void EclipseAt(ModelState& s, Ephemeris& ephemeris, Eclipse& e,
               const std::function<void()>& drawHeliocentric) {
    needSelectedBody(s);
    const int b = s.IplSel;
    e.sun = e.body = {};  // stages that a source skips are not those of another
    zeroRow(s, 15);
    s.JD = s.JDet;
    {
        const RunInputsKept kept(s);
        setMasses(s, e.source);
        if (e.source == Eclipse::Source::JPL2)
            placesByEphemeris(s, ephemeris);
        else
            placesByTheory(s, e);
    }
    s.JD = s.JDut0;
    lightTimes(s);
    if (e.source == Eclipse::Source::Tables) placesByTable(s, e);
    if (drawHeliocentric) drawHeliocentric();
    addRow(s, 0, 3, -1);
    if (b != 0) addRow(s, b, 3, -1);
    if (b != 11) addRow(s, 11, 3, -1);
    zeroRow(s, 3);

    chainToEquator(s, e);
    shadowRow(s, e);
    Topo16(s, e);
    e.separation = e.lunar ? separationOf(s, b, rowShadow) : separationOf(s, 0, b);
    const double covering = e.lunar ? e.RshadowSeen : e.Rbody, covered = e.lunar ? e.Rbody : e.Rsun;
    e.magnitude = std::max(0.0, ratio(covering + covered - e.separation, 2 * covered));
    ToHorizon16(s, e);
}

Eclipse::Sky EclipseBack(ModelState& s, const Eclipse& e, bool withRefraction, bool withNutation) {
    const double T = centuries(s.JDut0);
    s.Azim = e.azimuth[0];
    s.Vys = e.altitude[0];
    if (withRefraction) s.Vys += Refraction(90 - s.Vys);  // added once more and not taken off: meant
    HorizonToXYZ2(s, 18);
    PairGeometry(s, 15, 18);
    const double dec = s.LatPl;
    double ra = s.LMST - s.LonPl[18];
    if (ra < 0) ra += 360;
    SpherToXYZ(s, 16, ra, dec, s.Rpl[12][0]);
    addRow(s, 16, 12, 1);
    if (withNutation) Nutation(T, s.X[16], s.Y[16], s.Z[16], 1);
    setBody(s, 16);
    EquToEcl(s, T);
    PairGeometry(s, 3, 16);
    return {s.LonPl[16], s.LatPl};
}

std::array<Contacts::Contact, 2> Contacts::step(double JDut0, double separation, double sum,
                                                double difference, int& count) {
    std::array<Contact, 2> found{};
    count = 0;
    const double outer = separation - sum, inner = separation - difference;
    if (known_) {
        const bool forward = JDut0 > JD_;
        const auto crossing = [&](double before, double now, Kind closing, Kind opening) {
            if ((before > 0) == (now > 0)) return;
            const bool approaching = (now < before) == forward;
            found[count++] = {approaching ? closing : opening, JD_ + (JDut0 - JD_) * before / (before - now)};
        };
        crossing(outer_, outer, Kind::First, Kind::Fourth);
        crossing(inner_, inner, Kind::Second, Kind::Third);
        if (count == 2 && (found[0].JDut0 > found[1].JDut0) == forward) std::swap(found[0], found[1]);
    }
    known_ = true;
    JD_ = JDut0;
    outer_ = outer;
    inner_ = inner;
    return found;
}

}  // namespace tarvex
