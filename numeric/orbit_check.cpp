#include "numeric/orbit_check.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/name_table.h"

namespace tarvex {

namespace {

PairBodies both(const ModelState& s, const OrbitCheck& c) {
    return {.row = c.IplSel, .m = s.m[c.IplJ], .mCentre = s.m[c.Icentr]};
}

void speeds(OrbitCheck& c) {
    c.Vc = length(cells(c.U, 7));
    c.Vp = length(cells(c.U, 10));
}

using Two [[gnu::vector_size(16)]] = double;

/// Newton's law on U.  The force takes the mass of the shown row, the accelerations those of the source rows.
[[gnu::always_inline]] inline PairAccelerations accelerations(const ModelState& s, OrbitCheck& c,
                                                              const PairState& U) {
    const double dx = U[4] - U[1], dy = U[5] - U[2], dz = U[6] - U[3];
    const double Rxy2 = dx * dx + dy * dy, R2 = Rxy2 + dz * dz;
    const double Rxy = std::sqrt(Rxy2), R = std::sqrt(R2);
    const double F = s.m[c.Icentr] * s.m[c.IplSel] * s.gamma / R2;
    if (dx != 0) {
        c.cosA = std::abs(dx) / Rxy;
        c.sinA = std::abs(dy) / Rxy;
    }
    const double cosB = Rxy / R, sinB = std::abs(dz) / R;
    const double flat = F * cosB;
    const double Fx = dx > 0 ? -c.cosA * flat : c.cosA * flat;
    const double Fy = dy > 0 ? -c.sinA * flat : c.sinA * flat;
    const double Fz = dz > 0 ? -sinB * F : sinB * F;
    const double centre = s.m[c.Icentr], planet = s.m[c.IplJ];
    // two divisions in the time of one
    const Two along = Two{Fx, Fy}, away = -along / Two{centre, centre}, towards = along / Two{planet, planet};
    const Two across = Two{-Fz, Fz} / Two{centre, planet};
    return {away[0], away[1], across[0], towards[0], towards[1], across[1]};
}

/// @param longitude  of the perihelion, degrees
/// @param latitude   size of it, rad
void passPerihelion(ModelState& s, OrbitCheck& c, double longitude, double latitude, OrbitCheckPort& port) {
    const int p = c.IplSel;
    c.kodApsis = codeOf(ApseSearch::Found);
    c.AlfaP = longitude;
    c.AlfaP = below360(longitudeInOrbit(s, c, longitude, latitude, s.Rcur));
    if (c.moonBench) c.AlfaP = notNegative(c.AlfaP);
    windowAround(longitude, c.dAlfa, c.PeriHi, c.PeriLo);
    c.Tper = (c.Tsec - c.Tper0) / sekD;
    c.Tper0 = c.Tsec;
    s.Rr[p] = (c.Rmin + c.Rmax) / 2;
    c.Eks = 1 - ratio(c.Rmin, s.Rr[p]);
    ++c.NZamer;
    port.perihelionPassed();
    c.Rmin *= 2;
    c.Rmax /= 2;
    c.Vmin *= 2;
    c.Vmax /= 2;
    c.Betta = 0;
}

/// Latitude, distance and speed may be the greatest or smallest since the last perihelion.
/// @param Vp2  square of the speed of the planet
/// @return     size of the latitude, rad
double followExtremes(const ModelState& s, OrbitCheck& c, double Vp2) {
    const double latitude = std::abs(s.LatPl / kUgol);
    c.Betta = std::max(c.Betta, latitude);
    c.Rmin = std::min(c.Rmin, s.Rcur);
    c.Rmax = std::max(c.Rmax, s.Rcur);
    if (Vp2 < c.Vmin * c.Vmin) c.Vmin = std::sqrt(Vp2);
    if (Vp2 > c.Vmax * c.Vmax) c.Vmax = std::sqrt(Vp2);
    return latitude;
}

/// The place at the end of the step, with the extremes.
/// @return  size of the latitude, rad
double followPlace(ModelState& s, OrbitCheck& c) {
    if (c.moonBench) orbitCheckCentre(s, c);
    c.LonOld = s.LonPl[c.IplSel];
    PairGeometry(s, c.origin, c.IplSel);
    const Vec3 speed = cells(c.U, 10);
    return followExtremes(s, c, dot(speed, speed));
}

/// What the check does with what its watch has noticed.
struct Noticed {
    double distance() const { return s.Rcur; }
    void wrapped() {}
    void node(bool) {
        c.AlfaU = passedHere();
        port.nodePassed();
    }
    void baseStep() { c.DtCur = c.Dt; }
    void smallStep() { c.DtCur = c.Dt / c.kDt; }
    void approaching() {}
    void apse() { passPerihelion(s, c, passedHere(), latitude, port); }
    double passedHere() const { return passedLongitude(c, pairRules, s.LonPl[c.IplSel]); }

    ModelState& s;
    OrbitCheck& c;
    double latitude;
    OrbitCheckPort& port;
};

void measure(ModelState& s, OrbitCheck& c, OrbitCheckPort& port) {
    const double latitude = followPlace(s, c), longitude = s.LonPl[c.IplSel];
    Noticed user{s, c, latitude, port};
    watchOrbit(c, pairRules, {longitude, s.Z[c.IplSel] - s.Z[c.origin]}, user);
    if (wantsSmallStep(longitude, inWindow(longitude, c.UzelHi, c.UzelLo))) user.smallStep();
}

void measureExactly(ModelState& s, OrbitCheck& c, OrbitCheckPort& port) {
    const PairBodies pair = both(s, c);
    const auto pull = [&](const PairState& U) { return accelerations(s, c, U).relative(); };
    const auto pass = [&](const FoundPassage& passage, const Vec3& fromCentre) {
        const Vec3 centreOfMass =
            1 / (pair.mCentre + pair.m) * (pair.mCentre * cells(c.U, 7) + pair.m * cells(c.U, 10));
        const Vec3 speed = centreOfMass + fromCentre;
        const double latitude = followExtremes(s, c, dot(speed, speed)), longitude = s.LonPl[c.IplSel];
        if (!passage.upwards) return;
        if (passage.what == Passing::Node) {
            c.AlfaU = longitude;
            port.nodePassed();
        }
        if (passage.what == Passing::Apse) passPerihelion(s, c, longitude, latitude, port);
    };
    passagesInStep(
        s, c, pair, pull, [](double) {}, pass);
    followPlace(s, c);
}

}  // namespace

void addNames(NameTable& table, const OrbitCheck& c) {
    table.add("Iobs", c.origin);
    table.add("Tper", c.Tper);
    table.add("Lmin", c.Rmin);
    table.add("Lmax", c.Rmax);
    table.add("Vmin", c.Vmin);
    table.add("Vmax", c.Vmax);
    table.add("Vc", c.Vc);
    table.add("Vp", c.Vp);
    table.add("BettaMax", c.Betta);
    table.add("EksM", c.Eks);
    table.add("AlfaP1", c.AlfaP1);
    table.add("AlfaU1", c.AlfaU1);
    table.add("AlfaPcur", c.AlfaP);
    table.add("AlfaUcur", c.AlfaU);
    table.add("LonPrev", c.LonOld);
    table.add("Zprev", c.ZOldSel);
    table.add("Rprev", c.Rold);
    table.add("PerHi", c.PeriHi);
    table.add("PerLo", c.PeriLo);
    table.add("UzHi", c.UzelHi);
    table.add("UzLo", c.UzelLo);
    table.add("kodPer", c.kodApsis);
    table.add("R00", c.R00);
    table.add("Esys0", c.Esys0);
    table.add("M0sys", c.M0sys);
    table.add("KD0sysY", c.KD0sysY);
}

void orbitCheckCentre(ModelState& s, const OrbitCheck& c) { pairCentre(s, both(s, c)); }

void startOrbitCheck(ModelState& s, OrbitCheck& c) {
    const int p = c.IplSel;
    if (c.kDt == 0) throw ArithmeticFailure("делитель шага равен нулю");
    setPlace(s, rowOrigin, {});
    c.ZOldSel = s.Z[p] - s.Z[c.origin];
    PairGeometry(s, c.origin, p);
    c.Rold = s.Rcur;
    c.U = packedPair(s, p);
    s.Rcur = length(cells(c.U, 4) - cells(c.U, 1));
    c.R00 = s.Rcur;
    ratio(1, c.R00);
    speeds(c);
    c.Esys0 = finite(c.Vc * c.Vc * s.m[c.Icentr] / 2 + c.Vp * c.Vp * s.m[c.IplJ] / 2);
    c.Rmin = 2 * s.Rcur;
    c.Rmax = s.Rcur / 2;
    c.Vmin = 2 * c.Vp;
    c.Vmax = c.Vp / 2;
    c.Tsec = c.Tstage = c.Tper0 = 0;
    c.Betta = s.Betta0[c.IplJ];
    c.kodApsis = codeOf(ApseSearch::Found);
    c.NZamer = 0;
    c.NC = 0;
    c.DtCur = c.Dt;
    c.AlfaP1 = c.AlfaP = kUgol * s.AlfaP0[c.IplJ];
    c.AlfaU1 = c.AlfaU = kUgol * s.AlfaU0[c.IplJ];
    windowAround(c.AlfaP1, 45, c.PeriHi, c.PeriLo);
    windowAround(c.AlfaU1, c.dAlfa, c.UzelHi, c.UzelLo);
    if (c.UzelHi == 360) c.UzelHi = 0;  // the one window whose bound of a whole turn is told as none
}

void OrbitCheckDiffur(ModelState& s, OrbitCheck& c) {
    toDerivatives(c.U, accelerations(s, c, c.U), c.dU);
    s.Rcur = length(cells(c.U, 4) - cells(c.U, 1));
}

void runOrbitCheckBatch(ModelState& s, OrbitCheck& c, OrbitCheckPort& port) {
    const ArithmeticGuard guard;
    do {
        guardedStep(c, guard, [&](const PairState& U) { return accelerations(s, c, U); });
        c.Tstage = c.Tsec + c.DtCur;
        unpackPair(s, c.U, c.IplSel);
        if (c.exact) {
            measureExactly(s, c, port);
        } else {
            measure(s, c, port);  // refuses by itself what could not be divided
        }
        ++c.NC;
        c.Tsec += c.DtCur;
    } while (c.NC < c.NC0);
    c.NC = 0;
    guard.check();
    speeds(c);
    s.Rcur = length(placeOf(s, c.IplSel) - placeOf(s, rowSun));
    c.Esys = finite(c.Vc * c.Vc * s.m[c.Icentr] / 2 + c.Vp * c.Vp * s.m[c.IplJ] / 2 +
                    s.gamma * s.m[c.Icentr] * s.m[c.IplJ] * (1 / c.R00 - 1 / s.Rcur));
}

}  // namespace tarvex
