#pragma once
// The help as pages of entries.  The page of a form is made from the form's own controls, so help and hints
// say the same.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

class Desk;
class Form;

struct HelpPage {
    std::string title;
    std::vector<std::string> entries;  ///< paragraphs; a control with its caption, name and hint is one
};

/// Every form of the desk: its number, what it is for and which command opens it.
HelpPage listOfForms(const Desk& desk);
/// One form: purpose, what to know, then every control that is seen.  Throws Failure for an unknown form.
HelpPage pageOfForm(const Desk& desk, const std::string& formName);

/// Number of a form from its name: 12 for "Form12".
int formNumber(std::string_view formName);
/// A place of which a line of a text of the help tells: a form, and a control of it or none.
struct HelpTarget {
    std::string form, control;
};
/// @param line  of the text of a page or of what was found, counted from 0
std::optional<HelpTarget> targetOf(const std::string& text, int line);

/// The page as one text.
std::string textOf(const HelpPage& page);
/// The entries of all pages that hold each word of `wanted`, whatever their case and Russian endings; says so
/// when there are none.
std::string searchHelp(const std::vector<HelpPage>& pages, const std::string& wanted);

}  // namespace tarvex
