#include "desktop/canvas_image.h"

#include <QBuffer>
#include <QFont>
#include <QGuiApplication>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <cmath>

#include "core/failure.h"

namespace tarvex {

namespace {

constexpr int scale = ImageCanvas::pixelsPerUnit;
constexpr double largestCircle = 50;  ///< in canvas widths: a larger one would not be seen as a circle

QColor toQt(Color c) { return QColor(c.r, c.g, c.b); }

/// Fonts need an application object; a program without windows gets one that opens no display.
void needFonts() {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "tarvex";
    static char* arguments[] = {name, nullptr};
    new QGuiApplication(count, arguments);  // stays to the end of the program
}

QFont fontOf(double lineHeight) {
    QFont font("DejaVu Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(lineHeight * 0.8 * scale))));
    return font;
}

}  // namespace

ImageCanvas::ImageCanvas(int width, int height) : width_(width), height_(height) {}
ImageCanvas::~ImageCanvas() = default;

QPainter& ImageCanvas::painter(Color color) {
    if (image_.isNull()) {
        image_ = QImage(width_ * scale, height_ * scale, QImage::Format_RGB32);
        if (image_.isNull()) throw Failure("no memory for a picture");
        image_.fill(toQt(background_));
    }
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::TextAntialiasing);
    }
    painter_->setPen(QPen(toQt(color), scale, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter_->setBrush(Qt::NoBrush);
    return *painter_;
}

const QImage& ImageCanvas::image() const {
    painter_.reset();
    return image_;
}

void ImageCanvas::clear(Color background) {
    background_ = background;
    painter_.reset();
    if (!image_.isNull()) image_.fill(toQt(background));
}

void ImageCanvas::line(double x1, double y1, double x2, double y2, Color color) {
    painter(color).drawLine(QPointF(x1 * scale, y1 * scale), QPointF(x2 * scale, y2 * scale));
}

void ImageCanvas::circle(double x, double y, double radius, Color color, bool filled) {
    if (!(radius < largestCircle * width_)) return;
    QPainter& p = painter(color);
    if (filled) p.setBrush(toQt(color));
    p.drawEllipse(QPointF(x * scale, y * scale), radius * scale, radius * scale);
}

void ImageCanvas::text(double x, double y, const std::string& text, Color color, double size) {
    needFonts();
    QPainter& p = painter(color);
    p.setFont(fontOf(size));
    p.drawText(QPointF(x * scale, y * scale + p.fontMetrics().ascent()), QString::fromStdString(text));
}

void ImageCanvas::save(const std::filesystem::path& path) const {
    const QByteArray format = QByteArray::fromStdString(path.extension().string()).mid(1).toLower();
    if (format != "png" && format != "bmp")
        throw FileFailure("a picture is saved as .png or .bmp: " + path.string());

    QImage whole = image();
    if (whole.isNull()) {
        whole = QImage(width_ * scale, height_ * scale, QImage::Format_RGB32);
        whole.fill(toQt(background_));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!QImageWriter(&buffer, format).write(whole)) throw FileFailure("cannot encode " + path.string());

    QSaveFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::WriteOnly)) throw OpenFailure("cannot write " + path.string());
    if (file.write(bytes) != bytes.size() || !file.commit())
        throw FileFailure("cannot write " + path.string());
}

std::unique_ptr<Canvas> makeImageCanvas(int width, int height) {
    return std::make_unique<ImageCanvas>(width, height);
}

}  // namespace tarvex
