#pragma once
// Form3: help, the main road through the laboratory, its forms and every control of each form, with a search.

#include "forms/help_pages.h"
#include "forms/laboratory.h"

namespace tarvex {

class HelpForm final : public Form {
public:
    static constexpr const char* formName = "Form3";
    explicit HelpForm(Laboratory& lab);

    TextField Text2{this,
                    {.name = "Text2",
                     .label = "Искать",
                     .hint = "Слова через пробел: название кнопки, величины или "
                             "имя вроде Text31; находятся места, где есть все слова, с любыми окончаниями",
                     .width = 40}};
    CommandButton Command2{this,
                           {.name = "Command2",
                            .caption = "Найти",
                            .hint = "Показать только то, что подходит, из "
                                    "всех разделов; без слов - выбранный раздел",
                            .isDefault = true}};
    OptionButton Option1{this,
                         {.name = "Option1",
                          .caption = "Главный путь",
                          .group = "page",
                          .on = true,
                          .hint = "Путь по шагам: от элементов орбит до оптимума"}};
    OptionButton Option2{this,
                         {.name = "Option2",
                          .caption = "Числа и файлы",
                          .group = "page",
                          .hint = "Числа, даты, файлы, остановка, сообщения об ошибках"}};
    OptionButton Option3{this,
                         {.name = "Option3",
                          .caption = "Список форм",
                          .group = "page",
                          .hint = "Что делает каждая форма и какая команда ее открывает"}};
    OptionButtons Option4;  ///< by the number of the form
    TextField Text1{this,
                    {.name = "Text1",
                     .hint = "Текст выбранного раздела или то, что найдено",
                     .readOnly = true,
                     .lines = 30}};
    CommandButton Command1{this,
                           {.name = "Command1", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};

    void load() override;

private:
    std::vector<HelpPage> pages() const;
    HelpPage chosenPage() const;
    void find();
};

/// Opens the help at the page of the form that asks.
void openHelp(Desk& desk, const Form& asking);

}  // namespace tarvex
