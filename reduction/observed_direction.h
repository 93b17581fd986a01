#pragma once
// An observation freed from what the reduction adds to a theory: the direction in which the data have the
// body.

#include "core/vec3.h"
#include "reduction/reduction_state.h"

namespace tarvex {

struct ObservedDirection {
    double JD = 0;   ///< ephemeris time
    int body = 0;    ///< 0 the Sun .. 9
    Vec3 direction;  ///< from the Earth, without light time and aberration, ecliptic of J2000, unit vector
    Vec3 aside;      ///< the Earth from the barycentre of Earth and Moon, m
};

/// Of the observation that the pass has just compared: what the data differ from the theory, turned back into
/// the ecliptic of J2000, on the theory's own direction.  The chain adds to both nearly the same, so the
/// theory itself matters little; aberration of what they differ, 1E-4 of it, is left.
ObservedDirection observedDirection(const ModelState& s, const ReductionState& r);

}  // namespace tarvex
