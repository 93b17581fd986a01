#include "tests/support/reference_orbit.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace tarvex::test {

namespace {

constexpr double degree = 3.14159265358979323846 / 180;

double longitude(const Vec3& r) {
    const double l = std::atan2(r.y, r.x) / degree;
    return l < 0 ? l + 360 : l;
}

/// A turn of the distance: where, the node before it, and the largest latitude since the turn before.
struct Turn {
    double time;
    Vec3 r;
    double node, largest;
    bool nearest;
};

bool further(const Turn& a, const Turn& b) { return (length(a.r) < length(b.r)) == a.nearest; }

std::vector<ReferenceApse> apsesOf(const std::vector<Turn>& turns) {
    std::vector<ReferenceApse> apses;
    double largest = 0;
    for (std::size_t k = 0; k < turns.size(); ++k) {
        largest = std::max(largest, turns[k].largest);
        if (turns[k].nearest != (apses.empty() || !apses.back().atPerihelion)) continue;
        std::size_t best = k;
        for (std::size_t n = k + 1; n < turns.size() && dot(turns[n].r, turns[best].r) > 0; ++n)
            if (turns[n].nearest == turns[k].nearest && further(turns[n], turns[best])) best = n;
        for (; k < best; ++k) largest = std::max(largest, turns[k + 1].largest);
        const Turn& t = turns[best];
        const double u = (longitude(t.r) - t.node) * degree;
        const double turned =
            std::atan2(std::sin(u) / std::cos(largest), std::cos(u));  // to the orbit's plane
        apses.push_back(
            {t.time, t.node + turned / degree + (t.nearest ? 0 : 180), t.node, length(t.r), t.nearest});
        largest = 0;
        while (k + 1 < turns.size() && dot(turns[k + 1].r, t.r) > 0)
            largest = std::max(largest, turns[++k].largest);
    }
    return apses;
}

}  // namespace

ReferenceOrbit::ReferenceOrbit(std::vector<double> gm, State state_, double c2)
    : state(std::move(state_)), gm_(std::move(gm)), c2_(c2) {}

/// The Einstein-Infeld-Hoffmann terms, term by term as Standish and Williams print them for DE405.
void ReferenceOrbit::relativity(const State& s, std::vector<Vec3>& a) const {
    const std::size_t n = gm_.size();
    const auto newton = a;
    std::vector<double> potential(n);
    const auto apart = [&](std::size_t i, std::size_t j) { return length(s[j] - s[i]); };
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t k = 0; k < n; ++k)
            if (k != i) potential[i] += gm_[k] / apart(i, k);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) {
            if (i == j) continue;
            const Vec3 d = s[j] - s[i], vi = s[n + i], vj = s[n + j];
            const double r = apart(i, j), g = gm_[j] / (r * r * r), along = dot(s[i] - s[j], vj) / r;
            const double sum = -4 * potential[i] - potential[j] + dot(vi, vi) + 2 * dot(vj, vj) -
                               4 * dot(vi, vj) - 1.5 * along * along + 0.5 * dot(d, newton[j]);
            a[i] += (g * sum / c2_) * d;
            a[i] += (g / c2_ * dot(s[i] - s[j], 4 * vi - 3 * vj)) * (vi - vj);
            a[i] += (3.5 / c2_ * gm_[j] / r) * newton[j];
        }
}

ReferenceOrbit::State ReferenceOrbit::slope(const State& s) const {
    const std::size_t n = gm_.size();
    std::vector<Vec3> a(n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const Vec3 d = s[j] - s[i];
            const double r2 = dot(d, d), r3 = r2 * std::sqrt(r2);
            a[i] += (gm_[j] / r3) * d;
            a[j] += (-gm_[i] / r3) * d;
        }
    if (c2_ != 0) relativity(s, a);
    State result(s.begin() + static_cast<std::ptrdiff_t>(n), s.end());
    result.insert(result.end(), a.begin(), a.end());
    return result;
}

ReferenceOrbit::State ReferenceOrbit::after(const State& start, double h) const {
    constexpr int rows = 8;
    const auto moved = [](const State& from, double k, const State& by) {
        State to = from;
        for (std::size_t i = 0; i < to.size(); ++i) to[i] += k * by[i];
        return to;
    };
    const State first = slope(start);
    std::array<State, rows> table;
    for (int row = 0; row < rows; ++row) {
        const int n = 2 * (row + 1);
        State before = start, now = moved(start, h / n, first);
        for (int m = 1; m < n; ++m) {
            State next = moved(before, 2 * h / n, slope(now));
            before = std::move(now);
            now = std::move(next);
        }
        table[row] = std::move(now);
        for (int k = row - 1; k >= 0; --k) {  // column by column towards the limit of no step
            const double ratio = static_cast<double>(n) / (2 * (k + 1)), share = 1 / (ratio * ratio - 1);
            for (std::size_t i = 0; i < table[k].size(); ++i)
                table[k][i] = table[k + 1][i] + share * (table[k + 1][i] - table[k][i]);
        }
    }
    return table[0];
}

std::vector<ReferenceApse> ReferenceOrbit::apses(std::size_t body, std::size_t centre, double h,
                                                 double time) {
    const std::size_t n = gm_.size();
    using Function = double (*)(const Vec3& r, const Vec3& v);
    constexpr Function latitude = [](const Vec3& r, const Vec3& v) {
        return v.z * dot(r, r) - r.z * dot(r, v);
    };
    constexpr Function height = [](const Vec3& r, const Vec3&) { return r.z; };
    constexpr Function radial = [](const Vec3& r, const Vec3& v) { return dot(r, v); };
    const auto value = [&](Function f, const State& s) {
        return f(s[body] - s[centre], s[n + body] - s[n + centre]);
    };
    std::vector<Turn> turns;
    double node = 0, largest = 0;
    const auto pass = [&](Function f, const State& s, double at, bool upwards) {
        const Vec3 r = s[body] - s[centre], v = s[n + body] - s[n + centre];
        const double inclination = std::abs(std::asin(r.z / length(r)));
        if (f == latitude) largest = std::max(largest, inclination);
        if (f == height) node = std::fmod(longitude(r) + (v.z > 0 ? 0 : 180), 360);
        if (f != radial) return;
        largest = std::max(largest, inclination);
        turns.push_back({at, r, node, largest, upwards});
        largest = inclination;
    };
    for (double t = 0; t < time; t += h) {
        const State next = after(state, h);
        std::vector<std::tuple<double, Function, bool>> roots;
        for (const Function f : {latitude, height, radial}) {
            double x0 = 0, x1 = 1, y0 = value(f, state), y1 = value(f, next);
            const bool upwards = y1 > y0;
            if (!(y0 <= 0 && y1 > 0) && !(y0 >= 0 && y1 < 0)) continue;
            for (int k = 0; k < 20 && y1 != y0 && std::abs(x1 - x0) > 1e-15; ++k) {  // secants
                const double x = x1 - y1 * (x1 - x0) / (y1 - y0);
                x0 = x1, y0 = y1, x1 = x, y1 = value(f, after(state, x * h));
            }
            roots.emplace_back(x1, f, upwards);
        }
        std::sort(roots.begin(), roots.end(),
                  [](auto& a, auto& b) { return std::get<0>(a) < std::get<0>(b); });
        for (const auto& [share, f, upwards] : roots)
            pass(f, after(state, share * h), t + share * h, upwards);
        state = next;
    }
    return apsesOf(turns);
}

double slopeOf(const std::vector<std::pair<double, double>>& points) {
    double n = 0, x0 = 0, y0 = 0, xx = 0, xy = 0;
    for (const auto& [x, y] : points) n += 1, x0 += x, y0 += y;
    for (const auto& [x, y] : points) xx += (x - x0 / n) * (x - x0 / n), xy += (x - x0 / n) * (y - y0 / n);
    return xy / xx;
}

}  // namespace tarvex::test
