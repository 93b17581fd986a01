#pragma once
// Windows of a desk in a test: find their widgets, press and type.

#include <gtest/gtest.h>

#include <QSettings>

#include "tests/desktop/bench_form.h"

namespace tarvex::test {

template <class Widget>
Widget* find(const QWidget& window, const std::string& name) {
    auto* widget = window.findChild<Widget*>(QString::fromStdString(name));
    if (widget == nullptr) throw Failure("no widget " + name);
    return widget;
}

/// The bench form in its window.
struct WindowTest : ::testing::Test {
    WindowTest() : desk(screen) {
        desk.add("Bench", [this] { return std::make_unique<BenchForm>(desk); });
        desk.show("Bench");
        form = &desk.get<BenchForm>();
        window = screen.windowOf(*form);
        [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(window);
    }
    template <class Widget>
    Widget* find(const char* name) const {
        return test::find<Widget>(*window, name);
    }
    void press(const char* name) const { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
    void type(const char* name, const char* text) const {
        auto* edit = find<QLineEdit>(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }

    DesktopScreen screen;
    Desk desk;
    BenchForm* form;
    FormWindow* window;
};

/// Windows open again as for the first time.
inline void forgetPlaces() {
    QSettings(QSettings::IniFormat, QSettings::UserScope, "tarvex", "windows").clear();
}

/// Does something in the middle of what runs until then.
template <class Action>
void soon(Action action) {
    QTimer::singleShot(50, action);
}

}  // namespace tarvex::test
