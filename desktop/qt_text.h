#pragma once
// Texts of the laboratory (UTF-8) as those of Qt.

#include <QString>
#include <string>

namespace tarvex {

inline QString toQt(const std::string& text) { return QString::fromStdString(text); }

}  // namespace tarvex
