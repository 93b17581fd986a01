#pragma once
// The texts of the help that no hint of a control tells: the road through the laboratory, what each form is
// for, and what people trip over.

#include <string>
#include <vector>

namespace tarvex::help {

extern const std::vector<std::string> mainRoad;  ///< step by step from elements to an optimum
extern const std::vector<std::string> rules;     ///< numbers, dates, files, failures

struct FormText {
    int number;
    std::string purpose;             ///< one line
    std::vector<std::string> notes;  ///< what to know before pressing
};
/// In order of number.
extern const std::vector<FormText> formTexts;

}  // namespace tarvex::help
