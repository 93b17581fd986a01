#include "core/file_trouble.h"

#include <cerrno>

namespace tarvex {

namespace fs = std::filesystem;

// complexity: one case an error of the system
std::string fileTrouble(const fs::path& path, int error, FileUse use) {
    std::error_code ignored;
    const std::string name = path.string();
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return "нет места на диске: " + name;
        case EACCES:
        case EPERM:
            return (use == FileUse::Write ? "нет права писать: " : "нет права читать: ") + name;
        case EROFS:
            return "нет права писать: " + name + " (диск только для чтения)";
        case ENOENT:
        case ENOTDIR: {
            const fs::path folder = path.parent_path();
            if (!folder.empty() && !fs::is_directory(folder, ignored)) return "нет папки " + folder.string();
            return "нет файла " + name;
        }
        case EISDIR:
            return "на месте файла папка: " + name;
        case ELOOP:
            return "ссылки идут по кругу: " + name;
        case ENAMETOOLONG:
            return "слишком длинное имя: " + name;
        case EMFILE:
        case ENFILE:
            return "открыто слишком много файлов: " + name;
        case EIO:
            return "ошибка диска: " + name;
        default:
            return "отказ системы № " + std::to_string(error) + ": " + name;
    }
}

}  // namespace tarvex
