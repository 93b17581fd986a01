#include "studio/journal_window.h"

#include <QPlainTextEdit>
#include <QShortcut>

#include "core/failure.h"
#include "core/file_watch.h"
#include "core/text_files.h"
#include "desktop/window_bar.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {
constexpr std::uintmax_t largest = 1 << 19;  ///< bytes of the file
constexpr int mostLines = 20000;             ///< in the window
}  // namespace

JournalWindow::JournalWindow(const fs::path& tree)
    : file_(tree / "Dat" / "Journal.txt"), text_(new QPlainTextEdit) {
    setObjectName("journal");
    setWindowTitle("Журнал");
    text_->setReadOnly(true);
    text_->setMaximumBlockCount(mostLines);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setFont(QFont("monospace", font().pointSize()));
    text_->setAccessibleName("Что было сделано");
    text_->setToolTip(
        "Что нажато, какие файлы прочитаны и записаны, сообщения, сколько заняло; то же - в файле " +
        QString::fromStdString(file_.string()));
    setCentralWidget(text_);
    resize(820, 520);
    connect(new QShortcut(QKeySequence("Escape"), this), &QShortcut::activated, this, &QWidget::hide);
    std::error_code none;
    if (const auto size = fs::file_size(file_, none); !none) bytes_ = size;
}

void JournalWindow::open() { bringToFront(*this); }

void JournalWindow::add(const std::string& line) {
    text_->appendPlainText(QString::fromStdString(line));
    if (writable_) append(line);
}

/// A tree that cannot be written to has its journal in the window alone.
void JournalWindow::append(const std::string& line) try {
    const FileWatch::Silence unheard;
    if (bytes_ > largest) {
        putInPlace(file_, fs::path(file_) += ".old");
        bytes_ = 0;
    }
    appendLine(file_, line);
    bytes_ += line.size() + 2;
} catch (const FileFailure&) {
    writable_ = false;
}

}  // namespace tarvex
