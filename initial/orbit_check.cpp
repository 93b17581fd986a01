#include "initial/orbit_check.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/name_table.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "theories/geometry.h"
#include "theories/longitudes.h"
#include "theories/passages.h"

namespace tarvex {

namespace {

double length(double x, double y, double z) { return std::sqrt(x * x + y * y + z * z); }

constexpr double seam = 5;  ///< longitudes of two steps further apart lie on both sides of 0, degrees

void unpack(ModelState& s, const OrbitCheck& c) {
    const int p = c.IplSel;
    const auto& U = c.U;
    setPlace(s, rowSun, {U[1], U[2], U[3]});
    setPlace(s, p, {U[4], U[5], U[6]});
    setVelocity(s, rowSun, {U[7], U[8], U[9]});
    setVelocity(s, p, {U[10], U[11], U[12]});
}

void speeds(OrbitCheck& c) {
    c.Vc = length(c.U[7], c.U[8], c.U[9]);
    c.Vp = length(c.U[10], c.U[11], c.U[12]);
}

/// The two bodies as OrbitCheck::U holds them.
using PairState = std::array<double, 13>;

using Two [[gnu::vector_size(16)]] = double;

/// Derivatives of the velocities, cells 7..12 of dU.
struct Accelerations {
    double a7, a8, a9, a10, a11, a12;
};

inline Accelerations accelerations(ModelState& s, OrbitCheck& c, const PairState& U) {
    const double dx = U[4] - U[1], dy = U[5] - U[2], dz = U[6] - U[3];
    const double Rxy2 = dx * dx + dy * dy, R2 = Rxy2 + dz * dz;
    const double Rxy = std::sqrt(Rxy2), R = std::sqrt(R2);
    s.Rcur = R;
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

constexpr double sixth = 1.0 / 6;

/// One step of the classical Runge-Kutta scheme of fourth order.  Its stages follow from one another, so they
/// are kept from memory: a state that is stored and read back is what a step would wait for.
void rungeKuttaStep(ModelState& s, OrbitCheck& c) {
    const double Dt = c.DtCur;
    const PairState U0 = c.U;
    PairState U = U0, K1, K2, K3, K4;
    const auto rise = [&](PairState& K) {
        const Accelerations a = accelerations(s, c, U);
        for (int k = 1; k <= 6; ++k) K[k] = Dt * U[k + 6];
        K[7] = Dt * a.a7, K[8] = Dt * a.a8, K[9] = Dt * a.a9;
        K[10] = Dt * a.a10, K[11] = Dt * a.a11, K[12] = Dt * a.a12;
    };
    const auto go = [&](const PairState& K, double share) {
        for (int k = 1; k <= 12; ++k) U[k] = U0[k] + K[k] * share;
    };
    c.U0 = U0;
    rise(K1);
    go(K1, 0.5);
    rise(K2);
    go(K2, 0.5);
    rise(K3);
    go(K3, 1);
    c.Tstage = c.Tsec + Dt;
    rise(K4);
    for (int k = 1; k <= 12; ++k) c.U[k] = U0[k] + (K1[k] + 2 * K2[k] + 2 * K3[k] + K4[k]) * sixth;
}

/// The distance has begun to grow inside the window: this step is the perihelion.
void passPerihelion(ModelState& s, OrbitCheck& c, double latitude, OrbitCheckPort& port) {
    const int p = c.IplSel;
    c.kodPer = codeOf(ApseSearch::Found);
    c.AlfaPcur = meanLongitude(c.LonPrev, s.LonPl[p], seam);
    double dPer = c.AlfaPcur - c.AlfaUcur;
    if (dPer <= 0) dPer += 360;
    c.LonPer = c.AlfaPcur;
    // the point of perihelion turned into the plane of the orbit
    SpherToXYZ(s, rowWork, dPer, latitude * kUgol, s.Rcur);
    setCurrent(s, rowWork);
    TiltYZ(s, c.BettaMax);
    PairGeometry(s, rowOrigin, rowWork);
    c.AlfaPcur = below360(c.AlfaUcur + s.LonPl[rowWork]);
    if (c.moonBench) c.AlfaPcur = notNegative(c.AlfaPcur);
    c.PerHi = below360(c.dAlfa + c.LonPer);
    c.PerLo = notNegative(c.LonPer - c.dAlfa);
    c.Tper = (c.Tsec - c.Tper0) / sekD;
    c.Tper0 = c.Tsec;
    s.Rr[p] = (c.Lmin + c.Lmax) / 2;
    c.EksM = 1 - ratio(c.Lmin, s.Rr[p]);
    ++c.NObs;
    port.perihelionPassed();
    c.Lmin *= 2;
    c.Lmax /= 2;
    c.Vmin *= 2;
    c.Vmax /= 2;
    c.BettaMax = 0;
}

/// Latitude, distance and speed may be the greatest or smallest since the last perihelion.
/// @param Vp2  square of the speed of the planet
/// @return     size of the latitude, rad
double followExtremes(const ModelState& s, OrbitCheck& c, double Vp2) {
    const double latitude = std::abs(s.LatPl / kUgol);
    c.BettaMax = std::max(c.BettaMax, latitude);
    c.Lmin = std::min(c.Lmin, s.Rcur);
    c.Lmax = std::max(c.Lmax, s.Rcur);
    if (Vp2 < c.Vmin * c.Vmin) c.Vmin = std::sqrt(Vp2);
    if (Vp2 > c.Vmax * c.Vmax) c.Vmax = std::sqrt(Vp2);
    return latitude;
}

/// The place at the end of the step, with the extremes.
double followPlace(ModelState& s, OrbitCheck& c) {
    if (c.moonBench) orbitCheckCentre(s, c);
    c.LonPrev = s.LonPl[c.IplSel];
    PairGeometry(s, c.Iobs, c.IplSel);
    return followExtremes(s, c, c.U[10] * c.U[10] + c.U[11] * c.U[11] + c.U[12] * c.U[12]);
}

void measure(ModelState& s, OrbitCheck& c, OrbitCheckPort& port) {
    const int p = c.IplSel;
    const double latitude = followPlace(s, c);

    const double z = s.Z[p] - s.Z[c.Iobs];
    if (Sgn(c.Zprev) != Sgn(z) && Sgn(c.Zprev) <= 0) {
        c.AlfaUcur = meanLongitude(c.LonPrev, s.LonPl[p], seam);
        port.nodePassed();
    }
    c.Zprev = z;

    const double longitude = s.LonPl[p];
    if (!inWindow(longitude, c.PerHi, c.PerLo)) {
        c.kodPer = codeOf(ApseSearch::Idle);
        c.DtCur = c.Dt;
    } else if (c.kodPer == codeOf(ApseSearch::Found)) {
        c.DtCur = c.Dt;
    } else {
        c.DtCur = c.Dt / c.kDt;
        c.kodPer = codeOf(ApseSearch::Approaching);
        if (!(c.Rprev > s.Rcur)) passPerihelion(s, c, latitude, port);
    }
    c.Rprev = s.Rcur;
    if (inWindow(longitude, c.UzHi, c.UzLo) || longitude > 359) c.DtCur = c.Dt / c.kDt;
}

// ------------------------------------------------------------------ exact passages

/// The three cells of a body in U from a cell on: centre 1, planet 4, their velocities 7 and 10.
Vec3 cells(const PairState& U, std::size_t first) { return {U[first], U[first + 1], U[first + 2]}; }

/// What a vector from the centre to the planet is from where the planet is observed.
double observedShare(const ModelState& s, const OrbitCheck& c) {
    return c.Iobs == rowCentre ? ratio(s.m[c.Icentr], s.m[c.Icentr] + s.m[c.IplJ]) : 1;
}

OrbitPoint observed(double share, const PairState& U) {
    return {share * (cells(U, 4) - cells(U, 1)), share * (cells(U, 10) - cells(U, 7))};
}

/// The step just made, as observed.
Arc arcOfStep(ModelState& s, OrbitCheck& c, double share, const OrbitPoint& before, const OrbitPoint& after) {
    const auto pull = [&](const PairState& U) {
        const Accelerations a = accelerations(s, c, U);
        return share * (Vec3{a.a10, a.a11, a.a12} - Vec3{a.a7, a.a8, a.a9});
    };
    const Vec3 a0 = pull(c.U0), a1 = pull(c.U);
    return Arc::hermite(c.DtCur, before, after.r - before.r, after.v - before.v, a0, a1);
}

/// Puts the planet to a passage and takes what it brings; Tsec is its time.
void passExactly(ModelState& s, OrbitCheck& c, const FoundPassage& passage, OrbitCheckPort& port) {
    const int p = c.IplSel;
    const Vec3& r = passage.point.r;
    s.X[p] = s.X[c.Iobs] + r.x, s.Y[p] = s.Y[c.Iobs] + r.y, s.Z[p] = s.Z[c.Iobs] + r.z;
    PairGeometry(s, c.Iobs, p);
    c.LonPrev = s.LonPl[p];
    const double a = s.m[c.Icentr], b = s.m[c.IplJ];
    const Vec3 centreOfMass = 1 / (a + b) * (a * cells(c.U, 7) + b * cells(c.U, 10));
    const Vec3 speed = centreOfMass + a / (a + b) / observedShare(s, c) * passage.point.v;
    const double latitude = followExtremes(s, c, dot(speed, speed));
    if (passage.what == Passing::Node && passage.upwards) {
        c.AlfaUcur = s.LonPl[p];
        port.nodePassed();
    }
    if (passage.what == Passing::Apse && passage.upwards) passPerihelion(s, c, latitude, port);
}

void measureExactly(ModelState& s, OrbitCheck& c, OrbitCheckPort& port) {
    const double share = observedShare(s, c), begun = c.Tsec;
    const OrbitPoint before = observed(share, c.U0), after = observed(share, c.U);
    if (maybePassed(before, after)) {
        Arc arc = arcOfStep(s, c, share, before, after);
        for (const FoundPassage& passage : findPassages(before, after, arc)) {
            c.Tsec = begun + passage.share * c.DtCur;
            passExactly(s, c, passage, port);
        }
        c.Tsec = begun;
        unpack(s, c);
    }
    followPlace(s, c);
}

}  // namespace

void addNames(NameTable& table, const OrbitCheck& c) {
#define NAME(variable) table.add(#variable, c.variable)
    NAME(Iobs);
    NAME(Tper);
    NAME(Lmin);
    NAME(Lmax);
    NAME(Vmin);
    NAME(Vmax);
    NAME(Vc);
    NAME(Vp);
    NAME(BettaMax);
    NAME(EksM);
    NAME(AlfaP1);
    NAME(AlfaU1);
    NAME(AlfaPcur);
    NAME(AlfaUcur);
    NAME(LonPrev);
    NAME(Zprev);
    NAME(Rprev);
    NAME(PerHi);
    NAME(PerLo);
    NAME(UzHi);
    NAME(UzLo);
    NAME(kodPer);
    NAME(R00);
    NAME(Esys0);
    NAME(M0sys);
    NAME(KD0sysY);
#undef NAME
}

void orbitCheckCentre(ModelState& s, const OrbitCheck& c) {
    const double a = s.m[c.Icentr], b = s.m[c.IplJ], sum = a + b;
    for (Rows* const axis : {&s.X, &s.Y, &s.Z}) {
        Rows& x = *axis;
        x[rowCentre] = ratio(x[rowSun] * a + x[c.IplSel] * b, sum);
    }
}

void startOrbitCheck(ModelState& s, OrbitCheck& c) {
    const int p = c.IplSel;
    if (c.kDt == 0) throw ArithmeticFailure("делитель шага равен нулю");
    setPlace(s, rowOrigin, {});
    c.Zprev = s.Z[p] - s.Z[c.Iobs];
    PairGeometry(s, c.Iobs, p);
    c.Rprev = s.Rcur;
    const Vec3 centre = placeOf(s, rowSun), planet = placeOf(s, p);
    const Vec3 vCentre = velocityOf(s, rowSun), vPlanet = velocityOf(s, p);
    c.U = {0,         centre.x,  centre.y,  centre.z,  planet.x,  planet.y, planet.z,
           vCentre.x, vCentre.y, vCentre.z, vPlanet.x, vPlanet.y, vPlanet.z};
    s.Rcur = length(c.U[4] - c.U[1], c.U[5] - c.U[2], c.U[6] - c.U[3]);
    c.R00 = s.Rcur;
    ratio(1, c.R00);
    speeds(c);
    c.Esys0 = finite(c.Vc * c.Vc * s.m[c.Icentr] / 2 + c.Vp * c.Vp * s.m[c.IplJ] / 2);
    c.Lmin = 2 * s.Rcur;
    c.Lmax = s.Rcur / 2;
    c.Vmin = 2 * c.Vp;
    c.Vmax = c.Vp / 2;
    c.Tsec = c.Tstage = c.Tper0 = 0;
    c.BettaMax = s.Betta0[c.IplJ];
    c.kodPer = codeOf(ApseSearch::Found);
    c.NObs = 0;
    c.NC = 0;
    c.DtCur = c.Dt;
    c.AlfaP1 = c.AlfaPcur = kUgol * s.AlfaP0[c.IplJ];
    c.AlfaU1 = c.AlfaUcur = kUgol * s.AlfaU0[c.IplJ];
    c.PerHi = below360(c.AlfaP1 + 45);
    c.PerLo = notNegative(c.AlfaP1 - 45);
    c.UzHi = c.AlfaU1 + c.dAlfa >= 360 ? c.AlfaU1 + c.dAlfa - 360 : c.AlfaU1 + c.dAlfa;
    c.UzLo = notNegative(c.AlfaU1 - c.dAlfa);
}

void OrbitCheckDiffur(ModelState& s, OrbitCheck& c) {
    const Accelerations a = accelerations(s, c, c.U);
    for (int k = 1; k <= 6; ++k) c.dU[k] = c.U[k + 6];
    c.dU[7] = a.a7, c.dU[8] = a.a8, c.dU[9] = a.a9;
    c.dU[10] = a.a10, c.dU[11] = a.a11, c.dU[12] = a.a12;
}

void runOrbitCheckBatch(ModelState& s, OrbitCheck& c, OrbitCheckPort& port) {
    const ArithmeticGuard guard;
    do {
        const double distance = s.Rcur;
        if (c.exact) c.DtCur = c.Dt;
        rungeKuttaStep(s, c);
        try {
            guard.check();
        } catch (const ArithmeticFailure&) {
            c.U = c.U0;
            s.Rcur = distance;
            throw;
        }
        unpack(s, c);
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
