#pragma once
// The bench for the aberration of a moving Solar System: the real direction from the Earth to an object, and
// its shift split into the part of the moving source and the part of the moving receiver.

#include "core/model_state.h"

namespace tarvex {

struct AberrationBench {
    static constexpr int star = 10;  ///< object number of a star given by hand

    int body = 4;                    ///< row of the object
    double Vc = Vsv;                 ///< reduced speed of light, m/s
    double GeoL = 0, GeoB = 0;       ///< real geocentric longitude and latitude, degrees
    double AlfaIs = 0, BettaIs = 0;  ///< shift by the motion of the source, degrees, -180..180
    double AlfaPr = 0, BettaPr = 0;  ///< shift by the motion of the receiver, degrees, -180..180
    double Rgeo = 0;                 ///< distance after the source step, m
    int iterations = 0;
    double JDorigin = 0;                     ///< Julian date from which the time plot counts
    double VXsys = 0, VYsys = 0, VZsys = 0;  ///< velocity of the system here, km/s

    /// Real place of a body, m and m/s.
    struct Place {
        double X = 0, Y = 0, Z = 0, VX = 0, VY = 0, VZ = 0;
        double R0sr = 0;  ///< semi-major axis of its orbit, m; 0 of the Sun and a star
        double L = 0;     ///< mean longitude, degrees, 0..360
    };
    Place earth, object;  ///< heliocentric, ecliptic
    const Place& placeOf(int row) const { return row == 3 ? earth : object; }

    // --- points of the construction, ecliptic, m
    double XIs = 0, YIs = 0, ZIs = 0;  ///< the object after the source step
    double XPr = 0, YPr = 0, ZPr = 0;  ///< the Earth moved back by the light time
};

/// Real places and velocities of the Earth and the object by the theory New0 at s.JD, in rows 3 and a.body
/// and kept in a, the real direction and the light time.  What a run takes over stays as it was.  A star's
/// row holds what its caller has put there.
/// @param byTheory  longitudes from the theory; otherwise s.AlfaL of the rows is what the caller gives here
/// @param L3, Lbody heliocentric longitudes of the Earth and the object, rad, used without byTheory
void AberrationPrepare(ModelState& s, AberrationBench& a, bool byTheory, double L3, double Lbody);

/// One iteration with the system velocity of the bench: source step, receiver step, their shifts.
/// @param withCosB  the form of the steps with the cosine of the latitude on X and Y; Z of the work rows
/// stays A failure of PairGeometry (the object at the Earth) passes to the caller.
void AberrationIterate(ModelState& s, AberrationBench& a, bool withCosB);

}  // namespace tarvex
