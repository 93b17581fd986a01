#pragma once
// Ecliptic and equator, precession, nutation, horizon, observer and Moon as plain functions of values:
// nothing here knows the shared state.  T, T0, T1 are Julian centuries from J2000 (JD - 2451545) / 36525.
// None of these functions fails; they hold some thousands of years about J2000, as far as the series of their
// sources.

#include "core/constants.h"
#include "core/vec3.h"
#include "theories/elements.h"

namespace tarvex::sky {

/// Julian centuries from J2000 to a Julian date.
inline double centuries(double JD) { return (JD - JD2000) / 36525; }

// ------------------------------------------------------------------ ecliptic and equator

/// Obliquity of the ecliptic with what the turns need of it.
struct Obliquity {
    double angle = 0;  ///< rad
    double cosine = 1, sine = 0;
};

/// Mean obliquity of the epoch T.  Source: Lieske et al. 1977, Astron. Astrophys. 58, 1.
Obliquity obliquity(double T);

/// From the mean ecliptic to the mean equator of the same epoch.
inline Vec3 toEquator(const Vec3& v, const Obliquity& o) {
    return {v.x, o.cosine * v.y - o.sine * v.z, o.cosine * v.z + o.sine * v.y};
}
/// From the mean equator to the mean ecliptic of the same epoch.
inline Vec3 toEcliptic(const Vec3& v, const Obliquity& o) {
    return {v.x, o.cosine * v.y + o.sine * v.z, o.cosine * v.z - o.sine * v.y};
}
inline Vec3 toEquator(const Vec3& v, double T) { return toEquator(v, obliquity(T)); }
inline Vec3 toEcliptic(const Vec3& v, double T) { return toEcliptic(v, obliquity(T)); }

// ------------------------------------------------------------------ precession

struct Precession {
    Mat3 matrix;             ///< turns a vector of the first epoch into the second
    double accumulated = 0;  ///< general precession in longitude between them, rad
};

/// For ecliptic coordinates from the epoch T0 to the epoch T1: (T, 0) goes from the date to J2000.
/// Source: Lieske et al. 1977.
Precession eclipticPrecession(double T0, double T1);
/// For equatorial coordinates.  Source: the same.
Mat3 equatorPrecession(double T0, double T1);

// ------------------------------------------------------------------ nutation

/// What nutation adds to an equatorial vector of T, in its unit: plus it goes from the mean to the true
/// equator and equinox, less it back, to the first order in both directions.
/// Source: Montenbruck, Pfleger, Astronomy on the Personal Computer.
Vec3 nutation(double T, const Vec3& v);

// ------------------------------------------------------------------ the observer and his horizon

/// Mean sidereal time at Greenwich.
/// @param MJD  Julian date - 2400000.5, universal time, days
/// @return     hours, not reduced to 0..24
/// Source: Aoki et al. 1982, Astron. Astrophys. 105, 359.
double siderealTime(double MJD);

/// An observer on a turning sphere, at one moment.
struct Observer {
    double greenwich = 0;  ///< mean sidereal time of Greenwich, hours, 0..24
    double local = 0;      ///< local mean sidereal time, degrees
    Vec3 place;            ///< m, on the equator of the date: a sphere of radius REarth, without height
};

/// @param JDut       universal time, Julian date
/// @param latitude   degrees
/// @param longitude  degrees, east positive; beyond -360..360 the local time is not reduced
Observer observerAt(double JDut, double latitude, double longitude);

/// The latitude of a horizon, by what its turns need.
struct Latitude {
    double sine = 0, cosine = 1;
};
/// @param latitude  degrees
Latitude latitudeOf(double latitude);

/// Unit vector in the horizon frame (X south, Y west, Z zenith).
/// @param hourAngle, declination  degrees
Vec3 horizonFromEquator(double hourAngle, double declination, const Latitude& latitude);
/// The inverse: unit vector of hour angle (westward) and declination.
/// @param azimuth   from the south westward, degrees
/// @param altitude  degrees
Vec3 equatorFromHorizon(double azimuth, double altitude, const Latitude& latitude);

/// Refraction, degrees, at an apparent zenith distance z, degrees: two terms of tan z to 86, straight lines
/// to 90, and constant below the horizon.  No term of pressure or temperature.
double refraction(double z);

/// Hour angle of a right ascension, or right ascension of an hour angle: 0..360 where both are, degrees.
inline double hourAngle(double siderealTime, double ascension) {
    const double angle = siderealTime - ascension;
    return angle < 0 ? angle + 360 : angle;
}

// ------------------------------------------------------------------ the Moon

struct Moon {
    double longitude = 0, latitude = 0;  ///< geocentric, ecliptic and equinox of date, degrees
    double distance = 0;                 ///< m
    Elements elements;                   ///< mean elements of the date
};

/// The low-precision Moon, T in ephemeris time.
/// Source: Montenbruck, Pfleger, Astronomy on the Personal Computer (after Brown).
Moon moonAt(double T);

/// Periodic terms of the Moon.
struct MoonTerms {
    double longitude = 0, latitude = 0;  ///< degrees, to be added
};

/// @param moon, earth  mean elements of both at one date
/// @param amplitudes   of the terms 1..28, degrees
/// Source: the largest terms of Brown's theory.
MoonTerms moonTerms(const Elements& moon, const Elements& earth, const std::array<double, 29>& amplitudes);

}  // namespace tarvex::sky
