#include "forms/eccentric_controls.h"

namespace tarvex {

EccentricControls::EccentricControls(Desk& desk) : Form(desk, formName, "Эллипс и эксцентр (сравнение)") {
    layOut();
}

void EccentricControls::layOut() {
    layout_ = column({
        row({frame("Орбита", fields(1, {meanRadius, ellipseEccentricity, eccentricShift, meanMotion})),
             frame("Вторая модель и графики",
                   column({simpleEccentric, withEquant, plotLongitudeDifference, plotDistanceDifference})),
             frame("Масштабы и шаг",
                   fields(1, {drawingScale, timeScale, longitudeScale, distanceScale, timeStep})),
             frame("Результат", fields(2, {ellipseLongitude, ellipseDistance, modelLongitude, modelDistance,
                                           longitudeDifference, distanceDifference, elapsedTime})),
             column({startRun, stopRun, continueRun, singleStep, clearDrawings, closeForm})}),
        row({orbitDrawing, differenceGraph}),
    });
}

}  // namespace tarvex
