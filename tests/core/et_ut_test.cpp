#include "core/et_ut.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace {

double tableOf(ModelState& s, double year) {
    s.JD = JD2000 + (year - 2000) * 365.25;
    return EtUtTable(s);
}

}  // namespace

TEST(EtUt, TableFollowsTheObservedDifferenceAndTheForecast) {
    ModelState s;
    // observed values in seconds, Astronomical Almanac
    EXPECT_NEAR(tableOf(s, 1900), -2.7, 1);
    EXPECT_NEAR(tableOf(s, 1925), 23.6, 1);
    EXPECT_NEAR(tableOf(s, 1950), 29.1, 1);
    EXPECT_NEAR(tableOf(s, 1975), 45.5, 1);
    EXPECT_NEAR(tableOf(s, 1999.9), 63.8, 2.5);
    EXPECT_EQ(tableOf(s, 1800), 10.4);
    EXPECT_EQ(tableOf(s, 2050), 65.97 + 90 * 0.5);
    s.Ipl2 = 5;
    const double before1700 = tableOf(s, 1650);
    EXPECT_EQ(before1700, EtUt1900(s));
    EXPECT_EQ(s.Ipl2, -15);
    EXPECT_GT(tableOf(s, 2020), 110);  // the last cubic runs on past 2000: meant
    s.JD = 1e12;
    EXPECT_THROW(EtUtTable(s), OverflowFailure);
}

TEST(EtUt, SelectTakesItsFormulaAndItsSign) {
    ModelState s;
    s.JDt01 = JD1900;
    s.JDt02 = 2378497;
    s.kET[1] = {24.35, 72.32, 29.95, 0, 1};
    s.kET[2] = {0, 0, 31.5, 0, -1};
    s.JD = JD1900 + 36525 * 0.5;
    EXPECT_NEAR(EtUtSelect(s, 1, s.JD), EtUt1900(s), 1e-12);
    EXPECT_NEAR(EtUtSelect(s, 2, s.JDt02 + 36525 * 2), -126, 1e-9);
    s.kET[1][4] = 2;
    s.kET[2][4] = -2;
    EXPECT_EQ(EtUtSelect(s, 1, 0), EtUtTable(s));  // the table reads JD, not the argument
    EXPECT_EQ(EtUtSelect(s, 2, 0), -EtUtTable(s));
    EXPECT_THROW(EtUtSelect(s, 3, 0), SubscriptFailure);
}

}  // namespace tarvex
