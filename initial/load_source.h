#pragma once
// Filling the state with elements and masses: from a theory, from the ephemeris, or row by row from a screen.

#include <functional>

#include "core/model_state.h"

namespace tarvex {

struct Ephemeris;

/// The Sun's row has no elements.
void clearSunElements(ModelState& s);

/// God0, Mes0, Den0 into JD, and on into JD0, JDepoha and JDstart.
void enterDate(ModelState& s);

/// Universal and ephemeris time of JD, days: JDut, JDet (with EtUt1900).  JD becomes JDet, but stays JDut for
/// Ser0.
void enterTime(ModelState& s, Source source);

/// Masses, gamma, mSol, JDepoha and elements of bodies 1..9 by New0, JPL0 or Ser0 for JD; with kodMoon the
/// Moon in row 10 (New0 and JPL0 tell where from), otherwise the default Xena.
void loadTheory(ModelState& s, Source theory);

/// As JPL0, with X..VZ and X0..VZ0 of bodies 0..9 from the ephemeris, about the barycentre of the Solar
/// System, and with kodMoon the Moon and the Earth apart.  Fails as DEOpen and DEEvaluate do.
void loadEphemeris(ModelState& s, Ephemeris& e);

/// Copies the Moon (row 11), its angles reduced to one turn, into row 10.
void MoonRowToXena(ModelState& s);

/// V0sr of bodies 1..10, m/s: R0sr times W0sr.
/// @throws ArithmeticFailure for one beyond numbers
void meanSpeeds(ModelState& s);

/// One typed row of the table of bodies: value(1) .. value(7) are asked for in order, each once, and stored
/// at once, so a failure keeps what stood before it.
using TypedRow = std::function<double(int column)>;
void enterElements(ModelState& s, int body, const TypedRow& value);  ///< degrees, thousand km, rad/year
void enterState(ModelState& s, int body, const TypedRow& value);     ///< thousand km, m/s, mSol/mass

/// The same row as it is shown.  The mean longitude is reduced to one turn in the state as well.
std::array<double, 7> shownElements(ModelState& s, int body);
std::array<double, 7> shownState(const ModelState& s, int body);

}  // namespace tarvex
