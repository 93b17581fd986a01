#include "initial/moon_data.h"

#include "core/arithmetic.h"
#include "core/et_ut.h"
#include "core/rows.h"
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
    setCurrent(s, rowMoon);
    if (theory == MoonTheory::Screen) return 0;
    s.JDut0 = s.JD;
    const double seconds = EtUt1900(s);
    s.JDet = seconds / 24 / 3600 + s.JDut0;
    s.JD = s.JDet;
    if (theory == MoonTheory::New0) ElementsNew0(s);
    s.JD = s.JDut0;
    if (theory == MoonTheory::Ser0) ElementsSer0(s);
    for (Rows* angle : {&s.AlfaL, &s.AlfaP0, &s.AlfaU0}) (*angle)[rowMoon] = inOneTurn((*angle)[rowMoon]);
    return seconds;
}

void moonInitialData(ModelState& s, const MoonTransformations& t) {
    setCurrent(s, rowMoon);
    ElementsToXYZ(s);
    s.kodMoon = 1;
    ElementsToVXYZ(s);
    const double ml = s.m[rowMoon], mz = s.m[rowEarth];
    const double byRatio = ratio(ml, mz), byShare = ratio(ml, ml + mz);
    for (Rows* axis : {&s.X, &s.Y, &s.Z}) {
        double &earth = (*axis)[rowEarthMoon], &moon = (*axis)[rowMoon];
        earth = 0;
        if (t.earthByRatio) earth = -moon * byRatio;
        if (t.earthByShare) earth = -moon * byShare;
        if (t.shiftMoon) moon += earth;
    }
    for (Rows* axis : {&s.VX, &s.VY, &s.VZ}) {
        double &earth = (*axis)[rowEarthMoon], &moon = (*axis)[rowMoon];
        earth = 0;
        if (t.scaleMoonSpeed) moon /= byRatio + 1;
        if (t.earthSpeedByRatio) earth = -moon * byRatio;
        if (t.earthSpeedByShare)
            earth = moon * byShare;  // a step for trying: this sign does not balance the pair
        if (t.shiftMoonSpeed) moon += earth;
    }
    setInitial(s, rowSun, {placeOf(s, rowEarthMoon), velocityOf(s, rowEarthMoon)});
    setInitial(s, rowMoon, {placeOf(s, rowMoon), velocityOf(s, rowMoon)});
}

double moonAngularMomentum(const ModelState& s) {
    constexpr int moon = rowMoon, earth = 0;
    return ((s.VY[moon] - s.VY[earth]) * (s.X[moon] - s.X[earth]) -
            (s.VX[moon] - s.VX[earth]) * (s.Y[moon] - s.Y[earth])) *
           s.m[moon];
}

double pairMomentumY(const ModelState& s) {
    return s.m[rowEarth] * s.VY[rowSun] + s.m[rowMoon] * s.VY[rowMoon];
}

}  // namespace tarvex
