#include "core/calendar.h"

#include "core/arithmetic.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

constexpr double lastJulianKey = 1582.101499;  // dates above it are Gregorian
constexpr double egyptianZero = 1448272;       // JD of the zero of the Egyptian count
constexpr double firstGregorianDay = 2299161;
constexpr std::int16_t gregorian = codeOf(Calendar::Gregorian), julian = codeOf(Calendar::Julian),
                       egyptian = codeOf(Calendar::Egyptian);

double julianDate(ModelState& s, double Den, std::int32_t Mes, std::int32_t God) {
    double y = toInt16(God), m = toInt16(Mes);
    if (s.kodKalend == egyptian)
        return finite(y * 365 + egyptianZero + (m - 1) * 30 + Den - 0.5 + s.TimeZone / 24);

    const double d = finite(Den + s.TimeZone / 24);
    s.KeyDate = y + m / 100 + d / 10000;
    if (m < 3) {
        y = toInt16(y - 1);
        m = m + 12;
    }
    double B = 0;
    if (s.kodKalend == gregorian && s.KeyDate > lastJulianKey) {
        const double A = Fix(y / 100);
        B = 2 - A + Fix(A / 4);
    }
    const double J = y < 0 ? Fix(365.25 * y - 0.75) : Fix(365.25 * y);
    return Fix(30.6001 * toInt16(m + 1)) + J + d + 1720994.5 + B;
}

void egyptianDate(ModelState& s, double& JD) {
    JD = finite(JD + 0.5 - s.TimeZone / 24);
    const double W = JD - egyptianZero;
    const double year = toInt32(Fix(W / 365));
    double month = Fix((W - year * 365) / 30) + 1;
    if (month == 13) month = 12;  // the five added days belong to month 12
    s.GodR = static_cast<std::int32_t>(year);
    s.MesR = static_cast<std::int32_t>(month);
    s.DenR = W - year * 365 - (month - 1) * 30;
}

void solarDate(ModelState& s, double JD) {
    const double Z = toInt32(Int(JD + 0.5));
    const double F = JD + 0.5 - Z;
    double A = Z;
    if (s.kodKalend != julian && Z >= firstGregorianDay) {
        const double alpha = Int((Z - 1867216.25) / 36524.25);
        A = Z + 1 + alpha - Fix(alpha / 4);
    }
    const double B = toInt32(A + 1524);
    const double C = Int((B - 122.1) / 365.25);
    const double D = Int(365.25 * C);
    const double E = Int((B - D) / 30.6001);
    s.DenR = B - D - Int(30.6001 * E) + F - s.TimeZone / 24;
    s.MesR = toInt32(E < 13.5 ? E - 1 : E - 13);
    s.GodR = toInt32(s.MesR > 2.5 ? C - 4716 : C - 4715);
}

bool divides(double year, double n) { return year / n - Fix(year / n) == 0; }

/// Writes the February cell of the year for the calendars that have a leap year.
void setFebruary(ModelState& s, double Den, std::int32_t Mes, std::int32_t God) {
    if (s.kodKalend == egyptian) return;
    std::int16_t& february = s.DayMonth[s.kodKalend][2];
    february = 28;
    s.KeyDate = God + Mes / 100. + Den / 10000;
    if (divides(God, 4)) february = 29;
    if (s.kodKalend == gregorian && s.KeyDate > lastJulianKey) {
        if (divides(God, 100)) february = 28;
        if (divides(God, 400)) february = 29;
    }
}

}  // namespace

double JDfromDate(ModelState& s, double Den, std::int32_t Mes, std::int32_t God) {
    try {
        return julianDate(s, Den, Mes, God);
    } catch (const Failure& failure) {
        s.say({"Введите правильно дату", "Tarvex7.0", causeOf(failure), true});
        s.kodErrDate = 1;
        return 0;
    }
}

void DateFromJD(ModelState& s, double& JD) {
    try {
        if (s.kodKalend == egyptian) {
            egyptianDate(s, JD);
        } else {
            solarDate(s, JD);
        }
    } catch (const Failure& failure) {
        s.say({"Введите правильно юлианскую дату", "Tarvex7.0", causeOf(failure), true});
        s.kodErrDate = 1;
    }
}

void NormalizeDate(ModelState& s, double Den, std::int32_t Mes, std::int32_t God) {
    std::int32_t c = toInt32(Fix(Den));
    const double h = (Den - c) * 24;
    const auto length = [&s](std::int32_t month) {
        if (s.kodKalend < gregorian || s.kodKalend > egyptian)
            throw SubscriptFailure("нет календаря № " + std::to_string(s.kodKalend));
        if (month < 1 || month > 12)
            throw SubscriptFailure("месяц " + std::to_string(month) + " не из 1..12");
        return s.DayMonth[s.kodKalend][month];
    };
    length(Mes);
    setFebruary(s, Den, Mes, God);
    while (c > length(Mes)) {
        c -= length(Mes);
        if (++Mes <= 12) continue;
        Mes = 1;
        God = toInt32(God + 1.0);
        if (c > length(1) - 1) setFebruary(s, Den, Mes, God);  // February of the next year is still ahead
    }
    s.DenR = h / 24 + c;
    s.MesR = Mes;
    s.GodR = God;
}

void DayToHMS(ModelState& s, double d) {
    const double hours = (d - Fix(d)) * 24;
    s.MinR = Fix((hours - Fix(hours)) * 60);
    s.SekR = Fix(((hours - Fix(hours)) - s.MinR / 60) * 3600);
    s.ChasR = Fix(hours);
}

}  // namespace tarvex
