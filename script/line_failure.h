#pragma once
// What stops a script: the line that cannot be done, told in words.

#include <string>

#include "core/failure.h"

namespace tarvex {

/// Not a std::exception: it must pass through the guards of the handlers that run meanwhile, which would show
/// their fixed message and go on.
struct LineFailure {
    static constexpr int cannotBeDone = 2, errorMessage = 3;

    std::string text;
    int line = 0;               ///< counted from 1; 0 until the player knows
    int status = cannotBeDone;  ///< with which the program ends
};

}  // namespace tarvex
