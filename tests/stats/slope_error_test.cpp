#include "stats/slope_error.h"

#include <random>

#include "stats/passages.h"
#include "stats/planet_terms.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

/// Points 44 days apart around a slope of 500, with first-order autoregressive noise of variance 1.
std::vector<Group> noisySeries(int n, double memory, std::mt19937& random) {
    std::normal_distribution<double> normal;
    std::vector<Group> points;
    double e = normal(random);
    for (int i = 0; i < n; ++i) {
        const double T = i * 44 / 36525.0;
        points.push_back({T, 3 + 500 * T + e, 1});
        e = memory * e + std::sqrt(1 - memory * memory) * normal(random);
    }
    return points;
}

/// Share of series whose interval holds the true slope.
template <class Interval>
double coverage(int series, int n, double memory, Interval interval) {
    std::mt19937 random(12345);
    int held = 0;
    for (int i = 0; i < series; ++i) {
        const auto [low, high] = interval(noisySeries(n, memory, random));
        held += low <= 500 && 500 <= high;
    }
    return static_cast<double>(held) / series;
}

}  // namespace

TEST(SlopeError, IntervalsHoldTheTrueSlopeOfNoiseWithMemory) {
    const auto student = [](const std::vector<Group>& points) {
        const auto error = slopeError(points, Equation::Line, 0);
        return std::pair(error->low, error->high);
    };
    EXPECT_NEAR(coverage(1000, 330, 0, student), 0.95, 0.02);
    EXPECT_NEAR(coverage(1000, 330, 0.6, student), 0.95, 0.02);
    EXPECT_GE(coverage(1000, 330, 0.9, student), 0.88);
    const auto resampled = [](const std::vector<Group>& points) {
        const auto error = slopeError(points, Equation::Line, 0, 199);
        return std::pair(error->bootLow, error->bootHigh);
    };
    EXPECT_NEAR(coverage(200, 330, 0.6, resampled), 0.95, 0.035);
    EXPECT_GE(coverage(200, 330, 0.9, resampled), 0.88);
}

TEST(SlopeError, ExactPointsHaveNoErrorAndTooFewHaveNone) {
    std::vector<Group> line;
    line.reserve(20);
    for (int i = 0; i < 20; ++i) line.push_back({i / 10.0, 5 - 2.0 * i / 10, 1});
    const auto error = slopeError(line, Equation::Line, 0);
    EXPECT_NEAR(error->high - error->low, 0, 1e-9);
    EXPECT_NEAR(error->low, -2, 1e-9);
    EXPECT_FALSE(slopeError(line, Equation::Constant, 0));
    line.resize(2);
    EXPECT_FALSE(slopeError(line, Equation::Line, 0));
}

TEST(PlanetTerms, ALongSeriesLosesItsOscillationsAndAShortOneOwnsUpToThem) {
    // apses of Mercury, a slope of 530 with terms of Jupiter and Venus and a noise of 1
    std::mt19937 random(7);
    std::normal_distribution<double> noise;
    std::vector<Group> apses;
    for (int i = 0; i < 1660; ++i) {
        const double T = i * 43.9848 / 36525, turn = 2 * std::acos(-1.0);
        apses.push_back({T,
                         530 * T + 8 * std::sin(turn * 16.860586 * T + 1) +
                             1.5 * std::cos(turn * 8.430293 * T) +
                             4 * std::sin(turn * (2 * 162.5495552 - 415.2018744) * T) + noise(random),
                         1});
    }
    const auto part = [&](double from, double years) {
        std::vector<Group> points;
        for (const Group& g : apses)
            if (g.T >= from && g.T < from + years / 100) points.push_back(g);
        return points;
    };
    const auto century = fitWithPeriods(part(0, 100), Equation::Line, 1, 0);
    ASSERT_GE(century->terms.size(), 3u);
    EXPECT_EQ(century->terms[0].name, "2*L(Юпитер)");
    EXPECT_NEAR(century->terms[0].amplitude, 8, 0.5);
    EXPECT_NEAR(century->terms[1].period, 1.1093, 0.001);
    EXPECT_NEAR(century->scatter, 1, 0.1);
    int held = 0, shorter = 0, all = 0;
    for (const double years : {6, 12, 40})
        for (double from = 0; from < 1.5; from += 0.05, ++all) {
            const auto fit = fitWithPeriods(part(from, years), Equation::Line, 1, 0);
            held += fit->error.low <= 530 && 530 <= fit->error.high;
            if (years == 40)
                shorter += 3 * fit->error.sigma < slopeError(part(from, 40), Equation::Line, 0)->sigma;
        }
    EXPECT_GE(held, 0.9 * all);
    EXPECT_EQ(shorter, all / 3);  // the terms taken out, 40 years give at least three times more
    EXPECT_FALSE(fitWithPeriods(part(0, 0.8), Equation::Line, 1, 0));
}

TEST(Passages, PairsSkipWhatEitherSeriesHasLost) {
    SeriesData first, second;
    first.Nparam = parAlfaP;
    for (int i = 0; i < 200; ++i) {
        Record r{.dTd = 44.0 * i};
        const double wave = 20 * std::sin(i * 0.37);
        r.Par[parAlfaP] = 359.9 + wave + i * 0.01 + (i >= 100 ? 360 : 0);  // one series has counted a turn
        if (i % 50 != 20) first.records.push_back(r);
        r.Par[parAlfaP] = 359.9 + wave;
        r.dTd += 0.3 + 0.002 * i;  // the other runs late by and by, and began elsewhere
        if (i % 40 != 5) second.records.push_back(r);
    }
    first.JD0 = second.JD0 = 2451545;
    const FitSettings whole{.last = first.NP1max(), .T0 = 2451545};
    const PassageCount count = countPassages(first, whole);
    EXPECT_EQ(count.found, 196);
    EXPECT_EQ(count.lost(), 4);
    PairedSeries pairs = pairPassages(first, second, whole);
    EXPECT_EQ(pairs.points.groups.size(), 191u);
    EXPECT_EQ(pairs.unpaired, 5);
    fitGroups(Equation::Line, pairs.points);
    EXPECT_NEAR(pairs.points.b[1], 0.01 / 44 * 36525, 1e-9);
    EXPECT_NEAR(pairs.points.Sigma, 0, 1e-9);
    EXPECT_EQ(pairPassages(first, {}, whole).unpaired, 196);
}

}  // namespace tarvex
