#pragma once
// One row of the shared arrays as a value.  Routines compute with values; what scripts and forms read stands
// in the rows.

#include <array>

#include "core/model_state.h"
#include "core/vec3.h"

namespace tarvex {

inline Vec3 placeOf(const ModelState& s, int row) { return {s.X[row], s.Y[row], s.Z[row]}; }
inline Vec3 velocityOf(const ModelState& s, int row) { return {s.VX[row], s.VY[row], s.VZ[row]}; }

inline void setPlace(ModelState& s, int row, const Vec3& place) {
    s.X[row] = place.x, s.Y[row] = place.y, s.Z[row] = place.z;
}
inline void setVelocity(ModelState& s, int row, const Vec3& velocity) {
    s.VX[row] = velocity.x, s.VY[row] = velocity.y, s.VZ[row] = velocity.z;
}

/// Place and velocity as initial data of a run.
inline void setInitial(ModelState& s, int row, const StateVector& state) {
    s.X0[row] = state.r.x, s.Y0[row] = state.r.y, s.Z0[row] = state.r.z;
    s.VX0[row] = state.v.x, s.VY0[row] = state.v.y, s.VZ0[row] = state.v.z;
}

/// A row becomes the current one, on which the routines of theories and coordinates act.
inline void setCurrent(ModelState& s, int row) { s.Ipl = static_cast<std::int16_t>(row); }

}  // namespace tarvex
