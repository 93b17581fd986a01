#pragma once
// Shows a picture's canvas at any size, with its shape kept, and turns mouse events into user coordinates.

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/plot_overlay.h"
#include "runtime/picture.h"

class QPainter;
class QPushButton;
class QScrollArea;

namespace tarvex {

class ImageCanvas;

struct Figure;

class PictureView final : public QWidget {
public:
    /// @param act  runs what the user has done (see ControlView)
    PictureView(Picture& picture, std::function<void(const std::function<void()>&)> act);

    /// The picture is about to go: nothing of it is read any more.
    void detach() { picture_ = nullptr; }
    /// Takes over a new shape and paints anew.
    void refresh();
    /// The picture; null once it has gone.
    Picture* picture() const { return picture_; }
    /// The whole picture as an image, at the size of its canvas.
    QImage image() const;
    /// Where the picture lies in this widget.
    QRectF target() const;
    double shownSize() const;
    double fitted() const;  ///< how many times its usual size the scroll area shows whole
    /// User coordinates of a point of this widget; none beside the picture.
    std::optional<QPointF> userPoint(QPointF at) const;

    /// A picture without a mouse meaning of its own is enlarged with the wheel, moved by dragging, and shown
    /// whole again by a double click.
    bool zooms() const { return picture_ != nullptr && !picture_->hasMouseMeaning(); }
    /// Shows it so many times larger, with what lies at this point of the widget kept there.
    void zoom(double factor, QPointF at);
    void showWhole();
    /// Shows all points of the series: those of the chosen layer, or else those with colours of their own.
    /// What is drawn on afterwards is followed.
    void fit();
    /// The form's empty picture.
    void wipe();
    /// What is shown, in shares of the picture.
    QRectF part() const { return part_; }
    /// What lies over the picture.
    PlotOverlay& overlay() { return overlay_; }
    /// Takes the user's colours and signs anew.
    void takeLook();
    /// The picture as it is shown now, with axes, legend and caption.
    void paintFigure(QPainter& painter, const QRectF& page, double unit) const;
    void exportTo(const QString& path) const;

    /// The scroll area that moves the picture; null without one.
    QScrollArea* scrollArea() const;
    /// From now on the picture is never shown smaller than it is: a scroll area moves it instead.
    void keepSize();
    /// What the scroll area shows at once: a picture that is whole in it without becoming small fills it.
    void fitIn(QSize room);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void showEvent(QShowEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    bool hasPlot() const { return picture_ != nullptr && picture_->plot().described(); }
    bool isZoomed() const { return part_ != QRectF(0, 0, 1, 1); }
    /// A white picture on a dark desktop is shown dark.
    bool isTurnedDark() const;
    QMarginsF margins() const;
    QRectF seen() const;
    PlotOverlay::View overlayView() const;
    QRectF unitsOf(const ImageCanvas& canvas) const;
    void paintCanvas(QPainter& painter) const;
    void paintWords(QPainter& painter) const;
    void paintTurnedDark(QPainter& painter, const QRectF& exposed) const;
    /// What may be shown: the picture, and the points around it.
    QRectF limits() const;
    QRectF pointsPart() const;
    void showPart(QRectF part);
    void moveTo(QRectF part);
    void takeRow(QPointF at);
    Figure figure() const;
    void watchRun();
    void placeNotice();
    void showTip(QPointF at);
    void drag(QPointF by);
    /// Moves the picture in its scroll area to what its form asks to look at, once for each asking.
    void followLook();

    Picture* picture_;
    std::function<void(const std::function<void()>&)> act_;
    QSize shape_;
    bool pressedInside_ = false, keepsSize_ = false;
    QSize room_;  ///< of the scroll area around it
    QRectF part_{0, 0, 1, 1};
    int looks_ = 0;                   ///< how many askings were followed
    std::optional<QPointF> dragged_;  ///< where the pointer was last in a drag
    bool legendDragged_ = false, follows_ = false, hadPlot_ = false;
    PlotOverlay overlay_;
    QPushButton* notice_ = nullptr;  ///< a run has left the picture
};

}  // namespace tarvex
