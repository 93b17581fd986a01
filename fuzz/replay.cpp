// Gives every seed of a folder to its reader, and beginnings of it, whole and with a byte changed.
// usage: tarvex_replay READER FOLDER
#include <cstdio>
#include <fstream>
#include <iterator>

#include "fuzz/target.h"

int main(int argc, char** argv) {
    const auto reader = argc == 3 ? tarvex::fuzz::readerOf(argv[1]) : nullptr;
    if (reader == nullptr) return 2;
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[2])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string seed{std::istreambuf_iterator<char>(file), {}};
        tarvex::fuzz::feed(reader, seed);
        for (std::size_t part = 1; part <= 16; ++part) {
            const std::size_t at = seed.size() * part / 17;
            std::string damaged = seed;
            if (at < damaged.size()) damaged[at] = static_cast<char>(damaged[at] ^ (1 << part % 8));
            tarvex::fuzz::feed(reader, damaged);
            tarvex::fuzz::feed(reader, std::string_view(seed).substr(0, at));
        }
        ++count;
    }
    std::printf("%d seeds of %s\n", count, argv[1]);
    return count > 0 ? 0 : 1;
}
