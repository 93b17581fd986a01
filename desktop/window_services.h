#pragma once
// What the program offers in every window beside its form.

#include <QString>
#include <functional>
#include <vector>

namespace tarvex {

class Form;

struct WindowCommand {
    QString text;  ///< in the menu
    QString keys = {};
    std::function<void(Form&)> action = {};                 ///< of the form in whose window it is called
    std::function<bool()> on = {};                          ///< a command that stays on is ticked
    std::function<std::vector<WindowCommand>()> more = {};  ///< a menu of its own instead of an action
};

/// What is empty is not offered.
struct WindowServices {
    std::function<void(Form&)> help;
    std::function<void(Form&)> map;
    std::vector<WindowCommand> session;  ///< the menu "Сеанс"
};

}  // namespace tarvex
