#include "runtime/desk.h"

#include "core/arithmetic.h"
#include "core/failure.h"

namespace tarvex {

Desk::~Desk() {
    loaded_.clear();
    leaving_.clear();
}

void Desk::message(const std::string& text, const std::string& title) {
    const FlagsKept flags;
    if (const auto found = loaded_.find(suspectForm_); found != loaded_.end())
        if (Control* field = found->second->find(suspectField_); field != nullptr) screen_.pointAt(*field);
    suspectForm_.clear();
    screen_.message(text, title);
}

void Desk::suspect(const Control& field) {
    suspectForm_ = field.form().name();
    suspectField_ = field.name();
}

void Desk::yield() {
    const FlagsKept flags;
    screen_.yield();
}

void Desk::add(const std::string& name, Maker maker) {
    if (!makers_.contains(name)) order_.push_back(name);
    makers_[name] = std::move(maker);
}

std::unique_ptr<Form> Desk::describe(const std::string& name) const {
    const auto maker = makers_.find(name);
    if (maker == makers_.end()) throw Failure("no form " + name);
    return maker->second();
}

Form& Desk::form(const std::string& name) {
    if (const auto found = loaded_.find(name); found != loaded_.end()) return *found->second;
    const InHandler alive(*this);
    Form& made = *(loaded_[name] = describe(name));
    made.load();
    return made;
}

void Desk::loadAndUnload(const std::string& name) {
    if (isLoaded(name)) return;
    form(name);
    unload(name);
}

void Desk::show(const std::string& name) {
    Form& shown = form(name);
    screen_.formShown(shown);
    turnTo(shown);
}

void Desk::turnTo(Form& form) {
    if (active_ == form.name()) return;
    active_ = form.name();
    const InHandler alive(*this);
    form.guarded({[&form] { form.activate(); }, {}});
}

void Desk::unload(const std::string& name) {
    const auto found = loaded_.find(name);
    if (found == loaded_.end()) return;
    const InHandler alive(*this);
    Form& going = *found->second;
    going.guarded({[&going] { going.unload(); }, {}});
    if (active_ == name) active_.clear();
    leaving_.push_back(std::move(found->second));
    loaded_.erase(name);
    screen_.formUnloaded(going);
}

void Desk::unloadAll(const std::string& first) {
    const InHandler alive(*this);
    unload(first);
    for (const std::string& name : order_) unload(name);
}

void Desk::leaveHandler() {
    if (--depth_ > 0) return;
    leaving_.clear();
    suspectForm_.clear();
}

}  // namespace tarvex
