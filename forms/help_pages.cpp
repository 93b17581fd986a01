#include "forms/help_pages.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include "forms/help_text.h"
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

/// Lower case of Latin and Russian letters in UTF-8.
std::string lowered(const std::string& text) {
    std::string low;
    low.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) {
            low += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        } else if (c == 0xD0 && i + 1 < text.size()) {
            const auto second = static_cast<unsigned char>(text[++i]);
            if (second == 0x81) {  // the letter yo is sought as e
                low += "\xD0\xB5";
            } else if (second >= 0x90 && second <= 0x9F) {
                low += '\xD0';
                low += static_cast<char>(second + 0x20);
            } else if (second >= 0xA0 && second <= 0xAF) {
                low += '\xD1';
                low += static_cast<char>(second - 0x20);
            } else {
                low += text.substr(i - 1, 2);
            }
        } else if (text.compare(i, 2, "\xD1\x91") == 0) {
            low += "\xD0\xB5";
            ++i;
        } else {
            low += text[i];
        }
    }
    return low;
}

/// A long Russian word without its ending, so that it is found in every case and number.
std::string stem(std::string word) {
    constexpr std::size_t letterBytes = 2, endingLetters = 2, shortest = 6;
    const bool russian = std::all_of(word.begin(), word.end(), [](char c) { return (c & 0x80) != 0; });
    if (russian && word.size() >= shortest * letterBytes)
        word.resize(word.size() - endingLetters * letterBytes);
    return word;
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream in(lowered(text));
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(stem(word));
    return words;
}

bool holdsAll(const std::string& text, const std::vector<std::string>& words) {
    const std::string low = lowered(text);
    return std::all_of(words.begin(), words.end(),
                       [&](const std::string& word) { return low.find(word) != std::string::npos; });
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

std::string searchHelp(const std::vector<HelpPage>& pages, const std::string& wanted) {
    const std::vector<std::string> words = wordsOf(wanted);
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
