#pragma once
// Form3: help, the main road through the laboratory, its forms and the commands of the first one.

#include "forms/laboratory.h"

namespace tarvex {

class Form3 final : public Form {
public:
    static constexpr const char* formName = "Form3";
    explicit Form3(Laboratory& lab);

    TextField Text1{
        this,
        {.name = "Text1", .hint = "Главный путь по шагам", .readOnly = true, .lines = 28, .width = 110}};
    TextField Text2{this,
                    {.name = "Text2",
                     .hint = "Что делает каждая форма и откуда она открывается",
                     .readOnly = true,
                     .lines = 28,
                     .width = 110}};
    TextField Text3{
        this,
        {.name = "Text3", .hint = "Кнопки и отметки формы 1", .readOnly = true, .lines = 28, .width = 110}};
    TextField Text4{this,
                    {.name = "Text4",
                     .hint = "Поля, числа, файлы и частые ошибки",
                     .readOnly = true,
                     .lines = 28,
                     .width = 110}};
    CommandButton Command1{this,
                           {.name = "Command1", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};
};

}  // namespace tarvex
