#include "script/script_screen.h"

#include <algorithm>

#include "runtime/form.h"
#include "runtime/picture.h"
#include "script/line_failure.h"

namespace tarvex {

std::string onOneLine(const std::string& text) {
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (pair) ++i;
        if (text[i] == '\n' || text[i] == '\r')
            line += "\\n";
        else
            line += text[i];
    }
    return line;
}

void ScriptScreen::print(const std::string& line) {
    out_ << line << '\n';
    out_.flush();
}

void ScriptScreen::message(const Message& told) {
    print("message \"" + onOneLine(told.title) + "\": " + onOneLine(told.text));
    if (!told.cause.empty()) print("cause: " + onOneLine(told.cause));
    if (strict_ && told.error)
        throw LineFailure{"сообщение об ошибке: " + onOneLine(told.text), 0, LineFailure::errorMessage};
}

bool ScriptScreen::ask(const std::string& question, const std::string& title) {
    const std::string asked = "question \"" + onOneLine(title) + "\": " + onOneLine(question);
    if (answers_.empty())
        throw LineFailure{"на вопрос нет ответа (answer yes или answer no): " + onOneLine(question)};
    const bool yes = answers_.front();
    answers_.pop_front();
    print(asked + (yes ? " - yes" : " - no"));
    return yes;
}

void ScriptScreen::notify(const std::string& text) { print("notice: " + onOneLine(text)); }

void ScriptScreen::yield() {
    const int now = ++yields_;
    // An action may start a calculation that gives way itself, so each hook leaves the list before it runs.
    for (;;) {
        const auto due =
            std::find_if(hooks_.begin(), hooks_.end(), [&](const Hook& h) { return h.count == now; });
        if (due == hooks_.end()) return;
        const Hook hook = std::move(*due);
        hooks_.erase(due);
        try {
            hook.action();
        } catch (LineFailure& failure) {
            if (failure.line == 0) failure.line = hook.line;
            throw;
        }
    }
}

std::unique_ptr<Canvas> ScriptScreen::makeCanvas(Picture& picture) {
    const std::string& form = picture.form().name();
    if (!drawn_.contains(everyPicture) && !drawn_.contains(form) &&
        !drawn_.contains(form + "." + picture.name()))
        return nullptr;
    return maker_(picture.width(), picture.height());
}

std::string ScriptScreen::place(const Form& form) const {
    const auto found = places_.find(form.name());
    return found == places_.end() ? "" : found->second;
}

void ScriptScreen::setPlace(const Form& form, const std::string& place) { places_[form.name()] = place; }

void ScriptScreen::forget() {
    answers_.clear();
    posted_.clear();
    hooks_.clear();
    yields_ = 0;
}

bool ScriptScreen::runPosted() {
    if (posted_.empty()) return false;
    const auto action = std::move(posted_.front());
    posted_.pop_front();
    action();
    return true;
}

}  // namespace tarvex
