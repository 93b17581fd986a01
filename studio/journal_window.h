#pragma once
// The window "Журнал" and its file.

#include <QMainWindow>
#include <filesystem>
#include <string>

class QPlainTextEdit;

namespace tarvex {

/// Shows what happens and keeps it in <tree>/Dat/Journal.txt; a file that has grown large goes to
/// Journal.txt.old, whose older content is lost.
class JournalWindow final : public QMainWindow {
public:
    explicit JournalWindow(const std::filesystem::path& tree);

    void add(const std::string& line);
    void open();

private:
    void append(const std::string& line);

    std::filesystem::path file_;
    std::uintmax_t bytes_ = 0;
    bool writable_ = true;
    QPlainTextEdit* text_;
};

}  // namespace tarvex
