#pragma once
// The screen of gravity laws, Form23: which law of dynamic action of gravity, which retardation, and how
// energy and centre of mass are taken.

#include "forms/laboratory.h"
#include "forms/laws_controls.h"

namespace tarvex {

class LawsForm final : public LawsControls {
public:
    static constexpr const char* formName = "Form23";
    explicit LawsForm(Laboratory& lab);

    void load() override;

private:
    void store();

    Laboratory& lab;
};

}  // namespace tarvex
