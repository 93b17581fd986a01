#pragma once
// An enumeration whose values stand as numbers in files, on screens and in printed variables.

#include <type_traits>

namespace tarvex {

/// The number by which they know a value.
template <class Value>
requires std::is_enum_v<Value>
constexpr std::underlying_type_t<Value> codeOf(Value value) {
    return static_cast<std::underlying_type_t<Value>>(value);
}

}  // namespace tarvex
