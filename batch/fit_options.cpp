#include "batch/fit_options.h"

#include <cmath>
#include <sstream>

#include "batch/option_words.h"
#include "core/failure.h"
#include "core/number_list.h"
#include "core/numbers.h"
#include "fit/place_model.h"

namespace tarvex {

namespace {

const std::string usageOfFit =
    "tarvex-fit [--data КАТАЛОГ] --places ФАЙЛ|DE405 --bodies СПИСОК [--from ГОД] [--to ГОД] [--every СУТКИ] "
    "[--fit ПАРАМЕТРЫ] --sigma КМ [--relativity on|off] [--jobs J] [ИМЯ=ЗНАЧЕНИЕ ...]";

int yearOf(const std::string& text) {
    const double year = toNumber(text);
    if (year != Fix(year) || std::abs(year) > 10000) throw Failure("не год: " + text);
    return static_cast<int>(year);
}

double positive(const std::string& word, const std::string& text) {
    const double value = toNumber(text);
    if (!(value > 0)) throw Failure(word + ": нужно число больше нуля");
    return value;
}

bool onOrOff(const std::string& text) {
    if (text != "on" && text != "off") throw Failure("--relativity: on или off");
    return text == "on";
}

std::vector<std::string> names(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream list(text);
    for (std::string item; std::getline(list, item, ',');) {
        parameterOf(item);
        for (const std::string& one : out)
            if (one == item) throw Failure("--fit: имена без повторений");
        out.push_back(item);
    }
    return out;
}

bool isParameter(const std::string& name) {
    try {
        parameterOf(name);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void takeSetting(const std::string& word, FitOptions& options) {
    const auto sign = word.find('=');
    if (sign != std::string::npos && isParameter(word.substr(0, sign))) {
        toNumber(word.substr(sign + 1));
        options.given.push_back({word.substr(0, sign), word.substr(sign + 1)});
    } else if (const auto setting = settingOf(word)) {
        options.settings.push_back(*setting);
    } else {
        throw Failure(word + "\n" + usageOfFit);
    }
}

void check(const FitOptions& options) {
    if (options.places.empty()) throw Failure("нет мест: --places\n" + usageOfFit);
    if (options.bodies.empty() || options.sigma == 0) throw Failure(usageOfFit);
    for (const int body : options.bodies)
        if (body < 1 || body > (options.byEphemeris() ? 9 : 10))
            throw Failure(options.byEphemeris() ? "--bodies: в DE405 номера от 1 до 9"
                                                : "--bodies: номера от 1 до 10");
    if (options.byEphemeris() && !(options.from && options.to))
        throw Failure("--places DE405: нужны --from и --to");
    if (options.from && options.to && *options.to < *options.from) throw Failure("--to раньше --from");
}

}  // namespace

FitOptions parseFitOptions(const std::vector<std::string>& arguments) {
    FitOptions options;
    OptionWords words(arguments, usageOfFit);
    for (std::string word; words.next(word);) {
        if (word == "--data") {
            options.data = words.value();
        } else if (word == "--places") {
            options.places = words.value();
        } else if (word == "--bodies") {
            options.bodies = numbersWithoutRepeats(word, words.value());
        } else if (word == "--from") {
            options.from = yearOf(words.value());
        } else if (word == "--to") {
            options.to = yearOf(words.value());
        } else if (word == "--every") {
            options.every = positive(word, words.value());
        } else if (word == "--fit") {
            options.parameters = names(words.value());
        } else if (word == "--sigma") {
            options.sigma = positive(word, words.value());
        } else if (word == "--relativity") {
            options.relativity = onOrOff(words.value());
        } else if (word == "--jobs") {
            options.jobs = wholeNumber(words.value());
        } else {
            takeSetting(word, options);
        }
    }
    check(options);
    return options;
}

}  // namespace tarvex
