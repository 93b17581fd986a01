#pragma once
// Lays the meaning of a picture over it: points of series, ticks, legend.  The same on a window and on paper.

#include <QFont>
#include <QRectF>
#include <optional>
#include <vector>

#include "desktop/plot_look.h"

class QPainter;

namespace tarvex {

/// How a picture lies on what it is painted on.
struct PlotFrame {
    QRectF area;              ///< of the picture, or its shown part, on the device
    QRectF part{0, 0, 1, 1};  ///< what of the picture is shown, in its shares
    double unit = 1;          ///< device units of a usual pixel: widths of lines, sizes of signs

    QPointF at(Plot::Point share) const {
        return {area.left() + (share.x - part.left()) / part.width() * area.width(),
                area.top() + (share.y - part.top()) / part.height() * area.height()};
    }
    Plot::Point shareAt(QPointF place) const {
        return {part.left() + (place.x() - area.left()) / area.width() * part.width(),
                part.top() + (place.y() - area.top()) / area.height() * part.height()};
    }
};

/// Inks on a ground.
struct PlotInks {
    QColor text, ground;
    bool dark = false;  ///< the picture itself
};

/// Room that the axes take around a picture.
QMarginsF axesMargins(const QFont& font);

/// The layer whose axes are shown when nobody has chosen one: that of the newest quantity, or else the first.
int usualLayer(const Plot& plot);
/// The colour of its only quantity; none where there are several.
std::optional<QColor> colorOfLayer(const Plot& plot, int layer, const PlotLook& look, bool dark);

/// Where the axes go: along the left and lower edges of what is seen of a picture, outside of it, or on
/// strips of ground within it.
struct AxesPlace {
    QRectF edge;
    bool leftInside = false, lowInside = false;
};

/// Ticks, values and names of both axes.
void paintAxes(QPainter& painter, const PlotFrame& frame, const AxesPlace& place,
               const Plot::Meaning& meaning, const PlotInks& inks, const QColor& titleInk);

void drawSign(QPainter& painter, QPointF at, Sign sign, const QColor& color, double unit);

/// Points of a series that lie in the frame, from one on.
void paintSeries(QPainter& painter, const Plot::Series& series, std::size_t from, const PlotFrame& frame,
                 const PlotLook& look, bool dark);

struct Legend {
    struct Row {
        int series;  ///< Plot::none: only a text
        QString text;
        QRectF box;
    };
    QRectF box;
    std::vector<Row> rows;
};

/// The series of quantities that have points, one a row; what finds no room is counted.  What is drawn as it
/// is
/// - bodies - tells its name at the pointer.  @param corner  right top corner of the legend
Legend legendOf(const Plot& plot, const QFont& font, QPointF corner, double height, double unit);
void paintLegend(QPainter& painter, const Legend& legend, const Plot& plot, const PlotLook& look,
                 const PlotInks& inks, int layer, double unit);

/// A point of a series near a place.
struct NearPoint {
    int series = Plot::none;
    std::size_t point = 0;
    QPointF at;
};
std::optional<NearPoint> nearestPoint(const Plot& plot, const PlotFrame& frame, QPointF place, double reach);

/// "1806,5 год; 23,6\" - dAlfaP, эксп. 1"
QString pointText(const Plot& plot, const NearPoint& near, const PlotFrame& frame);

/// "время = 1806,5 год    dAlfaP = 23,6\"" of a place, in the axes of a layer.
QString placeText(const Plot::Meaning& meaning, const PlotFrame& frame, QPointF place);

}  // namespace tarvex
