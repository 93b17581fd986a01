#pragma once
// The routines of reduction/sky.h on the shared rows.  Angles are degrees unless a comment says otherwise; T,
// T0, T1 are Julian centuries from J2000.  Most routines work on the row named by Ipl, which the caller sets.
// Aberration, parallax and the order of all steps are those of ApparentPlace.

#include "core/model_state.h"
#include "reduction/sky.h"

namespace tarvex {

/// Turns the position in row Ipl from the equator to the ecliptic of the epoch T.  LatPl is left holding the
/// obliquity in radians: callers know.
void EquToEcl(ModelState& s, double T);
/// The turn back, from the ecliptic to the equator of the epoch T; LatPl as above.
void EclToEqu(ModelState& s, double T);

/// Mprec and Prec for ecliptic coordinates from the epoch T0 to the epoch T1: (T, 0) goes from the date to
/// J2000. Source: Lieske et al. 1977, Astron. Astrophys. 58, 1.
void PrecessMatrixEcl(ModelState& s, double T0, double T1);
/// Puts a precession into Mprec and Prec.
void setPrecession(ModelState& s, const sky::Precession& p);
/// Mprec for equatorial coordinates from the epoch T0 to the epoch T1.  Source: the same.
void PrecessMatrixEqu(ModelState& s, double T0, double T1);
/// Mprec on the position (velocity) in row Ipl.
void ApplyPrecessXYZ(ModelState& s);
void ApplyPrecessVXYZ(ModelState& s);

/// Nutation of an equatorial vector: mode 0 from the mean to the true equator and equinox of T, mode 1 back
/// (to the first order: the shift is formed from the vector given). Source: Montenbruck, Pfleger, Astronomy
/// on the Personal Computer.
void Nutation(double T, double& X, double& Y, double& Z, int mode);

inline double SiderealTime(double MJD) { return sky::siderealTime(MJD); }

/// Unit vector in the horizon frame (X south, Y west, Z zenith) into a row, from the hour angle TAU, the
/// declination Bpl(row) and the latitude ObsB.
void HorizonToXYZ1(ModelState& s, int row);
/// The inverse: unit vector of hour angle and declination into a row, from Azim, Vys and ObsB.
void HorizonToXYZ2(ModelState& s, int row);

inline double Refraction(double z) { return sky::refraction(z); }

/// The Moon in the ecliptic of date: Lpl(11), Bpl(11), Rpl(3, 11), and its rows of elements.  T in ephemeris
/// time. Source: Montenbruck, Pfleger, Astronomy on the Personal Computer (after Brown).
void MoonInequalities(ModelState& s, double T);

/// Adds the periodic terms with the amplitudes kLl to Lpl(11) and Bpl(11), degrees; the arguments come from
/// the element rows of the Moon and of the Earth.
void MoonPerturbApply(ModelState& s);

}  // namespace tarvex
