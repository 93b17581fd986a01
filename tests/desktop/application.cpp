// The application of all window tests; their settings stay in a folder of their own.

#include <QFont>
#include <QSettings>
#include <QtWidgets/QApplication>

#include "desktop/look.h"
#include "desktop/toolkit.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

struct Application : ::testing::Environment {
    void SetUp() override {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                           QString::fromStdString(settings.path().string()));
        prepareToolkit();
        if (qEnvironmentVariable("QT_QPA_PLATFORM") == "offscreen") describeScreen();
        application = std::make_unique<QApplication>(count, arguments);
        QApplication::setFont(QFont("DejaVu Sans", 10));
        setLook(*application);
        QApplication::setQuitOnLastWindowClosed(false);
    }
    void TearDown() override { application.reset(); }  // before the statics of the toolkit go

    /// The smallest screen on which the windows are to be comfortable.
    void describeScreen() const {
        const auto file = settings.path() / "screen.json";
        std::ofstream(file) << R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": 1280, "height": 720,
                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QByteArray::fromStdString(file.string()));
    }

    const test::TempFolder settings;
    int count = 1;
    char name[14] = "desktop_tests";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<QApplication> application;
};
[[maybe_unused]] const auto* const environment = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace

}  // namespace tarvex
