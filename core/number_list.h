#pragma once
// Numbers of bodies and experiments as they are typed in a list.

#include <string>
#include <vector>

namespace tarvex {

/// A number from 0 to 32767.  Throws Failure.
int wholeNumber(const std::string& text);

/// Numbers of a list like "1,2,4-6", in its order.  Throws Failure.
std::vector<int> numberList(const std::string& text);

}  // namespace tarvex
