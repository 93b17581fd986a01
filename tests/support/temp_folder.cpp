#include "tests/support/temp_folder.h"

#include <unistd.h>

#include <atomic>
#include <fstream>
#include <iterator>

namespace tarvex::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static std::atomic<int> count = 0;
    path_ =
        fs::temp_directory_path() / ("tarvex-" + std::to_string(getpid()) + "-" + std::to_string(++count));
    fs::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

void TempFolder::makeFolder(const std::string& relative) const { fs::create_directories(path_ / relative); }

void writeBytes(const fs::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string readBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tarvex::test
