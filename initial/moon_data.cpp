#include "initial/moon_data.h"

#include "core/arithmetic.h"
#include "core/et_ut.h"
#include "theories/elements.h"
#include "theories/secular_theories.h"

namespace tarvex {

void moonMasses(ModelState& s, MoonTheory theory) {
    if (theory == MoonTheory::New0)
        InitMassesNew0(s);
    else
        InitMassesSer0(s);
}

double moonElements(ModelState& s, MoonTheory theory) {
    s.Ipl = 11;
    if (theory == MoonTheory::Screen) return 0;
    s.JDut0 = s.JD;
    const double seconds = EtUt1900(s);
    s.JDet = seconds / 24 / 3600 + s.JDut0;
    s.JD = s.JDet;
    if (theory == MoonTheory::New0) ElementsNew0(s);
    s.JD = s.JDut0;
    if (theory == MoonTheory::Ser0) ElementsSer0(s);
    for (Rows* angle : {&s.AlfaL, &s.AlfaP0, &s.AlfaU0}) (*angle)[11] = inOneTurn((*angle)[11]);
    return seconds;
}

void moonInitialData(ModelState& s, const MoonTransformations& t) {
    s.Ipl = 11;
    ElementsToXYZ(s);
    s.kodMoon = 1;
    ElementsToVXYZ(s);
    const double ml = s.m[11], mz = s.m[13];
    const double byRatio = ratio(ml, mz), byShare = ratio(ml, ml + mz);
    for (Rows* axis : {&s.X, &s.Y, &s.Z}) {
        double &earth = (*axis)[3], &moon = (*axis)[11];
        earth = 0;
        if (t.earthByRatio) earth = -moon * byRatio;
        if (t.earthByShare) earth = -moon * byShare;
        if (t.shiftMoon) moon += earth;
    }
    for (Rows* axis : {&s.VX, &s.VY, &s.VZ}) {
        double &earth = (*axis)[3], &moon = (*axis)[11];
        earth = 0;
        if (t.scaleMoonSpeed) moon /= byRatio + 1;
        if (t.earthSpeedByRatio) earth = -moon * byRatio;
        if (t.earthSpeedByShare) earth = moon * byShare;  // the plus is meant, whatever the caption says
        if (t.shiftMoonSpeed) moon += earth;
    }
    const auto keep = [](Rows& initial, const Rows& now) {
        initial[0] = now[3];
        initial[11] = now[11];
    };
    keep(s.X0, s.X), keep(s.Y0, s.Y), keep(s.Z0, s.Z);
    keep(s.VX0, s.VX), keep(s.VY0, s.VY), keep(s.VZ0, s.VZ);
}

}  // namespace tarvex
