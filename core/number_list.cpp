#include "core/number_list.h"

#include <sstream>

#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

int wholeNumber(const std::string& text) {
    constexpr int most = 32767;
    try {
        const double v = toNumber(text);
        if (v == Fix(v) && v >= 0 && v <= most) return static_cast<int>(v);
    } catch (const Failure&) {
        // told below, with the rest of what is no number of ours
    }
    throw Failure("не число от 0 до 32767: " + text);
}

std::vector<int> numberList(const std::string& text) {
    std::vector<int> numbers;
    std::istringstream list(text);
    for (std::string item; std::getline(list, item, ',');) {
        const auto dash = item.find('-');
        const int first = wholeNumber(item.substr(0, dash));
        const int last = dash == std::string::npos ? first : wholeNumber(item.substr(dash + 1));
        if (last < first) throw Failure("пустой список: " + item);
        for (int i = first; i <= last; ++i) numbers.push_back(i);
    }
    if (numbers.empty()) throw Failure("пустой список: " + text);
    return numbers;
}

}  // namespace tarvex
