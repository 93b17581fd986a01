#include "runtime/journal.h"

#include "core/clock.h"
#include "core/numbers.h"
#include "runtime/control_lines.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

constexpr double worthTelling = 0.1;  ///< seconds

std::string oneLine(std::string text) {
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    return text;
}

std::string wordOf(FileTouch use) {
    return use == FileTouch::Read ? "прочитан " : use == FileTouch::Written ? "записан " : "дополнен ";
}

}  // namespace

Journal::Journal(Desk& desk, std::filesystem::path tree, Line line)
    : desk_(desk),
      tree_(std::move(tree)),
      line_(std::move(line)),
      files_([this](FileTouch use, const std::filesystem::path& file) { fileUsed(use, file); }) {
    desk_.watch(*this);
}

Journal::~Journal() { desk_.unwatch(*this); }

void Journal::began(const std::string& what) { line_(timeOfDay() + "  " + oneLine(what)); }

void Journal::ledTo(const std::string& what) { line_("          " + oneLine(what)); }

void Journal::deedBegins(const Deed& deed) {
    const std::string& caption = deed.control->caption();
    const bool pressed = deed.kind == Deed::Kind::Press && !caption.empty();
    began(lineOf(deed) + (pressed ? " \"" + caption + "\"" : ""));
    starts_.push_back(Clock::now());
    told_.clear();
}

void Journal::deedEnds(const Deed&) {
    if (starts_.empty()) return;
    const double seconds = std::chrono::duration<double>(Clock::now() - starts_.back()).count();
    starts_.pop_back();
    if (seconds >= worthTelling) ledTo("заняло " + toText(Fix(seconds * 10) / 10) + " с");
}

void Journal::formShown(Form& form) {
    if (desk_.programActs())
        ledTo("открыта " + form.name());
    else
        began("show " + form.name());
}

void Journal::formLeaving(Form& form) {
    if (desk_.programActs())
        ledTo("закрыта " + form.name());
    else
        began("close " + form.name());
}

void Journal::messageShown(const Message& told) {
    ledTo("сообщение \"" + told.title + "\": " + told.text);
    if (!told.cause.empty()) ledTo("причина: " + told.cause);
}

void Journal::answered(const std::string& question, bool yes) {
    ledTo("вопрос \"" + question + "\": " + (yes ? "да" : "нет"));
}

/// A file that a run appends to in every passage is told once.
void Journal::fileUsed(FileTouch use, const std::filesystem::path& file) {
    const std::filesystem::path inside = file.lexically_relative(tree_);
    const bool outside = inside.empty() || *inside.begin() == "..";
    std::string what = wordOf(use) + (outside ? file : inside).string();
    if (told_.insert(what).second) ledTo(what);
}

}  // namespace tarvex
