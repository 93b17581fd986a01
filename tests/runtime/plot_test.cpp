#include "runtime/plot.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace {

constexpr Color red{255, 0, 0};

Axes decades(double factor) { return {{"время", "год", 1900, 10}, {"сдвиг", "сек", 5, factor}}; }

}  // namespace

TEST(Plot, APointKeepsTheMeaningWithWhichItWasDrawn) {
    Plot plot;
    plot.setScale({-10, 10, 10, -10});
    plot.setAxes(0, decades(2));
    const int a = plot.series({.quantity = "a"}), b = plot.series({.quantity = "a", .run = "эксп. 1"});
    EXPECT_NE(a, b);
    EXPECT_EQ(plot.series({.quantity = "a"}), a);
    plot.add(a, {5, 1}, red);
    plot.add(a, {5, 1}, red);  // it has not moved
    plot.setAxes(0, decades(3));
    plot.add(a, {6, 1}, red);
    plot.setScale({0, 10, 5, -10});  // the left half of what was the right one
    plot.add(a, {6, 1}, red);
    plot.add(b, {NAN, 1}, red);
    const Plot::Series& series = plot.all().at(a);
    ASSERT_EQ(series.points().size(), 3U);
    const double values[] = {7, 8, 8}, places[] = {0.75, 0.8, 1.2};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(series.meaningOf(i).value(series.points()[i]).y, values[i]);
        EXPECT_DOUBLE_EQ(series.meaningOf(i).place(series.points()[i]).x, places[i]);
    }
    EXPECT_TRUE(series.away());
    EXPECT_EQ(series.bounds().right, 1.2);

    plot.take(a, {6, 1});
    EXPECT_FALSE(series.away());
    EXPECT_EQ(series.bounds().right, 0.8);
    EXPECT_EQ(series.meaningOf(1).value(series.points()[1]).y, 8);
    plot.clear();
    EXPECT_TRUE(plot.empty());
    plot.add(a, {1, 1}, red);
    EXPECT_EQ(series.points().size(), 1U);  // the number stays
}

TEST(Plot, MemoryIsBoundedAndExtremesStay) {
    Plot plot(10'000);
    plot.setScale({0, 1, 1e6, -1});
    plot.setAxes(0, decades(1));
    const int body = plot.series({.quantity = "тело"});
    plot.add(body, {1, 0}, red);
    const int wave = plot.series({.quantity = "волна", .color = 0});
    for (int i = 0; i < 1'000'000; ++i)
        plot.add(wave, {i * 1.0, i == 123'456 ? 50 : std::sin(i * 1e-4)}, red);
    const auto& points = plot.all().at(wave).points();
    EXPECT_LE(points.size(), 10'000U);
    EXPECT_GE(points.size(), 4'000U);
    EXPECT_TRUE(plot.all().at(wave).thinned());
    EXPECT_EQ(std::count_if(points.begin(), points.end(), [](const Plot::Point& p) { return p.y == 50; }), 1);
    EXPECT_TRUE(std::is_sorted(points.begin(), points.end(),
                               [](const Plot::Point& a, const Plot::Point& b) { return a.x < b.x; }));
    EXPECT_GT(points.back().x, 999'000);

    for (int run = 0; run < 2000; ++run)
        plot.add(plot.series({.quantity = "a", .run = std::to_string(run), .color = 1}), {1.0 * run, 0}, red);
    EXPECT_LT(plot.all().size(), 1000U);
    EXPECT_EQ(plot.all().count(body), 1U);  // what a form goes on drawing stays
    EXPECT_EQ(plot.all().rbegin()->second.spec().run, "1999");
}

}  // namespace tarvex
