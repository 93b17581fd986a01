#include "forms/aberration_controls.h"

#include <array>
#include <vector>

namespace tarvex {

namespace {
constexpr std::array objectNames = {"Солнце", "Меркурий", "Венера", "Земля",  "Марс",  "Юпитер",
                                    "Сатурн", "Уран",     "Нептун", "Плутон", "Звезда"};
}  // namespace

AberrationControls::AberrationControls(Desk& desk)
    : Form(desk, formName, "Компоненты аберрации (обратный отсчет в эклиптических координатах)"),
      objectChoice(this, 0, 10, [](int i) {
          return CheckBox::Spec{.name = "Check1",
                                .caption = objectNames[i],
                                .on = i == 4,
                                .hint = "Объект наблюдения; отмечен должен быть один"};
      }) {
    layOut();
}

void AberrationControls::layOut() {
    std::vector<Layout> objects;
    for (int i = 0; i <= 10; ++i) objects.emplace_back(objectChoice(i));
    layout_ = row({
        column({
            row({frame("Объект", column(objects)),
                 column({frame("Долготы, град",
                               column({fields(2, {earthLongitude, objectLongitude}), longitudesByTheory})),
                         frame("Дата", fields(3, {day, month, year, dateStep})),
                         frame("Скорость системы, км/с", fields(3, {systemVX, systemVY, systemVZ})),
                         frame("Свет", fields(1, {lightDivisor}))})}),
            frame(
                "Земля, объект и объект после аберрации источника",
                table(7, {"",       "X, тыс.км", "Y, тыс.км", "Z, тыс.км", "VX, км/с", "VY, км/с", "VZ, км/с",
                          "Земля",  earthX,      earthY,      earthZ,      earthVX,    earthVY,    earthVZ,
                          "Объект", objectX,     objectY,     objectZ,     objectVX,   objectVY,   objectVZ,
                          "Ais",    retardedX,   retardedY,   retardedZ,   totalVX,    totalVY,    totalVZ})),
            frame("Аберрация, град",
                  column({fields(3, {distance, lightTime, iterationCount, trueLongitude, trueLatitude}),
                          table(5, {"", "Ais", "Apr", "As", "видимая", "L", sourceShiftLongitude,
                                    receiverShiftLongitude, totalShiftLongitude, apparentLongitude, "B",
                                    sourceShiftLatitude, receiverShiftLatitude, totalShiftLatitude,
                                    apparentLatitude})})),
            findPlaces,
            iterateOnce,
            row({runByDates, stopRun, continueRun, stepOnce, toStartDate, clearDrawing, closeForm}),
        }),
        column({drawing, row({drawingScaleCaption, drawingScale}),
                frame("Рисовать", column({row({viewConstruction, viewAgainstTime, viewPhasePlane}),
                                          row({planeXY, planeXZ, absoluteValues, timesCosLatitude})})),
                frame("Кривые", column({plotSourceAberration, plotReceiverAberration, plotTotalAberration,
                                        fields(2, {timeScale, angleScale})}))}),
    });
}

}  // namespace tarvex
