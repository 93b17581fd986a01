#include "reduction/apparent_place.h"

#include <algorithm>
#include <cassert>

#include "core/rows.h"
#include "reduction/coordinate_chain.h"

namespace tarvex {

const sky::Obliquity& ApparentSky::obliquity() {
    if (!obliquity_) obliquity_ = sky::obliquity(T);
    return *obliquity_;
}

void ApparentSky::go(Step step, ApparentPlace& p) {
    switch (step) {
        case Step::Source: {
            const Vec3 real = p.position;
            for (int pass = 1; pass <= 3; ++pass) {
                p.position = placeBefore(real, p.velocity, p.lightTime);
                look(p);
                p.lightTime = sight.distance / Vsv;
            }
            break;
        }
        case Step::Receiver:
            p.position += p.lightTime * earthVelocity;
            break;
        case Step::Precession:
            if (!precession) precession = sky::eclipticPrecession(0, T);
            current = p.row;
            p.position = precession->matrix * p.position;
            break;
        case Step::Equator:
            current = p.row;
            sight.latitude = obliquity().angle;
            p.position = sky::toEquator(p.position, obliquity());
            break;
        case Step::Parallax:
            p.position -= observer;
            break;
        case Step::Nutation:
            p.position += sky::nutation(T, p.position);
            break;
        case Step::Ecliptic:
            current = p.row;
            sight.latitude = obliquity().angle;
            p.position = sky::toEcliptic(p.position, obliquity());
            break;
    }
}

void ApparentSky::keep(ApparentPlace& p, const Vec3& from) {
    look(p, from);
    p.L = p.longitude;
    p.B = sight.latitude;
}

void ApparentSky::toHorizon(ApparentPlace& p) {
    horizon.hourAngle = sky::hourAngle(siderealTime, p.L);
    p.position = sky::horizonFromEquator(horizon.hourAngle, p.B, latitude);
    look(p, {});
    horizon.azimuth = p.longitude;
    horizon.altitude = sight.latitude;
}

double ApparentSky::fromHorizon(ApparentPlace& p, double distance) {
    p.position = sky::equatorFromHorizon(horizon.azimuth, horizon.altitude, latitude);
    look(p, {});
    const double ascension = sky::hourAngle(siderealTime, p.longitude);
    p.position = vectorOf({ascension, sight.latitude, distance});
    return ascension;
}

SkyCells::SkyCells(ModelState& s, ApparentSky& sky, std::initializer_list<ApparentPlace*> places)
    : s_(s), sky_(sky) {
    assert(places.size() <= most);
    std::copy(places.begin(), places.end(), places_.begin());
    for (ApparentPlace* const p : places) {
        p->position = placeOf(s, p->row);
        p->velocity = velocityOf(s, p->row);
        p->lightTime = s.Tsv[rowEarthMoon][p->row];
        p->longitude = s.LonPl[p->row];
        p->L = s.Lpl[p->row];
        p->B = s.Bpl[p->row];
    }
    sky.sight = {{s.DXcur, s.DYcur, s.DZcur}, s.Rxycur, s.Rcur, s.LatPl};
    sky.horizon = {s.TAU, s.Azim, s.Vys};
}

SkyCells::~SkyCells() {
    for (const ApparentPlace* const p : places_) {
        if (p == nullptr) break;
        setPlace(s_, p->row, p->position);
        s_.Tsv[rowEarthMoon][p->row] = p->lightTime;
        s_.LonPl[p->row] = p->longitude;
        s_.Lpl[p->row] = p->L;
        s_.Bpl[p->row] = p->B;
    }
    const Sight& sight = sky_.sight;
    s_.DXcur = sight.difference.x, s_.DYcur = sight.difference.y, s_.DZcur = sight.difference.z;
    s_.Rxycur = sight.inPlane, s_.Rcur = sight.distance, s_.LatPl = sight.latitude;
    s_.TAU = sky_.horizon.hourAngle, s_.Azim = sky_.horizon.azimuth, s_.Vys = sky_.horizon.altitude;
    if (sky_.current >= 0) setCurrent(s_, sky_.current);
    if (sky_.precession) setPrecession(s_, *sky_.precession);
}

}  // namespace tarvex
