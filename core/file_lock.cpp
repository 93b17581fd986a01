#include "core/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "core/failure.h"

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr mode_t newFileMode = 0666;  ///< what the user's mask leaves of it

/// For writing where that is allowed: a network disk locks only what is open so.
int openForLock(const fs::path& path, int more) {
    const int file = ::open(path.c_str(), O_RDWR | O_CLOEXEC | more, newFileMode);
    return file >= 0 ? file : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

bool lock(int file, int how) {
    while (flock(file, how) != 0)
        if (errno != EINTR) return false;
    return true;
}

bool names(const fs::path& path, int file) {
    struct stat open {
    }, named{};
    return fstat(file, &open) == 0 && stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

}  // namespace

FileLock::FileLock(FileLock&& other) noexcept : file_(std::exchange(other.file_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    if (this != &other) {
        release();
        file_ = std::exchange(other.file_, -1);
    }
    return *this;
}

std::optional<FileLock> FileLock::tryLock(const fs::path& path) {
    const int file = openForLock(path, 0);
    if (file < 0) return FileLock();
    if (lock(file, LOCK_EX | LOCK_NB)) return FileLock(file);
    const bool other = errno == EWOULDBLOCK;
    ::close(file);
    return other ? std::nullopt : std::optional(FileLock());
}

FileLock FileLock::wait(const fs::path& path) {
    for (;;) {
        FileLock taken(openForLock(path, O_CREAT));
        if (!taken.held() || !lock(taken.file_, LOCK_EX)) return {};
        if (names(path, taken.file_)) return taken;
    }
}

bool FileLock::holds(const fs::path& path) const { return held() && names(path, file_); }

void FileLock::release() {
    if (file_ >= 0) ::close(std::exchange(file_, -1));
}

void FileClaim::take(const fs::path& path, const std::function<void()>& replace) {
    if (!replace && lock_.holds(path)) return;
    std::error_code error;
    FileLock folder;
    if (fs::is_directory(path.parent_path(), error)) folder = FileLock::wait(path.parent_path());
    const auto lock = [&] {
        auto taken = FileLock::tryLock(path);
        if (!taken) throw FileFailure("файл " + path.string() + " пишет другая программа");
        lock_ = std::move(*taken);
    };
    if (!lock_.holds(path)) lock();
    if (!replace) return;
    replace();
    lock();
}

}  // namespace tarvex
