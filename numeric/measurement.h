#pragma once
// The orbit of one body, measured from its track as an observer would: perihelion, node, inclination,
// eccentricity, semi-major axis and period.

#include "core/model_state.h"
#include "numeric/run_state.h"

namespace tarvex {

/// What one pass of the measurement has seen; the screen and the record file follow it.
struct Passage {
    bool periodRenewed = false;     ///< the baseline of the period has been taken again
    bool node = false;              ///< a node has been passed
    bool ascending = false;         ///< it was the ascending one
    bool apse = false;              ///< an apse has been passed
    bool first = false;             ///< it is the first of the run: its longitude is the baseline
    bool baselinesRenewed = false;  ///< the other baselines have been taken again
    bool turnCounted = false;       ///< NZamer has grown: a perihelion, or the first apse
};

/// Origin of the measurement by the ticked boxes, the last one wins: 15 the zero row, 0, 3, 14.
int originRow(const RunBoxes& boxes);

/// Elements at Start from ElemStart of IplSel, all baselines, and the first windows: 45 degrees to both sides
/// of the apses, dAlfa of the nodes.
void startMeasurement(ModelState& s, RunState& run);

// --- what a passage brings, in windows and exact alike; LonOld and LonPl enclose its longitude, Tsec is its
// time

/// LonPl of IplSel, the size of its latitude LatPl, rad, and Rcur, as seen from Icentr.
/// @throws ArithmeticFailure for a body at the place of the origin or on its Z axis
void look(ModelState& s);
/// The longitude has wrapped: period since the last wrap, days.
/// @param turns  turns counted by then; before the first one there is no period
void takeWrap(RunState& run, std::int32_t turns, Passage& seen);
/// A node has been crossed: AlfaU, degrees, and its window.
void takeNode(const ModelState& s, RunState& run, bool ascending, Passage& seen);
/// The apse of kodPeri has been passed, its distance is in Rmin or Rmax: elements, baselines, windows.
/// a = (Rmin + Rmax) / 2, e = 1 - Rmin / a; the perihelion by longitudeInOrbit().
/// @throws ArithmeticFailure as longitudeInOrbit(), and for an orbit without size
void takeApse(ModelState& s, RunState& run, Passage& seen);

/// One pass: compares the new position of IplSel, seen from Icentr, with that of the step before, follows the
/// windows and sets the next step DtCur to Dt or Dt/kDt.
/// @return  what has been passed; the caller appends the record and then calls endApse()
/// @throws ArithmeticFailure for a body at the place of the origin or on its Z axis, and for kDt = 0
Passage measurePass(ModelState& s, RunState& run);

/// Arms the search anew after a passed apse and its record.
void endApse(RunState& run);

/// The step rule of the node windows and of the end of the turn, after measurePass() and endApse().
void refineStep(ModelState& s, const RunState& run);

}  // namespace tarvex
