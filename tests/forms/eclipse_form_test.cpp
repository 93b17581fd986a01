#include "forms/eclipse_form.h"

#include <signal.h>

#include "forms/et_ut_form.h"
#include "tests/forms/lab_fixture.h"
#include "tests/support/ephemeris_files.h"
#include "tests/support/test_workbook.h"

namespace tarvex {

using test::readBytes;

class Form16Test : public test::LabTest {
protected:
    Form16Test() {
        test::linkEphemeris(folder);
        form.theoryChoice(3).choose();
        screen.messages.clear();
    }
    void stopAfter(int yields) {
        const int goal = screen.yields + yields;
        screen.atYield = [this, goal](int count) {
            if (count >= goal) form.stopRun.press();
        };
    }
    EclipseForm& form = lab.desk.get<EclipseForm>();
};

TEST_F(Form16Test, StepsOverTheEclipseOf2006AndLogsTheOverlap) {
    form.day.setText("29,47");
    form.typedEt1.set(true);  // ET - UT as it was, and the Earth turns by UT
    test::enter(form.typedEt2, true, form.et1MinusUt, "1,0817", form.et2MinusUt, "0", form.logPlaces, true);
    stopAfter(30);
    EXPECT_EQ(screen.said(form.startRun), "");
    EXPECT_EQ(form.day.text(), "29,485");
    const std::string log = readBytes(lab.tree.at("\\Dat\\Param_data.txt"));
    EXPECT_TRUE(
        log.starts_with("планета  № 11   обсерватория JPL2   данные умножены на 1000 \r\n"
                        "дата наблюдения (день с часами, месяц, год), долгота и широта (Солнца потом "
                        "планеты)\r\n 29470  3000  2006000  "))
        << log.substr(0, 300);
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2 + 30);
    form.makeOneStep.press();
    EXPECT_EQ(form.day.text(), "29,4855");
    form.restoreDate.press();
    EXPECT_EQ(form.day.text(), "29,47");
}

TEST_F(Form16Test, EquinoxLog) {
    test::enter(form.day, "20,0", form.stepDays, "0,01", form.logSolstices, true, form.withRefraction, true);
    stopAfter(100);
    EXPECT_EQ(screen.said(form.startRun), "");
    const std::string log = readBytes(lab.tree.at("\\Dat\\TimeYer_data.txt"));
    EXPECT_TRUE(log.starts_with("равноденствия и солнцестояния по JPL2   ГЕО (ТОПО) координаты Солнца"));
}

TEST_F(Form16Test, TheStepsEndWhereTheCalendarEnds) {
    test::enter(form.theoryChoice(4), form.year, "40000");
    EXPECT_EQ(screen.said(form.startRun), "Введите правильно дату");
    EXPECT_EQ(screen.yields, 0) << "no run from a date that is none";
    test::enter(form.year, "32000", form.stepDays, "200000");
    EXPECT_EQ(screen.said(form.startRun), "Введите правильно дату");
    EXPECT_EQ(lab.s.kodStop, 1);
}

TEST_F(Form16Test, OneStepAndTypedClocks) {
    test::enter(form.singleStep, true, form.typedEt1, true, form.typedEt2, true, form.et1MinusUt, "1,5",
                form.et2MinusUt, "-2", form.startRun);
    EXPECT_EQ(screen.yields, 0);
    EXPECT_NEAR((lab.s.JDet - lab.s.JDut0) * 1440, 1.5, 1e-5);
    EXPECT_NEAR((lab.s.JDut - lab.s.JDut0) * 1440, -2, 1e-5);
    EXPECT_EQ(form.et1MinusUt.text(), "1,5");
}

/// The table of Wing with a Sun and a Moon that hang on the hour of the local date.
TEST_F(Form16Test, PlacesOfAnAncientTable) {
    if (!SpreadsheetOffice::available()) GTEST_SKIP() << "built without LibreOffice";
    std::vector<test::SheetCells> sheets(10);
    sheets[0] = {{"G47", "=10+[.F14]/2"}, {"G43", "0.25"}};
    sheets[2] = {{"P19", "10.5"}};
    form.fromTables.choose();
    form.tableChoice(9).choose();  // offered, and does nothing
    EXPECT_EQ(screen.said(form.startRun), "Выберете имитатор");
    form.tableChoice(10).choose();
    EXPECT_TRUE(screen.onlyMessage().text.starts_with("Не найден файл\r\n"));
    test::writeWorkbook(folder.path() / "Tab/Wing.xls", sheets);
    form.tableChoice(10).choose();
    ASSERT_TRUE(screen.messages.empty()) << screen.messages[0].text;
    form.placeLongitude.setText("0");
    form.day.setText("1,5");  // twelve hours after the noon at which the table's day begins
    test::enter(form.singleStep, true, form.typedEt1, true, form.correctPrecession, true, form.startRun);
    ASSERT_TRUE(screen.messages.empty()) << screen.messages[0].text;
    EXPECT_EQ(form.sunStages(0).text(), "");  // a table gives apparent places: no aberration
    EXPECT_NEAR(toNumber(form.sunStages(6).text()), 10.5, 0.01);
    EXPECT_NEAR(toNumber(form.bodyStages(6).text()), 16, 0.1);
    EXPECT_NEAR(toNumber(form.bodyStages(7).text()), 0.25, 1e-5);
    test::enter(form.bodyNumber, "20", form.tableChoice(1));
    EXPECT_TRUE(screen.onlyMessage().text.starts_with("Введите правильно данные"));
    EXPECT_EQ(lab.s.IplSel, 11);
    form.bodyNumber.setText("11");
    lab.s.Diam[0] = 1;
    lab.desk.get<EtUtForm>().sunDiameter.setText("1400");
    form.tableChoice(10).choose();
    EXPECT_EQ(lab.s.Diam[0], 1400e6);  // Form17 takes its fields again
    kill(lab.office.process(), 9);
    EXPECT_EQ(screen.said(form.startRun), "Ошибка вычислений в таблицах");
    form.tableChoice(10).choose();  // the same choice opens it anew
    EXPECT_EQ(screen.said(form.startRun), "");
}

TEST_F(Form16Test, RefusalsAndBadInput) {
    const std::string bad = "Введите правильно данные\r\n(целая часть числа отделяется запятой)";
    form.bodyNumber.setText("3");
    EXPECT_EQ(screen.said(form.startRun), "Землю не наблюдали");
    test::enter(form.bodyNumber, "11", form.theoryChoice(0));
    EXPECT_EQ(screen.said(form.startRun), "Выберете теорию");
    form.theoryChoice(3).choose();
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&form.bodyNumber, "12"},
                                                                   {&form.bodyNumber, ""},
                                                                   {&form.day, "x"},
                                                                   {&form.month, "13"},
                                                                   {&form.month, "0"},
                                                                   {&form.placeLongitude, "восток"},
                                                                   {&form.stepDays, ""},
                                                                   {&form.stepDivider, "0"},
                                                                   {&form.diskScale, "0"},
                                                                   {&form.year, "1e12"}}) {
        EXPECT_EQ(screen.said(form.startRun, *field, text), bad) << field->name() << text;
    }
    // nothing has begun
    EXPECT_EQ(screen.said(form.makeOneStep), "Ошибка решения уравнений");
    form.logPlaces.set(true);
    std::filesystem::remove_all(lab.tree.at("\\Dat"));
    EXPECT_EQ(screen.said(form.startRun), bad);
    // the body spoiled during the run ends it, and nothing but numbers stands in the fields
    test::enter(form.logPlaces, false, form.typedEt1, true);
    screen.atYield = [&](int) { form.et1MinusUt.setText("?"); };
    EXPECT_EQ(screen.said(form.startRun), "Ошибка решения уравнений");
}

}  // namespace tarvex
