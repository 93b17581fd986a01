#pragma once
// Amplitudes of the periodic terms that the secular theories leave out: kLl for the Moon, kLp for Mercury to
// Mars.

#include <array>
#include <filesystem>

#include "core/model_state.h"

namespace tarvex {

inline constexpr int perturbedBodies = 4;    ///< Mercury, Venus, Earth, Mars
inline constexpr int perturbationTerms = 8;  ///< of one perturbing body

/// One term of the Moon's motion.
struct MoonTerm {
    int n;             ///< index in kLl: 1..10 and 25..28 in longitude, 11..16 in latitude
    double amplitude;  ///< degrees
    bool taken;        ///< not taken: it lies in the ellipse already, or is not needed
    const char* argument;
    const char* caption;
};
inline constexpr std::array<MoonTerm, 20> moonTerms = {{
    {1, 6.2889, false, "sin(L)", "1-е главное неравенство (от эллиптичности)"},
    {2, 0.2136, false, "sin(2*L)", "2-е главное неравенство (от эллиптичности)"},
    {3, -1.2739, true, "sin(L - 2*D)", "dL3 эвекция (от изменения эксцентриситета)"},
    {4, 0.6583, true, "sin(2*D)", "dL4 вариация (от изменения скорости) "},
    {5, -0.1856, true, "sin(Ls)", "dL5 годичное неравенство (от орбиты Земли)"},
    {6, -0.1144, false, "sin(2*F)", "dL6 =   (не надо)"},
    {7, -0.0347, true, "sin(D)", "dL7 ="},
    {8, 0.0588, true, "sin(2*D - 2*L)", "dL8 ="},
    {9, 0.0571, true, "sin(2*D - L - Ls)", "dL9 ="},
    {10, 0.0533, true, "sin(2*D + L)", "dL10 ="},
    {11, 0.2806, false, "sin(L + F)", "dB11 =  (не надо)"},
    {12, 0.2777, false, "sin(L - F)", "dB12 =  (не надо)"},
    {13, 0.1732, true, "sin(2*D - F)", "dB13 вариация по широте ="},
    {14, 0.0554, true, "sin(2*D - L + F)", "dB14 ="},
    {15, 0.0462, true, "sin(2*D - L - F)", "dB15 ="},
    {16, 0.0326, true, "sin(2*D + F)", "dB16 ="},
    {25, -0.0458, true, "sin(Ls - 2*D)", "dL21 ="},
    {26, 0.0411, true, "sin(L - Ls)", "dL22 ="},
    {27, -0.0306, true, "sin(L + Ls)", "dL23 ="},
    {28, -0.0153, true, "sin(2*F - 2*D)", "dL24 ="},
}};

/// Reads kLp from a file of four blocks (a name line, two lines of eight numbers in millionths of a degree).
/// kLp changes only when the whole file is read.  Throws OpenFailure or FileFailure.
void readPlanetPerturbations(ModelState& s, const std::filesystem::path& path);

/// Scales kLp to whole millionths of a degree and writes it.  kLp is left scaled, also after a failure: the
/// caller sets the values anew.  Throws ArithmeticFailure for a value too large, OpenFailure or FileFailure.
void writePlanetPerturbations(ModelState& s, const std::filesystem::path& path);

}  // namespace tarvex
