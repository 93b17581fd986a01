#include "script/session_script.h"

#include "core/text_files.h"

namespace tarvex {

namespace {
constexpr const char* head = "# Сеанс лаборатории Tarvex7";
}

void writeScript(const std::filesystem::path& file, const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text.append(line).append("\r\n");
    writeWhole(file, text);
}

void writeSession(const std::filesystem::path& file, std::vector<std::string> lines) {
    lines.insert(lines.begin(), head);
    writeScript(file, lines);
}

bool isSession(const std::vector<std::string>& script) { return !script.empty() && script.front() == head; }

}  // namespace tarvex
