#include "runtime/undo_stack.h"

#include <algorithm>

#include "runtime/control_lines.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

/// The option of the same group that is on; null where none is.
const Control* chosenBefore(const OptionButton& chosen) {
    for (const Control* control : chosen.form().controls()) {
        if (control->kind() != Control::Kind::Option) continue;
        const auto* option = static_cast<const OptionButton*>(control);
        if (option->group() == chosen.group() && option->on()) return control;
    }
    return nullptr;
}

}  // namespace

UndoStack::UndoStack(Desk& desk) : desk_(desk) { desk_.watch(*this); }

UndoStack::~UndoStack() { desk_.unwatch(*this); }

UndoStack::Edit UndoStack::editOf(const Deed& deed) {
    if (deed.kind != Deed::Kind::Set || !isInput(*deed.control)) return {};
    const Control* control = deed.control;
    if (control->kind() == Control::Kind::Option)
        control = chosenBefore(static_cast<const OptionButton&>(*control));
    if (control == nullptr) return {};
    const std::string& form = control->form().name();
    return {form, {form, control->name(), valueOf(*control)}, {}};
}

void UndoStack::deedBegins(const Deed& deed) { open_.push_back(undoing_ ? Edit{} : editOf(deed)); }

void UndoStack::programWrites(Control& control) {
    if (open_.empty() || open_.back().form.empty() || !isInput(control)) return;
    open_.back().overwritten.push_back({control.form().name(), control.name(), valueOf(control)});
}

Control* UndoStack::find(const Value& value) const {
    return desk_.isLoaded(value.form) ? desk_.form(value.form).find(value.control) : nullptr;
}

bool UndoStack::changedSomething(const Edit& edit) const {
    const Control* control = find(edit.before);
    return control != nullptr && valueOf(*control) != edit.before.value;
}

void UndoStack::deedEnds(const Deed& deed) {
    if (open_.empty()) return;
    Edit edit = std::move(open_.back());
    open_.pop_back();
    if (edit.form.empty() || !changedSomething(edit)) return;
    const bool sameDrag = deed.control->kind() == Control::Kind::Scroll && !edits_.empty() &&
                          edits_.back().form == edit.form &&
                          edits_.back().before.control == edit.before.control;
    if (sameDrag) return;
    edits_.push_back(std::move(edit));
    if (edits_.size() > most) edits_.pop_front();
}

void UndoStack::formLeaving(Form& form) {
    std::erase_if(edits_, [&](const Edit& edit) { return edit.form == form.name(); });
}

bool UndoStack::undo() {
    if (edits_.empty()) return false;
    const Edit edit = std::move(edits_.back());
    edits_.pop_back();
    Control* control = find(edit.before);
    if (control == nullptr) return false;
    desk_.turnTo(control->form());
    undoing_ = true;
    giveValue(*control, edit.before.value);
    for (auto one = edit.overwritten.rbegin(); one != edit.overwritten.rend(); ++one)
        if (Control* other = find(*one)) putValue(*other, one->value);
    undoing_ = false;
    if (Control* still = find(edit.before)) desk_.screen().pointAt(*still);
    return true;
}

}  // namespace tarvex
