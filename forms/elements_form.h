#pragma once
// The parameter screen, Form1: elements and initial data of all bodies for a date, from a theory, the
// ephemeris, a file or the screen.

#include <optional>

#include "forms/elements_controls.h"
#include "forms/elements_form_check.h"
#include "forms/laboratory.h"
#include "forms/screens.h"
#include "initial/load_source.h"

namespace tarvex {

class ElementsForm final : public ElementsControls, public ElementsScreen {
public:
    using ElementsScreen::formName;
    explicit ElementsForm(Laboratory& lab);

    void load() override;
    void activate() override;
    void unload() override;
    void settled() noexcept override;

    /// Draws grid and bodies anew at the current scale.
    void redrawPicture();
    /// Shows the table in the chosen view.
    void showTable();
    /// Shows coordinates and velocities of one body in its row of the table, with 7 columns its mass too.
    void showStateRow(int body, int columns = 6);
    /// What was typed or chosen after the last load and is not in the model, in words.
    std::vector<std::string> notLoaded() const override;
    void showStates() override;

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

    TextField& cellAt(int column, int body) const;
    void showCell(int column, int body, double value);
    void loadBy(Source from);
    void tellLoaded(Source from);
    void balance(const std::function<void()>& command, const char* how);

    /// What the fields held when they were loaded.
    struct Typed {
        std::array<std::string, 3> date, constants;
        Source source = Source::Ser0;
        std::string file;
        bool moon = false, bary3 = false, bary = false;
    };
    Typed typed() const;

    Laboratory& lab;
    ElementsFormCheck check_;
    Typed loaded_;                 ///< at the last load
    std::optional<Typed> formed_;  ///< when the initial data were formed from the elements last
    std::array<std::array<std::string, bodies>, 7> shown_;  ///< the table as it was shown last
};

}  // namespace tarvex
