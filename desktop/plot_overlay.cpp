#include "desktop/plot_overlay.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace tarvex {

namespace {

constexpr double reach = 24;         ///< of the crosshair to a point, pixels
constexpr double legendGap = 6;      ///< from the edge
constexpr double legendShare = 0.6;  ///< of the height at most

}  // namespace

int PlotOverlay::layerOf(const Plot& plot) const {
    return layer_ && plot.layers().contains(*layer_) ? *layer_ : usualLayer(plot);
}

void PlotOverlay::setLook(PlotLook look) {
    look_ = std::move(look);
    points_ = {};
}

/// Adds the points that are new.  False when some have gone: then all is to be painted anew.
bool PlotOverlay::addPoints(const View& view) {
    QPainter onto(&points_);
    onto.translate(-view.axes.edge.topLeft());
    for (const auto& [number, series] : view.plot.all()) {
        if (!look_.covers(series)) continue;
        const auto [at, fresh] = painted_.try_emplace(number, Painted{series.revision(), 0});
        Painted& known = at->second;
        if (known.revision != series.revision() && known.points > 0) return false;
        if (known.points < series.points().size())
            paintSeries(onto, series, known.points, view.frame, look_, view.inks.dark);
        known = {series.revision(), series.points().size()};
    }
    return true;
}

void PlotOverlay::paintPoints(QPainter& painter, const View& view) {
    const double density = painter.device()->devicePixelRatioF();
    const QSize size = (view.axes.edge.size() * density).toSize();
    if (size.isEmpty()) return;
    const auto begin = [&] {
        points_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
        points_.setDevicePixelRatio(density);
        points_.fill(Qt::transparent);
        painted_.clear();
    };
    if (points_.size() != size || paintedEdge_ != view.axes.edge || paintedFrame_.area != view.frame.area ||
        paintedFrame_.part != view.frame.part || paintedDark_ != view.inks.dark)
        begin();
    paintedEdge_ = view.axes.edge;
    paintedFrame_ = view.frame;
    paintedDark_ = view.inks.dark;
    if (!addPoints(view)) {
        begin();
        addPoints(view);
    }
    painter.drawImage(view.axes.edge.topLeft(), points_);
    const bool any =
        std::any_of(painted_.begin(), painted_.end(), [](const auto& one) { return one.second.points > 0; });
    if (any && view.words) view.words(painter);
}

void PlotOverlay::paintCross(QPainter& painter, const View& view) const {
    if (!near_) return;
    const auto found = view.plot.all().find(near_->series);
    if (found == view.plot.all().end() || found->second.points().size() <= near_->point) return;
    const Plot::Series& series = found->second;
    const QPointF at = view.frame.at(series.meaningOf(near_->point).place(series.points()[near_->point]));
    const QRectF& edge = view.axes.edge;
    if (!edge.contains(at)) return;
    QColor ink = view.inks.text, ground = view.inks.ground;
    ink.setAlphaF(0.6F);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(ink, 1, Qt::DashLine));
    painter.drawLine(QPointF(edge.left(), at.y()), QPointF(edge.right(), at.y()));
    painter.drawLine(QPointF(at.x(), edge.top()), QPointF(at.x(), edge.bottom()));
    const QFontMetricsF metrics(painter.font(), painter.device());
    QRectF box(at + QPointF(10, -10 - metrics.height()),
               QSizeF(metrics.horizontalAdvance(text_) + 10, metrics.height() + 4));
    if (box.right() > edge.right()) box.moveRight(std::max(at.x() - 10, edge.left() + box.width()));
    if (box.top() < edge.top()) box.moveTop(at.y() + 10);
    painter.setPen(view.inks.text);
    painter.setBrush(ground);
    painter.drawRect(box);
    painter.drawText(box, Qt::AlignCenter, text_);
}

void PlotOverlay::paint(QPainter& painter, const View& view) {
    painter.save();
    painter.setFont(view.font);
    paintPoints(painter, view);
    const int layer = layerOf(view.plot);
    if (const auto meaning = view.plot.layers().find(layer); meaning != view.plot.layers().end())
        paintAxes(painter, view.frame, view.axes, *meaning->second, view.edgeInks,
                  colorOfLayer(view.plot, layer, look_, view.edgeInks.dark).value_or(view.edgeInks.text));
    legend_ = {};
    const QRectF& edge = view.axes.edge;
    if (legendShown_) {
        legend_ =
            legendOf(view.plot, view.font, edge.topRight() + QPointF(-legendGap, legendGap) + legendMoved_,
                     edge.height() * legendShare, 1);
        paintLegend(painter, legend_, view.plot, look_, view.inks, layer, 1);
    }
    paintCross(painter, view);
    painter.restore();
}

bool PlotOverlay::hover(const View& view, std::optional<QPointF> place) {
    const auto before = std::exchange(near_, std::nullopt);
    if (place && !legend_.box.contains(*place)) near_ = nearestPoint(view.plot, view.frame, *place, reach);
    text_ = near_ ? pointText(view.plot, *near_, view.frame) : QString();
    return before.has_value() != near_.has_value() || (near_ && before->at != near_->at);
}

}  // namespace tarvex
