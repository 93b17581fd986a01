#include "script/player.h"

#include <algorithm>
#include <cctype>
#include <istream>

#include "core/data_tree.h"
#include "core/failure.h"
#include "core/name_table.h"
#include "core/numbers.h"
#include "core/text_files.h"
#include "runtime/control_lines.h"
#include "runtime/desk.h"
#include "runtime/picture.h"
#include "runtime/resting_commands.h"
#include "script/expression.h"
#include "script/script_text.h"

namespace tarvex {

namespace {

constexpr std::size_t longestLine = 1 << 20;  ///< a longer line is no line of a script

constexpr std::string_view statePrefix = "state.";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

int wholeNumber(std::string_view text) {
    const double v = toNumber(text);
    if (v != Fix(v)) throw ConversionFailure("не целое");
    return toInt32(v);
}

bool onOrOff(std::string_view text) {
    if (text == "on") return true;
    if (text == "off") return false;
    throw LineFailure{"ожидается on или off, а не " + quote(text)};
}

const char* onOff(bool on) { return on ? "on" : "off"; }

/// What a control shows: the text of a field, on or off, the place of a scroll bar, the caption of the
/// others.
std::string shown(const Control& control) {
    if (control.kind() == Control::Kind::Picture)
        throw LineFailure{control.name() + " - рисунок, у него нет значения"};
    return valueOf(control);
}

/// A control that a person could not use now cannot be used by a line either.
void mustBeUsable(const Control& control) {
    if (!control.enabled()) throw LineFailure{control.name() + " сейчас недоступен"};
    if (!control.visible() &&
        control.kind() != Control::Kind::Text)  // a hidden field is a trigger between forms
        throw LineFailure{control.name() + " сейчас не показан"};
}

void assign(Control& control, std::string_view typed) {
    mustBeUsable(control);
    const std::string_view word = trim(typed);
    switch (control.kind()) {
        case Control::Kind::Text: {
            auto& field = static_cast<TextField&>(control);
            if (field.readOnly()) throw LineFailure{control.name() + " - результат, в него не вводят"};
            return field.setText(std::string(typed));
        }
        case Control::Kind::Check:
            return static_cast<CheckBox&>(control).set(onOrOff(word));
        case Control::Kind::Option:
            if (!onOrOff(word)) throw LineFailure{"переключатель снимают, включив другой: " + control.name()};
            return static_cast<OptionButton&>(control).choose();
        case Control::Kind::Scroll: {
            auto& bar = static_cast<ScrollBar&>(control);
            const int value = wholeNumber(word);
            if (value < bar.min() || value > bar.max())
                throw LineFailure{control.name() + " меняется от " + std::to_string(bar.min()) + " до " +
                                  std::to_string(bar.max())};
            return bar.setValue(value);
        }
        default:
            throw LineFailure{"в " + control.name() + " ничего не вводят"};
    }
}

LineFailure tooLong(const std::vector<std::string>& linesBefore) {
    return {"слишком длинная строка", static_cast<int>(linesBefore.size()) + 1};
}

}  // namespace

std::vector<std::string> readScript(const std::filesystem::path& path) {
    std::vector<std::string> lines;
    try {
        TextReader reader(path);
        for (std::string line; reader.line(line);) lines.push_back(std::move(line));
    } catch (const OpenFailure&) {
        throw;
    } catch (const FileFailure&) {
        throw tooLong(lines);
    }
    return lines;
}

std::vector<std::string> readScript(std::istream& in) {
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (line.size() > longestLine) throw tooLong(lines);
        if (lines.empty() && line.starts_with(byteOrderMark)) line.erase(0, byteOrderMark.size());
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(decoded(line));
    }
    return lines;
}

namespace {

/// Of scripts that a line plays only those count that stand there now; each is looked at once.
void addSavedPictures(const std::vector<std::string>& lines, std::set<std::string>& saved,
                      std::set<std::string>& scripts) {
    for (std::string_view rest : lines) {
        std::string_view word = takeWord(rest);
        if (word == "at") takeWord(rest), takeWord(rest), word = takeWord(rest);  // at yield N ...
        if (word == "save" || word == "export") saved.emplace(takeWord(rest));
        if (word == "report") {
            takeWord(rest);
            if (rest.empty()) saved.emplace(everyPicture);
            while (!rest.empty()) saved.emplace(takeWord(rest));
        }
        if (word == "Form6.Command7")
            saved.emplace("Form6");  // this command itself saves a picture of its form
        if (word == "play" && scripts.emplace(trim(rest)).second) {
            try {
                addSavedPictures(readScript(std::filesystem::path(trim(rest))), saved, scripts);
            } catch (const FileFailure&) {  // the line itself will tell
            } catch (const LineFailure&) {
            }
        }
    }
}

}  // namespace

std::set<std::string> savedPictures(const std::vector<std::string>& lines) {
    std::set<std::string> saved, scripts;
    addSavedPictures(lines, saved, scripts);
    return saved;
}

/// Whatever fails is a failure of the present line.
template <class Work>
void Player::told(Work work) const {
    try {
        work();
    } catch (LineFailure& failure) {
        if (failure.line == 0) failure.line = line_;
        throw;
    } catch (const ConversionFailure&) {
        throw LineFailure{"ожидается число", line_};
    } catch (const OverflowFailure&) {
        throw LineFailure{"слишком большое число", line_};
    } catch (const std::exception& failure) {
        throw LineFailure{causeOf(failure), line_};
    }
}

void Player::play(const std::vector<std::string>& lines, const std::string& firstForm) {
    line_ = 0;
    told([&] {
        desk_.show(firstForm);
        finishLine();
    });
    for (const std::string& line : lines) {
        if (!desk_.anyLoaded()) return;
        ++line_;
        try {
            if (onLine_) onLine_(line_);
            told([&] { playLine(line); });
        } catch (const LineFailure& failure) {
            if (!tolerated_) throw;
            tolerated_(failure);
        }
    }
    if (desk_.anyLoaded() && !screen_.hooks().empty())
        throw LineFailure{"после этой строки ни один расчет не уступил управление",
                          screen_.hooks().front().line};
}

void Player::playLine(const std::string& line) {
    doLine(line);
    finishLine();
}

/// What the line has posted is done, with all that this posts; then the hooks of its calculation are over.
void Player::finishLine() {
    while (desk_.anyLoaded() && screen_.runPosted()) {
    }
    const int yields = screen_.yields();
    screen_.restartYields();
    if (yields > 0 && desk_.anyLoaded() && !screen_.hooks().empty()) {
        const auto& hook = screen_.hooks().front();
        throw LineFailure{"расчет уступил управление меньше раз: " + std::to_string(yields), hook.line};
    }
}

/// The lines that begin with a word of the language and are about the forms as they stand.
bool Player::doWord(std::string_view word, std::string_view argument, std::string_view rest) {
    const std::map<std::string_view, std::function<void()>> words = {
        {"print", [&] { print(argument); }},      {"echo", [&] { screen_.print(std::string(argument)); }},
        {"let", [&] { let(argument); }},          {"calc", [&] { let(argument); }},
        {"save", [&] { savePicture(argument); }}, {"export", [&] { exportPicture(argument); }},
        {"at", [&] { addHook(rest); }},           {"show", [&] { desk_.show(form(argument).name()); }},
        {"close", [&] { closeForm(argument); }},  {"answer", [&] { queueAnswer(argument); }},
    };
    const auto found = words.find(word);
    if (found == words.end()) return false;
    found->second();
    return true;
}

void Player::closeForm(std::string_view name) {
    if (!desk_.isLoaded(std::string(name))) throw LineFailure{"форма не открыта: " + quote(name)};
    desk_.unload(std::string(name));
}

void Player::queueAnswer(std::string_view answer) {
    if (answer != "yes" && answer != "no") throw LineFailure{"ожидается answer yes или answer no"};
    screen_.queueAnswer(answer == "yes");
}

void Player::doLine(std::string_view line) {
    line = trimLeft(line);
    std::string_view rest = line;
    const std::string_view word = takeWord(rest);
    const std::string_view argument = trim(rest);
    if (word.empty() || word.front() == '#' || trim(line).empty()) return;

    if (doWord(word, argument, rest) || doSessionLine(word, argument, rest)) return;
    const std::size_t length = referenceLength(line);
    if (length == 0 || line.substr(0, length).find('.') == std::string_view::npos)
        throw LineFailure{"непонятная строка: " + quote(line)};
    doControlLine(line.substr(0, length), line.substr(length));
}

void Player::doControlLine(std::string_view reference, std::string_view rest) {
    Control& used = control(reference);
    desk_.turnTo(used.form());
    const std::string_view after = trimLeft(rest);
    if (after.starts_with('=')) {
        std::string_view typed = after.substr(1);
        if (typed.starts_with(' ')) typed.remove_prefix(1);
        return assign(used, typed);
    }
    if (!trim(rest).empty()) return doMouse(used, trim(rest));
    if (used.kind() != Control::Kind::Command) throw LineFailure{used.name() + " - не кнопка"};
    mustBeUsable(used);
    static_cast<CommandButton&>(used).press();
}

/// "release X,Y left": coordinates in the scale of the picture, with decimal points.
void Player::doMouse(Control& control, std::string_view rest) {
    const std::string_view event = takeWord(rest);
    if (event == "follow") return follow(control, rest);
    if (event != "release" && event != "click") throw LineFailure{"непонятное действие: " + quote(event)};
    if (control.kind() != Control::Kind::Picture) throw LineFailure{control.name() + " - не рисунок"};
    mustBeUsable(control);
    auto& picture = static_cast<Picture&>(control);
    if (!picture.hasMouseMeaning()) throw LineFailure{control.name() + " не отвечает на мышь"};
    const std::string_view point = takeWord(rest);
    const std::size_t comma = point.find(',');
    if (comma == std::string_view::npos) throw LineFailure{"ожидаются координаты X,Y"};
    const double x = toNumber(point.substr(0, comma)), y = toNumber(point.substr(comma + 1));
    if (rest != "left" && rest != "right") throw LineFailure{"ожидается left или right"};
    const auto button = rest == "left" ? Picture::Button::Left : Picture::Button::Right;
    if (event == "release")
        picture.release(x, y, button);
    else
        picture.click(x, y, button);
}

/// "follow N": the N-th line of a text, counted from 1, leads somewhere.
void Player::follow(Control& control, std::string_view rest) {
    const int line = wholeNumber(rest) - 1;
    auto* text = control.kind() == Control::Kind::Text ? static_cast<TextField*>(&control) : nullptr;
    if (text == nullptr || !text->leads(line))
        throw LineFailure{"эта строка никуда не ведет: " + quote(rest)};
    text->follow(line);
}

/// "at yield N LINE": the line is done when the next running calculation gives way for the N-th time.
void Player::addHook(std::string_view rest) {
    if (takeWord(rest) != "yield") throw LineFailure{"ожидается at yield N ..."};
    const int count = wholeNumber(takeWord(rest));
    if (count < 1) throw LineFailure{"номер уступки считается от 1"};
    if (trim(rest).empty()) throw LineFailure{"после at yield N нет действия"};
    screen_.addHook({count, line_, [this, line = std::string(rest)] { doLine(line); }});
}

void Player::print(std::string_view what) {
    if (what.empty()) throw LineFailure{"нечего печатать"};
    screen_.print(std::string(what) + " = " + onOneLine(value(what)));
}

/// "NAME = EXPRESSION"
void Player::let(std::string_view rest) {
    const std::size_t length = referenceLength(rest);
    const std::string_view name = rest.substr(0, length), after = trimLeft(rest.substr(length));
    if (length == 0 || name.find('.') != std::string_view::npos || !after.starts_with('='))
        throw LineFailure{"ожидается ИМЯ = выражение"};
    const double v =
        evaluate(after.substr(1), [this](std::string_view reference) { return number(reference); });
    numbers_.insert_or_assign(std::string(name), v);
}

/// "FORM.PICTURE FILE"
void Player::savePicture(std::string_view rest) {
    writePicture(rest, {".png", ".bmp", ".svg", ".csv"}, "рисунок сохраняют в файл .png, .bmp, .svg или .csv",
                 &Picture::save);
}

/// The same with what the picture means.
void Player::exportPicture(std::string_view rest) {
    writePicture(rest, {".pdf", ".svg", ".csv"},
                 "рисунок с осями и легендой пишут в файл .pdf, .svg или .csv", &Picture::exportTo);
}

void Player::writePicture(std::string_view rest, std::initializer_list<const char*> endings,
                          const char* otherEnding, void (Picture::*write)(const std::filesystem::path&)) {
    Control& found = control(takeWord(rest));
    if (found.kind() != Control::Kind::Picture) throw LineFailure{found.name() + " - не рисунок"};
    if (!trusted_ && !staysUnder(std::filesystem::current_path(), rest))
        throw LineFailure{"вне текущего каталога рисунок сохраняют только с --trust: " + quote(rest)};
    if (std::none_of(endings.begin(), endings.end(), [&](const char* one) { return rest.ends_with(one); }))
        throw LineFailure{otherEnding};
    try {
        (static_cast<Picture&>(found).*write)(std::filesystem::path(rest));
    } catch (const FileFailure& failure) {
        throw LineFailure{"не удалось записать " + quote(rest) + " (" + failure.what() + ")"};
    }
}

Form& Player::form(std::string_view name) {
    if (!desk_.knows(std::string(name))) throw LineFailure{"нет формы " + quote(name)};
    return desk_.form(std::string(name));
}

/// The control of "FORM.CONTROL" or "FORM.CONTROL(INDEX)"; its form is loaded at the first reference.
Control& Player::control(std::string_view reference) {
    const std::size_t dot = reference.find('.');
    if (dot == std::string_view::npos) throw LineFailure{"ожидается ФОРМА.ЭЛЕМЕНТ, а не " + quote(reference)};
    Form& owner = form(reference.substr(0, dot));
    const std::string name(reference.substr(dot + 1));
    if (Control* found = owner.find(name)) return *found;
    const std::string array = name.substr(0, name.find('(')) + "(";
    for (const Control* other : owner.controls())
        if (other->name().starts_with(array)) throw LineFailure{"нет такого номера: " + quote(reference)};
    throw LineFailure{"на форме " + owner.name() + " нет элемента " + quote(name)};
}

/// What "print" shows of a control, a property of it, a shared variable or a number of this script.
std::string Player::value(std::string_view reference) {
    if (reference.starts_with(statePrefix)) {
        const std::string_view name = reference.substr(statePrefix.size());
        if (!names_.knows(std::string(name.substr(0, name.find('(')))))
            throw LineFailure{"нет общей переменной " + quote(name)};
        try {
            return names_.value(name);
        } catch (const SubscriptFailure&) {
            throw LineFailure{"неверный номер: " + quote(name)};
        }
    }
    if (reference.find('.') == std::string_view::npos) {
        const auto found = numbers_.find(reference);
        if (found == numbers_.end()) throw LineFailure{"нет числа с именем " + quote(reference)};
        return toText(found->second);
    }
    const std::size_t last = reference.rfind('.');
    if (reference.substr(last) == ".status" && desk_.knows(std::string(reference.substr(0, last))))
        return form(reference.substr(0, last)).status();
    const std::string_view property = reference.substr(last + 1);
    const auto owner = [&]() -> Control& { return control(reference.substr(0, last)); };
    if (property == "caption") return owner().caption();
    if (property == "enabled") return onOff(isOffered(owner()));
    if (property == "visible") return onOff(owner().visible());
    return shown(control(reference));
}

/// The number behind a name or reference of an expression.
double Player::number(std::string_view reference) {
    const auto found = numbers_.find(reference);
    return found != numbers_.end() ? found->second : toNumber(value(reference));
}

}  // namespace tarvex
