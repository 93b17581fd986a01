#include "theories/ephemeris.h"

#include "tests/support/ephemeris_files.h"

namespace tarvex {

namespace {

namespace fs = std::filesystem;
using test::TempFolder;

struct EphemerisTest : ::testing::Test {
    EphemerisTest() { test::linkEphemeris(folder); }

    /// Text of a refusal, "file" for a file failure, "" when nothing was thrown.
    template <class Body>
    static std::string outcome(Body body) {
        try {
            body();
        } catch (const Refusal& refusal) {
            return refusal.text;
        } catch (const FileFailure&) {
            return "file";
        }
        return "";
    }
    std::string open(double JD) {
        s.JD = JD;
        return outcome([this] { DEOpen(s, e); });
    }
    std::array<double, 6> at(double JD, int body, int kod) {
        e.JDjpl = JD;
        DEEvaluate(s, e, body, kod);
        return {s.X[body], s.Y[body], s.Z[body], s.VX[body], s.VY[body], s.VZ[body]};
    }

    TempFolder folder;
    DataTree tree{folder.path()};
    ModelState s;
    Ephemeris e{tree};
};

}  // namespace

// Places and velocities at the ephemeris' own epoch, au and au/day from the barycentre (the Moon from the
// Earth).
TEST_F(EphemerisTest, EpochOfTheEphemerisGivesItsOwnConstants) {
    struct Place {
        int body;
        std::array<double, 6> rv;
    };
    const std::array<Place, 11> published = {{
        {0,
         {0.0045025081562338936, 0.0007670747009323788, 0.00026605680517702713, -3.5174820964518867e-07,
          5.17762539958483e-06, 2.229101854391665e-06}},
        {1,
         {0.3617627146035093, -0.09078196772958605, -0.08571498318176335, 0.00336749391398414,
          0.024894520467648874, 0.012946300688650358}},
        {2,
         {0.612751941341838, -0.3483653684949682, -0.19527828898022992, 0.010952068361699194,
          0.015617684365262055, 0.006331105553601057}},
        {3,
         {0.12051741729540039, -0.9258384789394528, -0.401540220801811, 0.016811268303992644,
          0.0017483093133816164, 0.0007582028689905378}},
        {4,
         {-0.11018607428285881, -1.3275994561325557, -0.6058891326142037, 0.014481653059735103,
          0.0002424631177602962, -0.00028152073424800533}},
        {5,
         {-5.379706898835912, -0.8304805814601515, -0.22482870022837284, 0.0010920115430088524,
          -0.006518116565792683, -0.0028207831653650475}},
        {6,
         {7.894392441979052, 4.596477801626945, 1.5586975735302668, -0.003217555239303309,
          0.004335809858955276, 0.0019286465656538445}},
        {7,
         {-18.265398306822032, -1.1619445055181146, -0.25010348393737786, 0.00022118841741776543,
          -0.003762475932846577, -0.001651014703068002}},
        {8,
         {-16.05504258376823, -23.942181216178568, -9.40015672354883, 0.0026427710433669163,
          -0.0014983144553592097, -0.0006790419030179561}},
        {9,
         {-30.483319603999316, -0.8724783554957969, 8.911563040989932, 0.00032221044772358804,
          -0.0031435703021520205, -0.0010779488297393042}},
        {11,
         {-0.0008081773279114842, -0.0019946300016203994, -0.0010872626608381018, 0.0006010848166591299,
          -0.00016744546061515147, -8.556214497398616e-05}},
    }};
    ASSERT_EQ(open(2440400.5), "");
    for (const auto& [body, rv] : published) {
        const auto found = at(2440400.5, body, 0);
        for (int i = 0; i < 6; ++i)
            EXPECT_NEAR(found[i], rv[i], i < 3 ? 1e-12 * std::max(1.0, std::abs(rv[i])) * 10 : 1e-12)
                << "body " << body << " component " << i;
    }
    EXPECT_EQ(at(2440400.5, 10, 0), at(2440400.5, 11, 0));  // body 10 shares the Moon's slot
}

TEST_F(EphemerisTest, EclipticFormIsTheTurnedEquatorialOneInMetres) {
    ASSERT_EQ(open(2451545), "");
    for (const int body : {0, 1, 5, 11}) {
        const auto q = at(2451545, body, 0);
        const auto m = at(2451545, body, 1);
        const double c = std::cos(AlfaEclip), sn = std::sin(AlfaEclip), perSecond = s.Lae / sekD;
        for (int i = 0; i < 4; i += 3) {
            const double unit = i == 0 ? s.Lae : perSecond;
            const double size = std::hypot(q[i], q[i + 1], q[i + 2]) * unit * 1e-14;
            EXPECT_NEAR(m[i], q[i] * unit, size);
            EXPECT_NEAR(m[i + 1], (c * q[i + 1] + sn * q[i + 2]) * unit, size);
            EXPECT_NEAR(m[i + 2], (c * q[i + 2] - sn * q[i + 1]) * unit, size);
        }
    }
}

TEST_F(EphemerisTest, OpensTheFileAndRecordThatHoldTheDate) {
    struct Case {
        double JD;
        int year, records, number;
    };
    for (const auto& c : {Case{2436912.5, 1960, 229, 1},
                          {2436944.49, 1960, 229, 1},
                          {2436944.5, 1960, 229, 2},
                          {2444208.4, 1960, 229, 228},
                          {2444208.5, 1980, 230, 1},
                          {2451536.4, 1980, 230, 229},
                          {2451536.5, 2000, 229, 1},
                          {2473456.4, 2040, 230, 229}}) {
        ASSERT_EQ(open(c.JD), "") << c.JD;
        EXPECT_EQ(e.DEyear, c.year) << c.JD;
        EXPECT_EQ(e.DEnrec, c.records) << c.JD;
        EXPECT_EQ(e.DErecNo, c.number) << c.JD;
        EXPECT_TRUE(e.JDrec1 <= c.JD && c.JD < e.JDrec2) << c.JD;
        EXPECT_EQ(e.JDjpl, c.JD);
    }
}

TEST_F(EphemerisTest, DatesOutsideStopTheRunAndMissingFilesAreTheCallersMatter) {
    for (const double JD : {2305424.4, 2524592.6, -1e9, 0.0}) {
        s.kodStop = 0;
        EXPECT_EQ(open(JD), "В файлах DE405 нет такой даты") << JD;
        EXPECT_EQ(s.kodStop, 1);
    }
    s.kodStop = 0;
    ASSERT_EQ(open(2451545), "");
    s.JD = 2430000.5;  // no file of that year
    EXPECT_THROW(DEOpen(s, e), OpenFailure);
    EXPECT_EQ(e.kodJPLopen, 0);
    // the upper end passes, but no file starts there: the year stays, and its file has no such record
    for (const auto& [before, year] : {std::pair{2451545.0, 2000}, {2460000.5, 2020}}) {
        ASSERT_EQ(open(before), "");
        EXPECT_EQ(open(2524592.5), "file");
        EXPECT_EQ(e.DEyear, year);
    }
    EXPECT_EQ(s.kodStop, 0);
}

TEST_F(EphemerisTest, AWalkEqualsOpeningAnewAcrossRecordsAndFiles) {
    Ephemeris fresh{tree};
    for (const double border : {2444208.5, 2451536.5}) {
        const double start = border - 70;
        ASSERT_EQ(open(start), "");
        int loads = 0;
        double last = e.JDrec1;
        for (double JD = start; JD < border + 70; JD += 0.25) {
            e.JDjpl = JD;
            DEAdvance(s, e);
            ASSERT_TRUE(e.JDrec1 <= JD && JD < e.JDrec2) << JD;
            ASSERT_EQ(e.JDrec1, e.DErec[1]);
            loads += e.JDrec1 != last;
            last = e.JDrec1;
        }
        EXPECT_EQ(loads, 5);
        EXPECT_EQ(e.DErecNo, 3);
        s.JD = border + 69.75;
        DEOpen(s, fresh);
        EXPECT_EQ(fresh.DEyear, e.DEyear);
        EXPECT_EQ(fresh.DErec, e.DErec);
    }
}

TEST_F(EphemerisTest, BackwardWalksAndStepsOutOfTheRecordFailWithTheReadingMessage) {
    const std::string reading = "Ошибка чтения файлов JPL";
    ASSERT_EQ(open(2451545), "");
    const auto kept = at(2451545, 3, 1);
    e.JDjpl = e.JDrec1 - 0.5;
    EXPECT_EQ(outcome([this] { DEAdvance(s, e); }), reading);
    EXPECT_EQ(s.kodStop, 1);
    for (const double JD : {e.JDrec1 - 0.001, e.JDrec2, e.JDrec2 + 100, 1e300, -1e300}) {
        s.kodStop = 0;
        EXPECT_EQ(outcome([&] { at(JD, 3, 1); }), reading) << JD;
        EXPECT_EQ(s.kodStop, 1);
    }
    for (const int body : {-1, 12, 99, -32768})
        EXPECT_EQ(outcome([&] {
                      e.JDjpl = 2451545;
                      DEEvaluate(s, e, body, 0);
                  }),
                  reading)
            << body;
    EXPECT_EQ(s.X[3], kept[0]);  // the row stays as it was
    s.Lae = 0;
    EXPECT_EQ(outcome([&] { at(2451545, 3, 0); }), reading);
}

TEST_F(EphemerisTest, SeekingFollowsTheDateBothWays) {
    ASSERT_EQ(open(2451540), "");
    s.JD = 1;
    for (const double JD : {2451530.0, 2451536.5, 2451536.4, 2451600.0, 2444210.0, 2444208.0, 2460000.5}) {
        e.JDjpl = JD;
        DESeek(s, e);
        EXPECT_TRUE(e.JDrec1 <= JD && JD < e.JDrec2) << JD;
        EXPECT_EQ(e.JDjpl, JD);
    }
    EXPECT_EQ(s.JD, 1);
    DEClose(e);
    DEClose(e);
    EXPECT_EQ(e.kodJPLopen, 10);  // the mark outlives the file
    e.JDjpl = 2460100.5;
    DESeek(s, e);
    EXPECT_TRUE(e.JDrec1 <= e.JDjpl && e.JDjpl < e.JDrec2);
}

TEST_F(EphemerisTest, DamagedFilesFailWithoutTouchingTheLoadedRecord) {
    const std::string whole = test::readBytes(test::ephemerisFolder() / "ascp2000.405");
    const std::size_t record = whole.find("     2  1018");
    const fs::path target = folder.path() / "JPL" / "ascp2000.405";
    const double first = 2451540, second = 2451570;
    struct Case {
        const char* what;
        std::string text;
        double JD;
        std::string result;
    };
    std::string binary(100000, '\0');
    for (std::size_t i = 0; i < binary.size(); ++i) binary[i] = static_cast<char>(i * 7919 >> 3);
    std::string lostNumber = whole, letter = whole;
    lostNumber.erase(record - 2000, 26);
    letter[record - 1000] = 'x';
    for (const auto& c : {Case{"empty", "", first, "file"},
                          {"cut in the first record", whole.substr(0, record / 2), first, "file"},
                          {"cut after it", whole.substr(0, record), second, "file"},
                          {"binary", binary, first, "file"},
                          {"a number lost", lostNumber, first, "file"},
                          {"a letter", letter, first, "file"},
                          {"not a number", "nan 1018\n" + whole.substr(13), first, "file"},
                          {"record number of 16 bits", "99999 1018\n" + whole.substr(13), first, "file"},
                          // a later record first: it is loaded, and does not serve the date
                          {"reordered", whole.substr(record, record) + whole.substr(0, record), first, ""}}) {
        fs::remove(target);
        test::writeBytes(target, whole);
        ASSERT_EQ(open(2451580), "");
        const auto kept = e.DErec;
        test::writeBytes(target, c.text);
        EXPECT_EQ(open(c.JD), c.result) << c.what;
        if (c.result.empty()) {
            EXPECT_EQ(outcome([this] { DEEvaluate(s, e, 3, 1); }), "Ошибка чтения файлов JPL") << c.what;
        } else if (c.JD == first) {
            EXPECT_EQ(e.DErec, kept) << c.what;
        }
    }
}

}  // namespace tarvex
