#pragma once
// The window of a script that is played in the windows: how far it is, what it prints, a stop.

#include <QMainWindow>
#include <functional>
#include <ostream>
#include <streambuf>
#include <string>

class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace tarvex {

/// Hands each whole line that is written to it on.
class LineStream final : private std::streambuf, public std::ostream {
public:
    using Line = std::function<void(const std::string&)>;
    LineStream() : std::ostream(this) {}
    void onLine(Line line) { line_ = std::move(line); }

private:
    int overflow(int c) override;

    Line line_;
    std::string current_;
};

class ScriptWindow final : public QMainWindow {
public:
    explicit ScriptWindow(std::function<void()> stop);

    void begin(const QString& title, int lines);
    /// The line that is done now, counted from 1, and its text.
    void step(int line, const QString& text);
    void print(const std::string& line);
    void end(const QString& outcome);

private:
    QLabel* now_;
    QProgressBar* bar_;
    QPlainTextEdit* text_;
    QPushButton* stop_;
};

}  // namespace tarvex
