#pragma once
// The time of day of this computer, as a text.

#include <string>

namespace tarvex {

std::string timeOfDay();  ///< "17:05:09"

}  // namespace tarvex
