#include "forms/ephemeris_controls.h"

namespace tarvex {

void EphemerisControls::layOut() {
    layout_ = column({
        frame("Дата", row({fields(4, {year, month, day, julianDate}), toJulianDate, toCalendarDate, etUtLabel,
                           stretch()})),
        row({frame("размерность", column({inMetres, inAstronomicalUnits})),
             frame("координаты", column({barycentric, heliocentric})),
             frame("эпоха", column({equinoxJ2000, equinoxOfDate})),
             frame("плоскость", column({equatorPlane, eclipticPlane}))}),
        row({calculatePlace, bodyNumber, stretch()}),
        frame("Результат", fields(2, {positionX, velocityX, positionY, velocityY, positionZ, velocityZ})),
    });
}

}  // namespace tarvex
