#include "runtime/desk.h"

#include <algorithm>
#include <utility>

#include "core/arithmetic.h"
#include "core/failure.h"

namespace tarvex {

Desk::~Desk() {
    loaded_.clear();
    leaving_.clear();
}

void Desk::tell(Message told) {
    const FlagsKept flags;
    told.cause = shortened(std::move(told.cause));
    if (told.error && acting_ != nullptr) acting_->setStatus(told.cause);
    if (const auto found = loaded_.find(suspectForm_); found != loaded_.end())
        if (Control* field = found->second->find(suspectField_); field != nullptr) screen_.pointAt(*field);
    suspectForm_.clear();
    tellObservers([&](DeskObserver& observer) { observer.messageShown(told); });
    screen_.message(told);
}

std::string Desk::shortened(std::string cause) const {
    if (!folder_.empty())
        for (std::size_t at = 0; (at = cause.find(folder_, at)) != std::string::npos;)
            cause.erase(at, folder_.size());
    return cause;
}

bool Desk::ask(const std::string& question, const std::string& title) {
    const FlagsKept flags;
    const bool yes = screen_.ask(question, title);
    tellObservers([&](DeskObserver& observer) { observer.answered(question, yes); });
    return yes;
}

void Desk::suspect(const Control& field) {
    suspectForm_ = field.form().name();
    suspectField_ = field.name();
}

/// The user acts inside a handler: what he does is begun and ended at this depth, and an error in it is none
/// of the calculation's.
class Desk::GivingWay {
public:
    explicit GivingWay(Desk& desk)
        : desk_(desk),
          actor_(desk.actor_),
          doing_(std::exchange(desk.doing_, 0)),
          base_(std::exchange(desk.base_, desk.depth_)),
          givingWay_(std::exchange(desk.givingWay_, true)),
          disturbing_(std::exchange(desk.disturbing_, false)),
          acting_(std::exchange(desk.acting_, nullptr)) {
        desk.acted_(actor_);
    }
    ~GivingWay() {
        desk_.actor_ = actor_;
        desk_.base_ = base_;
        desk_.givingWay_ = givingWay_;
        desk_.disturbing_ = disturbing_;
        desk_.doing_ = doing_;
        desk_.acting_ = acting_;
    }
    GivingWay(const GivingWay&) = delete;
    GivingWay& operator=(const GivingWay&) = delete;

private:
    const FlagsKept flags_;
    Desk& desk_;
    std::string actor_;
    int doing_;
    int base_;
    bool givingWay_, disturbing_;
    Form* acting_;
};

void Desk::yield() {
    tellObservers([](DeskObserver& observer) { observer.givingWay(); });
    const GivingWay way(*this);
    screen_.yield();
}

void Desk::pause(int milliseconds) {
    const GivingWay way(*this);
    screen_.pause(milliseconds);
}

// ------------------------------------------------------------------ calculations

void Desk::calculationEnds(const Form& form) {
    const auto last = std::find(calculations_.rbegin(), calculations_.rend(), &form);
    calculations_.erase(last.base() - 1);
}

bool Desk::calculating(const std::string& formName) const {
    return givingWay_ && std::any_of(calculations_.begin(), calculations_.end(),
                                     [&](const Form* form) { return form->name() == formName; });
}

bool Desk::disturbs(const Form& form, Disturbs what) const {
    // what a calculation does itself is its own affair, and so is what a form presses while it opens
    if (!givingWay_ || opening_ > 0) return false;
    return std::any_of(calculations_.begin(), calculations_.end(), [&](const Form* one) {
        return what == Disturbs::All || (what == Disturbs::Own && one == &form) ||
               (what == Disturbs::Others && one != &form);
    });
}

bool Desk::confirmDisturbing(const std::string& command) {
    std::string forms;
    for (const Form* form : calculations_)
        if (const std::string number = form->name().substr(std::string("Form").size());
            forms.find(number) == std::string::npos)
            forms += (forms.empty() ? "" : ", ") + number;
    return screen_.confirmDisturbing(
        "Идет расчет (форма " + forms + "). Команда «" + command + "» нарушит его или прервет.\r\nВыполнить?",
        "Tarvex7");
}

/// Held while a form's load or activation runs.  Inside a calculation it writes nothing that the calculation
/// reads, unless it is part of a command that is meant to disturb it.
class Desk::Opening {
public:
    Opening(Desk& desk, const std::string& form)
        : held(desk.calculating() && !desk.disturbing_ && desk.keeper_), desk_(desk), actor_(desk.actor_) {
        desk.acted_(actor_);
        desk.actor_ = form;
        ++desk.opening_;
        if (held) putBack_ = desk.keeper_();
    }
    ~Opening() {
        --desk_.opening_;
        if (held) putBack_();
        desk_.acted_(desk_.actor_);
        desk_.actor_ = actor_;
    }
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

    const bool held;

private:
    Desk& desk_;
    std::string actor_;
    std::function<void()> putBack_;
};

void Desk::acts(const Form& form) {
    if (depth_ == base_) actor_ = form.name();
}

void Desk::settle() {
    if (settling_ || depth_ != base_) return;
    settling_ = true;
    acted_(actor_);
    for (const auto& [name, form] : loaded_) form->settled();
    settling_ = false;
}

// ------------------------------------------------------------------ forms

void Desk::add(const std::string& name, Maker maker) {
    if (!makers_.contains(name)) order_.push_back(name);
    makers_[name] = std::move(maker);
}

std::unique_ptr<Form> Desk::describe(const std::string& name) const {
    const auto maker = makers_.find(name);
    if (maker == makers_.end()) throw Failure("нет формы " + name);
    const Doing making(*this);
    return maker->second();
}

Form& Desk::form(const std::string& name) {
    if (const auto found = loaded_.find(name); found != loaded_.end()) return *found->second;
    const InHandler alive(*this);
    const Opening opening(*this, name);
    Form& made = *(loaded_[name] = describe(name));
    {
        const Doing loading(*this);
        made.load();
    }
    tellObservers([&](DeskObserver& observer) { observer.formLoaded(made); });
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
    tellObservers([&](DeskObserver& observer) { observer.formShown(shown); });
    turnTo(shown);
}

void Desk::turnTo(Form& form) {
    if (active_ == form.name() && (heldBack_ != active_ || calculating())) return;
    active_ = form.name();
    const InHandler alive(*this);
    tellObservers([&](DeskObserver& observer) { observer.turnedTo(form); });
    const Opening opening(*this, active_);
    heldBack_ = opening.held ? active_ : "";
    const Doing activating(*this);
    form.guarded({[&form] { form.activate(); }, {}});
}

void Desk::unload(const std::string& name) {
    const auto found = loaded_.find(name);
    if (found == loaded_.end()) return;
    const InHandler alive(*this);
    Form& going = *found->second;
    tellObservers([&](DeskObserver& observer) { observer.formLeaving(going); });
    const Doing unloading(*this);
    going.guarded({[&going] { going.unload(); }, {}});
    if (active_ == name) active_.clear();
    leaving_.push_back(std::move(found->second));
    loaded_.erase(name);
    screen_.formUnloaded(going);
}

void Desk::unloadAll(const std::string& first) {
    const InHandler alive(*this);
    tellObservers([](DeskObserver& observer) { observer.allLeaving(); });
    const Doing leaving(*this);
    unload(first);
    for (const std::string& name : order_) unload(name);
}

void Desk::watch(DeskObserver& observer) { observers_.push_back(&observer); }

void Desk::unwatch(DeskObserver& observer) { std::erase(observers_, &observer); }

template <class Event>
void Desk::tellObservers(Event event) {
    for (DeskObserver* observer : observers_) event(*observer);
}

Desk::Doing::Doing(Desk& desk, const Deed& deed) : desk_(desk), deed_(deed) {
    if (desk.observers_.empty()) {
        ++desk.doing_;
        return;
    }
    if (desk.doing_ == 0) {
        desk.acts(deed.control->form());
        ++desk.depth_;  // the form outlives the telling of its last deed
        told_ = &desk;
        desk.tellObservers([&](DeskObserver& observer) { observer.deedBegins(deed_); });
        deed_.value = {};  // its text goes with the call
    } else {
        desk.tellObservers([&](DeskObserver& observer) { observer.programWrites(*deed_.control); });
    }
    ++desk.doing_;
}

Desk::Doing::~Doing() {
    --desk_.doing_;
    if (told_ == nullptr) return;
    told_->tellObservers([&](DeskObserver& observer) { observer.deedEnds(deed_); });
    told_->leaveHandler();
}

void Desk::leaveHandler() {
    if (--depth_ == 0) {
        leaving_.clear();
        suspectForm_.clear();
    }
    settle();
}

}  // namespace tarvex
