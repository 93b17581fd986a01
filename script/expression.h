#pragma once
// The arithmetic of a script: numbers, names and references with + - * / and parentheses.

#include <functional>
#include <string_view>

namespace tarvex {

/// Value of an expression like "(a - Form2.Text25) * 100 / state.sekG".
/// @param value  gives the number behind a name or a reference, as it stands in the text
/// Throws LineFailure for a text that is no expression, a division by zero or a result beyond double
/// precision.
double evaluate(std::string_view text, const std::function<double(std::string_view reference)>& value);

/// Length of the name or reference that `text` begins with ("a", "Form1.Text1(3)", "state.kodPair(0,3)"), 0
/// for none.
std::size_t referenceLength(std::string_view text);

}  // namespace tarvex
