#pragma once
// Who wants to hear which files are used.

#include <filesystem>
#include <functional>

namespace tarvex {

enum class FileTouch { Read, Written, Appended };

/// While it lives, it hears of every text file that its thread opens for reading, has put in place or has
/// appended to.
class FileWatch {
public:
    using Heard = std::function<void(FileTouch use, const std::filesystem::path& file)>;
    explicit FileWatch(Heard heard);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    /// Told by what opens files.
    static void tell(FileTouch use, const std::filesystem::path& file);

    /// While it lives, nobody on its thread hears of files.
    class Silence {
    public:
        Silence();
        ~Silence();
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

    private:
        FileWatch* kept_;
    };

private:
    Heard heard_;
    FileWatch* before_;
};

}  // namespace tarvex
