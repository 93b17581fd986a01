#pragma once
// Who wants to hear which files are used.

#include <filesystem>
#include <functional>

namespace tarvex {

enum class FileTouch { Read, Written, Appended };

/// While it lives, it hears of every text file that its thread opens for reading, has put in place or has
/// appended to.  Of several on one thread the newest hears.
class FileWatch {
public:
    using Heard = std::function<void(FileTouch use, const std::filesystem::path& file)>;
    explicit FileWatch(Heard heard);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    /// Told by what opens files.
    static void tell(FileTouch use, const std::filesystem::path& file);

private:
    Heard heard_;
    FileWatch* before_;
};

}  // namespace tarvex
