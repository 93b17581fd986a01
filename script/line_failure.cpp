#include "script/line_failure.h"

#include <algorithm>

namespace tarvex {

namespace {
constexpr std::size_t quoted = 60;  ///< bytes of a piece that are shown
}

std::string quote(std::string_view piece) {
    std::size_t length = std::min(piece.size(), quoted);
    while (length < piece.size() && length > 0 && (piece[length] & 0xC0) == 0x80) --length;  // whole letters
    std::string text("«");
    for (const char c : piece.substr(0, length))
        text += static_cast<unsigned char>(c) < 32 || c == 127 ? '?' : c;
    return text + (length < piece.size() ? "...»" : "»");
}

}  // namespace tarvex
