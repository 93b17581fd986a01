#include "forms/form20.h"

#include "forms/form1.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

class OrbitCheckForms : public test::LabTest {
protected:
    void stopAfter(int yields, CommandButton& stop) {
        const int goal = screen.yields + yields;
        screen.atYield = [&stop, goal](int count) {
            if (count >= goal) stop.press();
        };
    }
    Form1& first = lab.desk.get<Form1>();
};

TEST_F(OrbitCheckForms, Form1MeasuresTheOrbitOfTheChosenPlanet) {
    first.Text29.setText("5000");
    first.Text31.setText("10");
    stopAfter(4, first.Command5);
    first.Command13.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(first.Label13.caption(), "(справочно T= 87,96926 дней)");
    EXPECT_NEAR(toNumber(first.Text13.text()), 87.97, 0.02);
    EXPECT_NEAR(toNumber(first.Text14.text()), 0.2056, 2e-4);
    EXPECT_NEAR(toNumber(first.Text22.text()), 87.97, 0.02);
    EXPECT_LT(std::abs(toNumber(first.Text9.text())), 1e-4);
    const std::string stopped = first.Text40.text();
    first.Command7.press();
    EXPECT_GT(toNumber(first.Text40.text()), toNumber(stopped));
}

TEST_F(OrbitCheckForms, Form1ChecksTheMoonOnItsOwnRows) {
    first.Check3.set(true);
    first.Command3.press();
    first.Command12.press();
    screen.messages.clear();
    first.Option1(10).choose();
    first.Text30.setText("600");
    first.Text31.setText("10");
    stopAfter(15, first.Command5);
    first.Command13.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(lab.s.IplJ, 11);
    EXPECT_EQ(lab.s.Icentr, 13);
    EXPECT_NEAR(toNumber(first.Text16.text()), 384.4, 1);
}

TEST_F(OrbitCheckForms, BadFieldsOfTheCheck) {
    for (const auto& [field, text] : std::initializer_list<std::pair<TextField*, const char*>>{
             {&first.Text29, "40000"}, {&first.Text30, "шаг"}, {&first.Text31, "0"}, {&first.Text10, ""}}) {
        const std::string good = field->text();
        field->setText(text);
        first.Command13.press();
        EXPECT_EQ(screen.onlyMessage(), (test::RecordingScreen::Message{"Задайте правильно данные", "Tarvex7m"})) << field->name();
        field->setText(good);
    }
    first.Command7.press();                      // no check has been begun
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
    lab.s.X0[1] = lab.s.Y0[1] = lab.s.Z0[1] = 0;
    first.Command13.press();
    EXPECT_EQ(screen.onlyMessage().text, "Задайте правильно данные");
}

/// Both meanings of the Moon's elements give what the initial data of Form1 give for the same choice.
TEST_F(OrbitCheckForms, Form20BuildsTheDataOfForm1InBothMeanings) {
    auto& form = lab.desk.get<Form20>();
    for (const bool geocentric : {true, false}) {
        first.Text34.setText("2000");
        first.Check3.set(true);
        first.Check6.set(!geocentric);
        first.Command3.press();
        first.Command12.press();
        ModelState& s = lab.s;
        const double dx = s.X0[10] - s.X0[3], dvy = s.VY0[10] - s.VY0[3];
        (geocentric ? form.Option5 : form.Option6).choose();
        form.Command6.press();
        EXPECT_NEAR(s.X0[11] - s.X0[0], dx, 2e3) << geocentric;      // the file rows were reduced by whole turns
        EXPECT_NEAR(s.VY0[11] - s.VY0[0], dvy, 0.02) << geocentric;
        EXPECT_EQ(s.kodBary, geocentric ? 1 : 2);
    }
}

TEST_F(OrbitCheckForms, Form20ChecksTheMoon) {
    auto& form = lab.desk.get<Form20>();
    form.Text36.setText("10000");
    form.Command6.press();
    stopAfter(3, form.Command2);
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_GE(toNumber(form.Text6.text()), 3);
    EXPECT_NEAR(toNumber(form.Text17.text()), 0, 0.01);
    EXPECT_NEAR(toNumber(form.Text37.text()), toNumber(form.Text3.text()), 0.01);
    EXPECT_LT(std::abs(toNumber(form.Text41.text())), 1e-4);
    EXPECT_LT(std::abs(toNumber(form.Text42.text())), 1e-4);
    EXPECT_NEAR(lab.s.RSol, 384400000, 3e7);                          // the distance stays in the Sun's radius
    // the sign of Check10 is a plus
    form.Check7.set(false);
    form.Check10.set(true);
    form.Command6.press();
    EXPECT_GT(lab.s.VX0[0] * lab.s.VX0[11], 0);
}

TEST_F(OrbitCheckForms, Form20BadInput) {
    auto& form = lab.desk.get<Form20>();
    form.Option9.choose();
    form.Text21.setText("0");
    form.Command6.press();
    EXPECT_EQ(screen.onlyMessage().text, "Задайте правильно данные");
    form.Text21.setText("81,3");
    form.Text7.setText("1");
    form.Command6.press();
    EXPECT_EQ(screen.onlyMessage().text, "Задайте правильно данные");
    form.Text7.setText("0,05");
    form.Command6.press();
    form.Text22.setText("быстро");
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно данные");
    form.Text33.setText("13");
    form.Command10.press();
    EXPECT_EQ(screen.onlyMessage().text, "Задайте правильно данные");
}

}  // namespace tarvex
