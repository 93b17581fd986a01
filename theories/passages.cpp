#include "theories/passages.h"

#include <algorithm>
#include <boost/math/tools/toms748_solve.hpp>
#include <cmath>
#include <cstdint>

namespace tarvex {

namespace {

constexpr Passing kinds[] = {Passing::Latitude, Passing::Node, Passing::Wrap, Passing::Apse};

bool changesSign(double before, double after) {
    return (before <= 0 && after > 0) || (before >= 0 && after < 0);
}

/// Share of the step at which the function vanishes.  A track that misses its own ends by rounding may not
/// enclose the zero: it is then at the nearer end.
double zeroOf(Passing what, Track& track) {
    const auto function = [&](double share) { return passingFunction(what, track.at(share)); };
    const double atStart = function(0), atEnd = function(1);
    if (atStart == 0 || atEnd == 0 || std::signbit(atStart) == std::signbit(atEnd))
        return std::abs(atStart) <= std::abs(atEnd) ? 0 : 1;
    std::uintmax_t most = 100;
    const auto [low, high] = boost::math::tools::toms748_solve(
        function, 0., 1., atStart, atEnd, boost::math::tools::eps_tolerance<double>(), most);
    return (low + high) / 2;
}

}  // namespace

double passingFunction(Passing what, const OrbitPoint& p) {
    switch (what) {
        case Passing::Node:
            return p.r.z;
        case Passing::Wrap:
            return p.r.y;
        case Passing::Apse:
            return dot(p.r, p.v);
        default:
            return p.v.z * dot(p.r, p.r) - p.r.z * dot(p.r, p.v);  // of d(Z/R)/dt
    }
}

bool maybePassed(const OrbitPoint& before, const OrbitPoint& after) {
    return std::any_of(std::begin(kinds), std::end(kinds), [&](Passing what) {
        return changesSign(passingFunction(what, before), passingFunction(what, after));
    });
}

FoundPassages findPassages(const OrbitPoint& before, const OrbitPoint& after, Track& track) {
    FoundPassages all;
    for (const Passing what : kinds) {
        const double start = passingFunction(what, before), end = passingFunction(what, after);
        if (!changesSign(start, end)) continue;
        if (what == Passing::Wrap && before.r.x <= 0 && after.r.x <= 0) continue;
        FoundPassage passage{.what = what, .share = zeroOf(what, track), .upwards = start < end, .point = {}};
        passage.point = track.at(passage.share);
        if (what == Passing::Wrap && passage.point.r.x <= 0) continue;
        int place = all.count++;
        for (; place > 0 && all.found[place - 1].share > passage.share; --place)
            all.found[place] = all.found[place - 1];
        all.found[place] = passage;
    }
    return all;
}

double latitudeOf(const Vec3& r) { return std::atan2(r.z, std::hypot(r.x, r.y)); }

}  // namespace tarvex
