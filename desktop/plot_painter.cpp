#include "desktop/plot_painter.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "desktop/plot_ticks.h"
#include "desktop/qt_text.h"

namespace tarvex {

namespace {

constexpr double tickLength = 4, gap = 3;  ///< usual pixels
constexpr double signSize = 2.7;           ///< half of a sign
constexpr int widestValue = 8;             ///< characters of a value at the left axis

bool isShown(const Plot::Series& series) { return !series.points().empty(); }

/// Resolution of a quantity: what a pixel means.
Plot::Point resolution(const Plot::Meaning& meaning, const PlotFrame& frame) {
    const UserScale& s = meaning.scale;
    const double pixels = 1 / frame.unit;
    return {std::abs((s.right - s.left) * meaning.axes.x.factor) * frame.part.width() / frame.area.width() /
                pixels,
            std::abs((s.bottom - s.top) * meaning.axes.y.factor) * frame.part.height() / frame.area.height() /
                pixels};
}

double userX(const Plot::Meaning& m, double share) {
    return m.scale.left + share * (m.scale.right - m.scale.left);
}
double userY(const Plot::Meaning& m, double share) {
    return m.scale.top + share * (m.scale.bottom - m.scale.top);
}

}  // namespace

QMarginsF axesMargins(const QFont& font) {
    const QFontMetricsF metrics(font);
    const double line = metrics.height() + gap;
    return {metrics.horizontalAdvance('0') * widestValue + tickLength + gap, line, gap, line + tickLength};
}

int usualLayer(const Plot& plot) {
    for (auto one = plot.all().rbegin(); one != plot.all().rend(); ++one)
        if (isShown(one->second) && one->second.spec().color >= 0) return one->second.spec().layer;
    for (const auto& [number, series] : plot.all())
        if (isShown(series)) return series.spec().layer;
    return plot.layers().empty() ? 0 : plot.layers().begin()->first;
}

std::optional<QColor> colorOfLayer(const Plot& plot, int layer, const PlotLook& look, bool dark) {
    std::optional<QColor> only;
    for (const auto& [number, series] : plot.all()) {
        if (!isShown(series) || series.spec().layer != layer || !look.covers(series)) continue;
        const QColor color = look.colorOf(series, dark);
        if (only && *only != color) return std::nullopt;
        only = color;
    }
    return only;
}

namespace {

void paintLowerAxis(QPainter& p, const PlotFrame& frame, const QRectF& edge, const Plot::Meaning& m,
                    const PlotInks& inks, bool inside) {
    const QFontMetricsF metrics(p.font(), p.device());
    const double unit = frame.unit, line = metrics.height(), tick = tickLength * unit;
    const double top = inside ? edge.bottom() - line - tick : edge.bottom();
    if (inside) p.fillRect(QRectF(edge.left(), top, edge.width(), line + tick), inks.ground);
    p.setPen(QPen(inks.text, unit));
    const double wide = metrics.horizontalAdvance("00000,00") + 2 * gap * unit;
    const Ticks all = ticksOf(m.axes.x, userX(m, frame.shareAt(edge.topLeft()).x),
                              userX(m, frame.shareAt(edge.bottomRight()).x),
                              std::max(2, static_cast<int>(edge.width() / wide)));
    const QString title = toQt(all.title);
    const double titleLeft = edge.right() - metrics.horizontalAdvance(title);
    p.drawText(QPointF(titleLeft, top + tick + metrics.ascent()), title);
    for (const Tick& one : all.ticks) {
        const double x = edge.left() + one.share * edge.width();
        p.drawLine(QPointF(x, top), QPointF(x, top + tick));
        const QString text = toQt(one.text);
        const double half = metrics.horizontalAdvance(text) / 2,
                     left = std::max(x - half, inside ? edge.left() : x - half);
        if (left + 2 * half < titleLeft - gap * unit)
            p.drawText(QPointF(left, top + tick + metrics.ascent()), text);
    }
}

void paintLeftAxis(QPainter& p, const PlotFrame& frame, const QRectF& edge, const Plot::Meaning& m,
                   const PlotInks& inks, const QColor& titleInk, bool inside) {
    const QFontMetricsF metrics(p.font(), p.device());
    const double unit = frame.unit, line = metrics.height(), tick = tickLength * unit, small = gap * unit;
    const Ticks all = ticksOf(m.axes.y, userY(m, frame.shareAt(edge.bottomRight()).y),
                              userY(m, frame.shareAt(edge.topLeft()).y),
                              std::max(2, static_cast<int>(edge.height() / (2.2 * line))));
    double widest = 0;
    for (const Tick& one : all.ticks) widest = std::max(widest, metrics.horizontalAdvance(toQt(one.text)));
    const double right = inside ? edge.left() + widest + small + tick : edge.left();
    const QString title = toQt(all.title);
    const double titleTop = inside ? edge.top() : edge.top() - line - small / 2;
    if (inside) {
        p.fillRect(QRectF(edge.left(), edge.top(), right - edge.left(), edge.height()), inks.ground);
        p.fillRect(QRectF(edge.left(), edge.top(), metrics.horizontalAdvance(title) + 2 * small, line),
                   inks.ground);
    }
    p.setPen(QPen(titleInk, unit));
    p.drawText(
        QPointF(inside ? edge.left() + small
                       : right - tick - small - std::min(widest, metrics.horizontalAdvance("00000000")),
                titleTop + metrics.ascent()),
        title);
    p.setPen(QPen(inks.text, unit));
    for (const Tick& one : all.ticks) {
        const double y = edge.bottom() - one.share * edge.height();
        p.drawLine(QPointF(right - tick, y), QPointF(right, y));
        const double base = y + metrics.ascent() / 2 - metrics.descent() / 2;
        if (inside && (base - metrics.ascent() < edge.top() + line || base > edge.bottom() - line - tick))
            continue;
        if (base - metrics.ascent() < titleTop + line - metrics.descent() && !inside) continue;
        p.drawText(QPointF(right - tick - small / 2 - metrics.horizontalAdvance(toQt(one.text)), base),
                   toQt(one.text));
    }
}

}  // namespace

void paintAxes(QPainter& painter, const PlotFrame& frame, const AxesPlace& place,
               const Plot::Meaning& meaning, const PlotInks& inks, const QColor& titleInk) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintLeftAxis(painter, frame, place.edge, meaning, inks, titleInk, place.leftInside);
    paintLowerAxis(painter, frame, place.edge, meaning, inks, place.lowInside);
}

void drawSign(QPainter& p, QPointF at, Sign sign, const QColor& color, double unit) {
    const double r = signSize * unit;
    const bool lines = sign == Sign::Cross || sign == Sign::Plus || sign == Sign::Ring;
    p.setPen(lines ? QPen(color, 1.3 * unit) : QPen(Qt::NoPen));
    p.setBrush(lines ? QBrush(Qt::NoBrush) : QBrush(color));
    const auto polygon = [&](std::initializer_list<QPointF> corners) {
        QPolygonF shape;
        for (const QPointF& corner : corners) shape << at + corner * r;
        p.drawPolygon(shape);
    };
    switch (sign) {
        case Sign::Circle:
        case Sign::Ring:
            return p.drawEllipse(at, r, r);
        case Sign::Square:
            return p.drawRect(QRectF(at - QPointF(r, r) * 0.9, QSizeF(r, r) * 1.8));
        case Sign::Triangle:
            return polygon({{0, -1.2}, {1.15, 0.8}, {-1.15, 0.8}});
        case Sign::Wedge:
            return polygon({{0, 1.2}, {1.15, -0.8}, {-1.15, -0.8}});
        case Sign::Diamond:
            return polygon({{0, -1.3}, {1.3, 0}, {0, 1.3}, {-1.3, 0}});
        case Sign::Cross:
            p.drawLine(at - QPointF(r, r), at + QPointF(r, r));
            return p.drawLine(at + QPointF(-r, r), at + QPointF(r, -r));
        case Sign::Plus:
            p.drawLine(at - QPointF(r, 0) * 1.2, at + QPointF(r, 0) * 1.2);
            return p.drawLine(at - QPointF(0, r) * 1.2, at + QPointF(0, r) * 1.2);
    }
}

void paintSeries(QPainter& painter, const Plot::Series& series, std::size_t from, const PlotFrame& frame,
                 const PlotLook& look, bool dark) {
    const QColor color = look.colorOf(series, dark);
    const Sign sign = look.signOf(series);
    const double reach = 2 * signSize * frame.unit;
    const QRectF seen = frame.area.adjusted(-reach, -reach, reach, reach);
    const auto& points = series.points();
    painter.setRenderHint(QPainter::Antialiasing);
    QPointF last(NAN, NAN);
    const bool joined = series.spec().joined;
    if (joined && from > 0) last = frame.at(series.meaningOf(from - 1).place(points[from - 1]));
    for (std::size_t i = from; i < points.size(); ++i) {
        const QPointF at = frame.at(series.meaningOf(i).place(points[i]));
        if (joined) {
            if (!std::isnan(last.x()) &&
                QRectF(last, at).normalized().adjusted(-1, -1, 1, 1).intersects(seen)) {
                painter.setPen(QPen(color, 1.6 * frame.unit));
                painter.drawLine(last, at);
            }
            last = at;
        } else if (seen.contains(at) && !(std::abs(at.x() - last.x()) < 0.4 * frame.unit &&
                                          std::abs(at.y() - last.y()) < 0.4 * frame.unit)) {
            drawSign(painter, at, sign, color, frame.unit);
            last = at;
        }
    }
}

Legend legendOf(const Plot& plot, const QFont& font, QPointF corner, double height, double unit) {
    std::vector<Legend::Row> rows;
    for (const auto& [number, series] : plot.all())
        if (isShown(series) && series.spec().color >= 0)
            rows.push_back({number, toQt(series.spec().name()), {}});
    Legend legend;
    if (rows.empty()) return legend;
    const QFontMetricsF metrics(font);
    const double line = metrics.height(), sign = 4 * signSize * unit, small = gap * unit;
    const auto most = std::max<std::size_t>(2, static_cast<std::size_t>(std::max(0.0, height / line)));
    if (rows.size() > most) {
        const auto rest = static_cast<int>(rows.size() - most + 1);
        rows.resize(most - 1);
        rows.push_back({Plot::none, QString("и еще %1").arg(rest), {}});
    }
    double wide = 0;
    for (const Legend::Row& row : rows) wide = std::max(wide, metrics.horizontalAdvance(row.text));
    const QSizeF size(wide + sign + 3 * small, line * static_cast<double>(rows.size()) + 2 * small);
    legend.box = {corner - QPointF(size.width(), 0), size};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].box = {legend.box.left(), legend.box.top() + small + line * static_cast<double>(i),
                       size.width(), line};
        legend.rows.push_back(std::move(rows[i]));
    }
    return legend;
}

void paintLegend(QPainter& painter, const Legend& legend, const Plot& plot, const PlotLook& look,
                 const PlotInks& inks, int layer, double unit) {
    if (legend.rows.empty()) return;
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = inks.ground, frame = inks.text;
    ground.setAlphaF(0.85F);
    frame.setAlphaF(0.4F);
    painter.setPen(QPen(frame, unit));
    painter.setBrush(ground);
    painter.drawRoundedRect(legend.box, 3 * unit, 3 * unit);
    const QFont plain = painter.font();
    const QFontMetricsF metrics(plain, painter.device());
    const double small = gap * unit, sign = 4 * signSize * unit;
    for (const Legend::Row& row : legend.rows) {
        double left = row.box.left() + small;
        QFont font = plain;
        if (row.series != Plot::none) {
            const Plot::Series& series = plot.all().at(row.series);
            const QPointF at(left + sign / 2, row.box.center().y());
            const QColor color = look.colorOf(series, inks.dark);
            if (series.spec().joined) {
                painter.setPen(QPen(color, 1.6 * unit));
                painter.drawLine(at - QPointF(sign / 2, 0), at + QPointF(sign / 2, 0));
            } else {
                drawSign(painter, at, look.signOf(series), color, 1.2 * unit);
            }
            font.setUnderline(series.spec().layer == layer && plot.layers().size() > 1);
        }
        painter.setPen(inks.text);
        painter.setFont(font);
        painter.drawText(QPointF(left + sign + small, row.box.top() + metrics.ascent()), row.text);
    }
    painter.setFont(plain);
}

std::optional<NearPoint> nearestPoint(const Plot& plot, const PlotFrame& frame, QPointF place, double reach) {
    std::optional<NearPoint> found;
    double least = reach * reach;
    for (const auto& [number, series] : plot.all()) {
        const auto& points = series.points();
        for (std::size_t i = 0; i < points.size(); ++i) {
            const QPointF at = frame.at(series.meaningOf(i).place(points[i])), off = at - place;
            const double far = QPointF::dotProduct(off, off);
            if (far > least || !frame.area.contains(at)) continue;
            least = far;
            found = {number, i, at};
        }
    }
    return found;
}

QString pointText(const Plot& plot, const NearPoint& near, const PlotFrame& frame) {
    const Plot::Series& series = plot.all().at(near.series);
    const Plot::Meaning& meaning = series.meaningOf(near.point);
    const Plot::Point value = meaning.value(series.points()[near.point]), least = resolution(meaning, frame);
    return toQt(valueWithUnit(meaning.axes.x, value.x, least.x) + "; " +
                valueWithUnit(meaning.axes.y, value.y, least.y) + " - " + series.spec().name());
}

QString placeText(const Plot::Meaning& meaning, const PlotFrame& frame, QPointF place) {
    const Plot::Point share = frame.shareAt(place), least = resolution(meaning, frame);
    const auto one = [](const Axis& axis, double user, double step) {
        return axis.name + " = " + valueWithUnit(axis, axis.at(user), step);
    };
    return toQt(one(meaning.axes.x, userX(meaning, share.x), least.x) + "    " +
                one(meaning.axes.y, userY(meaning, share.y), least.y));
}

}  // namespace tarvex
