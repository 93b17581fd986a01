#include "forms/form7.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class Form7Test : public test::LabTest {
protected:
    Form7Test() {
        lab.s.gamma = 66.7259e-12;
        lab.s.JD = 2451545;
    }
    Form7& form = lab.desk.get<Form7>();
};

TEST_F(Form7Test, TwoBodiesAreChosenAndIterated) {
    form.Text1.setText("10");
    form.Check1(0).set(false);
    form.Check1(3).set(true);                    // Mercury and the Earth
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(lab.motion.N1, 1);
    EXPECT_EQ(lab.motion.N2, 3);
    EXPECT_NEAR(toNumber(form.Text8.text()), toNumber(form.Text7.text()) * MK / (0.001 * Vsv), 1);
    form.Command3.press();
    EXPECT_EQ(form.Text10.text(), "1");
    EXPECT_EQ(form.Text30.text(), "1");          // neither trace nor pressure: Newton
    EXPECT_EQ(form.Text56.text(), "0");
    lab.motion.kodDX = 1;
    form.Check4.set(true);
    form.Check5.set(true);
    for (int i = 0; i < 8; ++i) form.Command3.press();
    const std::string settled = form.Text55.text();
    form.Command3.press();
    EXPECT_NEAR(toNumber(form.Text55.text()), toNumber(settled), 1e-3 * toNumber(settled));
    EXPECT_NE(form.Text56.text(), "0");
    const double F12 = toNumber(form.Text42.text());
    form.Option4.choose();
    EXPECT_NEAR(F12 / toNumber(form.Text42.text()), toNumber(form.Text30.text()), 1e-6);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form7Test, StateOfARunIsTakenOver) {
    Motion& m = lab.motion;
    m.Vgr = 2 * Vsv;
    m.kPgr1 = 3;
    m.Xsave[1] = 5e10, m.Ysave[1] = 1e9, m.VYsave[1] = 48000, m.AXsave[1] = -0.04;
    form.Check2.set(true);
    form.Check3.set(true);
    form.Text4.setText("100");
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(form.Text6.text(), "2");
    EXPECT_EQ(form.Text40.text(), "3");
    EXPECT_EQ(m.AX[1], -0.04);
    EXPECT_EQ(lab.s.VY[1], 148000);
    EXPECT_EQ(form.Text1.text(), "0");
    EXPECT_EQ(form.Text2.text(), "1,145762");
}

TEST_F(Form7Test, BadInput) {
    const std::string bad = "Введите правильно данные или увеличьте MF или MV";
    form.Command3.press();                       // no bodies yet
    EXPECT_EQ(screen.onlyMessage().text, bad);
    form.Check1(5).set(true);
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Должно быть отмечено только 2 объекта");
    form.Check1(5).set(false);
    form.Check1(1).set(false);
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, bad);
    form.Check1(1).set(true);
    for (const auto& [field, text] : std::initializer_list<std::pair<TextField*, const char*>>{
             {&form.Text6, "0"}, {&form.Text6, "x"}, {&form.Text1, "?"}, {&form.Text2, ""}, {&form.Text23, "0"}, {&form.Text46, "0"}}) {
        const std::string good = field->text();
        field->setText(text);
        form.Command1.press();
        EXPECT_EQ(screen.onlyMessage().text, bad) << field->name() << text;
        field->setText(good);
    }
    form.Check2.set(true);                       // no run has left its state: everything stands in the origin
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, bad);
}

}  // namespace tarvex
