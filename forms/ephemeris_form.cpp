#include "forms/ephemeris_form.h"

#include <cmath>

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "forms/date_fields.h"
#include "reduction/coordinate_chain.h"
#include "reduction/sky.h"

namespace tarvex {

namespace {

/// Closes the ephemeris file however the command ends.
struct Closing {
    Ephemeris& e;
    ~Closing() { DEClose(e); }
};

/// From the equator to the ecliptic of J2000.
void turnToEcliptic(double& y, double& z) {
    const double c = std::cos(AlfaEclip), sn = std::sin(AlfaEclip), y0 = y;
    y = c * y0 + sn * z;
    z = c * z - sn * y0;
}

}  // namespace

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
    lab.s.kodKalend = 0;
    lab.s.TimeZone = 0;
}

void EphemerisForm::calculate() {
    ModelState& s = lab.s;
    Ephemeris& e = lab.ephemeris;
    ownCalendar();
    s.God0 = year.int32();
    s.Mes0 = month.int32();
    s.Den0 = day.number();
    s.JD = JDfromDate(s, s.Den0, s.Mes0, s.God0);
    julianDate.show(s.JD);
    const std::int32_t body = bodyNumber.int32();
    {
        const Closing closing{e};
        DEOpen(s, e);
        DEEvaluate(s, e, rowSun, 0);
        DEEvaluate(s, e, toInt16(body), 0);
    }
    s.IplSel = body;  // only a body that the ephemeris knows
    const int i = body;
    if (heliocentric.on()) {
        for (Rows* row : {&s.X, &s.Y, &s.Z, &s.VX, &s.VY, &s.VZ}) (*row)[i] -= (*row)[rowSun];
    }
    const double T0 = 0, T = sky::centuries(s.JD);
    PrecessMatrixEqu(s, T0, T);
    if (eclipticPlane.on()) {
        PrecessMatrixEcl(s, T0, T);
        turnToEcliptic(s.Y[i], s.Z[i]);
        turnToEcliptic(s.VY[i], s.VZ[i]);
    }
    if (equinoxOfDate.on()) {
        s.Ipl = static_cast<std::int16_t>(i);
        ApplyPrecessXYZ(s);
        ApplyPrecessVXYZ(s);
    }
    if (inMetres.on()) {
        for (Rows* row : {&s.X, &s.Y, &s.Z}) (*row)[i] = finite((*row)[i] * s.Lae);
        // the speed along X is of row Ipl, which the epoch of date or an earlier calculation has set
        if (s.Ipl != i)
            setStatus("VX - по строке Ipl = " + std::to_string(s.Ipl) + ", а не по объекту " +
                      std::to_string(i));
        s.VX[i] = finite(s.Lae * s.VX.at(s.Ipl) / sekD);
        s.VY[i] = finite(s.Lae * s.VY[i] / sekD);
        s.VZ[i] = finite(s.Lae * s.VZ[i] / sekD);
    }
    positionX.show(s.X[i]);
    positionY.show(s.Y[i]);
    positionZ.show(s.Z[i]);
    velocityX.show(s.VX[i]);
    velocityY.show(s.VY[i]);
    velocityZ.show(s.VZ[i]);
}

}  // namespace tarvex
