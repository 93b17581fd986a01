#include "forms/moon_controls.h"

namespace tarvex {

/// What the check has measured, beside what was given.
Layout MoonControls::resultsLayout() {
    return frame("Измерено", column({fields(3, {elapsedYears, perigeesPassed, longitude}),
                                     table(4, {"",
                                               "задано/начало",
                                               "измерено",
                                               "отличие",
                                               "период, дни",
                                               firstPeriod,
                                               period,
                                               periodChange,
                                               "Rsr, тыс.км",
                                               "",
                                               axisMeasured,
                                               axisChange,
                                               "Eks, %",
                                               "",
                                               eccentricityMeasured,
                                               eccentricityChange,
                                               "AlfaP, град",
                                               "",
                                               perigeeMeasured,
                                               perigeeChange,
                                               "AlfaU, град",
                                               "",
                                               nodeMeasured,
                                               nodeChange,
                                               "Betta, град",
                                               "",
                                               inclinationMeasured,
                                               inclinationChange}),
                                     fields(3, {energyChange, angularMomentumChange, momentumYChange})}));
}

void MoonControls::layOut() {
    const Layout date = frame("Дата", column({fields(3, {year, month, day}),
                                              row({fields(1, {julianDate}), toJulianDate, toCalendarDate})}));
    const Layout source = frame("по выбранной теории или с экрана", row({fromNew0, fromSer0, fromScreen}));
    const Layout check = frame(
        "Проверка орбиты",
        column({fields(1, {systemSpeedY, stepsPerDisplay, step, stepDivider, windowDegrees}),
                row({exactPassages, anglesFromBarycentre}), startCheck, row({stopCheck, continueCheck})}));
    layout_ = row({
        column({
            row({column({date, source}),
                 frame("Элементы Луны",
                       column({row({geocentricElements, barycentricElements}), pairSketch}))}),
            frame("Элементы орбиты Луны (градусы, тыс.км)",
                  fields(4, {meanLongitude, perigeeLongitude, nodeLongitude, inclination, semiMajorAxis,
                             eccentricity, massRatio, etMinusUt})),
            row({frame("Центральная масса", column({centralMassEarth, centralMassPair, centralMassReduced})),
                 frame("Положения", column({earthByRatio, earthByShare, shiftMoon})),
                 frame("Скорости",
                       column({scaleMoonSpeed, earthSpeedByRatio, earthSpeedByShare, shiftMoonSpeed}))}),
            setInitialData,
            row({check, resultsLayout()}),
        }),
        column({orbitPicture, row({scaleLabel, scaleBar}),
                row({keepTracks, showBarycentre, clearDrawing, closeForm})}),
    });
}

}  // namespace tarvex
