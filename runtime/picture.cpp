#include "runtime/picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/arithmetic.h"
#include "runtime/desk.h"
#include "runtime/form.h"

namespace tarvex {

namespace {
constexpr double farOutside = 20;  ///< in picture sizes: beyond it a point is not drawn
}  // namespace

Picture::Picture(Form* form, Spec spec)
    : Control(form, Kind::Picture, std::move(spec.name), "", std::move(spec.hint)),
      width_(spec.width),
      height_(spec.height),
      background_(spec.background) {}

Canvas* Picture::canvas() {
    if (!canvas_) {
        canvas_ = form().desk().screen().makeCanvas(*this);
        if (canvas_) {
            canvas_->setScale(left_, top_, right_, bottom_);
            canvas_->clear(background_);
        }
    }
    return canvas_.get();
}

void Picture::setScale(double left, double top, double right, double bottom) {
    if (finite(left) == finite(right) || finite(top) == finite(bottom))
        throw ArithmeticFailure("масштаб рисунка равен нулю");
    left_ = left;
    top_ = top;
    right_ = right;
    bottom_ = bottom;
    plot_.setScale({left, top, right, bottom});
    if (canvas_) canvas_->setScale(left, top, right, bottom);
}

void Picture::resize(int width, int height) {
    width_ = std::clamp(width, 50, 8000);
    height_ = std::clamp(height, 50, 8000);
    canvas_.reset();
    plot_.clear();
    changed();
}

void Picture::lookAt(double top, double bottom) {
    const auto share = [this](double y) { return std::clamp((y - top_) / (bottom_ - top_), 0.0, 1.0); };
    look_ = {look_.count + 1, share(top), share(bottom)};
    changed();
}

void Picture::clear() {
    const FlagsKept flags;
    plot_.clear();
    if (Canvas* c = canvas()) c->clear(background_);
    changed();
}

void Picture::wipe() {
    if (wipe_)
        run({wipe_, {}});
    else
        clear();
}

bool Picture::place(double x, double y, double& cx, double& cy) {
    Canvas* c = canvas();
    if (c == nullptr) return false;
    const double sx = (x - left_) / (right_ - left_), sy = (y - top_) / (bottom_ - top_);
    if (!(std::abs(sx) < farOutside) || !(std::abs(sy) < farOutside)) return false;
    cx = sx * c->width();
    cy = sy * c->height();
    return true;
}

/// A point of a series, wherever it lies.
void Picture::mark(int series, double x, double y, Color color) {
    if (series == Plot::none || canvas() == nullptr) return;
    if (color == background_)
        plot_.take(series, {x, y});
    else
        plot_.add(series, {x, y}, color);
}

void Picture::line(double x1, double y1, double x2, double y2, Color color) {
    const FlagsKept flags;
    const int series = std::exchange(next_, Plot::none);
    mark(series, x1, y1, color);
    mark(series, x2, y2, color);
    double a, b, c, d;
    if (!place(x1, y1, a, b) || !place(x2, y2, c, d)) return;
    canvas_->line(a, b, c, d, color);
    changed();
}

void Picture::drawCircle(double x, double y, double radius, Color color, bool filled) {
    const FlagsKept flags;
    mark(std::exchange(next_, Plot::none), x, y, color);
    const double share = std::abs(radius / (right_ - left_));
    double a, b;
    if (!(share < farOutside) || !place(x, y, a, b)) return;
    canvas_->circle(a, b, share * canvas_->width(), color, filled);
    changed();
}

void Picture::circle(double x, double y, double radius, Color color) {
    drawCircle(x, y, radius, color, false);
}

void Picture::disc(double x, double y, double radius, Color color) { drawCircle(x, y, radius, color, true); }

void Picture::cross(double x, double y, double half, Color color) {
    line(x - half, y, x + half, y, color);
    line(x, y - half, x, y + half, color);
}

void Picture::text(double x, double y, const std::string& text, Color color) {
    const FlagsKept flags;
    double a, b;
    if (!place(x, y, a, b)) return;
    for (std::size_t from = 0; from <= text.size(); b += textHeight_) {
        const auto end = std::min(text.find('\n', from), text.size());
        std::string one = text.substr(from, end - from);
        if (!one.empty() && one.back() == '\r') one.pop_back();
        canvas_->text(a, b, one, color, textHeight_);
        from = end + 1;
    }
    changed();
}

void Picture::save(const std::filesystem::path& path) {
    const FlagsKept flags;
    if (canvas() == nullptr) throw FileFailure("рисунок не нарисован");
    canvas_->save(path);
}

void Picture::exportTo(const std::filesystem::path& path) {
    const FlagsKept flags;
    if (canvas() == nullptr) throw FileFailure("nothing is drawn that could be exported");
    canvas_->exportTo(path, plot_, captionText());
}

std::string Picture::captionText() const {
    std::string words;  // titles are padded with blanks
    for (const char c : form().title() + (hint().empty() ? "" : ". " + hint()))
        if (c != ' ' || (!words.empty() && words.back() != ' ')) words += c;
    return words;
}

void Picture::onClick(Mouse action, Shown message) {
    click_ = std::move(action);
    clickMessage_ = std::move(message);
}

void Picture::onRelease(Mouse action, Shown message) {
    release_ = std::move(action);
    releaseMessage_ = std::move(message);
}

void Picture::click(double x, double y, Button button) {
    if (!click_) return;
    const Desk::Doing doing(form().desk(), {this, Deed::Kind::Click, x, y, button == Button::Left});
    run({[&] { click_(x, y, button); }, clickMessage_});
}

void Picture::release(double x, double y, Button button) {
    if (!release_) return;
    const Desk::Doing doing(form().desk(), {this, Deed::Kind::Release, x, y, button == Button::Left});
    run({[&] { release_(x, y, button); }, releaseMessage_});
}

}  // namespace tarvex
