#include "core/data_home.h"

#include <cstdlib>
#include <string>

#include "core/failure.h"
#include "core/file_trouble.h"
#include "core/leftovers.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr int foldersAbove = 3;

/// A data tree has a folder of parameter files.
bool isTree(const fs::path& folder) {
    std::error_code error;
    return fs::is_directory(folder / "Dat", error);
}

/// Copies the tree under a passing name and renames it, so that an interrupted copy is never taken for a
/// tree.
void copyTree(const fs::path& from, const fs::path& to) {
    const fs::path passing = passingName(to);
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    for (const auto& entry : fs::directory_iterator(to.parent_path(), error))
        if (entry.path().filename().string().starts_with(to.filename().string()) && abandoned(entry))
            fs::remove_all(entry.path(), error);
    fs::copy(from, passing, fs::copy_options::recursive, error);
    if (!error) fs::rename(passing, to, error);
    if (error) {
        std::error_code ignored;
        fs::remove_all(passing, ignored);
        throw OpenFailure("не копируется каталог данных: " + fileTrouble(to, error.value(), FileUse::Write));
    }
}

}  // namespace

fs::path findDataTree(const std::optional<fs::path>& given, const fs::path& executable,
                      const fs::path& userData) {
    if (given) {
        std::error_code error;
        if (!fs::is_directory(*given, error)) throw OpenFailure("нет папки " + given->string());
        return *given;
    }
    fs::path folder = executable.parent_path();
    for (int i = 0; i <= foldersAbove; ++i, folder = folder.parent_path())
        if (isTree(folder / "data")) return folder / "data";
    fs::path own = userData / "tarvex";
    if (isTree(own)) return own;
    const fs::path packaged = executable.parent_path().parent_path() / "share" / "tarvex" / "data";
    if (!isTree(packaged)) throw OpenFailure("нет каталога данных рядом с " + executable.string());
    copyTree(packaged, own);
    return own;
}

fs::path findDataTree(const std::optional<fs::path>& given) {
    std::error_code error;
    const fs::path self = fs::read_symlink("/proc/self/exe", error);
    const char* data = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    const fs::path userData = data != nullptr && *data != '\0'
                                  ? fs::path(data)
                                  : fs::path(home != nullptr ? home : "/") / ".local" / "share";
    return findDataTree(given, self, userData);
}

}  // namespace tarvex
