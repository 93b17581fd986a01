#pragma once
// An advisory lock between the programs of this laboratory that write the same file.

#include <filesystem>
#include <optional>

namespace tarvex {

/// The lock of a file or folder, held until this object or its process is gone, however that ends.  It
/// belongs to the file itself, not to its name: a file that replaces it has none.
class FileLock {
public:
    FileLock() = default;  ///< holds nothing
    ~FileLock() { release(); }
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;

    /// @return  nothing when somebody else holds the lock; a lock that holds nothing when there is no such
    /// file
    ///          or its disk knows no locks
    static std::optional<FileLock> tryLock(const std::filesystem::path& path);
    /// Makes the file when there is none, and waits until nobody else holds its lock.  What the path names is
    /// then the locked file, also when it was replaced in the meantime.
    static FileLock wait(const std::filesystem::path& path);

    bool held() const { return file_ >= 0; }
    void release();

private:
    explicit FileLock(int file) : file_(file) {}
    int file_ = -1;
};

}  // namespace tarvex
