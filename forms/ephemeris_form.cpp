#include "forms/ephemeris_form.h"

#include "core/calendar.h"
#include "forms/date_fields.h"
#include "reduction/ephemeris_place.h"

namespace tarvex {

EphemerisForm::EphemerisForm(Laboratory& lab_)
    : EphemerisControls(lab_.desk, formName, "Тест эфемерид JPL DE405      Tarvex7m - форма 24"), lab(lab_) {
    const DateFields date{year, month, day, julianDate};
    toJulianDate.onPress([this, date] {
        ownCalendar();
        gregorianToJulian(lab, date);
    });
    toCalendarDate.onPress([this, date] {
        ownCalendar();
        julianToGregorian(lab, date);
    });
    calculatePlace.onPress([this] { calculate(); });
    layOut();
}

/// The dates of this form are Gregorian and without a time zone.
void EphemerisForm::ownCalendar() {
    lab.s.kodKalend = codeOf(Calendar::Gregorian);
    lab.s.TimeZone = 0;
}

void EphemerisForm::calculate() {
    ModelState& s = lab.s;
    ownCalendar();
    s.God0 = year.int32();
    s.Mes0 = month.int32();
    s.Den0 = day.number();
    s.JD = JDfromDate(s, s.Den0, s.Mes0, s.God0);
    julianDate.show(s.JD);
    const std::int32_t i = bodyNumber.int32();
    const int rowOfVx = ephemerisPlace(s, lab.ephemeris, i,
                                       {.heliocentric = heliocentric.on(),
                                        .ecliptic = eclipticPlane.on(),
                                        .ofDate = equinoxOfDate.on(),
                                        .metres = inMetres.on()});
    // where only an earlier calculation has set the current row
    if (inMetres.on() && rowOfVx != i)
        setStatus("VX - по строке Ipl = " + std::to_string(rowOfVx) + ", а не по объекту " +
                  std::to_string(i));
    positionX.show(s.X[i]);
    positionY.show(s.Y[i]);
    positionZ.show(s.Z[i]);
    velocityX.show(s.VX[i]);
    velocityY.show(s.VY[i]);
    velocityZ.show(s.VZ[i]);
}

}  // namespace tarvex
