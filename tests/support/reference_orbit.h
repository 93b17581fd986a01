#pragma once
// The Solar System by another route, for tests and timings: point masses in their plain equations, Gragg's
// midpoint rule extrapolated to order 16 (Hairer, Norsett and Wanner, Solving Ordinary Differential Equations
// I, II.9), and passages found by integrating to them, with no interpolation.

#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "core/vec3.h"

namespace tarvex::test {

/// What was measured at an apse by the definitions of the laboratory, degrees, m and s.
struct ReferenceApse {
    double time, perihelion, node, distance;
    bool atPerihelion;
};

class ReferenceOrbit {
public:
    using State = std::vector<Vec3>;  ///< positions of all bodies, then velocities

    /// @param gm  products of gamma and mass; @param c2  square of the speed of light, 0: Newton's law
    ReferenceOrbit(std::vector<double> gm, State state, double c2 = 0);

    /// Follows a body as seen from another in steps of h over a time, s.  Of several turns of one kind within
    /// a quarter of a revolution the extreme one is the apse; the first is a perihelion.
    std::vector<ReferenceApse> apses(std::size_t body, std::size_t centre, double h, double time);

    State state;

private:
    State slope(const State& s) const;
    void relativity(const State& s, std::vector<Vec3>& a) const;
    State after(const State& s, double h) const;

    std::vector<double> gm_;
    double c2_;
};

/// Drift of y over x by least squares.
double slopeOf(const std::vector<std::pair<double, double>>& points);

}  // namespace tarvex::test
