#include "core/failure.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <new>
#include <system_error>

#include "core/file_trouble.h"

namespace tarvex {

namespace {
constexpr std::size_t quoted = 60;  ///< bytes of a piece that are shown
}

std::string causeOf(const std::exception& failure) {
    if (const auto* refusal = dynamic_cast<const Refusal*>(&failure)) return refusal->cause;
    if (dynamic_cast<const Failure*>(&failure) != nullptr) return failure.what();
    if (dynamic_cast<const std::bad_alloc*>(&failure) != nullptr ||
        dynamic_cast<const std::length_error*>(&failure) != nullptr)
        return "не хватает памяти";
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&failure))
        return fileTrouble(file->path1(), file->code().value(), FileUse::Write);
    if (const auto* system = dynamic_cast<const std::system_error*>(&failure))
        return "отказ системы № " + std::to_string(system->code().value());
    if (dynamic_cast<const std::out_of_range*>(&failure) != nullptr) return "номер вне границ";
    return std::string("внутренняя ошибка: ") + failure.what();
}

std::string causeInHand() {
    const std::exception_ptr inHand = std::current_exception();
    if (!inHand) return "";
    try {
        std::rethrow_exception(inHand);
    } catch (const std::exception& failure) {
        return causeOf(failure);
    } catch (...) {
        return "";
    }
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
