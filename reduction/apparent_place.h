#pragma once
// From the place of a body to what is seen of it: the steps that every reduction makes, on values.  Which
// steps, and in which order, is the caller's choice.  SkyCells shows the values in the shared rows.

#include <array>
#include <cstddef>
#include <initializer_list>
#include <optional>

#include "reduction/sky.h"
#include "theories/geometry.h"

namespace tarvex {

/// A body on its way through the steps.
struct ApparentPlace {
    int row = 0;                  ///< of the shared arrays in which it is shown
    Vec3 position{}, velocity{};  ///< m, m/s; the velocity is the body's own with that of the system
    double lightTime = 0;         ///< from the body to the Earth, s
    double longitude = 0;         ///< of the last look, degrees
    double L = 0, B = 0;  ///< longitude or right ascension, latitude or declination last kept, degrees
};

/// Where a body stood when it sent its light.
/// @param place  where it stands now, m
/// @param lightTime  s
inline Vec3 placeBefore(const Vec3& place, const Vec3& velocity, double lightTime) {
    return place - lightTime * velocity;
}

/// Azimuth from the south westward, altitude, and hour angle, degrees.
struct Horizon {
    double hourAngle = 0, azimuth = 0, altitude = 0;
};

enum class Step {
    Source,      ///< back along the body's own velocity by the light time, found anew at each of three passes
    Receiver,    ///< along the Earth's velocity by the light time
    Precession,  ///< from the ecliptic of J2000 to that of the date
    Equator,     ///< from the ecliptic to the equator of the date
    Parallax,    ///< from the centre of the Earth to the observer
    Nutation,    ///< from the mean to the true equator
    Ecliptic     ///< from the equator to the ecliptic of the date
};

/// The sky of one moment at one place: what the steps share, and what the last of them leaves besides the
/// place itself.  A step that fails leaves all values as it found them but for those that it had come to.
class ApparentSky {
public:
    explicit ApparentSky(double T_) : T(T_) {}

    double T;                      ///< centuries from J2000
    const Vec3* centre = nullptr;  ///< where all is seen from, m; none: the origin
    Vec3 earthVelocity;            ///< m/s
    Vec3 observer;                 ///< m, on the equator of the date
    sky::Latitude latitude;        ///< of the observer
    double siderealTime = 0;       ///< local, degrees

    /// One step.  Throws ArithmeticFailure when the source step meets a body in the centre or along Z of it.
    void go(Step step, ApparentPlace& p);
    /// Direction and distance from the centre, from another place, and as seen by the observer of a place
    /// that is already his.  Throw ArithmeticFailure for one along Z; sight.distance is the distance.
    void look(ApparentPlace& p) { look(p, centre != nullptr ? *centre : Vec3{}); }
    void look(ApparentPlace& p, const Vec3& from) { sight.look(p.position - from, p.longitude); }
    /// The same, kept in L and B.
    void keep(ApparentPlace& p, const Vec3& from);
    void keep(ApparentPlace& p) { keep(p, centre != nullptr ? *centre : Vec3{}); }
    /// L and B, right ascension and declination, into the horizon: the place becomes a unit vector of the
    /// horizon frame, the angles stand in `horizon`.
    void toHorizon(ApparentPlace& p);
    /// The angles in `horizon` back to the equator, at the given distance, m.  The hour angle is left as the
    /// longitude of the place.
    /// @return  right ascension, degrees
    double fromHorizon(ApparentPlace& p, double distance);

    // --- what the last steps left
    Sight sight;  ///< the last look; its latitude is the obliquity, rad, after a turn
    Horizon horizon;
    std::optional<sky::Precession>
        precession;    ///< once a step has needed it; a caller sets one of other epochs
    int current = -1;  ///< row of the last turn or precession, -1 before any

private:
    const sky::Obliquity& obliquity();

    std::optional<sky::Obliquity> obliquity_;
};

/// The shared cells of places and sky: read when it is made, written when it goes, also by a failure.  Rows
/// X, Y, Z, LonPl, Lpl, Bpl and Tsv(3) of the places; DXcur .. Rcur, LatPl, TAU, Azim, Vys; Mprec, Prec and
/// Ipl if a step has set them.
class SkyCells {
public:
    static constexpr std::size_t most = 11;

    /// @param places  at most `most`, each with its row
    SkyCells(ModelState& s, ApparentSky& sky, std::initializer_list<ApparentPlace*> places);
    ~SkyCells();
    SkyCells(const SkyCells&) = delete;
    SkyCells& operator=(const SkyCells&) = delete;

private:
    ModelState& s_;
    ApparentSky& sky_;
    std::array<ApparentPlace*, most> places_{};
};

}  // namespace tarvex
