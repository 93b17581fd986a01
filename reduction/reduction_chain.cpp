#include "reduction/reduction_chain.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/et_ut.h"
#include "reduction/coordinate_chain.h"
#include "reduction/theory_places.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

constexpr int rowObserver = 12;
constexpr int savedEarth = 23, savedBody = 20;  ///< rows of the J2000 copies; the body's is 20 + IplSel

/// One pass; holds what its steps share.
class Pass {
public:
    Pass(ModelState& s_, ReductionState& r_, const PlanBlock& plan_, const StageLog& log_)
        : s(s_),
          r(r_),
          c(r_.choices),
          plan(plan_),
          log(log_),
          system(r_.velocity.of(s_)),
          b(s_.IplSel),
          T((s_.JDut0 - JD2000) / 36525) {}

    void theory();
    bool VisibilityTest(const HeliocentricView& view);
    void chain();

private:
    void earth();
    void moon();
    void earthAndMoon();
    void planet();
    void byEarthTheory();
    void perturb(int body);
    void place(int origin, int body);
    void sphere(int body, double R) { SpherToXYZ(s, body, s.Lpl[body], s.Bpl[body], R); }
    void tell(const char* label, int body, double R) const {
        if (log) log(label, s.Lpl[body], s.Bpl[body], R);
    }
    SkyPlace horizon(int body);
    void copyRow(int to, int from) { s.X[to] = s.X[from], s.Y[to] = s.Y[from], s.Z[to] = s.Z[from]; }
    void subtractRow(int from, int what, int sign = 1) {
        s.X[from] -= sign * s.X[what], s.Y[from] -= sign * s.Y[what], s.Z[from] -= sign * s.Z[what];
    }
    void addSystemVelocity(int body) {
        s.VX[body] = finite(s.VX[body] + system.X * 1000);
        s.VY[body] = finite(s.VY[body] + system.Y * 1000);
        s.VZ[body] = finite(s.VZ[body] + system.Z * 1000);
    }
    void reach(ChainStage stage, const char* label);
    void refraction();

    ModelState& s;
    ReductionState& r;
    const ReductionChoices& c;
    const PlanBlock& plan;
    const StageLog& log;
    const ToolVelocity::Value system;  ///< velocity of the whole system, km/s
    const int b;                       ///< the observed body
    const double T;                    ///< centuries from J2000, universal time
};

/// Longitude, latitude and distance of a body as seen from an origin.
void Pass::place(int origin, int body) {
    PairGeometry(s, origin, body);
    s.Lpl[body] = s.LonPl[body];
    s.Bpl[body] = s.LatPl;
    if (origin < 16) s.Rpl[origin][body] = s.Rcur;
}

void Pass::byEarthTheory() {
    if (c.earth == EarthTheory::JPL0) {
        InitMassesJPL0(s);
        PosByJPL0(s);
        return;
    }
    InitMassesSer0(s);
    c.earth == EarthTheory::Ser0 ? PosBySer0(s) : PosBySer0Plus(s);
}

/// Periodic terms of a planet; a plan of perturbations puts its own amplitudes in place first.
void Pass::perturb(int body) {
    PlanetPerturbColumns(s, body);
    if (r.kodDLplan == 1 && (body == b || b == rowSun))
        for (int k = 1; k <= 8; ++k) s.kLp[r.NplDL][k] = plan.XU[k + 1][r.experiment];
    PlanetPerturbFromColumns(s, body);
}

void Pass::earth() {
    s.Ipl = 3;
    if (c.planet == PlanetTheory::Plan && b == rowSun) {
        PosByPlan(s, r, plan);
        if (!c.epochJ2000) ApplyPrecessXYZ(s);
    } else {
        byEarthTheory();
    }
    place(0, 3);
    tell("  Zem Gelio Ecl J2000  ", 3, s.Rpl[0][3]);
    if (!c.earthMoonTerms) return;
    perturb(3);
    sphere(3, s.Rpl[0][3]);
    tell("  Zem_dLdB    GEЛИO ECL JD-J2000 ", 3, s.Rpl[0][3]);
}

void Pass::moon() {
    s.Ipl = rowMoon;
    s.kodMoon = 1;
    if (c.planet == PlanetTheory::Plan && b == rowMoon) {
        PosByPlan(s, r, plan);
        if (!c.epochJ2000) ApplyPrecessXYZ(s);
    } else {
        byEarthTheory();
        if (c.earth == EarthTheory::JPL0) ApplyPrecessXYZ(s);  // the Moon of that theory is of the date
    }
    s.JD = s.JDut0;
    place(0, rowMoon);
    s.Rpl[3][rowMoon] = s.Rcur;
    tell("  Moon  GEO ECL JD-J2000 ", rowMoon, s.Rcur);
    if (!c.earthMoonTerms) return;
    MoonPerturbApply(s);
    sphere(rowMoon, s.Rpl[3][rowMoon]);
    tell(" MOON_dLdB_012    GEO ECL JD-J2000 ", rowMoon, s.Rpl[3][rowMoon]);
}

/// From the centre of mass to the Earth itself, and the Moon from geocentric to heliocentric.
void Pass::earthAndMoon() {
    const double share = ratio(s.m[rowMoon], s.m[rowEarth]);
    s.X[3] -= s.X[rowMoon] * share;
    s.Y[3] -= s.Y[rowMoon] * share;
    s.Z[3] -= s.Z[rowMoon] * share;
    addSystemVelocity(3);
    subtractRow(rowMoon, 3, -1);
    s.VX[rowMoon] += s.VX[3], s.VY[rowMoon] += s.VY[3], s.VZ[rowMoon] += s.VZ[3];
    place(3, rowMoon);
    tell("  Moon  GEO ECL J2000 ", rowMoon, s.Rcur);
    place(0, 3);
}

void Pass::planet() {
    s.Ipl = static_cast<std::int16_t>(b);
    s.kodMoon = 0;
    switch (c.planet) {
        case PlanetTheory::Plan:
            PosByPlan(s, r, plan);
            if (!c.epochJ2000) ApplyPrecessXYZ(s);
            break;
        case PlanetTheory::JPL0:
            InitMassesJPL0(s);
            PosByJPL0(s);
            break;
        case PlanetTheory::Ser0:
            InitMassesSer0(s);
            c.earth == EarthTheory::Ser0Plus ? PosBySer0Plus(s) : PosBySer0(s);
            break;
    }
    addSystemVelocity(b);
    place(0, b);
    tell("  Ras Gelio Ecl     ", b, s.Rcur);
    if (!c.planetTerms) return;
    perturb(b);
    sphere(b, s.Rpl[0][b]);
    tell("  Planeta_dLdB    GEO ECL JD-J2000 ", b, s.Rpl[0][b]);
}

void Pass::theory() {
    s.X[0] = s.Y[0] = s.Z[0] = 0;
    s.VX[0] = finite(system.X * 1000), s.VY[0] = finite(system.Y * 1000), s.VZ[0] = finite(system.Z * 1000);
    s.JDet = s.JDut0 + EtUt1900(s) / 24 / 3600;
    s.kodBary = 0;
    s.kodMoon = 0;
    PrecessMatrixEcl(s, T, 0);
    for (s.Ipl = 1; s.Ipl <= 9; ++s.Ipl) ElementsSer0Plus(s);  // mean longitudes for the perturbations
    earth();
    moon();
    earthAndMoon();
    if (b != rowSun && b != rowMoon) planet();
    s.JD = s.JDut0;
    ObserverRow(s, s.JDut0);
    copyRow(savedEarth, 3);
    copyRow(savedBody + b, b);
}

/// Azimuth (-180..180, 0 south) and altitude of a heliocentric row of the date; the row is turned into the
/// horizon.
SkyPlace Pass::horizon(int body) {
    subtractRow(body, 3);
    s.Ipl = static_cast<std::int16_t>(body);
    EclToEqu(s, T);
    subtractRow(body, rowObserver);
    PairGeometry(s, rowOrigin, body);
    const double R = s.Rcur;
    s.Lpl[body] = s.LonPl[body];
    s.Bpl[body] = s.LatPl;
    ToHorizon(s, body);
    SpherToXYZ(s, body, s.Azim, s.Vys, R);
    if (s.Azim > 180) s.Azim -= 360;
    return {s.Azim, s.Vys};
}

bool Pass::VisibilityTest(const HeliocentricView& view) {
    PrecessMatrixEcl(s, 0, T);
    s.Ipl = 3;
    ApplyPrecessXYZ(s);
    s.Ipl = static_cast<std::int16_t>(b);
    ApplyPrecessXYZ(s);
    if (view) {
        const FlagsKept flags;
        view();
    }
    if (!c.visibility && !c.horizonPicture) return true;
    const SkyPlace keptSun{s.Lpl[0], s.Bpl[0]}, keptBody{s.Lpl[b], s.Bpl[b]};
    r.body = horizon(b);
    bool seen = r.body.B >= c.HplMin;
    if (b == rowSun) {
        r.sun = r.body;
    } else {
        const double azimuth = s.Azim, altitude = s.Vys, hourAngle = s.TAU;
        r.sun = horizon(rowSun);
        if (c.darkSky && r.sun.B > c.HsolMax) seen = false;
        s.Azim = azimuth, s.Vys = altitude, s.TAU = hourAngle;
    }
    s.Lpl[0] = keptSun.L, s.Bpl[0] = keptSun.B;
    s.Lpl[b] = keptBody.L, s.Bpl[b] = keptBody.B;
    return seen || !c.visibility;
}

/// A stage of the chain is done: its place is kept, and logged.
void Pass::reach(ChainStage stage, const char* label) {
    PairGeometry(s, 3, b);
    s.Lpl[b] = s.LonPl[b];
    s.Bpl[b] = s.LatPl;
    r.stage[stage] = {s.Lpl[b], s.Bpl[b]};
    r.reached[stage] = true;
    tell(label, b, s.Rcur);
}

/// Refraction lowers the theory here, and the vector goes back to the geocentric distance: meant.
void Pass::refraction() {
    if (!c.parallax) subtractRow(b, rowObserver);
    PairGeometry(s, 3, b);
    s.Lpl[b] = s.LonPl[b];
    s.Bpl[b] = s.LatPl;
    ToHorizon(s, b);
    s.Vys -= Refraction(90 - s.Vys);
    HorizonToXYZ2(s, b);
    PairGeometry(s, rowOrigin, b);
    s.TAU = s.LonPl[b];
    double ascension = s.LMST - s.TAU;
    if (ascension < 0) ascension += 360;
    SpherToXYZ(s, b, ascension, s.LatPl, r.Rgeo);
    if (!c.parallax) subtractRow(b, rowObserver, -1);
}

void Pass::chain() {
    copyRow(3, savedEarth);
    copyRow(b, savedBody + b);
    r.reached.fill(false);

    subtractRow(b, 3);
    s.X[0] = -s.X[3], s.Y[0] = -s.Y[3], s.Z[0] = -s.Z[3];
    s.X[3] = s.Y[3] = s.Z[3] = 0;
    reach(stageJ2000, "  Ras GEO ECL J2000   ");
    r.Rgeo = s.Rcur;
    s.Rpl[3][b] = s.Rcur;
    s.Tsv[3][b] = s.Rcur / Vsv;
    if (c.aberrSource) {
        AberrSource(s, b, s.X[b], s.Y[b], s.Z[b]);
        reach(stageSource, "  GEO ECL Ras Apl    ");
    }
    if (c.aberrReceiver) {
        AberrReceiver(s, b);
        reach(stageReceiver, "  GEO ECL Ras Azv    ");
    }
    PrecessMatrixEcl(s, 0, T);
    s.Ipl = static_cast<std::int16_t>(b);
    ApplyPrecessXYZ(s);
    reach(stageOfDate, "  J2000 -> JD   ");
    EclToEqu(s, T);
    reach(stageEquator, "  GEO ECL -> GEO EQU   ");
    if (c.parallax) {
        subtractRow(b, rowObserver);
        reach(stageParallax, "  GEO EQU Ras Par   ");
    }
    if (c.refraction) {
        refraction();
        reach(stageRefraction, "  GEO EQU Ras Ref   ");
    }
    if (c.nutation) {
        Nutation(T, s.X[b], s.Y[b], s.Z[b], 0);
        reach(stageNutation, "  GEO EQU Ras Nut   ");
    }
    if (c.tables) {
        EquToEcl(s, T);
        reach(stageEcliptic, "  GEO EQU -> GEO ECL   ");
    }
    r.Lt = s.Lpl[b];
    r.Bt = s.Bpl[b];
}

double halfTurn(double difference) {
    if (difference > 300) return difference - 360;
    if (difference < -300) return difference + 360;
    return difference;
}

}  // namespace

void PosByPlan(ModelState& s, const ReductionState& r, const PlanBlock& plan) {
    const int i = s.Ipl;
    const auto value = [&](int factor) { return plan.XU[factor][r.experiment]; };
    s.JD = s.JDut0;
    s.TT = (s.JD - s.JDepoha) / 36525;
    s.R0sr[i] = value(1);
    s.Eks0[i] = value(2);
    s.W0sr[i] = value(6);  // rad a century here
    s.Betta0[i] = value(3) / kUgol;
    s.AlfaP0[i] = value(4) / kUgol;
    s.AlfaU0[i] = value(5) / kUgol;
    s.AlfaL[i] = value(7) / kUgol + s.TT * s.W0sr[i];
    if (i == rowMoon) {
        s.AlfaP0[i] += s.TT * value(8);
        s.AlfaU0[i] += s.TT * value(9);
    } else if (!r.choices.epochJ2000) {
        const double precession = r.choices.Precess * s.TT / 3600 / kUgol;
        s.AlfaP0[i] += precession;
        s.AlfaU0[i] += precession;
    }
    InitMassesSer0(s);
    ElementsToXYZ(s);
    ElementsToVXYZ(s);
}

void reduceTheory(ModelState& s, ReductionState& r, const PlanBlock& plan, const StageLog& log,
                  const HeliocentricView& view) {
    s.JDut0 = s.JD;
    const RunInputsKept kept(s);
    const ArithmeticGuard guard;
    Pass pass(s, r, plan, log);
    pass.theory();
    r.kodVidim = pass.VisibilityTest(view) ? 1 : 0;
    if (r.kodVidim == 1) pass.chain();
    guard.check();
}

void compareWithData(ModelState& s, ReductionState& r) {
    const int b = s.IplSel;
    r.dL = halfTurn(finite(r.Lt - r.Ln));
    r.dB = halfTurn(finite(r.Bt - r.Bn));
    const double x = s.X[b], y = s.Y[b], z = s.Z[b];
    SpherToXYZ(s, b, r.Ln, r.Bn, r.Rgeo);  // the data at the distance of the theory
    r.dR = finite(std::hypot(s.X[b] - x, s.Y[b] - y, s.Z[b] - z) / MK);
    s.Lpl[b] = r.Ln;  // the row keeps the data: a table that has not this body shows them again
    s.Bpl[b] = r.Bn;
}

}  // namespace tarvex
