#pragma once
// Picture areas with a user scale.  What is drawn goes straight to a canvas of fixed size, so memory does not
// grow with the number of points; a screen shows the canvas at any size.

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "runtime/control.h"
#include "runtime/plot.h"

namespace tarvex {

/// Where a picture is drawn.  Coordinates are canvas units: x to the right from 0 to width(), y down from 0
/// to height(); text is placed by its top left corner.
class Canvas {
public:
    virtual ~Canvas() = default;
    virtual double width() const = 0;
    virtual double height() const = 0;
    /// User coordinates of the corners from now on, for a canvas that tells them again.
    virtual void setScale(double /*left*/, double /*top*/, double /*right*/, double /*bottom*/) {}
    virtual void clear(Color background) = 0;
    virtual void line(double x1, double y1, double x2, double y2, Color color) = 0;
    virtual void circle(double x, double y, double radius, Color color, bool filled) = 0;
    virtual void text(double x, double y, const std::string& text, Color color, double size) = 0;
    /// Writes the picture; the ending of the name tells the format: .png, .bmp, .svg, or .csv for its points
    /// and lines as numbers.  Throws FileFailure.
    virtual void save(const std::filesystem::path& path) const = 0;
    /// Writes the picture with what it means: .pdf and .svg with axes, legend and caption, .csv with a block
    /// a series.  Throws FileFailure.
    virtual void exportTo(const std::filesystem::path& path, const Plot& /*plot*/,
                          const std::string& /*caption*/) const {
        save(path);
    }
};

class Picture final : public Control {
public:
    enum class Button { Left, Right };
    struct Spec {
        std::string name;
        int width = 700, height = 500;  ///< usual size in pixels; its shape is kept when a window resizes
        Color background = {255, 255, 255};
        std::string hint = "";
    };
    using Mouse = std::function<void(double x, double y, Button button)>;

    Picture(Form* form, Spec spec);

    /// User coordinates of the left top and right bottom corners, "(-10, 12)-(10, -10)".
    void setScale(double left, double top, double right, double bottom);
    /// Changes the shape of the picture (a plan with more rows); clears it.
    void resize(int width, int height);
    void clear();
    void setBackground(Color background) { background_ = background; }
    /// Height of texts from now on, in canvas units.
    void setTextHeight(double height) { textHeight_ = height; }

    /// What user coordinates mean from now on, in a layer of what is drawn.
    void axes(int layer, const Axes& axes) { plot_.setAxes(layer, axes); }
    /// From now on it is a page of text: its axes and series are gone.
    void noAxes() { plot_.forget(); }
    /// The number of a series, for as().
    int series(const SeriesSpec& spec) { return plot_.series(spec); }
    /// The next mark belongs to this series: the middle of a circle or disc, the ends of a line.  In the
    /// colour of the background it takes the point away.
    Picture& as(int series) {
        next_ = series;
        return *this;
    }
    const Plot& plot() const { return plot_; }

    // All in user coordinates.  A point far outside, a circle many times the picture, or no number, is not
    // drawn.
    void line(double x1, double y1, double x2, double y2, Color color);
    void circle(double x, double y, double radius,
                Color color);                                   ///< outline; the radius counts in units of x
    void disc(double x, double y, double radius, Color color);  ///< filled
    void cross(double x, double y, double half, Color color);
    /// Text with its top left corner at (x, y); a line end starts a new line below.
    void text(double x, double y, const std::string& text, Color color = {0, 0, 0});

    /// Asks a screen that shows only a part of the picture to show these heights, from the upper one on where
    /// they do not all fit.
    void lookAt(double top, double bottom);
    /// How often it was asked, and the last heights as shares of the picture, 0 at its top.
    struct Look {
        int count = 0;
        double top = 0, bottom = 0;
    };
    const Look& look() const { return look_; }

    /// Saves the picture as it stands.  Throws FileFailure, also where the screen draws nothing; the
    /// old file stays whole then.
    void save(const std::filesystem::path& path);
    /// Writes it with axes, legend and caption (.pdf, .svg) or its series as numbers (.csv).  Throws
    /// FileFailure as save() does.
    void exportTo(const std::filesystem::path& path);
    /// What it is called where it stands alone: its form and its hint.
    std::string captionText() const;

    /// How the form draws its empty picture, for a user who wants it clear; without it all goes.
    void onWipe(std::function<void()> action) { wipe_ = std::move(action); }
    void wipe();

    void onClick(Mouse action, Shown message = {});
    void onRelease(Mouse action, Shown message = {});
    /// Mouse events at user coordinates, from the screen or the script player.
    void click(double x, double y, Button button);
    void release(double x, double y, Button button);
    bool hasMouseMeaning() const { return static_cast<bool>(click_) || static_cast<bool>(release_); }

    int width() const { return width_; }
    int height() const { return height_; }
    Color background() const { return background_; }
    double toUserX(double share) const {
        return left_ + share * (right_ - left_);
    }  ///< share of the width, 0..1
    double toUserY(double share) const {
        return top_ + share * (bottom_ - top_);
    }  ///< share of the height, 0..1
    /// The canvas, made at the first use.  Null where the screen draws nothing.
    Canvas* canvas();

private:
    bool place(double x, double y, double& cx, double& cy);
    void mark(int series, double x, double y, Color color);
    void drawCircle(double x, double y, double radius, Color color, bool filled);

    int width_, height_;
    Color background_;
    double textHeight_ = 15;
    double left_ = 0, top_ = 0, right_ = 1, bottom_ = 1;
    std::unique_ptr<Canvas> canvas_;
    Look look_;
    Plot plot_;
    int next_ = Plot::none;  ///< the series of the next mark
    std::function<void()> wipe_;
    Mouse click_, release_;
    Shown clickMessage_, releaseMessage_;
};

}  // namespace tarvex
