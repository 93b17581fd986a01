#include "forms/system_velocity_form.h"

#include "forms/elements_form.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

struct SystemVelocityFormTest : test::LabTest {
    SystemVelocityForm& open() {
        lab.desk.show("Form1");
        lab.desk.show("Form4");
        return lab.desk.get<SystemVelocityForm>();
    }
    ModelState& s = lab.s;
};

const test::RecordingScreen::Message bad{"Введите правильно данные", "Tarvex7"};

}  // namespace

TEST_F(SystemVelocityFormTest, SumsTheTickedVelocities) {
    SystemVelocityForm& form = open();
    test::enter(form.sunSpeed, "100", form.sunLongitude, "90", form.sunLatitude, "30", form.addSun, true,
                form.sumVelocities);
    EXPECT_NEAR(form.sunVy.number(), 100 * std::sqrt(0.75), 1e-6);
    EXPECT_NEAR(form.sunVz.number(), 50, 1e-6);
    EXPECT_EQ(s.kodStop, 1);
    test::enter(form.addBackground, true, form.backgroundReversed, form.backgroundSpeed, "10",
                form.backgroundLongitude, "0", form.backgroundLatitude, "-90", form.sumVelocities);
    EXPECT_NEAR(form.sumVz.number(), 60, 1e-7);  // the reversed row points up
    EXPECT_NEAR(form.sumVy.number(), form.sunVy.number(), 1e-7);
    EXPECT_EQ(s.kodStop, -1);                                       // the sign stays in the flag
    EXPECT_NEAR(std::hypot(s.VX[0], s.VY[0], s.VZ[0]), 370, 1e-9);  // the reference stays in the Sun's row
    EXPECT_EQ(test::drawnOn(form.velocityPicture).back().text,
              "VX = -358,234      VY = 56,738      VZ = -73,133");
}

TEST_F(SystemVelocityFormTest, GivesTheVelocityToTheSystemAndShowsItOnForm1) {
    SystemVelocityForm& form = open();
    const double VX0 = s.VX0[3];
    test::enter(form.systemVx, "300", form.systemVy, "-20,5", form.systemVz, "0", form.setSystemVelocity);
    EXPECT_EQ(s.VXsys, 300);
    EXPECT_EQ(s.VX[3], 300000 + VX0);
    auto& form1 = lab.desk.get<ElementsForm>();
    EXPECT_TRUE(form1.viewState.on());
    EXPECT_EQ(form1.inclinationOrVy(0).text(), "-20500");
}

TEST_F(SystemVelocityFormTest, TheVelocityStaysWhenForm1IsOpenedAnew) {
    SystemVelocityForm& form = open();
    lab.desk.unload("Form1");
    test::enter(form.systemVx, "300", form.setSystemVelocity);
    EXPECT_EQ(s.VXsys, 300);
    EXPECT_TRUE(lab.desk.isLoaded("Form1"));
    EXPECT_EQ(s.VX[3], 300000 + s.VX0[3]);
}

TEST_F(SystemVelocityFormTest, BadNumbersAreRefused) {
    SystemVelocityForm& form = open();
    form.addGalaxy.set(true);
    for (TextField* field :
         {&form.galaxySpeed, &form.galaxyLongitude, &form.galaxyLatitude, &form.velocityScale}) {
        EXPECT_EQ(screen.told(form.sumVelocities, *field, "abc"), bad) << field->name();
    }
    form.velocityScale.setText("0");  // a scale of zero
    EXPECT_EQ(screen.told(form.sumVelocities), bad);
    for (TextField* field : {&form.systemVx, &form.systemVy, &form.systemVz}) {
        field->setText("x");
        EXPECT_EQ(screen.told(form.setSystemVelocity), bad) << field->name();
        field->setText("1e306");  // km/s that overflow in m/s
    }
    EXPECT_EQ(screen.told(form.setSystemVelocity), bad);
    for (const double v : s.VX) EXPECT_TRUE(std::isfinite(v));
}

}  // namespace tarvex
