#pragma once
// ET-UT, the seconds by which ephemeris time runs ahead of universal time.

#include "core/model_state.h"

namespace tarvex {

/// Seconds for the date in JD by Jones's parabola of 1939, centuries from 1900.
double EtUt1900(ModelState& s);

/// Seconds for the date in JD: cubics in steps of a quarter century to 2000, linear after it, Jones's
/// parabola before 1700.  Overwrites Ipl2.  Kept as it stands also where the last cubic runs past 2000 (about
/// 60 s too large by 2020).  Throws OverflowFailure for a date outside some 800 000 years.
double EtUtTable(ModelState& s);

/// Seconds by formula k (1 or 2) of kET for the date J; the table kind reads JD and not J.  A negative kind
/// reverses the sign.  Throws SubscriptFailure for another k.
double EtUtSelect(ModelState& s, int k, double J);

}  // namespace tarvex
