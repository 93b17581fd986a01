#include "stats/passages.h"

#include <algorithm>
#include <cmath>

namespace tarvex {

namespace {

std::vector<double> datesOf(const SeriesData& d, int first, int last) {
    std::vector<double> dates;
    for (int i = first; i <= last; ++i) dates.push_back(d.date(i));
    return dates;
}

/// The usual distance of neighbours: their median, 0 below two dates.
double usualGap(const std::vector<double>& dates) {
    std::vector<double> gaps;
    for (std::size_t i = 1; i < dates.size(); ++i) gaps.push_back(dates[i] - dates[i - 1]);
    if (gaps.empty()) return 0;
    const auto middle = gaps.begin() + static_cast<std::ptrdiff_t>(gaps.size() / 2);
    std::nth_element(gaps.begin(), middle, gaps.end());
    return *middle;
}

/// Index of the date nearest to `date`; the dates are in order.
std::size_t nearest(const std::vector<double>& dates, double date) {
    const auto after = std::lower_bound(dates.begin(), dates.end(), date);
    if (after == dates.begin()) return 0;
    const auto index = static_cast<std::size_t>(after - dates.begin());
    if (after == dates.end()) return index - 1;
    return date - dates[index - 1] <= *after - date ? index - 1 : index;
}

bool isAngle(int param) { return param <= parBetta || param == parAlfaL0; }

}  // namespace

PassageCount countPassages(const std::vector<double>& dates) {
    PassageCount count{static_cast<int>(dates.size()), static_cast<int>(dates.size())};
    const double gap = usualGap(dates);
    if (!(gap > 0)) return count;
    count.expected = 1;
    for (std::size_t i = 1; i < dates.size(); ++i)
        count.expected += std::max(1, toInt32(std::min((dates[i] - dates[i - 1]) / gap, 1e6)));
    return count;
}

PassageCount countPassages(const SeriesData& d, const FitSettings& settings) {
    d.at(settings.first);
    d.at(settings.last);
    return countPassages(datesOf(d, settings.first, settings.last));
}

PairedSeries pairPassages(const SeriesData& first, const SeriesData& second, const FitSettings& settings) {
    first.at(settings.first);
    first.at(settings.last);
    const std::vector<double> own = datesOf(first, settings.first, settings.last),
                              other = datesOf(second, 1, second.NP1max());
    PairedSeries out;
    const int p = first.Nparam;
    const double reach = std::max(usualGap(own), usualGap(other)) / 3;
    for (std::size_t i = 0; i < own.size(); ++i) {
        const std::size_t j = other.empty() ? 0 : nearest(other, own[i]);
        if (other.empty() || std::abs(other[j] - own[i]) >= reach || nearest(own, other[j]) != i) {
            ++out.unpaired;
            continue;
        }
        const Record &a = first.at(settings.first + static_cast<int>(i)),
                     &b = second.at(static_cast<int>(j) + 1);
        double difference = a.Par[p] - b.Par[p];
        if (isAngle(p)) difference -= 360 * std::round(difference / 360);
        out.points.groups.push_back({(own[i] - settings.T0) / 36525, difference, 1});
    }
    out.points.VesSum = static_cast<double>(out.points.groups.size());
    return out;
}

}  // namespace tarvex
