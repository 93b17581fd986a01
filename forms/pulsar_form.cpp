#include "forms/pulsar_form.h"

#include "core/arithmetic.h"
#include "forms/screens.h"

namespace tarvex {

PulsarForm::PulsarForm(Laboratory& lab_)
    : PulsarControls(lab_.desk, formName, "Доп. параметры                 форма 26     Tarvex7mm"),
      lab(lab_) {
    storeParameters.onPress([this] { store(); }, orShow("Задайте правильно данные", "Tarvex7mm"));
    closeForm.onPress([this] { close(); });
    layOut();
}

void PulsarForm::load() { showPulseRate(); }

/// One pulse a step: the rate follows the step as it is typed; while that is no number, or 0, the last one
/// stays.
void PulsarForm::showPulseRate() {
    double Dt = lab.twoBody.Dt;
    try {
        if (const auto* const twoBodies = loadedScreen<TwoBodiesScreen>(desk()))
            Dt = toNumber(twoBodies->typedStep());
        meanPulseRate.show(Fix(ratio(MK, Dt)) / MK);
    } catch (const Failure&) {
    }
}

void PulsarForm::store() {
    PulsarExtras p;
    p.pulses = plotPulses.on();
    p.radialSpeed = plotRadialSpeed.on();
    p.roemer = plotRoemer.on();
    p.delayBySpeed = plotDelayBySpeed.on();
    p.delayByMass = plotDelayByMass.on();
    p.pulsesScale = pulsesScale.number();
    p.radialScale = radialScale.number() * 1000;
    p.roemerScale = roemerScale.number();
    p.delayBySpeedScale = delayBySpeedScale.number();
    p.delayByMassScale = delayByMassScale.number();
    for (const double scale :
         {p.pulsesScale, p.radialScale, p.roemerScale, p.delayBySpeedScale, p.delayByMassScale})
        ratio(1, scale);
    p.dTvSr = meanDelayBySpeed.number();
    p.dTmSr = meanDelayByMass.number();
    p.dAlfaSopr = dragHalfWidth.number();
    p.kSopr = dragCoefficient.number();
    p.signVY = reverseRadialSpeed.on() ? -1 : 1;
    p.kodTime = reverseMotion.on() ? -1 : 1;
    p.fromNode = delaysFromNode.on();
    lab.pulsar = p;
    showPulseRate();
}

}  // namespace tarvex
