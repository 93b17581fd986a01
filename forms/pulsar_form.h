#pragma once
// The pulsar screen, Form26: additional parameters of a pulsar for the two-body run.

#include "forms/laboratory.h"
#include "forms/pulsar_controls.h"
#include "forms/screens.h"

namespace tarvex {

class PulsarForm final : public PulsarControls, public PulsarScreen {
public:
    using PulsarScreen::formName;
    explicit PulsarForm(Laboratory& lab);

    void load() override;
    void showPulseRate() override;

private:
    void store();

    Laboratory& lab;
};

}  // namespace tarvex
