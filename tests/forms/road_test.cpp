// The natural next press: from a run to its statistics and to the plan, stop and continue, what a step of the
// plan needs.

#include "forms/elements_form.h"
#include "forms/plan_form.h"
#include "forms/run_form.h"
#include "forms/statistics_form.h"
#include "runtime/resting_commands.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

struct RoadTest : test::LabTest {
    RoadTest() {
        folder.makeFolder("Plan0/Txt1");
        lab.desk.show("Form1");
        lab.desk.get<ElementsForm>().openRun.press();
        run = &lab.desk.get<RunForm>();
        test::enter(run->measureOrbit, true, run->writeRecords, true, run->endAtYear, true, run->lastYear,
                    "1803", run->experimentNumber, "7");
    }
    RunForm* run;
};

}  // namespace

TEST_F(RoadTest, StatisticsOpenOnTheRunJustMadeUnlessTheyAreInUse) {
    test::enter(run->startRun, run->openStatistics);
    auto& statistics = lab.desk.get<StatisticsForm>();
    EXPECT_TRUE(statistics.fromModel.on());
    EXPECT_TRUE(statistics.planet(1).on());
    EXPECT_EQ(test::texts(statistics.planNumber, statistics.experimentNumber), "0 | 7");
    EXPECT_EQ(lab.series.kodData, dataModel);
    EXPECT_GT(lab.series.records.size(), 5u);
    EXPECT_TRUE(screen.questions.empty());
    EXPECT_TRUE(screen.messages.empty());
    const double years = lab.series.records.back().dTd / 365.25, scale = statistics.timeScale.number();
    EXPECT_LT(years / scale, 27);
    EXPECT_GT(years / scale, 10);

    lab.desk.unload("Form6");
    test::enter(run->experimentNumber, "8", run->startRun);
    lab.desk.get<StatisticsForm>().timeScale.setText("3");
    run->openStatistics.press();
    EXPECT_EQ(lab.desk.get<StatisticsForm>().experimentNumber.text(), "1");
    EXPECT_EQ(lab.desk.get<StatisticsForm>().timeScale.text(), "3");
}

TEST_F(RoadTest, ARunThatRecordedNothingIsToldInTheStatusLine) {
    run->lastYear.setText("1801");
    std::filesystem::remove_all(folder.path() / "Plan0");
    folder.makeFolder("Plan0/Txt1");
    run->startRun.press();
    std::filesystem::remove(folder.path() / "Plan0/Txt1/Tarvex1Ras7.txt");
    run->openStatistics.press();
    EXPECT_NE(lab.desk.get<StatisticsForm>().status().find("Прогон еще ничего не записал"),
              std::string::npos);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(RoadTest, CommandsAreOfferedWhenTheyCanDoSomething) {
    const auto offered = [this] {
        return std::string(isOffered(run->stopRun) ? "s" : "-") + (isOffered(run->continueRun) ? "c" : "-") +
               (isOffered(run->runSteps) ? "n" : "-");
    };
    EXPECT_EQ(offered(), "---");
    std::string during;
    screen.atYield = [&](int n) {
        during = offered();
        if (n == 2) run->stopRun.press();
    };
    run->startRun.press();
    EXPECT_EQ(during, "s--");
    EXPECT_EQ(offered(), "-cn");
    screen.atYield = nullptr;
    run->continueRun.press();
    EXPECT_EQ(run->status(), "");
    run->continueRun.press();
    EXPECT_EQ(run->status(), "Прогон уже дошел до года окончания 1803: задайте более поздний");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(RoadTest, TheCriterionLeadsToTheFormThatMakesItsShifts) {
    auto& plan = lab.desk.get<PlanForm>();
    test::enter(plan.usePlanet(1), true, plan.createPlan);
    for (const auto& [command, wanted] :
         {std::pair{&plan.fitCoefficients, "команда 4-2"}, std::pair{&plan.optimizeFactors, "команда 5"}}) {
        command->press();
        EXPECT_NE(plan.status().find(wanted), std::string::npos) << plan.status();
    }
    test::enter(plan.criterionScale, "0", plan.drawPlots);
    EXPECT_NE(plan.status().find("масштаб M - нуль"), std::string::npos) << plan.status();
    screen.messages.clear();
    lab.series.kodData = dataImitator;
    test::enter(plan.planNumber, "3", plan.findCriterion);
    EXPECT_EQ(screen.onlyMessage().text.find("Ошибка чтения данных из файла"), 0u);
    EXPECT_NE(plan.status().find("на форме 6"), std::string::npos) << plan.status();
    EXPECT_EQ(screen.shown.back(), "Form6");
    EXPECT_TRUE(lab.desk.get<StatisticsForm>().wholePlan.on());
    EXPECT_EQ(lab.desk.get<StatisticsForm>().planNumber.text(), "3");  // where the batch has its records
    EXPECT_EQ(lab.series.kodData, dataImitator);
}

}  // namespace tarvex
