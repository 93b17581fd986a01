#include "batch/batch_options.h"

#include <fmt/format.h>

#include <tuple>
#include <utility>

#include "batch/option_words.h"
#include "core/failure.h"
#include "core/number_list.h"

namespace tarvex {

namespace {

const std::string usage =
    "tarvex-plan [--data КАТАЛОГ] --plan N --experiments ОТ-ДО [--planets СПИСОК] [--jobs J] "
    "[--lanes L] [--resume [--again]] "
    "[ИМЯ=ЗНАЧЕНИЕ ...]";

constexpr int mostLanes = 64;  ///< of one process, whatever its core takes abreast

std::vector<int> planetsOf(const std::string& word, const std::string& text) {
    std::vector<int> planets =
        numbersWithoutRepeats(word, text);  // two processes would write the same records
    for (const int p : planets)
        if (p < 1 || p > 10) throw Failure("--planets: номера от 1 до 10");
    return planets;
}

int lanesOf(const std::string& text) {
    const int lanes = wholeNumber(text);
    if (lanes < 1 || lanes > mostLanes) throw Failure(fmt::format("--lanes: от 1 до {}", mostLanes));
    return lanes;
}

/// First and last of the experiments named.
std::pair<int, int> experimentsOf(const std::string& text) {
    const auto list = numberList(text);
    if (list.front() < 1 || static_cast<int>(list.size()) != list.back() - list.front() + 1)
        throw Failure("--experiments: номера подряд от 1, например 1-20");
    return {list.front(), list.back()};
}

}  // namespace

BatchOptions parseBatchOptions(const std::vector<std::string>& arguments) {
    BatchOptions options;
    bool plan = false, experiments = false;
    OptionWords words(arguments, usage);
    for (std::string word; words.next(word);) {
        if (word == "--resume") {
            options.resume = true;
        } else if (word == "--again") {
            options.again = true;
        } else if (word == "--data") {
            options.data = words.value();
        } else if (word == "--plan") {
            options.plan = wholeNumber(words.value());
            plan = true;
        } else if (word == "--experiments") {
            std::tie(options.first, options.last) = experimentsOf(words.value());
            experiments = true;
        } else if (word == "--planets") {
            options.planets = planetsOf(word, words.value());
        } else if (word == "--jobs") {
            options.jobs = wholeNumber(words.value());
        } else if (word == "--lanes") {
            options.lanes = lanesOf(words.value());
        } else if (const auto setting = settingOf(word)) {
            options.settings.push_back(*setting);
        } else {
            throw Failure(fmt::format("{}\n{}", word, usage));
        }
    }
    if (!plan || !experiments) throw Failure(usage);
    if (options.plan < 1) throw Failure("--plan: номер плана от 1");
    return options;
}

}  // namespace tarvex
