#pragma once
// What a body passes on its orbit, found inside a step: apses, nodes, the zero of longitude and the latitude
// at its greatest.

#include <array>
#include <cstdint>

#include "core/code_of.h"
#include "theories/arc.h"

namespace tarvex {

/// How far the search for an apse is that goes step by step through a window, the values of kodApsis and
/// kodPer.
enum class ApseSearch : std::int16_t {
    Idle = 0,         ///< outside the window
    Approaching = 1,  ///< the distance still goes towards that of the apse
    Found = 2         ///< passed, and the window not left
};

enum class Passing {
    Latitude,  ///< the latitude turns
    Node,      ///< Z = 0
    Wrap,      ///< the longitude passes 0
    Apse,      ///< r.v = 0
};

/// A passage inside a step.
struct FoundPassage {
    Passing what = Passing::Apse;
    double share = 0;      ///< of the step that had passed, 0..1
    bool upwards = false;  ///< the function grew through its zero: perihelion, node towards positive Z
    OrbitPoint point;
};

/// The passages of one step in order of time; one of a kind, for a step is short against a revolution.
struct FoundPassages {
    std::array<FoundPassage, 4> found{};
    int count = 0;
    const FoundPassage* begin() const { return found.data(); }
    const FoundPassage* end() const { return found.data() + count; }
};

/// The function whose zeros are the passages of a kind: Z, Y, r.v, or the rate of Z/R times R^3.
double passingFunction(Passing what, const OrbitPoint& point);

/// True when something may have been passed between the ends of a step.  A zero at its start counts, one at
/// its end is left to the next step.
bool maybePassed(const OrbitPoint& before, const OrbitPoint& after);

/// Finds the passages between the ends of a step to the last bits of the share.
/// @param track  motion inside the step, asked only where something has been passed
/// @throws what the track does
/// Source: G. E. Alefeld, F. A. Potra, Y. Shi, ACM Trans. Math. Softw. 21, 327 (1995), for the zeros.
FoundPassages findPassages(const OrbitPoint& before, const OrbitPoint& after, Track& track);

/// Latitude of a point, rad.
double latitudeOf(const Vec3& r);

}  // namespace tarvex
