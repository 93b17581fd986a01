#pragma once
// The laws by which gravity may act, by name.  The values are the codes that files and screens show.

#include <cstdint>

namespace tarvex {

/// Law of the dynamic pressure of gravity that has a speed, the values of kodPgr.
enum class Pressure : std::int16_t {
    None = 0,
    Weber = 2,
    GerberFirst = 3,
    GerberSecond = 4,
    LienardWiechert = 5,
    Norin = 6,
    Sukhorukov = 7
};

/// Whence a body is pulled by another whose gravity takes its time, the values of kodDX.
enum class Retardation : std::int16_t {
    None = 0,             ///< from where the other is now
    BySpeeds = 1,         ///< from where it was, flown back straight
    ByAccelerations = 2,  ///< and with its acceleration
    ByTrace = 3           ///< from its trace
};

}  // namespace tarvex
