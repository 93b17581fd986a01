#pragma once
// What the user has chosen for the looks of series, kept between sessions.

#include "desktop/plot_look.h"

namespace tarvex {

PlotLook plotChoices();
/// Keeps them and shows every open picture in them.
void choose(const PlotLook& look);

}  // namespace tarvex
