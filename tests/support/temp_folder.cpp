#include "tests/support/temp_folder.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace tarvex::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    std::string name = fs::temp_directory_path() / "test-of-tarvex-XXXXXX";
    if (mkdtemp(name.data()) == nullptr)
        throw fs::filesystem_error(name, std::error_code(errno, std::generic_category()));
    path_ = name;
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
