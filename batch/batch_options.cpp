#include "batch/batch_options.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <tuple>
#include <utility>

#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

namespace {

constexpr int mostExperiments = 32767;
const std::string usage =
    "tarvex-plan [--data КАТАЛОГ] --plan N --experiments ОТ-ДО [--planets СПИСОК] [--jobs J] [--resume "
    "[--again]] "
    "[ИМЯ=ЗНАЧЕНИЕ ...]";

int wholeNumber(const std::string& text) {
    try {
        const double v = toNumber(text);
        if (v == Fix(v) && v >= 0 && v <= mostExperiments) return static_cast<int>(v);
    } catch (const Failure&) {
        // told below, with the rest of what is no number of ours
    }
    throw Failure("не число от 0 до 32767: " + text);
}

bool isSetting(const std::string& word) {
    const auto sign = word.find('=');
    return sign != std::string::npos && sign > 0 && word.front() != '-';
}

/// NAME=VALUE, a control of Form2 where no form is named.
BatchSetting settingOf(const std::string& word) {
    const auto sign = word.find('=');
    std::string control = word.substr(0, sign);
    if (!control.starts_with("Form")) control.insert(0, "Form2.");
    if (std::any_of(word.begin(), word.end(), [](unsigned char c) { return c < ' '; }))
        throw Failure("не печатный знак: " + control);
    return {control, word.substr(sign + 1)};
}

std::vector<int> planetsOf(const std::string& text) {
    std::vector<int> planets = numberList(text);
    std::array<bool, 11> named{};  // two processes for one planet would write the same records
    for (const int p : planets) {
        if (p < 1 || p > 10) throw Failure("--planets: номера от 1 до 10");
        if (std::exchange(named[p], true)) throw Failure("--planets: номера без повторений");
    }
    return planets;
}

/// First and last of the experiments named.
std::pair<int, int> experimentsOf(const std::string& text) {
    const auto list = numberList(text);
    if (list.front() < 1 || static_cast<int>(list.size()) != list.back() - list.front() + 1)
        throw Failure("--experiments: номера подряд от 1, например 1-20");
    return {list.front(), list.back()};
}

}  // namespace

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

BatchOptions parseBatchOptions(const std::vector<std::string>& arguments) {
    BatchOptions options;
    bool plan = false, experiments = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        const auto value = [&]() -> const std::string& {
            if (i + 1 >= arguments.size()) throw Failure(fmt::format("{}: нет значения\n{}", word, usage));
            return arguments[++i];
        };
        if (word == "--resume") {
            options.resume = true;
        } else if (word == "--again") {
            options.again = true;
        } else if (word == "--data") {
            options.data = value();
        } else if (word == "--plan") {
            options.plan = wholeNumber(value());
            plan = true;
        } else if (word == "--experiments") {
            std::tie(options.first, options.last) = experimentsOf(value());
            experiments = true;
        } else if (word == "--planets") {
            options.planets = planetsOf(value());
        } else if (word == "--jobs") {
            options.jobs = wholeNumber(value());
        } else if (isSetting(word)) {
            options.settings.push_back(settingOf(word));
        } else {
            throw Failure(fmt::format("{}\n{}", word, usage));
        }
    }
    if (!plan || !experiments) throw Failure(usage);
    if (options.plan < 1) throw Failure("--plan: номер плана от 1");
    return options;
}

}  // namespace tarvex
