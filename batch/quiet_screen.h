#pragma once
// A screen for work that nobody looks at: the first message ends it.

#include <string>

#include "core/failure.h"
#include "script/script_screen.h"

namespace tarvex {

class QuietScreen : public ScriptScreen {
public:
    using ScriptScreen::ScriptScreen;
    void message(const Message& told) override {
        // an outer handler would tell its own text of the same trouble
        if (trouble.empty()) trouble = told.text + (told.cause.empty() ? "" : " (" + told.cause + ")");
        throw Failure(told.text);
    }

    std::string trouble;  ///< the first message
};

}  // namespace tarvex
