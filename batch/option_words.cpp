#include "batch/option_words.h"

#include <algorithm>
#include <set>

#include "core/data_home.h"
#include "core/failure.h"
#include "core/number_list.h"

namespace tarvex {

bool OptionWords::next(std::string& word) {
    if (at_ >= arguments_.size()) return false;
    word = arguments_[at_++];
    return true;
}

const std::string& OptionWords::value() {
    if (at_ >= arguments_.size()) throw Failure(arguments_[at_ - 1] + ": нет значения\n" + usage_);
    return arguments_[at_++];
}

std::vector<int> numbersWithoutRepeats(const std::string& word, const std::string& text) {
    std::vector<int> numbers = numberList(text);
    if (std::set(numbers.begin(), numbers.end()).size() != numbers.size())
        throw Failure(word + ": номера без повторений");
    return numbers;
}

std::optional<BatchSetting> settingOf(const std::string& word) {
    const auto sign = word.find('=');
    if (sign == std::string::npos || sign == 0 || word.front() == '-') return std::nullopt;
    std::string control = word.substr(0, sign);
    if (!control.starts_with("Form")) control.insert(0, "Form2.");
    if (std::any_of(word.begin(), word.end(), [](unsigned char c) { return c < ' '; }))
        throw Failure("не печатный знак: " + control);
    return BatchSetting{control, word.substr(sign + 1)};
}

std::filesystem::path dataTree(const std::optional<std::filesystem::path>& given) {
    try {
        return findDataTree(given);
    } catch (const OpenFailure&) {
        throw Failure("нет каталога данных" + (given ? " " + given->string() : ""));
    }
}

}  // namespace tarvex
