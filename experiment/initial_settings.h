#pragma once
// The system of bodies that an experiment starts from: source, date, bodies, Earth and Moon together or
// apart.

#include <array>

#include "core/constants.h"
#include "core/provenance.h"
#include "numeric/run_loop.h"

namespace tarvex {

/// They start as the parameter screen does: Ser0 for noon of 1 January 1801, all bodies but Xena, at rest.
struct InitialSettings {
    Source source = Source::Ser0;         ///< not Screen: elements of one's own go straight into the state
    std::int32_t year = 1801, month = 1;  ///< of the start, Gregorian calendar; a file brings its own date
    double day = 1.5;  ///< with fraction: 1.5 is noon of the first; ephemeris time but for Ser0
    int file = 1;      ///< number N of \Dat\Tarvex<N>.dat, for Source::File
    /// Coordinates and velocities from the elements also where the source brings its own: a file and JPL2.
    bool byElements = false;
    bool earthAndMoon = false;  ///< the Earth (row 3) and the Moon (row 10) apart
    bool bary3 = false;         ///< velocities about the centre of mass of a planet and the Sun
    bool bary = false;          ///< the Moon's velocity refers to the centre of mass of the pair
    /// Bodies 0..10 that take part; row 10 also as the Moon.
    std::array<bool, bodies> inModel = {true, true, true, true, true, true, true, true, true, true, false};
    std::array<double, 3> systemVelocity = {0, 0, 0};  ///< of the whole system, km/s
};

/// Elements, masses and initial data X0..VZ0 of bodies 0..10, the ticks, the dates, and the elements by which
/// a run measures (ElemStart): all that a run takes over.  Lengths in m, velocities in m/s, masses in kg,
/// angles in rad.
/// @param e    the state and the ephemeris are written, the data tree is read
/// @throws ArithmeticFailure for an orbit that is none or a mass of nothing; ConversionFailure for a date
/// that is none;
///         OpenFailure, FileFailure for a parameter file or an ephemeris that is missing or broken; Refusal
///         for a date outside the ephemeris.  The state is then partly written.
/// Sources: of the theories, as told in theories/secular_theories.h and theories/ephemeris.h.
void formInitialData(const Experiment& e, const InitialSettings& set);

}  // namespace tarvex
