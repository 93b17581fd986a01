#include "forms/help_pages.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include "forms/help_text.h"
#include "forms/word_search.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

constexpr const char* chapterMark = "---";

struct Chapter {
    const char* title;
    bool (*holds)(const Control&);
};

bool isResult(const Control& c) {
    return c.kind() == Control::Kind::Text && static_cast<const TextField&>(c).readOnly();
}

const std::array<Chapter, 5> chapters{{
    {"Команды", [](const Control& c) { return c.kind() == Control::Kind::Command; }},
    {"Выбор и отметки",
     [](const Control& c) { return c.kind() == Control::Kind::Option || c.kind() == Control::Kind::Check; }},
    {"Поля", [](const Control& c) { return c.kind() == Control::Kind::Text && !isResult(c); }},
    {"Результаты", isResult},
    {"Рисунки, ползунки и надписи",
     [](const Control& c) {
         return c.kind() == Control::Kind::Picture || c.kind() == Control::Kind::Scroll ||
                c.kind() == Control::Kind::Label;
     }},
}};

const help::FormText* textOfForm(int number) {
    for (const help::FormText& text : help::formTexts)
        if (text.number == number) return &text;
    return nullptr;
}

std::string baseName(const Control& control) { return control.name().substr(0, control.name().find('(')); }

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \r\n");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \r\n") - first + 1);
}

/// Controls of one array that have one hint are told together.
std::string entryOf(const std::vector<const Control*>& alike) {
    std::string captions;
    for (const Control* control : alike) {
        const std::string caption = trimmed(control->caption());
        if (caption.empty() || (control != alike.front() && caption == trimmed(alike.front()->caption())))
            continue;
        captions += (captions.empty() ? "" : ", ") + caption;
    }
    std::string names = alike.front()->name();
    if (alike.size() > 1) names += " ... " + alike.back()->name();
    return fmt::format("{}{}[{}]\n        {}", captions, captions.empty() ? "" : "  ", names,
                       alike.front()->hint());
}

void tellControls(const Form& form, const Chapter& chapter, std::vector<std::string>& entries) {
    std::vector<std::string> told;
    std::vector<const Control*> alike;
    const auto finish = [&] {
        if (!alike.empty()) told.push_back(entryOf(alike));
        alike.clear();
    };
    for (const Control* control : form.controls()) {
        if (!control->visible() || !chapter.holds(*control)) continue;
        if (!alike.empty() &&
            (baseName(*control) != baseName(*alike.back()) || control->hint() != alike.front()->hint()))
            finish();
        alike.push_back(control);
    }
    finish();
    if (told.empty()) return;
    entries.push_back(fmt::format("{0} {1} {0}", chapterMark, chapter.title));
    entries.insert(entries.end(), told.begin(), told.end());
}

}  // namespace

int formNumber(std::string_view formName) { return std::stoi(std::string(formName.substr(4))); }

HelpPage listOfForms(const Desk& desk) {
    std::map<std::string, std::vector<std::string>> openers;  // form -> commands that open it
    for (const std::string& name : desk.names()) {
        const auto form = desk.describe(name);
        for (const Control* control : form->controls())
            if (!control->leadsTo().empty())
                openers[control->leadsTo()].push_back(
                    fmt::format("\"{}\" формы {}", trimmed(control->caption()), formNumber(name)));
    }
    HelpPage page{"Формы", {}};
    for (const std::string& name : desk.names()) {
        const int number = formNumber(name);
        const help::FormText* text = textOfForm(number);
        std::string entry = fmt::format("Форма {}. {}", number, text != nullptr ? text->purpose : "");
        std::string from;
        for (const std::string& opener : openers[name]) from += (from.empty() ? "" : ", ") + opener;
        if (!from.empty()) entry += "\n        Открывает " + from;
        page.entries.push_back(std::move(entry));
    }
    return page;
}

HelpPage pageOfForm(const Desk& desk, const std::string& formName) {
    const auto form = desk.describe(formName);
    const int number = formNumber(formName);
    HelpPage page{fmt::format("Форма {}. {}", number, trimmed(form->title())), {}};
    if (const help::FormText* text = textOfForm(number)) {
        page.entries.push_back(text->purpose + ".");
        page.entries.insert(page.entries.end(), text->notes.begin(), text->notes.end());
    }
    for (const Chapter& chapter : chapters) tellControls(*form, chapter, page.entries);
    return page;
}

std::string textOf(const HelpPage& page) {
    std::string text = page.title;
    for (const std::string& entry : page.entries) text += "\n\n" + entry;
    return text;
}

namespace {

/// Number of the form of which a heading tells: "=== Форма 16. ..." or "Форма 16. ..."; 0 for another line.
int headingOf(std::string_view line) {
    constexpr std::string_view mark = "=== ", word = "Форма ";
    if (line.starts_with(mark)) line.remove_prefix(mark.size());
    if (!line.starts_with(word)) return 0;
    line.remove_prefix(word.size());
    int number = 0;
    while (!line.empty() && line[0] >= '0' && line[0] <= '9' && number < 1000) {
        number = 10 * number + (line[0] - '0');
        line.remove_prefix(1);
    }
    return line.starts_with(".") ? number : 0;
}

/// "Text1(0)" of "вектор  [Text1(0) ... Text1(10)]"; empty for a line that names no control.
std::string controlNamedIn(std::string_view line) {
    const std::size_t open = line.rfind('[');
    if (open == std::string_view::npos || !line.ends_with("]")) return "";
    line = line.substr(open + 1, line.size() - open - 2);
    return std::string(line.substr(0, line.find(' ')));
}

}  // namespace

std::optional<HelpTarget> targetOf(const std::string& text, int line) {
    std::istringstream in(text);
    int form = 0;
    std::string now;
    for (int i = 0; i <= line; ++i) {
        if (!std::getline(in, now)) return std::nullopt;
        if (const int heading = headingOf(now); heading > 0)
            form = heading;
        else if (now.starts_with("=== "))
            form = 0;
    }
    const std::string control = controlNamedIn(now);
    if (form == 0 || (control.empty() && headingOf(now) == 0)) return std::nullopt;
    return HelpTarget{"Form" + std::to_string(form), control};
}

std::string searchHelp(const std::vector<HelpPage>& pages, const std::string& wanted) {
    const std::vector<std::string> words = searchWords(wanted);
    std::string found;
    int count = 0;
    for (const HelpPage& page : pages) {
        HelpPage matching{page.title, {}};
        for (const std::string& entry : page.entries)
            if (!entry.starts_with(chapterMark) && holdsAll(entry, words)) matching.entries.push_back(entry);
        if (matching.entries.empty()) continue;
        count += static_cast<int>(matching.entries.size());
        found += "\n\n=== " + textOf(matching);
    }
    if (count == 0) return fmt::format("Ничего не найдено: {}", trimmed(wanted));
    return fmt::format("Найдено мест: {}", count) + found;
}

}  // namespace tarvex
