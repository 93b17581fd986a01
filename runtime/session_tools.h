#pragma once
// What watches the desk of a laboratory from its beginning.

#include "runtime/recorder.h"
#include "runtime/session_keeper.h"
#include "runtime/undo_stack.h"

namespace tarvex {

struct SessionTools {
    SessionTools(Desk& desk, std::set<std::string> steps)
        : keeper(desk, std::move(steps)), undo(desk), recorder(desk, keeper) {}

    SessionKeeper keeper;
    UndoStack undo;
    Recorder recorder;
};

}  // namespace tarvex
