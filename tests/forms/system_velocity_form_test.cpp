#include "forms/system_velocity_form.h"

#include <cmath>

#include "forms/elements_form.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

struct Form4Test : test::LabTest {
    SystemVelocityForm& open() {
        lab.desk.show("Form1");
        lab.desk.show("Form4");
        return lab.desk.get<SystemVelocityForm>();
    }
    ModelState& s = lab.s;
};

const test::RecordingScreen::Message bad{"Введите правильно данные", "Tarvex7"};

}  // namespace

TEST_F(Form4Test, SumsTheTickedVelocities) {
    SystemVelocityForm& form = open();
    form.Text4.setText("100");
    form.Text5.setText("90");
    form.Text6.setText("30");
    form.Check1.set(true);
    form.Command2.press();
    EXPECT_NEAR(form.Text8.number(), 100 * std::sqrt(0.75), 1e-7);
    EXPECT_NEAR(form.Text9.number(), 50, 1e-7);
    EXPECT_EQ(s.kodStop, 1);
    form.Check5.set(true);
    form.Option10.choose();
    form.Text28.setText("10");
    form.Text29.setText("0");
    form.Text30.setText("-90");
    form.Command2.press();
    EXPECT_NEAR(form.Text36.number(), 60, 1e-7);  // the reversed row points up
    EXPECT_NEAR(form.Text35.number(), form.Text8.number(), 1e-7);
    EXPECT_EQ(s.kodStop, -1);                                       // the sign stays in the flag
    EXPECT_NEAR(std::hypot(s.VX[0], s.VY[0], s.VZ[0]), 370, 1e-9);  // the reference stays in the Sun's row
    EXPECT_EQ(test::drawnOn(form.Picture1).back().text, "VX = -358,234      VY = 56,738      VZ = -73,133");
}

TEST_F(Form4Test, GivesTheVelocityToTheSystemAndShowsItOnForm1) {
    SystemVelocityForm& form = open();
    const double VX0 = s.VX0[3];
    form.Text1.setText("300");
    form.Text2.setText("-20,5");
    form.Text3.setText("0");
    form.Command1.press();
    EXPECT_EQ(s.VXsys, 300);
    EXPECT_EQ(s.VX[3], 300000 + VX0);
    auto& form1 = lab.desk.get<ElementsForm>();
    EXPECT_TRUE(form1.viewState.on());
    EXPECT_EQ(form1.inclinationOrVy(0).text(), "-20500");
}

TEST_F(Form4Test, TheVelocityStaysWhenForm1IsOpenedAnew) {
    SystemVelocityForm& form = open();
    lab.desk.unload("Form1");
    form.Text1.setText("300");
    form.Command1.press();
    EXPECT_EQ(s.VXsys, 300);
    EXPECT_TRUE(lab.desk.isLoaded("Form1"));
    EXPECT_EQ(s.VX[3], 300000 + s.VX0[3]);
}

TEST_F(Form4Test, BadNumbersAreRefused) {
    SystemVelocityForm& form = open();
    form.Check3.set(true);
    for (TextField* field : {&form.Text16, &form.Text17, &form.Text18, &form.Text37}) {
        const std::string kept = field->text();
        field->setText("abc");
        form.Command2.press();
        EXPECT_EQ(screen.onlyMessage(), bad) << field->name();
        field->setText(kept);
    }
    form.Text37.setText("0");  // a scale of zero
    form.Command2.press();
    EXPECT_EQ(screen.onlyMessage(), bad);
    for (TextField* field : {&form.Text1, &form.Text2, &form.Text3}) {
        field->setText("x");
        form.Command1.press();
        EXPECT_EQ(screen.onlyMessage(), bad) << field->name();
        field->setText("1e306");  // km/s that overflow in m/s
    }
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage(), bad);
    for (const double v : s.VX) EXPECT_TRUE(std::isfinite(v));
}

}  // namespace tarvex
