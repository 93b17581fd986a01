#include "forms/converter_controls.h"

#include <array>
#include <vector>

namespace tarvex {

namespace {
constexpr std::array bodyNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс", "Юпитер",
                                  "Сатурн", "Уран",     "Нептун", "Плутон", "Луна", "с экрана"};
}  // namespace

ConverterControls::ConverterControls(Desk& desk)
    : Form(desk, formName, "Преобразователь координат"), bodyChoice(this, 0, 11, [](int i) {
          return OptionButton::Spec{.name = "Option1",
                                    .caption = bodyNames[i],
                                    .group = "body",
                                    .on = i == 1,
                                    .hint = i == typed ? "Координаты берутся из исходных полей"
                                                       : "Тело, координаты которого рассчитываются на дату"};
      }) {
    layOut();
}

void ConverterControls::layOut() {
    std::vector<Layout> bodyOptions;
    for (int i = 0; i <= typed; ++i) bodyOptions.emplace_back(bodyChoice(i));
    layout_ = row({
        column(
            {frame("Тело", table(3, bodyOptions)),
             row({frame("Форма исходных координат", row({typedPolar, typedCartesian})),
                  frame("к равноденствию эпохи", row({equinoxOfDate, equinoxJ2000}))}),
             frame("Плоскость", row({planeEcliptic, planeEquator, planeHorizon})),
             frame("Система", row({heliocentric, geocentric, topocentric})),
             frame("Исходные координаты",
                   fields(2, {sourceX, sourceLongitude, sourceY, sourceLatitude, sourceZ, sourceDistance})),
             row({takeCoordinates, convertCoordinates}),
             frame("Преобразованные координаты", column({fields(2, {resultX, resultLongitude, resultY,
                                                                    resultLatitude, resultZ, resultDistance}),
                                                         copyResultToSource}))}),
        column(
            {frame("Дата",
                   column({fields(3, {day, month, year}), row({julianDate, toJulianDate, toCalendarDate}),
                           row({takeAtNextDate, dateStep})})),
             frame("Место и время", column({fields(2, {siteLongitude, siteLatitude, zoneHours, etMinusUt,
                                                       greenwichSiderealTime, localSiderealTime, hourAngle}),
                                            row({localMeanTime, zoneTime})})),
             frame(
                 "Угол",
                 column({table(4, {unitHours, angleHours, angleTimeMinutes, angleTimeSeconds,
                                   unitDegreesMinutes, angleWholeDegrees, angleArcMinutes, angleArcSeconds}),
                         table(2, {unitDegrees, angleDegrees, unitRadians, angleRadians}),
                         row({signPlus, signMinus}),
                         table(2, {readAngle, convertAngle, angleToLongitude, angleToLatitude})}))}),
        column({drawing, row({drawingScaleCaption, drawingScale}),
                row({clearBeforeDrawing, stretch(), closeForm})}),
    });
}

}  // namespace tarvex
