#include "forms/pulsar_controls.h"

namespace tarvex {

void PulsarControls::layOut() {
    layout_ = column({
        frame("Графики и их масштабы", column({table(4, {plotPulses,
                                                         pulsesScale,
                                                         "шт/с",
                                                         "",
                                                         plotRadialSpeed,
                                                         radialScale,
                                                         "км/с",
                                                         reverseRadialSpeed,
                                                         plotRoemer,
                                                         roemerScale,
                                                         "с",
                                                         "",
                                                         plotDelayBySpeed,
                                                         delayBySpeedScale,
                                                         "с,  среднее c / c",
                                                         meanDelayBySpeed,
                                                         plotDelayByMass,
                                                         delayByMassScale,
                                                         "с,  среднее c / c",
                                                         meanDelayByMass}),
                                               fields(1, {meanPulseRate})})),
        frame("Запаздывания считать", column({delaysFromPeriastron, delaysFromNode})),
        frame("Сопротивление у периастра", fields(1, {dragHalfWidth, dragCoefficient})),
        reverseMotion,
        row({storeParameters, closeForm}),
    });
}

}  // namespace tarvex
