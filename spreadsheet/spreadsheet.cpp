#include "spreadsheet/spreadsheet.h"

#include "core/numbers.h"

namespace tarvex {

double numberIn(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) return *number;
    throw ConversionFailure("в таблице текст вместо числа: " + quote(std::get<std::string>(value)));
}

std::string textIn(const CellValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return toText(std::get<double>(value));
}

}  // namespace tarvex
