#pragma once
// What a window lays over a picture that has a meaning: its series in their colours, axes, legend, and the
// values of the point under the pointer.

#include <QImage>
#include <functional>
#include <map>
#include <optional>

#include "desktop/plot_painter.h"

namespace tarvex {

class PlotOverlay {
public:
    /// A picture as it is seen now.
    struct View {
        const Plot& plot;
        PlotFrame frame;
        AxesPlace axes;
        PlotInks inks;      ///< on the picture
        PlotInks edgeInks;  ///< around it
        QFont font;
        std::function<void(QPainter&)> words = {};  ///< paints those of the picture again, over the series
    };

    void paint(QPainter& painter, const View& view);

    /// The pointer is here; none when it has gone.  @return  something else is to be seen now
    bool hover(const View& view, std::optional<QPointF> place);
    /// What stands at the crosshair: "1806,5 год; 23,6\" - dAlfaP, эксп. 1"; empty without one.
    const QString& text() const { return text_; }

    /// The legend as it was last painted.
    const Legend& legend() const { return legend_; }
    bool legendShown() const { return legendShown_; }
    void showLegend(bool on) { legendShown_ = on; }
    void moveLegend(QPointF by) { legendMoved_ += by; }

    /// The layer whose axes are shown.
    int layerOf(const Plot& plot) const;
    std::optional<int> chosenLayer() const { return layer_; }
    void chooseLayer(std::optional<int> layer) { layer_ = layer; }

    const PlotLook& look() const { return look_; }
    void setLook(PlotLook look);

private:
    struct Painted {
        int revision;
        std::size_t points;
    };

    void paintPoints(QPainter& painter, const View& view);
    bool addPoints(const View& view);
    void paintCross(QPainter& painter, const View& view) const;

    PlotLook look_;
    std::optional<int> layer_;  ///< chosen by the user
    bool legendShown_ = true;
    QPointF legendMoved_;
    Legend legend_;
    std::optional<NearPoint> near_;
    QString text_;

    QImage points_;  ///< the series as far as they are painted: a run adds few at a time
    PlotFrame paintedFrame_;
    QRectF paintedEdge_;
    bool paintedDark_ = false;
    std::map<int, Painted> painted_;
};

}  // namespace tarvex
