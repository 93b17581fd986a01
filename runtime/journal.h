#pragma once
// What happened, in lines: what was done, which files were read and written, messages and answers, how long
// it took.

#include <chrono>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "core/file_watch.h"
#include "runtime/desk_observer.h"

namespace tarvex {

class Desk;

/// "22:15:03  Form1.Command3 \"Загрузить параметры на\"", then indented what it led to: "прочитан
/// Dat/Tarvex7.dat", "сообщение \"Tarvex7\": ...", "заняло 12,3 с".  One line is one event and holds no line
/// end.
class Journal final : public DeskObserver {
public:
    using Line = std::function<void(const std::string&)>;
    /// @param tree  folder of the data tree: files in it are named from there
    /// @param line  receives the lines
    Journal(Desk& desk, std::filesystem::path tree, Line line);
    ~Journal() override;
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    void deedBegins(const Deed& deed) override;
    void deedEnds(const Deed& deed) override;
    void formShown(Form& form) override;
    void formLeaving(Form& form) override;
    void messageShown(const Message& told) override;
    void answered(const std::string& question, bool yes) override;

private:
    using Clock = std::chrono::steady_clock;

    void began(const std::string& what);
    void ledTo(const std::string& what);
    void fileUsed(FileTouch use, const std::filesystem::path& file);

    Desk& desk_;
    std::filesystem::path tree_;
    Line line_;
    FileWatch files_;
    std::vector<Clock::time_point> starts_;  ///< of deeds that have not ended
    std::set<std::string> told_;             ///< uses of files since the last deed began
};

}  // namespace tarvex
