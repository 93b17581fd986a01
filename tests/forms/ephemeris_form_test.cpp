#include "forms/ephemeris_form.h"

#include "reduction/coordinate_chain.h"
#include "tests/forms/lab_fixture.h"
#include "tests/support/ephemeris_files.h"

namespace tarvex {

namespace {

struct Form24Test : test::LabTest {
    Form24Test() { test::linkEphemeris(folder); }
    std::array<double, 6> shown() const {
        return {form.positionX.number(), form.positionY.number(), form.positionZ.number(),
                form.velocityX.number(), form.velocityY.number(), form.velocityZ.number()};
    }
    std::array<double, 6> calculated(const char* body) {
        form.bodyNumber.setText(body);
        form.calculatePlace.press();
        return shown();
    }
    EphemerisForm& form = lab.desk.get<EphemerisForm>();
    ModelState& s = lab.s;
};

}  // namespace

TEST_F(Form24Test, DefaultDateGivesTheEphemerisOwnConstants) {
    form.inAstronomicalUnits.choose();
    const auto mercury = calculated("1");
    EXPECT_EQ(form.julianDate.text(), "2440400,5");
    const std::array<double, 6> published = {0.3617627146035093,  -0.09078196772958605, -0.08571498318176335,
                                             0.00336749391398414, 0.024894520467648874, 0.012946300688650358};
    for (int i = 0; i < 6; ++i) EXPECT_NEAR(mercury[i], published[i], 1e-12);
    form.heliocentric.choose();
    for (const double v : calculated("0")) EXPECT_EQ(v, 0);
    EXPECT_FALSE(lab.ephemeris.file.has_value());
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form24Test, PlanesEpochsAndUnitsAgreeWithEachOther) {
    form.inAstronomicalUnits.choose();
    const auto equator = calculated("5");
    form.eclipticPlane.choose();
    const auto ecliptic = calculated("5");
    const double c = std::cos(AlfaEclip), sn = std::sin(AlfaEclip);
    for (int i = 0; i < 6; i += 3) {
        EXPECT_NEAR(ecliptic[i], equator[i], 1e-13);
        EXPECT_NEAR(ecliptic[i + 1], c * equator[i + 1] + sn * equator[i + 2], 1e-13);
        EXPECT_NEAR(ecliptic[i + 2], c * equator[i + 2] - sn * equator[i + 1], 1e-13);
    }
    form.equinoxOfDate.choose();
    const auto ofDate = calculated("5");
    EXPECT_NEAR(std::hypot(ofDate[0], ofDate[1], ofDate[2]), std::hypot(equator[0], equator[1], equator[2]),
                1e-12);
    double turn = std::atan2(ecliptic[1], ecliptic[0]) - std::atan2(ofDate[1], ofDate[0]);
    EXPECT_NEAR(turn * kUgol, 50.28 / 3600 * 30.5, 0.002);  // 30.5 years of precession
    form.inMetres.choose();
    const auto metres = calculated("5");
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(metres[i], ofDate[i] * s.Lae / (i < 3 ? 1 : sekD), std::abs(metres[i]) * 1e-13);
}

TEST_F(Form24Test, MetresTakeTheFirstVelocityFromTheRowOfIpl) {
    form.inAstronomicalUnits.choose();
    const auto own = calculated("5");
    form.inMetres.choose();
    s.Ipl = 2;
    s.VX[2] = 0.5;
    const auto odd = calculated("5");
    EXPECT_DOUBLE_EQ(odd[3], s.Lae * 0.5 / sekD);
    EXPECT_NEAR(odd[4], own[4] * s.Lae / sekD, 1e-6);
    form.equinoxOfDate.choose();  // the epoch of date sets Ipl
    calculated("5");
    EXPECT_EQ(s.Ipl, 5);
}

TEST_F(Form24Test, DateCommandsUseTheirOwnCalendar) {
    s.kodKalend = 1;
    s.TimeZone = 5;
    s.kodKalend = 2;
    test::enter(form.julianDate, "2451545", form.toCalendarDate);
    EXPECT_EQ(form.year.text() + " " + form.month.text() + " " + form.day.text(), "2000 1 1,5");
}

TEST_F(Form24Test, EveryBadInputHasItsMessage) {
    using Told = test::RecordingScreen::Message;
    const Told badData{"Задайте правильно данные", "Tarvex7m"},
        noDate{"В файлах DE405 нет такой даты", "Tarvex7m"}, reading{"Ошибка чтения файлов JPL", "Tarvex7"};
    const auto kept = calculated("4");
    struct Case {
        TextField* field;
        const char* text;
        Told message;
        int stops;
    };
    for (const Case& c : {Case{&form.year, "", badData, 0},
                          {&form.month, "июнь", badData, 0},
                          {&form.bodyNumber, "x", badData, 0},
                          {&form.bodyNumber, "40000", badData, 0},
                          {&form.year, "1950", badData, 0},
                          {&form.year, "1500", noDate, 1},
                          {&form.bodyNumber, "-1", reading, 1}}) {
        const std::string before = c.field->text();
        s.kodStop = 0;
        c.field->setText(c.text);
        EXPECT_EQ(screen.told(form.calculatePlace), c.message) << c.field->name() << " " << c.text;
        EXPECT_EQ(s.kodStop, c.stops) << c.field->name() << " " << c.text;
        EXPECT_FALSE(lab.ephemeris.file.has_value());
        EXPECT_EQ(shown(), kept);
        c.field->setText(before);
    }
    form.month.setText("13");  // a month too far is refused on the way to JD
    EXPECT_EQ(screen.told(form.toJulianDate), badData);
    form.julianDate.setText("");
    EXPECT_EQ(screen.told(form.toCalendarDate), badData);
}

}  // namespace tarvex
