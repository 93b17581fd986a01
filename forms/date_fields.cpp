#include "forms/date_fields.h"

#include "core/calendar.h"

namespace tarvex {

namespace {

void showDate(const ModelState& s, const DateFields& fields) {
    fields.year.show(s.GodR);
    fields.month.show(s.MesR);
    fields.day.show(s.DenR);
}

}  // namespace

void gregorianToJulian(Laboratory& lab, const DateFields& fields) {
    ModelState& s = lab.s;
    s.God = fields.year.int32();
    s.Mes = fields.month.int32();
    s.Den = fields.day.number();
    NormalizeDate(s, s.Den, s.Mes, s.God);
    showDate(s, fields);
    s.JD = JDfromDate(s, s.DenR, s.MesR, s.GodR);
    fields.julian.show(s.JD);
}

void julianToGregorian(Laboratory& lab, const DateFields& fields) {
    ModelState& s = lab.s;
    s.JD = fields.julian.number();
    DateFromJD(s, s.JD);
    showDate(s, fields);
}

}  // namespace tarvex
