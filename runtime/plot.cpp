#include "runtime/plot.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvex {

namespace {

constexpr std::size_t mostSeries = 400;
constexpr std::size_t thinGroup = 4;  ///< neighbours of which the lowest and the highest stay

}  // namespace

void Plot::Bounds::add(Point place) {
    left = std::min(left, place.x);
    right = std::max(right, place.x);
    top = std::min(top, place.y);
    bottom = std::max(bottom, place.y);
}

void Plot::Bounds::add(const Bounds& other) {
    if (other.empty()) return;
    add(Point{other.left, other.top});
    add(Point{other.right, other.bottom});
}

const Plot::Meaning& Plot::Series::meaningOf(std::size_t point) const {
    const auto after = std::upper_bound(stretches_.begin(), stretches_.end(), point,
                                        [](std::size_t p, const Stretch& s) { return p < s.first; });
    return *std::prev(after)->meaning;
}

bool Plot::Series::away() const {
    if (points_.empty()) return false;
    const Point p = stretches_.back().meaning->place(points_.back());
    return p.x < 0 || p.x > 1 || p.y < 0 || p.y > 1;
}

void Plot::Series::measure() {
    bounds_ = {};
    for (std::size_t s = 0; s < stretches_.size(); ++s) {
        const std::size_t end = s + 1 < stretches_.size() ? stretches_[s + 1].first : points_.size();
        for (std::size_t i = stretches_[s].first; i < end; ++i)
            bounds_.add(stretches_[s].meaning->place(points_[i]));
    }
}

/// Half of the points: the lowest and the highest of each few neighbours, in their order.
void Plot::Series::thin() {
    std::vector<Point> kept;
    std::vector<Stretch> stretches;
    kept.reserve(points_.size() / 2 + 2 * stretches_.size());
    for (std::size_t s = 0; s < stretches_.size(); ++s) {
        const std::size_t end = s + 1 < stretches_.size() ? stretches_[s + 1].first : points_.size();
        stretches.push_back({kept.size(), stretches_[s].meaning});
        for (std::size_t from = stretches_[s].first; from < end; from += thinGroup) {
            const auto first = points_.begin() + static_cast<std::ptrdiff_t>(from),
                       last = points_.begin() + static_cast<std::ptrdiff_t>(std::min(from + thinGroup, end));
            auto [low, high] =
                std::minmax_element(first, last, [](const Point& a, const Point& b) { return a.y < b.y; });
            if (high < low) std::swap(low, high);
            kept.push_back(*low);
            if (high != low) kept.push_back(*high);
        }
    }
    points_ = std::move(kept);
    stretches_ = std::move(stretches);
    thinned_ = true;
    ++revision_;
}

void Plot::setScale(const UserScale& scale) {
    scale_ = scale;
    for (auto& [number, meaning] : layers_)
        if (meaning->scale != scale) meaning = std::make_shared<Meaning>(Meaning{meaning->axes, scale});
}

void Plot::setAxes(int layer, const Axes& axes) {
    auto& meaning = layers_[layer];
    if (!meaning || meaning->axes != axes) meaning = std::make_shared<Meaning>(Meaning{axes, scale_});
}

int Plot::series(const SeriesSpec& spec) {
    const auto known = std::find_if(series_.begin(), series_.end(),
                                    [&](const auto& one) { return one.second.spec_ == spec; });
    if (known != series_.end()) return known->first;
    if (series_.size() >= mostSeries) dropOne();
    setAxes(spec.layer, layers_.contains(spec.layer) ? layers_.at(spec.layer)->axes : Axes{});
    series_[++last_].spec_ = spec;
    return last_;
}

/// The oldest series of a quantity goes, one without points before others; what is drawn as it is stays
/// longest.
void Plot::dropOne() {
    const auto worth = [](const auto& one) {
        return std::pair(one.second.spec_.color == SeriesSpec::asDrawn, !one.second.points_.empty());
    };
    const auto least = std::min_element(series_.begin(), series_.end(),
                                        [&](const auto& a, const auto& b) { return worth(a) < worth(b); });
    points_ -= least->second.points_.size();
    series_.erase(least);
}

void Plot::add(int number, Point user, Color color) {
    const auto found = series_.find(number);
    if (found == series_.end() || !std::isfinite(user.x) || !std::isfinite(user.y)) return;
    Series& series = found->second;
    const auto& meaning = layers_.at(series.spec_.layer);
    const Point place = meaning->place(user);
    if (!std::isfinite(place.x) || !std::isfinite(place.y)) return;
    if (series.stretches_.empty() || series.stretches_.back().meaning != meaning)
        series.stretches_.push_back({series.points_.size(), meaning});
    else if (series.points_.back().x == user.x && series.points_.back().y == user.y)
        return;  // a body that has not moved
    series.points_.push_back(user);
    series.bounds_.add(place);
    series.color_ = color;
    if (++points_ > most_) thinLongest();
}

void Plot::take(int number, Point user) {
    const auto found = series_.find(number);
    if (found == series_.end()) return;
    Series& series = found->second;
    const auto at = std::find_if(series.points_.rbegin(), series.points_.rend(),
                                 [&](const Point& p) { return p.x == user.x && p.y == user.y; });
    if (at == series.points_.rend()) return;
    const auto index = static_cast<std::size_t>(std::distance(at, series.points_.rend())) - 1;
    series.points_.erase(std::next(at).base());
    for (Stretch& stretch : series.stretches_)
        if (stretch.first > index) --stretch.first;
    while (!series.stretches_.empty() && series.stretches_.back().first >= series.points_.size())
        series.stretches_.pop_back();
    --points_;
    ++series.revision_;
    series.measure();
}

void Plot::clear() {
    for (auto& [number, series] : series_) {
        series.points_ = {};
        series.stretches_ = {};
        series.bounds_ = {};
        series.thinned_ = false;
        ++series.revision_;
    }
    points_ = 0;
}

void Plot::forget() {
    clear();
    layers_.clear();
    series_.clear();
}

void Plot::thinLongest() {
    const auto longest = std::max_element(series_.begin(), series_.end(), [](const auto& a, const auto& b) {
        return a.second.points_.size() < b.second.points_.size();
    });
    points_ -= longest->second.points_.size();
    longest->second.thin();
    points_ += longest->second.points_.size();
}

Plot::Bounds Plot::bounds(const std::function<bool(const Series&)>& takes) const {
    Bounds all;
    for (const auto& [number, series] : series_)
        if (takes(series)) all.add(series.bounds());
    return all;
}

}  // namespace tarvex
