#include "reduction/eclipse.h"

#include <algorithm>
#include <cmath>

#include "core/arithmetic.h"
#include "core/rows.h"
#include "core/run_inputs.h"
#include "reduction/apparent_place.h"
#include "reduction/coordinate_chain.h"
#include "reduction/sky.h"
#include "reduction/sky_rows.h"
#include "reduction/theory_places.h"
#include "theories/ephemeris.h"
#include "theories/geometry.h"
#include "theories/longitudes.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

/// Angles of row b from row a into Lpl and Bpl.
Eclipse::Sky anglesOf(ModelState& s, int a, int b) {
    PairGeometry(s, a, b);
    s.Lpl[b] = s.LonPl[b];
    s.Bpl[b] = s.LatPl;
    return {s.Lpl[b], s.Bpl[b]};
}

/// Adds the place of a row, and its velocity, to another.
void addPlace(ModelState& s, int row, int other) { setPlace(s, row, placeOf(s, row) + placeOf(s, other)); }
void subtractPlace(ModelState& s, int row, int other) {
    setPlace(s, row, placeOf(s, row) - placeOf(s, other));
}

/// The Sun in the origin, at rest.
void sunInOrigin(ModelState& s) {
    setPlace(s, rowSun, {});
    setVelocity(s, rowSun, {});
}

double angularRadius(double size, double distance) { return std::atan(ratio(size / 2, distance)) * kUgol; }

void placesByEphemeris(ModelState& s, Ephemeris& ephemeris) {
    ephemeris.JDjpl = s.JD;
    DESeek(s, ephemeris);
    const std::array<int, 4> rows = {rowSun, rowTerra, rowMoon, s.IplSel};
    const int count = s.IplSel == rowSun || s.IplSel == rowMoon ? 3 : 4;
    for (int k = 0; k < count; ++k) DEEvaluate(s, ephemeris, rows[k], 1);
    anglesOf(s, rowOrigin, rowMoon);
    s.Rpl[rowTerra][rowMoon] = s.Rcur;
    const double share = s.m[rowMoon] / s.m[rowEarth];
    setPlace(s, rowTerra, placeOf(s, rowTerra) + -share * placeOf(s, rowMoon));
    setVelocity(s, rowTerra, velocityOf(s, rowTerra) + -share * velocityOf(s, rowMoon));
    addPlace(s, rowMoon, rowTerra);
    setVelocity(s, rowMoon, velocityOf(s, rowMoon) + velocityOf(s, rowTerra));
    for (int k = 1; k < count; ++k) {
        subtractPlace(s, rows[k], rowSun);
        setVelocity(s, rows[k], velocityOf(s, rows[k]) - velocityOf(s, rowSun));
    }
    sunInOrigin(s);
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

/// The Moon's row at its longitude, latitude and distance.
void moonToRow(ModelState& s) {
    SpherToXYZ(s, rowMoon, s.Lpl[rowMoon], s.Bpl[rowMoon], s.Rpl[rowTerra][rowMoon]);
}

void moonByTheory(ModelState& s, const Eclipse& e) {
    if (e.source == Eclipse::Source::New0) {
        MoonInequalities(s, sky::centuries(s.JDet));
        return moonToRow(s);
    }
    setCurrent(s, rowMoon);
    s.kodBary = codeOf(CentralMass::Central);
    s.kodMoon = 1;
    placeBy(s, e.source);
    if (e.source == Eclipse::Source::JPL0) {  // this theory's Moon is of the date
        PrecessMatrixEcl(s, sky::centuries(s.JDut0), 0);
        ApplyPrecessXYZ(s);
    }
    anglesOf(s, rowOrigin, rowMoon);
    s.Rpl[rowTerra][rowMoon] = s.Rcur;
    if (!e.moonTerms) return;
    MoonPerturbApply(s);
    moonToRow(s);
}

/// Periodic terms of a planet on its heliocentric longitude.
void perturbPlanet(ModelState& s, int b) {
    anglesOf(s, rowSun, b);
    const double R = s.Rcur;
    PlanetPerturbApply(s, b);
    SpherToXYZ(s, b, s.Lpl[b], s.Bpl[b], R);
}

void placesByTheory(ModelState& s, const Eclipse& e) {
    s.JD = s.JDet;
    for (int i = 1; i <= 9; ++i) {
        setCurrent(s, i);
        ElementsSer0Plus(s);
    }
    moonByTheory(s, e);
    SpherToXYZ(s, rowMoonOffset, s.Lpl[rowMoon], s.Bpl[rowMoon],
               s.Rpl[rowTerra][rowMoon] * s.m[rowMoon] / s.m[rowEarthMoon]);
    s.kodMoon = 0;
    setCurrent(s, rowTerra);
    placeBy(s, e.source);
    subtractPlace(s, rowTerra, rowMoonOffset);
    addPlace(s, rowMoon, rowTerra);
    setVelocity(s, rowMoon, velocityOf(s, rowTerra));
    if (e.planetTerms) perturbPlanet(s, rowTerra);
    sunInOrigin(s);
    const int b = s.IplSel;
    if (b == rowMoon) return;
    setCurrent(s, b);
    placeBy(s, e.source);
    if (e.planetTerms) perturbPlanet(s, b);
}

/// Distances and light times of the Sun and the body from the Earth.
void lightTimes(ModelState& s) {
    for (const int b : {int{rowSun}, int{s.IplSel}}) {
        PairGeometry(s, rowTerra, b);
        s.Rpl[rowTerra][b] = s.Rcur;
        s.Tsv[rowTerra][b] = s.Rcur / Vsv;
    }
}

/// Rows 0 and the body from the angles of an ancient table at the theory's distances, heliocentric again.
void placesByTable(ModelState& s, const Eclipse& e) {
    const int b = s.IplSel;
    const double RSun = s.Rpl[rowTerra][rowSun], R = s.Rpl[rowTerra][b];
    e.readTable();
    SpherToXYZ(s, rowSun, s.Lpl[rowSun], s.Bpl[rowSun], RSun);
    if (b != rowSun) SpherToXYZ(s, b, s.Lpl[b], s.Bpl[b], R);
    setPlace(s, rowTerra, Vec3{} - placeOf(s, rowSun));
    if (b != rowSun) addPlace(s, b, rowTerra);
    setPlace(s, rowSun, {});
}

/// The Sun, the body, the shadow and a limb on the sky of one moment.
struct Disks {
    explicit Disks(const ModelState& s)
        : sky(sky::centuries(s.JDut0)), other{.row = s.IplSel}, body(s.IplSel == rowSun ? sun : other) {
        for (int n = 0; n < limbPoints; ++n) limb[n].row = rowLimb + n;
    }

    /// Where the body was when the light left it.
    void AberrSource16() { sky.go(Step::Source, body); }
    /// The Sun and the body as the moving Earth sees them.
    void AberrReceiver16() { both(Step::Receiver); }
    /// From the mean equator of the date to the true one.
    void Nut16() { both(Step::Nutation); }
    void both(Step step) {
        for (ApparentPlace* const p : {&sun, &body}) sky.go(step, *p);
    }
    /// Angles of both at a stage of the chain.
    void reach(Eclipse& e, Eclipse::Sky Eclipse::Stages::*stage) {
        e.sun.*stage = seen(sun);
        e.body.*stage = seen(body);
    }
    Eclipse::Sky seen(ApparentPlace& p) {
        sky.keep(p);
        return {p.L, p.B};
    }

    ApparentSky sky;
    ApparentPlace sun{.row = rowSun}, other, shadow{.row = rowShadow};
    std::array<ApparentPlace, limbPoints> limb;
    ApparentPlace& body;
};

/// Masses of a source.
void setMasses(ModelState& s, Eclipse::Source source) {
    InitMassesNew0(s);
    if (source == Eclipse::Source::JPL0 || source == Eclipse::Source::JPL2) InitMassesJPL0(s);
    if (source == Eclipse::Source::Ser0Plus) InitMassesSer0(s);
}

bool nearSolstice(double L) {
    return L > 359 || L < 1 || std::abs(L - 90) < 1 || std::abs(L - 180) < 1 || std::abs(L - 270) < 1;
}

/// Steps of the chain up to the true equator of the date, geocentric.
void chainToEquator(ModelState& s, Eclipse& e, Disks& d) {
    const bool theory = e.source != Eclipse::Source::Tables;
    if (theory) {
        d.reach(e, &Eclipse::Stages::geoJ2000);
        d.AberrSource16();
        d.reach(e, &Eclipse::Stages::source);
        d.AberrReceiver16();
        d.reach(e, &Eclipse::Stages::receiver);
        if (e.source != Eclipse::Source::New0) d.both(Step::Precession);
    }
    d.reach(e, &Eclipse::Stages::ofDate);
    e.kodSolst = e.solstices && nearSolstice(d.sun.L);
    d.both(Step::Equator);
    d.reach(e, &Eclipse::Stages::equator);
    for (ApparentPlace* const p : {&d.sun, &d.body}) {
        d.sky.look(*p);
        s.Rpl[rowTerra][p->row] = s.Rpl[rowObserver][p->row] = d.sky.sight.distance;
    }
    if (theory) d.Nut16();
    d.reach(e, &Eclipse::Stages::nutation);
}

void shadowRow(ModelState& s, Eclipse& e, Disks& d) {
    ApparentPlace& shadow = d.shadow;
    shadow.L = notNegative(d.sun.L - 180);
    shadow.B = -d.sun.B;
    const double R = s.Rpl[rowTerra][rowMoon];
    shadow.position = vectorOf({shadow.L, shadow.B, R});
    const double cone = std::atan(ratio((s.Diam[rowSun] - s.Diam[rowTerra]) / 2, s.Rpl[rowTerra][rowSun]));
    s.Diam[rowShadow] = s.Diam[rowTerra] - 2 * R * std::tan(cone);
    e.Rshadow = angularRadius(s.Diam[rowShadow], R);
}

/// Longitudes just below 360 count from 0 downwards, so that an eclipse is not split there.
void aboutZero(ModelState& s, Disks& d) {
    const auto about = [](double& L) {
        if (L > 350) L -= 360;
    };
    for (int row = 0; row <= rowShadow; ++row) about(s.Lpl[row]);
    about(d.sun.L);
    if (&d.body != &d.sun) about(d.body.L);
    about(d.shadow.L);
}

/// From the observer: directions, radii of the disks, the limb.
void Topo16(ModelState& s, Eclipse& e, Disks& d) {
    ObserverRow(s, s.JDut);
    d.sky.observer = placeOf(s, rowObserver);
    d.sky.siderealTime = s.LMST;
    const auto fromObserver = [&](ApparentPlace& p) {
        d.sky.go(Step::Parallax, p);
        const Eclipse::Sky seen = d.seen(p);
        s.Rpl[rowObserver][p.row] = d.sky.sight.distance;
        return seen;
    };
    if (&d.body != &d.sun) {  // the Sun by itself stays as seen from the centre
        e.sun.topo = fromObserver(d.sun);
        e.body.topo = fromObserver(d.body);
    }
    fromObserver(d.shadow);
    aboutZero(s, d);
    const int b = d.body.row;
    e.Rsun = angularRadius(s.Diam[rowSun], s.Rpl[rowObserver][rowSun]);
    e.Rbody = angularRadius(s.Diam[b], s.Rpl[rowObserver][b]);
    e.RshadowSeen =
        b == rowMoon ? e.Rshadow * s.Rpl[rowTerra][rowMoon] / s.Rpl[rowObserver][rowMoon] : e.Rshadow;

    const ApparentPlace& centre = e.lunar ? d.body : d.sun;
    const double radius = e.lunar ? e.Rbody : e.Rsun, secant = 1 / std::cos(centre.B / kUgol);
    for (int n = 0; n < limbPoints; ++n) {
        const double angle = 45.0 * n / kUgol;
        d.limb[n].L = centre.L + radius * std::cos(angle) * secant;
        d.limb[n].B = centre.B + radius * std::sin(angle);
    }
}

double separationOf(const ApparentPlace& a, const ApparentPlace& b) {
    const double d1 = a.B / kUgol, d2 = b.B / kUgol, dL = (a.L - b.L) / kUgol;
    // half-angle form: exact also for the small angles that matter here
    const double h =
        std::pow(std::sin((d1 - d2) / 2), 2) + std::cos(d1) * std::cos(d2) * std::pow(std::sin(dL / 2), 2);
    return 2 * std::asin(std::min(1.0, std::sqrt(h))) * kUgol;
}

/// Azimuths and altitudes of the bodies, the shadow and the limb.
void ToHorizon16(Eclipse& e, Disks& d) {
    const auto turn = [&](ApparentPlace& p) {
        d.sky.toHorizon(p);
        const Horizon& h = d.sky.horizon;
        e.azimuth[p.row] = h.azimuth > 180 ? h.azimuth - 360 : h.azimuth;
        // the air raises: a real sky is shown here
        e.altitude[p.row] = h.altitude + (e.refraction ? Refraction(90 - h.altitude) : 0);
    };
    turn(d.sun);
    turn(d.body);
    turn(d.shadow);
    for (ApparentPlace& p : d.limb) {
        turn(p);
        if (&p == d.limb.data()) e.Tsol = d.sky.horizon.hourAngle / 15;
    }
}

}  // namespace

void EclipseAt(ModelState& s, Ephemeris& ephemeris, Eclipse& e,
               const std::function<void()>& drawHeliocentric) {
    needSelectedBody(s);
    const int b = s.IplSel;
    e.sun = e.body = {};  // stages that a source skips are not those of another
    setPlace(s, rowOrigin, {});
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
    subtractPlace(s, rowSun, rowTerra);
    if (b != rowSun) subtractPlace(s, b, rowTerra);
    if (b != rowMoon) subtractPlace(s, rowMoon, rowTerra);
    setPlace(s, rowTerra, {});

    Disks d(s);
    auto& limb = d.limb;
    const SkyCells cells(s, d.sky,
                         {&d.sun, &d.body, &d.shadow, &limb[0], &limb[1], &limb[2], &limb[3], &limb[4],
                          &limb[5], &limb[6], &limb[7]});
    d.sky.earthVelocity = velocityOf(s, rowTerra);
    d.sky.latitude = sky::latitudeOf(s.ObsB);
    chainToEquator(s, e, d);
    shadowRow(s, e, d);
    Topo16(s, e, d);
    e.separation = separationOf(e.lunar ? d.body : d.sun, e.lunar ? d.shadow : d.body);
    const double covering = e.lunar ? e.RshadowSeen : e.Rbody, covered = e.lunar ? e.Rbody : e.Rsun;
    e.magnitude = std::max(0.0, ratio(covering + covered - e.separation, 2 * covered));
    ToHorizon16(e, d);
}

Eclipse::Sky EclipseBack(ModelState& s, const Eclipse& e, bool withRefraction, bool withNutation) {
    ApparentSky sky(sky::centuries(s.JDut0));
    ApparentPlace seen{.row = rowSeenSun}, back{.row = rowTrueSun};
    const SkyCells cells(s, sky, {&seen, &back});
    Horizon& h = sky.horizon;
    h.azimuth = e.azimuth[rowSun];
    h.altitude = e.altitude[rowSun];
    if (withRefraction)
        h.altitude += Refraction(90 - h.altitude);  // raised once more: earlier results have it so
    seen.position = sky::equatorFromHorizon(h.azimuth, h.altitude, sky::latitudeOf(s.ObsB));
    sky.look(seen);
    back.position =
        vectorOf({sky::hourAngle(s.LMST, seen.longitude), sky.sight.latitude, s.Rpl[rowObserver][rowSun]});
    back.position += placeOf(s, rowObserver);
    if (withNutation) back.position -= sky::nutation(sky.T, back.position);
    sky.go(Step::Ecliptic, back);
    sky.look(back, placeOf(s, rowTerra));
    return {back.longitude, sky.sight.latitude};
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
