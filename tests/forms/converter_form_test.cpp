#include "forms/converter_form.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class Form12Test : public test::LabTest {
protected:
    ConverterForm& form = lab.desk.get<ConverterForm>();
};

TEST_F(Form12Test, TypedPolarCoordinatesComeBackAsTyped) {
    test::enter(form.bodyChoice(11), form.sourceLongitude, "200", form.sourceLatitude, "-7,5",
                form.planeEquator, form.geocentric, form.equinoxJ2000, form.takeCoordinates,
                form.convertCoordinates);
    EXPECT_NEAR(toNumber(form.resultLongitude.text()), 200, 1e-6);
    EXPECT_NEAR(toNumber(form.resultLatitude.text()), -7.5, 1e-6);
    EXPECT_NEAR(toNumber(form.resultDistance.text()), 300000, 1e-3);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form12Test, AnglesInEveryUnitAndSign) {
    test::enter(form.unitDegreesMinutes, form.signMinus, form.angleWholeDegrees, "10", form.angleArcMinutes,
                "30", form.angleArcSeconds, "36", form.readAngle, form.unitDegrees, form.convertAngle);
    EXPECT_EQ(form.angleDegrees.text(), "-10,51");
    test::enter(form.unitHours, form.convertAngle);
    EXPECT_EQ(test::texts(form.angleHours, form.angleTimeMinutes), "0 | 42");
    EXPECT_NEAR(toNumber(form.angleTimeSeconds.text()), 2.4, 2e-6);
    EXPECT_TRUE(form.signMinus.on());  // although no whole hour is left to carry the sign
}

TEST_F(Form12Test, DatesAndTheirLocalTimes) {
    lab.s.kodKalend = 2;
    lab.s.TimeZone = 12;
    form.toJulianDate.press();
    EXPECT_EQ(test::texts(form.julianDate, form.zoneTime, form.localMeanTime),
              "2451545 | LT =15:00:00 | LTut  =14:58:00");
    test::enter(form.takeCoordinates, form.takeAtNextDate);
    EXPECT_EQ(test::texts(form.julianDate, form.day), "2451545,25 | 1,75");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form12Test, RefusalsAndBadInput) {
    form.planeHorizon.choose();
    EXPECT_EQ(screen.said(form.takeCoordinates),
              "ГОРизонтальные координаты\r\nзадаются только ТОПОцентрические");
    EXPECT_EQ(screen.said(form.convertCoordinates),
              "Преобразование в ГОРизонтальные координаты\r\nпроизводится только в ТОПОцентрические");
    test::enter(form.planeEcliptic, form.bodyChoice(3), form.geocentric);
    // the Earth from the Earth
    EXPECT_EQ(screen.said(form.takeCoordinates), "Введите правильно данные");
    test::enter(form.heliocentric, form.month, "13");
    EXPECT_EQ(screen.said(form.takeCoordinates), "Введите правильно данные");
    EXPECT_EQ(screen.said(form.toJulianDate), "Введите правильно дату");
    test::enter(form.month, "1", form.julianDate, "");
    EXPECT_EQ(screen.said(form.toCalendarDate), "Введите правильно юлианскую дату");
    form.dateStep.setText("дня");
    EXPECT_EQ(screen.said(form.takeAtNextDate), "Введите правильно к-во дней");
    test::enter(form.bodyChoice(11), form.sourceDistance, "далеко", form.julianDate, "2451545");
    EXPECT_EQ(screen.said(form.takeCoordinates), "Введите правильно исходные координаты");
    form.sourceDistance.setText("1e304");  // beyond double precision in metres
    form.sourceX.setText("1e304");
    for (OptionButton* kind : {&form.typedPolar, &form.typedCartesian}) {
        kind->choose();
        EXPECT_EQ(screen.said(form.takeCoordinates), "Введите правильно исходные координаты");
        EXPECT_TRUE(std::isfinite(lab.s.X[11]) && std::isfinite(lab.s.Rcur)) << kind->name();
    }
    test::enter(form.angleTimeMinutes, "x", form.unitHours);
    EXPECT_EQ(screen.said(form.readAngle), "Введите правильно данные");
}

}  // namespace tarvex
