#pragma once
// Initial coordinates and velocities of a run (X0..VZ0) from the elements, and the balance of the system
// about its centre of mass.

#include "core/model_state.h"

namespace tarvex {

struct InitialDataChoice {
    bool moon = false;   ///< row 10 is the Moon and row 3 the Earth alone
    bool bary3 = false;  ///< velocities about the centre of mass with the Sun, whose row balances the Earth
    bool bary =
        false;  ///< the Moon's velocity refers to the centre of mass of the pair (CentralMass::AboutCentre)
};

/// X0..VZ0 and X..VZ of bodies 0..10 from elements and km; leaves m, kodMoon, kodBary and Ipl = 10.
/// The mass of row 10 always becomes the Earth's divided by km(10), also where that row is Xena, which so
/// moves as a body of next to no mass.
/// @throws ArithmeticFailure for a zero km or an orbit that is none
void initialDataFromElements(ModelState& s, const InitialDataChoice& choice);

/// Centre of mass of the ticked bodies by X0..Z0, m, into row 14.
/// @throws ArithmeticFailure for no mass
void centreOfMass(ModelState& s);

/// The same, then X0..Z0 and X..Z of all bodies (unticked ones as well) from that centre; row 14 becomes 0.
void centreToOrigin(ModelState& s);

/// The Sun's initial velocity, m/s, that balances the momentum of the ticked planets.
/// @throws ArithmeticFailure for a Sun without mass
void sunFromMomentum(ModelState& s);

/// Rows 11 and 13 of X0..VZ0 from the Moon's motion relative to the Earth (row 11): both about their common
/// centre.
void MoonEarthFromBary(ModelState& s);
/// Row 13 alone, where row 11 already refers to the common centre.
void MoonEarthFromBary2(ModelState& s);
/// Adds the motion of the common centre (row 3): the Moon into row 10, the Earth into row 3, with its mass.
void MoonRowsToEarth(ModelState& s);

}  // namespace tarvex
