#pragma once
// Form22, the periodic terms of the planets: amplitudes in degrees of the terms of Mercury, Venus, the Earth
// and Mars, each perturbed by two bodies.

#include "forms/laboratory.h"
#include "forms/planet_perturbations_controls.h"
#include "forms/screens.h"

namespace tarvex {

class PlanetPerturbationsForm final : public PlanetPerturbationsControls, public PlanetPerturbationsScreen {
public:
    using PlanetPerturbationsScreen::formName;
    explicit PlanetPerturbationsForm(Laboratory& lab);
    void load() override;
    void showAmplitudes(int body) override;

private:
    void takeFields();
    void loadFile();
    void saveFile();

    Laboratory& lab;
};

}  // namespace tarvex
