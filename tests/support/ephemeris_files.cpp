#include "tests/support/ephemeris_files.h"

namespace tarvex::test {

namespace fs = std::filesystem;

fs::path ephemerisFolder() { return fs::path(TARVEX_SOURCE_DIR) / "data" / "JPL"; }

void linkEphemeris(const TempFolder& folder) {
    folder.makeFolder("JPL");
    for (const auto& entry : fs::directory_iterator(ephemerisFolder()))
        if (entry.path().extension() == ".405")
            fs::create_symlink(entry.path(), folder.path() / "JPL" / entry.path().filename());
}

}  // namespace tarvex::test
