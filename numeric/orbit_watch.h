#pragma once
// Apses and nodes of an orbit, noticed step by step as an observer would: in windows of longitude around the
// places where they were found last the steps are small, and the step that has passed one ends the search.
// The run of an experiment, the bench of two bodies and the check of an orbit all watch in this way.

#include <cstdint>

#include "core/model_state.h"
#include "core/numbers.h"
#include "theories/longitudes.h"
#include "theories/passages.h"

namespace tarvex {

/// What a watch keeps.  Angles in degrees unless told otherwise.
struct OrbitWatch {
    // --- one step earlier, as seen from the origin
    double LonOld = 0;   ///< longitude
    double Rold = 0;     ///< distance, m
    double ZOldSel = 0;  ///< Z, m

    // --- measured
    double AlfaP = 0, AlfaU = 0;  ///< perihelion and ascending node
    double Betta = 0;             ///< largest latitude since the last apse, rad
    double Eks = 0;               ///< eccentricity
    std::int32_t NZamer = 0;      ///< number of the measure; counts perihelia

    // --- the search
    double dAlfa = 1;                                         ///< half width of the windows
    std::int16_t kodApsis = codeOf(ApseSearch::Found);        ///< see ApseSearch
    std::int16_t kodPeri = 0;                                 ///< 1 perihelion window, 0 aphelion window
    double PeriHi = 0, PeriLo = 0, AfelHi = 0, AfelLo = 0;    ///< windows of perihelion and aphelion
    double UzelHi = 0, UzelLo = 0, Uzel2Hi = 0, Uzel2Lo = 0;  ///< of the ascending and the descending node
};

/// How a watch reads what it sees.
struct WatchRules {
    double seam = 0;             ///< longitudes of two steps further apart lie on both sides of 0, degrees
    bool aphelia = false;        ///< aphelia are sought in windows of their own once a perihelion is known
    bool descending = false;     ///< descending nodes are told of as well
    bool standingWraps = false;  ///< a longitude that has not changed has wrapped
    bool standingApproaches = false;  ///< a distance that has not changed still approaches the apse
};

/// Where the body stands after a step, as seen from the origin.
struct Sighting {
    double longitude = 0;  ///< degrees, 0..360
    double z = 0;          ///< m
};

/// Longitudes around a place that has been found, degrees.
inline void windowAround(double centre, double half, double& hi, double& lo) {
    hi = below360(centre + half);
    lo = notNegative(centre - half);
}

/// The longitude of what the last step has passed, degrees.
/// @param longitude  after that step
inline double passedLongitude(const OrbitWatch& w, const WatchRules& rules, double longitude) {
    return meanLongitude(w.LonOld, longitude, rules.seam);
}

/// The angle from the equinox along the ecliptic to the node and along the orbit to an apse, degrees, neither
/// reduced nor told apart by kind of apse: the place of the apse is turned about the line of nodes by the
/// largest latitude.  Leaves that place in the work row, which is the current one then, with its longitude,
/// and LatPl and Rcur of it.
/// @param longitude  of the apse, degrees
/// @param latitude   size of it, rad
/// @param distance   m
/// @throws ArithmeticFailure for an apse on the axis of the origin, and for an orbit across the ecliptic
double longitudeInOrbit(ModelState& s, const OrbitWatch& w, double longitude, double latitude,
                        double distance);

/// True when the step that leads to this longitude is to be a small one, so that a node or the wrap is timed
/// well.
/// @param atNode  the longitude lies in the window of a node
inline bool wantsSmallStep(double longitude, bool atNode) {
    constexpr double nearFullTurn = 359;
    return atNode || longitude > nearFullTurn;
}

namespace watching {

template <class User>
void followNode(OrbitWatch& w, const WatchRules& rules, double z, User& user) {
    const int before = Sgn(w.ZOldSel);
    if (before != Sgn(z) && (before <= 0 || rules.descending)) user.node(before <= 0);
    w.ZOldSel = z;
}

/// The windows: in which one the body is, and whether its apse is sought there.
inline bool seeksApse(OrbitWatch& w, const WatchRules& rules, double longitude) {
    if (inWindow(longitude, w.PeriHi, w.PeriLo)) {
        w.kodPeri = 1;
        return true;
    }
    if (!rules.aphelia || !inWindow(longitude, w.AfelHi, w.AfelLo)) return false;
    w.kodPeri = 0;
    return w.NZamer != 0;  // before the first perihelion an aphelion is not sought
}

inline bool approachesApse(const OrbitWatch& w, const WatchRules& rules, double distance) {
    if (w.Rold == distance) return rules.standingApproaches;
    return w.kodPeri == 1 ? w.Rold > distance : w.Rold < distance;
}

}  // namespace watching

/// One look after a step: tells its user what the step has passed and which one is to follow, and keeps what
/// the next look needs.  LonOld is already that of the step before, Betta knows the latitude.
/// @param user  distance() from the origin, m; wrapped(); node(ascending); baseStep(), smallStep(): the step
/// that is to follow;
///              approaching(): the apse of kodPeri is still ahead; apse(): it has been passed, and
///              kodApsis is to be found
template <class User>
[[gnu::always_inline]] inline void watchOrbit(OrbitWatch& w, const WatchRules& rules, const Sighting& now,
                                              User& user) {
    if (now.longitude < w.LonOld || (rules.standingWraps && now.longitude == w.LonOld)) user.wrapped();
    watching::followNode(w, rules, now.z, user);
    if (!watching::seeksApse(w, rules, now.longitude)) {
        w.kodApsis = codeOf(ApseSearch::Idle);
        user.baseStep();
    } else if (w.kodApsis == codeOf(ApseSearch::Found)) {
        user.baseStep();
    } else {
        user.smallStep();
        const bool approaching = watching::approachesApse(w, rules, user.distance());
        w.kodApsis = codeOf(approaching ? ApseSearch::Approaching : ApseSearch::Idle);
        if (approaching) {
            user.approaching();
        } else {
            user.apse();
        }
    }
    w.Rold = user.distance();  // at an apse its place in the orbit plane may have taken it over
}

}  // namespace tarvex
