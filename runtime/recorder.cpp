#include "runtime/recorder.h"

#include <utility>

#include "runtime/control_lines.h"
#include "runtime/desk.h"
#include "runtime/session_keeper.h"

namespace tarvex {

Recorder::Recorder(Desk& desk, const SessionKeeper& session) : desk_(desk), session_(session) {
    desk_.watch(*this);
}

Recorder::~Recorder() { desk_.unwatch(*this); }

void Recorder::start() {
    lines_ = session_.lines();
    lines_.emplace_back("# Записанные действия");
    turned_.clear();
    depth_ = 0;
    on_ = true;
}

std::vector<std::string> Recorder::soFar() {
    addTurn();
    return lines_;
}

std::vector<std::string> Recorder::stop() {
    addTurn();
    on_ = false;
    return std::exchange(lines_, {});
}

/// Before the line of the deed that goes on.
void Recorder::insert(const std::string& line) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(outer_), line);
    ++outer_;
}

void Recorder::add(const std::string& line) {
    if (depth_ == 0)
        lines_.push_back(line);
    else
        insert("at yield " + std::to_string(yields_) + " " + line);
}

void Recorder::addTurn() {
    if (!turned_.empty()) add("show " + turned_);
    turned_.clear();
}

void Recorder::deedBegins(const Deed& deed) {
    if (!on_) return;
    if (turned_ == deed.control->form().name()) turned_.clear();  // the line turns to it
    addTurn();
    if (depth_ == 0) {
        outer_ = lines_.size();
        yields_ = 0;
    }
    add(lineOf(deed));
    ++depth_;
}

void Recorder::deedEnds(const Deed&) {
    if (depth_ > 0) --depth_;
}

void Recorder::formShown(Form& form) {
    if (!on_ || desk_.programActs()) return;
    addTurn();
    add("show " + form.name());
    shown_ = form.name();
}

void Recorder::turnedTo(Form& form) {
    if (!on_ || desk_.programActs()) return;
    if (std::exchange(shown_, "") == form.name()) return;  // a form that opens is turned to
    addTurn();
    turned_ = form.name();
}

void Recorder::formLeaving(Form& form) {
    if (!on_ || desk_.programActs()) return;
    if (turned_ == form.name()) turned_.clear();
    addTurn();
    add("close " + form.name());
}

void Recorder::answered(const std::string&, bool yes) {
    if (on_ && depth_ > 0) insert(yes ? "answer yes" : "answer no");
}

}  // namespace tarvex
