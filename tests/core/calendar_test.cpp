#include "core/calendar.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace {

constexpr double egyptianZeroDay = 1448271.5;

struct CalendarTest : ::testing::Test {
    CalendarTest() {
        s.say = [this](const Message& told) { said.push_back(told.title + ": " + told.text); };
    }
    void expectDate(double JD, int year, int month, double day) {
        DateFromJD(s, JD);
        EXPECT_EQ(s.GodR, year) << JD;
        EXPECT_EQ(s.MesR, month) << JD;
        EXPECT_NEAR(s.DenR, day, 1e-6) << JD;
    }
    ModelState s;
    std::vector<std::string> said;
};

}  // namespace

TEST_F(CalendarTest, PublishedDatesBothWays) {
    struct Case {
        int calendar, year, month;
        double day, JD;
    };
    // Meeus, Astronomical Algorithms, ch. 7; Nabonassar's era began on 26 February -746
    const Case cases[] = {
        {0, 2000, 1, 1.5, 2451545},      {0, 1999, 1, 1, 2451179.5},     {0, 1988, 6, 19.5, 2447332},
        {0, 1957, 10, 4.81, 2436116.31}, {0, 1900, 1, 1, 2415020.5},     {0, 1600, 12, 31, 2305812.5},
        {0, 1582, 10, 15, 2299160.5},    {0, 1582, 10, 4, 2299159.5},    {0, 837, 4, 10.3, 2026871.8},
        {0, -122, 1, 1, 1676497.5},      {0, -123, 12, 31, 1676496.5},   {0, -1000, 2, 29, 1355866.5},
        {0, -1000, 7, 12.5, 1356001},    {0, -1001, 8, 17.9, 1355671.4}, {0, -4712, 1, 1.5, 0},
        {1, 333, 1, 27.5, 1842713},      {1, 1582, 10, 5, 2299160.5},    {1, 0, 1, 1, 1721057.5},
        {1, -4712, 1, 1.5, 0},           {1, -746, 2, 26, 1448637.5},    {2, 1, 1, 1, 1448637.5},
        {2, 1, 12, 34, 1449000.5},       {2, 2, 1, 1, 1449002.5},        {2, 885, 3, 29, 1771385.5},
    };
    for (const Case& c : cases) {
        s.kodKalend = static_cast<std::int16_t>(c.calendar);
        EXPECT_NEAR(JDfromDate(s, c.day, c.month, c.year), c.JD, 1e-6) << c.year << ' ' << c.month;
        expectDate(c.JD, c.year, c.month, c.day);
    }
    EXPECT_TRUE(said.empty());
}

TEST_F(CalendarTest, EgyptianMonthsEndOnDayZeroOfTheNext) {
    s.kodKalend = 2;
    expectDate(JDfromDate(s, 30, 3, 885), 885, 4, 0);  // the formulas as they stand
    expectDate(JDfromDate(s, 35, 12, 885), 886, 1, 0);
    expectDate(JDfromDate(s, 33, 12, 885), 885, 12, 33);
    expectDate(egyptianZeroDay - 40, 0, 0, -10);
}

TEST_F(CalendarTest, DroppedDaysOf1582AreReadAsJulian) {
    EXPECT_EQ(JDfromDate(s, 14, 10, 1582), 2299169.5);
    EXPECT_EQ(JDfromDate(s, 14.99, 10, 1582), 2299170.49);
    EXPECT_EQ(JDfromDate(s, 15, 10, 1582), 2299160.5);
}

TEST_F(CalendarTest, TimeZoneIsAddedAndTakenOff) {
    s.TimeZone = 3;
    for (const std::int16_t calendar : {0, 1, 2}) {
        s.kodKalend = calendar;
        const double JD = JDfromDate(s, 12.5, 7, 140);
        s.TimeZone = 0;
        EXPECT_NEAR(JD - JDfromDate(s, 12.5, 7, 140), 0.125, 1e-9);
        s.TimeZone = 3;
        expectDate(JD, 140, 7, 12.5);
    }
    double JD = 1448637.5;  // the Egyptian branch moves the caller's variable
    DateFromJD(s, JD);
    EXPECT_EQ(JD, 1448637.875);
}

TEST_F(CalendarTest, BadDatesSaySoAndLeaveTheResult) {
    s.GodR = 77;
    EXPECT_EQ(JDfromDate(s, 1, 1, 32768), 0);
    EXPECT_EQ(JDfromDate(s, 1, 1, -32768), 0);  // the year before it does not fit
    EXPECT_EQ(JDfromDate(s, 1, 32767, 2000), 0);
    EXPECT_EQ(said, std::vector<std::string>(3, "Tarvex7.0: Введите правильно дату"));
    EXPECT_EQ(s.kodErrDate, 1);
    s.kodErrDate = 0;
    said.clear();
    for (const std::int16_t calendar : {0, 1, 2}) {
        s.kodKalend = calendar;
        double JD = 1e13;
        DateFromJD(s, JD);
    }
    EXPECT_EQ(said, std::vector<std::string>(3, "Tarvex7.0: Введите правильно юлианскую дату"));
    EXPECT_EQ(s.kodErrDate, 1);
    EXPECT_EQ(s.GodR, 77);
}

TEST_F(CalendarTest, NormalizeCarriesTheSurplus) {
    struct Case {
        int calendar;
        double day;
        int month, year;
        double day1;
        int month1, year1;
    };
    const Case cases[] = {
        {0, 32.25, 1, 2001, 1.25, 2, 2001},
        {0, 366, 1, 2001, 1, 1, 2002},
        {0, 366, 1, 2000, 31, 12, 2000},
        {0, 400, 1, 1999, 4, 2, 2000},
        {0, 91, 12, 1999, 29, 2, 2000},
        {0, 92, 12, 1999, 1, 3, 2000},
        {0, 60, 1, 1900, 1, 3, 1900},
        {1, 60, 1, 1900, 29, 2, 1900},
        {0, 60, 1, 1500, 29, 2, 1500},
        {0, 60, 1, -4, 29, 2, -4},
        {2, 36, 12, 5, 1, 1, 6},
        {2, 366, 1, 5, 1, 1, 6},
        {0, 20, 10, 1582, 20, 10, 1582},
        {0, -3.5, 5, 2001, -3.5, 5, 2001},
    };
    for (const Case& c : cases) {
        s.kodKalend = static_cast<std::int16_t>(c.calendar);
        NormalizeDate(s, c.day, c.month, c.year);
        EXPECT_NEAR(s.DenR, c.day1, 1e-9) << c.day << ' ' << c.year;
        EXPECT_EQ(s.MesR, c.month1) << c.day << ' ' << c.year;
        EXPECT_EQ(s.GodR, c.year1) << c.day << ' ' << c.year;
    }
}

TEST_F(CalendarTest, NormalizeRefusesWhatHasNoMonthLength) {
    for (const int month : {0, 13, -1, 40000})
        EXPECT_THROW(NormalizeDate(s, 1, month, 2000), SubscriptFailure);
    EXPECT_THROW(NormalizeDate(s, 3e9, 1, 2000), OverflowFailure);
    EXPECT_THROW(NormalizeDate(s, 100, 12, 2147483647), OverflowFailure);
    s.kodKalend = 3;
    EXPECT_THROW(NormalizeDate(s, 1, 1, 2000), SubscriptFailure);
}

TEST_F(CalendarTest, HoursMinutesSecondsAreCut) {
    DayToHMS(s, 2451545.75 + 0.5 / 24 + 59.9 / 86400);
    EXPECT_EQ(s.ChasR, 18);
    EXPECT_EQ(s.MinR, 30);
    EXPECT_EQ(s.SekR, 59);
}

}  // namespace tarvex
