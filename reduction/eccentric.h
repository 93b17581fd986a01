#pragma once
// The ancient models of a planet's motion beside the Kepler ellipse: the simple eccentric and the eccentric
// with an equant, all in the plane of the orbit and by series in the eccentricity.  Angles count from the
// aphelion.

namespace tarvex {

struct Eccentric {
    double R = 0;         ///< mean radius, thousand km
    double e1 = 0;        ///< eccentricity of the ellipse
    double e2 = 0;        ///< eccentricity of the eccentric, in radii
    double W = 0;         ///< mean motion, rad/day
    double T = 0;         ///< time from the aphelion, days
    bool equant = false;  ///< the second model has an equant

    struct Point {
        double x = 0, y = 0;  ///< thousand km
    };

    // --- what EccentricAt leaves
    double M = 0;                   ///< mean anomaly, rad
    double AlfaL1 = 0, AlfaL2 = 0;  ///< longitudes on the ellipse and in the second model, rad
    double R1 = 0, R2 = 0;          ///< distances, thousand km
    double dAlfa = 0, dR = 0;       ///< their differences, rad and thousand km
    Point ellipse{}, eccentric{};   ///< the two places of the planet
    Point deferent{};               ///< the simple model's centre mark, or the equant's point
};

/// Longitudes, distances and places of both models at the time T.
/// Series to the second power of the eccentricities, counted from the aphelion, so that e1 cos M enters the
/// radius with a plus.
/// Never fails: series have a value for any eccentricity, though no sense from 1 on.
/// Source: the expansions of the elliptic motion, and of the two circles, in powers of the eccentricity.
void EccentricAt(Eccentric& p);

}  // namespace tarvex
