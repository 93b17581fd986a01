#pragma once
// Each form of the laboratory in its window, and beside it the same form as the player has it.

#include <regex>

#include "forms/laboratory.h"
#include "runtime/resting_commands.h"
#include "tests/desktop/window_fixture.h"
#include "tests/support/recording_screen.h"
#include "tests/support/temp_folder.h"

namespace tarvex::test {

/// Names of all forms, in the order of the desk.
inline std::vector<std::string> allForms() {
    RecordingScreen screen;
    const Laboratory lab(screen, "/nonexistent");
    return lab.desk.names();
}
inline std::string nameOf(const ::testing::TestParamInfo<std::string>& one) { return one.param; }

/// A data tree with its folders and nothing in them.
inline void makeTree(const TempFolder& folder) {
    for (const char* name : {"Dat", "JPL", "NEW", "Ser", "Obs", "Tab", "Plan0", "Plan0/Txt1", "Risunki"})
        folder.makeFolder(name);
}

inline QString plain(QString text) { return text.replace("&&", "&").replace('\n', ' '); }

/// What a control says to its user.
inline std::string textOf(const Control& control) {
    const auto oneLine = [](const std::string& text) {
        return plain(QString::fromStdString(text)).toStdString();
    };
    switch (control.kind()) {
        case Control::Kind::Text: {
            QString text = QString::fromStdString(static_cast<const TextField&>(control).text());
            return text.replace("\r\n", "\n").toStdString();
        }
        case Control::Kind::Check:
            return (static_cast<const CheckBox&>(control).on() ? "+" : "-") + oneLine(control.caption());
        case Control::Kind::Option:
            return (static_cast<const OptionButton&>(control).on() ? "+" : "-") + oneLine(control.caption());
        case Control::Kind::Scroll:
            return std::to_string(static_cast<const ScrollBar&>(control).value());
        case Control::Kind::Picture:
            return "picture";
        default:
            return oneLine(control.caption());
    }
}

/// The time of day is not what a form and its twin share.
inline std::string withoutClock(const std::string& text) {
    static const std::regex time("\\d\\d:\\d\\d:\\d\\d");
    return std::regex_replace(text, time, "clock");
}

/// One form in its window, and the same form on a screen that only records, as the player has it.
struct EveryForm : ::testing::TestWithParam<std::string> {
    EveryForm() : shown(windows, folder.path()), played(recorder, folder.path()) {
        makeTree(folder);
        forgetPlaces();
        closer.start(10);
        QObject::connect(&closer, &QTimer::timeout, [] {
            // What a form says about the empty tree is not the matter here.
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->reject();
        });
        shown.desk.show(GetParam());
        played.desk.show(GetParam());
        QCoreApplication::processEvents();
    }
    Form& form() { return shown.desk.form(GetParam()); }
    Form& twin() { return played.desk.form(GetParam()); }
    FormWindow& window() { return *windows.windowOf(form()); }

    QTimer closer;
    TempFolder folder;
    DesktopScreen windows;
    RecordingScreen recorder;
    Laboratory shown, played;
};

}  // namespace tarvex::test
