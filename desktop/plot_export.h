#pragma once
// A picture on paper: with axes, legend and caption as .pdf and .svg, and its series as a table.

#include <QByteArray>
#include <QRectF>
#include <string>

#include "desktop/plot_painter.h"

namespace tarvex {

class ImageCanvas;

/// What a figure is made of.
struct Figure {
    const ImageCanvas& canvas;
    const Plot& plot;
    std::string caption;
    QRectF part{0, 0, 1, 1};  ///< what of the picture is shown, in its shares
    PlotLook look = {};
    int layer = Plot::none;  ///< whose axes are shown; none: the usual one's
};

/// Paints it into a rectangle: caption above, axes left and below, the legend at the right.
/// @param unit  device units of a usual pixel
void paintFigure(QPainter& painter, const QRectF& page, const Figure& figure, double unit);

/// The size that a figure takes within `most` so that its picture keeps its shape, device units.
QSizeF figureSize(const Figure& figure, QSizeF most, double unit);

/// The bytes of a file: ".pdf" (A4 across), ".svg", or ".csv" (seriesTable).  Throws FileFailure for another
/// ending.
QByteArray figureFile(std::string ending, const Figure& figure);

/// The bytes of a .png in the shape of the picture.
QByteArray figureImage(const Figure& figure);

/// One block a series: its name, the names of its columns with units ("время, год; dAlfaP, сек"), its points
/// as quantities with a decimal comma.
QByteArray seriesTable(const Plot& plot);

}  // namespace tarvex
