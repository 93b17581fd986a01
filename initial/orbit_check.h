#pragma once
// The check of an orbit: a planet and its centre are integrated as two bodies from their initial data, and
// the elements that the orbit really shows are measured on the way.  A planet is checked, or on
// the Moon's bench the Moon.

#include <array>

#include "core/model_state.h"
#include "theories/passages.h"

namespace tarvex {

class NameTable;

/// The one check of the laboratory: its two screens take turns, each goes on only with a check of its own.
struct OrbitCheck {
    // --- who moves
    int IplSel = 1;          ///< row in which the planet is shown
    int IplJ = 1;            ///< source row of its initial data and mass
    int Icentr = 0;          ///< source row of the centre's initial data and mass
    int Iobs = 0;            ///< row from which angles are seen: 0 the centre, 14 the centre of mass
    bool moonBench = false;  ///< the centre of mass follows every step, a negative perihelion is raised
    bool exact = false;      ///< base steps, with perihelia and nodes found inside them

    // --- integration; cells 1..12: centre X, Y, Z; planet; centre velocities; planet velocities
    std::array<double, 13> U{}, dU{}, U0{};
    double Tsec = 0, Tstage = 0;  ///< time from the start and of the stage, s
    double Dt = 0, DtCur = 0;     ///< base and current step, s
    int kDt = 1;                  ///< divisor of the step in the windows
    int NC = 0, NC0 = 1;          ///< steps since the last screen update, steps per update
    double cosA = 1, sinA = 0;    ///< of the pair's longitude; kept from the last call where dx is 0

    // --- measurement
    double Tper0 = 0, Tper = 0;                ///< time of the last perihelion, s; measured period, days
    double Lmin = 0, Lmax = 0;                 ///< smallest and largest distance since the last perihelion, m
    double Vmin = 0, Vmax = 0;                 ///< smallest and largest speed of the planet, m/s
    double Vc = 0, Vp = 0;                     ///< speeds of the centre and the planet, m/s
    double BettaMax = 0;                       ///< greatest latitude seen, rad
    double EksM = 0;                           ///< measured eccentricity
    double AlfaP1 = 0, AlfaU1 = 0;             ///< perihelion and node at the start, degrees
    double AlfaPcur = 0, AlfaUcur = 0;         ///< measured perihelion and node, degrees
    double LonPer = 0;                         ///< longitude of the last perihelion on the ecliptic, degrees
    double LonPrev = 0, Zprev = 0, Rprev = 0;  ///< longitude, relative Z and distance one step earlier
    double PerHi = 0, PerLo = 0;               ///< window in which the perihelion is sought, degrees
    double UzHi = 0, UzLo = 0;                 ///< window around the node, degrees
    double dAlfa = 1;                          ///< half-width of the windows, degrees
    int kodPer = codeOf(ApseSearch::Found);
    int NObs = 0;                   ///< perihelia passed
    double R00 = 0;                 ///< distance at the start, m
    double Esys0 = 0, Esys = 0;     ///< kinetic energy at the start, energy now, J
    double M0sys = 0, KD0sysY = 0;  ///< Moon's bench: angular momentum and momentum along Y at the start

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
/// Throws ArithmeticFailure when the bodies coincide.
void startOrbitCheck(ModelState& s, OrbitCheck& c);

/// Right-hand side of the two bodies: Newton's law on U, into dU.
/// The force takes the mass of the shown row and the acceleration that of the source row, as meant.
void OrbitCheckDiffur(ModelState& s, OrbitCheck& c);

/// NC0 steps with their measurement, then the energy.  A failure leaves the state of the last good step and
/// passes to the caller.
void runOrbitCheckBatch(ModelState& s, OrbitCheck& c, OrbitCheckPort& port);

/// Row 14 of the state: centre of mass of the two bodies.
void orbitCheckCentre(ModelState& s, const OrbitCheck& c);

}  // namespace tarvex
