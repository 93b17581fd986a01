#include "reduction/observation_file.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace {

const std::string good =
    "          1985 15 Mar +12 30 45.1234      +01 02 03.00004           -10 20 30.5000   note";

/// The record with other characters from a column on.
std::string with(std::size_t column, const std::string& characters, std::string line = good) {
    return line.replace(column - 1, characters.size(), characters);
}

constexpr ObservationFilter byDistance{1980, 1990, true}, byLongitude{1980, 1990, false};

struct File : ::testing::Test {
    void write(const std::string& records) {
        test::writeBytes(path, "one\r\ntwo\r\nthree\r\nfour\r\n 1980  1990 and more\r\n" + records);
    }
    test::TempFolder folder;
    std::filesystem::path path = folder.path() / "SUMM0_G_100.txt";
    ObservationFile file;
};

}  // namespace

TEST(ObservationRecord, ColumnsBecomeADateAndTwoAngles) {
    int month = 0;
    bool end = false;
    const auto o = parseObservation(good, byDistance, month, end);
    ASSERT_TRUE(o);
    EXPECT_EQ(o->year, 1985);
    EXPECT_EQ(o->month, 3);
    EXPECT_EQ(o->day, 15);
    EXPECT_NEAR(o->hours, 12 + 30 / 60. + 45.1234 / 3600, 1e-12);
    EXPECT_NEAR(o->dayWithTime(), 15.521355595, 1e-8);
    EXPECT_NEAR(o->ascension, (1 + 2 / 60. + 3.00004 / 3600) * 15, 1e-12);
    EXPECT_NEAR(o->declination, -(10 + 20 / 60. + 30.5 / 3600), 1e-12);
    EXPECT_EQ(o->line, good);
}

TEST(ObservationRecord, EachKindOfLineIsReadSkippedOrRefused) {
    enum What { Read, ReadByLongitude, Skipped, End, Refused };
    struct Case {
        const char* why;
        std::string line;
        What what;
    };
    const std::string zeroDeclination = with(70, "00 00 00.0000");
    const std::vector<Case> cases = {
        {"sound", good, Read},
        {"before the first year", with(11, "1979"), Skipped},
        {"before the first year, the rest is no matter", "          1979 letters", Skipped},
        {"after the last year", with(11, "1991"), End},
        {"negative time", with(23, "-"), Skipped},
        {"negative right ascension", with(43, "-"), Skipped},
        {"24 hours of right ascension", with(44, "24"), Skipped},
        {"no right ascension", with(44, "00 00 00.00000"), Skipped},
        {"no declination", zeroDeclination, ReadByLongitude},
        {"declination 90", with(69, "+90 00 00.0000"), ReadByLongitude},
        {"declination -90 is a place", with(69, "-90 00 00.0000"), Read},
        {"Cyrillic letter before the columns is one column", with(1, "x", good).replace(0, 1, "ж"), Read},
        {"letters in the year", with(11, "19x5"), Refused},
        {"letters in the seconds", with(50, "O3"), Refused},
        {"blank minutes", with(27, "  "), Refused},
        {"blank fraction", with(79, "    "), Refused},
        {"ends in the last column but one", good.substr(0, 80), Refused},
        {"ends after the date", good.substr(0, 30), Refused},
        {"empty", "", Refused},
    };
    for (const Case& c : cases) {
        for (const bool distance : {true, false}) {
            SCOPED_TRACE(std::string(c.why) + (distance ? " by distance" : " by longitude"));
            int month = 0;
            bool end = false;
            const auto& filter = distance ? byDistance : byLongitude;
            if (c.what == Refused) {
                EXPECT_THROW(parseObservation(c.line, filter, month, end), Failure);
                continue;
            }
            const auto o = parseObservation(c.line, filter, month, end);
            EXPECT_EQ(o.has_value(), c.what == Read || (c.what == ReadByLongitude && !distance));
            EXPECT_EQ(end, c.what == End);
        }
    }
}

TEST_F(File, AnUnknownMonthKeepsTheOneBeforeAndTheFirstIsSkipped) {
    write(with(19, "Mrz") + "\r\n" + good + "\r\n" + with(19, "Foo", with(16, "17")) + "\n" +
          with(19, "Dec"));
    file.open(path, "");
    for (const auto& [month, day] : std::vector<std::pair<int, int>>{{3, 15}, {3, 17}, {12, 15}}) {
        const auto o = file.ReadObsRecord(byDistance);
        ASSERT_TRUE(o);
        EXPECT_EQ(o->month, month);
        EXPECT_EQ(o->day, day);
    }
    EXPECT_FALSE(file.ReadObsRecord(byDistance));
    EXPECT_FALSE(file.ReadObsRecord(byDistance)) << "the end stays the end";
}

TEST_F(File, HeaderIsKeptWithTheNameAndRewindFindsTheFirstRecord) {
    write(good + "\r\n");
    const auto header = file.open(path, "SUMM");
    EXPECT_EQ(header.text, "oneSUMM\r\ntwoSUMM\r\nthreeSUMM\r\nfourSUMM");
    EXPECT_EQ(header.firstYear, 1980);
    EXPECT_EQ(header.lastYear, 1990);
    EXPECT_TRUE(file.ReadObsRecord(byDistance));
    EXPECT_FALSE(file.ReadObsRecord(byDistance));
    file.rewind();
    EXPECT_TRUE(file.ReadObsRecord(byDistance));
}

TEST_F(File, WhatIsNoFileOfObservationsStaysClosed) {
    EXPECT_THROW(file.open(folder.path() / "none.txt", ""), OpenFailure);
    for (const char* head : {"", "one\r\ntwo\r\n", "1\n2\n3\n4\nyears\n", "1\n2\n3\n4\n1980\n"}) {
        test::writeBytes(path, head);
        EXPECT_THROW(file.open(path, ""), Failure) << head;
        EXPECT_FALSE(file.isOpen());
    }
    EXPECT_THROW(file.ReadObsRecord(byDistance), Failure);
    write("");
    file.open(path, "");
    EXPECT_FALSE(file.ReadObsRecord(byDistance)) << "a header alone is an end at once";
}

}  // namespace tarvex
