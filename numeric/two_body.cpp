#include "numeric/two_body.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "theories/elements.h"

namespace tarvex {

namespace {

constexpr int m1 = rowM1, m2 = rowM2;

double mass1(const ModelState& s) { return s.m[cellMass1]; }
double mass2(const ModelState& s) { return s.m[cellMass2]; }
PairBodies both(const ModelState& s) { return {.row = m1, .m = mass1(s), .mCentre = mass2(s)}; }

/// Difference of the positions from i to j after the pull of i has travelled: two iterations.
Vec3 retarded(const Vec3& d, const Vec3& velocity, double Vgr) {
    Vec3 now = d;
    double T = length(d) / Vgr;
    for (int iteration = 1; iteration <= 2; ++iteration) {
        now = {d.x + velocity.x * T, d.y + velocity.y * T, d.z + velocity.z * T};
        T = length(now) / Vgr;
    }
    return now;
}

/// What acts at a state of the bodies.
struct Forces {
    PairAccelerations a;
    double Ft1 = 0, Fik = 0;  ///< along the velocity of m1, and the attraction of m1, N

    /// Keeps the forces for the display.
    const PairAccelerations& taken(TwoBody& b) const {
        b.Ft1 = Ft1;
        b.Fik = Fik;
        return a;
    }
};

/// Attraction and drag on the body at the end of d.
/// @param Fik  the attraction, N
inline Vec3 forceOn(const TwoBody& b, double product, const Vec3& d, const Vec3& v, double& Fik) {
    const double R2 = d.x * d.x + d.y * d.y + d.z * d.z, R = std::sqrt(R2);
    Fik = product / R2;
    Vec3 f{-d.x / R * Fik, -d.y / R * Fik, -d.z / R * Fik};
    if (b.withVgr && b.drag != 0) {
        f.x -= b.drag * v.x * std::abs(v.x);
        f.y -= b.drag * v.y * std::abs(v.y);
        f.z -= b.drag * v.z * std::abs(v.z);
    }
    return f;
}

/// Adds a force Ft along a velocity.
inline void addAlong(Vec3& f, double Ft, const Vec3& v, double speed) {
    if (Ft == 0) return;
    f.x += Ft * v.x / speed;
    f.y += Ft * v.y / speed;
    f.z += Ft * v.z / speed;
}

[[gnu::always_inline]] inline Forces forcesAt(const ModelState& s, const TwoBody& b, const PairState& U) {
    const Vec3 v2 = cells(U, 7), v1 = cells(U, 10);
    Vec3 to1 = cells(U, 4) - cells(U, 1), to2 = -to1;
    if (b.withVgr && b.source == TwoBody::Ft::ByRetardation) {
        to1 = retarded(to1, v2, b.Vgr);
        to2 = retarded(to2, v1, b.Vgr);
    }
    const double speed1 = length(v1), speed2 = length(v2);
    const double product = mass2(s) * mass1(s) * s.gamma;
    Forces all;
    double F2 = 0;
    Vec3 on1 = forceOn(b, product, to1, v1, all.Fik), on2 = forceOn(b, product, to2, v2, F2);
    if (b.withVgr) {
        if (b.source == TwoBody::Ft::ByFormula)
            all.Ft1 = (b.byOtherSpeed ? speed2 : speed1) * all.Fik / b.Vgr;
        if (b.source == TwoBody::Ft::Given) all.Ft1 = b.FtGiven;
        addAlong(on1, all.Ft1, v1, speed1);
        if (b.alsoOnM2 && b.source == TwoBody::Ft::ByFormula)
            addAlong(on2, (b.byOtherSpeed ? speed1 : speed2) * F2 / b.Vgr, v2, speed2);
    }
    all.a = {on2.x / mass2(s), on2.y / mass2(s), on2.z / mass2(s),
             on1.x / mass1(s), on1.y / mass1(s), on1.z / mass1(s)};
    return all;
}

void geometry(ModelState& s, TwoBody& b) {
    if (b.origin == rowCentre) twoBodyCentre(s);
    PairGeometry(s, b.origin, m1);
    b.Rcur = s.Rcur;
    b.distance = b.origin == m2 ? b.Rcur : length(placeOf(s, m1) - placeOf(s, m2));
    b.V1 = length(velocityOf(s, m1));
}

/// What only the display and the energy need.
void atDisplay(ModelState& s, TwoBody& b) {
    twoBodyCentre(s);
    b.V2 = length(velocityOf(s, m2));
}

double moment(const ModelState& s) {
    return ((s.VY[m1] - s.VY[m2]) * (s.X[m1] - s.X[m2]) - (s.VX[m1] - s.VX[m2]) * (s.Y[m1] - s.Y[m2])) *
           mass1(s);
}

double kinetic(const ModelState& s, const TwoBody& b) {
    return mass1(s) * b.V1 * b.V1 / 2 + mass2(s) * b.V2 * b.V2 / 2;
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

/// @param longitude  of the node, degrees
void passNode(TwoBody& b, double longitude, TwoBodyPort& port) {
    b.AlfaU = longitude;
    windowAround(b.AlfaU, b.dAlfa, b.UzelHi, b.UzelLo);
    port.nodePassed();
}

/// @param onEcliptic  longitude of the periastron, degrees
/// @param latitude    size of it, rad
void passPeriastron(ModelState& s, TwoBody& b, double onEcliptic, double latitude, TwoBodyPort& port) {
    b.kodApsis = codeOf(ApseSearch::Found);
    b.AlfaP = notNegative(below360(longitudeInOrbit(s, b, onEcliptic, latitude, b.Rcur)));
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

/// What the bench does with what its watch has noticed.
struct Noticed {
    double distance() const { return b.Rcur; }
    void wrapped() { passWrap(b, port); }
    void node(bool) { passNode(b, passedHere(), port); }
    void baseStep() { b.DtCur = b.Dt; }
    void smallStep() { b.DtCur = b.Dt / b.kDt; }
    void approaching() {}
    void apse() { passPeriastron(s, b, passedHere(), latitude, port); }
    double passedHere() const { return passedLongitude(b, pairRules, s.LonPl[m1]); }

    ModelState& s;
    TwoBody& b;
    double latitude;
    TwoBodyPort& port;
};

void measure(ModelState& s, TwoBody& b, TwoBodyPort& port) {
    b.LonOld = s.LonPl[m1];
    geometry(s, b);
    const double latitude = followExtremes(s, b), longitude = s.LonPl[m1];
    countDelays(s, b, b.DtCur);
    Noticed user{s, b, latitude, port};
    watchOrbit(b, pairRules, {longitude, s.Z[m1] - s.Z[b.origin]}, user);
    if (wantsSmallStep(longitude, inWindow(longitude, b.UzelHi, b.UzelLo))) user.smallStep();
    b.drag = inWindow(longitude, b.DragHi, b.DragLo) ? b.kSopr : 0;
}

void measureExactly(ModelState& s, TwoBody& b, TwoBodyPort& port) {
    const PairBodies pair = both(s);
    const double part2 = pair.mCentre / (pair.m + pair.mCentre);
    geometry(s, b);
    double counted = 0;
    const auto pull = [&](const PairState& U) { return forcesAt(s, b, U).a.relative(); };
    const auto reach = [&](double passed) {
        countDelays(s, b, (passed - counted) * b.DtCur);
        counted = passed;
    };
    const auto pass = [&](const FoundPassage& passage, const Vec3& fromCentre) {
        b.Rcur = s.Rcur;
        const Vec3 centreOfMass = (1 - part2) * cells(b.U, 10) + part2 * cells(b.U, 7);
        const Vec3 speed = centreOfMass + fromCentre;
        b.V1 = length(speed);
        s.VY[m1] = speed.y;
        const double latitude = followExtremes(s, b);
        if (passage.what == Passing::Wrap) passWrap(b, port);
        if (!passage.upwards) return;
        if (passage.what == Passing::Node) passNode(b, s.LonPl[m1], port);
        if (passage.what == Passing::Apse) passPeriastron(s, b, s.LonPl[m1], latitude, port);
    };
    if (passagesInStep(s, b, pair, pull, reach, pass)) geometry(s, b);
    followExtremes(s, b);
    countDelays(s, b, (1 - counted) * b.DtCur);
    b.drag = inWindow(s.LonPl[m1], b.DragHi, b.DragLo) ? b.kSopr : 0;
}

}  // namespace

void twoBodyCentre(ModelState& s) { pairCentre(s, both(s)); }

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
    for (const int row : {m2, m1}) setInitial(s, row, {placeOf(s, row), velocityOf(s, row)});
}

void startTwoBody(ModelState& s, TwoBody& b) {
    if (b.kDt == 0) throw ArithmeticFailure("делитель шага равен нулю");
    setPlace(s, rowOrigin, {});
    b.U = packedPair(s, m1);
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

void TwoBodyDiffur(ModelState& s, TwoBody& b) { toDerivatives(b.U, forcesAt(s, b, b.U).taken(b), b.dU); }

void runTwoBodyBatch(ModelState& s, TwoBody& b, TwoBodyPort& port) {
    ratio(1, b.Vgr);
    const ArithmeticGuard guard;
    int NC = 0;
    do {
        guardedStep(b, guard, [&](const PairState& U) { return forcesAt(s, b, U).taken(b); });
        unpackPair(s, b.U, m1);
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
