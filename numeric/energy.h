#pragma once
// Energy and moment of momentum of the whole system, as the run shows them and writes them into its records.

#include <array>

#include "core/model_state.h"

namespace tarvex {

class NameTable;
struct Motion;

struct Energy {
    double Msys = 0;             ///< mass of the ticked bodies, kg
    double Esys = 0, EKsys = 0;  ///< energy, kinetic energy, J
    double MKDsys = 0;           ///< moment of momentum about the Sun or the centre of mass, kg m^2/s
    double E0sys = 0, EK0sys = 0, MKD0sys = 0;  ///< the same at Start
    std::array<double, bodies> Rsol0{};         ///< distance from the Sun at Start, m
};

/// Mass, centre of mass (row 14 with its velocity), distances from the Sun, energy and moment at Start.
/// @param last  highest body that counts: 10 in the model, 9 in an imitator
/// @throws ArithmeticFailure for a system without mass, a body at the place of the Sun and values beyond
/// numbers Source: the integrals of motion of point masses, energy and moment of momentum.
void startEnergy(ModelState& s, const Motion& motion, Energy& energy, int last);

/// Present centre of mass of the ticked bodies 0..last, and its velocity, into row 14.
/// @throws ArithmeticFailure for a system without mass
void formCentre(ModelState& s, double Msys, int last);

/// Energy and moment now.  The potential energy is measured from zero at Start; with kodEpot the pairs of
/// planets count too and the moment is about row 14, which kodCMnow puts into the centre of mass of the
/// moment.
/// @throws ArithmeticFailure as above
void measureEnergy(ModelState& s, const Motion& motion, Energy& energy, int last);

void addNames(NameTable& table, const Energy& energy);

}  // namespace tarvex
