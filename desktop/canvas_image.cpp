#include "desktop/canvas_image.h"

#include <QBuffer>
#include <QFont>
#include <QGuiApplication>
#include <QImageWriter>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "core/failure.h"
#include "core/text_files.h"
#include "desktop/picture_files.h"
#include "desktop/plot_export.h"
#include "desktop/toolkit.h"

namespace tarvex {

void needFonts() {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    prepareToolkit();
    static int count = 1;
    static char name[] = "tarvex";
    static char* arguments[] = {name, nullptr};
    new QGuiApplication(count, arguments);  // stays to the end of the program
}

namespace {

constexpr int scale = ImageCanvas::pixelsPerUnit;
constexpr double largestCircle = 50;  ///< in canvas widths: a larger one would not be seen as a circle

constexpr double largestSign =
    9;  ///< canvas units: a smaller disc is the sign of a point, a larger one a body

constexpr double letterEdge = 2.5;  ///< around letters that lie over a curve, canvas units

QColor qtColor(Color c) { return QColor(c.r, c.g, c.b); }

/// @param lineHeight  pixels
QFont fontOf(double lineHeight) {
    QFont font("DejaVu Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(lineHeight * textShare))));
    return font;
}

/// How marks come on a painter: pixels a canvas unit for places across and down, and for what keeps its size.
struct Sizes {
    double across, down, size;
    QPointF place(double x, double y) const { return {x * across, y * down}; }
};

/// Words whose letters stand as on the image, whatever the size: what is drawn over it again covers it
/// exactly.
void drawWords(QPainter& p, QPointF corner, const Mark& text, double size) {
    needFonts();
    const double share = size / scale;
    p.setFont(fontOf(text.x2 * scale));
    p.translate(corner);
    p.scale(share, share);
    p.drawText(QPointF(0, p.fontMetrics().ascent()), QString::fromStdString(text.text));
    p.scale(1 / share, 1 / share);
    p.translate(-corner);
}

void drawMark(QPainter& p, const Mark& mark, const Sizes& s) {
    const QPointF at = s.place(mark.x, mark.y);
    if (mark.kind == Mark::Kind::Text) {
        p.setPen(qtColor(mark.color));
        drawWords(p, at, mark, s.size);
        return;
    }
    p.setPen(QPen(qtColor(mark.color), s.size, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    if (mark.kind == Mark::Kind::Line) return p.drawLine(at, s.place(mark.x2, mark.y2));
    const bool sign = mark.kind == Mark::Kind::Disc && mark.x2 < largestSign;
    const QPointF radii = sign ? QPointF(mark.x2, mark.x2) * s.size : s.place(mark.x2, mark.x2);
    if (mark.kind == Mark::Kind::Disc) p.setBrush(qtColor(mark.color));
    p.drawEllipse(at, radii.x(), radii.y());
}

/// What a text covers.
QRectF boxOf(const Mark& text, const Sizes& s) {
    const QFontMetricsF metrics(fontOf(text.x2 * scale));
    const QString words = QString::fromStdString(text.text);
    const QSizeF size(metrics.horizontalAdvance(words), metrics.height());
    return {s.place(text.x, text.y), size * s.size / scale};
}

/// Draws the grid, which comes first of all, a piece of ground under every text, the other marks in their
/// order, and the texts: they stand clear of the grid and of what is drawn over them, and hide nothing
/// measured.
void drawMarks(QPainter& p, const Drawing& drawing, const Sizes& s) {
    const auto draw = [&](const Mark& mark) {
        p.setRenderHint(QPainter::Antialiasing,
                        mark.kind != Mark::Kind::Line || (mark.x != mark.x2 && mark.y != mark.y2));
        drawMark(p, mark, s);
    };
    bool grid = true;
    drawing.each([&](const Mark& mark) {
        grid &= mark.kind == Mark::Kind::Line || mark.kind == Mark::Kind::Text;
        if (grid && mark.kind == Mark::Kind::Line) draw(mark);
    });
    if (drawing.texts() > 0) needFonts();
    drawing.each([&](const Mark& mark) {
        if (mark.kind == Mark::Kind::Text && mark.color != drawing.background())
            p.fillRect(boxOf(mark, s), qtColor(drawing.background()));
    });
    grid = true;
    drawing.each([&](const Mark& mark) {
        grid &= mark.kind == Mark::Kind::Line || mark.kind == Mark::Kind::Text;
        if (!grid && mark.kind != Mark::Kind::Text) draw(mark);
    });
    drawing.each([&](const Mark& mark) {
        if (mark.kind == Mark::Kind::Text) draw(mark);
    });
}

struct WordInks {
    QColor letters, edge;
};

/// Letters with a thin edge, exactly over the same words drawn without one.  On pixels they are drawn around
/// themselves, since a path would not know how the letters are fitted to them; elsewhere the edge is a line,
/// and each word stands there once.
void drawEdgedWords(QPainter& p, QPointF corner, const Mark& text, double size, const WordInks& inks) {
    const double edge = letterEdge * size / 2;
    if (p.paintEngine()->type() == QPaintEngine::Raster) {
        p.setPen(inks.edge);
        for (const QPointF& way :
             {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1), QPointF(-0.7, -0.7),
              QPointF(0.7, -0.7), QPointF(-0.7, 0.7), QPointF(0.7, 0.7)})
            drawWords(p, corner + way * edge, text, size);
        p.setPen(inks.letters);
        return drawWords(p, corner, text, size);
    }
    const QFont font = fontOf(text.x2 * size);
    QPainterPath letters;
    letters.addText(corner + QPointF(0, QFontMetricsF(font).ascent()), font,
                    QString::fromStdString(text.text));
    p.strokePath(letters, QPen(inks.edge, 2 * edge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.fillPath(letters, inks.letters);
}

}  // namespace

ImageCanvas::ImageCanvas(int width, int height) : width_(width), height_(height), drawing_(width, height) {}
ImageCanvas::~ImageCanvas() = default;

void ImageCanvas::draw(Mark mark) {
    if (image_.isNull()) {
        image_ = QImage(width_ * scale, height_ * scale, QImage::Format_RGB32);
        if (image_.isNull()) throw Failure("не хватает памяти на рисунок");
        image_.fill(qtColor(background()));
    }
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::TextAntialiasing);
    }
    drawMark(*painter_, mark, {scale, scale, scale});
    drawing_.add(std::move(mark));
}

const QImage& ImageCanvas::image() const {
    painter_.reset();
    return image_;
}

void ImageCanvas::setScale(double left, double top, double right, double bottom) {
    drawing_.setScale({left, top, right, bottom});
}

void ImageCanvas::clear(Color background) {
    drawing_.clear(background);
    painter_.reset();
    if (!image_.isNull()) image_.fill(qtColor(background));
}

void ImageCanvas::line(double x1, double y1, double x2, double y2, Color color) {
    draw({Mark::Kind::Line, x1, y1, x2, y2, color});
}

void ImageCanvas::circle(double x, double y, double radius, Color color, bool filled) {
    if (!(radius < largestCircle * width_)) return;
    draw({filled ? Mark::Kind::Disc : Mark::Kind::Circle, x, y, radius, 0, color});
}

void ImageCanvas::text(double x, double y, const std::string& text, Color color, double size) {
    draw({Mark::Kind::Text, x, y, size, 0, color, text});
}

void ImageCanvas::paintPart(QPainter& painter, const QRectF& part, const QRectF& target, double size) const {
    const Sizes sizes{target.width() / part.width(), target.height() / part.height(), size};
    const QPointF origin = target.topLeft() - sizes.place(part.left(), part.top());
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    painter.fillRect(target, qtColor(background()));
    if (drawing_.complete()) {
        painter.translate(origin);
        drawMarks(painter, drawing_, sizes);
    } else if (const QRectF there = part.intersected({0, 0, width_ * 1.0, height_ * 1.0}); !there.isEmpty()) {
        painter.drawImage(QRectF(origin + sizes.place(there.left(), there.top()),
                                 origin + sizes.place(there.right(), there.bottom())),
                          image(), QRectF(there.topLeft() * scale, there.size() * scale));
    }
    painter.restore();
}

void ImageCanvas::paintTexts(QPainter& painter, const QRectF& target) const {
    if (drawing_.texts() == 0 || drawing_.texts() > mostTexts) return;
    needFonts();
    const double size = target.width() / width_;
    const Sizes sizes{size, target.height() / height_, size};
    QColor ground = qtColor(background());
    ground.setAlphaF(0.8F);
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    painter.translate(target.topLeft());
    drawing_.each([&](const Mark& mark) {
        if (mark.kind != Mark::Kind::Text) return;
        painter.fillRect(boxOf(mark, sizes), ground);
        drawMark(painter, mark, sizes);
    });
    painter.restore();
}

void ImageCanvas::paintLetters(QPainter& painter, const QRectF& part, const QRectF& target, double size,
                               const std::function<QColor(QColor)>& shade) const {
    if (drawing_.texts() == 0 || drawing_.texts() > mostTexts) return;
    needFonts();
    const Sizes sizes{target.width() / part.width(), target.height() / part.height(), size};
    const QPointF origin = target.topLeft() - sizes.place(part.left(), part.top());
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing_.each([&](const Mark& mark) {
        if (mark.kind != Mark::Kind::Text || mark.color == background()) return;
        const QRectF box = boxOf(mark, sizes).translated(origin);
        if (!box.intersects(target)) return;
        drawEdgedWords(painter, box.topLeft(), mark, size,
                       {shade(qtColor(mark.color)), shade(qtColor(background()))});
    });
    painter.restore();
}

QImage ImageCanvas::whole() const {
    QImage drawn = image();
    if (drawn.isNull()) {
        drawn = QImage(width_ * scale, height_ * scale, QImage::Format_RGB32);
        drawn.fill(qtColor(background()));
    }
    return drawn;
}

void ImageCanvas::save(const std::filesystem::path& path) const {
    const QByteArray format = QByteArray::fromStdString(path.extension().string()).mid(1).toLower();
    QByteArray bytes;
    if (format == "svg") {
        bytes = svgOf(drawing_, whole());
    } else if (format == "csv") {
        bytes = csvOf(drawing_);
    } else if (format == "png" || format == "bmp") {
        QBuffer buffer(&bytes);
        if (!QImageWriter(&buffer, format).write(whole()))
            throw FileFailure("рисунок не переводится в " + path.extension().string());
    } else {
        throw FileFailure("рисунок сохраняют в файл .png, .bmp, .svg или .csv, а не " +
                          path.filename().string());
    }
    writeWhole(path, bytes);
}

void ImageCanvas::exportTo(const std::filesystem::path& path, const Plot& plot,
                           const std::string& caption) const {
    needFonts();
    writeWhole(path,
               figureFile(path.extension().string(), {.canvas = *this, .plot = plot, .caption = caption}));
}

std::unique_ptr<Canvas> makeImageCanvas(int width, int height) {
    return std::make_unique<ImageCanvas>(width, height);
}

}  // namespace tarvex
