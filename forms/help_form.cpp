#include "forms/help_form.h"

#include "forms/help_text.h"

namespace tarvex {

namespace {

std::vector<int> numbersOf(const Desk& desk) {
    std::vector<int> numbers;
    for (const std::string& name : desk.names()) numbers.push_back(formNumber(name));
    return numbers;
}

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

HelpPage roadPage() { return {"Главный путь", help::mainRoad}; }
HelpPage rulesPage() { return {"Числа и файлы", help::rules}; }

}  // namespace

HelpForm::HelpForm(Laboratory& lab)
    : Form(lab.desk, formName, "Подсказка      Tarvex7m - форма 3"),
      Option4(this, numbersOf(lab.desk), formSpec) {
    Command1.onPress([this] { close(); });
    Command2.onPress([this] { find(); });
    const auto showPage = [this] { Text1.setText(textOf(chosenPage())); };
    for (OptionButton* option : {&Option1, &Option2, &Option3}) option->onChoose(showPage);
    std::vector<Layout> forms;
    for (const int number : numbersOf(lab.desk)) {
        Option4(number).onChoose(showPage);
        forms.push_back(Option4(number));
    }
    layout_ = column({row({fields(1, {Text2}), Command2, stretch()}),
                      row({column({frame("Раздел", column({Option1, Option2, Option3})),
                                   frame("Кнопки и поля форм", scrolled(column(std::move(forms))))}),
                           Text1}),
                      row({stretch(), Command1})});
}

void HelpForm::load() { Text1.setText(textOf(chosenPage())); }

HelpPage HelpForm::chosenPage() const {
    if (Option1.on()) return roadPage();
    if (Option2.on()) return rulesPage();
    for (const int number : numbersOf(desk()))
        if (Option4(number).on()) return pageOfForm(desk(), "Form" + std::to_string(number));
    return listOfForms(desk());
}

std::vector<HelpPage> HelpForm::pages() const {
    std::vector<HelpPage> all{roadPage(), rulesPage(), listOfForms(desk())};
    for (const std::string& name : desk().names()) all.push_back(pageOfForm(desk(), name));
    return all;
}

void HelpForm::find() {
    const bool nothing = Text2.text().find_first_not_of(' ') == std::string::npos;
    Text1.setText(nothing ? textOf(chosenPage()) : searchHelp(pages(), Text2.text()));
}

void openHelp(Desk& desk, const Form& asking) {
    desk.show(HelpForm::formName);
    desk.get<HelpForm>().Option4(formNumber(asking.name())).choose();
}

}  // namespace tarvex
