#pragma once
// Julian dates and three calendars.  Years are astronomical: year 0 precedes year 1.
// TimeZone, hours, is added by JDfromDate and taken off by DateFromJD.

#include "core/code_of.h"
#include "core/model_state.h"

namespace tarvex {

/// The values of kodKalend.
enum class Calendar : std::int16_t {
    Gregorian = 0,  ///< with the change at 15 October 1582
    Julian = 1,
    Egyptian = 2  ///< eleven months of 30 days and one of 35
};

/// Julian date of a day (with fraction), month and year; the reform key stays in KeyDate.  A date of the ten
/// days dropped in 1582 is read as a Julian one.  A year or month outside 16 bits shows "Введите правильно
/// дату", sets kodErrDate and returns 0.
/// Source: Meeus, Astronomical Algorithms, ch. 7; the Egyptian count starts at JD 1448637.5.
double JDfromDate(ModelState& s, double Den, std::int32_t Mes, std::int32_t God);

/// GodR, MesR, DenR of a Julian date.  The Egyptian branch leaves JD + 0.5 - TimeZone/24 in the argument,
/// the midnight of that calendar, from which its users count on. A date outside 32 bits shows "Введите
/// правильно юлианскую дату" and sets kodErrDate.
void DateFromJD(ModelState& s, double& JD);

/// GodR, MesR, DenR of a date whose day may overrun the month: the surplus is carried month by month, and the
/// February cell of DayMonth follows the year.  The days dropped in 1582 are not skipped.
/// Throws SubscriptFailure for a month outside 1..12, OverflowFailure for a day outside 32 bits.
void NormalizeDate(ModelState& s, double Den, std::int32_t Mes, std::int32_t God);

/// Puts the calendar and TimeZone back when a form has done its work in those of its own data.
class CalendarKept {
public:
    explicit CalendarKept(ModelState& s) : s_(s), kalend_(s.kodKalend), zone_(s.TimeZone) {}
    ~CalendarKept() { s_.kodKalend = kalend_, s_.TimeZone = zone_; }
    CalendarKept(const CalendarKept&) = delete;
    CalendarKept& operator=(const CalendarKept&) = delete;

private:
    ModelState& s_;
    std::int16_t kalend_;
    double zone_;
};

/// Whole hours, minutes and seconds of the fraction of d into ChasR, MinR, SekR; seconds are cut.
void DayToHMS(ModelState& s, double d);

}  // namespace tarvex
