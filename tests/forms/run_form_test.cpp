#include "forms/run_form.h"

#include "experiment/experiment_run.h"
#include "forms/elements_form.h"
#include "stats/test_plan.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

using test::Drawn;
using test::readBytes;
using test::RecordingScreen;

namespace {

/// What a plan needs of the form that owns it.
class FakePlan final : public Form, public PlanScreen {
public:
    using PlanScreen::formName;
    explicit FakePlan(Desk& desk) : Form(desk, formName, "План") {
        Text3.onChange([this] {
            ++told;
            if (next) next();
        });
    }
    TextField Text3{this, {.name = "Text3"}};
    OptionButton Option2{this, {.name = "Option2", .group = "kind", .on = true}};
    OptionButton Option5{this, {.name = "Option5", .group = "source"}};
    OptionButton Option6{this, {.name = "Option6", .group = "source", .on = true}};
    bool testsPlan() const override { return Option5.on(); }
    bool rotatable() const override { return Option2.on(); }
    PlanSettings takePlan() override { return {}; }
    void experimentEnded() override { Text3.setText("1234,5"); }
    std::vector<int> tickedPlanets() const override { return {}; }
    void showPlanOf(int) override {}
    int told = 0;
    std::function<void()> next;
};

class RunFormTest : public test::LabTest {
protected:
    RunFormTest() {
        for (const char* name : {"Plan0/Txt1", "Plan4/Txt1"}) folder.makeFolder(name);
        lab.desk.show("Form1");
        lab.desk.get<ElementsForm>().openRun.press();
        form = &lab.desk.get<RunForm>();
        test::enter(form->endAtYear, true, form->lastYear, "1801", form->stepDivider, "100");
        screen.shown.clear();
    }
    /// A run of a known number of steps without measurement.
    void plainRun(const char* steps) {
        form->endAtYear.set(false);
        form->stepsPerDisplay.setText(steps);
    }
    FakePlan& plan() {
        if (!lab.desk.isLoaded("Form15"))
            lab.desk.add("Form15", [this] { return std::make_unique<FakePlan>(lab.desk); });
        return lab.desk.get<FakePlan>();
    }
    int count(const Picture& picture, const std::function<bool(const Drawn&)>& wanted) {
        const auto& all = test::drawnOn(const_cast<Picture&>(picture));
        return static_cast<int>(std::count_if(all.begin(), all.end(), wanted));
    }
    RunForm* form = nullptr;
};

}  // namespace

// An experiment without any form writes the files of the screen, byte for byte.
TEST_F(RunFormTest, AnExperimentAsAValueWritesTheFilesOfTheScreen) {
    struct Case {
        const char* name;
        void (*onScreen)(RunForm&, Motion&);
        void (*asValue)(ExperimentSettings&);
    };
    const Case cases[] = {
        {"windows, no speed of gravity", [](RunForm&, Motion&) {}, [](ExperimentSettings&) {}},
        {"relativity, order 8",
         [](RunForm& form2, Motion&) {
             test::enter(form2.relativistic, form2.highOrder, true, form2.step, "86400",
                         form2.stepsPerDisplay, "90");
         },
         [](ExperimentSettings& set) {
             set.run.relativistic = true;
             set.run.stepper = Stepper::Order8;
             set.run.step = 86400;
             set.run.stepsPerDisplay = 90;
         }},
        {"Lienard and Wiechert, the trace",
         [](RunForm& form2, Motion& motion) {
             test::enter(form2.useGravitySpeed, true, form2.gravitySpeed, "20,5");
             motion.kodPgr = 5, motion.kodDX = 3, motion.kPgr1 = motion.kPgr2 = 0.7;
         },
         [](ExperimentSettings& set) {
             set.laws = LawSettings{.pressure = Pressure::LienardWiechert,
                                    .retardation = Retardation::ByTrace,
                                    .k1 = 0.7,
                                    .k2 = 0.7};
             set.run.finiteGravitySpeed = true;
             set.run.gravitySpeed = 20.5;
         }},
        {"a theory, with energy",
         [](RunForm& form2, Motion&) {
             test::enter(form2.imitator, form2.theoryJpl0, form2.watchEnergy, true);
         },
         [](ExperimentSettings& set) {
             set.run.model = false;
             set.run.boxes.theory = Imitator::JPL0;
             set.run.boxes.energy = true;
         }},
    };
    for (const CheckBox* box : {&form->measureOrbit, &form->writeRecords, &form->writeTrack})
        const_cast<CheckBox*>(box)->set(true);
    form->stepsPerDisplay.setText("500");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.onScreen(*form, lab.motion);
        form->startRun.press();
        ASSERT_TRUE(screen.messages.empty()) << screen.messages.front().text;

        const test::TempFolder other;
        for (const char* name : {"Dat", "JPL", "Plan0/Txt1"}) other.makeFolder(name);
        const DataTree tree(other.path());
        const auto model = std::make_unique<Model>(tree);
        ExperimentSettings set{.initial = InitialSettings{}, .laws = LawSettings{}};
        set.run.boxes = {.measure = true, .records = true, .track = true, .endAtYear = true};
        set.run.lastYear = 1801;
        set.run.stepDivider = 100;
        set.run.stepsPerDisplay = 500;
        c.asValue(set);
        const ExperimentResult seen = runExperiment(model->experiment(), set);
        EXPECT_TRUE(seen.complete);
        for (const std::string& name : {seen.record, seen.track}) {
            const std::string bytes = readBytes(tree.at(name));
            EXPECT_GT(bytes.size(), 900u) << name;
            EXPECT_TRUE(bytes == readBytes(lab.tree.at(name))) << name;
        }
        test::enter(form->classical, form->exactPassages, false, form->useGravitySpeed, false, form->step,
                    "3600", form->stepsPerDisplay, "500");
        lab.motion.kodPgr = lab.motion.kodDX = 0;
        lab.motion.kPgr1 = lab.motion.kPgr2 = 0;
    }
}

TEST_F(RunFormTest, AYearOfMercuryFillsFieldsPlotAndFile) {
    const auto& all = form->orbitPicture.plot().all();
    // A body is one point where it is now, in the units of the picture.
    const auto mercury = std::find_if(
        all.begin(), all.end(), [](const auto& one) { return one.second.spec().quantity == "Меркурий"; });
    ASSERT_EQ(mercury->second.points().size(), 1U);
    EXPECT_NEAR(mercury->second.meaningOf(0).value(mercury->second.points()[0]).x, lab.s.XOld[1] / 1e9, 1e-9);
    test::enter(form->measureOrbit, true, form->writeRecords, true, form->renewBaselines, true,
                form->drawPerihelion, true);
    EXPECT_EQ(screen.said(form->startRun), "");
    EXPECT_EQ(form->year.text(), "1802");
    EXPECT_NEAR(form->perihelionNow.number(), 77.14, 0.01);
    EXPECT_NEAR(form->inclinationStart.number(), 7.016, 0.001);  // taken again: not the 7.018 of the elements
    EXPECT_NEAR(form->periodStart.number(), 87.969, 0.001);
    const std::string file = readBytes(folder.path() / "Plan0/Txt1/Tarvex1Ras1.txt");
    EXPECT_NE(file.find("Классика  Ser0    VXsys=  0"), std::string::npos);
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 5 + 3);  // records after the second perihelion

    // The plot tells dates and shifts: the last point is what the fields and the record show.
    const auto drawn = std::find_if(all.begin(), all.end(), [](const auto& one) {
        return one.second.spec().name() == "dAlfaP, эксп. 1";
    });
    ASSERT_NE(drawn, all.end());
    const Plot::Series& series = drawn->second;
    const std::size_t last = series.points().size() - 1;
    const Plot::Point value = series.meaningOf(last).value(series.points()[last]);
    EXPECT_NEAR(value.y, form->perihelionShift.number(), 1e-4);
    EXPECT_NEAR(value.x,
                form->perihelionYear.number() + (form->perihelionMonth.number() - 1) / 12 +
                    form->perihelionDay.number() / 365.25,
                0.01);
}

TEST_F(RunFormTest, PassagesAreExactWithTheTickAndByHighOrder) {
    test::enter(form->measureOrbit, true, form->writeRecords, true, form->backward, form->lastYear, "1799",
                form->step, "86400", form->exactPassages, true);
    EXPECT_FALSE(form->stepDivider.enabled() || form->windowDegrees.enabled());
    form->startRun.press();
    EXPECT_EQ(form->year.text(), "1798");  // the year typed is run through, back in time too
    EXPECT_NEAR(form->periodNow.number(), 87.97, 0.01);
    EXPECT_NEAR(form->nodeNow.number(), 48.577, 0.002);  // not the descending one
    const double date = form->perihelionYear.number() + form->perihelionMonth.number() / 100;
    EXPECT_LT(date, 1799.13);
    const std::string file = readBytes(folder.path() / "Plan0/Txt1/Tarvex1Ras1.txt");
    EXPECT_NE(file.find("точные прохождения\r\n"), std::string::npos);
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 5 + 13);

    test::enter(form->exactPassages, false, form->useGravitySpeed, true, form->highOrder, true);
    EXPECT_TRUE(form->exactPassages.on());
    form->startRun.press();
    ASSERT_EQ(screen.messages.size(), 1u);
    EXPECT_EQ(screen.messages[0].text, "Высокий порядок - для Классики без Vgr и для ОТО");
    EXPECT_EQ(screen.messages[0].title, "Tarvex7");
    test::enter(form->relativistic, form->startRun);
    EXPECT_EQ(screen.messages.size(), 1u);
    EXPECT_EQ(lab.run.stepper, Stepper::Order8);
    form->exactPassages.set(false);  // order 8 has no windows
    EXPECT_FALSE(form->highOrder.on());
    EXPECT_TRUE(form->stepDivider.enabled() && form->windowDegrees.enabled());
}

TEST_F(RunFormTest, StopAndContinueByTheButtons) {
    plainRun("50");
    screen.atYield = [this](int n) {
        if (n == 2) form->stopRun.press();
    };
    form->startRun.press();
    EXPECT_EQ(screen.yields, 2);
    EXPECT_DOUBLE_EQ(lab.run.Tsec, 150 * 3600.);  // the press is read at the next display
    form->runSteps.press();
    EXPECT_DOUBLE_EQ(lab.run.Tsec, 200 * 3600.);
    form->backward.choose();
    const double V = lab.motion.U[45];
    form->stepsPerDisplay.setText("20");
    screen.atYield = [this](int) { form->stopRun.press(); };
    form->continueRun.press();
    EXPECT_LT(lab.motion.U[45] * V, 0);
    EXPECT_DOUBLE_EQ(lab.run.Tmod, (200 - 40) * 3600.);
}

TEST_F(RunFormTest, ASecondStartRunsInsideTheFirst) {
    plainRun("10");
    screen.atYield = [this](int n) {
        if (n == 1) form->startRun.press();
        if (n == 3) form->stopRun.press();
    };
    form->startRun.press();
    // the inner run makes 30 steps and stops; the outer one goes on with its state until the next display
    EXPECT_DOUBLE_EQ(lab.run.Tsec, 40 * 3600.);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(RunFormTest, ClosingTheFormOrLeavingTheProgramEndsTheRun) {
    plainRun("10");
    screen.atYield = [this](int n) {
        if (n == 2) form->closeForm.press();
    };
    form->startRun.press();
    EXPECT_EQ(screen.yields, 2);
    EXPECT_FALSE(lab.desk.isLoaded("Form2"));
    form = &lab.desk.get<RunForm>();
    plainRun("10");
    screen.atYield = [this](int n) {
        if (n == 4) lab.desk.get<ElementsForm>().exitProgram.press();
    };
    form->startRun.press();
    EXPECT_EQ(screen.yields, 4);
    EXPECT_FALSE(lab.desk.anyLoaded());
}

TEST_F(RunFormTest, BadFieldsAreRefusedAndNothingRuns) {
    struct Case {
        TextField& field;
        std::vector<const char*> texts;
    };
    const std::vector<const char*> anyNumber{"", "abc", "1e999", "1 000"}, whole{"", "abc", "1e999", "40000"};
    const Case cases[] = {{form->bodyNumber, {"", "abc", "1e999"}},
                          {form->windowDegrees, anyNumber},
                          {form->experimentNumber, whole},
                          {form->gravitySpeed, anyNumber},
                          {form->distanceExponent, anyNumber},
                          {form->step, anyNumber},
                          {form->stepDivider, whole},
                          {form->stepsPerDisplay, whole},
                          {form->angleScale, anyNumber},
                          {form->timeScale, anyNumber},
                          {form->plotScale, anyNumber},
                          {form->plotShift, anyNumber},
                          {form->lastYear, {"", "abc", "3e9"}}};
    form->measureOrbit.set(true);
    for (const Case& c : cases) {
        const std::string good = c.field.text();
        for (const char* text : c.texts) {
            c.field.setText(text);
            EXPECT_EQ(screen.told(form->startRun),
                      (RecordingScreen::Message{"Задайте правильно данные", "Tarvex7"}))
                << c.field.name() << " " << text;
        }
        c.field.setText(good);
    }
    EXPECT_EQ(screen.yields, 0);
    form->bodyNumber.setText("11");
    EXPECT_EQ(screen.told(form->startRun),
              (RecordingScreen::Message{"номер объекта должен быть от 0 до 10", "Tarvex7.0"}));
    form->bodyNumber.setText("1");
    lab.s.X0[2] = lab.s.X0[1], lab.s.Y0[2] = lab.s.Y0[1], lab.s.Z0[2] = lab.s.Z0[1];
    EXPECT_EQ(screen.told(form->startRun),
              (RecordingScreen::Message{"Ошибка решения уравнений", "Tarvex7mmm"}));
    EXPECT_EQ(screen.lastProgress, -1);
    EXPECT_TRUE(std::isfinite(lab.s.X[1]));
}

TEST_F(RunFormTest, ARefusedFieldLeavesWhatComesAfterIt) {
    const std::vector<TextField*> shifts = {&form->perihelionShift,  &form->nodeShift,
                                            &form->inclinationShift, &form->eccentricityShift,
                                            &form->semiAxisShift,    &form->periodShift};
    for (TextField* shift : shifts) shift->show(7);
    form->bodyNumber.setText("11");
    EXPECT_EQ(screen.said(form->startRun), "номер объекта должен быть от 0 до 10");
    for (TextField* shift : shifts) EXPECT_EQ(shift->text(), "7");
    form->bodyNumber.setText("0");
    form->measureOrbit.set(true);  // refused after the clock has been set
    form->startRun.press();
    EXPECT_EQ(screen.onlyMessage().title, "Tarvex7");
    for (TextField* shift : shifts) EXPECT_EQ(shift->text(), "0");

    form->bodyNumber.setText("1");
    plainRun("10");
    screen.atYield = [this](int n) {
        if (n == 2) return form->stopRun.press();
        for (const auto& [field, bad] : {std::pair{&form->step, "0"}, std::pair{&form->stepDivider, "-1"}}) {
            EXPECT_EQ(screen.said(form->startRun, *field, bad), "Задайте правильно данные");
        }
        EXPECT_EQ(lab.s.Dt, 3600);  // the run that goes on keeps its step
        EXPECT_EQ(lab.s.kDt, 100);
    };
    form->startRun.press();
}

TEST_F(RunFormTest, AScaleIsReadByItsPlotAlone) {
    test::enter(form->measureOrbit, true, form->angleScale, "0", form->plotScale, "0");
    EXPECT_EQ(screen.said(form->startRun), "");
    EXPECT_EQ(form->year.text(), "1802");
    for (CheckBox* plot : {&form->drawPerihelion, &form->drawSemiAxis, &form->drawX}) {
        plot->set(true);
        EXPECT_EQ(screen.said(form->startRun), "Ошибка решения уравнений") << plot->name();
        plot->set(false);
    }
}

TEST_F(RunFormTest, TheJulianDateIsCutToMillionths) {
    lab.s.JDstart = 2378862.1234567;
    form->step.setText("0,7");
    plainRun("1");
    screen.atYield = [this](int) { form->stopRun.press(); };
    form->startRun.press();
    EXPECT_EQ(form->julianDate.text(), "2378862,123472");  // two steps, of 0.0000081 days each
}

TEST_F(RunFormTest, AMissingFolderIsToldAtStart) {
    form->writeRecords.set(true);
    lab.s.NPlan = 7;
    EXPECT_EQ(screen.told(form->startRun), (RecordingScreen::Message{"Задайте правильно данные", "Tarvex7"}));
    EXPECT_EQ(screen.yields, 0);
    test::enter(form->writeRecords, false, form->writeTrack, true);
    std::filesystem::remove_all(folder.path() / "Dat");
    EXPECT_EQ(screen.said(form->startRun), "Задайте правильно данные");
}

TEST_F(RunFormTest, TheTriggerRunsExperimentsOfAPlanOneInsideTheOther) {
    FakePlan& owner = plan();
    test::enter(form->measureOrbit, true, form->writeRecords, true);
    form->lastYear.setText("1800");  // ends at its first step
    lab.s.NPlan = 4;
    owner.next = [&] {
        EXPECT_EQ(lab.s.NPlan, 4);
        if (owner.told > 2) return;
        form->experimentNumber.setText(std::to_string(owner.told + 1));
        form->startTrigger.setText("1");
    };
    form->startTrigger.setText("1");
    EXPECT_EQ(owner.told, 3);
    EXPECT_EQ(lab.s.NPlan, 0);
    for (int e = 1; e <= 3; ++e)
        EXPECT_TRUE(
            std::filesystem::exists(folder.path() / ("Plan4/Txt1/Tarvex1Ras" + std::to_string(e) + ".txt")));

    lab.s.NPlan = 4;  // an error tells the plan nothing
    test::enter(form->endAtYear, false, form->stepDivider, "0");
    EXPECT_EQ(screen.said(form->startRun), "Ошибка решения уравнений");
    EXPECT_EQ(owner.told, 3);
    EXPECT_EQ(lab.s.NPlan, 4);

    form->stepDivider.setText("1");  // a stop ends the batch
    lab.plan.Nplan = 15;
    form->stepsPerDisplay.setText("10");
    screen.atYield = [this](int) { form->stopRun.press(); };
    form->startRun.press();
    EXPECT_EQ(lab.s.NPlan, 0);
    EXPECT_EQ(lab.plan.Nexp, 15);
    EXPECT_EQ(owner.told, 3);
}

TEST_F(RunFormTest, TestModeWritesTheHeadOnceAndOneLineAnExperiment) {
    FakePlan& owner = plan();
    test::enter(owner.Option5, form->writeRecords, true);
    lab.plan.Nf = 2, lab.plan.Nplan = 9;
    lab.plan.Xnul[1] = 100, lab.plan.dXvar[1] = 2.5, lab.plan.Xnul[2] = 100, lab.plan.dXvar[2] = 1;
    const double target[] = {0, 110, 100, 100, 100, 1, lab.s.km[5], lab.s.km[2]};
    for (int i = 1; i <= 7; ++i) lab.plan.XU[i][1] = lab.plan.XU[i][2] = target[i];
    lab.plan.XU[1][2] = 100;
    lab.plan.Nexp = 1;
    form->startRun.press();
    lab.plan.Nexp = 2;
    form->startRun.press();
    EXPECT_EQ(
        readBytes(folder.path() / "Dat/NabPlan2.txt"),
        "эксперименты выполненные на форме 2 по тесту для  2 факторного   Roto   плана \r\n"
        " 2  9  0 \r\n 100000000  2500000 \r\n 100000000  1000000 \r\n   \r\n 1  110000 \r\n 2  0 \r\n");
    EXPECT_EQ(screen.paused, 5000 + 2 * 1000);
    EXPECT_DOUBLE_EQ(lab.plan.Yu[1], 0.11);
    EXPECT_EQ(lab.run.Tsec, 0);  // nothing was integrated
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "Plan0/Txt1/Tarvex1Ras1.txt"));
    std::filesystem::remove_all(folder.path() / "Dat");
    EXPECT_EQ(screen.told(form->startRun),
              (RecordingScreen::Message{"Ошибка решения уравнений", "Tarvex7mmm"}));
}

}  // namespace tarvex
