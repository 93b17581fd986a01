#include "runtime/form.h"

#include "core/arithmetic.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

class Count {
public:
    explicit Count(int& count) : count_(count) { ++count_; }
    ~Count() { --count_; }
    Count(const Count&) = delete;
    Count& operator=(const Count&) = delete;

private:
    int& count_;
};

}  // namespace

Form::Form(Desk& desk, std::string name, std::string title)
    : desk_(desk), name_(std::move(name)), title_(std::move(title)) {}

Control* Form::find(const std::string& name) const {
    for (Control* control : controls_)
        if (control->name() == name) return control;
    return nullptr;
}

void Form::guarded(const Handler& handler) {
    if (!handler.action) return;
    desk_.acts(*this);
    const Desk::InHandler alive(desk_);
    const Desk::Acting acting(desk_, *this);
    const Handler kept = handler;  // it may be replaced while it runs
    Message told;
    try {
        const Count running(running_);
        const ArithmeticGuard guard;
        kept.action();
        guard.check();
        return;
    } catch (const Refusal& refusal) {
        told = {refusal.text, refusal.title, refusal.cause, true};
    } catch (const std::exception& failure) {
        told = {kept.message.text, kept.message.title, causeOf(failure), true};
    }
    setStatus(desk_.shortened(told.cause));
    desk_.tell(told);  // outside the handling: what other handlers do meanwhile is not caused by this
}

void Form::act(const Handler& handler) {
    if (handler.action && running_ == 0) setStatus("");
    guarded(handler);
}

void Form::setStatus(std::string text) {
    if (status_ == text) return;
    status_ = std::move(text);
    desk_.screen().statusChanged(*this);
}

Form::Running::Running(Form& form) : form_(form) { form.desk_.calculationBegins(form); }

Form::Running::~Running() {
    form_.desk_.calculationEnds(form_);
    form_.progress(-1);
}

void Form::Running::giveWay() {
    form_.progress(endless);
    form_.desk_.yield();
}

void Form::progress(double share) { desk_.screen().progress(*this, share); }

void Form::opens(CommandButton& command, const std::string& formName) {
    command.setLeadsTo(formName);
    if (desk_.knows(formName)) {
        command.onPress([this, formName] { desk_.show(formName); });
    } else {
        command.setEnabled(false);
        command.setHint("Форма еще не готова");
    }
}

void Form::close() { desk_.unload(name_); }

void Form::controlChanged(Control& control) {
    desk_.screen().controlChanged(control);
    desk_.settle();
}

}  // namespace tarvex
