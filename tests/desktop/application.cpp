// The application of all window tests; their settings stay in a folder of their own.

#include <gtest/gtest.h>

#include <QSettings>
#include <QtWidgets/QApplication>
#include <memory>

#include "tests/support/temp_folder.h"

namespace tarvex {

namespace {

struct Application : ::testing::Environment {
    void SetUp() override {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                           QString::fromStdString(settings.path().string()));
        application = std::make_unique<QApplication>(count, arguments);
        QApplication::setQuitOnLastWindowClosed(false);
    }
    void TearDown() override { application.reset(); }  // before the statics of the toolkit go

    const test::TempFolder settings;
    int count = 1;
    char name[14] = "desktop_tests";
    char* arguments[2] = {name, nullptr};
    std::unique_ptr<QApplication> application;
};
[[maybe_unused]] const auto* const environment = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace

}  // namespace tarvex
