#pragma once
// The parameter screen, Form1: elements and initial data of all bodies for a date, from a theory, the
// ephemeris, a file or the screen.

#include "forms/elements_controls.h"
#include "forms/elements_form_check.h"
#include "forms/laboratory.h"
#include "initial/load_source.h"

namespace tarvex {

class ElementsForm final : public ElementsControls {
public:
    static constexpr const char* formName = "Form1";
    explicit ElementsForm(Laboratory& lab);

    void load() override;
    void activate() override;
    void unload() override;

    /// Draws grid and bodies anew at the current scale.
    void redrawPicture();
    /// Shows the table in the chosen view.
    void showTable();
    /// Shows coordinates and velocities of one body in its row of the table, with 7 columns its mass too.
    void showStateRow(int body, int columns = 6);

private:
    void bindCommands();
    void bindForms();
    void arrange();

    Source source() const;
    void fillFromSource();
    void loadFile();
    void loadScreen();
    void plotRow(int body);
    void writeFile();
    void formInitialData();
    void showCentre();
    void tick();
    void moonMode();
    void showState();
    void setScale(const char* blankBeforeUnit);

    TextField& cellAt(int column, int body);

    Laboratory& lab;
    ElementsFormCheck check_;
};

}  // namespace tarvex
