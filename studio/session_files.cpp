#include "studio/session_files.h"

#include <QFile>
#include <QSettings>
#include <algorithm>
namespace tarvex {

namespace {

constexpr int mostRecent = 8;

QSettings settings() { return {QSettings::IniFormat, QSettings::UserScope, "tarvex", "sessions"}; }

}  // namespace

std::filesystem::path lastSessionOf(const std::filesystem::path& tree) {
    return tree / "Dat" / "Session.tvx";
}

bool isWorthKeeping(const std::vector<std::string>& lines) {
    return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
        return !line.starts_with("place ") && !line.starts_with("#") && line != "show Form1";
    });
}

QStringList recentSessions() {
    QStringList files = settings().value("recent").toStringList();
    files.removeIf([](const QString& file) { return !QFile::exists(file); });
    return files;
}

void rememberSession(const QString& file) {
    QStringList files = recentSessions();
    files.removeAll(file);
    files.prepend(file);
    settings().setValue("recent", files.mid(0, mostRecent));
}

bool isFirstStart() {
    QSettings known = settings();
    const bool first = !known.contains("started");
    known.setValue("started", true);
    return first;
}

}  // namespace tarvex
