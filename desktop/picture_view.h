#pragma once
// Shows a picture's canvas at any size, with its shape kept, and turns mouse events into user coordinates.

#include <QWidget>
#include <functional>
#include <optional>

#include "runtime/picture.h"

namespace tarvex {

class PictureView final : public QWidget {
public:
    /// @param act  runs what the user has done (see ControlView)
    PictureView(Picture& picture, std::function<void(const std::function<void()>&)> act);

    /// The picture is about to go: nothing of it is read any more.
    void detach() { picture_ = nullptr; }
    /// Takes over a new shape and paints anew.
    void refresh();
    /// Where the picture lies in this widget.
    QRectF target() const;
    /// User coordinates of a point of this widget; none beside the picture.
    std::optional<QPointF> userPoint(QPointF at) const;

    /// From now on the picture is never shown smaller than it is: a scroll area moves it instead.
    void keepSize();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void paintCanvas(class QPainter& painter) const;

    Picture* picture_;
    std::function<void(const std::function<void()>&)> act_;
    QSize shape_;
    bool pressedInside_ = false, keepsSize_ = false;
};

}  // namespace tarvex
