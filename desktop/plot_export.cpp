#include "desktop/plot_export.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cctype>
#include <utility>

#include "core/failure.h"
#include "core/numbers.h"
#include "desktop/canvas_image.h"
#include "desktop/plot_ticks.h"

namespace tarvex {

namespace {

constexpr double fontHeight = 11, margin = 6;  ///< usual pixels
constexpr QSizeF usualPage(1000, 640);         ///< the largest figure, usual pixels
constexpr int pdfResolution = 288;             ///< dots an inch
constexpr double imageSharpness = 1.5;         ///< pixels of an image to a usual one

QFont pageFont(double unit) {
    QFont font("DejaVu Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, qRound(fontHeight * unit)));
    return font;
}

/// The paper again around what was painted: not every device keeps to a clip.
void blankAround(QPainter& painter, const QRectF& page, const QRectF& area) {
    for (const QRectF& side : {QRectF(page.topLeft(), QPointF(page.right(), area.top())),
                               QRectF(QPointF(page.left(), area.bottom()), page.bottomRight()),
                               QRectF(page.topLeft(), QPointF(area.left(), page.bottom())),
                               QRectF(QPointF(area.right(), page.top()), page.bottomRight())})
        painter.fillRect(side, Qt::white);
}

/// Room around the picture for caption, axes and legend.
struct Sheet {
    QMarginsF margins;
    double caption = 0, legend = 0;
    explicit Sheet(const Figure& f, double unit) {
        const QFont font = pageFont(unit);
        const QMarginsF axes = f.plot.described() ? axesMargins(font) : QMarginsF();
        caption = f.caption.empty() ? 0 : QFontMetricsF(font).height() + margin * unit;
        legend = legendOf(f.plot, font, {}, usualPage.height() * unit, unit).box.width();
        const double around = margin * unit;
        margins =
            axes + QMarginsF(around, around + caption, around + legend + (legend > 0 ? around : 0), around);
    }
};

QSizeF roomAround(const Figure& figure, double unit) {
    const QMarginsF margins = Sheet(figure, unit).margins;
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

}  // namespace

QSizeF figureSize(const Figure& figure, QSizeF most, double unit) {
    const QSizeF around = roomAround(figure, unit);
    const QSizeF size(figure.canvas.width() * figure.part.width(),
                      figure.canvas.height() * figure.part.height());
    return size.scaled(most - around, Qt::KeepAspectRatio) + around;
}

void paintFigure(QPainter& painter, const QRectF& page, const Figure& f, double unit) {
    const QFont font = pageFont(unit);
    const Sheet sheet(f, unit);
    const QRectF room = page.marginsRemoved(sheet.margins);
    QSizeF size(f.canvas.width() * f.part.width(), f.canvas.height() * f.part.height());
    size.scale(room.size(), Qt::KeepAspectRatio);
    const PlotFrame frame{{room.topLeft(), size}, f.part, unit};

    painter.fillRect(page, Qt::white);
    const QRectF units(f.part.x() * f.canvas.width(), f.part.y() * f.canvas.height(),
                       f.part.width() * f.canvas.width(), f.part.height() * f.canvas.height());
    const double letterSize = size.width() / units.width();
    f.canvas.paintPart(painter, units, frame.area, letterSize);
    const Color ground = f.canvas.background();
    const bool dark = QColor(ground.r, ground.g, ground.b).lightness() < 128;
    bool covered = false;
    for (const auto& [number, series] : f.plot.all()) {
        if (!f.look.covers(series)) continue;
        paintSeries(painter, series, 0, frame, f.look, dark);
        covered |= !series.points().empty();
    }
    if (covered)
        f.canvas.paintLetters(painter, units, frame.area, letterSize,
                              [](const QColor& color) { return color; });
    blankAround(painter, page, frame.area);
    painter.setFont(font);
    painter.setPen(QPen(Qt::black, unit));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame.area);
    painter.drawText(page.adjusted(margin * unit, margin * unit, -margin * unit, 0),
                     Qt::AlignLeft | Qt::AlignTop, QString::fromStdString(f.caption));

    const int layer = f.layer == Plot::none ? usualLayer(f.plot) : f.layer;
    if (const auto meaning = f.plot.layers().find(layer); meaning != f.plot.layers().end())
        paintAxes(painter, frame, {frame.area}, *meaning->second, {Qt::black, Qt::white},
                  colorOfLayer(f.plot, layer, f.look, false).value_or(Qt::black));
    const QPointF corner = frame.area.topRight() + QPointF(margin * unit + sheet.legend, 0);
    const QColor back(ground.r, ground.g, ground.b);  // the colours of the signs are made for it
    paintLegend(painter, legendOf(f.plot, font, corner, frame.area.height(), unit), f.plot, f.look,
                {dark ? Qt::white : Qt::black, back, dark}, layer, unit);
}

namespace {

QByteArray pdfOf(const Figure& figure) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(pdfResolution);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageOrientation(QPageLayout::Landscape);
        writer.setTitle(QString::fromStdString(figure.caption));
        QPainter painter;
        if (!painter.begin(&writer)) throw FileFailure("cannot make a page");
        const QRectF page(0, 0, writer.width(), writer.height());
        paintFigure(painter, page, figure,
                    std::min(page.width() / usualPage.width(), page.height() / usualPage.height()));
    }
    return buffer.data();
}

/// Of a figure that keeps the shape of its picture, usual pixels.
QSizeF pageOf(const Figure& figure) { return figureSize(figure, usualPage + roomAround(figure, 1), 1); }

QByteArray svgOfFigure(const Figure& figure) {
    const QSizeF page = pageOf(figure);
    QBuffer buffer;
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize(page.toSize());
        generator.setViewBox(QRectF({}, page));
        generator.setTitle(QString::fromStdString(figure.caption));
        QPainter painter;
        if (!painter.begin(&generator)) throw FileFailure("cannot make a drawing");
        paintFigure(painter, {{}, page}, figure, 1);
    }
    return buffer.data();
}

}  // namespace

QByteArray figureImage(const Figure& figure) {
    QImage image((pageOf(figure) * imageSharpness).toSize(), QImage::Format_RGB32);
    {
        QPainter painter(&image);
        paintFigure(painter, QRectF({}, QSizeF(image.size())), figure, imageSharpness);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!QImageWriter(&buffer, "png").write(image)) throw FileFailure("cannot make an image");
    return bytes;
}

QByteArray seriesTable(const Plot& plot) {
    std::string out = "\xEF\xBB\xBF";
    bool first = true;
    for (const auto& [number, series] : plot.all()) {
        if (series.points().empty()) continue;
        if (!std::exchange(first, false)) out += "\r\n";
        out += series.spec().name() + (series.thinned() ? " (часть точек)" : "") + "\r\n";
        const Axes* axes = nullptr;
        for (std::size_t i = 0; i < series.points().size(); ++i) {
            const Plot::Meaning& meaning = series.meaningOf(i);
            if (axes == nullptr || titleOf(axes->x) != titleOf(meaning.axes.x) ||
                titleOf(axes->y) != titleOf(meaning.axes.y))
                out += titleOf(meaning.axes.x) + "; " + titleOf(meaning.axes.y) + "\r\n";
            axes = &meaning.axes;
            const Plot::Point value = meaning.value(series.points()[i]);
            out += toText(value.x) + ";" + toText(value.y) + "\r\n";
        }
    }
    return QByteArray::fromStdString(out);
}

QByteArray figureFile(std::string ending, const Figure& figure) {
    for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (ending == ".pdf") return pdfOf(figure);
    if (ending == ".svg") return svgOfFigure(figure);
    if (ending == ".csv") return seriesTable(figure.plot);
    throw FileFailure("a figure is written as .pdf, .svg or .csv");
}

}  // namespace tarvex
