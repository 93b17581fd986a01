#pragma once
// The user's hands on a real display server.  In the usual run without a display a test starts a virtual one
// and itself on it.

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <QtTest/QTest>
#include <QtWidgets>

namespace tarvex::test {

/// The keyboard goes to a window: no window manager is there to see to it.
inline QString turnTo(const QWidget& to) {
    return QString("xdotool windowfocus %1; sleep 0.1; ").arg(to.winId());
}
/// Runs what the user's hands do and lets the windows answer meanwhile.
inline void hands(const QString& commands) {
    QProcess shell;
    shell.start("sh", {"-ec", commands});
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell.state() == QProcess::NotRunning; }, 20000));
    EXPECT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
    QTest::qWait(100);
}
inline QString clickOn(const QWidget* widget, QPoint at) {
    const QPoint spot = widget->mapToGlobal(at) * widget->devicePixelRatioF();
    return QString("xdotool mousemove %1 %2 click 1; ").arg(spot.x()).arg(spot.y());
}
inline bool onRealDisplay() { return QGuiApplication::platformName() == "xcb"; }

/// Runs a test of this program again, by its full name, on a virtual display of this size, "1366x768".
inline void onVirtualDisplay(const QString& test, const QString& size = "1366x768",
                             const QString& scale = "1") {
    for (const char* tool : {"Xvfb", "xdotool"})
        if (QStandardPaths::findExecutable(tool).isEmpty()) GTEST_SKIP() << tool << " is not installed";
    QProcess display;
    display.start("Xvfb", {"-displayfd", "1", "-screen", "0", size + "x24", "-nolisten", "tcp"});
    ASSERT_TRUE(display.waitForReadyRead(20000)) << display.readAllStandardError().toStdString();
    const QByteArray number = display.readLine().trimmed();

    QProcess again;
    QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    surroundings.insert("DISPLAY", ":" + QString::fromLatin1(number));
    surroundings.insert("QT_QPA_PLATFORM", "xcb");
    surroundings.insert("QT_SCALE_FACTOR", scale);
    again.setProcessEnvironment(surroundings);
    again.setProcessChannelMode(QProcess::MergedChannels);
    again.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=" + test});
    EXPECT_TRUE(again.waitForFinished(60000));
    EXPECT_EQ(again.exitCode(), 0) << again.readAll().toStdString();
    display.terminate();
    display.waitForFinished(5000);
}

}  // namespace tarvex::test
