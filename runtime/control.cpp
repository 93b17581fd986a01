#include "runtime/control.h"

#include <algorithm>

#include "core/failure.h"
#include "runtime/desk.h"

namespace tarvex {

Control::Control(Form* form, Kind kind, std::string name, std::string caption, std::string hint)
    : form_(form), kind_(kind), name_(std::move(name)), caption_(std::move(caption)), hint_(std::move(hint)) {
    form_->enter(*this);
}

void Control::changed() { form_->controlChanged(*this); }
void Control::run(const Handler& handler) { form_->act(handler); }

void Control::setCaption(std::string caption) {
    caption_ = std::move(caption);
    changed();
}

void Control::setEnabled(bool on) {
    enabled_ = on;
    changed();
}

void Control::setVisible(bool on) {
    visible_ = on;
    changed();
}

void Control::setHint(std::string hint) {
    hint_ = std::move(hint);
    changed();
}

TextField::TextField(Form* form, Spec spec)
    : Control(form, Kind::Text, std::move(spec.name), std::move(spec.label), std::move(spec.hint)),
      text_(std::move(spec.text)),
      readOnly_(spec.readOnly),
      lines_(spec.lines),
      width_(spec.width) {
    if (spec.hidden) setVisible(false);
}

void TextField::setText(std::string text) {
    const Desk::Doing doing(form().desk(), {.control = this, .kind = Deed::Kind::Set, .value = text});
    text_ = std::move(text);
    changed();
    run(change_);
}

void TextField::put(std::string text) {
    const Desk::Doing doing(form().desk(), {.control = this, .kind = Deed::Kind::Put, .value = text});
    text_ = std::move(text);
    changed();
}

void TextField::follow(int line) {
    if (!leads(line)) return;
    const Desk::Doing doing(form().desk(),
                            {.control = this, .kind = Deed::Kind::Follow, .x = static_cast<double>(line)});
    run({[this, line] { follow_(line); }, {}});
}

template <class Read>
auto TextField::pointedAt(Read read) const {
    try {
        return read();
    } catch (const OverflowFailure& failure) {
        form().desk().suspect(*this);
        throw OverflowFailure(meaning() + ": " + failure.what());
    } catch (const Failure& failure) {
        form().desk().suspect(*this);
        throw ConversionFailure(meaning() + ": " + failure.what());
    }
}

/// "поле Text34 (Год)": the caption, or the first words of the hint.
std::string TextField::meaning() const {
    std::string words = caption().empty() ? hint().substr(0, hint().find_first_of(":;,.(")) : caption();
    words.erase(words.find_last_not_of(" =:") + 1);
    return "поле " + name() + (words.empty() ? "" : " (" + words + ")");
}

double TextField::number() const {
    return pointedAt([this] { return toNumber(text_); });
}
std::int16_t TextField::int16() const {
    return pointedAt([this] { return toInt16(toNumber(text_)); });
}
std::int32_t TextField::int32() const {
    return pointedAt([this] { return toInt32(toNumber(text_)); });
}

CheckBox::CheckBox(Form* form, Spec spec)
    : Control(form, Kind::Check, std::move(spec.name), std::move(spec.caption), std::move(spec.hint)),
      on_(spec.on) {}

void CheckBox::set(bool on) {
    if (on_ == on) return;
    const Desk::Doing doing(form().desk(),
                            {.control = this, .kind = Deed::Kind::Set, .value = on ? "on" : "off"});
    on_ = on;
    changed();
    run(change_);
}

void CheckBox::put(bool on) {
    const Desk::Doing doing(form().desk(),
                            {.control = this, .kind = Deed::Kind::Put, .value = on ? "on" : "off"});
    on_ = on;
    changed();
}

OptionButton::OptionButton(Form* form, Spec spec)
    : Control(form, Kind::Option, std::move(spec.name), std::move(spec.caption), std::move(spec.hint)),
      on_(spec.on),
      group_(std::move(spec.group)) {}

void OptionButton::switchOn() {
    for (Control* control : form().controls()) {
        auto* other = control->kind() == Kind::Option ? static_cast<OptionButton*>(control) : nullptr;
        if (other == nullptr || other == this || other->group_ != group_ || !other->on_) continue;
        other->on_ = false;
        other->changed();
    }
    on_ = true;
    changed();
}

void OptionButton::choose() {
    const Desk::Doing doing(form().desk(), {.control = this, .kind = Deed::Kind::Set, .value = "on"});
    switchOn();
    run(choice_);
}

void OptionButton::put() {
    const Desk::Doing doing(form().desk(), {.control = this, .kind = Deed::Kind::Put, .value = "on"});
    switchOn();
}

CommandButton::CommandButton(Form* form, Spec spec)
    : Control(form, Kind::Command, std::move(spec.name), std::move(spec.caption), std::move(spec.hint)),
      isDefault_(spec.isDefault),
      disturbs_(spec.disturbs) {}

void CommandButton::press() {
    if (!enabled()) return;
    Desk& desk = form().desk();
    if (!desk.disturbs(form(), disturbs_)) {
        const Desk::Doing doing(desk, {.control = this, .kind = Deed::Kind::Press});
        return run(press_);
    }
    if (!desk.confirmDisturbing(caption())) return;
    const Desk::Disturbing meant(desk);
    const Desk::Doing doing(desk, {.control = this, .kind = Deed::Kind::Press});
    run(press_);
}

void Label::setWarning(bool on) {
    if (warning_ == on) return;
    warning_ = on;
    changed();
}

ScrollBar::ScrollBar(Form* form, Spec spec)
    : Control(form, Kind::Scroll, std::move(spec.name), "", std::move(spec.hint)),
      min_(spec.min),
      max_(spec.max),
      value_(spec.value) {}

void ScrollBar::setValue(int value) {
    value = std::clamp(value, min_, max_);
    if (value == value_) return;
    const Desk::Doing doing(form().desk(),
                            {.control = this, .kind = Deed::Kind::Set, .value = std::to_string(value)});
    value_ = value;
    changed();
    run(change_);
}

void ScrollBar::put(int value) {
    const Desk::Doing doing(form().desk(),
                            {.control = this, .kind = Deed::Kind::Put, .value = std::to_string(value)});
    value_ = std::clamp(value, min_, max_);
    changed();
}

}  // namespace tarvex
