#pragma once
// A value of a settings struct: a number, or what somebody typed for it.  A text that holds none is no error
// until the value is asked for, so whoever takes a whole struct of settings fails at the first bad one and
// keeps what stood before it.

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "core/arithmetic.h"
#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

/// A text typed where a number is asked for.
struct TypedText {
    std::string text;
};

/// @tparam T  double, or a whole number of 16 or 32 bits: a fraction is rounded half to even
template <class T>
class Typed {
public:
    /// A number.  One that is not finite or does not fit T fails when it is taken.
    template <class Number>
    requires std::is_arithmetic_v<Number> Typed(Number value) {
        hold([&] {
            text_ = toText(static_cast<double>(value));
            return static_cast<double>(value);
        });
    }
    Typed(TypedText typed) : text_(std::move(typed.text)) {
        hold([&] { return toNumber(text_); });
    }

    /// The number.
    /// @param meaning  what the value is for, the beginning of the failure's text
    /// @throws ConversionFailure for a text that holds no number, and for one that does not fit
    T take(const char* meaning) const {
        if (!value_) throw ConversionFailure(std::string(meaning) + ": " + trouble_);
        return *value_;
    }
    T orElse(T otherwise) const { return value_.value_or(otherwise); }
    /// As it was typed; of a number its text.
    const std::string& text() const { return text_; }

private:
    template <class Read>
    void hold(Read read) {
        static_assert(std::is_same_v<T, double> || std::is_same_v<T, std::int16_t> ||
                      std::is_same_v<T, std::int32_t>);
        try {
            if constexpr (std::is_same_v<T, double>)
                value_ = read();
            else if constexpr (std::is_same_v<T, std::int16_t>)
                value_ = toInt16(read());
            else
                value_ = toInt32(read());
        } catch (const Failure& failure) {
            trouble_ = failure.what();
        }
    }

    std::optional<T> value_;
    std::string text_, trouble_;
};

}  // namespace tarvex
