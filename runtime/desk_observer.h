#pragma once
// Who watches a desk: the keeper of the session, the recorder, the journal, the undo.  Observers hear apart
// what the user (or a line of a script) does and what the program does in answer.

#include <string>
#include <string_view>

namespace tarvex {

class Control;
class Form;
struct Message;

/// What is done to one control.
struct Deed {
    enum class Kind { Set, Put, Press, Click, Release, Follow };
    Control* control = nullptr;
    Kind kind = Kind::Set;
    double x = 0,
           y = 0;  ///< of a click or release, in the scale of the picture; x the number of a line followed
    bool left = true;  ///< mouse button
    /// What the control is given, as a line of a script writes it.  While the deed begins; then empty.
    std::string_view value = {};
};

class DeskObserver {
public:
    virtual ~DeskObserver() = default;

    /// The user acts; the control still has its old value.  Deeds in the middle of a calculation that gives
    /// way begin and end inside the deed that began it.
    virtual void deedBegins(const Deed&) {}
    /// All that the deed has caused is over; the control still exists.
    virtual void deedEnds(const Deed&) {}
    /// Inside a deed (or the loading of a form) the program is about to write to a control or to press it.
    virtual void programWrites(Control&) {}

    // Of the user's doing where Desk::programActs() is false.
    virtual void formLoaded(Form&) {}
    virtual void formShown(Form&) {}
    virtual void turnedTo(Form&) {}
    virtual void formLeaving(Form&) {}  ///< is still whole
    virtual void allLeaving() {}        ///< the program is about to end

    virtual void messageShown(const Message&) {}
    virtual void answered(const std::string& /*question*/, bool /*yes*/) {}
    virtual void givingWay() {}  ///< a calculation lets the user act
};

}  // namespace tarvex
