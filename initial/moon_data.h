#pragma once
// Initial data of the Moon and the Earth from the Moon's elements, every transformation by a tick of its own.
// Rows: the Moon 11, the Earth 3 while the data are built and 0 in the check.

#include "core/model_state.h"

namespace tarvex {

/// Which transformations of the relative motion are made, in this order.
struct MoonTransformations {
    bool earthByRatio = false;       ///< Xz = -Xl * ml / mz
    bool earthByShare = false;       ///< Xz = -Xl * ml / (mz + ml); replaces the one before
    bool shiftMoon = false;          ///< Xl = Xl + Xz
    bool scaleMoonSpeed = false;     ///< VXl = VXl / (1 + ml / mz)
    bool earthSpeedByRatio = false;  ///< VXz = -VXl * ml / mz
    bool earthSpeedByShare = false;  ///< VXz = +VXl * ml / (ml + mz), a trial: no balance
    bool shiftMoonSpeed = false;     ///< VXl = VXl + VXz
};

enum class MoonTheory { New0, Ser0, Screen };

/// Masses of the theory; elements from the screen go with the masses of Ser0.
void moonMasses(ModelState& s, MoonTheory theory);

/// Elements of the Moon (row 11) by the theory for universal time s.JD, angles reduced to one turn.
/// MoonTheory::Screen leaves the row as its caller filled it.  Leaves JDut0, JDet.
/// @return ET-UT, s (0 for elements from the screen)
double moonElements(ModelState& s, MoonTheory theory);

/// Coordinates and velocities of rows 11 and 3 from the elements of row 11 with the central mass of
/// s.kodBary, transformed, and copied into the initial rows 11 and 0: the Sun's row is replaced by the Earth.
void moonInitialData(ModelState& s, const MoonTransformations& t);

/// Angular momentum of the Moon (row 11) about the Earth (row 0) in the plane of the ecliptic, kg m^2/s: the
/// moment m (x vy - y vx) of the relative motion, with the mass of the Moon and not the reduced one.
double moonAngularMomentum(const ModelState& s);
/// Momentum of the pair along Y, kg m/s; the Earth stands in row 0, its mass in row 13.
double pairMomentumY(const ModelState& s);

}  // namespace tarvex
