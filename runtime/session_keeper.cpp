#include "runtime/session_keeper.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "runtime/control_lines.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

/// Choices come first: they enable fields.
constexpr std::array order = {Control::Kind::Option, Control::Kind::Check, Control::Kind::Scroll,
                              Control::Kind::Text};

/// A line of a script holds no text of several lines.
bool fitsALine(const std::string& text) { return text.find_first_of("\r\n") == std::string::npos; }

template <class Items>
void append(std::vector<std::string>& lines, const Items& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

}  // namespace

SessionKeeper::SessionKeeper(Desk& desk, std::set<std::string> steps)
    : desk_(desk), steps_(std::move(steps)) {
    desk_.watch(*this);
}

SessionKeeper::~SessionKeeper() { desk_.unwatch(*this); }

SessionKeeper::Values SessionKeeper::valuesOf(const Form& form) const {
    Values values;
    for (const Control* control : form.controls())
        if (isInput(*control)) values[control->name()] = valueOf(*control);
    return values;
}

void SessionKeeper::changesOf(const Form& form, std::vector<std::string>& lines,
                              std::vector<std::string>& kept) const {
    const auto known = given_.find(form.name());
    const Values none, &given = known == given_.end() ? none : known->second;
    for (const Control::Kind kind : order)
        for (Control* control : form.controls()) {
            if (control->kind() != kind || !isInput(*control)) continue;
            const std::string value = valueOf(*control);
            // an option goes off by the choice of another
            if (!fitsALine(value) || (kind == Control::Kind::Option && value == "off")) continue;
            const auto before = given.find(control->name());
            const bool differs = before == given.end() || before->second != value;
            if (differs && control->enabled())
                lines.push_back(lineOf({.control = control, .kind = Deed::Kind::Set, .value = value}));
            if ((differs && !control->enabled()) || overwritten_.contains(referenceOf(*control)))
                kept.push_back(lineOf({.control = control, .kind = Deed::Kind::Put, .value = value}));
        }
}

std::vector<std::string> SessionKeeper::changes() const {
    std::vector<std::string> lines, kept;
    for (const std::string& name : desk_.names())
        if (desk_.isLoaded(name)) changesOf(desk_.form(name), lines, kept);
    append(lines, kept);
    return lines;
}

std::vector<std::string> SessionKeeper::lines() const {
    std::vector<std::string> all;
    if (stepsLost_)
        all.emplace_back("# Начало сеанса не поместилось: первые загрузки и расчеты не повторяются");
    for (const auto& step : done_) append(all, step);
    append(all, changes());
    for (const std::string& name : shown_) all.push_back("show " + name);
    for (const std::string& name : shown_)
        if (const std::string place = desk_.screen().place(desk_.form(name)); !place.empty())
            all.push_back(fmt::format("place {} {}", name, place));
    for (const std::string& name : replayed_)
        if (!desk_.isLoaded(name) && !shown_.empty()) all.push_back("close " + name);  // never the last one
    if (const auto run = std::find_if(deeds_.begin(), deeds_.end(),
                                      [](const Deed& deed) { return deed.kind == Deed::Kind::Press; });
        run != deeds_.end())
        all.push_back(interruptedLine + run->control->form().name() + ", \"" + run->control->caption() +
                      "\"");
    return all;
}

void SessionKeeper::takeAllAsGiven() {
    for (const std::string& name : desk_.names())
        if (desk_.isLoaded(name)) given_[name] = valuesOf(desk_.form(name));
    overwritten_.clear();
}

void SessionKeeper::deedBegins(const Deed& deed) {
    deeds_.push_back(deed);
    used_.insert(deed.control->form().name());
    if (deed.kind == Deed::Kind::Put) overwritten_.insert(referenceOf(*deed.control));
    if (deed.kind != Deed::Kind::Press || !steps_.contains(referenceOf(*deed.control))) return;
    std::vector<std::string> step = changes();
    step.push_back(lineOf(deed));
    for (const std::string& line : step) {
        const std::size_t begin = line.starts_with("keep ") ? 5 : 0;
        replayed_.insert(line.substr(begin, line.find('.') - begin));
    }
    done_.push_back(std::move(step));
    if (done_.size() > mostSteps) {
        done_.pop_front();
        stepsLost_ = true;
    }
}

void SessionKeeper::deedEnds(const Deed& deed) {
    std::erase_if(deeds_,
                  [&](const Deed& one) { return one.control == deed.control && one.kind == deed.kind; });
    if (deed.kind == Deed::Kind::Press && steps_.contains(referenceOf(*deed.control))) takeAllAsGiven();
}

void SessionKeeper::programWrites(Control& control) {
    if (deeds_.empty() || deeds_.back().kind != Deed::Kind::Set || deeds_.back().control == &control) return;
    if (isInput(control)) overwritten_.insert(referenceOf(control));
}

void SessionKeeper::formLoaded(Form& form) {
    if (!given_.contains(form.name())) given_[form.name()] = valuesOf(form);
    const bool inAStep = std::any_of(deeds_.begin(), deeds_.end(), [this](const Deed& deed) {
        return deed.kind == Deed::Kind::Press && steps_.contains(referenceOf(*deed.control));
    });
    if (inAStep) replayed_.insert(form.name());
}

void SessionKeeper::formShown(Form& form) {
    if (replayed_.empty()) replayed_.insert(form.name());  // the first one opens by itself
    std::erase(shown_, form.name());
    shown_.push_back(form.name());
    leaving_ = false;
}

void SessionKeeper::turnedTo(Form& form) {
    if (std::erase(shown_, form.name()) > 0) shown_.push_back(form.name());
}

void SessionKeeper::formLeaving(Form& form) {
    if (!leaving_) last_ = lines();
    std::erase(shown_, form.name());
    std::erase_if(overwritten_, [&](const std::string& name) { return name.starts_with(form.name() + "."); });
    if (!replayed_.contains(form.name())) given_.erase(form.name());
}

void SessionKeeper::allLeaving() {
    if (shown_.empty()) return;  // they have left already
    last_ = lines();
    leaving_ = true;
}

}  // namespace tarvex
