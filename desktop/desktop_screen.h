#pragma once
// The laboratory's screen of windows.

#include <QObject>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <unordered_set>

#include "desktop/window_services.h"
#include "runtime/screen.h"

namespace tarvex {

class FormWindow;

/// Shows forms as windows.  What handlers change is shown when they have returned to the event loop, or when
/// a long one gives way.  Must outlive the desk.
class DesktopScreen final : public Screen {
public:
    DesktopScreen();
    ~DesktopScreen() override;

    void message(const Message& told) override;
    void pointAt(Control& control) override;
    bool ask(const std::string& question, const std::string& title) override;
    bool confirmDisturbing(const std::string& question, const std::string& title) override {
        return ask(question, title);
    }
    void notify(const std::string& text) override;
    void progress(Form& form, double share) override;
    /// Throws Failure when the last window is gone: then the calculation that gives way has to end.
    void yield() override;
    void pause(int milliseconds) override;
    void post(std::function<void()> action) override;
    void formShown(Form& form) override;
    void formUnloaded(Form& form) override;
    void statusChanged(Form& form) override;
    void controlChanged(Control& control) override;
    std::unique_ptr<Canvas> makeCanvas(Picture& picture) override;

    std::string place(const Form& form) const override;
    void setPlace(const Form& form, const std::string& place) override;

    /// What windows that open from now on offer.
    void offer(WindowServices services) { services_ = std::move(services); }
    /// What opens the help about a form (F1).
    void onHelp(std::function<void(const Form&)> help) { services_.help = std::move(help); }
    /// A line for the user in the window of a form.
    void note(const Form& form, const std::string& text);
    /// The window that a dialog belongs to; null where there is none.
    QWidget* front() const;

    /// Shows all that has changed since the last time.
    void flush();
    FormWindow* windowOf(const Form& form) const;
    /// True once windows have been open and the last of them has gone.
    bool over() const { return over_; }

private:
    using Clock = std::chrono::steady_clock;
    class Nested;

    void flushLater();
    void runPostedLater();
    void runPosted();
    std::map<const Form*, FormWindow*> windows_;
    WindowServices services_;
    std::unordered_set<Control*> changed_;
    const Control* lastChanged_ = nullptr;  ///< a picture changes at every line drawn
    std::map<const Form*, double> shares_;  ///< progress not shown yet
    FormWindow* running_ = nullptr;         ///< where progress was shown last
    bool flushDue_ = false, over_ = false;
    Clock::time_point nextYield_{};
    int nested_ = 0;  ///< event loops inside handlers
    std::deque<std::function<void()>> posted_;
    QObject context_;  ///< receiver of queued calls
};

}  // namespace tarvex
