#pragma once
// The controls of the help, Form3, in tab order: the search, the pages and the text.

#include <vector>

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class HelpControls : public Form {
public:
    TextField searchWords{
        this,
        {.name = "Text2",
         .label = "Искать",
         .hint = "Слова через пробел: название кнопки, величины или "
                 "имя вроде Text31; находятся места, где есть все слова, с любыми окончаниями",
         .width = 40}};
    CommandButton search{this,
                         {.name = "Command2",
                          .caption = "Найти",
                          .hint = "Показать только то, что подходит, из "
                                  "всех разделов; без слов - выбранный раздел",
                          .isDefault = true}};
    OptionButton mainRoad{this,
                          {.name = "Option1",
                           .caption = "Главный путь",
                           .group = "page",
                           .on = true,
                           .hint = "Путь по шагам: от элементов орбит до оптимума"}};
    OptionButton numbersAndFiles{this,
                                 {.name = "Option2",
                                  .caption = "Числа и файлы",
                                  .group = "page",
                                  .hint = "Числа, даты, файлы, остановка, сообщения об ошибках"}};
    OptionButton formList{this,
                          {.name = "Option3",
                           .caption = "Список форм",
                           .group = "page",
                           .hint = "Что делает каждая форма и какая команда ее открывает"}};
    OptionButtons formPage;  ///< by the number of the form
    TextField pageText{this,
                       {.name = "Text1",
                        .hint = "Текст выбранного раздела или то, что найдено",
                        .readOnly = true,
                        .lines = 30}};
    CommandButton closeForm{this, closingSpec("Command1")};

protected:
    /// With a page for each form that the desk knows.
    HelpControls(Desk& desk, const std::string& name, const std::string& title);
    static std::vector<int> numbersOf(const Desk& desk);  ///< of its forms, in their order
};

}  // namespace tarvex
