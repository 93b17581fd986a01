#include "initial/initial_data.h"

#include <array>

#include "core/arithmetic.h"
#include "theories/elements.h"

namespace tarvex {

namespace {

std::array<Rows*, 3> initialPlaces(ModelState& s) { return {&s.X0, &s.Y0, &s.Z0}; }
std::array<Rows*, 3> initialSpeeds(ModelState& s) { return {&s.VX0, &s.VY0, &s.VZ0}; }
std::array<Rows*, 6> initialRows(ModelState& s) { return {&s.X0, &s.Y0, &s.Z0, &s.VX0, &s.VY0, &s.VZ0}; }
std::array<Rows*, 3> places(ModelState& s) { return {&s.X, &s.Y, &s.Z}; }
std::array<Rows*, 3> speeds(ModelState& s) { return {&s.VX, &s.VY, &s.VZ}; }
std::array<Rows*, 6> currentRows(ModelState& s) { return {&s.X, &s.Y, &s.Z, &s.VX, &s.VY, &s.VZ}; }

template <std::size_t N>
void copyRow(const std::array<Rows*, N>& to, int rowTo, const std::array<Rows*, N>& from, int rowFrom) {
    for (std::size_t k = 0; k < N; ++k) (*to[k])[rowTo] = (*from[k])[rowFrom];
}

void massesFromDivisors(ModelState& s) {
    for (int i = 0; i <= NPlanetMax; ++i) s.m[i] = ratio(s.mSol, s.km[i]);
    s.km[rowMoon] = s.km[rowXena];
    s.m[rowEarth] = ratio(s.m[rowEarthMoon], ratio(1, s.km[rowMoon]) + 1);
    s.m[rowMoon] = ratio(s.m[rowEarth], s.km[rowMoon]);
    s.m[rowXena] = s.m[rowMoon];
}

void separateMoon(ModelState& s, bool bary) {
    s.kodMoon = 1;
    s.Ipl = rowXena;
    ElementsToXYZ(s);
    copyRow(initialPlaces(s), rowMoon, places(s), rowXena);
    s.kodBary = codeOf(bary ? CentralMass::AboutCentre : CentralMass::Pair);
    ElementsToVXYZ(s);
    copyRow(initialSpeeds(s), rowMoon, speeds(s), rowXena);
    if (bary)
        MoonEarthFromBary2(s);
    else
        MoonEarthFromBary(s);
    MoonRowsToEarth(s);
}

/// Sum of mass times quantity over ticked bodies from `first`.
double weighted(const ModelState& s, const Rows& quantity, int first) {
    double sum = 0;
    for (int i = first; i <= NPlanetMax; ++i) sum += quantity[i] * s.m[i] * s.kodPl[i];
    return sum;
}

}  // namespace

void MoonEarthFromBary(ModelState& s) {
    const double q = ratio(s.m[rowMoon], s.m[rowEarth]);
    for (Rows* axis : initialPlaces(s)) {
        Rows& x = *axis;
        x[rowEarth] = ratio(-x[rowMoon] * s.m[rowMoon], s.m[rowEarth]);
        x[rowMoon] = x[rowMoon] + x[rowEarth];
    }
    for (Rows* axis : initialSpeeds(s)) {
        Rows& v = *axis;
        v[rowMoon] = ratio(v[rowMoon], q + 1);
        v[rowEarth] = ratio(-v[rowMoon] * s.m[rowMoon], s.m[rowEarth]);
    }
}

void MoonEarthFromBary2(ModelState& s) {
    for (Rows* axis : initialRows(s))
        (*axis)[rowEarth] = ratio(-(*axis)[rowMoon] * s.m[rowMoon], s.m[rowEarth]);
}

void MoonRowsToEarth(ModelState& s) {
    for (Rows* axis : initialRows(s)) {  // row 10 first: row 3 is still the common centre
        Rows& x = *axis;
        x[rowXena] = x[rowMoon] + x[rowEarthMoon];
        x[rowEarthMoon] = x[rowEarthMoon] + x[rowEarth];
    }
    s.m[rowEarthMoon] = s.m[rowEarth];
    s.km[rowEarthMoon] = ratio(s.mSol, s.m[rowEarth]);
}

void initialDataFromElements(ModelState& s, const InitialDataChoice& choice) {
    massesFromDivisors(s);
    for (std::int16_t i = 1; i <= NPlanetMax; ++i) {
        s.Ipl = i;
        ElementsToXYZ(s);
        copyRow(initialPlaces(s), i, places(s), i);
    }
    s.kodMoon = 0;
    s.kodBary = codeOf(choice.bary3 ? CentralMass::AboutCentre : CentralMass::Central);
    for (std::int16_t i = 1; i <= NPlanetMax; ++i) {
        s.Ipl = i;
        ElementsToVXYZ(s);
        copyRow(initialSpeeds(s), i, speeds(s), i);
    }
    for (Rows* axis : initialRows(s)) {
        Rows& x = *axis;
        x[rowSun] = choice.bary3 ? ratio(-x[rowEarthMoon] * s.m[rowEarthMoon], s.m[rowSun]) : 0;
    }
    copyRow(currentRows(s), rowSun, initialRows(s), rowSun);
    if (choice.moon) separateMoon(s, choice.bary);
    copyRow(currentRows(s), rowXena, initialRows(s), rowXena);
}

void centreOfMass(ModelState& s) {
    double M = 0;
    for (int i = 0; i <= NPlanetMax; ++i) M += s.m[i] * s.kodPl[i];
    s.X[rowCentre] = ratio(weighted(s, s.X0, 0), M);
    s.Y[rowCentre] = ratio(weighted(s, s.Y0, 0), M);
    s.Z[rowCentre] = ratio(weighted(s, s.Z0, 0), M);
}

void centreToOrigin(ModelState& s) {
    centreOfMass(s);
    const auto initial = initialPlaces(s), current = places(s);
    for (std::size_t k = 0; k < initial.size(); ++k) {
        double& centre = (*current[k])[rowCentre];
        for (int i = 0; i <= NPlanetMax; ++i) (*current[k])[i] = (*initial[k])[i] -= centre;
        centre = 0;
    }
}

void sunFromMomentum(ModelState& s) {
    const auto initial = initialSpeeds(s), current = speeds(s);
    for (std::size_t k = 0; k < initial.size(); ++k)
        (*current[k])[rowSun] = (*initial[k])[rowSun] = ratio(-weighted(s, *initial[k], 1), s.m[rowSun]);
}

}  // namespace tarvex
