#include "desktop/drawing.h"

#include <algorithm>
#include <functional>

namespace tarvex {

void Drawing::setScale(const Scale& scale) {
    if (scaleUsed_) scales_.emplace_back();
    scaleUsed_ = false;
    scales_.back() = scale;
}

void Drawing::clear(Color background) {
    background_ = background;
    marks_.clear();
    places_.clear();
    scales_ = {scales_.back()};
    complete_ = true;
    texts_ = 0;
    scaleUsed_ = false;
}

std::size_t Drawing::hash(const Mark& mark) {
    std::size_t sum = std::hash<std::string>()(mark.text) + static_cast<std::size_t>(mark.kind);
    for (const double v : {mark.x, mark.y, mark.x2, mark.y2}) sum = sum * 1000003 ^ std::hash<double>()(v);
    return sum;
}

void Drawing::add(Mark mark) {
    const std::size_t key = hash(mark);
    if (const auto found = places_.find(key); found != places_.end()) {
        Mark& old = marks_[found->second];
        if (old.sameShape(mark)) {
            old.scale = gone;
            texts_ -= old.kind == Mark::Kind::Text;
            places_.erase(found);
            if (mark.color == background_) return;
        }
    }
    if (marks_.size() >= most_) tidy();
    mark.scale = static_cast<std::uint32_t>(scales_.size() - 1);
    scaleUsed_ = true;
    texts_ += mark.kind == Mark::Kind::Text;
    places_[key] = marks_.size();
    marks_.push_back(std::move(mark));
}

/// Makes room: what was taken away goes for good, and where that is not enough the oldest quarter goes too,
/// its texts last.
void Drawing::tidy() {
    std::erase_if(marks_, [](const Mark& mark) { return mark.scale == gone; });
    const auto end = [this] { return marks_.begin() + static_cast<std::ptrdiff_t>(most_ / 4); };
    const auto isText = [](const Mark& mark) { return mark.kind == Mark::Kind::Text; };
    if (marks_.size() > most_ / 4 * 3) {
        complete_ = false;
        marks_.erase(std::stable_partition(marks_.begin(), end(), isText), end());
        if (marks_.size() > most_ / 8 * 7) marks_.erase(marks_.begin(), end());
    }
    // Scales that no mark uses any more go as well; the last one is that of what comes next.
    std::vector<Scale> used;
    std::uint32_t last = gone;
    for (Mark& mark : marks_) {
        if (mark.scale != last) used.push_back(scales_[last = mark.scale]);
        mark.scale = static_cast<std::uint32_t>(used.size() - 1);
    }
    if (last != scales_.size() - 1) used.push_back(scales_.back());
    scales_ = std::move(used);
    places_.clear();
    texts_ = 0;
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        places_[hash(marks_[i])] = i;
        texts_ += marks_[i].kind == Mark::Kind::Text;
    }
}

double Drawing::userX(const Mark& mark, double x) const {
    const Scale& s = scales_[mark.scale];
    return s.left + x / width_ * (s.right - s.left);
}

double Drawing::userY(const Mark& mark, double y) const {
    const Scale& s = scales_[mark.scale];
    return s.top + y / height_ * (s.bottom - s.top);
}

}  // namespace tarvex
