#include "forms/gravity_bench_form.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class Form7Test : public test::LabTest {
protected:
    Form7Test() {
        lab.s.gamma = 66.7259e-12;
        lab.s.JD = 2451545;
    }
    GravityBenchForm& form = lab.desk.get<GravityBenchForm>();
};

TEST_F(Form7Test, TwoBodiesAreChosenAndIterated) {
    form.Text1.setText("10");
    form.Check1(0).set(false);
    form.Check1(3).set(true);  // Mercury and the Earth
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_NEAR(toNumber(form.Text8.text()), toNumber(form.Text7.text()) * MK / (0.001 * Vsv), 1);
    form.Command3.press();
    EXPECT_EQ(form.Text30.text(), "1");  // neither trace nor pressure: Newton
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
    EXPECT_EQ(form.Text6.text(), "2");
    EXPECT_EQ(form.Text40.text(), "3");
    EXPECT_EQ(m.AX[1], -0.04);
    EXPECT_EQ(lab.s.VY[1], 148000);
    EXPECT_EQ(form.Text2.text(), "1,145762");
}

TEST_F(Form7Test, TheTraceIsPrintedWhereItWasFound) {
    Motion& m = lab.motion;
    m.kodDX = 3;
    lab.s.Dt = 100;
    form.Check1(0).set(false);
    form.Check1(3).set(true);
    form.Text6.setText("0,01");  // a delay of a day: the bodies fly on by many grid points
    form.Check4.set(true);
    form.Command1.press();
    m.Vgr = 0.1 * Vsv;
    fillTrace(lab.s, m);
    m.Vgr = 0.01 * Vsv;
    m.NSled = 2000;
    for (Trace* trace : {&m.SledXsave, &m.SledYsave, &m.SledZsave}) trace->resize(m.NSled);
    for (const int i : {1, 3})
        for (int n = 0; n <= m.NSled; ++n) {
            m.SledXsave.at(n, i) = lab.s.X[i] - lab.s.VX[i] * lab.s.Dt * n;
            m.SledYsave.at(n, i) = lab.s.Y[i] - lab.s.VY[i] * lab.s.Dt * n;
            m.SledZsave.at(n, i) = lab.s.Z[i] - lab.s.VZ[i] * lab.s.Dt * n;
        }
    form.Command3.press();
    EXPECT_TRUE(screen.messages.empty());
    int pairs = 0;
    for (const auto& d : test::drawnOn(form.Picture1)) {
        const auto after = [&d](const std::string& label) {
            const auto at = d.text.find(label);
            EXPECT_NE(at, std::string::npos) << label << d.text;
            const auto from = d.text.find_first_not_of(' ', at + label.size());
            return toNumber(d.text.substr(from, d.text.find(' ', from) - from));
        };
        if (!d.text.starts_with("k1=") && !d.text.starts_with("k2=")) continue;
        ++pairs;
        const double trace = after("Xsled="), later = after("Xk+1="), earlier = after("   Xk=");
        EXPECT_LE((trace - later) * (trace - earlier), 0) << d.text;
        EXPECT_EQ(d.text.find(d.text[1] == '1' ? "T12=  " : "T21=  ") != std::string::npos, true) << d.text;
    }
    EXPECT_EQ(pairs, 2);
}

TEST_F(Form7Test, BadInput) {
    const std::string bad = "Введите правильно данные или увеличьте MF или MV";
    form.Command3.press();  // no bodies yet
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
             {&form.Text6, "0"}, {&form.Text2, ""}, {&form.Text23, "0"}, {&form.Text46, "0"}}) {
        const std::string good = field->text();
        field->setText(text);
        form.Command1.press();
        EXPECT_EQ(screen.onlyMessage().text, bad) << field->name() << text;
        field->setText(good);
    }
    form.Check2.set(true);  // no run has left its state: everything stands in the origin
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, bad);
}

}  // namespace tarvex
