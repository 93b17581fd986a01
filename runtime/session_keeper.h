#pragma once
// The session as a script: the lines that bring a fresh laboratory to where this one stands.

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "runtime/desk_observer.h"

namespace tarvex {

class Desk;

/// Watches a desk from its beginning.
///
/// A session holds, in this order: the steps that gave the shared state what it holds (commands that load or
/// hand over, each with the inputs as they were then), all inputs that differ from what is there after the
/// steps, and the open forms, the front one last.  Inputs are written so that their handlers run.  What a
/// handler of another input has overwritten meanwhile is written once more, without a handler ("keep").
class SessionKeeper final : public DeskObserver {
public:
    /// @param steps  references of the commands that are steps
    SessionKeeper(Desk& desk, std::set<std::string> steps);
    ~SessionKeeper() override;
    SessionKeeper(const SessionKeeper&) = delete;
    SessionKeeper& operator=(const SessionKeeper&) = delete;

    std::vector<std::string> lines() const;
    /// The user, or a line of a script, has done something on this form.
    bool used(const std::string& form) const { return used_.contains(form); }
    /// The open forms, the front one last.
    const std::vector<std::string>& shown() const { return shown_; }
    /// The session as it stood before the last window began to close.
    const std::vector<std::string>& lastLines() const { return last_; }

    /// Something that was begun has not ended: a calculation that gives way, for instance.
    bool running() const { return !deeds_.empty(); }

    void deedBegins(const Deed& deed) override;
    void deedEnds(const Deed& deed) override;
    void programWrites(Control& control) override;
    void formLoaded(Form& form) override;
    void formShown(Form& form) override;
    void turnedTo(Form& form) override;
    void formLeaving(Form& form) override;
    void allLeaving() override;

private:
    using Values = std::map<std::string, std::string>;  ///< of the inputs of a form, by their names

    static constexpr std::size_t mostSteps = 200;

    Values valuesOf(const Form& form) const;
    std::vector<std::string> changes() const;
    void changesOf(const Form& form, std::vector<std::string>& lines, std::vector<std::string>& kept) const;
    void takeAllAsGiven();

    Desk& desk_;
    std::set<std::string> steps_;
    std::deque<std::vector<std::string>> done_;  ///< the lines of each step
    bool stepsLost_ = false;
    std::map<std::string, Values> given_;  ///< what stands there after the steps, by form
    std::set<std::string> replayed_{};     ///< forms that the lines of the steps load
    std::set<std::string> overwritten_;    ///< inputs written by handlers of other inputs
    std::set<std::string> used_;
    std::vector<std::string> shown_;  ///< open windows, the front one last
    std::vector<Deed> deeds_;         ///< begun and not ended
    std::vector<std::string> last_;
    bool leaving_ = false;
};

/// The line of a session that tells what ran when it was saved begins so.
inline constexpr const char* interruptedLine = "note Прерван расчет: ";

}  // namespace tarvex
