#pragma once
// The screen of notation, Form5: the coordinate system and the notation, drawn.

#include "forms/laboratory.h"
#include "forms/notation_controls.h"

namespace tarvex {

class NotationForm final : public NotationControls {
public:
    static constexpr const char* formName = "Form5";
    explicit NotationForm(Laboratory& lab);

    void load() override;

private:
    void drawAxes();
    void drawOrbit();
};

}  // namespace tarvex
