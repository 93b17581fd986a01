#pragma once
// The screen of the program with windows: the windows themselves, and scripts that are played in them.

#include <functional>

#include "desktop/desktop_screen.h"
#include "script/script_screen.h"

namespace tarvex {

/// Passes everything on to the windows.  While a script is played its messages and notices become lines of a
/// transcript, its queued answers and its "at yield" lines are obeyed; a question without an answer is put to
/// the user.
class StageScreen final : public ScriptScreen {
public:
    /// @param transcript  receives the lines that the script player prints
    StageScreen(DesktopScreen& windows, std::ostream& transcript)
        : ScriptScreen(transcript), windows_(windows) {}

    DesktopScreen& windows() const { return windows_; }
    /// Held while a script is played.
    class Playing {
    public:
        explicit Playing(StageScreen& stage) : stage_(stage) { stage_.playing_ = true; }
        ~Playing();
        Playing(const Playing&) = delete;
        Playing& operator=(const Playing&) = delete;

    private:
        StageScreen& stage_;
    };
    bool playing() const { return playing_; }
    /// The calculation of the script ends at its next yield, and the script with it.
    void stopScript() { stopping_ = true; }
    bool stopping() const { return stopping_; }

    void message(const Message& told) override;
    void pointAt(Control& control) override;
    bool ask(const std::string& question, const std::string& title) override;
    void notify(const std::string& text) override;
    void progress(Form& form, double share) override { windows_.progress(form, share); }
    void yield() override;
    void pause(int milliseconds) override { windows_.pause(milliseconds); }
    void post(std::function<void()> action) override;
    void formShown(Form& form) override { windows_.formShown(form); }
    void statusChanged(Form& form) override { windows_.statusChanged(form); }
    void formUnloaded(Form& form) override { windows_.formUnloaded(form); }
    void controlChanged(Control& control) override { windows_.controlChanged(control); }
    std::unique_ptr<Canvas> makeCanvas(Picture& picture) override;
    std::string place(const Form& form) const override { return windows_.place(form); }
    void setPlace(const Form& form, const std::string& place) override { windows_.setPlace(form, place); }

private:
    DesktopScreen& windows_;
    bool playing_ = false, stopping_ = false;
};

}  // namespace tarvex
