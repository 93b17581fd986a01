#include "desktop/picture_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusTipEvent>
#include <QStyle>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "core/failure.h"
#include "core/numbers.h"
#include "desktop/canvas_image.h"
#include "desktop/picture_files.h"
#include "desktop/picture_menu.h"
#include "desktop/plot_choices.h"
#include "desktop/plot_export.h"

namespace tarvex {

namespace {

constexpr double movedSize = 1.25;  ///< of a picture that is moved in a scroll area: its small print is read
constexpr double leastFitted =
    0.8;                          ///< of its usual size: down to it a picture is better seen whole than moved
constexpr double mostFitted = 2;  ///< of a picture that is seen whole in its scroll area
constexpr int lookMargin = 6;     ///< left around what a form asks to look at, pixels
constexpr double largestZoom = 200, wheelStep = 1.25;
constexpr double fitMargin = 0.05;  ///< left around points that are shown whole, of their extent
constexpr double followRoom = 0.3;  ///< left for what is drawn next

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
    overlay_.setLook(plotChoices());
}

void PictureView::takeLook() {
    overlay_.setLook(plotChoices());
    update();
}

bool PictureView::isTurnedDark() const {
    const QColor window = palette().color(QPalette::Window);
    return picture_ != nullptr && picture_->background() == Color{255, 255, 255} && window.lightness() < 128;
}

QMarginsF PictureView::margins() const { return hasPlot() ? axesMargins(font()) : QMarginsF(); }

/// Of a picture in a scroll area: seen whole, or filling the area in one direction and moved in the other.
double PictureView::shownSize() const {
    if (fitted() >= leastFitted) return std::min(fitted(), mostFitted);
    const QMarginsF around = margins();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const double filling =
        std::max((room_.width() - bar - around.left() - around.right()) / shape_.width(),
                 (room_.height() - bar - around.top() - around.bottom()) / shape_.height());
    return std::clamp(filling, movedSize, mostFitted);
}

double PictureView::fitted() const {
    const QMarginsF around = margins();
    return std::min((room_.width() - around.left() - around.right()) / shape_.width(),
                    (room_.height() - around.top() - around.bottom()) / shape_.height());
}

QSize PictureView::sizeHint() const {
    if (!keepsSize_) return shape_;
    const QMarginsF around = margins();
    return (QSizeF(shape_) * shownSize()).toSize() +
           QSizeF(around.left() + around.right(), around.top() + around.bottom()).toSize();
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
    if (std::exchange(hadPlot_, hasPlot()) != hasPlot()) updateGeometry();  // room for the axes
    update();
    watchRun();
    followLook();
}

void PictureView::showEvent(QShowEvent*) {
    followLook();
    const QScrollArea* scrolled = keepsSize_ ? scrollArea() : nullptr;
    if (scrolled == nullptr) return;
    // Axes and legend stay at the edges of what is seen.
    for (const QScrollBar* bar : {scrolled->verticalScrollBar(), scrolled->horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update), Qt::UniqueConnection);
}

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
    const QRectF room = QRectF(rect()).marginsRemoved(margins());
    QSizeF size = room.size();
    if (keepsSize_) {
        const QMarginsF around = margins();
        size = size.boundedTo(QSizeF(sizeHint()) -
                              QSizeF(around.left() + around.right(), around.top() + around.bottom()));
    }
    size = QSizeF(shape_).scaled(size, Qt::KeepAspectRatio);
    return {room.topLeft() + QPointF((room.width() - size.width()) / 2, (room.height() - size.height()) / 2),
            size};
}

QRectF PictureView::seen() const {
    const QRectF visible = visibleRegion().boundingRect();
    return visible.isEmpty() ? QRectF(rect()) : visible;
}

PlotOverlay::View PictureView::overlayView() const {
    const Color back = picture_->background();
    const QColor window = palette().color(QPalette::Window), text = palette().color(QPalette::WindowText);
    QColor ground(back.r, back.g, back.b);
    if (isTurnedDark()) ground = turnedDark(ground.rgb());
    const bool dark = ground.lightness() < 128;
    const QRectF area = target(), visible = seen();
    return {.plot = picture_->plot(),
            .frame = {area, part_, 1},
            .axes = {.edge = area.intersected(visible),
                     .leftInside = keepsSize_ && visible.left() > 0.5,
                     .lowInside = keepsSize_ && visible.bottom() < height() - 0.5},
            .inks = {dark ? QColor(235, 235, 235) : QColor(20, 20, 20), ground, dark},
            .edgeInks = {text, window, window.lightness() < 128},
            .font = font(),
            .words = [this](QPainter& painter) { paintWords(painter); }};
}

void PictureView::paintWords(QPainter& painter) const {
    const auto* canvas = static_cast<const ImageCanvas*>(picture_->canvas());
    if (canvas == nullptr) return;
    const QRectF area = target();
    const bool turned = isTurnedDark();
    canvas->paintLetters(
        painter, unitsOf(*canvas), area, area.width() / canvas->width(),
        [turned](const QColor& color) { return turned ? QColor(turnedDark(color.rgb())) : color; });
}

/// What is shown, in canvas units.
QRectF PictureView::unitsOf(const ImageCanvas& canvas) const {
    return {part_.x() * canvas.width(), part_.y() * canvas.height(), part_.width() * canvas.width(),
            part_.height() * canvas.height()};
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
    if (isZoomed() || canvas->isPrinted())
        return canvas->paintPart(painter, unitsOf(*canvas), area, area.width() / canvas->width());
    // Below half its size a plain interpolation would lose thin lines: average the pixels instead.
    const QSize pixels = (area.size() * devicePixelRatioF()).toSize();
    if (pixels.width() * 2 < image.width())
        painter.drawImage(area, image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    else
        painter.drawImage(area, image);
    canvas->paintTexts(painter, area);
}

void PictureView::paintTurnedDark(QPainter& painter, const QRectF& exposed) const {
    const QRect place = target().intersected(exposed).toAlignedRect();
    QImage shot(place.size() * devicePixelRatioF(), QImage::Format_RGB32);
    if (shot.isNull()) return;
    shot.setDevicePixelRatio(devicePixelRatioF());
    shot.fill(Qt::white);
    {
        QPainter onto(&shot);
        onto.setRenderHint(QPainter::SmoothPixmapTransform);
        onto.translate(-place.topLeft());
        paintCanvas(onto);
    }
    for (int y = 0; y < shot.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(shot.scanLine(y));
        std::transform(line, line + shot.width(), line, turnedDark);
    }
    painter.save();
    painter.setClipRect(target());
    painter.drawImage(place.topLeft(), shot);
    painter.restore();
}

void PictureView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (isTurnedDark())
        paintTurnedDark(painter, event->rect());
    else
        paintCanvas(painter);
    painter.setPen(palette().mid().color());
    painter.drawRect(target().toAlignedRect().adjusted(0, 0, -1, -1));
    if (hasPlot()) overlay_.paint(painter, overlayView());
}

QImage PictureView::image() const {
    const auto* canvas = picture_ == nullptr ? nullptr : static_cast<ImageCanvas*>(picture_->canvas());
    return canvas == nullptr ? QImage() : canvas->whole();
}

/// Around the points that fit() shows; empty without any.
QRectF PictureView::pointsPart() const {
    const Plot& plot = picture_->plot();
    const auto layer = overlay_.chosenLayer();
    auto all = plot.bounds(
        [&](const Plot::Series& one) { return layer ? one.spec().layer == *layer : one.spec().color >= 0; });
    if (all.empty()) all = plot.bounds([](const Plot::Series&) { return true; });
    if (all.empty()) return {};
    const auto axes = plot.layers().find(overlay_.layerOf(plot));
    QSizeF size = QSizeF(all.right - all.left, all.bottom - all.top) * (1 + 2 * fitMargin);
    size = size.expandedTo({1 / largestZoom, 1 / largestZoom});
    if (axes != plot.layers().end() && axes->second->axes.square())
        size = QSizeF(1, 1) * std::max(size.width(), size.height());
    QRectF part({}, size);
    part.moveCenter({(all.left + all.right) / 2, (all.top + all.bottom) / 2});
    return part;
}

void PictureView::fit() {
    const QRectF part = hasPlot() ? pointsPart() : QRectF();
    if (part.isEmpty()) return showWhole();
    showPart(part);
    follows_ = true;
    watchRun();
}

void PictureView::wipe() {
    if (picture_ == nullptr) return;
    act_([this] { picture_->wipe(); });
    showWhole();
}

/// A series that goes on outside of what is shown: where the user has asked for all of it, it is followed, or
/// else a notice offers that.
void PictureView::watchRun() {
    QString gone;
    if (hasPlot())
        for (const auto& [number, series] : picture_->plot().all()) {
            if (series.spec().color < 0 || !series.away()) continue;
            const Plot::Point last = series.stretches().back().meaning->place(series.points().back());
            if (!part_.contains({last.x, last.y})) gone = QString::fromStdString(series.spec().name());
        }
    if (!gone.isEmpty() && follows_) {
        QRectF part = pointsPart();
        part.adjust(0, 0, part.width() * followRoom, 0);
        return showPart(part);
    }
    if (notice_ == nullptr) {
        if (gone.isEmpty()) return;
        notice_ = new QPushButton(this);
        notice_->setObjectName("fitPicture");
        notice_->setToolTip("Показать все, что нарисовано, и следить за расчетом");
        notice_->setAutoDefault(false);
        notice_->setFocusPolicy(Qt::NoFocus);  // the menu of the picture has it too
        connect(notice_, &QPushButton::clicked, this, [this] { fit(); });
    }
    notice_->setVisible(!gone.isEmpty());
    if (gone.isEmpty()) return;
    notice_->setText(gone.replace("&", "&&") + " - за краем рисунка. Вписать");
    placeNotice();
}

void PictureView::resizeEvent(QResizeEvent*) {
    if (notice_ != nullptr) placeNotice();
}

void PictureView::placeNotice() {
    notice_->adjustSize();
    notice_->move((target().intersected(seen()).topLeft() + QPointF(6, 6)).toPoint());
}

QRectF PictureView::limits() const {
    const QRectF whole(0, 0, 1, 1), points = hasPlot() ? pointsPart() : QRectF();
    const bool within = points.isEmpty() || whole.contains(points.marginsRemoved(QMarginsF() + fitMargin));
    return (within ? whole : whole | points) | part_;
}

void PictureView::showPart(QRectF part) {
    part_ = part;
    update();
}

void PictureView::showWhole() {
    follows_ = false;
    showPart({0, 0, 1, 1});
    watchRun();
}

void PictureView::zoom(double factor, QPointF at) {
    const QRectF area = target(), most = limits();
    const double width = std::clamp(part_.width() / factor, 1 / largestZoom, most.width()),
                 height = std::clamp(part_.height() / factor, 1 / largestZoom, most.height());
    const double shareX = (at.x() - area.left()) / area.width(),
                 shareY = (at.y() - area.top()) / area.height();
    follows_ = false;
    moveTo({part_.x() + shareX * (part_.width() - width), part_.y() + shareY * (part_.height() - height),
            width, height});
}

/// Shows a part, kept within the limits.
void PictureView::moveTo(QRectF part) {
    const QRectF most = limits();
    part.moveTo(std::clamp(part.x(), most.left(), most.right() - part.width()),
                std::clamp(part.y(), most.top(), most.bottom() - part.height()));
    showPart(part);
}

/// Moves what is shown: the enlarged picture in its frame, or the whole one in its scroll area.
void PictureView::drag(QPointF by) {
    const QRectF area = target();
    if (isZoomed())
        return moveTo(part_.translated(-by.x() / area.width() * part_.width(),
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
    if (event->button() == Qt::LeftButton && hasPlot() && overlay_.legend().box.contains(event->position())) {
        pressedInside_ = false;
        legendDragged_ = true;
        dragged_ = event->globalPosition();
        return takeRow(event->position());
    }
    if (event->button() == Qt::LeftButton && zooms()) dragged_ = event->globalPosition();
}

/// The axes of the series that was clicked in the legend.
void PictureView::takeRow(QPointF at) {
    for (const Legend::Row& row : overlay_.legend().rows)
        if (row.series != Plot::none && row.box.contains(at))
            overlay_.chooseLayer(picture_->plot().all().at(row.series).spec().layer);
    update();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && zooms()) return showWhole();
    mousePressEvent(event);
}

void PictureView::wheelEvent(QWheelEvent* event) {
    // In a scroll area the plain wheel moves the picture and Ctrl enlarges it; Ctrl enlarges what belongs to
    // the form, too, where that has a meaning.
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    const bool scrolls = keepsSize_ && fitted() < 1 && !ctrl && !isZoomed();
    if (!(zooms() || (ctrl && hasPlot())) || scrolls || event->angleDelta().y() == 0) return event->ignore();
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
    if (std::exchange(legendDragged_, false)) return;
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
        const QPointF by = event->globalPosition() - *dragged_;
        if (legendDragged_)
            overlay_.moveLegend(by), update();
        else
            drag(by);
        dragged_ = event->globalPosition();
    }
    if (hasPlot() && overlay_.hover(overlayView(), event->position())) update();
    showTip(event->position());
}

/// Where the pointer is, for the status line.
void PictureView::showTip(QPointF at) {
    const auto user = userPoint(at);
    QString tip;
    if (user && hasPlot()) {
        const Plot& plot = picture_->plot();
        tip = overlay_.text().isEmpty()
                  ? placeText(*plot.layers().at(overlay_.layerOf(plot)), overlayView().frame, at)
                  : overlay_.text();
    } else if (user) {
        tip = "x = " + shortNumber(user->x()) + "    y = " + shortNumber(user->y());
    }
    if (user && !picture_->hint().empty()) tip += "        " + QString::fromStdString(picture_->hint());
    QStatusTipEvent show(tip);
    QApplication::sendEvent(this, &show);
}

void PictureView::leaveEvent(QEvent* event) {
    if (hasPlot() && overlay_.hover(overlayView(), std::nullopt)) update();
    QWidget::leaveEvent(event);
}

void PictureView::paintFigure(QPainter& painter, const QRectF& page, double unit) const {
    if (picture_ != nullptr && picture_->canvas() != nullptr)
        tarvex::paintFigure(painter, page, figure(), unit);
}

Figure PictureView::figure() const {
    return {.canvas = static_cast<const ImageCanvas&>(*picture_->canvas()),
            .plot = picture_->plot(),
            .caption = picture_->captionText(),
            .part = part_,
            .look = overlay_.look(),
            .layer = overlay_.chosenLayer().value_or(Plot::none)};
}

void PictureView::exportTo(const QString& path) const {
    if (picture_ == nullptr || picture_->canvas() == nullptr) throw FileFailure("the picture has gone");
    const std::filesystem::path file(path.toStdString());
    writeWhole(file, figureFile(file.extension().string(), figure()));
}

}  // namespace tarvex
