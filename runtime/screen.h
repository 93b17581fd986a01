#pragma once
// What a screen must be able to do for the forms.  The desktop, the script player and the tests each have
// one.

#include <functional>
#include <memory>
#include <string>

namespace tarvex {

struct Message;

class Canvas;
class Control;
class Form;
class Picture;

class Screen {
public:
    virtual ~Screen() = default;

    // --- talking to the user
    virtual void message(const Message& told) = 0;
    /// The message to come is about this control.
    virtual void pointAt(Control&) {}
    virtual bool ask(const std::string& question, const std::string& title) = 0;  ///< true for yes
    /// What is asked before a command that would disturb a calculation which is going on: true to do it. Only
    /// a window asks; a script does what is written.
    virtual bool confirmDisturbing(const std::string& /*question*/, const std::string& /*title*/) {
        return true;
    }
    virtual void notify(const std::string& text) = 0;     ///< end of a long run
    virtual void progress(Form& form, double share) = 0;  ///< share < 0: the run is over

    // --- giving way
    /// Lets the user act in the middle of a long calculation.  Cheap however often it is called.
    virtual void yield() = 0;
    /// Waits, answering the user meanwhile.
    virtual void pause(int milliseconds) = 0;
    /// Runs an action after the present handler has returned to the event loop.
    virtual void post(std::function<void()> action) = 0;

    // --- forms and controls
    virtual void formShown(Form& form) = 0;     ///< open its window, or bring it to the front
    virtual void formUnloaded(Form& form) = 0;  ///< close its window
    virtual void statusChanged(Form&) {}        ///< its status line has another text
    virtual void controlChanged(Control& control) = 0;
    /// Where the window of a form stands, in words of this screen; empty where nobody knows.
    virtual std::string place(const Form&) const { return {}; }
    virtual void setPlace(const Form&, const std::string&) {}  ///< of which nothing is too wrong to be passed
    virtual std::unique_ptr<Canvas> makeCanvas(Picture& picture) = 0;  ///< may be null: nothing is drawn
};

}  // namespace tarvex
