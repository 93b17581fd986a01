#include "reduction/reduction_chain.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/et_ut.h"
#include "core/rows.h"
#include "reduction/apparent_place.h"
#include "reduction/coordinate_chain.h"
#include "reduction/sky.h"
#include "reduction/sky_rows.h"
#include "reduction/theory_places.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

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
          T(sky::centuries(s_.JDut0)) {}

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
    void copyPlace(int to, int from) { setPlace(s, to, placeOf(s, from)); }
    void addSystemVelocity(int body) {
        s.VX[body] = finite(s.VX[body] + system.X * 1000);
        s.VY[body] = finite(s.VY[body] + system.Y * 1000);
        s.VZ[body] = finite(s.VZ[body] + system.Z * 1000);
    }
    void geocentric();
    void reach(ApparentPlace& p, ChainStage stage, const char* label);
    void refraction(ApparentPlace& p);

    ModelState& s;
    ReductionState& r;
    const ReductionChoices& c;
    const PlanBlock& plan;
    const StageLog& log;
    const ToolVelocity::Value system;  ///< velocity of the whole system, km/s
    const int b;                       ///< the observed body
    const double T;                    ///< centuries from J2000, universal time
    ApparentSky sky{T};
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
    setCurrent(s, rowTerra);
    if (c.planet == PlanetTheory::Plan && b == rowSun) {
        PosByPlan(s, r, plan);
        if (!c.epochJ2000) ApplyPrecessXYZ(s);
    } else {
        byEarthTheory();
    }
    place(rowSun, rowTerra);
    tell("  Zem Gelio Ecl J2000  ", rowTerra, s.Rpl[rowSun][rowTerra]);
    if (!c.earthMoonTerms) return;
    perturb(rowTerra);
    sphere(rowTerra, s.Rpl[rowSun][rowTerra]);
    tell("  Zem_dLdB    GEЛИO ECL JD-J2000 ", rowTerra, s.Rpl[rowSun][rowTerra]);
}

void Pass::moon() {
    setCurrent(s, rowMoon);
    s.kodMoon = 1;
    if (c.planet == PlanetTheory::Plan && b == rowMoon) {
        PosByPlan(s, r, plan);
        if (!c.epochJ2000) ApplyPrecessXYZ(s);
    } else {
        byEarthTheory();
        if (c.earth == EarthTheory::JPL0) ApplyPrecessXYZ(s);  // the Moon of that theory is of the date
    }
    s.JD = s.JDut0;
    place(rowSun, rowMoon);
    s.Rpl[rowTerra][rowMoon] = s.Rcur;
    tell("  Moon  GEO ECL JD-J2000 ", rowMoon, s.Rcur);
    if (!c.earthMoonTerms) return;
    MoonPerturbApply(s);
    sphere(rowMoon, s.Rpl[rowTerra][rowMoon]);
    tell(" MOON_dLdB_012    GEO ECL JD-J2000 ", rowMoon, s.Rpl[rowTerra][rowMoon]);
}

/// From the centre of mass to the Earth itself, and the Moon from geocentric to heliocentric.
void Pass::earthAndMoon() {
    const double share = ratio(s.m[rowMoon], s.m[rowEarth]);
    setPlace(s, rowTerra, placeOf(s, rowTerra) - share * placeOf(s, rowMoon));
    addSystemVelocity(rowTerra);
    setPlace(s, rowMoon, placeOf(s, rowMoon) + placeOf(s, rowTerra));
    setVelocity(s, rowMoon, velocityOf(s, rowMoon) + velocityOf(s, rowTerra));
    place(rowTerra, rowMoon);
    tell("  Moon  GEO ECL J2000 ", rowMoon, s.Rcur);
    place(rowSun, rowTerra);
}

void Pass::planet() {
    setCurrent(s, b);
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
    place(rowSun, b);
    tell("  Ras Gelio Ecl     ", b, s.Rcur);
    if (!c.planetTerms) return;
    perturb(b);
    sphere(b, s.Rpl[rowSun][b]);
    tell("  Planeta_dLdB    GEO ECL JD-J2000 ", b, s.Rpl[rowSun][b]);
}

void Pass::theory() {
    setPlace(s, rowSun, {});
    s.VX[rowSun] = finite(system.X * 1000);
    s.VY[rowSun] = finite(system.Y * 1000);
    s.VZ[rowSun] = finite(system.Z * 1000);
    s.JDet = s.JDut0 + EtUt1900(s) / 24 / 3600;
    s.kodBary = codeOf(CentralMass::Central);
    s.kodMoon = 0;
    PrecessMatrixEcl(s, T, 0);
    for (s.Ipl = 1; s.Ipl <= 9; ++s.Ipl) ElementsSer0Plus(s);  // mean longitudes for the perturbations
    earth();
    moon();
    earthAndMoon();
    if (b != rowSun && b != rowMoon) planet();
    s.JD = s.JDut0;
    ObserverRow(s, s.JDut0);
    copyPlace(rowKeptEarth, rowTerra);
    copyPlace(rowKeptBody + b, b);
    sky.observer = placeOf(s, rowObserver);
    sky.latitude = sky::latitudeOf(s.ObsB);
    sky.siderealTime = s.LMST;
}

/// Azimuth (-180..180, 0 south) and altitude of a heliocentric row of the date; the row is turned into the
/// horizon.
SkyPlace Pass::horizon(int body) {
    ApparentPlace p{.row = body};
    const SkyCells cells(s, sky, {&p});
    p.position -= placeOf(s, rowTerra);
    sky.go(Step::Equator, p);
    sky.go(Step::Parallax, p);
    sky.keep(p);
    const double R = sky.sight.distance;
    sky.toHorizon(p);
    p.position = vectorOf({sky.horizon.azimuth, sky.horizon.altitude, R});
    if (sky.horizon.azimuth > 180) sky.horizon.azimuth -= 360;
    return {sky.horizon.azimuth, sky.horizon.altitude};
}

bool Pass::VisibilityTest(const HeliocentricView& view) {
    sky.precession = sky::eclipticPrecession(0, T);
    setPrecession(s, *sky.precession);
    for (const int row : {int{rowTerra}, b}) {
        setCurrent(s, row);
        ApplyPrecessXYZ(s);
    }
    if (view) {
        const FlagsKept flags;
        view();
    }
    if (!c.visibility && !c.horizonPicture) return true;
    const SkyPlace keptSun{s.Lpl[rowSun], s.Bpl[rowSun]}, keptBody{s.Lpl[b], s.Bpl[b]};
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
    s.Lpl[rowSun] = keptSun.L, s.Bpl[rowSun] = keptSun.B;
    s.Lpl[b] = keptBody.L, s.Bpl[b] = keptBody.B;
    return seen || !c.visibility;
}

/// The Earth into the origin, with the Sun and the body seen from it.
void Pass::geocentric() {
    copyPlace(rowTerra, rowKeptEarth);
    copyPlace(b, rowKeptBody + b);
    const Vec3 earth = placeOf(s, rowTerra);
    setPlace(s, b, placeOf(s, b) - earth);
    setPlace(s, rowSun, -placeOf(s, rowTerra));
    setPlace(s, rowTerra, {});
}

/// A stage of the chain is done: its place is kept, and logged.
void Pass::reach(ApparentPlace& p, ChainStage stage, const char* label) {
    sky.keep(p);
    r.stage[stage] = {p.L, p.B};
    r.reached[stage] = true;
    if (log) log(label, p.L, p.B, sky.sight.distance);
}

/// Refraction lowers the theory, although the air raises what is seen: all residuals found so far have this
/// sign.  The vector goes back to the geocentric distance.
void Pass::refraction(ApparentPlace& p) {
    if (!c.parallax) sky.go(Step::Parallax, p);
    sky.keep(p);
    sky.toHorizon(p);
    sky.horizon.altitude -= Refraction(90 - sky.horizon.altitude);
    sky.fromHorizon(p, r.Rgeo);
    sky.horizon.hourAngle = p.longitude;
    if (!c.parallax) p.position += sky.observer;
}

void Pass::chain() {
    r.reached.fill(false);
    geocentric();
    ApparentPlace p{.row = b};
    const SkyCells cells(s, sky, {&p});
    sky.earthVelocity = velocityOf(s, rowTerra);
    reach(p, stageJ2000, "  Ras GEO ECL J2000   ");
    r.Rgeo = sky.sight.distance;
    s.Rpl[rowTerra][b] = r.Rgeo;
    p.lightTime = r.Rgeo / Vsv;
    const auto pass = [&](bool wanted, Step step, ChainStage stage, const char* label) {
        if (!wanted) return;
        sky.go(step, p);
        reach(p, stage, label);
    };
    pass(c.aberrSource, Step::Source, stageSource, "  GEO ECL Ras Apl    ");
    pass(c.aberrReceiver, Step::Receiver, stageReceiver, "  GEO ECL Ras Azv    ");
    pass(true, Step::Precession, stageOfDate, "  J2000 -> JD   ");
    pass(true, Step::Equator, stageEquator, "  GEO ECL -> GEO EQU   ");
    pass(c.parallax, Step::Parallax, stageParallax, "  GEO EQU Ras Par   ");
    if (c.refraction) {
        refraction(p);
        reach(p, stageRefraction, "  GEO EQU Ras Ref   ");
    }
    pass(c.nutation, Step::Nutation, stageNutation, "  GEO EQU Ras Nut   ");
    pass(c.tables, Step::Ecliptic, stageEcliptic, "  GEO EQU -> GEO ECL   ");
    r.Lt = p.L;
    r.Bt = p.B;
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
    ElementsToState(s);
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
