#include "core/private_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "core/failure.h"
#include "core/file_trouble.h"
#include "core/process_numbers.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view ours = "tarvex-";
constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz";

fs::path folderOfPassingFiles() {
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    return error ? fs::path("/tmp") : folder;
}

/// The process of "tarvex-<kind>-<process>-..."; 0 for any other name.
pid_t ownerOfFolder(std::string_view name) {
    if (!name.starts_with(ours)) return 0;
    name.remove_prefix(ours.size());
    const auto end = name.find_first_not_of(letters);
    if (end == 0 || end == std::string_view::npos || name[end] != '-') return 0;
    const auto process = name.substr(end + 1);
    const auto digits = process.find_first_not_of("0123456789");
    return digits == std::string_view::npos || process[digits] != '-' ? 0 : processIn(process);
}

bool ownFolder(const fs::path& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid();
}

}  // namespace

PrivateFolder::PrivateFolder(const std::string& kind) {
    std::string path =
        folderOfPassingFiles() / (std::string(ours) + kind + "-" + std::to_string(getpid()) + "-XXXXXX");
    if (mkdtemp(path.data()) == nullptr) throw OpenFailure(fileTrouble(path, errno, FileUse::Write));
    path_ = path;
    if (auto lock = FileLock::tryLock(path_)) lock_ = std::move(*lock);
}

PrivateFolder::~PrivateFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

void sweepPrivateFolders() {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folderOfPassingFiles(), error)) {
        const std::string name = entry.path().filename().string();
        if (!gone(ownerOfFolder(name)) || !ownFolder(entry.path())) continue;
        // a process that a container hides from this one still holds it
        if (const auto lock = FileLock::tryLock(entry.path())) fs::remove_all(entry.path(), error);
    }
}

}  // namespace tarvex
