// The fuzzer's entry: TARVEX_FUZZ names the reader.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const tarvex::fuzz::Reader reader = [] {
        const char* name = std::getenv("TARVEX_FUZZ");
        const auto found = tarvex::fuzz::readerOf(name == nullptr ? "" : name);
        if (found == nullptr) {
            std::fprintf(stderr, "TARVEX_FUZZ names no reader\n");
            std::exit(2);
        }
        return found;
    }();
    tarvex::fuzz::feed(reader, {reinterpret_cast<const char*>(data), size});
    return 0;
}
