#include "desktop/plot_ticks.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"

namespace tarvex {

namespace {

constexpr double plainFrom = 1e-3, plainTo = 1e8;  ///< texts outside get a power of ten
constexpr int mostDecimals = 12;

/// 1, 2 or 5 times a power of ten, not below a length.
double roundStep(double length) {
    const double power = std::pow(10, std::floor(std::log10(length)));
    for (const double factor : {1., 2., 5.})
        if (factor * power >= length * (1 - 1e-9)) return factor * power;
    return 10 * power;
}

int decimalsOf(double step) {
    return std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, mostDecimals);
}

double rounded(double value, int decimals) {
    const double power = std::pow(10, decimals);
    return std::abs(value) < 1e15 / power ? std::round(value * power) / power + 0.0 : value;
}

/// "−6" of a power of ten as small raised signs.
std::string raised(int power) {
    constexpr const char* digits[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    std::string text = power < 0 ? "⁻" : "";
    for (const char c : std::to_string(std::abs(power))) text += digits[c - '0'];
    return text;
}

/// Every third power of ten; 0 where plain numbers read well.
int powerFor(double largest) {
    if (!(largest > 0) || (largest >= plainFrom && largest < plainTo)) return 0;
    return 3 * static_cast<int>(std::floor(std::log10(largest) / 3 + 1e-9));
}

}  // namespace

std::string titleOf(const Axis& axis) {
    return axis.unit.empty() || axis.name.empty() ? axis.name + axis.unit : axis.name + ", " + axis.unit;
}

std::string shortValue(double value, double resolution) {
    if (!std::isfinite(value) || !(resolution > 0)) return "";
    const double size = std::abs(value);
    if (resolution < std::pow(10, -mostDecimals) || size >= 1e12) {
        const int digits =
            std::clamp(static_cast<int>(std::ceil(std::log10(std::max(size, 1e-300) / resolution))), 1, 15);
        const double unit = std::pow(10, std::floor(std::log10(std::max(size, 1e-300))) - digits + 1);
        return toText(std::round(value / unit) * unit);
    }
    return toText(rounded(value, decimalsOf(resolution)));
}

std::string valueWithUnit(const Axis& axis, double value, double resolution) {
    const std::string text = shortValue(value, resolution);
    if (!axis.sign.empty()) return text + axis.sign;
    return axis.unit.empty() ? text : text + " " + axis.unit;
}

Ticks ticksOf(const Axis& axis, double from, double to, int most) {
    const double begin = axis.at(from), end = axis.at(to), length = std::abs(end - begin);
    Ticks found{{}, titleOf(axis)};
    if (!(length > 0) || !std::isfinite(begin) || !std::isfinite(end) || most < 2) return found;
    const int power = powerFor(std::max(std::abs(begin), std::abs(end)));
    const double unit = std::pow(10, power);
    if (power != 0) found.title += " ×10" + raised(power);
    const double low = std::min(begin, end), high = std::max(begin, end), step = roundStep(length / most);
    if (!(step > 1e-13 * std::max(std::abs(low), std::abs(high)))) return found;
    const int decimals = decimalsOf(step / unit);
    for (double n = std::ceil(low / step - 1e-9); n * step <= high + step * 1e-9; ++n)
        found.ticks.push_back(
            {(n * step - begin) / (end - begin), toText(rounded(n * step / unit, decimals))});
    return found;
}

}  // namespace tarvex
