#include "forms/help_form.h"

#include "forms/help_text.h"

namespace tarvex {

namespace {

HelpPage roadPage() { return {"Главный путь", help::mainRoad}; }
HelpPage rulesPage() { return {"Числа и файлы", help::rules}; }

}  // namespace

HelpForm::HelpForm(Laboratory& lab) : HelpControls(lab.desk, formName, "Подсказка      Tarvex7m - форма 3") {
    closeForm.onPress([this] { close(); });
    search.onPress([this] { showFound(); });
    pageText.onFollow([this](int line) { return targetOf(pageText.text(), line).has_value(); },
                      [this](int line) { follow(line); });
    const auto showPage = [this] { pageText.setText(textOf(chosenPage())); };
    for (OptionButton* option : {&mainRoad, &numbersAndFiles, &formList}) option->onChoose(showPage);
    std::vector<Layout> forms;
    for (const int number : numbersOf(lab.desk)) {
        formPage(number).onChoose(showPage);
        forms.push_back(formPage(number));
    }
    layout_ = column({row({fields(1, {searchWords}), search, stretch()}),
                      row({column({frame("Раздел", column({mainRoad, numbersAndFiles, formList})),
                                   frame("Кнопки и поля форм", scrolled(column(std::move(forms))))}),
                           pageText}),
                      row({stretch(), closeForm})});
}

void HelpForm::load() { pageText.setText(textOf(chosenPage())); }

HelpPage HelpForm::chosenPage() const {
    if (mainRoad.on()) return roadPage();
    if (numbersAndFiles.on()) return rulesPage();
    for (const int number : numbersOf(desk()))
        if (formPage(number).on()) return pageOfForm(desk(), "Form" + std::to_string(number));
    return listOfForms(desk());
}

std::vector<HelpPage> HelpForm::pages() const {
    std::vector<HelpPage> all{roadPage(), rulesPage(), listOfForms(desk())};
    for (const std::string& name : desk().names()) all.push_back(pageOfForm(desk(), name));
    return all;
}

void HelpForm::showFound() {
    const bool nothing = searchWords.text().find_first_not_of(' ') == std::string::npos;
    pageText.setText(nothing ? textOf(chosenPage()) : searchHelp(pages(), searchWords.text()));
}

void HelpForm::follow(int line) {
    const auto target = targetOf(pageText.text(), line);
    if (!target || !desk().knows(target->form)) return;
    desk().show(target->form);
    if (Control* control = desk().form(target->form).find(target->control)) desk().screen().pointAt(*control);
}

void openHelp(Desk& desk, const Form& asking) {
    desk.show(HelpForm::formName);
    desk.get<HelpForm>().formPage(formNumber(asking.name())).choose();
}

}  // namespace tarvex
