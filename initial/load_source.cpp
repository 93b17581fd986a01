#include "initial/load_source.h"

#include "core/arithmetic.h"
#include "core/calendar.h"
#include "core/et_ut.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "initial/initial_data.h"
#include "theories/elements.h"
#include "theories/ephemeris.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

using Theory = void (*)(ModelState&);

void planetsBy(ModelState& s, Theory elements) {
    for (s.Ipl = 1; s.Ipl < 9; ++s.Ipl) elements(s);
    elements(s);  // Ipl stays at the last planet
}

void moonBy(ModelState& s, Theory elements) {
    s.Ipl = rowMoon;
    elements(s);
}

void xenaDefault(ModelState& s) {
    constexpr int i = rowXena;
    s.AlfaL[i] = 0.01;
    s.W0sr[i] = 1e-05 / sekD;
    s.km[i] = 9888777;
    s.Eks0[i] = 0.001;
    s.Betta0[i] = 0.01;
    s.AlfaU0[i] = 0.01;
    s.AlfaP0[i] = Pi / 2;
    s.Aae[i] = 50.01;
    s.R0sr[i] = s.Lae * s.Aae[i];
}

void initialFromCurrent(ModelState& s, int i) { setInitial(s, i, {placeOf(s, i), velocityOf(s, i)}); }

void xenaFarAway(ModelState& s) {
    constexpr int i = rowXena;
    setPlace(s, i, {7555444333222, 0, 0});
    setVelocity(s, i, {0, 4333, 0});
    initialFromCurrent(s, i);
}

/// Masses and planets of a theory, with what goes with them.
void massesAndPlanets(ModelState& s, Theory masses, double gamma, Theory elements) {
    masses(s);
    s.gamma = gamma;
    s.mSol = s.m[rowSun];
    if (elements != ElementsNew0) s.JDepoha = JD2000;
    planetsBy(s, elements);
}

constexpr double gammaNew0 = 1e-12 * 66.7006, gammaJ2000 = 1e-12 * 66.7259;

}  // namespace

void clearSunElements(ModelState& s) {
    for (Rows* element : {&s.R0sr, &s.W0sr, &s.Eks0, &s.AlfaU0, &s.AlfaP0, &s.Betta0}) (*element)[rowSun] = 0;
}

void enterDate(ModelState& s) {
    s.JD = JDfromDate(s, s.Den0, s.Mes0, s.God0);
    s.JD0 = s.JDepoha = s.JDstart = s.JD;
}

void enterTime(ModelState& s, Source source) {
    const double seconds = EtUt1900(s);
    s.JDut = s.JD;
    s.JDet = seconds / 24 / 3600 + s.JD;
    s.JD = source == Source::Ser0 ? s.JDut : s.JDet;
}

void MoonRowToXena(ModelState& s) {
    for (Rows* angle : {&s.AlfaL, &s.AlfaP0, &s.AlfaU0}) (*angle)[rowMoon] = inOneTurn((*angle)[rowMoon]);
    for (Rows* quantity : {&s.km, &s.m, &s.AlfaL, &s.AlfaU0, &s.AlfaP0, &s.Eks0, &s.R0sr, &s.Betta0, &s.W0sr})
        (*quantity)[rowXena] = (*quantity)[rowMoon];
}

void loadTheory(ModelState& s, Source theory) {
    if (theory == Source::Ser0) {
        massesAndPlanets(s, InitMassesSer0, gammaJ2000, ElementsSer0);
        if (s.kodMoon == 0) return xenaDefault(s);
        moonBy(s, ElementsSer0);
        MoonRowToXena(s);
    } else if (theory == Source::JPL0) {
        massesAndPlanets(s, InitMassesJPL0, gammaJ2000, ElementsJPL0);
        if (s.kodMoon == 0) return xenaDefault(s);
        moonBy(s, ElementsJPL0);
        PrecessMoonToDate(s);
        MoonRowToXena(s);
        s.say(
            {"Для расчета параметров орбиты Луны использована \r\nтеория из Мееуса с пересчетом в эпоху "
             "J2000 ",
             "Tarvex7"});
    } else {
        massesAndPlanets(s, InitMassesNew0, gammaNew0, ElementsNew0);
        if (s.kodMoon == 0) return xenaDefault(s);
        moonBy(s, ElementsNew0);
        MoonRowToXena(s);
        s.say({"Для расчета параметров орбиты Луны использована \r\nтеория Брауна в книге Чеботарева ",
               "Tarvex7"});
    }
}

void loadEphemeris(ModelState& s, Ephemeris& e) {
    massesAndPlanets(s, InitMassesJPL0, gammaJ2000, ElementsJPL0);
    DEOpen(s, e);
    for (int i = 0; i <= 9; ++i) {
        s.IplJ = i;
        DEEvaluate(s, e, i, 1);
        initialFromCurrent(s, i);
    }
    if (s.kodMoon == 1) {
        s.say({"Для расчета параметров неоскулирующей \r\nорбиты Луны использована теория Ser0 ", "Tarvex7"});
        s.JD = s.JDut;
        moonBy(s, ElementsSer0);
        s.JD = s.JDet;
        MoonRowToXena(s);
        DEEvaluate(s, e, rowMoon, 1);
        initialFromCurrent(s, rowMoon);
        MoonEarthFromBary(s);
        MoonRowsToEarth(s);
    }
    DEClose(e);
    if (s.kodMoon == 1) return;
    xenaFarAway(s);
    xenaDefault(s);
}

void meanSpeeds(ModelState& s) {
    for (int i = 1; i <= NPlanetMax; ++i) s.V0sr[i] = finite(s.R0sr[i] * s.W0sr[i]);
}

void enterElements(ModelState& s, int i, const TypedRow& value) {
    s.AlfaL[i] = value(1) / kUgol;
    s.R0sr[i] = finite(value(2) * MK);
    s.W0sr[i] = value(3) / sekG;
    s.Eks0[i] = value(4);
    s.Betta0[i] = value(5) / kUgol;
    s.AlfaP0[i] = value(6) / kUgol;
    s.AlfaU0[i] = value(7) / kUgol;
}

void enterState(ModelState& s, int i, const TypedRow& value) {
    s.X0[i] = s.X[i] = finite(value(1) * MK);
    s.Y0[i] = s.Y[i] = finite(value(2) * MK);
    s.Z0[i] = s.Z[i] = finite(value(3) * MK);
    s.VX0[i] = s.VX[i] = value(4);
    s.VY0[i] = s.VY[i] = value(5);
    s.VZ0[i] = s.VZ[i] = value(6);
    s.km[i] = value(7);
    s.m[i] = ratio(s.mSol, s.km[i]);
}

std::array<double, 7> shownElements(ModelState& s, int i) {
    s.AlfaL[i] -= 2 * Pi * Fix(s.AlfaL[i] / (2 * Pi));
    if (s.AlfaL[i] < 0) s.AlfaL[i] += 2 * Pi;
    return {Fix(MK * s.AlfaL[i] * kUgol) / MK,  Fix(MK * s.R0sr[i] / MK) / MK,
            Fix(MK * s.W0sr[i] * sekG) / MK,    cut6(s.Eks0[i]),
            Fix(MK * s.Betta0[i] * kUgol) / MK, Fix(MK * s.AlfaP0[i] * kUgol) / MK,
            Fix(MK * s.AlfaU0[i] * kUgol) / MK};
}

std::array<double, 7> shownState(const ModelState& s, int i) {
    return {cut6(s.X[i]) / MK, cut6(s.Y[i]) / MK, cut6(s.Z[i]) / MK, cut6(s.VX[i]),
            cut6(s.VY[i]),     cut6(s.VZ[i]),     cut6(s.km[i])};
}

}  // namespace tarvex
