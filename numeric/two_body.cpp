#include "numeric/two_body.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "core/vec3.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/longitudes.h"
#include "theories/passages.h"

namespace tarvex {

namespace {

constexpr int m1 = 11, m2 = 0;
constexpr double seam = 5;  ///< longitudes of two steps further apart lie on both sides of 0, degrees

double length(double x, double y, double z) { return std::sqrt(x * x + y * y + z * z); }
double mass1(const ModelState& s) { return s.m[11]; }
double mass2(const ModelState& s) { return s.m[13]; }

/// Difference of the positions from i to j after the pull of i has travelled: two iterations.
Vec3 retarded(const Vec3& d, const Vec3& velocity, double Vgr) {
    Vec3 now = d;
    double T = length(d.x, d.y, d.z) / Vgr;
    for (int iteration = 1; iteration <= 2; ++iteration) {
        now = {d.x + velocity.x * T, d.y + velocity.y * T, d.z + velocity.z * T};
        T = length(now.x, now.y, now.z) / Vgr;
    }
    return now;
}

void unpack(ModelState& s, const TwoBody& b) {
    const auto& U = b.U;
    s.X[m2] = U[1], s.Y[m2] = U[2], s.Z[m2] = U[3];
    s.X[m1] = U[4], s.Y[m1] = U[5], s.Z[m1] = U[6];
    s.VX[m2] = U[7], s.VY[m2] = U[8], s.VZ[m2] = U[9];
    s.VX[m1] = U[10], s.VY[m1] = U[11], s.VZ[m1] = U[12];
}

void geometry(ModelState& s, TwoBody& b) {
    if (b.origin == rowCentre) twoBodyCentre(s);
    PairGeometry(s, b.origin, m1);
    b.Rcur = s.Rcur;
    b.distance = b.origin == m2 ? b.Rcur : length(s.X[m1] - s.X[m2], s.Y[m1] - s.Y[m2], s.Z[m1] - s.Z[m2]);
    b.V1 = length(s.VX[m1], s.VY[m1], s.VZ[m1]);
}

/// What only the display and the energy need.
void atDisplay(ModelState& s, TwoBody& b) {
    twoBodyCentre(s);
    b.V2 = length(s.VX[m2], s.VY[m2], s.VZ[m2]);
}

double moment(const ModelState& s) {
    return ((s.VY[m1] - s.VY[m2]) * (s.X[m1] - s.X[m2]) - (s.VX[m1] - s.VX[m2]) * (s.Y[m1] - s.Y[m2])) *
           mass1(s);
}

double kinetic(const ModelState& s, const TwoBody& b) {
    return mass1(s) * b.V1 * b.V1 / 2 + mass2(s) * b.V2 * b.V2 / 2;
}

constexpr double sixth = 1.0 / 6;

void rungeKuttaStep(ModelState& s, TwoBody& b) {
    const auto stageOf = [&](std::array<double, 13>& K, double share) {
        TwoBodyDiffur(s, b);
        const double Dt = b.DtCur;
        for (int k = 1; k <= 12; ++k) {
            K[k] = Dt * b.dU[k];
            b.U[k] = b.U0[k] + K[k] * share;
        }
    };
    b.U0 = b.U;
    stageOf(b.K1, 0.5);
    stageOf(b.K2, 0.5);
    stageOf(b.K3, 1);
    TwoBodyDiffur(s, b);
    for (int k = 1; k <= 12; ++k) {
        b.K4[k] = b.DtCur * b.dU[k];
        b.U[k] = b.U0[k] + (b.K1[k] + 2 * b.K2[k] + 2 * b.K3[k] + b.K4[k]) * sixth;
    }
}

void windowAround(double centre, double half, double& hi, double& lo) {
    hi = below360(centre + half);
    lo = notNegative(centre - half);
}

void beginCounting(TwoBody& b) {
    b.dTv = b.dTm = 0;
    b.Tcount = b.Tsec;
}

/// @param duration  the part of the step that counts, s
void countDelays(const ModelState& s, TwoBody& b, double duration) {
    constexpr double c2 = Vsv * Vsv;
    const double slow = ratio(1, root(1 - b.V1 * b.V1 / c2));  // no clock runs at the speed of light
    b.dTv -= (1 - slow) * duration + duration * b.dTvSr;
    b.dTm += duration * s.gamma * mass2(s) / (b.distance * c2) - duration * b.dTmSr;
}

void passWrap(TwoBody& b, TwoBodyPort& port) {
    if (b.NZamer > 0) b.Period = b.Tsec - b.Tper0;
    if (b.NZamer == 1 && b.fromNode) beginCounting(b);
    if (b.NZamer == 2) b.PeriodNach = b.Period;
    if (b.NZamer > 0) port.periodMeasured();
    b.Tper0 = b.Tsec;
}

void passNode(const ModelState& s, TwoBody& b, TwoBodyPort& port) {
    b.AlfaU = meanLongitude(b.LonOld, s.LonPl[m1], seam);
    windowAround(b.AlfaU, b.dAlfa, b.UzelHi, b.UzelLo);
    port.nodePassed();
}

void watchNode(ModelState& s, TwoBody& b, TwoBodyPort& port) {
    const double z = s.Z[m1] - s.Z[b.origin];
    if (Sgn(b.ZOldSel) != Sgn(z) && Sgn(b.ZOldSel) <= 0) passNode(s, b, port);
    b.ZOldSel = z;
}

void passPeriastron(ModelState& s, TwoBody& b, double latitude, TwoBodyPort& port) {
    b.kodApsis = codeOf(ApseSearch::Found);
    const double onEcliptic = meanLongitude(b.LonOld, s.LonPl[m1], seam);
    double u = onEcliptic - b.AlfaU;
    if (u <= 0) u += 360;
    SpherToXYZ(s, 12, u, latitude * kUgol, b.Rcur);
    s.Ipl = 12;
    TiltYZ(s, b.Betta);
    PairGeometry(s, 15, 12);
    b.AlfaP = notNegative(below360(b.AlfaU + s.LonPl[12]));
    windowAround(onEcliptic, b.dAlfa, b.PeriHi, b.PeriLo);
    windowAround(onEcliptic, b.dAlfaSopr, b.DragHi, b.DragLo);
    ++b.NZamer;
    s.Rr[m1] = (b.Rmin + b.Rmax) / 2;
    b.Eks = 1 - ratio(b.Rmin, s.Rr[m1]);
    if (b.NZamer == 1 && !b.fromNode) beginCounting(b);
    port.periastronPassed();
    b.Rmin *= 2;
    b.Rmax /= 2;
    b.Vmin *= 2;
    b.Vmax /= 2;
    b.Betta = 0;
    b.VYmin = Vsv;
    b.VYmax = -Vsv;
    b.Rem_min = MK;
    b.Rem_max = -MK;
}

/// Latitude, distance, speed and delay may be the greatest or smallest since the last periastron.
/// @return  size of the latitude, rad
double followExtremes(const ModelState& s, TwoBody& b) {
    const double latitude = std::abs(s.LatPl / kUgol);
    b.Betta = std::max(b.Betta, latitude);
    b.Rmin = std::min(b.Rmin, b.Rcur);
    b.Rmax = std::max(b.Rmax, b.Rcur);
    b.Vmin = std::min(b.Vmin, b.V1);
    b.Vmax = std::max(b.Vmax, b.V1);
    b.VYmin = std::min(b.VYmin, s.VY[m1]);
    b.VYmax = std::max(b.VYmax, s.VY[m1]);
    b.Rem_min = std::min(b.Rem_min, s.Y[m1] / Vsv);
    b.Rem_max = std::max(b.Rem_max, s.Y[m1] / Vsv);
    return latitude;
}

void measure(ModelState& s, TwoBody& b, TwoBodyPort& port) {
    b.LonOld = s.LonPl[m1];
    geometry(s, b);
    const double latitude = followExtremes(s, b), longitude = s.LonPl[m1];
    countDelays(s, b, b.DtCur);
    if (longitude < b.LonOld) passWrap(b, port);
    watchNode(s, b, port);

    if (!inWindow(longitude, b.PeriHi, b.PeriLo)) {
        b.kodApsis = codeOf(ApseSearch::Idle);
        b.DtCur = b.Dt;
    } else if (b.kodApsis == codeOf(ApseSearch::Found)) {
        b.DtCur = b.Dt;
    } else {
        b.DtCur = b.Dt / b.kDt;
        b.kodApsis = codeOf(ApseSearch::Approaching);
        if (!(b.Rold > b.Rcur)) passPeriastron(s, b, latitude, port);
    }
    b.Rold = b.Rcur;
    if (inWindow(longitude, b.UzelHi, b.UzelLo) || longitude > 359) b.DtCur = b.Dt / b.kDt;
    b.drag = inWindow(longitude, b.DragHi, b.DragLo) ? b.kSopr : 0;
}

// ------------------------------------------------------------------ exact passages

using PairState = decltype(TwoBody::U);

/// The three cells of a body in U from a cell on: m2 1, m1 4, their velocities 7 and 10.
Vec3 cells(const PairState& U, std::size_t first) { return {U[first], U[first + 1], U[first + 2]}; }

/// What a vector from m2 to m1 is from the origin of the longitudes.
double observedShare(const ModelState& s, const TwoBody& b) {
    return b.origin == rowCentre ? ratio(mass2(s), mass1(s) + mass2(s)) : 1;
}

OrbitPoint observed(double share, const PairState& U) {
    return {share * (cells(U, 4) - cells(U, 1)), share * (cells(U, 10) - cells(U, 7))};
}

/// The step just made, as observed; the forces shown stay those of its last stage.
Arc arcOfStep(ModelState& s, TwoBody& b, double share, const OrbitPoint& before, const OrbitPoint& after) {
    const PairState U = b.U, dU = b.dU;
    const double Ft1 = b.Ft1, Fik = b.Fik;
    const auto pull = [&](const PairState& at) {
        b.U = at;
        TwoBodyDiffur(s, b);
        return share * (cells(b.dU, 10) - cells(b.dU, 7));
    };
    const Vec3 a0 = pull(b.U0), a1 = pull(U);
    b.U = U;
    b.dU = dU;
    b.Ft1 = Ft1;
    b.Fik = Fik;
    return Arc::hermite(b.DtCur, before, after.r - before.r, after.v - before.v, a0, a1);
}

/// Puts m1 to a passage and takes what it brings; Tsec is its time.
void passExactly(ModelState& s, TwoBody& b, const FoundPassage& passage, TwoBodyPort& port) {
    const Vec3& r = passage.point.r;
    const int origin = b.origin;
    s.X[m1] = s.X[origin] + r.x, s.Y[m1] = s.Y[origin] + r.y, s.Z[m1] = s.Z[origin] + r.z;
    PairGeometry(s, origin, m1);
    b.Rcur = s.Rcur;
    b.LonOld = s.LonPl[m1];
    const double part2 = mass2(s) / (mass1(s) + mass2(s));
    const Vec3 centreOfMass = (1 - part2) * cells(b.U, 10) + part2 * cells(b.U, 7);
    const Vec3 speed = centreOfMass + part2 / observedShare(s, b) * passage.point.v;
    b.V1 = length(speed);
    s.VY[m1] = speed.y;
    const double latitude = followExtremes(s, b);
    if (passage.what == Passing::Wrap) passWrap(b, port);
    if (!passage.upwards) return;
    if (passage.what == Passing::Node) passNode(s, b, port);
    if (passage.what == Passing::Apse) passPeriastron(s, b, latitude, port);
}

void measureExactly(ModelState& s, TwoBody& b, TwoBodyPort& port) {
    const double share = observedShare(s, b), begun = b.Tsec;
    const OrbitPoint before = observed(share, b.U0), after = observed(share, b.U);
    geometry(s, b);
    double counted = 0;
    if (maybePassed(before, after)) {
        Arc arc = arcOfStep(s, b, share, before, after);
        for (const FoundPassage& passage : findPassages(before, after, arc)) {
            countDelays(s, b, (passage.share - counted) * b.DtCur);
            counted = passage.share;
            b.Tsec = begun + passage.share * b.DtCur;
            passExactly(s, b, passage, port);
        }
        b.Tsec = begun;
        unpack(s, b);
        geometry(s, b);
    }
    followExtremes(s, b);
    countDelays(s, b, (1 - counted) * b.DtCur);
    b.drag = inWindow(s.LonPl[m1], b.DragHi, b.DragLo) ? b.kSopr : 0;
}

}  // namespace

void twoBodyCentre(ModelState& s) {
    const double a = mass2(s), b = mass1(s), sum = a + b;
    s.X[14] = ratio(s.X[m2] * a + s.X[m1] * b, sum);
    s.Y[14] = ratio(s.Y[m2] * a + s.Y[m1] * b, sum);
    s.Z[14] = ratio(s.Z[m2] * a + s.Z[m1] * b, sum);
}

void twoBodyInitialData(ModelState& s) {
    s.Ipl = m1;
    s.kodMoon = 1;
    const double share = ratio(mass1(s), mass2(s));
    ElementsToXYZ(s);
    ElementsToVXYZ(s);
    const bool aboutCentre = s.kodBary == codeOf(CentralMass::AboutCentre);
    for (Rows* axis : {&s.X, &s.Y, &s.Z}) (*axis)[m2] = aboutCentre ? -(*axis)[m1] * share : 0;
    for (Rows* axis : {&s.VX, &s.VY, &s.VZ}) {
        if (!aboutCentre) (*axis)[m1] /= share + 1;
        (*axis)[m2] = -(*axis)[m1] * share;
    }
    for (const int i : {m2, m1}) {
        s.X0[i] = s.X[i], s.Y0[i] = s.Y[i], s.Z0[i] = s.Z[i];
        s.VX0[i] = s.VX[i], s.VY0[i] = s.VY[i], s.VZ0[i] = s.VZ[i];
    }
}

void startTwoBody(ModelState& s, TwoBody& b) {
    if (b.kDt == 0) throw ArithmeticFailure("делитель шага равен нулю");
    s.X[15] = s.Y[15] = s.Z[15] = 0;
    b.U = {0,        s.X[m2],  s.Y[m2],  s.Z[m2],  s.X[m1],  s.Y[m1], s.Z[m1],
           s.VX[m2], s.VY[m2], s.VZ[m2], s.VX[m1], s.VY[m1], s.VZ[m1]};
    geometry(s, b);
    atDisplay(s, b);
    ratio(1, b.distance);
    b.Rold = b.Rcur;
    b.R0 = b.distance;
    b.ZOldSel = s.Z[m1] - s.Z[b.origin];
    b.E0sys = finite(kinetic(s, b));
    b.MKD0sys = finite(moment(s));
    b.Rmin = 2 * b.Rcur;
    b.Rmax = b.Rcur / 2;
    b.Vmin = 2 * b.V1;
    b.Vmax = b.V1 / 2;
    b.AlfaP = kUgol * s.AlfaP0[m1];
    b.AlfaU = kUgol * s.AlfaU0[m1];
    b.Betta = s.Betta0[m1];
    b.Eks = s.Eks0[m1];
    s.Rr[m1] = s.R0sr[m1];
    takeBaselines(s, b);
    windowAround(b.AlfaP, 45, b.PeriHi, b.PeriLo);
    windowAround(b.AlfaU, b.dAlfa, b.UzelHi, b.UzelLo);
    windowAround(b.AlfaPnach, b.dAlfaSopr, b.DragHi, b.DragLo);
    b.DtCur = b.Dt;
}

void takeBaselines(const ModelState& s, TwoBody& b) {
    b.AlfaPnach = b.AlfaP;
    b.AlfaUnach = b.AlfaU;
    b.BettaNach = b.Betta;
    b.EksNach = b.Eks;
    b.RsrNach = s.Rr[m1];
    b.PeriodNach = b.Period;
}

void TwoBodyDiffur(ModelState& s, TwoBody& b) {
    const auto& U = b.U;
    for (int k = 1; k <= 6; ++k) b.dU[k] = U[k + 6];
    const Vec3 v2{U[7], U[8], U[9]}, v1{U[10], U[11], U[12]};
    Vec3 to1{U[4] - U[1], U[5] - U[2], U[6] - U[3]}, to2{-to1.x, -to1.y, -to1.z};
    if (b.withVgr && b.source == TwoBody::Ft::ByRetardation) {
        to1 = retarded(to1, v2, b.Vgr);
        to2 = retarded(to2, v1, b.Vgr);
    }
    const double speed1 = length(v1.x, v1.y, v1.z), speed2 = length(v2.x, v2.y, v2.z);
    const double product = mass2(s) * mass1(s) * s.gamma;

    // force on the body at the end of d, and what the speed of gravity and the drag add to it
    const auto force = [&](const Vec3& d, const Vec3& v, double& Fik) {
        const double R2 = d.x * d.x + d.y * d.y + d.z * d.z, R = std::sqrt(R2);
        Fik = product / R2;
        Vec3 f{-d.x / R * Fik, -d.y / R * Fik, -d.z / R * Fik};
        if (b.withVgr && b.drag != 0) {
            f.x -= b.drag * v.x * std::abs(v.x);
            f.y -= b.drag * v.y * std::abs(v.y);
            f.z -= b.drag * v.z * std::abs(v.z);
        }
        return f;
    };
    const auto along = [](Vec3& f, double Ft, const Vec3& v, double speed) {
        if (Ft == 0) return;
        f.x += Ft * v.x / speed;
        f.y += Ft * v.y / speed;
        f.z += Ft * v.z / speed;
    };
    double F2 = 0;
    Vec3 on1 = force(to1, v1, b.Fik), on2 = force(to2, v2, F2);
    b.Ft1 = 0;
    if (b.withVgr) {
        if (b.source == TwoBody::Ft::ByFormula) b.Ft1 = (b.byOtherSpeed ? speed2 : speed1) * b.Fik / b.Vgr;
        if (b.source == TwoBody::Ft::Given) b.Ft1 = b.FtGiven;
        along(on1, b.Ft1, v1, speed1);
        if (b.alsoOnM2 && b.source == TwoBody::Ft::ByFormula)
            along(on2, (b.byOtherSpeed ? speed1 : speed2) * F2 / b.Vgr, v2, speed2);
    }
    b.dU[7] = on2.x / mass2(s), b.dU[8] = on2.y / mass2(s), b.dU[9] = on2.z / mass2(s);
    b.dU[10] = on1.x / mass1(s), b.dU[11] = on1.y / mass1(s), b.dU[12] = on1.z / mass1(s);
}

void runTwoBodyBatch(ModelState& s, TwoBody& b, TwoBodyPort& port) {
    ratio(1, b.Vgr);
    const ArithmeticGuard guard;
    int NC = 0;
    do {
        if (b.exact) b.DtCur = b.Dt;
        rungeKuttaStep(s, b);
        try {
            guard.check();
        } catch (const ArithmeticFailure&) {
            b.U = b.U0;
            throw;
        }
        unpack(s, b);
        if (b.exact) {
            measureExactly(s, b, port);
        } else {
            measure(s, b, port);  // refuses by itself what could not be divided
        }
        port.stepDone();
        ++NC;
        b.Tsec += b.DtCur;
    } while (NC < b.NC0);
    guard.check();
    atDisplay(s, b);
    b.Esys = kinetic(s, b) + s.gamma * mass1(s) * mass2(s) * (1 / b.R0 - 1 / b.distance);
    b.MKDsys = moment(s);
}

}  // namespace tarvex
