#pragma once
// What the system says of a file, in words of the user.

#include <filesystem>
#include <string>

namespace tarvex {

enum class FileUse { Read, Write };

/// Why a file could not be used: "нет места на диске: PATH", "нет папки PATH".
/// @param error  the system's number of the error (errno)
std::string fileTrouble(const std::filesystem::path& path, int error, FileUse use);

}  // namespace tarvex
