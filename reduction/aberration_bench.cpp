#include "reduction/aberration_bench.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/rows.h"
#include "core/run_inputs.h"
#include "reduction/apparent_place.h"
#include "reduction/sky_rows.h"
#include "theories/elements.h"
#include "theories/geometry.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

/// Difference of two angles brought into -180..180 by one turn.
double within180(double d) { return d > 180 ? d - 360 : d < -180 ? d + 360 : d; }

void placeByTheory(ModelState& s, int body, bool byTheory, double L) {
    setCurrent(s, body);
    ElementsNew0(s);
    if (!byTheory) s.AlfaL[body] = L;
    ElementsToState(s);
}

AberrationBench::Place placeFrom(const ModelState& s, int row) {
    AberrationBench::Place p{s.X[row], s.Y[row], s.Z[row], s.VX[row], s.VY[row], s.VZ[row]};
    if (row == rowSun || row == AberrationBench::star) return p;
    p.R0sr = s.R0sr[row];
    p.L = 360 * Frac1(s.AlfaL[row] / 2 / Pi);
    return p;
}

/// Velocities of the Earth and the object with that of the system, into their rows.
void velocities(ModelState& s, const AberrationBench& a) {
    for (const int i : {int{rowTerra}, a.body}) {
        const bool own = i == AberrationBench::star;  // a star keeps its own velocity
        const AberrationBench::Place& p = a.placeOf(i);
        s.VX[i] = finite((own ? 0 : 1000 * a.VXsys) + p.VX);
        s.VY[i] = finite((own ? 0 : 1000 * a.VYsys) + p.VY);
        s.VZ[i] = finite((own ? 0 : 1000 * a.VZsys) + p.VZ);
    }
}

/// Longitude of a step made with the cosine of the latitude; Z of its row stays.
double longitudeBy(ApparentSky& sky, ApparentPlace& step, double x, double y) {
    step.position.x = x;
    step.position.y = y;
    sky.look(step);
    return step.longitude;
}

}  // namespace

void AberrationPrepare(ModelState& s, AberrationBench& a, bool byTheory, double L3, double Lbody) {
    const int b = a.body;
    a.iterations = 0;
    // the bench is heliocentric also while the laboratory works on the Moon
    const RunInputsKept kept(s);
    s.kodMoon = 0;
    s.kodBary = codeOf(CentralMass::Central);
    InitMassesNew0(s);
    placeByTheory(s, rowTerra, byTheory, L3);
    setPlace(s, rowSun, {});
    setVelocity(s, rowSun, {});
    if (b != rowSun && b != AberrationBench::star) placeByTheory(s, b, byTheory, Lbody);
    a.earth = placeFrom(s, rowTerra);
    a.object = placeFrom(s, b);
    PairGeometry(s, rowTerra, b);
    a.GeoL = s.LonPl[b];
    a.GeoB = s.LatPl;
    s.Tsv[rowTerra][b] = ratio(s.Rcur, a.Vc);
}

void AberrationIterate(ModelState& s, AberrationBench& a, bool withCosB) {
    velocities(s, a);
    ApparentSky sky(0);
    ApparentPlace earth{.row = rowTerra}, other{.row = a.body}, earthBefore{.row = rowEarthBefore};
    ApparentPlace bySource{.row = rowSourceByCosine}, byReceiver{.row = rowReceiverByCosine};
    ApparentPlace& object = a.body == rowTerra ? earth : other;
    const SkyCells cells(s, sky, {&earth, &object, &earthBefore, &bySource, &byReceiver});
    sky.centre = &earth.position;
    sky.earthVelocity = earth.velocity;
    const double cosB = std::cos(a.GeoB / kUgol);
    const Vec3 V = object.velocity, E = earth.velocity;

    const AberrationBench::Place& real = a.placeOf(a.body);
    object.position = placeBefore({real.X, real.Y, real.Z}, V, object.lightTime);
    a.XIs = object.position.x, a.YIs = object.position.y, a.ZIs = object.position.z;
    sky.look(object);
    a.Rgeo = sky.sight.distance;
    const double T = object.lightTime = ratio(a.Rgeo, a.Vc);
    const double Ba = sky.sight.latitude;
    const double La = withCosB ? longitudeBy(sky, bySource, real.X - cosB * V.x * T, real.Y - cosB * V.y * T)
                               : object.longitude;
    a.AlfaIs = within180(La - a.GeoL);
    a.BettaIs = within180(Ba - a.GeoB);

    earthBefore.position = placeBefore(earth.position, E, T);
    a.XPr = earthBefore.position.x, a.YPr = earthBefore.position.y, a.ZPr = earthBefore.position.z;
    sky.go(Step::Receiver, object);
    sky.look(object);
    const double Bo = sky.sight.latitude;
    const double Lo = withCosB ? longitudeBy(sky, byReceiver, bySource.position.x + cosB * E.x * T,
                                             bySource.position.y + cosB * E.y * T)
                               : object.longitude;
    a.AlfaPr = within180(Lo - La);
    a.BettaPr = within180(Bo - Ba);
    ++a.iterations;
}

}  // namespace tarvex
