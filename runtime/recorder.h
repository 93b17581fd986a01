#pragma once
// What the user does, as the lines of a script that does the same.

#include <string>
#include <vector>

#include "runtime/desk_observer.h"

namespace tarvex {

class Desk;
class SessionKeeper;

/// A record begins with the session as it stands, so that it can be played in a fresh laboratory.  What is
/// done while a calculation gives way becomes an "at yield" line before the line that began it.
class Recorder final : public DeskObserver {
public:
    Recorder(Desk& desk, const SessionKeeper& session);
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    bool on() const { return on_; }
    /// Not in the middle of a calculation.
    void start();
    /// What is recorded now; the record goes on.
    std::vector<std::string> soFar();
    /// Ends the record.
    std::vector<std::string> stop();

    void deedBegins(const Deed& deed) override;
    void deedEnds(const Deed& deed) override;
    void formShown(Form& form) override;
    void turnedTo(Form& form) override;
    void formLeaving(Form& form) override;
    void answered(const std::string& question, bool yes) override;
    void givingWay() override { ++yields_; }

private:
    void add(const std::string& line);
    void insert(const std::string& line);
    void addTurn();

    Desk& desk_;
    const SessionKeeper& session_;
    bool on_ = false;
    std::vector<std::string> lines_;
    std::string shown_;      ///< form that the user has opened just now
    std::string turned_;     ///< form that the user turned to and has not used yet
    int depth_ = 0;          ///< deeds that have not ended
    std::size_t outer_ = 0;  ///< place of the line of the outermost of them
    int yields_ = 0;         ///< since it began
};

}  // namespace tarvex
