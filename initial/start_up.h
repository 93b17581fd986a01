#pragma once
// What the program starts with, and what the first screen hands on.

#include <array>

#include "core/model_state.h"

namespace tarvex {

/// Sets the start values that other forms may have changed: drawing unit, diameters, colours, month lengths,
/// reference periods, astronomical unit, a system at rest.
void startUp(ModelState& s);

/// kodPl, kodPair and NPlOn from the ticks of bodies 0..10.
void tickBodies(ModelState& s, const std::array<bool, bodies>& ticked);

/// Copies the elements of bodies 1..10 into ElemStart for the modelling.
void handOverElements(ModelState& s);

/// False while ElemStart is all zeros.
bool elementsHandedOver(const ModelState& s);

}  // namespace tarvex
