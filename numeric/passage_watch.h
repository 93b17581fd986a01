#pragma once
// What the exact measuring of an orbit keeps from step to step.

#include "theories/arc.h"

namespace tarvex {

/// A turn of the distance that may be an apse, with what was measured up to it.
struct Turn {
    OrbitPoint point;
    double Tsec = 0;    ///< time, s
    double AlfaU = 0;   ///< node passed last, degrees
    double Betta = 0;   ///< largest latitude since the last apse, rad
    double Period = 0;  ///< days
};

/// Perturbations of a nearly circular orbit make false turns of the distance.  A turn counts when it is of
/// the kind due; of several within a quarter of a revolution the extreme one.
struct PassageWatch {
    enum class Due { Perihelion, Aphelion, Either };

    Due due = Due::Perihelion;  ///< before the first perihelion no aphelion is sought
    bool waiting = false;       ///< a turn has been seen; others may follow in this quarter of a revolution
    bool perihelion = false;    ///< kind of the turn that waits
    bool rivals = false;        ///< the run has had several turns in one quarter
    Turn turn;                  ///< the extreme one of the quarter
    bool wrapped = false;       ///< Tper0 is the time of a wrap

    // --- end of the last pass: an imitator's way to here begins there
    bool begun = false;
    int body = 0, centre = 0;  ///< who was seen from where
    double Tsec = 0;           ///< s
    OrbitPoint last;

    /// Forgets what waits: the body has not been followed, or goes the other way from here.
    /// @param counted  the run has counted a perihelion
    void interrupt(bool counted) {
        waiting = begun = wrapped = false;
        due = counted ? Due::Either : Due::Perihelion;
    }
};

}  // namespace tarvex
