#include "core/et_ut.h"

#include <array>
#include <cmath>

#include "core/arithmetic.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

/// Cubics of EtUtTable for q = -7..-1, by increasing power of t.
constexpr std::array<std::array<double, 4>, 7> cubics = {{
    {10.4, -80.8, 413.9, -572.3},
    {6.6, 46.3, -358.4, 18.8},
    {-3.9, -10.8, -166.2, 867.4},
    {-2.6, 114.1, 327.5, -1467.4},
    {24.2, -6.3, -8.2, 483.4},
    {29.3, 32.5, -3.8, 550.7},
    {45.3, 130.5, -570.5, 1516.7},
}};

}  // namespace

double EtUt1900(ModelState& s) {
    const double T = (s.JD - JD1900) / 36525;
    return finite(24.35 + 72.32 * T + 29.95 * T * T);
}

double EtUtTable(ModelState& s) {
    const double T = (s.JD - JD2000) / 36525;
    s.Ipl2 = toInt16(Fix(T / 0.25) - 1);
    if (s.Ipl2 > 0) s.Ipl2 = 0;
    const int q = s.Ipl2;
    if (q == 0) return 65.97 + 90 * T;
    if (q >= -7) {
        const auto& c = cubics[q + 7];
        const double t = T - q * 0.25;
        return c[0] + t * (c[1] + t * (c[2] + c[3] * t));
    }
    return T < -3 ? EtUt1900(s) : 10.4;
}

double EtUtSelect(ModelState& s, int k, double J) {
    if (k != 1 && k != 2) throw SubscriptFailure("нет формулы ET-UT № " + std::to_string(k));
    const double w = s.kET[k][4];
    if (std::abs(w) > 1) return Sgn(w) * EtUtTable(s);
    if (std::abs(w) != 1) return 0;
    const double u = (J - (k == 1 ? s.JDt01 : s.JDt02)) / 36525;
    return finite((s.kET[k][0] + s.kET[k][1] * u + s.kET[k][2] * u * u) * w);
}

}  // namespace tarvex
