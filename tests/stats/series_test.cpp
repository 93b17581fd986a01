#include "stats/series.h"

#include "core/data_tree.h"
#include "stats/shifts.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

const std::string head = "один\r\nдва\r\nтри\r\nчетыре\r\n";
const std::string twoLong =
    " 2  237849650 \r\n"
    " 1  0  36525  50000000  7747000012  4800000000  700000000  20560000 -5790000  123456789  252250000  7  "
    "8 \r\n"
    " 2  36525  36525  100000000 -7747000012  4800000000  700000000  20560000  5790000  123456789  252250000 "
    " 7  8 \r\n";
const std::string twoShort =
    " 40  237849650 \r\n 1  0  1  2  3  4  5  6 \r\n 1  12345  100000000  2  3  4  5  6 \r\n";

struct SeriesTest : ::testing::Test {
    SeriesTest() : tree(folder.path()) { folder.makeFolder("Ser/Plan1"); }
    void put(const std::string& bytes) { test::writeBytes(path(), bytes); }
    std::filesystem::path path() const { return tree.at(name); }

    test::TempFolder folder;
    DataTree tree;
    const std::string name = "\\Ser\\Plan1\\Tarvex1Nab.txt";
    SeriesData d;
};

}  // namespace

TEST_F(SeriesTest, LongFileIsReadAndWrittenByteForByte) {
    put(head + twoLong);
    readSeries(tree, name, dataLong, d);
    ASSERT_EQ(d.NP1max(), 2);
    EXPECT_EQ(d.header[3], "четыре");
    EXPECT_EQ(d.JD0, 2378496.5);
    EXPECT_EQ(d.at(2).dTd, 365.25);
    EXPECT_EQ(d.at(1).Par[parVes], 0.5);
    EXPECT_DOUBLE_EQ(d.at(2).Par[parAlfaP], -77.47000012);
    EXPECT_DOUBLE_EQ(d.at(1).Par[parDU11], 8e-8);
    d.kodData = dataLong;
    writeSeries(tree, d);
    const std::string bytes = test::readBytes(path());
    EXPECT_TRUE(bytes.starts_with(head + " 2  237849650 \r\n 1  0  36525  50000000 "));
    SeriesData again;
    readSeries(tree, name, dataLong, again);
    for (int i = 1; i <= 2; ++i)
        for (int p = 1; p <= 10; ++p)  // cut when written: at most one unit of the last place is lost
            EXPECT_NEAR(again.at(i).Par[p], d.at(i).Par[p], p == parAlfaL0 ? 1.1e-6 : 1.1e-8) << p;
}

TEST_F(SeriesTest, ShortFileMayHoldFewerRecordsThanItsCount) {
    put(head + twoShort);
    readSeries(tree, name, dataModel, d);
    ASSERT_EQ(d.NP1max(), 2);
    EXPECT_EQ(d.at(2).dTd, 123.45);
    EXPECT_EQ(d.at(2).ddTd, 0);
    EXPECT_EQ(d.at(2).Par[parVes], 0.01);
    EXPECT_DOUBLE_EQ(d.at(2).Par[parW], 6e-8);
    EXPECT_EQ(d.at(2).Par[parAlfaL0], 0);
    d.kodData = dataModel;
    writeSeries(tree, d);
    EXPECT_EQ(test::readBytes(path()),
              head + " 2  237849650 \r\n 1  0  1  2  2  4  5  5 \r\n 2  12345  100000000  2  2  4  5  5 \r\n")
        << "cut, never rounded: a rewrite may lose one unit of the last place";
}

TEST_F(SeriesTest, DamagedFilesAreRefusedAndLeaveTheSeriesAlone) {
    put(head + twoShort);
    readSeries(tree, name, dataModel, d);
    const std::string record = " 1  0  1  2  3  4  5  6 \r\n";
    const std::string bad[] = {
        "",                                                           // nothing
        "один\r\nдва\r\n",                                            // head cut short
        head,                                                         // no count
        head + " 5 \r\n",                                             // no origin
        head + " 5  237849650 \r\n",                                  // no records
        head + " 1  237849650 \r\n" + record + record,                // more than the count
        head + " 5  237849650 \r\n" + record + " 2  0  1  2 \r\n",    // ends inside a record
        head + " 5  237849650 \r\n 1  0  слово  2  3  4  5  6 \r\n",  // a word for a number
        head + " abc  237849650 \r\n" + record,
        head + " 5  1e999 \r\n" + record,
        head + " 99999999999  237849650 \r\n" + record,
    };
    for (const std::string& bytes : bad) {
        put(bytes);
        EXPECT_THROW(readSeries(tree, name, dataModel, d), FileFailure) << bytes;
        EXPECT_EQ(d.NP1max(), 2);
    }
    EXPECT_THROW(readSeries(tree, "\\Ser\\Plan7\\Tarvex1Nab.txt", dataLong, d), OpenFailure);

    std::string large = head + " 40000  237849650 \r\n";
    for (int i = 0; i < 32001; ++i) large += record;
    put(large);
    try {
        readSeries(tree, name, dataModel, d);
        FAIL();
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.text,
                  "У Вас в файле 32001 записей. Это больше допустимых\r\n32000 записей. Надо переделать "
                  "эксперимент "
                  "увеличив NC0\r\nт.е. количество шагов для вывода данных в файл");
    }
}

TEST_F(SeriesTest, RecordsAreRemovedInsertedAndFound) {
    d.JD0 = 2400000.5;
    for (int i = 0; i < 4; ++i) d.records.push_back({.dTd = 100.0 * i, .ddTd = 20, .Par = {0, 1.0 * i}});
    EXPECT_EQ(recordAt(d, 2400100.5), 2);
    EXPECT_EQ(recordAt(d, 2400100.51), 0);
    EXPECT_EQ(placeFor(d, 2399000.5), 1);
    EXPECT_EQ(placeFor(d, 2400150.5), 3);
    EXPECT_EQ(placeFor(d, 2500000.5), 5);
    EXPECT_THROW(placeFor(d, 6e6), SubscriptFailure);
    EXPECT_THROW(placeFor(d, -1), SubscriptFailure);
    EXPECT_EQ(recordNear(d, -1e9), 1);
    EXPECT_EQ(recordNear(d, 59), 1);  // middles at 10 and 110
    EXPECT_EQ(recordNear(d, 61), 2);
    EXPECT_EQ(recordNear(d, 1e9), 4);

    insertRecord(d, 1, 2399990.5, {.ddTd = 5, .Par = {0, 7}});
    EXPECT_EQ(d.JD0, 2399990.5);
    EXPECT_EQ(d.at(2).dTd, 10);
    removeRecord(d, 1);
    EXPECT_EQ(d.JD0, 2400000.5);
    EXPECT_EQ(d.at(4).dTd, 300);
    removeRecord(d, 3);
    EXPECT_EQ(d.at(3).Par[1], 3);
    EXPECT_THROW(removeRecord(d, 4), SubscriptFailure);
    EXPECT_THROW(removeRecord(d, 0), SubscriptFailure);
    removeRecord(d, 1);
    removeRecord(d, 1);
    EXPECT_THROW(removeRecord(d, 1), SubscriptFailure);  // the last one stays
}

TEST_F(SeriesTest, AnglesAreFoldedIntoOneTurn) {
    const double cases[][2] = {{370, 10}, {-10, 350}, {0, 0}, {-720, 360}, {360, 0}, {-350, 10}};
    for (const auto& c : cases) d.records.push_back({.Par = {0, c[0]}});
    foldAngles(d, 1);
    for (std::size_t i = 0; i < d.records.size(); ++i)
        EXPECT_EQ(d.records[i].Par[1], cases[i][1]) << cases[i][0];
}

TEST(Shifts, FilesAreWrittenByteForByteAndReadBack) {
    const test::TempFolder folder;
    folder.makeFolder("Ser");
    folder.makeFolder("Plan3");
    const DataTree tree(folder.path());
    ShiftTables t, read;
    for (int i = 1; i <= 11; ++i)
        for (int c = 1; c <= 6; ++c) {
            t.dNab[i][c] = i + c / 8.0;
            for (int u = 1; u <= 91; ++u) t.dRas[i][c][u] = -u - c / 4.0;
        }
    writeObservedShifts(tree, "\\Ser", t);
    const auto path = folder.path() / "Ser" / "TarvexNab.dat";
    const std::string bytes = test::readBytes(path);
    EXPECT_TRUE(
        bytes.starts_with("Обработанные данные  \\Ser  по всем планетам\r\n"
                          "№ планеты      перигелий    восхождение    наклон     эксцентриситет   полуось    "
                          "   угл. скорость\r\n"
                          " 1  1125000  1250000  1375000  1500000  1625000  1750000 \r\n 2  2125000 "));
    readObservedShifts(tree, "\\Ser", 11, read);
    EXPECT_EQ(read.dNab, t.dNab);
    test::writeBytes(path, bytes.substr(0, bytes.size() - 60));  // planet 11 is gone: ten can still be read
    EXPECT_THROW(readObservedShifts(tree, "\\Ser", 11, read), FileFailure);
    EXPECT_NO_THROW(readObservedShifts(tree, "\\Ser", 10, read));
    EXPECT_EQ(read.dNab, t.dNab);

    writePlanShifts(tree, 3, 5, t, 91);
    EXPECT_TRUE(
        test::readBytes(folder.path() / "Plan3" / "Tarvex5Ras.dat")
            .starts_with("Обработанные данные расчета для плана № 3  по планете № 5\r\n 91 \r\n"
                         "№ эксперимента  перигелий   восхождение     наклон    эксцентриситет    полуось   "
                         "     угл. скорость\r\n 1 -1250000 -1500000 "));
    std::int16_t count = 0;
    const ShiftFileHead planHead = readPlanShifts(tree, 3, 5, read, count);
    EXPECT_EQ(count, 91);
    EXPECT_EQ(read.dRas[5], t.dRas[5]);
    std::int16_t reached = 0;
    writePlanShiftsUnscaled(tree, 3, 5, planHead, t, 91, reached);
    readPlanShifts(tree, 3, 5, read, count);
    EXPECT_DOUBLE_EQ(read.dRas[5][2][7], t.dRas[5][2][7] / 1e6);  // unscaled comes back smaller
    EXPECT_EQ(reached, 91);

    for (const char* badCount : {"92", "0", "-1", "x", "1"}) {
        test::writeBytes(folder.path() / "Plan3" / "Tarvex6Ras.dat",
                         std::string("титул\r\n ") + badCount + " \r\nстолбцы\r\n 1  2  3 \r\n");
        EXPECT_THROW(readPlanShifts(tree, 3, 6, read, count), FileFailure) << badCount;
    }
    EXPECT_EQ(count, 91);
    EXPECT_THROW(writePlanShifts(tree, 4, 5, t, 3), OpenFailure);
    EXPECT_THROW(t.observed(12, 1), SubscriptFailure);
    EXPECT_THROW(t.calculated(1, 7, 1), SubscriptFailure);
    EXPECT_THROW(t.calculated(1, 1, 92), SubscriptFailure);
}

}  // namespace tarvex
