#include "forms/plan_form.h"

#include "forms/plan_workshop_form.h"
#include "forms/statistics_form.h"
#include "forms/weights_form.h"
#include "stats/plan_file.h"
#include "stats/stat.h"
#include "stats/test_plan.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

using Told = test::RecordingScreen::Message;

/// What an experiment starts from.
struct Started {
    int Nexp;
    std::string number;
    double Vgr, VX, VY, VZ, kPgr1, kPgr2, m5, m2;
    std::int16_t kodDX, kodPgr, NPlan;
    void* stack;
};

/// Stands in for the form of the experiment: it notes what each run starts from, and ends it as the real form
/// does.
class StandInForm2 final : public Form, public RunScreen {
public:
    explicit StandInForm2(Laboratory& lab_, std::vector<Started>& runs_)
        : Form(lab_.desk, RunScreen::formName, "стенд"), lab(lab_), runs(runs_) {}
    RunSettings settings() const override { return {}; }
    void chooseForPlan(bool finite) override { finiteSpeed = finite; }
    bool runOfPlan(int number, double gravitySpeed) override {
        experiment = std::to_string(number);
        bool ended = false;
        guarded({[&] { ended = run(gravitySpeed); }, orShow("прогон", "стенд")});
        return ended;
    }
    std::string body() const override { return measured; }
    void setBody(const std::string& typed) override { measured = typed; }

    bool finiteSpeed = false;
    std::string experiment, measured;
    int failAt = 0, stopAt = 0;
    std::function<void()> record;  ///< writes what a run measures

private:
    bool run(double gravitySpeed) {
        PlanBlock& p = lab.plan;
        ModelState& s = lab.s;
        runs.push_back({p.Nexp, experiment, gravitySpeed, s.VXsys, s.VYsys, s.VZsys, lab.motion.kPgr1,
                        lab.motion.kPgr2, s.m[5], s.m[2], lab.motion.kodDX, lab.motion.kodPgr, s.NPlan,
                        __builtin_frame_address(0)});
        lab.run.kodTest = screenOf<PlanScreen>(lab.desk).testsPlan();
        if (record) record();
        if (p.Nexp == failAt) throw Failure("no more");
        if (p.Nexp != stopAt) return true;
        s.NPlan = 0;
        p.Nexp = p.Nplan;
        return false;
    }
    Laboratory& lab;
    std::vector<Started>& runs;
};

struct Form15Test : test::LabTest {
    Form15Test() {
        lab.desk.add("Form2", [this] { return std::make_unique<StandInForm2>(lab, runs); });
        folder.makeFolder("Plan1");
        lab.s.m[0] = 2e30;
        form = &lab.desk.get<PlanForm>();
        for (int i = 1; i <= 7; ++i) form->zeroLevel(i).setText(i <= 5 ? "1" : "1000");
    }
    StandInForm2& form2() { return static_cast<StandInForm2&>(lab.desk.form("Form2")); }
    void create(std::initializer_list<int> factors) {
        for (int i = 1; i <= 7; ++i)
            form->useFactor(i).set(std::find(factors.begin(), factors.end(), i) != factors.end());
        form->createPlan.press();
    }
    void expectMessage(CommandButton& pressed, const std::string& text) {
        EXPECT_EQ(screen.told(pressed), (Told{text, "Tarvex7m"}));
    }
    void expectMessage(const std::string& text) { EXPECT_EQ(screen.onlyMessage(), (Told{text, "Tarvex7m"})); }

    std::vector<Started> runs;
    PlanForm* form = nullptr;
};

}  // namespace

TEST_F(Form15Test, PlanNeedsTwoToSixFactors) {
    create({5});
    expectMessage("К-во факторов должно быть от 2 до 6");
    create({1, 2, 3, 4, 5, 6, 7});
    expectMessage("К-во факторов должно быть от 2 до 6");
    // seven factors are no plan
    expectMessage(form->fitCoefficients, "Ошибка при рассчете коэффициентов");
    expectMessage(form->optimizeFactors, "Ошибка при решение системы линейных уравнений");
}

TEST_F(Form15Test, ExperimentsRunInOrderFromWhatThePlanSets) {
    create({2, 4});
    test::enter(form->zeroLevel(4), "10", form->interval(4), "2", form->zeroLevel(5), "0", form->planNumber,
                "3", form->firstExperiment, "2", form->lastExperiment, "4");
    EXPECT_EQ(screen.said(form->runExperiments), "");
    ASSERT_EQ(runs.size(), 3u);
    const double VY[] = {2, 0, 0}, Vgr[] = {8, 12, 8};  // points 2, 3, 4: (+,-) (-,+) (-,-)
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(runs[i].Nexp, 2 + i);
        EXPECT_EQ(runs[i].number, std::to_string(2 + i));
        EXPECT_EQ(runs[i].VX, 1);
        EXPECT_EQ(runs[i].VY, VY[i]);
        EXPECT_EQ(runs[i].Vgr, Vgr[i]);
        EXPECT_EQ(runs[i].stack, runs[0].stack);  // one after the other, however many
        EXPECT_EQ(runs[i].kodDX, 2);
        EXPECT_EQ(runs[i].kodPgr, 0);  // no factor 5 and its level 0
        EXPECT_EQ(runs[i].NPlan, 3);
        EXPECT_DOUBLE_EQ(runs[i].m5, 2e27);
    }
    EXPECT_EQ(lab.s.NPlan, 0);
    EXPECT_EQ(form->firstExperiment.text(), "5");
    EXPECT_EQ(screen.notices.size(), 1u);

    form->runExperiments.press();  // 5 is above 4: nothing starts
    EXPECT_EQ(runs.size(), 3u);
    EXPECT_EQ(screen.notices.size(), 2u);
    EXPECT_EQ(lab.s.NPlan, 0);

    form->finiteGravitySpeed.set(true);  // with the speed of gravity, and with law 5
    test::enter(form->zeroLevel(5), "0,5", form->firstExperiment, "4", form->runExperiments);
    EXPECT_TRUE(form2().finiteSpeed);
    EXPECT_EQ(runs.back().kodPgr, 5);
    EXPECT_EQ(runs.back().kPgr2, 0.5);
    test::enter(form->secondCoefficientZero, true, form->firstExperiment, "4", form->runExperiments);
    EXPECT_EQ(runs.back().kPgr1, 0.5);
    EXPECT_EQ(runs.back().kPgr2, 0);
}

TEST_F(Form15Test, ElementsThatForm1HasNotHandedOverAreTakenAtTheRun) {
    create({2, 4});
    form->lastExperiment.setText("1");
    lab.s.AlfaP0[1] = 1.25;
    form->runExperiments.press();
    EXPECT_EQ(lab.s.ElemStart[1][1], 1.25);
    EXPECT_EQ(form->planStatus.caption(), "Элементы орбит для измерений взяты с формы 1");
    lab.s.AlfaP0[1] = 2.5;  // of other data, not handed over: the run keeps what it was given
    form->runExperiments.press();
    EXPECT_EQ(lab.s.ElemStart[1][1], 1.25);
}

TEST_F(Form15Test, AnErrorOrAStopEndsTheBatch) {
    create({1, 4});
    form->testExperiments.choose();
    form2().failAt = 3;
    form->runExperiments.press();
    EXPECT_EQ(runs.size(), 3u);
    EXPECT_EQ(screen.onlyMessage().text, "прогон");
    EXPECT_EQ(lab.s.NPlan, 0);
    EXPECT_EQ(lab.run.kodTest, 0);
    form2().failAt = 0;
    form2().stopAt = 2;
    test::enter(form->firstExperiment, "1", form->runExperiments);
    EXPECT_EQ(runs.size(), 5u);
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(lab.s.NPlan, 0);

    for (const auto& [field, text] : {std::pair{&form->zeroLevel(7), "0"},
                                      {&form->interval(1), "x"},
                                      {&form->firstExperiment, "0"},
                                      {&form->lastExperiment, "x"},
                                      {&form->planNumber, ""}}) {
        const std::string old = field->text();
        field->setText(text);
        expectMessage(form->runExperiments, "Ошибка при выполнение плана");
        EXPECT_EQ(lab.s.NPlan, 0);
        field->setText(old);
    }
    form->firstExperiment.setText("10");  // beyond the nine points of the plan
    form->lastExperiment.setText("12");
    expectMessage(form->runExperiments, "Ошибка при выполнение плана");
}

TEST_F(Form15Test, CriterionOfTheModelNeedsObservedAndCalculatedShifts) {
    create({1, 4});
    expectMessage(form->findCriterion, "Загрузите данные наблюдений");
    form->ownImitator.choose();
    expectMessage(form->loadObservedShifts, "Не могу найти файл \\Ser\\TarvexNab.dat");
    test::writeBytes(lab.tree.at("\\Ser\\TarvexNab.dat"), "а\r\nб\r\n 1  2 \r\n");
    expectMessage(form->loadObservedShifts, "Ошибка при чтении данных из файла \\Ser\\TarvexNab.dat");
    expectMessage(form->findCriterion, "Загрузите данные наблюдений");
    lab.shifts.dNab[1][1] = 500;
    writeObservedShifts(lab.tree, "\\Ser", lab.shifts);
    form->loadObservedShifts.press();
    lab.s.NPlan = 1;
    expectMessage(form->findCriterion, "Ошибка чтения данных из файла \\Plan1\\Tarvex1Ras.dat");
    writePlanShifts(lab.tree, 1, 1, lab.shifts, 8);
    expectMessage(form->findCriterion,
                  "К-во экспериментов в плане не равно к-ву в файле \r\n\\Plan1\\Tarvex1Ras.dat");

    for (int u = 1; u <= 9; ++u) {  // 500 + 10 x1 + 20 x2 + 5 x1^2 + 4 x2^2
        const double a = lab.plan.PlanX[1][u], b = lab.plan.PlanX[2][u];
        lab.shifts.dRas[1][1][u] = 500 + 10 * a + 20 * b + 5 * a * a + 4 * b * b;
    }
    lab.shifts.Ves[1][1] = 100;
    writePlanShifts(lab.tree, 1, 1, lab.shifts, 9);
    test::enter(form->criterionIsShift, form->interval(4), "0,1");
    form->runExperiments.press();  // takes the levels over; the stand-in runs at once
    screen.notices.clear();
    lab.s.NPlan = 1;
    for (CommandButton* step :
         {&form->findCriterion, &form->fitCoefficients, &form->optimizeFactors, &form->drawPlots})
        step->press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_NEAR(lab.plan.b[0], 500, 1e-9);
    EXPECT_EQ(form->optimum(4).text(), "0,75");
    EXPECT_EQ(form->stationaryPoint.caption(), "Стационарная точка: минимум; точка вне области плана по X4");

    lab.s.NPlan = 0;
    expectMessage(form->findCriterion, "Ошибка чтения данных из файла \\Plan0\\Tarvex1Ras.dat");
    EXPECT_EQ(form->planStatus.caption(), "Критерий по файлам плана № 0 (в поле плана № 1)");
    lab.s.NPlan = 1;
    form->usePlanet(2).set(true);  // a planet with no observed shift
    writePlanShifts(lab.tree, 1, 2, lab.shifts, 9);
    form->criterionIsDifference.choose();
    expectMessage(form->findCriterion, "Ошибка при обработке данных");
    lab.shifts.dNab[1][1] = 7;  // a fit on the form of the series meanwhile
    lab.desk.show("Form6");
    lab.desk.show("Form15");
    EXPECT_NE(form->planStatus.caption().find("изменились"), std::string::npos);
}

TEST_F(Form15Test, ShiftsAreSolvedConfirmedAndFollowedByASmallerPlan) {
    expectMessage(form->solveShifts, "Загрузите данные наблюдений");
    create({1, 4});
    for (int i = 1; i <= 4; ++i) form->zeroLevel(i).setText(i == 4 ? "200" : i == 3 ? "0" : "100");
    test::enter(form->interval(1), "50", form->interval(4), "40", form->useParameter(2), true);
    const auto drift = [](int c, double VX, double Vgr) {  // linear in VX/Vgr and 1/Vgr
        return 500 * c + (c == 1 ? 30 : -8) * VX / Vgr + (c == 1 ? 1000 : 5000) / Vgr;
    };
    for (int c = 1; c <= 2; ++c) {
        lab.shifts.dNab[1][c] = drift(c, 120, 230);
        lab.shifts.dNabErr[1][c] = 0.1;
        for (int u = 1; u <= 9; ++u)
            lab.shifts.dRas[1][c][u] =
                drift(c, 100 + 50 * lab.plan.PlanX[1][u], 200 + 40 * lab.plan.PlanX[2][u]);
    }
    writePlanShifts(lab.tree, 1, 1, lab.shifts, 9);
    writeObservedShifts(lab.tree, "\\Ser", lab.shifts);
    writeObservedErrors(lab.tree, "\\Ser", lab.shifts);
    test::enter(form->ownImitator, form->loadObservedShifts);
    lab.shifts.dNab[1][1] = 7;  // a fit meanwhile: the answer stands on what was loaded
    expectMessage(form->confirmSolution, "Сначала решите по смещениям");
    EXPECT_EQ(screen.said(form->solveShifts), "");
    EXPECT_NEAR(form->solvedVX.value.number(), 120, 0.01);
    EXPECT_NEAR(form->solvedVgr.value.number(), 230, 0.01);
    EXPECT_GT(form->solvedVgr.error.number(), 0);
    EXPECT_EQ(form->solvedVY.value.text() + form->solvedVgrLow.text(), "");
    EXPECT_EQ(form->freedom.text(), "0");
    EXPECT_NE(form->verdict.text().find("определено только V/Vgr: заданы VY, VZ"), std::string::npos);
    EXPECT_NE(lab.answer.SolvedCorrelation[1][4], 0);

    folder.makeFolder("Plan1/Txt1");
    form2().setBody("5");
    form2().record = [this] {  // what the run at the solution measures: 36 seconds a year
        EXPECT_EQ(form2().body(), "1");
        std::string text = "а\r\nб\r\nв\r\nг\r\n 5  245154450 \r\n";
        for (int i = 0; i < 5; ++i)
            text += fileItem(i + 3) + fileItem(36525 * i) + fileItem(1e6 * i) + " 0  0  0  0  0 \r\n";
        test::writeBytes(lab.tree.at("\\Plan1\\Txt1\\Tarvex1Ras" + form2().experiment + ".txt"), text);
    };
    EXPECT_EQ(screen.said(form->confirmSolution), "");
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].number, "10");
    EXPECT_NEAR(runs[0].VX, 120, 0.01);
    EXPECT_EQ(form2().body() + form->firstExperiment.text(), "51");
    EXPECT_NEAR(lab.answer.Measured[1][1], 3600, 1e-6);
    EXPECT_NEAR(lab.answer.Predicted[1][2], drift(2, 120, 230), 1e-5);
    // measured as the drifts of the plan were fitted: an oscillation by Jupiter is no drift where Form6 fits
    // with periods
    const auto jupiter = [](int i) { return 1e6 * std::sin(2 * 2 * Pi * 87.969 * i / 4332.59); };
    form2().record = [&] {
        std::string text = "а\r\nб\r\nв\r\nг\r\n 90  245154450 \r\n";
        for (int i = 0; i < 90; ++i)
            text += fileItem(i + 3) + fileItem(std::round(8796.9 * i)) +
                    fileItem(std::round(1e6 * 87.969 * i / 365.25 + jupiter(i))) + " 0  0  0  0  0 \r\n";
        test::writeBytes(lab.tree.at("\\Plan1\\Txt1\\Tarvex1Ras" + form2().experiment + ".txt"), text);
    };
    form->confirmSolution.press();
    const double line = lab.answer.Measured[1][1] - 3600;
    lab.desk.get<StatisticsForm>().withPeriods.set(true);
    form->confirmSolution.press();
    EXPECT_GT(std::abs(line), 5);
    EXPECT_LT(std::abs(lab.answer.Measured[1][1] - 3600), std::abs(line) / 4);
    form2().failAt = 10;
    EXPECT_EQ(screen.told(form->confirmSolution), (Told{"прогон", "стенд"}));
    EXPECT_EQ(form2().body(), "5");  // the body that was measured before
    form->nextPlan.press();
    EXPECT_EQ(form->interval(1).text() + " " + form->interval(4).text(), "25 20");
    EXPECT_NEAR(form->zeroLevel(4).number(), 230, 0.01);

    create({1, 2, 3, 4});
    // the files are those of nine experiments
    expectMessage(form->solveShifts,
                  "К-во экспериментов в плане не равно к-ву в файле \r\n\\Plan1\\Tarvex1Ras.dat");
    EXPECT_EQ(form->verdict.text() + form->solvedVX.value.text(), "");
}

TEST_F(Form15Test, TestCriterionRunsOverTheCodes) {
    create({1, 4});
    test::enter(form->testExperiments, form->criterionIsSquare);
    lab.plan.Yras[1] = 77;
    EXPECT_EQ(screen.said(form->findCriterion), "");
    EXPECT_EQ(lab.plan.Yras[1], 77);  // of the last fit
    EXPECT_EQ(lab.plan.Yu[1], 0);     // six terms of 1 at (1, 1), Yopt is 6
    EXPECT_DOUBLE_EQ(lab.plan.Yu[9], 25 / 36.0);
}

TEST_F(Form15Test, PlanFileIsSavedAndLoadedWithItsWeights) {
    create({1, 4});
    form->planNumber.setText("7");
    expectMessage(form->loadPlan, "Не могу найти файл \\Plan7\\TarvexPlan7.dat");
    expectMessage(form->savePlan, "Ошибка при записи данных в файл \\Plan7 \\TarvexPlan7.dat");
    form->planNumber.setText("x");
    expectMessage(form->savePlan, "Задайте правильно номер плана");
    test::enter(form->planNumber, "1", form->zeroLevel(4), "9", form->interval(4), "0,5",
                form->codedOptimum(6), "-0,125");
    lab.shifts.Ves[10][6] = 0.75;
    test::enter(form->savePlan, form->zeroLevel(4), "0");
    lab.shifts.Ves = {};
    EXPECT_EQ(screen.said(form->loadPlan), "");
    EXPECT_EQ(
        form->zeroLevel(4).text() + " " + form->currentLevel(4).text() + " " + form->codedOptimum(6).text(),
        "9 9,5 -0,125");
    EXPECT_EQ(form->currentLevel(5).text(), "1");  // not in the plan: its zero level
    EXPECT_EQ(lab.shifts.Ves[10][6], 0.75);
    // points that were added come back with the file, also through the form of the weights; other plans take
    // none
    test::enter(form->quality.addPoints, form->codedOptimum(1), "0,3", form->quality.growPlan);
    const auto grown = lab.plan.PlanX;
    form->savePlan.press();
    auto& weights = lab.desk.get<WeightsForm>();
    test::enter(weights.planNumber, "1", weights.loadWeightFile, weights.saveWeightFile);
    create({1, 4});
    EXPECT_EQ(lab.plan.Nplan, 9);
    form->loadPlan.press();
    EXPECT_EQ(lab.plan.Nplan, 17);
    for (int c = 1; c <= 5; ++c)
        for (int u = 1; u <= 17; ++u) EXPECT_NEAR(lab.plan.PlanX[c][u], grown[c][u], 1e-12) << c << " " << u;
    EXPECT_EQ(form->lastExperiment.text(), "17");
    create({1, 2, 4});
    const int points = lab.plan.Nplan;
    form->loadPlan.press();
    EXPECT_EQ(lab.plan.Nplan, points);
    EXPECT_NE(form->status().find("для 2 факторов"), std::string::npos);
    EXPECT_TRUE(screen.messages.empty());
    test::writeBytes(lab.tree.at("\\Plan1\\TarvexPlan1.dat"), "а\r\n");
    expectMessage(form->loadPlan, "Ошибка при чтении данных из файла \\Plan1\\TarvexPlan1.dat");
}

TEST_F(Form15Test, Form19EditsWeightsAndModelData) {
    auto& weights = lab.desk.get<WeightsForm>();
    EXPECT_EQ(lab.s.NPlan, 1);
    expectMessage(weights.loadWeightFile, "Не могу найти файл \\Plan1\\TarvexPlan1.dat");
    test::enter(form->savePlan, weights.inclinationWeight(4), "0,5", weights.saveWeightFile,
                weights.inclinationWeight(4), "1", weights.loadWeightFile);
    EXPECT_EQ(weights.inclinationWeight(4).text(), "0,5");
    weights.inclinationWeight(4).setText("x");
    expectMessage(weights.saveWeightFile, "Задайте правильно данные");

    weights.viewedPlanet(3).choose();
    expectMessage(weights.loadShiftFile, "Не могу найти файл \\Plan1\\Tarvex3Ras.dat");
    for (int u = 1; u <= 5; ++u) lab.shifts.dRas[3][2][u] = u;
    writePlanShifts(lab.tree, 1, 3, lab.shifts, 5);
    test::enter(weights.experimentNumber, "4", weights.loadShiftFile);
    EXPECT_EQ(weights.recordsRead.text() + " " + weights.nodeShift(3).text() + " " +
                  weights.perihelionShift(3).text(),
              "5 4 0");
    test::enter(weights.nodeShift(3), "42,5", weights.saveShiftFile);
    EXPECT_EQ(screen.said(weights.loadShiftFile), "");
    EXPECT_EQ(weights.nodeShift(3).text(), "0,0000425");  // written as it stands, without its scale
    const std::string bytes = test::readBytes(lab.tree.at("\\Plan1\\Tarvex3Ras.dat"));
    test::writeBytes(lab.tree.at("\\Plan1\\Tarvex3Ras.dat"), bytes.substr(0, bytes.size() - 12));
    expectMessage(weights.loadShiftFile, "Ошибка при чтении данных из файла \\Plan1\\Tarvex3Ras.dat");
    EXPECT_EQ(weights.recordsRead.text(), "4");
    weights.experimentNumber.setText("92");
    expectMessage(weights.saveShiftFile, "Задайте правильно данные");
}

// The real form of the experiment in the place of the stand-in.
using PlanOnForm2Test = test::LabTest;
TEST_F(PlanOnForm2Test, AWholePlanInTestModeRunsOnForm2) {
    lab.desk.show("Form1");
    auto& form = lab.desk.get<PlanForm>();
    for (int i = 1; i <= 7; ++i) {
        form.useFactor(i).set(i <= 3);
        form.zeroLevel(i).setText(i <= 4 ? "120" : i == 5 ? "1" : "1000");
        form.interval(i).setText("10");
    }
    test::enter(form.rotatablePlan, form.createPlan, form.testExperiments, form.runExperiments);
    EXPECT_TRUE(screen.messages.empty()) << screen.messages.front().text;
    EXPECT_EQ(form.firstExperiment.text(), "17");  // 16 points of the rotatable plan are done
    EXPECT_EQ(lab.s.NPlan, 0);
    PlanBlock read = lab.plan;
    read.Yu = {};
    ASSERT_TRUE(readTestPlan(lab.tree, read));
    for (int u = 1; u <= 16; ++u) {
        EXPECT_GT(lab.plan.Yu[u], 0);
        EXPECT_NEAR(read.Yu[u], lab.plan.Yu[u], 1e-6);
        EXPECT_NEAR(lab.plan.Yu[u], testCriterion(lab.plan, u, lab.run.kmTest5, lab.run.kmTest2), 1e-12);
    }
    auto& bench = lab.desk.get<PlanWorkshopForm>();  // fitted where such files are fitted
    for (int i = 1; i <= 3; ++i) bench.useFactor(i).set(true);
    test::enter(bench.rotatablePlan, bench.criterionFromFile);
    for (CommandButton* step :
         {&bench.createPlan, &bench.runExperiments, &bench.fitCoefficients, &bench.optimizeFactors})
        step->press();
    EXPECT_TRUE(screen.messages.empty());
    for (int i = 1; i <= 3; ++i) EXPECT_NEAR(bench.optimum(i).number(), 50, 1e-2);
}

}  // namespace tarvex
