#include "desktop/picture_view.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStatusTipEvent>

#include "core/numbers.h"
#include "desktop/canvas_image.h"

namespace tarvex {

namespace {

/// A coordinate for the status line: about four significant digits.
QString shortNumber(double v) {
    const double step = std::pow(10.0, std::floor(std::log10(std::max(std::abs(v), 1e-300))) - 3);
    return QString::fromStdString(toText(std::round(v / step) * step));
}

}  // namespace

PictureView::PictureView(Picture& picture, std::function<void(const std::function<void()>&)> act)
    : picture_(&picture), act_(std::move(act)), shape_(picture.width(), picture.height()) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize PictureView::sizeHint() const { return shape_; }

void PictureView::keepSize() {
    keepsSize_ = true;
    updateGeometry();
}

QSize PictureView::minimumSizeHint() const {
    if (keepsSize_) return shape_;
    return shape_.scaled(shape_ / 2, Qt::KeepAspectRatio).boundedTo({320, 240});
}

void PictureView::refresh() {
    const QSize now(picture_->width(), picture_->height());
    if (now != shape_) {
        shape_ = now;
        updateGeometry();
    }
    update();
}

QRectF PictureView::target() const {
    const QSizeF size = QSizeF(shape_).scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

std::optional<QPointF> PictureView::userPoint(QPointF at) const {
    const QRectF area = target();
    if (picture_ == nullptr || !area.contains(at)) return std::nullopt;
    return QPointF(picture_->toUserX((at.x() - area.left()) / area.width()),
                   picture_->toUserY((at.y() - area.top()) / area.height()));
}

void PictureView::paintCanvas(QPainter& painter) const {
    const auto* canvas = picture_ == nullptr ? nullptr : static_cast<ImageCanvas*>(picture_->canvas());
    if (canvas == nullptr) return;
    const QRectF area = target();
    const Color back = canvas->background();
    const QImage& image = canvas->image();
    if (image.isNull()) {
        painter.fillRect(area, QColor(back.r, back.g, back.b));
        return;
    }
    // Below half its size a plain interpolation would lose thin lines: average the pixels instead.
    const QSize pixels = (area.size() * devicePixelRatioF()).toSize();
    if (pixels.width() * 2 < image.width())
        painter.drawImage(area, image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    else
        painter.drawImage(area, image);
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    paintCanvas(painter);
    painter.setPen(palette().mid().color());
    painter.drawRect(target().adjusted(0, 0, -1, -1));
}

void PictureView::mousePressEvent(QMouseEvent* event) {
    pressedInside_ = userPoint(event->position()).has_value();
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
    const auto at = userPoint(event->position());
    if (!at || !pressedInside_) return;
    if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton) return;
    const auto button = event->button() == Qt::LeftButton ? Picture::Button::Left : Picture::Button::Right;
    pressedInside_ = false;
    act_([&] { picture_->release(at->x(), at->y(), button); });
    act_([&] { picture_->click(at->x(), at->y(), button); });
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
    const auto at = userPoint(event->position());
    QString tip = at ? "x = " + shortNumber(at->x()) + "    y = " + shortNumber(at->y()) : QString();
    if (at && picture_ != nullptr && !picture_->hint().empty())
        tip += "        " + QString::fromStdString(picture_->hint());
    QStatusTipEvent show(tip);
    QApplication::sendEvent(this, &show);
}

}  // namespace tarvex
