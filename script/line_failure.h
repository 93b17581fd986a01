#pragma once
// What stops a script: the line that cannot be done, told in words.

#include <string>
#include <string_view>

namespace tarvex {

/// Not a std::exception: it must pass through the guards of the handlers that run meanwhile, which would show
/// their fixed message and go on.
struct LineFailure {
    std::string text;
    int line = 0;  ///< counted from 1; 0 until the player knows
};

/// A piece of a script in quotation marks for such a text: short, and with nothing that a terminal would
/// obey.
std::string quote(std::string_view piece);

}  // namespace tarvex
