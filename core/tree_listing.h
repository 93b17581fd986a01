#pragma once
// What lies in a folder of the data tree.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvex {

struct FolderListing {
    struct File {
        std::string name;
        std::uintmax_t bytes;
    };
    std::string name;
    bool readable = true;                ///< false when the folder is missing or closed to us
    std::vector<File> files;             ///< in order of name
    std::vector<FolderListing> folders;  ///< in order of name

    /// Files here and in the folders below.
    int count() const;
    std::uintmax_t bytes() const;
};

/// The folder with all that is below it, `depth` folders deep.  Hidden and passing files are left out, links
/// to folders are not followed.  Never throws for what is on the disk.
FolderListing listFolder(const std::filesystem::path& folder, int depth = 4);

}  // namespace tarvex
