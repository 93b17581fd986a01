#pragma once
// From the seven elements of an orbit to rectangular coordinates and velocities: as plain functions of
// values, and, on top of them, the routines that work on the shared rows.

#include <array>

#include "core/code_of.h"
#include "core/model_state.h"
#include "core/vec3.h"

namespace tarvex {

/// x reduced to a fraction in 0..1; the argument is changed too.
double Frac1(double& x);
inline double Frac1(double&& x) { return Frac1(x); }

/// x - Fix(x): the fraction with the sign of x.
double Frac0(double x);

/// An angle reduced to one turn, 0..2*Pi, rad.
double inOneTurn(double angle);

/// What pulls a body in its two-body motion, the values of kodBary.
enum class CentralMass : std::int16_t {
    Central = 0,     ///< the central body alone
    Pair = 1,        ///< both together: a relative orbit
    AboutCentre = 2  ///< M^3 / (M + m)^2: an orbit about the centre of mass of the pair
};

/// Elements of an elliptic orbit, in the frame in which its places are wanted.
struct Elements {
    double meanLongitude = 0;  ///< rad
    double semiMajorAxis = 0;  ///< m
    double meanMotion = 0;     ///< rad/s
    double eccentricity = 0;
    double inclination = 0;  ///< rad
    double perihelion = 0;   ///< its longitude, rad
    double node = 0;         ///< longitude of the ascending node, rad
};

/// Where a body stands in its orbit.
struct OrbitPlace {
    double mean = 0, eccentric = 0, anomaly = 0;  ///< mean, eccentric and true anomaly, rad
    double radius = 0;                            ///< m
    double argument = 0;                          ///< argument of latitude, rad
    Vec3 position;                                ///< m
};

/// How it moves there.
struct OrbitMotion {
    double parameter = 0;               ///< semi-latus rectum, m
    double radial = 0, transverse = 0;  ///< speed along the radius and across it, m/s
    Vec3 velocity;                      ///< m/s
};

/// Iterates of Kepler's equation, the mean anomaly first.
using KeplerIterates = std::array<double, 101>;

// --- the steps from elements to a place and a velocity; each throws ArithmeticFailure where it has no
// number. Source: the textbook formulas of elliptic motion: Kepler's equation, r = a (1 - e^2) / (1 + e cos
// v), and the turns by argument of latitude, inclination and node.

/// Mean anomaly, rad: the longitude reduced to a turn less the perihelion, with one turn added to a negative
/// result and no more.
double meanAnomaly(const Elements& e);
/// Kepler's equation by at most 99 simple iterations to 1e-10 rad.
/// @param M          mean anomaly, rad
/// @param unmet      what is returned where the iterates do not meet, rad
/// @param iterates   filled as far as they go, rad
/// @return           rad
double eccentricAnomaly(double M, double eccentricity, double unmet, KeplerIterates& iterates);
/// True anomaly, rad, by tan(v/2) = sqrt((1+e)/(1-e)) tan(E/2).
/// @param E  eccentric anomaly, rad
/// @throws ArithmeticFailure for an eccentricity of 1 or above
double trueAnomaly(double E, double eccentricity);
/// Length of the radius vector, m.
/// @param anomaly  true anomaly, rad
/// @throws ArithmeticFailure where an open orbit does not reach this anomaly
double radiusOf(const Elements& e, double anomaly);
/// Argument of latitude, rad, not reduced.
/// @param anomaly  true anomaly, rad
double argumentOf(const Elements& e, double anomaly);

/// Sines and cosines of the argument of latitude, the node and the inclination.
struct Orientation {
    double sinU = 0, cosU = 1, sinO = 0, cosO = 1, sinB = 0, cosB = 1;
};
/// @param argument  argument of latitude, rad
Orientation orientationOf(const Elements& e, double argument);
/// The point of an orbit, m.
/// @param radius  m
Vec3 pointOf(const Orientation& o, double radius);
/// A velocity across the radius in the plane of the orbit, m/s.
/// @param transverse  its size, m/s
Vec3 acrossOf(const Orientation& o, double transverse);

/// Place by elements: all of these steps.
/// @param unmet  eccentric anomaly taken where Kepler's iteration does not meet, rad
OrbitPlace positionOf(const Elements& e, double unmet = 0);
/// Velocity at a place of the orbit.
/// @param mu  gravitational constant times the mass that pulls, m^3/s^2
/// @throws ArithmeticFailure for a zero orbit or radius and for the root of a negative number
/// Source: the velocity of elliptic motion, sqrt(mu/p) (e sin v, 1 + e cos v) along the radius and across it.
OrbitMotion velocityOf(const Elements& e, const OrbitPlace& place, double mu);

/// Elements as the rows of the state hold them.
Elements elementsOf(const ModelState& s, int row);
void setElements(ModelState& s, int row, const Elements& e);

// --- the same on the shared rows

/// Coordinates X, Y, Z of body Ipl, m, in the frame of its elements; leaves Mean, Anom, Rr, Uarg and Escr.
/// Kepler's equation by at most 99 simple iterations; where they do not meet, at eccentricities near 1, Escr
/// keeps its last value, so that the body goes on from where it was.
/// @throws ArithmeticFailure for an eccentricity of 1 or above and where a result is no number
void ElementsToXYZ(ModelState& s);

/// Velocities VX, VY, VZ of body Ipl, m/s, from gamma and the masses; needs the values that ElementsToXYZ has
/// just left for the same body.  kodMoon puts the Earth in the centre, kodBary (CentralMass) chooses the
/// gravitating mass, which is left in m(12); leaves Icentr, pKep, Vr, Vn too. Throws ArithmeticFailure for a
/// zero orbit or radius and for the root of a negative number.
void ElementsToVXYZ(ModelState& s);

/// Both in turn.
void ElementsToState(ModelState& s);

}  // namespace tarvex
