#include "forms/form_map.h"

#include <algorithm>
#include <array>

#include "forms/help_pages.h"
#include "forms/help_text.h"
#include "forms/word_search.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

struct Group {
    const char* title;
    std::vector<int> forms;
};

const std::array<Group, 5>& groups() {
    static const std::array<Group, 5> all{{
        {"Эксперимент", {1, 2, 4, 6, 15, 19, 20, 23}},
        {"Наблюдения", {10, 13, 17, 21, 22}},
        {"Небо", {11, 12, 14, 16, 24}},
        {"Два тела и тесты", {7, 8, 18, 25, 26}},
        {"Справка", {3, 5, 9}},
    }};
    return all;
}

std::string purposeOf(int number) {
    for (const help::FormText& text : help::formTexts)
        if (text.number == number) return text.purpose;
    return "";
}

/// Better places of what is found come first, and within one the forms with more hints.
constexpr int exactNumber = 1'000'000, inPurpose = 100'000, inTitle = 10'000;

std::string withoutBlanks(const std::string& text) {
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [](char c) { return c != ' '; });
    return kept;
}

}  // namespace

FormMap::FormMap(const Desk& desk) {
    const auto add = [&](const std::string& group, const std::string& name) {
        const auto form = desk.describe(name);
        entries_.push_back({formNumber(name), name, group, purposeOf(formNumber(name))});
        Words words{form->title(), {}};
        for (const Control* control : form->controls())
            if (control->visible() && !control->hint().empty())
                words.hints.push_back((control->caption().empty() ? "" : control->caption() + ": ") +
                                      control->hint());
        words_.push_back(std::move(words));
    };
    std::vector<std::string> left = desk.names();
    for (const Group& group : groups())
        for (const int number : group.forms)
            if (const std::string name = "Form" + std::to_string(number); std::erase(left, name) > 0)
                add(group.title, name);
    for (const std::string& name : left) add("Другие", name);
}

std::vector<FormMap::Hit> FormMap::find(const std::string& wanted) const {
    const std::vector<std::string> words = searchWords(wanted);
    const std::string number = withoutBlanks(wanted);
    std::vector<std::pair<int, Hit>> found;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        Hit hit{&entry, ""};
        int worth = words.empty() ? 1 : 0;
        if (number == std::to_string(entry.number)) worth += exactNumber;
        if (!words.empty() && holdsAll(entry.purpose, words)) worth += inPurpose;
        if (!words.empty() && holdsAll(words_[i].title, words)) worth += inTitle;
        const bool told = worth > 0;
        for (const std::string& hint : words_[i].hints) {
            if (words.empty() || !holdsAll(hint, words)) continue;
            if (!told && hit.why.empty()) hit.why = hint;
            ++worth;
        }
        if (worth > 0) found.emplace_back(worth, hit);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<Hit> hits;
    hits.reserve(found.size());
    for (auto& [worth, hit] : found) hits.push_back(std::move(hit));
    return hits;
}

const std::vector<Road>& roads() {
    static const std::vector<Road> all{
        {"Эксперимент",
         "От элементов орбит к начальным данным, прогону модели, вековым сдвигам и скорости гравитации",
         1,
         {{"mercury_advance.tvx", "Перигелий Меркурия по закону Ньютона и по ОТО"},
          {"main_road.tvx", "Вся дорога до скорости гравитации"},
          {"imitators.tvx", "Орбита Марса по трем теориям"},
          {"moon_orbit.tvx", "Луна и Земля как два тела"},
          {"pulsar.tvx", "Двойной пульсар"}}},
        {"Наблюдения",
         "Теория рядом с древними таблицами и обсерваториями; элементы, которые подходят лучше всего",
         10,
         {{"observations.tvx", "Обработка файла, статистика и план"}}},
        {"Небо",
         "Затмения, прохождения, восходы и заходы на заданном месте",
         16,
         {{"eclipse_2006.tvx", "Затмение Солнца 29 марта 2006 года"}}},
    };
    return all;
}

}  // namespace tarvex
