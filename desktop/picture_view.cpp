#include "desktop/picture_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusTipEvent>
#include <QTimer>

#include "core/numbers.h"
#include "desktop/canvas_image.h"
#include "desktop/picture_menu.h"

namespace tarvex {

namespace {

constexpr double movedSize = 1.25;  ///< of a picture that is moved in a scroll area: its small print is read
constexpr double mostFitted = 2;    ///< of a picture that is seen whole in its scroll area
constexpr int lookMargin = 6;       ///< left around what a form asks to look at, pixels
constexpr double largestZoom = 200, wheelStep = 1.25;

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
}

double PictureView::fitted() const {
    return std::min(static_cast<double>(room_.width()) / shape_.width(),
                    static_cast<double>(room_.height()) / shape_.height());
}

QSize PictureView::sizeHint() const {
    if (!keepsSize_) return shape_;
    return shape_ * (fitted() >= 1 ? std::min(fitted(), mostFitted) : movedSize);
}

void PictureView::keepSize() {
    keepsSize_ = true;
    updateGeometry();
}

void PictureView::fitIn(QSize room) {
    if (room == room_) return;
    room_ = room;
    updateGeometry();
}

QSize PictureView::minimumSizeHint() const {
    if (keepsSize_) return sizeHint();
    return shape_.scaled(shape_ / 2, Qt::KeepAspectRatio).boundedTo({320, 240});
}

void PictureView::refresh() {
    const QSize now(picture_->width(), picture_->height());
    if (now != shape_) {
        shape_ = now;
        part_ = {0, 0, 1, 1};
        updateGeometry();
    }
    update();
    followLook();
}

void PictureView::showEvent(QShowEvent*) { followLook(); }

QScrollArea* PictureView::scrollArea() const {
    for (QWidget* above = parentWidget(); above != nullptr; above = above->parentWidget())
        if (auto* scrolled = qobject_cast<QScrollArea*>(above)) return scrolled;
    return nullptr;
}

void PictureView::followLook() {
    if (!keepsSize_ || picture_ == nullptr || looks_ == picture_->look().count) return;
    // After the layout has given the picture its new size.
    QTimer::singleShot(0, this, [this] {
        if (picture_ == nullptr || !isVisible() || looks_ == picture_->look().count) return;
        const Picture::Look look = picture_->look();
        looks_ = look.count;
        const QScrollArea* scrolled = scrollArea();
        QScrollBar* bar = scrolled->verticalScrollBar();
        const double above = mapTo(scrolled->widget(), QPoint(0, 0)).y() + target().top();
        const int top = qRound(above + look.top * target().height()) - lookMargin,
                  bottom = qRound(above + look.bottom * target().height()) + lookMargin;
        const bool seen = top >= bar->value() && bottom <= bar->value() + scrolled->viewport()->height();
        if (!seen) bar->setValue(top);
    });
}

QRectF PictureView::target() const {
    const QSizeF room(keepsSize_ ? this->size().boundedTo(sizeHint()) : this->size());
    const QSizeF size = QSizeF(shape_).scaled(room, Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

std::optional<QPointF> PictureView::userPoint(QPointF at) const {
    const QRectF area = target();
    if (picture_ == nullptr || !area.contains(at)) return std::nullopt;
    return QPointF(picture_->toUserX(part_.left() + (at.x() - area.left()) / area.width() * part_.width()),
                   picture_->toUserY(part_.top() + (at.y() - area.top()) / area.height() * part_.height()));
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
    if (part_.width() < 1) {
        const QRectF units(part_.x() * canvas->width(), part_.y() * canvas->height(),
                           part_.width() * canvas->width(), part_.height() * canvas->height());
        return canvas->paintPart(painter, units, area, area.width() / canvas->width());
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
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    paintCanvas(painter);
    painter.setPen(palette().mid().color());
    painter.drawRect(target().toAlignedRect().adjusted(0, 0, -1, -1));
}

QImage PictureView::image() const {
    const auto* canvas = picture_ == nullptr ? nullptr : static_cast<ImageCanvas*>(picture_->canvas());
    return canvas == nullptr ? QImage() : canvas->whole();
}

void PictureView::showPart(QRectF part) {
    if (part.width() >= 1) part = {0, 0, 1, 1};
    part.moveTo(std::clamp(part.x(), 0.0, 1 - part.width()), std::clamp(part.y(), 0.0, 1 - part.height()));
    part_ = part;
    update();
}

void PictureView::showWhole() { showPart({0, 0, 1, 1}); }

void PictureView::zoom(double factor, QPointF at) {
    const QRectF area = target();
    const double size = std::clamp(part_.width() / factor, 1 / largestZoom, 1.0);
    const double shareX = (at.x() - area.left()) / area.width(),
                 shareY = (at.y() - area.top()) / area.height();
    showPart({part_.x() + shareX * (part_.width() - size), part_.y() + shareY * (part_.height() - size), size,
              size});
}

/// Moves what is shown: the enlarged picture in its frame, or the whole one in its scroll area.
void PictureView::drag(QPointF by) {
    const QRectF area = target();
    if (part_.width() < 1)
        return showPart(part_.translated(-by.x() / area.width() * part_.width(),
                                         -by.y() / area.height() * part_.height()));
    const QScrollArea* scrolled = scrollArea();
    if (scrolled == nullptr) return;
    for (auto [bar, step] : {std::pair(scrolled->horizontalScrollBar(), by.x()),
                             std::pair(scrolled->verticalScrollBar(), by.y())})
        bar->setValue(bar->value() - qRound(step));
}

void PictureView::mousePressEvent(QMouseEvent* event) {
    pressedInside_ = userPoint(event->position()).has_value();
    // The widget itself moves in a scroll area: count on the screen.
    if (event->button() == Qt::LeftButton && zooms()) dragged_ = event->globalPosition();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && zooms()) return showWhole();
    mousePressEvent(event);
}

void PictureView::wheelEvent(QWheelEvent* event) {
    // In a scroll area the plain wheel moves the picture and Ctrl enlarges it.
    const bool scrolls =
        keepsSize_ && fitted() < 1 && !event->modifiers().testFlag(Qt::ControlModifier) && part_.width() == 1;
    if (!zooms() || scrolls || event->angleDelta().y() == 0) return event->ignore();
    zoom(std::pow(wheelStep, event->angleDelta().y() / 120.0), event->position());
    event->accept();
}

void PictureView::contextMenuEvent(QContextMenuEvent* event) {
    if (picture_ == nullptr) return;
    // Where the right button belongs to the form, Shift with it or the menu key opens the menu.
    if (event->reason() == QContextMenuEvent::Mouse && picture_->hasMouseMeaning() &&
        !event->modifiers().testFlag(Qt::ShiftModifier))
        return;
    pressedInside_ = false;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addPictureCommands(*menu, *this);
    menu->popup(event->globalPos());
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
    dragged_.reset();
    const auto at = userPoint(event->position());
    if (!at || !pressedInside_) return;
    if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton) return;
    const auto button = event->button() == Qt::LeftButton ? Picture::Button::Left : Picture::Button::Right;
    pressedInside_ = false;
    act_([&] { picture_->release(at->x(), at->y(), button); });
    act_([&] { picture_->click(at->x(), at->y(), button); });
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
    if (dragged_) {
        drag(event->globalPosition() - *dragged_);
        dragged_ = event->globalPosition();
    }
    const auto at = userPoint(event->position());
    QString tip = at ? "x = " + shortNumber(at->x()) + "    y = " + shortNumber(at->y()) : QString();
    if (at && picture_ != nullptr && !picture_->hint().empty())
        tip += "        " + QString::fromStdString(picture_->hint());
    QStatusTipEvent show(tip);
    QApplication::sendEvent(this, &show);
}

}  // namespace tarvex
