#pragma once
// A picture as a drawing of vectors and as numbers for a spreadsheet.

#include <QByteArray>
#include <filesystem>

#include "core/text_files.h"
#include "desktop/drawing.h"

class QImage;

namespace tarvex {

/// The picture as .svg.  Where old marks are gone it holds the image instead, so that nothing is missing.
QByteArray svgOf(const Drawing& drawing, const QImage& image);

/// Points (discs, circles, dots), then lines, in user coordinates: "вид;x;y;x2;y2;цвет" with a decimal comma.
/// What is drawn in the background colour is left out.
QByteArray csvOf(const Drawing& drawing);

/// Writes a file whole or not at all.  Throws FileFailure.
inline void writeWhole(const std::filesystem::path& path, const QByteArray& bytes) {
    writeWhole(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

}  // namespace tarvex
