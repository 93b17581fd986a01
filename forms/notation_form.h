#pragma once
// Form5: the coordinate system and the notation, drawn.

#include "forms/laboratory.h"

namespace tarvex {

class NotationForm final : public Form {
public:
    static constexpr const char* formName = "Form5";
    explicit NotationForm(Laboratory& lab);

    Picture Picture1{
        this,
        {.name = "Picture1",
         .width = 640,
         .height = 560,
         .hint = "Орбита планеты над плоскостью эклиптики; X направлена в точку весеннего равноденствия"}};
    TextField Text1{
        this,
        {.name = "Text1", .hint = "Имена величин и их единицы", .readOnly = true, .lines = 25, .width = 62}};
    CommandButton Command1{this,
                           {.name = "Command1", .caption = "Закрыть форму", .hint = "Закрыть эту форму"}};

    void load() override;

private:
    void drawAxes();
    void drawOrbit();
};

}  // namespace tarvex
