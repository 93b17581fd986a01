#include "desktop/canvas_image.h"

#include <QBuffer>
#include <QFont>
#include <QGuiApplication>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <cmath>

#include "core/failure.h"
#include "desktop/picture_files.h"
#include "desktop/toolkit.h"

namespace tarvex {

namespace {

constexpr int scale = ImageCanvas::pixelsPerUnit;
constexpr double largestCircle = 50;  ///< in canvas widths: a larger one would not be seen as a circle

constexpr double largestSign =
    9;  ///< canvas units: a smaller disc is the sign of a point, a larger one a body

QColor toQt(Color c) { return QColor(c.r, c.g, c.b); }

/// Fonts need an application object; a program without windows gets one that opens no display.
void needFonts() {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    prepareToolkit();
    static int count = 1;
    static char name[] = "tarvex";
    static char* arguments[] = {name, nullptr};
    new QGuiApplication(count, arguments);  // stays to the end of the program
}

/// @param lineHeight  pixels
QFont fontOf(double lineHeight) {
    QFont font("DejaVu Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(lineHeight * textShare))));
    return font;
}

/// How marks come on a painter: pixels a canvas unit for places, and for what keeps its size.
struct Sizes {
    double place, size;
};

void drawMark(QPainter& p, const Mark& mark, const Sizes& s) {
    const QPointF at(mark.x * s.place, mark.y * s.place);
    if (mark.kind == Mark::Kind::Text) {
        needFonts();
        p.setPen(toQt(mark.color));
        p.setFont(fontOf(mark.x2 * s.size));
        p.drawText(at + QPointF(0, p.fontMetrics().ascent()), QString::fromStdString(mark.text));
        return;
    }
    p.setPen(QPen(toQt(mark.color), s.size, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    if (mark.kind == Mark::Kind::Line) return p.drawLine(at, QPointF(mark.x2, mark.y2) * s.place);
    const bool sign = mark.kind == Mark::Kind::Disc && mark.x2 < largestSign;
    const double radius = mark.x2 * (sign ? s.size : s.place);
    if (mark.kind == Mark::Kind::Disc) p.setBrush(toQt(mark.color));
    p.drawEllipse(at, radius, radius);
}

}  // namespace

ImageCanvas::ImageCanvas(int width, int height) : width_(width), height_(height), drawing_(width, height) {}
ImageCanvas::~ImageCanvas() = default;

void ImageCanvas::draw(Mark mark) {
    if (image_.isNull()) {
        image_ = QImage(width_ * scale, height_ * scale, QImage::Format_RGB32);
        if (image_.isNull()) throw Failure("no memory for a picture");
        image_.fill(toQt(background()));
    }
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::TextAntialiasing);
    }
    drawMark(*painter_, mark, {scale, scale});
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
    if (!image_.isNull()) image_.fill(toQt(background));
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
    if (!drawing_.complete()) {
        const QRectF pixels(part.topLeft() * scale, part.size() * scale);
        return painter.drawImage(target, image(), pixels);
    }
    const double place = target.width() / part.width();
    painter.save();
    painter.setClipRect(target);
    painter.fillRect(target, toQt(background()));
    painter.translate(target.topLeft() - part.topLeft() * place);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing_.each([&](const Mark& mark) { drawMark(painter, mark, {place, size}); });
    painter.restore();
}

QImage ImageCanvas::whole() const {
    QImage drawn = image();
    if (drawn.isNull()) {
        drawn = QImage(width_ * scale, height_ * scale, QImage::Format_RGB32);
        drawn.fill(toQt(background()));
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
            throw FileFailure("cannot encode " + path.string());
    } else {
        throw FileFailure("a picture is saved as .png, .bmp, .svg or .csv: " + path.string());
    }

    QSaveFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::WriteOnly)) throw OpenFailure("cannot write " + path.string());
    if (file.write(bytes) != bytes.size() || !file.commit())
        throw FileFailure("cannot write " + path.string());
}

std::unique_ptr<Canvas> makeImageCanvas(int width, int height) {
    return std::make_unique<ImageCanvas>(width, height);
}

}  // namespace tarvex
