#include "script/expression.h"

#include <cctype>
#include <string>

#include "core/arithmetic.h"
#include "core/failure.h"
#include "core/numbers.h"
#include "script/line_failure.h"

namespace tarvex {

namespace {

constexpr int deepestNesting = 100;  ///< nested parentheses and signs

bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
bool isLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_' || (c & 0x80) != 0;
}

class Parser {
public:
    Parser(std::string_view text, const std::function<double(std::string_view)>& value)
        : rest_(text), value_(value) {}

    double whole() {
        const double v = sum();
        if (skipBlanks(); !rest_.empty()) throw LineFailure{"лишнее в выражении: " + quote(rest_)};
        return finite(v);
    }

private:
    double sum() {
        if (++depth_ > deepestNesting) throw LineFailure{"слишком много скобок"};
        double v = product();
        for (;;) {
            if (take('+'))
                v += product();
            else if (take('-'))
                v -= product();
            else
                break;
        }
        --depth_;
        return v;
    }

    double product() {
        double v = factor();
        for (;;) {
            if (take('*'))
                v *= factor();
            else if (take('/'))
                v = ratio(v, factor());
            else
                return v;
        }
    }

    double factor() {
        int minuses = 0;
        while (take('-')) ++minuses;
        const double v = plainFactor();
        return minuses % 2 == 0 ? v : -v;
    }

    double plainFactor() {
        if (take('(')) {
            const double v = sum();
            if (!take(')')) throw LineFailure{"не закрыта скобка"};
            return v;
        }
        std::size_t length = referenceLength(rest_);
        if (length > 0) return value_(cut(length));
        if (rest_.empty() || !isDigit(rest_[0])) throw LineFailure{"в выражении ожидается число или имя"};
        while (length < rest_.size() &&
               (isDigit(rest_[length]) || rest_[length] == '.' || rest_[length] == ',' || isExponent(length)))
            ++length;
        return toNumber(cut(length));
    }

    /// The letter of an exponent, or the sign after it.
    bool isExponent(std::size_t at) const {
        const auto letter = [](char c) { return c == 'e' || c == 'E'; };
        return letter(rest_[at]) || ((rest_[at] == '+' || rest_[at] == '-') && letter(rest_[at - 1]));
    }

    std::string_view cut(std::size_t length) {
        const std::string_view first = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return first;
    }

    void skipBlanks() {
        while (!rest_.empty() && (rest_[0] == ' ' || rest_[0] == '\t')) rest_.remove_prefix(1);
    }

    /// Takes this sign, if it comes next.
    bool take(char sign) {
        skipBlanks();
        if (rest_.empty() || rest_[0] != sign) return false;
        rest_.remove_prefix(1);
        skipBlanks();
        return true;
    }

    std::string_view rest_;
    const std::function<double(std::string_view)>& value_;
    int depth_ = 0;
};

}  // namespace

std::size_t referenceLength(std::string_view text) {
    std::size_t at = 0;
    const auto name = [&] {
        if (at >= text.size() || !isLetter(text[at])) return false;
        while (at < text.size() && (isLetter(text[at]) || isDigit(text[at]))) ++at;
        return true;
    };
    if (!name()) return 0;
    while (at < text.size() && text[at] == '.') {
        const std::size_t dot = at++;
        if (!name()) return dot;
        if (at < text.size() && text[at] == '(') {
            const std::size_t end = text.find(')', at);
            if (end == std::string_view::npos) return at;
            at = end + 1;
        }
    }
    return at;
}

double evaluate(std::string_view text, const std::function<double(std::string_view reference)>& value) {
    try {
        return Parser(text, value).whole();
    } catch (const ConversionFailure&) {
        throw LineFailure{"в выражении не число"};
    } catch (const Failure&) {
        throw LineFailure{"деление на нуль или слишком большое число"};
    }
}

}  // namespace tarvex
