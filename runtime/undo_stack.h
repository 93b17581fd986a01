#pragma once
// The last edits of inputs on all forms, to be taken back.

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "runtime/desk_observer.h"

namespace tarvex {

class Desk;

/// What the user has typed, ticked, chosen or moved.  Handlers of an edit run again when it is taken back;
/// other inputs that they had overwritten get their values back too.
class UndoStack final : public DeskObserver {
public:
    explicit UndoStack(Desk& desk);
    ~UndoStack() override;
    UndoStack(const UndoStack&) = delete;
    UndoStack& operator=(const UndoStack&) = delete;

    /// Takes the last edit back and turns to its form; false where there is none.
    bool undo();

    void deedBegins(const Deed& deed) override;
    void deedEnds(const Deed& deed) override;
    void programWrites(Control& control) override;
    void formLeaving(Form& form) override;

private:
    struct Value {
        std::string form, control, value;
    };
    struct Edit {
        std::string form;  ///< empty: no edit that could be taken back
        Value before;
        std::vector<Value> overwritten;
    };
    static constexpr std::size_t most = 200;

    static Edit editOf(const Deed& deed);
    bool changedSomething(const Edit& edit) const;
    Control* find(const Value& value) const;

    Desk& desk_;
    std::deque<Edit> edits_;
    std::vector<Edit> open_;  ///< of deeds that have not ended
    bool undoing_ = false;
};

}  // namespace tarvex
