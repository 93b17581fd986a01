#pragma once
// The check of an orbit: a planet and its centre are integrated as two bodies from their initial data, and
// the elements that the orbit really shows are measured on the way.  A planet is
// checked, or on the bench of the Moon the Moon.

#include "numeric/pair_orbit.h"

namespace tarvex {

class NameTable;

/// The one check of the laboratory: its two screens take turns, each goes on only with a check of its own.
struct OrbitCheck : PairOrbit {
    // --- who moves
    int IplSel = 1;          ///< row in which the planet is shown
    int IplJ = 1;            ///< source row of its initial data and mass
    int Icentr = 0;          ///< source row of the centre's initial data and mass
    bool moonBench = false;  ///< the centre of mass follows every step, a negative perihelion is raised

    // --- integration
    double Tstage = 0;          ///< time of the last stage, s
    int NC = 0;                 ///< steps since the last screen update
    double cosA = 1, sinA = 0;  ///< of the pair's longitude; kept from the last call where dx is 0

    // --- measurement; the orbit's own in OrbitWatch
    double Tper0 = 0, Tper = 0;     ///< time of the last perihelion, s; measured period, days
    double Vc = 0, Vp = 0;          ///< speeds of the centre and the planet, m/s
    double AlfaP1 = 0, AlfaU1 = 0;  ///< perihelion and node at the start, degrees
    double R00 = 0;                 ///< distance at the start, m
    double Esys0 = 0, Esys = 0;     ///< kinetic energy at the start, energy now, J
    double M0sys = 0, KD0sysY = 0;  ///< of the Moon: angular momentum and momentum along Y at the start

    /// True once a check of that kind has been begun and no other has replaced it.
    bool begun(bool onMoonBench) const { return R00 > 0 && moonBench == onMoonBench; }
};

/// Enters the measured values and windows under their own names.  U, dU, Tsec and whatever else has the name
/// of a variable of an experiment stay the experiment's.
void addNames(NameTable& table, const OrbitCheck& c);

/// What a form shows while the check runs.
class OrbitCheckPort {
public:
    virtual ~OrbitCheckPort() = default;
    virtual void nodePassed() = 0;  ///< AlfaUcur is new
    virtual void
    perihelionPassed() = 0;  ///< Tper, EksM, AlfaPcur, Rr of the row are new; extremes not yet reset
};

/// Prepares a check from rows IplSel, 0 and 14 of the state (positions and velocities, the system velocity
/// already added) and the elements of row IplJ; kodPer, windows, extremes, energy.
/// @param c  IplSel, IplJ, Icentr, Iobs, Dt, kDt, NC0, dAlfa, moonBench and exact are given
/// @throws ArithmeticFailure when the bodies coincide, and for kDt = 0
void startOrbitCheck(ModelState& s, OrbitCheck& c);

/// Right-hand side of the two bodies: Newton's law on U, into dU, m/s and m/s^2; leaves Rcur of the state, m.
/// The force takes the mass of the row in which the planet is shown, the acceleration that of the row of its
/// data: for the Moon in row 10 they are two masses.
void OrbitCheckDiffur(ModelState& s, OrbitCheck& c);

/// NC0 steps with their measurement, then the energy, J.
/// @throws ArithmeticFailure for a step that is no number; the state is that of the last good step
void runOrbitCheckBatch(ModelState& s, OrbitCheck& c, OrbitCheckPort& port);

/// Row 14 of the state: centre of mass of the two bodies.
void orbitCheckCentre(ModelState& s, const OrbitCheck& c);

}  // namespace tarvex
