#pragma once
// The date commands "G->J" and "J->G" of the forms.

#include "forms/laboratory.h"

namespace tarvex {

/// The fields of a date on a form.
struct DateFields {
    TextField &year, &month, &day, &julian;
};

/// Year, month and day into God, Mes, Den; carries surplus days, shows the date again, and its Julian date
/// (JD). Throws for a field that is no number and for a month outside 1..12.
void gregorianToJulian(Laboratory& lab, const DateFields& fields);

/// The Julian date into JD, and from it year, month and day.  Throws for a field that is no number.
void julianToGregorian(Laboratory& lab, const DateFields& fields);

/// Told where the Egyptian calendar is used with days from midnight: its conversion moves the date itself.
inline constexpr const char* egyptianFromMidnight =
    "Египетский календарь с днем от 0 час.: каждый перевод даты сдвигает ее на полдня. ";

}  // namespace tarvex
