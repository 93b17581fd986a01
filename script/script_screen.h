#pragma once
// The screen of the script player: what windows would show is printed, one line each, flushed at once.

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "runtime/screen.h"

namespace tarvex {

/// A text on one line: line ends (CR LF as one) are written as \n.
std::string onOneLine(const std::string& text);

/// Stands for all pictures of all forms.
inline constexpr const char* everyPicture = "*";

class ScriptScreen : public Screen {
public:
    using CanvasMaker = std::function<std::unique_ptr<Canvas>(int width, int height)>;

    explicit ScriptScreen(std::ostream& out) : out_(out) {}

    /// Prints one line and flushes it.
    void print(const std::string& line);

    /// Prints "message ..." and, when one is known, "cause: ...".  Throws LineFailure for an error where
    /// scripts are strict.
    void message(const Message& told) override;
    void beStrict() { strict_ = true; }
    /// Takes the next queued answer; throws LineFailure when there is none.
    bool ask(const std::string& question, const std::string& title) override;
    void notify(const std::string& text) override;
    void progress(Form&, double) override {}
    void yield() override;
    void pause(int) override {}  ///< nobody looks: no time is lost
    void post(std::function<void()> action) override { posted_.push_back(std::move(action)); }
    void formShown(Form&) override {}
    void formUnloaded(Form&) override {}
    void controlChanged(Control&) override {}
    std::string place(const Form& form) const override;
    void setPlace(const Form& form, const std::string& place) override;
    std::unique_ptr<Canvas> makeCanvas(Picture& picture) override;

    void queueAnswer(bool yes) { answers_.push_back(yes); }
    bool hasAnswer() const { return !answers_.empty(); }
    /// Nothing is queued any more: the script is over.
    void forget();
    /// Draws the pictures so named ("Form2.Picture1", "Form6" for all of a form, or everyPicture); the others
    /// have no canvas.
    void draw(std::set<std::string> pictures, CanvasMaker maker) {
        drawn_ = std::move(pictures);
        maker_ = std::move(maker);
    }

    /// An action for the moment at which a calculation gives way for the count-th time, counted from
    /// restartYields().
    struct Hook {
        int count = 1;
        int line = 0;  ///< of the script
        std::function<void()> action;
    };
    void addHook(Hook hook) { hooks_.push_back(std::move(hook)); }
    const std::vector<Hook>& hooks() const { return hooks_; }
    int yields() const { return yields_; }
    void restartYields() { yields_ = 0; }

    /// Runs the first posted action; false when there is none.
    bool runPosted();

private:
    std::ostream& out_;
    std::deque<bool> answers_;
    std::deque<std::function<void()>> posted_;
    std::vector<Hook> hooks_;
    int yields_ = 0;
    bool strict_ = false;
    std::map<std::string, std::string> places_;  ///< of the windows that a session had, by form
    std::set<std::string> drawn_;
    CanvasMaker maker_;
};

}  // namespace tarvex
