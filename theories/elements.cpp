#include "theories/elements.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"
#include "core/rows.h"

namespace tarvex {

namespace {

/// Mass that pulls body i in its two-body motion.
double gravitatingMass(const ModelState& s, int i) {
    const double M = s.m[s.Icentr], both = M + s.m[i];
    if (s.kodBary == codeOf(CentralMass::Pair)) return both;
    if (s.kodBary == codeOf(CentralMass::AboutCentre)) return ratio(M * M * M, both * both);
    return M;
}

/// Semi-latus rectum, m.
double parameterOf(const Elements& e) {
    return finite((1 - e.eccentricity * e.eccentricity) * e.semiMajorAxis);
}

/// Unit of speed of an orbit, m/s: across the radius of a circle of that parameter.
double speedOf(double mu, double parameter) { return root(ratio(mu, parameter)); }

double radialSpeed(const Elements& e, double anomaly, double speed) {
    return finite(speed * e.eccentricity * std::sin(anomaly));
}

double transverseSpeed(const Elements& e, double anomaly, double speed) {
    return finite(speed * (1 + e.eccentricity * std::cos(anomaly)));
}

}  // namespace

double Frac1(double& x) {
    x = x - Fix(x);
    if (x < 0) x = x + 1;
    return x;
}

double Frac0(double x) { return x - Fix(x); }

double inOneTurn(double angle) { return 2 * Pi * Frac1(angle / 2 / Pi); }

double meanAnomaly(const Elements& e) {
    const double M = inOneTurn(e.meanLongitude) - e.perihelion;
    return finite(M < 0 ? M + 2 * Pi : M);
}

double eccentricAnomaly(double M, double eccentricity, double unmet, KeplerIterates& iterates) {
    constexpr double EpsKep = 1e-10;
    iterates[0] = M;
    for (int k = 1; k <= 99; ++k) {
        iterates[k] = eccentricity * std::sin(iterates[k - 1]) + M;
        if (std::abs(iterates[k - 1] - iterates[k]) <= EpsKep) return iterates[k];
    }
    return unmet;
}

double trueAnomaly(double E, double eccentricity) {
    return 2 * std::atan(root(ratio(1 + eccentricity, 1 - eccentricity)) * std::tan(E / 2));
}

double radiusOf(const Elements& e, double anomaly) {
    return ratio((1 - e.eccentricity * e.eccentricity) * e.semiMajorAxis,
                 1 + e.eccentricity * std::cos(anomaly));
}

double argumentOf(const Elements& e, double anomaly) { return finite(anomaly + e.perihelion - e.node); }

Orientation orientationOf(const Elements& e, double argument) {
    return {std::sin(argument), std::cos(argument),      std::sin(e.node),
            std::cos(e.node),   std::sin(e.inclination), std::cos(e.inclination)};
}

Vec3 pointOf(const Orientation& o, double radius) {
    return {(o.cosU * o.cosO - o.sinU * o.sinO * o.cosB) * radius,
            (o.cosU * o.sinO + o.sinU * o.cosO * o.cosB) * radius, o.sinU * radius * o.sinB};
}

Vec3 acrossOf(const Orientation& o, double transverse) {
    return {(-o.sinU * o.cosO - o.cosU * o.sinO * o.cosB) * transverse,
            (-o.sinU * o.sinO + o.cosU * o.cosO * o.cosB) * transverse, transverse * o.cosU * o.sinB};
}

OrbitPlace positionOf(const Elements& e, double unmet) {
    OrbitPlace p;
    KeplerIterates iterates;
    p.mean = meanAnomaly(e);
    p.eccentric = eccentricAnomaly(p.mean, e.eccentricity, unmet, iterates);
    p.anomaly = trueAnomaly(p.eccentric, e.eccentricity);
    p.radius = radiusOf(e, p.anomaly);
    p.argument = argumentOf(e, p.anomaly);
    p.position = pointOf(orientationOf(e, p.argument), p.radius);
    return p;
}

OrbitMotion velocityOf(const Elements& e, const OrbitPlace& place, double mu) {
    OrbitMotion m;
    m.parameter = parameterOf(e);
    const double speed = speedOf(mu, m.parameter);
    m.radial = radialSpeed(e, place.anomaly, speed);
    m.transverse = transverseSpeed(e, place.anomaly, speed);
    const Vec3 across = acrossOf(orientationOf(e, place.argument), m.transverse);
    m.velocity = {ratio(m.radial * place.position.x, place.radius) + across.x,
                  ratio(m.radial * place.position.y, place.radius) + across.y,
                  ratio(m.radial * place.position.z, place.radius) + across.z};
    return m;
}

Elements elementsOf(const ModelState& s, int row) {
    return {.meanLongitude = s.AlfaL[row],
            .semiMajorAxis = s.R0sr[row],
            .meanMotion = s.W0sr[row],
            .eccentricity = s.Eks0[row],
            .inclination = s.Betta0[row],
            .perihelion = s.AlfaP0[row],
            .node = s.AlfaU0[row]};
}

void setElements(ModelState& s, int row, const Elements& e) {
    s.AlfaL[row] = e.meanLongitude;
    s.R0sr[row] = e.semiMajorAxis;
    s.W0sr[row] = e.meanMotion;
    s.Eks0[row] = e.eccentricity;
    s.Betta0[row] = e.inclination;
    s.AlfaP0[row] = e.perihelion;
    s.AlfaU0[row] = e.node;
}

namespace {

Orientation placeInRow(ModelState& s, const Elements& e) {
    const int i = s.Ipl;
    s.Mean[i] = meanAnomaly(e);
    s.Escr = eccentricAnomaly(s.Mean[i], e.eccentricity, s.Escr, s.Ekep);
    s.Anom[i] = trueAnomaly(s.Escr, e.eccentricity);
    s.Rr[i] = radiusOf(e, s.Anom[i]);
    s.Uarg[i] = argumentOf(e, s.Anom[i]);
    const Orientation o = orientationOf(e, s.Uarg[i]);
    setPlace(s, i, pointOf(o, s.Rr[i]));
    return o;
}

/// @param orientation  gives that of the place in the row
template <class Orient>
void velocityInRow(ModelState& s, const Elements& e, Orient orientation) {
    const int i = s.Ipl;
    s.Icentr = s.kodMoon == 1 ? int{rowEarth} : int{rowSun};
    s.m[rowWork] = finite(gravitatingMass(s, i));
    s.pKep = parameterOf(e);
    const double speed = speedOf(s.gamma * s.m[rowWork], s.pKep), r = s.Rr[i];
    s.Vr = radialSpeed(e, s.Anom[i], speed);
    s.Vn = transverseSpeed(e, s.Anom[i], speed);
    const Vec3 across = acrossOf(orientation(), s.Vn);
    s.VX[i] = ratio(s.Vr * s.X[i], r) + across.x;
    s.VY[i] = ratio(s.Vr * s.Y[i], r) + across.y;
    s.VZ[i] = ratio(s.Vr * s.Z[i], r) + across.z;
}

}  // namespace

void ElementsToXYZ(ModelState& s) { placeInRow(s, elementsOf(s, s.Ipl)); }

void ElementsToVXYZ(ModelState& s) {
    const Elements e = elementsOf(s, s.Ipl);
    velocityInRow(s, e, [&] { return orientationOf(e, s.Uarg[s.Ipl]); });
}

void ElementsToState(ModelState& s) {
    const Elements e = elementsOf(s, s.Ipl);
    const Orientation o = placeInRow(s, e);
    velocityInRow(s, e, [&] { return o; });
}

}  // namespace tarvex
