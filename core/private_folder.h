#pragma once
// Folders for passing files that nobody else can enter.

#include <filesystem>
#include <string>

#include "core/file_lock.h"

namespace tarvex {

/// A fresh folder "tarvex-<kind>-<process>-..." among the passing files of this machine, open to this user
/// alone, removed with all it holds by the destructor or, when the process was killed, by the next sweep.
class PrivateFolder {
public:
    /// @param kind  letters: what it is for
    /// Throws OpenFailure when no folder can be made.
    explicit PrivateFolder(const std::string& kind);
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    FileLock lock_;  ///< tells it from a killed program's
};

/// Removes the private folders of this user whose process is gone.
void sweepPrivateFolders();

}  // namespace tarvex
