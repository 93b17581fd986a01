#include "forms/help_controls.h"

#include "forms/help_pages.h"
#include "forms/help_text.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

/// The first words of what a form is for.
std::string subjectOf(int number) {
    for (const help::FormText& text : help::formTexts)
        if (text.number == number) return text.purpose.substr(0, text.purpose.find_first_of(":;,"));
    return "";
}

OptionButton::Spec formSpec(int number) {
    OptionButton::Spec spec{
        .name = "Option4", .caption = std::to_string(number) + ". " + subjectOf(number), .group = "page"};
    spec.hint = "Кнопки и поля формы " + std::to_string(number);
    return spec;
}

}  // namespace

std::vector<int> HelpControls::numbersOf(const Desk& desk) {
    std::vector<int> numbers;
    for (const std::string& name : desk.names()) numbers.push_back(formNumber(name));
    return numbers;
}

HelpControls::HelpControls(Desk& desk, const std::string& name, const std::string& title)
    : Form(desk, name, title), formPage(this, numbersOf(desk), formSpec) {}

}  // namespace tarvex
