// Built where LibreOffice or its development files are missing.
#include <utility>

#include "spreadsheet/spreadsheet.h"

namespace tarvex {

struct SpreadsheetOffice::Running {};

SpreadsheetOffice::SpreadsheetOffice() = default;
SpreadsheetOffice::~SpreadsheetOffice() = default;
void SpreadsheetOffice::onBusy(std::function<void(bool)> busy) { busy_ = std::move(busy); }
int SpreadsheetOffice::process() const { return 0; }
bool SpreadsheetOffice::available() { return false; }

std::unique_ptr<Workbook> SpreadsheetOffice::open(const std::filesystem::path& path, int) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) throw OpenFailure("нет файла " + path.string());
    throw OfficeFailure(
        "программа собрана без LibreOffice (пакеты libreoffice-calc-nogui и libreoffice-dev)");
}

}  // namespace tarvex
