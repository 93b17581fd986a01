#include "forms/moon_form.h"

#include "forms/elements_form.h"
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
    ElementsForm& first = lab.desk.get<ElementsForm>();
};

TEST_F(OrbitCheckForms, BadFieldsOfTheCheck) {
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&first.stepsPerDisplay, "40000"},
                                                                   {&first.step, "шаг"},
                                                                   {&first.stepDivider, "0"},
                                                                   {&first.windowDegrees, ""}}) {
        EXPECT_EQ(screen.told(first.checkOrbit, *field, text),
                  (test::RecordingScreen::Message{"Задайте правильно данные", "Tarvex7m"}))
            << field->name();
    }
    // no check has been begun
    EXPECT_EQ(screen.said(first.checkSteps), "Ошибка решения уравнений");
    lab.s.X0[1] = lab.s.Y0[1] = lab.s.Z0[1] = 0;
    EXPECT_EQ(screen.said(first.checkOrbit), "Задайте правильно данные");
}

/// Both meanings of the Moon's elements give what the initial data of Form1 give for the same choice.
TEST_F(OrbitCheckForms, Form20BuildsTheDataOfForm1InBothMeanings) {
    auto& form = lab.desk.get<MoonForm>();
    for (const bool geocentric : {true, false}) {
        test::enter(first.year, "2000", first.earthAndMoon, true);
        first.bary.set(!geocentric);
        test::enter(first.loadParameters, first.computeInitialData);
        ModelState& s = lab.s;
        const double dx = s.X0[10] - s.X0[3], dvy = s.VY0[10] - s.VY0[3];
        (geocentric ? form.geocentricElements : form.barycentricElements).choose();
        form.setInitialData.press();
        EXPECT_NEAR(s.X0[11] - s.X0[0], dx, 2e3) << geocentric;  // the file rows were reduced by whole turns
        EXPECT_NEAR(s.VY0[11] - s.VY0[0], dvy, 0.02) << geocentric;
        EXPECT_EQ(s.kodBary, geocentric ? 1 : 2);
        EXPECT_EQ(s.X[0], 0);  // the present Sun stays: the Earth enters the initial rows only
    }
}

/// A time is multiplied before it is divided: 58 hundredths of a year are 0,58 and not 0,57.
TEST_F(OrbitCheckForms, CutsFollowTheWrittenOrder) {
    test::enter(first.checkedBody(5), first.stepsPerDisplay, "29", first.step, "315576", first.stepDivider,
                "1");
    stopAfter(1, first.stopCheck);
    first.checkOrbit.press();  // two batches: 58 hundredths of a year
    EXPECT_EQ(first.checkTime.text(), "0,58");
    auto& form = lab.desk.get<MoonForm>();
    test::enter(form.setInitialData, form.stepsPerDisplay, "6", form.step, "63,1152", form.stepDivider, "1");
    stopAfter(1, form.stopCheck);
    form.startCheck.press();
    EXPECT_EQ(form.elapsedYears.text(), "0,000024");
}

/// While the table shows coordinates, the check writes its two rows and leaves what is typed into the others.
TEST_F(OrbitCheckForms, Form1ShowsTheTwoRowsOfTheCheck) {
    test::enter(first.viewState, first.longitudeOrX(4), "7", first.nodeOrMass(1), "8", first.stepsPerDisplay,
                "10");
    stopAfter(1, first.stopCheck);
    first.checkOrbit.press();
    EXPECT_EQ(test::texts(first.longitudeOrX(4), first.nodeOrMass(1)), "7 | 8");
    EXPECT_EQ(first.longitudeOrX(1).text(), toText(cut6(lab.s.X[1]) / MK));
}

/// With the tick the check shows an orbit that does not change from turn to turn.
TEST_F(OrbitCheckForms, ExactPassagesShowTheGivenOrbit) {
    test::enter(first.stepsPerDisplay, "10000", first.exactPassages, true);
    EXPECT_FALSE(first.windowDegrees.enabled() || first.stepDivider.enabled());
    stopAfter(1, first.stopCheck);
    first.checkOrbit.press();
    const double perihelion = first.perihelion.number(), shift = first.perihelionShift.number();
    EXPECT_NE(shift, 0);  // the elements are those of a Sun without Mercury's mass
    stopAfter(1, first.stopCheck);
    first.continueCheck.press();
    EXPECT_NEAR(first.perihelionShift.number(), shift, 1e-3);
    EXPECT_NEAR(first.perihelion.number(), perihelion, 1e-6);
    first.exactPassages.set(false);
    EXPECT_TRUE(first.windowDegrees.enabled() && first.stepDivider.enabled());

    auto& moon = lab.desk.get<MoonForm>();
    test::enter(moon.setInitialData, moon.stepsPerDisplay, "15000", moon.exactPassages, true);
    stopAfter(1, moon.stopCheck);
    moon.startCheck.press();
    EXPECT_GE(moon.perigeesPassed.number(), 2);
    EXPECT_LT(std::abs(moon.perigeeChange.number()), 0.01);
}

/// There is one check at a time: the form whose check another has replaced has none to go on with.
TEST_F(OrbitCheckForms, AFormGoesOnWithItsOwnCheckOnly) {
    auto& form = lab.desk.get<MoonForm>();
    test::enter(first.stepsPerDisplay, "5000", first.stepDivider, "10");
    stopAfter(1, first.stopCheck);
    test::enter(first.checkOrbit, form.setInitialData);
    EXPECT_EQ(screen.said(form.continueCheck), "Ошибка решения уравнений");
    const std::string time = first.checkTime.text();
    first.checkSteps.press();  // building the Moon's data has not touched the planet's check
    EXPECT_NE(first.checkTime.text(), time);
    // a check begun while the other runs ends that one
    int yields = 0;
    screen.atYield = [&](int) {
        if (++yields == 1) form.startCheck.press();
        if (yields == 4) form.stopCheck.press();
    };
    first.continueCheck.press();
    EXPECT_EQ(yields, 4);
    EXPECT_TRUE(screen.messages.empty());
}

/// A form that is closed ends its own calculation and no other.
TEST_F(OrbitCheckForms, ClosingAFormStopsNothingElse) {
    for (const char* name : {"Form1", "Form20"}) {
        const std::string command = name == std::string("Form1") ? "Command13" : "Command1";
        Form& form = lab.desk.form(name);
        if (auto* data = dynamic_cast<MoonForm*>(&form)) data->setInitialData.press();
        screen.messages.clear();
        int yields = 0;
        screen.atYield = [&](int) {
            ++yields;
            lab.desk.unload(name);
        };
        static_cast<CommandButton*>(form.find(command))->press();
        screen.atYield = nullptr;
        EXPECT_EQ(yields, 1) << name;
        EXPECT_EQ(lab.s.kodStop, 0) << name;
        EXPECT_TRUE(screen.messages.empty()) << name;
    }
}

/// Numbers that overflow on the way to metres end in the message and leave the state finite.
TEST_F(OrbitCheckForms, OverflowsReachNoState) {
    const auto finiteState = [this] {
        for (const Rows* rows : {&lab.s.R0sr, &lab.s.VX, &lab.s.VY, &lab.s.X0, &lab.s.VX0})
            for (const double v : *rows)
                if (!std::isfinite(v)) return false;
        return std::isfinite(lab.s.Rcur);
    };
    first.step.setText("1e300");
    EXPECT_EQ(screen.said(first.checkOrbit), "Ошибка решения уравнений");
    EXPECT_TRUE(finiteState());

    auto& form = lab.desk.get<MoonForm>();
    test::enter(form.setInitialData, form.fromScreen, form.semiMajorAxis, "1e305");
    EXPECT_EQ(screen.said(form.setInitialData), "Задайте правильно данные");
    EXPECT_TRUE(finiteState());

    // the Moon so far away that its moment has no number
    test::enter(first.earthAndMoon, true, first.loadParameters);
    lab.s.R0sr[10] = 1e290;
    EXPECT_EQ(screen.said(first.computeInitialData), "Задайте правильно данные");
    EXPECT_TRUE(finiteState());
}

TEST_F(OrbitCheckForms, Form20BadInput) {
    auto& form = lab.desk.get<MoonForm>();
    test::enter(form.fromScreen, form.massRatio, "0");
    EXPECT_EQ(screen.said(form.setInitialData), "Задайте правильно данные");
    test::enter(form.massRatio, "81,3", form.eccentricity, "1");
    EXPECT_EQ(screen.said(form.setInitialData), "Задайте правильно данные");
    test::enter(form.eccentricity, "0,05", form.setInitialData, form.step, "быстро");
    EXPECT_EQ(screen.said(form.startCheck), "Введите правильно данные");
    form.month.setText("13");
    EXPECT_EQ(screen.said(form.toJulianDate), "Задайте правильно данные");
}

}  // namespace tarvex
