// tarvex: the laboratory in windows.

#include <QApplication>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QTranslator>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "core/data_home.h"
#include "core/failure.h"
#include "core/leftovers.h"
#include "desktop/look.h"
#include "desktop/toolkit.h"
#include "studio/studio.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* usage = "tarvex [--data КАТАЛОГ] [--version]";
constexpr const char* noDisplay = "Нет экрана. Без экрана опыты проигрывает tarvex-script СЦЕНАРИЙ.";

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// The toolkit ends the program when the display does not answer: say first what to do about it.
void whileConnecting(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) return;
    std::fprintf(stderr, "tarvex: %s\n%s\n", noDisplay, qPrintable(text));
    std::_Exit(1);
}

/// The toolkit's own words (of its menus and dialogs) in Russian, where they are installed.
void setLanguage(QApplication& application) {
    auto* words = new QTranslator(&application);
    if (words->load("qtbase_ru", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
}

}  // namespace

int main(int argc, char** argv) {
    std::optional<fs::path> given;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--version") {
            std::printf("tarvex %s\n", TARVEX_VERSION);
            return 0;
        }
        if (word == "--data" && i + 1 < argc) {
            given = argv[++i];
        } else {
            std::fprintf(stderr, "%s\n", usage);
            return word == "--help" ? 0 : 2;
        }
    }
    if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM")) {
        std::fprintf(stderr, "tarvex: %s\n", noDisplay);
        return 1;
    }

    tarvex::prepareToolkit();
    int own = 1;  // the words are ours, not the toolkit's
    const auto before = qInstallMessageHandler(whileConnecting);
    QApplication application(own, argv);
    qInstallMessageHandler(before);
    QApplication::setApplicationName("tarvex");
    QApplication::setDesktopFileName("tarvex");
    QApplication::setQuitOnLastWindowClosed(false);  // the screen knows when the last form has gone
    tarvex::setLook(application);
    setLanguage(application);

    try {
        const fs::path data = tarvex::findDataTree(given);
        tarvex::sweepLeftovers(data);
        return tarvex::Studio(data).run();
    } catch (const std::exception& failure) {
        const std::string cause = tarvex::causeOf(failure);
        std::fprintf(stderr, "tarvex: %s\n", cause.c_str());
        QMessageBox::critical(nullptr, "Tarvex7", QString::fromStdString(cause));
        return 1;
    }
}
