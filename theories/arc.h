#pragma once
// One step of a relative motion as a function of time: what an integrator knows at the ends of its step, and
// inside it, made into polynomials that can be asked for any moment between them.

#include <array>

#include "core/vec3.h"

namespace tarvex {

/// A body as seen from its centre: position, m, and velocity, m/s.
using OrbitPoint = StateVector;

/// The motion inside a step, by the share of the step that has passed, 0..1.
class Track {
public:
    virtual ~Track() = default;
    virtual OrbitPoint at(double share) = 0;
};

/// A polynomial of x in 0..1 in the nested form of dense output,
/// start + x*(F0 + (1-x)*(F1 + x*(F2 + (1-x)*(F3 + x*(F4 + (1-x)*(F5 + x*F6)))))):
/// F0 is the change over the step, F1 and F2 bring in the rates at its ends, the others vanish there with
/// their rates.
/// Source: Hairer, Norsett and Wanner, Solving Ordinary Differential Equations I, 2nd ed., II.6.
struct NestedPolynomial {
    Vec3 start;
    std::array<Vec3, 7> F{};

    Vec3 at(double x) const;
};

class Arc final : public Track {
public:
    Arc(const NestedPolynomial& r, const NestedPolynomial& v) : r_(r), v_(v) {}

    /// The quintic with the positions, velocities and accelerations of both ends; the velocity is its
    /// derivative.
    /// @param h        length of the step, s
    /// @param start    point at its start
    /// @param dr, dv   changes over the step: an integrator knows them better than the difference of the ends
    /// @param a0, a1   accelerations at the ends, m/s^2
    static Arc hermite(double h, const OrbitPoint& start, const Vec3& dr, const Vec3& dv, const Vec3& a0,
                       const Vec3& a1);

    OrbitPoint at(double share) override { return {r_.at(share), v_.at(share)}; }

private:
    NestedPolynomial r_, v_;
};

}  // namespace tarvex
