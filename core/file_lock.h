#pragma once
// An advisory lock between the programs of this laboratory that write the same file.

#include <filesystem>
#include <functional>
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
    /// True when the path names the locked file.
    bool holds(const std::filesystem::path& path) const;
    void release();

private:
    explicit FileLock(int file) : file_(file) {}
    int file_ = -1;
};

/// The right to write a file, which one program has at a time.  It is taken under the lock of the folder, so
/// that of two programs that begin at once only one finds the file free.
class FileClaim {
public:
    /// @param replace  puts a new file in the place of the claimed one
    /// Throws FileFailure when another program is writing the file, and what replace() throws.
    void take(const std::filesystem::path& path, const std::function<void()>& replace = {});
    void drop() { lock_.release(); }

private:
    FileLock lock_;
};

}  // namespace tarvex
