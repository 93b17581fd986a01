#pragma once
// The only unit that turns numbers into texts and texts into numbers, and that cuts and rounds.
// The process locale never matters: the decimal comma is ours.

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/constants.h"

namespace tarvex {

/// Cut towards zero.  A result of -0 becomes 0.
inline double Fix(double v) { return std::trunc(v) + 0.0; }

/// Cut towards minus infinity.
inline double Int(double v) { return std::floor(v) + 0.0; }

/// -1, 0 or +1.
inline int Sgn(double v) { return (v > 0) - (v < 0); }

/// A value as displays show it: cut to six decimals, Fix(MK*v)/MK.
inline double cut6(double v) { return Fix(MK * v) / MK; }

/// Rounds half to even; throws OverflowFailure outside 16 (32) bits or when v is not a number.
std::int16_t toInt16(double v);
std::int32_t toInt32(double v);

/// Number from a text as a person types it: decimal comma or point, exponent with E or D.
/// Throws ConversionFailure for anything else (empty text, letters, separators of thousands) and
/// OverflowFailure for a number beyond double precision.
double toNumber(std::string_view text);

/// Text of a number for the screen and for the heads of files: up to 15 significant digits, decimal comma.
/// Throws ArithmeticFailure when v is not finite.
std::string toText(double v);

/// A number by a pattern of zeros, "0000.00": padded with zeros, rounded half away from zero, decimal comma.
/// Throws ArithmeticFailure when v is not finite.
std::string Format(double v, std::string_view pattern);

/// A number as an item of a text file: decimal point, a blank or the sign before it and a blank after it.
/// Throws ArithmeticFailure when v is not finite.
std::string fileItem(double v);

/// All 17 digits with a decimal point, for the script player's "print state.NAME".
std::string toFullText(double v);

}  // namespace tarvex
