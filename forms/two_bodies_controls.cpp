#include "forms/two_bodies_controls.h"

namespace tarvex {

/// What the run has measured, beside what it began with.
Layout TwoBodiesControls::resultsLayout() {
    return frame(
        "Измерено",
        column({fields(2, {elapsedYears, revolutions, longitude, forceOnM1, energyChange, momentumChange}),
                table(4, {"",
                          "начало",
                          "сейчас",
                          "сдвиг",
                          "Eks",
                          eccentricityStart,
                          eccentricityNow,
                          eccentricityShift,
                          "AlfaP, град",
                          periastronStart,
                          periastronNow,
                          periastronShift,
                          "AlfaU, град",
                          nodeStart,
                          nodeNow,
                          nodeShift,
                          "Rsr, тыс.км",
                          axisStart,
                          axisNow,
                          axisShift,
                          "период, дни",
                          periodDaysStart,
                          periodDaysNow,
                          periodDaysShift,
                          "период, с",
                          periodStart,
                          periodNow,
                          periodShift})}));
}

void TwoBodiesControls::layOut() {
    const Layout orbit = frame("Параметры орбиты и массы",
                               column({fields(2, {meanLongitude, semiMajorAxis, eccentricity, inclination,
                                                  periastronLongitude, mass1, nodeLongitude, mass2}),
                                       barycentricElements}));
    const Layout source =
        frame("Источник", column({fromTheory, fields(1, {theoryBody}), fromFile, fields(1, {pulsarFile}),
                                  row({loadParameters, saveParameters}), setInitialData}));
    const Layout force = frame("возникающую при этом силу Ft определять",
                               column({row({forceByRetardation, forceByFormula, forceGiven}),
                                       fields(1, {givenForce}), row({forceByOtherSpeed, forceOnM2})}));
    const Layout solution =
        row({frame("Решение", column({fields(1, {step, stepDivider, stepsPerDisplay, windowDegrees,
                                                 gravitySpeed, systemSpeedX, systemSpeedY}),
                                      row({exactPassages, longitudesFromBarycentre})})),
             column({force, frame("расчет с учетом Vgr", row({effectOn, effectOff, restartBaselines})),
                     row({startRun, stopRun, continueRun})})});
    const Layout show =
        frame("Показывать", column({showM1FromBarycentre, showM1FromOrigin, showM1FromM2,
                                    showBothFromBarycentre, showBothFromOrigin, keepTracks, showBarycentre}));
    const Layout plots = frame(
        "Графики сдвигов", column({table(2, {plotEccentricity, eccentricityScale, plotPeriastron,
                                             periastronScale, plotAxis, axisScale, plotPeriod, periodScale}),
                                   fields(1, {timeScale})}));
    layout_ = row({
        column({row({orbit, source}), solution,
                row({resultsLayout(),
                     column({row({show, plots}), row({openPulsar, clearDrawings, closeForm})})})}),
        column({orbitPicture, row({scaleLabel, scaleBar}), shiftPlots}),
    });
}

}  // namespace tarvex
