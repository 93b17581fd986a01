#include "forms/converter_form.h"

#include <cmath>

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class Form12Test : public test::LabTest {
protected:
    ConverterForm& form = lab.desk.get<ConverterForm>();
};

TEST_F(Form12Test, TypedPolarCoordinatesComeBackAsTyped) {
    form.bodyChoice(11).choose();
    form.sourceLongitude.setText("200");
    form.sourceLatitude.setText("-7,5");
    form.planeEquator.choose();
    form.geocentric.choose();
    form.equinoxJ2000.choose();
    form.takeCoordinates.press();
    form.convertCoordinates.press();
    EXPECT_NEAR(toNumber(form.resultLongitude.text()), 200, 1e-6);
    EXPECT_NEAR(toNumber(form.resultLatitude.text()), -7.5, 1e-6);
    EXPECT_NEAR(toNumber(form.resultDistance.text()), 300000, 1e-3);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form12Test, AnglesInEveryUnitAndSign) {
    form.unitDegreesMinutes.choose();
    form.signMinus.choose();
    form.angleWholeDegrees.setText("10");
    form.angleArcMinutes.setText("30");
    form.angleArcSeconds.setText("36");
    form.readAngle.press();
    form.unitDegrees.choose();
    form.convertAngle.press();
    EXPECT_EQ(form.angleDegrees.text(), "-10,51");
    form.unitHours.choose();
    form.convertAngle.press();
    EXPECT_EQ(form.angleHours.text(), "0");
    EXPECT_EQ(form.angleTimeMinutes.text(), "42");
    EXPECT_NEAR(toNumber(form.angleTimeSeconds.text()), 2.4, 2e-6);
    EXPECT_TRUE(form.signMinus.on());  // although no whole hour is left to carry the sign
}

TEST_F(Form12Test, DatesAndTheirLocalTimes) {
    lab.s.kodKalend = 2;
    lab.s.TimeZone = 12;
    form.toJulianDate.press();
    EXPECT_EQ(form.julianDate.text(), "2451545");
    EXPECT_EQ(form.zoneTime.text(), "LT =15:00:00");
    EXPECT_EQ(form.localMeanTime.text(), "LTut  =14:58:00");
    form.takeCoordinates.press();
    form.takeAtNextDate.press();
    EXPECT_EQ(form.julianDate.text(), "2451545,25");
    EXPECT_EQ(form.day.text(), "1,75");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form12Test, RefusalsAndBadInput) {
    form.planeHorizon.choose();
    form.takeCoordinates.press();
    EXPECT_EQ(screen.onlyMessage().text, "ГОРизонтальные координаты\r\nзадаются только ТОПОцентрические");
    form.convertCoordinates.press();
    EXPECT_EQ(screen.onlyMessage().text,
              "Преобразование в ГОРизонтальные координаты\r\nпроизводится только в ТОПОцентрические");
    form.planeEcliptic.choose();
    form.bodyChoice(3).choose();
    form.geocentric.choose();
    form.takeCoordinates.press();  // the Earth from the Earth
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
    form.heliocentric.choose();
    form.month.setText("13");
    form.takeCoordinates.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
    form.toJulianDate.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату");
    form.month.setText("1");
    form.julianDate.setText("");
    form.toCalendarDate.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно юлианскую дату");
    form.dateStep.setText("дня");
    form.takeAtNextDate.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно к-во дней");
    form.bodyChoice(11).choose();
    form.sourceDistance.setText("далеко");
    form.julianDate.setText("2451545");
    form.takeCoordinates.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно исходные координаты");
    form.sourceDistance.setText("1e304");  // beyond double precision in metres
    form.sourceX.setText("1e304");
    for (OptionButton* kind : {&form.typedPolar, &form.typedCartesian}) {
        kind->choose();
        form.takeCoordinates.press();
        EXPECT_EQ(screen.onlyMessage().text, "Введите правильно исходные координаты");
        EXPECT_TRUE(std::isfinite(lab.s.X[11]) && std::isfinite(lab.s.Rcur)) << kind->name();
    }
    form.angleTimeMinutes.setText("x");
    form.unitHours.choose();
    form.readAngle.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
}

}  // namespace tarvex
