#include "studio/script_window.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tarvex {

namespace {
constexpr int transcriptLines = 20000;  ///< of the transcript
constexpr int longestLine = 110;        ///< of a line that is done now, characters
}  // namespace

int LineStream::overflow(int c) {
    if (c == std::streambuf::traits_type::eof()) return 0;
    if (c != '\n') {
        current_ += static_cast<char>(c);
    } else {
        if (line_) line_(current_);
        current_.clear();
    }
    return c;
}

ScriptWindow::ScriptWindow(std::function<void()> stop)
    : now_(new QLabel),
      bar_(new QProgressBar),
      text_(new QPlainTextEdit),
      stop_(new QPushButton("Остановить")) {
    setObjectName("script");
    setWindowTitle("Сценарий");
    now_->setTextFormat(Qt::PlainText);
    text_->setReadOnly(true);
    text_->setMaximumBlockCount(transcriptLines);
    text_->setAccessibleName("Что печатает сценарий");
    text_->setFont(QFont("monospace", font().pointSize()));
    stop_->setToolTip("Сценарий кончается перед следующей строкой; расчет - когда уступит управление");
    auto* contents = new QWidget;
    auto* column = new QVBoxLayout(contents);
    auto* row = new QHBoxLayout;
    row->addWidget(bar_, 1);
    row->addWidget(stop_);
    column->addWidget(now_);
    column->addLayout(row);
    column->addWidget(text_, 1);
    setCentralWidget(contents);
    resize(820, 460);
    connect(stop_, &QPushButton::clicked, this, std::move(stop));
    connect(new QShortcut(QKeySequence("Escape"), this), &QShortcut::activated, this, &QWidget::hide);
}

void ScriptWindow::begin(const QString& title, int lines) {
    setWindowTitle("Сценарий " + title);
    text_->clear();
    bar_->setRange(0, lines);
    bar_->setValue(0);
    stop_->setEnabled(true);
    show();
}

void ScriptWindow::step(int line, const QString& text) {
    bar_->setValue(line - 1);
    bar_->setFormat(QString("строка %1 из %2").arg(line).arg(bar_->maximum()));
    now_->setText(text.size() > longestLine ? text.left(longestLine) + "..." : text);
}

void ScriptWindow::print(const std::string& line) { text_->appendPlainText(QString::fromStdString(line)); }

void ScriptWindow::end(const QString& outcome) {
    bar_->setValue(bar_->maximum());
    now_->setText(outcome);
    stop_->setEnabled(false);
}

}  // namespace tarvex
