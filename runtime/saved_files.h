#pragma once
// Tells after a command which files it has written.

#include <filesystem>
#include <string>
#include <vector>

#include "core/file_watch.h"
#include "runtime/desk_observer.h"

namespace tarvex {

class Desk;

/// "Сохранено: Dat/Tarvex1.dat (прежний файл - Dat/Tarvex1.dat.old)" in the status line of the form whose
/// command has put files in place, unless the form has something else to tell.  What a calculation that gives
/// way writes is told by the form that runs it.
class SavedFiles final : public DeskObserver {
public:
    /// @param tree  folder of the data tree: files in it are named from there
    SavedFiles(Desk& desk, std::filesystem::path tree);
    ~SavedFiles() override;
    SavedFiles(const SavedFiles&) = delete;
    SavedFiles& operator=(const SavedFiles&) = delete;

    void deedBegins(const Deed& deed) override;
    void deedEnds(const Deed& deed) override;
    void givingWay() override { calculating_ = true; }

private:
    std::string words() const;

    Desk& desk_;
    std::filesystem::path tree_;
    FileWatch files_;
    std::vector<std::filesystem::path> written_;  ///< since the deed began
    int depth_ = 0;                               ///< deeds that have not ended
    bool calculating_ = false;
};

}  // namespace tarvex
