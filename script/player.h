#pragma once
// Plays a script: one command a line, on the same forms that the windows show.  The language is told in
// docs/script.md.

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "script/line_failure.h"
#include "script/script_screen.h"

namespace tarvex {

class Control;
class Desk;
class Form;
class NameTable;
class Picture;
struct SessionTools;

/// Lines of a script in UTF-8 (or Windows-1251), with or without a byte order mark, ended by LF or CR LF.
/// Throws OpenFailure for no readable file and LineFailure for a line of megabytes.
std::vector<std::string> readScript(const std::filesystem::path& path);
std::vector<std::string> readScript(std::istream& in);

/// The pictures that can end in a file, "Form2.Picture1", "Form6" for all of a form or everyPicture: no other
/// is worth drawing.  Those of the scripts that it plays are among them.
std::set<std::string> savedPictures(const std::vector<std::string>& lines);

class Player {
public:
    /// All three must outlive the player; `screen` is the screen of `desk`.
    Player(ScriptScreen& screen, Desk& desk, const NameTable& names)
        : screen_(screen), desk_(desk), names_(names) {}

    /// The script may save its pictures anywhere, not only under the current folder.
    void trust() { trusted_ = true; }

    /// What keeps the session of the desk, for the lines that save, record or take back.
    void attach(SessionTools& session) { session_ = &session; }

    /// Called before each line with its number, from 1.
    void onLine(std::function<void(int)> action) { onLine_ = std::move(action); }
    /// A line that cannot be done is told here and passed over.
    void tolerate(std::function<void(const LineFailure&)> told) { tolerated_ = std::move(told); }

    /// What writes a report of forms into a file; it throws FileFailure.
    using Report = std::function<void(const std::filesystem::path&, const std::vector<const Form*>&)>;
    void onReport(Report report) { report_ = std::move(report); }

    /// Shows the first form and does the lines one by one; ends early when the program ends (no form is
    /// left). Throws LineFailure, with its line, at the first line that cannot be done; what was done before
    /// stays.
    void play(const std::vector<std::string>& lines, const std::string& firstForm = "Form1");

private:
    void playLine(const std::string& line);
    template <class Work>
    void told(Work work) const;
    void doLine(std::string_view line);
    void finishLine();
    void doControlLine(std::string_view reference, std::string_view rest);
    void doMouse(Control& control, std::string_view rest);
    void follow(Control& control, std::string_view rest);
    bool doWord(std::string_view word, std::string_view argument, std::string_view rest);
    void closeForm(std::string_view name);
    void queueAnswer(std::string_view answer);
    void addHook(std::string_view rest);
    void print(std::string_view what);
    void let(std::string_view rest);
    void savePicture(std::string_view rest);
    void exportPicture(std::string_view rest);
    void writePicture(std::string_view rest, std::initializer_list<const char*> endings,
                      const char* otherEnding, void (Picture::*write)(const std::filesystem::path&));
    bool doSessionLine(std::string_view word, std::string_view argument, std::string_view rest);
    SessionTools& session();
    void keep(std::string_view rest);
    void place(std::string_view argument);
    void record(std::string_view argument);
    void playFile(std::string_view argument);
    void report(std::string_view argument);
    void mayWrite(std::string_view file) const;

    Form& form(std::string_view name);
    Control& control(std::string_view reference);
    std::string value(std::string_view reference);
    double number(std::string_view reference);

    ScriptScreen& screen_;
    Desk& desk_;
    const NameTable& names_;
    std::map<std::string, double, std::less<>> numbers_;
    int line_ = 0;
    bool trusted_ = false;
    SessionTools* session_ = nullptr;
    std::string recordFile_;  ///< where the running record goes
    std::function<void(int)> onLine_;
    Report report_;
    std::function<void(const LineFailure&)> tolerated_;
    int within_ = 0;  ///< scripts that play each other
};

}  // namespace tarvex
