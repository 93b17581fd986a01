#pragma once
// A folder of a test's own, removed with everything in it when the test ends.

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvex::test {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Makes a folder inside, with all above it.
    void makeFolder(const std::string& relative) const;

private:
    std::filesystem::path path_;
};

void writeBytes(const std::filesystem::path& path, std::string_view bytes);
std::string readBytes(const std::filesystem::path& path);

}  // namespace tarvex::test
