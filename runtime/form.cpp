#include "runtime/form.h"

#include "core/arithmetic.h"
#include "runtime/desk.h"

namespace tarvex {

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
    // The handler may be replaced or its form unloaded while it runs: keep what is needed.
    const Handler kept = handler;
    Desk& desk = desk_;
    try {
        const ArithmeticGuard guard;
        kept.action();
        guard.check();
    } catch (const Refusal& refusal) {
        desk.message(refusal.text, refusal.title);
    } catch (const std::exception&) {
        desk.message(kept.message.text, kept.message.title);
    }
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
