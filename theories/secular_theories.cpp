#include "theories/secular_theories.h"

#include "theories/secular_tables.h"

namespace tarvex {

namespace {

using namespace secular;

constexpr double moonDistance = 384402000;  // m

double at(const Quadratic& q, double T) { return q.c0 + q.c1 * T + q.c2 * T * T; }

double degrees(const Quadratic& q, double T) { return at(q, T) / kUgol; }

double arc(const ArcAngle& a, double T) {
    return (a.D + a.M / 60 + (a.s0 + a.s1 * T + a.s2 * T * T + a.s3 * T * T * T) / 3600) / kUgol;
}

void initMasses(ModelState& s, const Masses& set) {
    s.m[rowSun] = set.sun;
    for (int i = 0; i < 12; ++i) s.km[i] = set.divisor[i];
    for (int i = 1; i <= 10; ++i) s.m[i] = s.m[rowSun] / s.km[i];
    s.m[rowEarth] = s.m[rowEarthMoon] / (1 / s.km[rowMoon] + 1);
    s.m[rowMoon] = s.m[rowEarth] / s.km[rowMoon];
}

/// What every element routine does first, whatever the body: the theories' unit and the time argument.
double enter(ModelState& s, double epoch) {
    s.Lae = LaeTheory;
    s.TT = (s.JD - epoch) / 36525;
    return s.TT;
}

void moonAngles(ModelState& s, const MoonElements& moon, double T) {
    s.R0sr[rowMoon] = moonDistance;
    s.AlfaL[rowMoon] = degrees(moon.L, T);
    s.AlfaP0[rowMoon] = degrees(moon.P, T);
    s.AlfaU0[rowMoon] = degrees(moon.U, T);
    s.Betta0[rowMoon] = degrees(moon.B, T);
    s.Eks0[rowMoon] = at(moon.e, T);
    s.W0sr[rowMoon] = moon.rate / kUgol / 100 / sekG;
}

void plutoNew0(ModelState& s, double T) {
    constexpr int i = 9;
    s.Aae[i] = 39.517738;
    s.R0sr[i] = s.Lae * s.Aae[i];
    s.AlfaL[i] = (90.9046 + 146.605 * T) / kUgol;
    s.AlfaP0[i] = 222.476 / kUgol;
    s.AlfaU0[i] = 108.954 / kUgol;
    s.Betta0[i] = 17.147 / kUgol;
    s.Eks0[i] = 0.2488273;
    // a day stands where the other bodies have the year, 365.25 times too much; no place or velocity comes
    // from the mean motion, and saved parameters of this body compare with this value
    s.W0sr[i] = 146.605 / kUgol / 100 / sekD;
}

void outerOrJPL0(ModelState& s, int i, double T) {
    const JPL0Body& b = jpl0[i - 1];
    s.Aae[i] = at(b.Aae, T);
    s.R0sr[i] = s.Lae * s.Aae[i];
    s.Eks0[i] = at(b.e, T);
    s.Betta0[i] = degrees(b.B, T);
    s.AlfaL[i] = degrees(b.L, T);
    s.AlfaP0[i] = degrees(b.P, T);
    s.AlfaU0[i] = degrees(b.U, T);
    s.W0sr[i] = b.rate / kUgol / 100 / sekG;
}

void innerSer0(ModelState& s, int i, const Ser0Body& b, double T) {
    s.R0sr[i] = at(b.R, T) * MK;
    s.Eks0[i] = at(b.e, T);
    s.Betta0[i] = degrees(b.B, T);
    s.AlfaL[i] = degrees(b.L, T);
    s.AlfaP0[i] = degrees(b.P, T);
    s.AlfaU0[i] = degrees(b.U, T);
    s.W0sr[i] = at(b.rate, T) / 100 / sekG;
}

}  // namespace

void InitMassesNew0(ModelState& s) { initMasses(s, massesNew0); }
void InitMassesJPL0(ModelState& s) { initMasses(s, massesJPL0); }
void InitMassesSer0(ModelState& s) { initMasses(s, massesSer0); }

void ElementsNew0(ModelState& s) {
    const double T = enter(s, JD1900);
    const int i = s.Ipl;
    if (i == rowMoon) return moonAngles(s, moonNew0, T);
    if (i == 9) return plutoNew0(s, T);
    if (i < 1 || i > 9) return;
    const New0Body& b = new0[i - 1];
    s.Aae[i] = b.Aae;
    s.R0sr[i] = s.Lae * s.Aae[i];
    s.AlfaL[i] = arc(b.L, T);
    s.AlfaP0[i] = arc(b.P, T);
    s.AlfaU0[i] = arc(b.U, T);
    s.Betta0[i] = arc(b.B, T);
    s.Eks0[i] = b.e[0] + b.e[1] * T + b.e[2] * T * T + b.e[3] * T * T * T;
    s.W0sr[i] = i <= 4 ? at(b.rate, T) / 3600 / kUgol / sekD : b.rate.c0 / 3600 / kUgol / 100 / sekG;
}

void ElementsJPL0(ModelState& s) {
    const double T = enter(s, JD2000);
    const int i = s.Ipl;
    if (i == rowMoon) return moonAngles(s, moonJPL0, T);
    if (i >= 1 && i <= 9) outerOrJPL0(s, i, T);
}

void ElementsSer0(ModelState& s) {
    const double T = enter(s, JD2000);
    const int i = s.Ipl;
    if (i == rowMoon) {
        moonAngles(s, moonSer0, T);
        s.W0sr[i] = (moonSer0.rate / 100) / sekG;  // this theory gives radians
        return;
    }
    if (i >= 1 && i <= 4) innerSer0(s, i, ser0[i - 1], T);
    if (i >= 5 && i <= 9) outerOrJPL0(s, i, T);
}

void ElementsSer0Plus(ModelState& s) {
    ElementsSer0(s);
    if (s.Ipl == rowEarthMoon) innerSer0(s, rowEarthMoon, earthSer0Plus, s.TT);
}

void PrecessMoonToDate(ModelState& s) {
    const double T1 = (s.JD - JD2000) / 36525;
    const double t = ((JD2000 - JD2000) / 36525) - T1;
    const double p =
        ((5029.0966 + (2.22226 - 4.2e-05 * T1) * T1 + (1.11113 - 4.2e-05 * T1 - 6e-06 * t) * t) * t) / 3600 /
        kUgol;
    s.AlfaL[rowMoon] += p;
    s.AlfaU0[rowMoon] += p;
    s.AlfaP0[rowMoon] += p;
    s.W0sr[rowMoon] -= 5029.0966 / 3600 / kUgol / 100 / sekG;
}

}  // namespace tarvex
