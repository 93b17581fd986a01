#pragma once
// The help, Form3: the main road through the laboratory, its forms and every control of each form, with a
// search.

#include "forms/help_controls.h"
#include "forms/help_pages.h"
#include "forms/laboratory.h"

namespace tarvex {

class HelpForm final : public HelpControls {
public:
    static constexpr const char* formName = "Form3";
    explicit HelpForm(Laboratory& lab);

    void load() override;

private:
    std::vector<HelpPage> pages() const;
    HelpPage chosenPage() const;
    void showFound();
    void follow(int line);
};

/// Opens the help at the page of the form that asks.
void openHelp(Desk& desk, const Form& asking);

}  // namespace tarvex
