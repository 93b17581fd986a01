#include "forms/aberration_form.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class Form11Test : public test::LabTest {
protected:
    Form11Test() { lab.s.gamma = 66.7006e-12; }
    AberrationForm& form = lab.desk.get<AberrationForm>();
};

TEST_F(Form11Test, StepsOverDatesAndComesBack) {
    lab.s.kodKalend = 1;
    test::enter(form.lightDivisor, "1", form.viewAgainstTime);
    screen.atYield = [&](int count) {
        if (count == 3) form.stopRun.press();
    };
    form.runByDates.press();
    EXPECT_EQ(form.day.text(), "1,53");
    EXPECT_EQ(lab.s.JD, 2451545.02);
    EXPECT_EQ(lab.s.kodKalend, 1);  // restored after the form's own conversion
    form.stepOnce.press();
    EXPECT_EQ(form.day.text(), "1,54");
    form.toStartDate.press();
    EXPECT_EQ(test::texts(form.day, form.iterationCount), "1,5 | 1");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form11Test, StarFromTheFields) {
    test::enter(form.objectChoice(4), false, form.objectChoice(10), true, form.objectX, "100000",
                form.objectY, "-200000000000", form.systemVX, "100", form.findPlaces);
    EXPECT_EQ(screen.said(form.iterateOnce), "");
    EXPECT_NE(form.receiverShiftLongitude.text(), "0");
    form.systemVX.setText("1e307");
    EXPECT_EQ(screen.said(form.iterateOnce), "Ошибка при расчете");
    EXPECT_TRUE(std::isfinite(lab.s.VX[3]));
    form.objectY.setText("1e304");
    EXPECT_EQ(screen.said(form.findPlaces), "Введите правильно данные ");
    EXPECT_TRUE(std::isfinite(lab.s.Y[10]));
    form.objectY.setText("-200000000000");
    form.objectChoice(10).set(false);  // nothing ticked: the star stays the object
    form.findPlaces.press();
    EXPECT_NEAR(toNumber(form.distance.text()), 2e11, 1e6);
}

TEST_F(Form11Test, BadInput) {
    form.objectChoice(5).set(true);
    EXPECT_EQ(screen.said(form.findPlaces), "Должен быть отмечен только 1 объект");
    EXPECT_EQ(lab.s.kodStop, 1);
    form.objectChoice(5).set(false);
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&form.lightDivisor, "0"},
                                                                   {&form.lightDivisor, "x"},
                                                                   {&form.day, ""},
                                                                   {&form.month, "1e10"},
                                                                   {&form.year, "99999999999"},
                                                                   {&form.earthLongitude, "?"}}) {
        EXPECT_EQ(screen.said(form.findPlaces, *field, text), "Введите правильно данные ")
            << field->name() << text;
    }
    form.year.setText("40000");
    EXPECT_EQ(screen.said(form.runByDates), "Введите правильно дату") << "once, and the steps end";
    test::enter(form.year, "2000", form.findPlaces, form.viewPhasePlane, form.angleScale, "0");
    EXPECT_EQ(screen.said(form.iterateOnce), "Ошибка при расчете");
    form.objectChoice(4).set(false);
    form.objectChoice(3).set(true);  // the Earth seen from the Earth
    EXPECT_EQ(screen.said(form.findPlaces), "Введите правильно данные ");
}

}  // namespace tarvex
