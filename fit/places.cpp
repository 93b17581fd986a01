#include "fit/places.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>

#include "core/failure.h"
#include "core/text_files.h"
#include "theories/ephemeris.h"

namespace tarvex {

namespace {

constexpr double km = 1000;
constexpr double mostPlaces = 1e6;

Place placeOf(const std::string& line) {
    std::istringstream items(line);
    std::string item[6];
    int count = 0;
    while (count < 6 && items >> item[count]) ++count;
    if (count != 5) throw ConversionFailure("нужны пять чисел: JD, объект, X, Y, Z");
    const double body = toNumber(item[1]);
    if (body != Fix(body) || body < 1 || body > NPlanetMax)
        throw ConversionFailure("нет объекта № " + item[1]);
    return {toNumber(item[0]),
            static_cast<int>(body),
            {km * toNumber(item[2]), km * toNumber(item[3]), km * toNumber(item[4])}};
}

bool within(const std::vector<int>& wanted, int body) {
    return std::find(wanted.begin(), wanted.end(), body) != wanted.end();
}

}  // namespace

std::vector<Place> readPlaces(const std::filesystem::path& path, const std::vector<int>& wanted) {
    TextReader file(path);
    std::vector<Place> places;
    int number = 0;
    for (std::string line; file.line(line);) {
        ++number;
        const auto first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line[first] == '#') continue;
        try {
            const Place place = placeOf(line);
            if (within(wanted, place.body)) places.push_back(place);
        } catch (const Failure& failure) {
            throw FileFailure(path.filename().string() + ", строка " + std::to_string(number) + ": " +
                              failure.what());
        }
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const Place& a, const Place& b) { return a.JD < b.JD; });
    return places;
}

std::vector<Place> ephemerisPlaces(const DataTree& tree, const std::vector<int>& wanted, double fromJD,
                                   double toJD, double every) {
    if (!(every > 0) || !(toJD >= fromJD)) throw Failure("в промежутке нет дат: шаг и даты по порядку");
    if (!((toJD - fromJD) / every * static_cast<double>(wanted.size()) < mostPlaces))
        throw Failure("мест больше миллиона: увеличьте шаг");
    const auto s = std::make_unique<ModelState>();
    const auto ephemeris = std::make_unique<Ephemeris>(tree);
    s->JD = fromJD;
    DEOpen(*s, *ephemeris);
    constexpr int ecliptic = 1;
    std::vector<Place> places;
    for (int k = 0; fromJD + k * every <= toJD; ++k) {
        s->JD = ephemeris->JDjpl = fromJD + k * every;
        DESeek(*s, *ephemeris);
        DEEvaluate(*s, *ephemeris, rowSun, ecliptic);
        for (const int body : wanted) {
            DEEvaluate(*s, *ephemeris, body, ecliptic);
            places.push_back(
                {s->JD, body, {s->X[body] - s->X[0], s->Y[body] - s->Y[0], s->Z[body] - s->Z[0]}});
        }
    }
    return places;
}

}  // namespace tarvex
