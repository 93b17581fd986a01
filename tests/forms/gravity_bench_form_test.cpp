#include "forms/gravity_bench_form.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

class GravityBenchFormTest : public test::LabTest {
protected:
    GravityBenchFormTest() {
        lab.s.gamma = 66.7259e-12;
        lab.s.JD = 2451545;
    }
    GravityBenchForm& form = lab.desk.get<GravityBenchForm>();
};

TEST_F(GravityBenchFormTest, TwoBodiesAreChosenAndIterated) {
    test::enter(form.longitude1, "10", form.inPair(0), false);
    form.inPair(3).set(true);  // Mercury and the Earth
    EXPECT_EQ(screen.said(form.placeBodies), "");
    EXPECT_NEAR(toNumber(form.travelTimeNow.text()), toNumber(form.distanceNow.text()) * MK / (0.001 * Vsv),
                1);
    form.iterateOnce.press();
    EXPECT_EQ(form.forceRatio.text(), "1");  // neither trace nor pressure: Newton
    lab.motion.kodDX = 1;
    test::enter(form.useDelay, true, form.usePressure, true);
    for (int i = 0; i < 8; ++i) form.iterateOnce.press();
    const std::string settled = form.pullDistance.text();
    form.iterateOnce.press();
    EXPECT_NEAR(toNumber(form.pullDistance.text()), toNumber(settled), 1e-3 * toNumber(settled));
    EXPECT_NE(form.pressureX.text(), "0");
    const double F12 = toNumber(form.force.text());
    form.secondOnFirst.choose();
    EXPECT_NEAR(F12 / toNumber(form.force.text()), toNumber(form.forceRatio.text()), 1e-6);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(GravityBenchFormTest, StateOfARunIsTakenOver) {
    Motion& m = lab.motion;
    m.Vgr = 2 * Vsv;
    m.kPgr1 = 3;
    m.Xsave[1] = 5e10, m.Ysave[1] = 1e9, m.VYsave[1] = 48000, m.AXsave[1] = -0.04;
    test::enter(form.fromRun, true, form.addSystemVelocity, true, form.systemVy, "100", form.placeBodies);
    EXPECT_EQ(test::texts(form.gravitySpeed, form.k1), "2 | 3");
    EXPECT_EQ(m.AX[1], 0);  // the run keeps its own
    EXPECT_EQ(lab.s.VY[1], 148000);
    EXPECT_EQ(form.longitude2.text(), "1,145762");
}

TEST_F(GravityBenchFormTest, TheTraceIsPrintedWhereItWasFound) {
    Motion& m = lab.motion;
    m.kodDX = 3;
    lab.s.Dt = 100;
    test::enter(form.inPair(0), false, form.inPair(3), true);
    form.gravitySpeed.setText("0,01");  // a delay of a day: the bodies fly on by many grid points
    test::enter(form.useDelay, true, form.placeBodies);
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
    EXPECT_EQ(screen.said(form.iterateOnce), "");
    int pairs = 0;
    for (const auto& d : test::drawnOn(form.pairPicture)) {
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

TEST_F(GravityBenchFormTest, BadInput) {
    const std::string bad = "Введите правильно данные или увеличьте MF или MV";
    // no bodies yet
    EXPECT_EQ(screen.said(form.iterateOnce), bad);
    form.inPair(5).set(true);
    EXPECT_EQ(screen.said(form.placeBodies), "Должно быть отмечено только 2 объекта");
    test::enter(form.inPair(5), false, form.inPair(1), false);
    EXPECT_EQ(screen.said(form.placeBodies), bad);
    form.inPair(1).set(true);
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&form.gravitySpeed, "0"},
                                                                   {&form.longitude2, ""},
                                                                   {&form.forceScale, "0"},
                                                                   {&form.velocityScale, "0"}}) {
        EXPECT_EQ(screen.said(form.placeBodies, *field, text), bad) << field->name() << text;
    }
    form.fromRun.set(true);  // no run has left its state: everything stands in the origin
    EXPECT_EQ(screen.said(form.placeBodies), bad);
}

}  // namespace tarvex
