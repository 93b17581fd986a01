#pragma once
// Form21, the periodic terms of the Moon: their amplitudes in degrees, and which of them act.

#include "forms/laboratory.h"
#include "forms/moon_perturbations_controls.h"

namespace tarvex {

class MoonPerturbationsForm final : public MoonPerturbationsControls {
public:
    explicit MoonPerturbationsForm(Laboratory& lab);
    void load() override;

private:
    Laboratory& lab;
};

}  // namespace tarvex
