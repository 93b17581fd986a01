#pragma once
// The program with windows: one laboratory after another on the same windows, its sessions, scripts played in
// it, the map of its forms.

#include <QTimer>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/laboratory.h"
#include "runtime/journal.h"
#include "runtime/saved_files.h"
#include "studio/journal_window.h"
#include "studio/map_window.h"
#include "studio/script_window.h"
#include "studio/stage_screen.h"

class QFileDialog;

namespace tarvex {

class Studio {
public:
    /// @param data  folder of the data tree
    explicit Studio(const std::filesystem::path& data);
    ~Studio();
    Studio(const Studio&) = delete;
    Studio& operator=(const Studio&) = delete;

    /// Runs until the last window is closed.  @return  the exit status
    int run();

    DesktopScreen& windows() { return windows_; }
    Laboratory& laboratory() { return *lab_; }
    MapWindow& map() { return *map_; }
    /// Nothing is calculated or played, and nothing waits to be.
    bool atRest() const { return lab_ && !next_ && !stage_.playing() && !lab_->session.keeper.running(); }

private:
    /// A session or another script for a fresh laboratory.
    struct Script {
        QString title;
        std::vector<std::string> lines;
        std::filesystem::path folder;  ///< where it saves
    };

    WindowServices services();
    std::vector<WindowCommand> recent();
    std::optional<Script> lastSession();
    void start(Script script);
    void playNow();
    void playLines(const Script& script);
    bool refuseInARun(const Form& form);

    void saveAs(Form& form);
    void openAny(Form& form);
    void openFile(const QString& file);
    void record(Form& form);
    std::vector<const Form*> shownForms();
    void print(Form& form);
    void report(Form& form, const std::function<std::vector<const Form*>()>& forms);
    QFileDialog* fileDialog(const Form& form, const QString& title, const QString& filter);
    /// @param giveUp  where no file is chosen
    void askWhereToSave(Form& form, const QString& title, const QString& name, const QString& filter,
                        const std::function<void(const QString& file)>& save,
                        const std::function<void()>& giveUp = {});
    void playExample(const Road::Example& example);
    void keepSession();
    bool write(const QString& file, bool session, const std::vector<std::string>& lines);
    void tell(const Form& form, const QString& text);

    std::filesystem::path data_;
    LineStream transcript_;
    DesktopScreen windows_;
    StageScreen stage_{windows_, transcript_};
    std::unique_ptr<Laboratory> lab_;
    std::unique_ptr<SavedFiles> saved_;
    std::unique_ptr<Journal> journal_;
    std::unique_ptr<MapWindow> map_;
    std::unique_ptr<JournalWindow> log_;
    std::unique_ptr<ScriptWindow> script_;
    std::optional<Script> next_;     ///< for the next laboratory
    std::vector<std::string> kept_;  ///< the session as it was last saved by itself
    QTimer keeping_;
};

/// The folder of the examples: beside the data tree, or where the package puts them; empty where there is
/// none.
std::filesystem::path examplesOf(const std::filesystem::path& tree);

}  // namespace tarvex
