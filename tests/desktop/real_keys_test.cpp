// Real keys and clicks of a display server.  In the usual run without a display the test starts a virtual one
// and itself on it.

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>

#include "desktop/picture_view.h"
#include "tests/desktop/window_fixture.h"

namespace tarvex {

namespace {

struct RealKeys : test::WindowTest {
    /// Runs what the user's hands do and lets the windows answer meanwhile.
    static void hands(const QString& commands) {
        QProcess shell;
        shell.start("sh", {"-ec", commands});
        EXPECT_TRUE(QTest::qWaitFor([&] { return shell.state() == QProcess::NotRunning; }, 20000));
        EXPECT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
        QTest::qWait(100);
    }
    static QString clickOn(const QWidget* widget, QPoint at) {
        const QPoint spot = widget->mapToGlobal(at);
        return QString("xdotool mousemove %1 %2 click 1; ").arg(spot.x()).arg(spot.y());
    }

    void reachTheForm() {
        window->move(20, 20);
        QTest::qWait(100);
        const QString focus = QString("xdotool windowfocus %1; sleep 0.1; ").arg(window->winId());
        auto* field = find<QLineEdit>("Text1");
        hands(focus + clickOn(field, field->rect().center()) + "xdotool key ctrl+a; xdotool type 25,5");
        EXPECT_EQ(field->text(), "25,5");
        EXPECT_EQ(form->Text1.text(), "19,4");
        hands("xdotool key Return");  // the default command
        EXPECT_EQ(form->seen, "25,5|");

        auto* picture = static_cast<PictureView*>(find<QWidget>("Picture1"));
        hands(clickOn(picture, picture->target().center().toPoint()));
        EXPECT_NEAR(form->mouse.x(), 0, 0.2);
        EXPECT_NEAR(form->mouse.y(), 1, 0.2);

        // From button to button by Tab: the start, and the stop while it runs.
        find<QPushButton>("Command2")->setFocus();
        hands("xdotool key space; sleep 0.3; xdotool key Tab; xdotool key space; sleep 0.2");
        EXPECT_TRUE(form->ended);
        EXPECT_GT(form->passes, 1);

        hands("xdotool key F6; sleep 0.2");
        EXPECT_NE(QApplication::activePopupWidget(), nullptr);
        hands("xdotool key Escape");
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }

    /// Runs this same test on a virtual display.
    static void onVirtualDisplay() {
        for (const char* tool : {"Xvfb", "xdotool"})
            if (QStandardPaths::findExecutable(tool).isEmpty()) GTEST_SKIP() << tool << " is not installed";
        QProcess display;
        display.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1366x768x24", "-nolisten", "tcp"});
        ASSERT_TRUE(display.waitForReadyRead(20000)) << display.readAllStandardError().toStdString();
        const QByteArray number = display.readLine().trimmed();

        QProcess again;
        QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
        surroundings.insert("DISPLAY", ":" + QString::fromLatin1(number));
        surroundings.insert("QT_QPA_PLATFORM", "xcb");
        again.setProcessEnvironment(surroundings);
        again.setProcessChannelMode(QProcess::MergedChannels);
        again.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=RealKeys.*"});
        EXPECT_TRUE(again.waitForFinished(60000));
        EXPECT_EQ(again.exitCode(), 0) << again.readAll().toStdString();
        display.terminate();
        display.waitForFinished(5000);
    }
};

}  // namespace

TEST_F(RealKeys, ReachTheForm) {
    if (QGuiApplication::platformName() == "xcb")
        reachTheForm();
    else
        onVirtualDisplay();
}

}  // namespace tarvex
