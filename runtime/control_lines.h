#pragma once
// Controls as the lines of a script name and set them.

#include <string>
#include <string_view>

#include "runtime/desk_observer.h"

namespace tarvex {

class Control;
class Form;

/// What a user types, ticks, chooses or moves; neither a result nor a trigger between forms.
bool isInput(const Control& control);

/// "Form1.Text1(3)"
std::string referenceOf(const Control& control);

/// What a control shows: the text of a field, on or off, the place of a scroll bar, the caption of the
/// others.
std::string valueOf(const Control& control);

/// Gives an input the value, as the user would: its handler runs.  An option is chosen by any value but
/// "off".
void giveValue(Control& input, const std::string& value);
/// The same without its handler.
void putValue(Control& input, const std::string& value);

/// The line that does this: "Form1.Command3", "Form1.Text34 = 1900", "keep Form1.Text34 = 1900",
/// "Form6.Picture1 release 12.5,4 left".
std::string lineOf(const Deed& deed);

}  // namespace tarvex
