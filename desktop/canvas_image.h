#pragma once
// A canvas on an image: what the desktop shows and what the script player saves.

#include <QImage>
#include <functional>
#include <memory>

#include "desktop/drawing.h"
#include "runtime/picture.h"

class QPainter;

namespace tarvex {

/// Draws at twice the size of the canvas, so that it stays sharp when a window shows it larger.
/// Lines and circles are not smoothed: a form erases a line by drawing it again in the background colour.
/// Fonts need an application object; a program without windows gets one that opens no display.
void needFonts();

class ImageCanvas final : public Canvas {
public:
    ImageCanvas(int width, int height);
    ~ImageCanvas() override;

    double width() const override { return width_; }
    double height() const override { return height_; }
    void setScale(double left, double top, double right, double bottom) override;
    void clear(Color background) override;
    void line(double x1, double y1, double x2, double y2, Color color) override;
    void circle(double x, double y, double radius, Color color, bool filled) override;
    void text(double x, double y, const std::string& text, Color color, double size) override;
    void save(const std::filesystem::path& path) const override;
    void exportTo(const std::filesystem::path& path, const Plot& plot,
                  const std::string& caption) const override;

    /// What has been drawn, at pixelsPerUnit; null while nothing but the background has been.
    const QImage& image() const;
    /// The same; one of background when nothing has been drawn.
    QImage whole() const;
    Color background() const { return drawing_.background(); }
    const Drawing& drawing() const { return drawing_; }

    /// Shows a part of what has been drawn, enlarged: lines stay thin, small discs and texts keep their size,
    /// and texts stand clear of the grid.
    /// @param part    of the canvas and around it, in canvas units
    /// @param target  where it goes
    /// @param size    pixels of a canvas unit when nothing is enlarged
    void paintPart(QPainter& painter, const QRectF& part, const QRectF& target, double size) const;

    /// Its texts again over the whole picture, clear of what was drawn over them.
    void paintTexts(QPainter& painter, const QRectF& target) const;
    /// Their letters alone with a thin edge of ground, for what has been laid over a part of the picture:
    /// they stay readable and hide nothing.  Parameters as those of paintPart.
    /// @param shade  the colours as they are shown
    void paintLetters(QPainter& painter, const QRectF& part, const QRectF& target, double size,
                      const std::function<QColor(QColor)>& shade) const;
    /// Few marks, and words among them: best shown drawn anew.
    bool isPrinted() const {
        return drawing_.complete() && drawing_.texts() > 0 && drawing_.size() <= mostPrinted;
    }

    static constexpr int pixelsPerUnit = 2;

private:
    static constexpr std::size_t mostTexts = 300;     ///< that are laid over a run
    static constexpr std::size_t mostPrinted = 4000;  ///< marks that are drawn anew at each look

    void draw(Mark mark);

    int width_, height_;
    Drawing drawing_;
    QImage image_;                               ///< made at the first line: an unused picture costs nothing
    mutable std::unique_ptr<QPainter> painter_;  ///< kept between lines, ended when the image is read
};

/// A canvas of this size in canvas units.  Works in a program without any window too.
std::unique_ptr<Canvas> makeImageCanvas(int width, int height);

}  // namespace tarvex
