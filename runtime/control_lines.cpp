#include "runtime/control_lines.h"

#include <fmt/format.h>

#include "runtime/form.h"
#include "runtime/picture.h"

namespace tarvex {

namespace {

const char* onOff(bool on) { return on ? "on" : "off"; }

}  // namespace

bool isInput(const Control& control) {
    switch (control.kind()) {
        case Control::Kind::Text:
            return control.visible() && !static_cast<const TextField&>(control).readOnly();
        case Control::Kind::Check:
        case Control::Kind::Option:
        case Control::Kind::Scroll:
            return true;
        default:
            return false;
    }
}

std::string referenceOf(const Control& control) { return control.form().name() + "." + control.name(); }

std::string valueOf(const Control& control) {
    switch (control.kind()) {
        case Control::Kind::Text:
            return static_cast<const TextField&>(control).text();
        case Control::Kind::Check:
            return onOff(static_cast<const CheckBox&>(control).on());
        case Control::Kind::Option:
            return onOff(static_cast<const OptionButton&>(control).on());
        case Control::Kind::Scroll:
            return std::to_string(static_cast<const ScrollBar&>(control).value());
        default:
            return control.caption();
    }
}

void giveValue(Control& input, const std::string& value) {
    switch (input.kind()) {
        case Control::Kind::Text:
            return static_cast<TextField&>(input).setText(value);
        case Control::Kind::Check:
            return static_cast<CheckBox&>(input).set(value == "on");
        case Control::Kind::Option:
            return value == "off" ? void() : static_cast<OptionButton&>(input).choose();
        case Control::Kind::Scroll:
            return static_cast<ScrollBar&>(input).setValue(toInt32(toNumber(value)));
        default:
            throw Failure("в " + referenceOf(input) + " ничего не вводят");
    }
}

void putValue(Control& input, const std::string& value) {
    switch (input.kind()) {
        case Control::Kind::Text:
            return static_cast<TextField&>(input).put(value);
        case Control::Kind::Check:
            return static_cast<CheckBox&>(input).put(value == "on");
        case Control::Kind::Option:
            return value == "off" ? void() : static_cast<OptionButton&>(input).put();
        case Control::Kind::Scroll:
            return static_cast<ScrollBar&>(input).put(toInt32(toNumber(value)));
        default:
            throw Failure("в " + referenceOf(input) + " ничего не вводят");
    }
}

std::string lineOf(const Deed& deed) {
    const Control& control = *deed.control;
    std::string name = referenceOf(control);
    switch (deed.kind) {
        case Deed::Kind::Press:
            return name;
        case Deed::Kind::Set:
            return name + " = " + std::string(deed.value);
        case Deed::Kind::Put:
            return "keep " + name + " = " + std::string(deed.value);
        case Deed::Kind::Follow:
            return fmt::format("{} follow {}", name, deed.x + 1);
        default:
            break;
    }
    return fmt::format("{} {} {},{} {}", name, deed.kind == Deed::Kind::Click ? "click" : "release", deed.x,
                       deed.y, deed.left ? "left" : "right");
}

}  // namespace tarvex
