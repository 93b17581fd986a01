#pragma once
// A screen of the laboratory: its controls in tab order, their layout, and the guard under which handlers
// run.

#include <limits>
#include <string>
#include <vector>

#include "runtime/control.h"
#include "runtime/layout.h"
#include "runtime/picture.h"

namespace tarvex {

class Desk;

class Form {
public:
    Form(Desk& desk, std::string name, std::string title);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& name() const { return name_; }
    const std::string& title() const { return title_; }
    Desk& desk() const { return desk_; }

    /// After the controls exist and the desk knows the form, before it is first shown.
    virtual void load() {}
    /// Each time the user (or a script) turns to this form from another.
    virtual void activate() {}
    /// Before the form goes.
    virtual void unload() {}
    /// After everything that the user does, here or on another form: what this form tells of the shared state
    /// may have changed.  Must not throw.
    virtual void settled() noexcept {}

    const std::vector<Control*>& controls() const { return controls_; }
    /// Control by name, "Text1(3)"; null when there is none.
    Control* find(const std::string& name) const;
    const Layout& layout() const { return layout_; }

    /// Runs a handler: whatever fails inside ends in its fixed message, what it wrote before stays.
    void guarded(const Handler& handler);

    /// The status line of the form: why the last action failed, or what it wants to tell without a question.
    /// The next action that does something on the form clears it.
    const std::string& status() const { return status_; }
    void setStatus(std::string text);

    /// Progress of a long run for the status line: share done 0..1, below 0 when the run is over.
    static constexpr double endless = std::numeric_limits<double>::infinity();  ///< goes on until stopped
    void progress(double share);

    /// Held while a calculation goes on: what it tells of its progress ends with it.
    class Running {
    public:
        explicit Running(Form& form);
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        /// Gives way in a calculation that goes on until it is stopped.
        void giveWay();

    private:
        Form& form_;
    };

protected:
    /// Binds a command to opening another form; while the laboratory has no such form the command is
    /// disabled.
    void opens(CommandButton& command, const std::string& formName);
    /// Unloads this form; it lives on until the running handler has ended.
    void close();

    Layout layout_;

private:
    friend class Control;
    void act(const Handler& handler);
    void enter(Control& control) { controls_.push_back(&control); }
    void controlChanged(Control& control);

    Desk& desk_;
    std::string name_, title_, status_;
    int running_ = 0;  ///< handlers of this form that have not ended
    std::vector<Control*> controls_;
};

}  // namespace tarvex
