#include "forms/elements_form.h"

#include "tests/forms/lab_fixture.h"
#include "tests/support/ephemeris_files.h"
#include "theories/secular_theories.h"

namespace tarvex {

namespace {

using test::RecordingScreen;
using Told = RecordingScreen::Message;

const Told badData{"Задайте правильно данные", "Tarvex7m"};

struct ElementsFormTest : test::LabTest {
    ElementsForm& open() {
        lab.desk.show("Form1");
        return lab.desk.get<ElementsForm>();
    }
    OptionButton& source(ElementsForm& form, const std::string& name) {
        return static_cast<OptionButton&>(*form.find(name));
    }
    std::filesystem::path parameterFile(int N) const {
        return folder.path() / "Dat" / ("Tarvex" + std::to_string(N) + ".dat");
    }
    /// Types elements and a state of round numbers for every body, loads them, and chooses file 7.
    void fillTable(ElementsForm& form) {
        test::enter(form.fromScreen, form.viewElements, form.year, "1900", form.month, "12", form.day,
                    "31,9996", form.sunMass, "1e30", form.gravityConstant, "5e-11", form.astronomicalUnit,
                    "150000000");
        for (int i = 0; i <= 10; ++i) {
            for (TextFields* column : {&form.longitudeOrX, &form.motionOrZ, &form.inclinationOrVy,
                                       &form.perihelionOrVz, &form.nodeOrMass})
                (*column)(i).show(i + 0.0000005);
            form.semiAxisOrY(i).show(i + 0.0015006);  // thousand km: 1500 m are rounded up to 2 km
            form.eccentricityOrVx(i).show(i * 0.01 + 0.0000005);
        }
        test::enter(form.loadParameters, form.viewState);
        for (int i = 0; i <= 10; ++i) {
            const double sign = i % 2 ? -1 : 1;
            for (TextFields* column : {&form.longitudeOrX, &form.semiAxisOrY, &form.motionOrZ})
                (*column)(i).show(sign * (i + 0.0019996));  // X and Z are cut in km, Y is rounded
            form.eccentricityOrVx(i).show(sign * i * 1000.5);
            form.inclinationOrVy(i).show(sign * 0.0000019);
            form.perihelionOrVz(i).setText("0");
            form.nodeOrMass(i).show(i + 0.25);
        }
        form.fileNumber.setText("7");
        EXPECT_EQ(screen.said(form.loadParameters), "");
    }
    ModelState& s = lab.s;
};

std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    for (std::size_t from = 0, end; (end = bytes.find("\r\n", from)) != std::string::npos; from = end + 2)
        lines.push_back(bytes.substr(from, end - from));
    return lines;
}

}  // namespace

TEST_F(ElementsFormTest, OpensWithSer0AndInitialDataOf1801) {
    ElementsForm& form = open();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(s.JD, 2378862);  // Ser0 runs on universal time
    EXPECT_EQ(s.JDstart, s.JDut);
    EXPECT_NEAR((s.JDet - s.JDut) * 86400, 24.35 + 72.32 * -0.9902 + 29.95 * 0.98, 0.1);
    EXPECT_EQ(form.inclinationOrVy(1).text(), "7,016032");  // inclination of Mercury, degrees, cut
    EXPECT_NEAR(std::hypot(s.X0[3], s.Y0[3]) / LaeTheory, 0.983, 0.002);  // the Earth near its perihelion
    EXPECT_EQ(s.m[10], s.m[11]);  // the Earth's mass by km(10), also for Xena
}

TEST_F(ElementsFormTest, SourcesSetWhatGoesWithThem) {
    ElementsForm& form = open();
    form.year.setText("1990");
    const struct {
        const char* option;
        double gamma, mSun;
        bool ephemerisTime, ofDate;
        const char* moonText;
    } cases[] = {
        {"Option4", 66.7006e-12, 1.98976e30, true, true,
         "Для расчета параметров орбиты Луны использована \r\nтеория Брауна в книге Чеботарева "},
        {"Option5", 66.7259e-12, 1.98892e30, true, false,
         "Для расчета параметров орбиты Луны использована \r\nтеория из Мееуса с пересчетом в эпоху J2000 "},
        {"Option8", 66.7259e-12, 1.98976e30, false, false, ""},
    };
    for (const auto& c : cases) {
        test::enter(source(form, c.option), form.earthAndMoon, false);
        EXPECT_EQ(screen.said(form.loadParameters), "");
        EXPECT_NEAR(s.gamma / c.gamma, 1, 1e-15);
        EXPECT_EQ(s.mSol, c.mSun);
        EXPECT_EQ(s.JD, c.ephemerisTime ? s.JDet : s.JDut);
        EXPECT_EQ(s.JDepoha, c.ofDate ? s.JD0 : JD2000);
        EXPECT_EQ(s.km[10], 9888777);
        EXPECT_EQ(s.R0sr[10], s.Lae * 50.01);
        test::enter(form.earthAndMoon, true, form.loadParameters);
        EXPECT_EQ(s.R0sr[10], 384402000);
        if (*c.moonText) {
            EXPECT_EQ(screen.onlyMessage(), (Told{c.moonText, "Tarvex7"}));
        }
    }
}

TEST_F(ElementsFormTest, EphemerisGivesCoordinatesNearTheTheory) {
    ElementsForm& form = open();
    test::linkEphemeris(folder);
    test::enter(form.year, "1999", form.fromJpl2);
    ASSERT_EQ(screen.said(form.loadParameters), "");
    EXPECT_EQ(s.X0[10], 7555444333222);
    EXPECT_EQ(s.VY0[10], 4333);
    // about the barycentre: the Sun stands off, the planets relative to it are where the elements put them
    EXPECT_GT(std::hypot(s.X0[0], s.Y0[0]), 1e8);
    const Rows X = s.X0, Y = s.Y0, Z = s.Z0;
    form.computeInitialData.press();
    for (int i = 1; i <= 8; ++i) {
        const double apart = std::hypot(X[i] - X[0] - s.X0[i], Y[i] - Y[0] - s.Y0[i], Z[i] - Z[0] - s.Z0[i]);
        EXPECT_LT(apart / s.R0sr[i], i < 5 ? 2e-3 : 2e-2) << i;
    }
}

TEST_F(ElementsFormTest, EphemerisThatDoesNotServeTheDate) {
    ElementsForm& form = open();
    form.fromJpl2.choose();
    // no files
    EXPECT_EQ(screen.told(form.loadParameters), badData);
    EXPECT_EQ(form.status(), "нет файла эфемериды ascp1800.405");
    form.year.setText("1500");
    EXPECT_EQ(screen.told(form.loadParameters), (Told{"В файлах DE405 нет такой даты", "Tarvex7m"}));
    EXPECT_EQ(s.kodStop, 1);
}

TEST_F(ElementsFormTest, SavedFileIsExactByteForByte) {
    ElementsForm& form = open();
    fillTable(form);
    ASSERT_EQ(screen.said(form.saveParameters), "");
    std::string expected =
        " 31999  12  1900                MK=1 000 000         kUgol=180 град/pi       sekG = 31557600 сек\r\n"
        "mSol / 10^25____gamma * 10^16____Lae\r\n"
        " 100000  500000  150000000000 \r\n"
        "№ объкта_MK * AlfaL * kUgol__R0sr / 1000__MK * W0sr * sekG__MK * Eks0__MK * Betta0 * kUgol__MK * "
        "AlfaP0 * "
        "kUgol__MK * AlfaU0 * kUgol__X / 1000__Y / 1000__Z / 1000__MK * VX___MK * VY___MK * VZ_____MK * "
        "km\r\n";
    for (int i = 0; i <= 10; ++i) {
        const int sign = i % 2 ? -1 : 1;
        expected += i < 10 ? "0" + std::to_string(i) : std::to_string(i);
        const long values[] = {i * 1000000L,
                               i ? i * 1000L + 2 : 0,
                               i * 1000000L,
                               i * 10000L,
                               i * 1000000L,
                               i * 1000000L,
                               i * 1000000L,
                               sign * (i * 1000L + 1),
                               sign * (i * 1000L + 2),
                               sign * (i * 1000L + 1),
                               sign * i * 1000500000L,
                               sign * 1L,
                               0L,
                               i * 1000000L + 250000};
        for (const long v : values) expected += (v < 0 ? "" : " ") + std::to_string(v) + " ";
        expected += "\r\n";
    }
    EXPECT_EQ(test::readBytes(parameterFile(7)), expected);
}

TEST_F(ElementsFormTest, SavedFileReadsBack) {
    ElementsForm& form = open();
    fillTable(form);
    form.saveParameters.press();
    std::string text = test::readBytes(parameterFile(7));
    text.erase(0, text.find("mSol"));
    std::erase(text, '\r');
    // an old file: other line ends, commas between items, the code page of its time
    const std::string old = "31999,12,1900, \xEF\xF0\xE8\xE2\xE5\xF2\n" + text;
    // a still older one: a negative longitude right behind the number of the body
    std::string glued = old;
    glued.replace(glued.find("\n07 ") + 1, 3, "77-");
    const std::string forms[] = {test::readBytes(parameterFile(7)), old, glued};
    for (const std::string& bytes : forms) {
        test::writeBytes(parameterFile(7), bytes);
        test::enter(form.fromSer0, form.year, "1801", form.loadParameters);
        const double JDut = s.JDut;
        form.fromFile.choose();
        ASSERT_EQ(screen.said(form.loadParameters), "");
        EXPECT_EQ(form.year.text() + " " + form.month.text() + " " + form.day.text(), "1900 12 31,999");
        EXPECT_NEAR(s.JD, 2415385.5 - 1 + 0.999, 1e-6);
        EXPECT_EQ(s.JDut, JDut);  // of the date that stood on the screen
        EXPECT_EQ(s.JDepoha, s.JD0);
        EXPECT_DOUBLE_EQ(s.mSol, 1e30);
        EXPECT_NEAR(s.AlfaP0[7] * kUgol, 7, 1e-9);
        EXPECT_NEAR(s.W0sr[7] * sekG, 7, 1e-9);
        EXPECT_EQ(s.X[7], -7001000);
        EXPECT_EQ(s.VX0[7], -7003.5);
        EXPECT_EQ(s.km[7], 7.25);
        EXPECT_NEAR(s.AlfaL[7] * kUgol, bytes == glued ? -7 : 7, 1e-9);
    }
    // the source that made such files: its longitudes stay negative while the table shows the state
    test::enter(form.viewState, form.fromJpl0, form.year, "1900", form.loadParameters);
    const Rows L = s.AlfaL;
    test::enter(form.saveParameters, form.fromFile);
    ASSERT_EQ(screen.said(form.loadParameters), "");
    for (int i = 1; i <= 9; ++i) EXPECT_LT(std::abs(s.AlfaL[i] - L[i]), 2e-8) << i;
    EXPECT_LT(L[1], -1000);
    EXPECT_TRUE(test::readBytes(parameterFile(7).string() + ".old").find("77-") != std::string::npos);

    // any number of a body is read; whoever needs a row refuses it
    s.IplSel = 0;
    test::writeBytes(parameterFile(7), glued.replace(glued.find("\n10 ") + 1, 2, "12345"));
    form.loadParameters.press();
    EXPECT_EQ(s.IplSel, 12345);
    EXPECT_TRUE(screen.messages.empty());
    static_cast<CommandButton&>(*lab.desk.form("Form2").find("Command5")).press();
    EXPECT_EQ(screen.onlyMessage().title, "Tarvex7");
    EXPECT_EQ(screen.causes, std::vector<std::string>{"нет тела № 12345"});
}

TEST_F(ElementsFormTest, DamagedFilesAreReadAsFarAsTheyGo) {
    ElementsForm& form = open();
    fillTable(form);
    form.saveParameters.press();
    const std::string good = test::readBytes(parameterFile(7));
    const auto lines = linesOf(good);
    ASSERT_EQ(lines.size(), 15u);
    const auto with = [&](std::size_t line, const std::string& text) {
        std::string all;
        for (std::size_t k = 0; k < lines.size(); ++k) all += (k == line ? text : lines[k]) + "\r\n";
        return all;
    };
    const std::string row6 = lines[10];
    const std::pair<const char*, std::string> damaged[] = {
        {"empty", ""},
        {"half", good.substr(0, good.size() / 2)},
        {"a row less", good.substr(0, good.size() - lines[14].size() - 2)},
        {"letters", with(10, "06 abc" + row6)},
        {"zero km", with(10, row6.substr(0, row6.rfind(" 6250000")) + " 0 ")},
        {"month beyond 32 bits", with(0, " 1500  99999999999  1900 ")},
        {"binary", std::string("\0\xFF\x01\xFE\n\0", 6)},
        {"number too big", with(10, "06 1e400 " + row6)},
    };
    form.fromFile.choose();
    for (const auto& [what, bytes] : damaged) {
        test::writeBytes(parameterFile(7), bytes);
        EXPECT_EQ(screen.told(form.loadParameters),
                  (Told{"Ошибка чтения данных из файла \\Dat\\Tarvex7.dat", "Tarvex7m"}))
            << what;
        EXPECT_TRUE(std::isfinite(s.m[6])) << what;
    }
    test::writeBytes(parameterFile(7), good);
    EXPECT_EQ(screen.said(form.loadParameters), "");
    EXPECT_EQ(s.km[10], 10.25);
}

TEST_F(ElementsFormTest, FilesThatCannotBeOpenedOrNumbersThatAreNone) {
    ElementsForm& form = open();
    form.fromFile.choose();
    const Told notFound{"Не могу найти файл \\Dat\\Tarvex5.dat", "Tarvex7m"};
    form.fileNumber.setText("5");
    EXPECT_EQ(screen.told(form.loadParameters), notFound);
    folder.makeFolder("Dat/Tarvex5.dat");  // a folder in the way
    EXPECT_EQ(screen.told(form.loadParameters), notFound);
    std::filesystem::remove_all(folder.path() / "Dat");
    form.fileNumber.setText("6,5");  // half to even
    EXPECT_EQ(screen.said(form.saveParameters), "Не могу найти файл \\Dat\\Tarvex6.dat");

    form.fromSer0.choose();
    for (TextField* field : {&form.year, &form.month, &form.day}) {
        EXPECT_EQ(screen.told(form.loadParameters, *field, "1e400"), badData) << field->name();
    }
    for (const char* bad : {"", "x", "32768", "-40000"}) {
        form.fileNumber.setText(bad);
        EXPECT_EQ(screen.told(form.saveParameters), (Told{"Задайте номер файла", "Tarvex7m"})) << bad;
    }
}

TEST_F(ElementsFormTest, TableRefusesWhatIsNoNumber) {
    ElementsForm& form = open();
    form.fromScreen.choose();
    for (const bool elements : {true, false}) {
        (elements ? form.viewElements : form.viewState).choose();
        for (const TextFields* column :
             {&form.longitudeOrX, &form.semiAxisOrY, &form.motionOrZ, &form.eccentricityOrVx,
              &form.inclinationOrVy, &form.perihelionOrVz, &form.nodeOrMass}) {
            TextField& cell = (*column)(4);
            EXPECT_EQ(screen.told(form.loadParameters, cell, "abc"), badData) << cell.name();
        }
    }
    form.nodeOrMass(4).setText("0");  // no mass divisor
    EXPECT_EQ(screen.told(form.loadParameters), badData);
    EXPECT_EQ(screen.told(form.computeInitialData), badData);
    for (const Rows* rows : {&s.m, &s.X, &s.VX0})
        for (const double v : *rows) EXPECT_TRUE(std::isfinite(v));
    for (TextField* field : {&form.sunMass, &form.gravityConstant, &form.astronomicalUnit}) {
        field->setText("?");
        EXPECT_EQ(screen.told(form.loadParameters), badData) << field->name();
        field->setText("1");
    }
}

TEST_F(ElementsFormTest, EarthAndMoonPartInTheInitialData) {
    ElementsForm& form = open();
    form.earthAndMoon.set(true);
    EXPECT_EQ(s.kodMoon, 0);  // only a load changes the mode
    for (const bool bary : {false, true}) {
        form.bary.set(bary);
        test::enter(form.loadParameters, form.earthAndMoon, false, form.computeInitialData);
        const double X = s.X0[3], VY = s.VY0[3];  // the common centre
        test::enter(form.earthAndMoon, true, form.loadParameters, form.computeInitialData);
        EXPECT_EQ(s.kodMoon, 1);
        EXPECT_EQ(s.kodBary, bary ? 2 : 1);
        EXPECT_EQ(s.m[3], s.m[13]);
        const double q = s.m[11] / (s.m[11] + s.m[13]);
        EXPECT_NEAR(s.X0[3] + q * (s.X0[10] - s.X0[3]), X, bary ? 1e-3 : 6e4);
        EXPECT_NEAR(s.VY0[3] + q * (s.VY0[10] - s.VY0[3]), VY, 1e-8);
        const double range = std::hypot(s.X0[10] - s.X0[3], s.Y0[10] - s.Y0[3], s.Z0[10] - s.Z0[3]);
        EXPECT_NEAR(range, 3.84e8, 0.3e8);
    }
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(ElementsFormTest, CentreOfMassAndTheSunsVelocity) {
    ElementsForm& form = open();
    test::enter(form.drawCentre, true, form.findCentre);
    double M = 0, MX = 0;
    for (int i = 0; i <= 9; ++i) {
        M += s.m[i];
        MX += s.m[i] * s.X0[i];
    }
    EXPECT_NEAR(s.X[14], MX / M, 1e-3);
    const double before = s.X0[10], shift = s.X[14];
    form.moveCentreToOrigin.press();
    EXPECT_EQ(s.X0[10], before - shift);  // an unticked body moves as well
    EXPECT_EQ(form.greatestDistance.text(), "0");
    form.findCentre.press();
    EXPECT_NEAR(s.X[14], 0, 1);

    form.findSunVelocity.press();
    double P = 0;
    for (int i = 0; i <= 9; ++i) P += s.m[i] * s.VX0[i];
    EXPECT_NEAR(P / s.m[0], 0, 1e-9);

    for (int i = 0; i <= 10; ++i) form.inModel(i).set(false);
    EXPECT_EQ(s.NPlOn, 0);
    for (CommandButton* command : {&form.findCentre, &form.moveCentreToOrigin}) {
        command->press();
        EXPECT_EQ(screen.onlyMessage(), (Told{"Ошибка", "Tarvex7m"}));
    }
}

TEST_F(ElementsFormTest, ActivationResetsTheCalendar) {
    ElementsForm& form = open();
    s.kodKalend = 1;
    s.TimeZone = 3;
    s.NEqMax = 12;
    lab.desk.show("Form4");
    lab.desk.turnTo(form);
    EXPECT_EQ(s.kodKalend, 0);
    EXPECT_EQ(s.TimeZone, 0);
    EXPECT_EQ(s.NEqMax, 65);
}

TEST_F(ElementsFormTest, DateCommands) {
    ElementsForm& form = open();
    for (const char* month : {"0", "13", "-1", "99999999999", ""}) {
        form.month.setText(month);
        EXPECT_EQ(screen.told(form.dateToJulian), badData) << month;
    }
    test::enter(form.month, "1", form.year, "40000");
    EXPECT_EQ(screen.told(form.dateToJulian), (Told{"Введите правильно дату", "Tarvex7.0"}));
    EXPECT_EQ(form.julianDate.text(), "0");
    form.julianDate.setText("1e13");
    EXPECT_EQ(screen.told(form.julianToDate), (Told{"Введите правильно юлианскую дату", "Tarvex7.0"}));
}

}  // namespace tarvex
