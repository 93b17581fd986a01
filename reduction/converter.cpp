#include "reduction/converter.h"

#include <cmath>

#include "core/rows.h"
#include "core/run_inputs.h"
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

using Base = std::array<double, 3>;

void keepBase(const ModelState& s, ConvBase& base, int row) {
    base.row.at(row) = {s.X[row], s.Y[row], s.Z[row]};
}

Vec3 baseVector(const Base& v) { return {v[0], v[1], v[2]}; }

/// The parallax of the converter: the observer's distance from the axis is shortened once more by the cosine
/// of the body's latitude, and Z is not.  Both ways have it.
void addObserver(ApparentSky& sky, ApparentPlace& p, const Vec3& observer, double sign) {
    const double cosB = std::cos(sky.sight.latitude / kUgol);
    p.position += Vec3{sign * cosB * observer.x, sign * cosB * observer.y, sign * observer.z};
}

/// Row of the observer in the plane of a frame.
int observerRow(const ConvFrame& frame) {
    return frame.base() + (frame.plane == ConvFrame::Plane::Ecliptic ? plusObserverEcliptic : plusObserver);
}

void precessRow(ModelState& s, int row) {
    setCurrent(s, row);
    ApplyPrecessXYZ(s);
}

/// Heliocentric place of the body on the ecliptic of the date.
void placeOnDate(ModelState& s, int body) {
    setCurrent(s, body);
    s.JD = s.JDet;
    ElementsJPL0(s);
    ElementsToXYZ(s);
    s.JD = s.JDut0;
    PrecessMatrixEcl(s, 0, sky::centuries(s.JDut0));
    ApplyPrecessXYZ(s);
}

}  // namespace

void ConvPrepare(ModelState& s, ConvBase& base) {
    const RunInputsKept kept(s);
    const double T = sky::centuries(s.JDut0);
    InitMassesJPL0(s);
    setPlace(s, rowSun, {});
    setPlace(s, rowOrigin, {});
    keepBase(s, base, rowSun);

    placeOnDate(s, rowTerra);
    s.JD = s.JDet;
    MoonInequalities(s, sky::centuries(s.JDet));
    s.JD = s.JDut0;
    const double L = s.Lpl[rowConverterMoon] = s.Lpl[rowMoon];
    const double B = s.Bpl[rowConverterMoon] = s.Bpl[rowMoon];
    const double R = s.Rpl[rowTerra][rowMoon];
    // from the common centre of the Earth and the Moon to the Earth
    const Vec3 offset = vectorOf({L, B, R * s.m[rowMoon] / s.m[rowEarthMoon]});
    const Vec3 earth = placeOf(s, rowTerra) - offset;
    setPlace(s, rowTerra, earth);
    keepBase(s, base, rowTerra);
    setPlace(s, rowConverterMoon, vectorOf({L, B, R}) + earth);
    keepBase(s, base, rowConverterMoon);
    SpherToXYZ(s, rowMoonDrawn, L, B, 2.5);

    ObserverRow(s, s.JDut0);
    setPlace(s, rowsOfDate + plusObserverEcliptic, placeOf(s, rowObserver));
    setCurrent(s, rowsOfDate + plusObserverEcliptic);
    EquToEcl(s, T);

    setPlace(s, rowsOfDate + plusEarth, earth);
    for (const int row : {plusObserver, plusEarth, plusObserverEcliptic})
        setPlace(s, rowsOfJ2000 + row, placeOf(s, rowsOfDate + row));
    PrecessMatrixEcl(s, T, 0);
    precessRow(s, rowsOfJ2000 + plusEarth);
    precessRow(s, rowsOfJ2000 + plusObserverEcliptic);
    PrecessMatrixEqu(s, T, 0);
    precessRow(s, rowsOfJ2000 + plusObserver);
}

void ConvBodyByTheory(ModelState& s, ConvBase& base, int body) {
    if (body == rowSun || body == rowTerra || body == rowConverterMoon) return;
    const RunInputsKept kept(s);
    placeOnDate(s, body);
    keepBase(s, base, body);
}

void ConvFromBase(ModelState& s, const ConvBase& base, int body, const ConvFrame& frame) {
    ApparentSky sky(sky::centuries(s.JDut0));
    ApparentPlace sun{.row = rowSun}, earth{.row = rowTerra}, other{.row = body};
    ApparentPlace& place = body == rowSun ? sun : body == rowTerra ? earth : other;
    const SkyCells cells(s, sky, {&sun, &earth, &place});
    for (ApparentPlace* const p : {&sun, &earth, &place}) p->position = baseVector(base.row.at(p->row));
    const auto turn = [&](Step step) {
        sky.go(step, earth);
        if (body != rowTerra) sky.go(step, place);
    };
    if (frame.j2000) {
        sky.precession = sky::eclipticPrecession(sky.T, 0);
        turn(Step::Precession);
    }
    // one obliquity, that of the date, serves J2000 too: the way back turns by the same angle
    if (frame.plane != ConvFrame::Plane::Ecliptic) turn(Step::Equator);
    if (frame.origin != ConvFrame::Origin::Sun) {
        sun.position = Vec3{} - earth.position;
        if (body != rowSun && body != rowTerra) place.position -= earth.position;
        earth.position = {};
    }
    if (frame.origin != ConvFrame::Origin::Observer) return;

    sky.look(place);
    addObserver(sky, place, placeOf(s, observerRow(frame)), -1);
    if (frame.plane != ConvFrame::Plane::Horizon) return;
    sky.keep(place);
    const double Rgeo = sky.sight.distance;
    sky.horizon.hourAngle = s.LMST - place.L;
    place.position = sky::horizonFromEquator(sky.horizon.hourAngle, place.B, sky::latitudeOf(s.ObsB));
    sky.look(place);
    place.position = vectorOf({place.longitude, sky.sight.latitude, Rgeo});
}

void ConvToBase(ModelState& s, ConvBase& base, int body, const ConvFrame& frame) {
    {
        ApparentSky sky(sky::centuries(s.JDut0));
        sky.latitude = sky::latitudeOf(s.ObsB);
        sky.siderealTime = s.LMST;
        ApparentPlace place{.row = body};
        const SkyCells cells(s, sky, {&place});
        if (frame.origin == ConvFrame::Origin::Observer) {
            if (frame.plane == ConvFrame::Plane::Horizon) {
                sky.horizon.altitude = sky.sight.latitude;
                sky.horizon.azimuth = place.longitude;
                place.L = sky.fromHorizon(place, sky.sight.distance);
                sky.horizon.hourAngle = place.longitude;
            }
            addObserver(sky, place, placeOf(s, observerRow(frame)), 1);
        }
        sky.current = body;
        if (frame.plane != ConvFrame::Plane::Ecliptic) sky.go(Step::Ecliptic, place);
        if (frame.origin != ConvFrame::Origin::Sun) place.position += placeOf(s, frame.base() + plusEarth);
        if (frame.j2000) sky.go(Step::Precession, place);
    }
    keepBase(s, base, body);
}

}  // namespace tarvex
