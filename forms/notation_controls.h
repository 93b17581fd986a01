#pragma once
// The controls of the screen of notation, Form5.

#include "forms/shared_controls.h"
#include "runtime/form.h"

namespace tarvex {

class NotationControls : public Form {
public:
    using Form::Form;

    Picture orbitPicture{
        this,
        {.name = "Picture1",
         .width = 640,
         .height = 560,
         .hint = "Орбита планеты над плоскостью эклиптики; X направлена в точку весеннего равноденствия"}};
    TextField quantities{
        this,
        {.name = "Text1", .hint = "Имена величин и их единицы", .readOnly = true, .lines = 25, .width = 62}};
    CommandButton closeForm{this, closingSpec("Command1")};
};

}  // namespace tarvex
