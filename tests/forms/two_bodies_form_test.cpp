#include "forms/two_bodies_form.h"

#include "forms/pulsar_form.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

using test::readBytes;
using test::writeBytes;

class Form25Test : public test::LabTest {
protected:
    Form25Test() { lab.s.gamma = 66.7259e-12; }
    /// The given pair at rest in the origin, ready to run.
    void prepare() { test::enter(form.loadParameters, form.setInitialData, form.step, "360"); }
    void stopAfter(int yields) {
        const int goal = screen.yields + yields;
        screen.atYield = [this, goal](int count) {
            if (count >= goal) form.stopRun.press();
        };
    }
    std::filesystem::path file(int N) { return lab.tree.at(files::pulsar(N)); }

    TwoBodiesForm& form = lab.desk.get<TwoBodiesForm>();
};

TEST_F(Form25Test, WindowOfTheEffectIsPrintedWithItsRates) {
    prepare();
    form.effectOff.choose();  // nothing has run
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
    test::enter(form.stepsPerDisplay, "2000", form.forceByFormula);
    stopAfter(1);
    test::enter(form.startRun, form.effectOn);
    form.effectOff.choose();  // no time between
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
    form.effectOn.choose();
    stopAfter(8);
    form.continueRun.press();
    EXPECT_GT(toNumber(form.forceOnM1.text()), 0);
    form.effectOff.choose();
    int rates = 0;
    for (const auto& d : test::drawnOn(form.shiftPlots))
        if (d.kind == test::Drawn::Kind::Text)
            for (const char* start : {"dT=", "dEks=", "dAlfaP=", "dRsr=", "dP="})
                rates += d.text.starts_with(start);
    EXPECT_EQ(rates, 5);
    lab.twoBody.PeriodNach = 2 * Pi * sekG, lab.twoBody.Period = Pi * sekG;  // 1 and 2 rad a year
    form.effectOff.choose();
    EXPECT_TRUE(test::drawnOn(form.shiftPlots).back().text.starts_with("dW= ( 1 - 2 ) / dT = "))
        << test::drawnOn(form.shiftPlots).back().text;
}

TEST_F(Form25Test, ExactPassagesLeaveNoShiftToAnUndisturbedOrbit) {
    prepare();
    form.exactPassages.set(true);
    EXPECT_FALSE(form.windowDegrees.enabled() || form.stepDivider.enabled());
    form.stepsPerDisplay.setText("15000");
    stopAfter(2);
    form.startRun.press();
    EXPECT_GE(lab.twoBody.NZamer, 3);
    const auto from = [](double degrees, double radians) {
        return std::remainder(degrees - radians * kUgol, 360);
    };
    EXPECT_NEAR(from(lab.twoBody.AlfaP, lab.s.AlfaP0[11]), 0, 1e-6);
    EXPECT_NEAR(from(lab.twoBody.AlfaU, lab.s.AlfaU0[11]), 0, 1e-6);
    EXPECT_NEAR(lab.twoBody.Eks, lab.s.Eks0[11], 1e-9);
}

TEST_F(Form25Test, FieldsOfTheStartAreNotReadAgain) {
    prepare();
    test::enter(form.plotPeriod, true, form.stepDivider, "10", form.stepsPerDisplay, "30000");
    double atPress = 0;
    screen.atYield = [&](int n) {
        if (n > 1) {
            atPress = lab.twoBody.Tsec;
            return form.stopRun.press();
        }
        for (TextField* field :
             {&form.timeScale, &form.gravitySpeed, &form.stepsPerDisplay, &form.eccentricityScale,
              &form.periastronScale, &form.axisScale, &form.periodScale})
            field->setText("");  // half typed
        test::enter(form.plotEccentricity, true, form.plotPeriastron, true, form.plotAxis, true);
    };
    EXPECT_EQ(screen.said(form.startRun), "");
    EXPECT_EQ(screen.yields, 2);
    EXPECT_GT(lab.twoBody.Tsec, atPress);  // the press is read at the next display
    form.effectOn.choose();
    EXPECT_TRUE(screen.messages.empty());

    form.stepsPerDisplay.setText("10");  // read again where a run goes on
    form.gravitySpeed.setText("0,5");
    screen.atYield = [this](int) { form.stopRun.press(); };
    form.continueRun.press();
    EXPECT_EQ(lab.twoBody.NC0, 10);
    EXPECT_EQ(lab.twoBody.Vgr, 0.5 * Vsv);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form25Test, ClosingTheFormEndsItsRunAndNoOther) {
    prepare();
    screen.atYield = [this](int) { form.closeForm.press(); };
    form.startRun.press();
    EXPECT_EQ(screen.yields, 1);
    EXPECT_EQ(lab.s.kodStop, 0);
    EXPECT_FALSE(lab.desk.isLoaded("Form25"));
}

TEST_F(Form25Test, FileOfAPulsarByteForByteAndBack) {
    test::enter(form.mass1, "1,4398", form.mass2, "1,3886", form.eccentricity, "0,6171338",
                form.periastronLongitude, "292,54487", form.inclination, "47,2", form.semiMajorAxis, "1950,1",
                form.step, "0,059", form.pulsarFile, "7", form.saveParameters);
    EXPECT_EQ(readBytes(file(7)),
              "km1= 1000000*m1 / mSol_____km2= 1000000*m2 / mSol___1000000*Eks___1000000*AlfaP "
              "град___1000000*Betta град___Rsr м___1000000*P0i сек\r\n"
              "  \r\n"
              "1439800 1388600 617133 292544870 47200000 1950100000 59000\r\n");
    form.semiMajorAxis.setText("123456789012");  // more digits than a number item has: no exponent
    form.saveParameters.press();
    EXPECT_NE(readBytes(file(7)).find(" 123456789012000000 59000\r\n"), std::string::npos);
    test::enter(form.semiMajorAxis, "1950,1", form.saveParameters, form.periastronLongitude, "0",
                form.fromFile, form.loadParameters);
    EXPECT_EQ(test::texts(form.periastronLongitude, form.semiMajorAxis, form.eccentricity),
              "292,54487 | 1950,1 | 0,617133");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form25Test, BadFilesAndFieldsEndInTheirMessages) {
    test::enter(form.fromFile, form.pulsarFile, "5");
    const std::string before = form.semiMajorAxis.text();
    EXPECT_EQ(screen.said(form.loadParameters), "Не могу найти файл \\Dat\\Pulsar5.dat");
    for (const char* bad : {"", "a\nb\n1 2 3 4 5 6", "a\nb\n1 2 3 four 5 6 7", "\x01\x02\x03"}) {
        writeBytes(file(5), bad);
        EXPECT_EQ(screen.said(form.loadParameters), "Ошибка чтения данных из файла \\Dat\\Pulsar5.dat");
        EXPECT_EQ(form.semiMajorAxis.text(), before);
    }
    form.pulsarFile.setText("");
    EXPECT_EQ(screen.said(form.saveParameters), "Задайте номер файла");
    std::filesystem::remove_all(lab.tree.at("\\Dat"));
    form.pulsarFile.setText("6");
    EXPECT_EQ(screen.said(form.saveParameters), "Ошибка записи в файл \\Dat\\Pulsar6.dat");

    form.fromTheory.choose();
    // nothing to go on with
    EXPECT_EQ(screen.said(form.continueRun), "Ошибка решения уравнений");
    for (const char* body : {"10", "12", "0", "x"}) {
        form.theoryBody.setText(body);
        EXPECT_EQ(screen.said(form.loadParameters), "Задайте правильно данные");
    }
    form.theoryBody.setText("11");
    prepare();
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&form.gravitySpeed, "0"},
                                                                   {&form.step, "0"},
                                                                   {&form.stepDivider, "0"},
                                                                   {&form.stepsPerDisplay, "40000"},
                                                                   {&form.timeScale, "0"},
                                                                   {&form.windowDegrees, "?"}}) {
        EXPECT_EQ(screen.told(form.startRun, *field, text),
                  (test::RecordingScreen::Message{"Задайте правильно данные", "Tarvex7mm"}))
            << field->name();
    }
    form.mass2.setText("0");
    EXPECT_EQ(screen.said(form.setInitialData), "Задайте правильно данные");
}

TEST_F(Form25Test, AdditionalParametersReachTheRun) {
    auto& extras = lab.desk.get<PulsarForm>();
    test::enter(extras.pulsesScale, "0", extras.pulsesScale, "0,01", extras.plotRadialSpeed, true,
                extras.reverseRadialSpeed, true, extras.dragCoefficient, "1E9", extras.delaysFromNode,
                extras.storeParameters);
    prepare();
    form.stepsPerDisplay.setText("500");
    stopAfter(1);
    form.startRun.press();
    EXPECT_TRUE(lab.twoBody.fromNode);
    EXPECT_EQ(lab.twoBody.kSopr, 1e9);
    EXPECT_TRUE(screen.messages.empty());
}

}  // namespace tarvex
