#include "core/numbers.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <limits>

#include "core/failure.h"

namespace tarvex {

namespace {

/// Rounds half to even without touching the floating-point flags for values that do not fit.
template <class Whole>
Whole toWhole(double v) {
    if (!std::isfinite(v)) throw OverflowFailure("слишком большое число");
    const double r = std::nearbyint(v);
    if (r < std::numeric_limits<Whole>::min() || r > std::numeric_limits<Whole>::max())
        throw OverflowFailure("слишком большое число " + toText(v));
    return static_cast<Whole>(r);
}

/// Digits of v with 15 significant places: fixed notation where a person expects it, else an exponent.
std::string significantDigits(double v, char point) {
    if (!std::isfinite(v)) throw ArithmeticFailure("результат - не число");
    if (v == 0) return "0";
    std::string scientific = fmt::format("{:.14e}", std::abs(v));
    const auto e = scientific.find('e');
    const int exponent = std::stoi(scientific.substr(e + 1));
    std::string digits = scientific.substr(0, 1) + scientific.substr(2, e - 2);
    digits.erase(digits.find_last_not_of('0') + 1);
    const int count = static_cast<int>(digits.size());

    std::string text = v < 0 ? "-" : "";
    if (exponent > 15 || exponent < -7) {
        text += digits.substr(0, 1);
        if (count > 1) text += point + digits.substr(1);
        return text + fmt::format("E{:+03d}", exponent);
    }
    if (exponent < 0) return text + "0" + point + std::string(-exponent - 1, '0') + digits;
    if (count <= exponent + 1) return text + digits + std::string(exponent + 1 - count, '0');
    return text + digits.substr(0, exponent + 1) + point + digits.substr(exponent + 1);
}

}  // namespace

std::int16_t toInt16(double v) { return toWhole<std::int16_t>(v); }
std::int32_t toInt32(double v) { return toWhole<std::int32_t>(v); }

// complexity: every notation of a number that the files of the tree hold is told apart in one pass over it
double toNumber(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) throw ConversionFailure("пусто там, где нужно число");
    text = text.substr(first, text.find_last_not_of(" \t") - first + 1);

    std::array<char, 64> usual{};  // long enough for all but a joke: files hold millions of numbers
    std::string longer;
    if (text.size() > usual.size()) longer.resize(text.size());
    char* plain = longer.empty() ? usual.data() : longer.data();
    bool digit = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        digit = digit || (c >= '0' && c <= '9');
        plain[i] = c == ',' ? '.' : c == 'D' || c == 'd' ? 'e' : c;
    }
    std::string_view body(plain, text.size());
    if (body.size() > 1 && body.front() == '+' && body[1] != '-') body.remove_prefix(1);
    double v = 0;
    const auto [end, error] = std::from_chars(body.data(), body.data() + body.size(), v);
    if (error == std::errc::result_out_of_range) {
        // from_chars reports a vanishing number the same way as a huge one
        if (body.find("e-") != std::string_view::npos || body.find("E-") != std::string_view::npos) return 0;
        throw OverflowFailure("слишком большое число " + quote(text));
    }
    if (error != std::errc() || end != body.data() + body.size() || !digit || !std::isfinite(v))
        throw ConversionFailure("не число " + quote(text));
    return v;
}

std::string toText(double v) { return significantDigits(v, ','); }

std::string Format(double v, std::string_view pattern) {
    if (!std::isfinite(v)) throw ArithmeticFailure("результат - не число");
    const auto point = pattern.find_first_of(".,");
    const int whole = static_cast<int>(point == std::string_view::npos ? pattern.size() : point);
    const int decimals = point == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - point - 1);
    const double scale = std::pow(10.0, decimals);
    double size = std::abs(v);
    // half away from zero in the decimal sense; beyond 15 digits there is nothing left to round
    if (size * scale < 1e15) size = std::round(toNumber(fmt::format("{:.15g}", size * scale))) / scale;
    std::string text = fmt::format("{:0{}.{}f}", size, whole + (decimals > 0 ? decimals + 1 : 0), decimals);
    if (const auto at = text.find('.'); at != std::string::npos) text[at] = ',';
    return v < 0 && size > 0 ? "-" + text : text;
}

std::string fileItem(double v) {
    const std::string digits = significantDigits(v, '.');
    return (digits.front() == '-' ? "" : " ") + digits + " ";
}

std::string toFullText(double v) { return fmt::format("{:.17g}", v + 0.0); }

}  // namespace tarvex
