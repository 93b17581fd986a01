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
    form.typedEt2.set(true);
    form.et1MinusUt.setText("1,0817");
    form.et2MinusUt.setText("0");
    form.logPlaces.set(true);
    stopAfter(30);
    form.startRun.press();
    EXPECT_TRUE(screen.messages.empty());
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
    form.day.setText("20,0");
    form.stepDays.setText("0,01");
    form.logSolstices.set(true);
    form.withRefraction.set(true);
    stopAfter(100);
    form.startRun.press();
    EXPECT_TRUE(screen.messages.empty());
    const std::string log = readBytes(lab.tree.at("\\Dat\\TimeYer_data.txt"));
    EXPECT_TRUE(log.starts_with("равноденствия и солнцестояния по JPL2   ГЕО (ТОПО) координаты Солнца"));
}

TEST_F(Form16Test, TheStepsEndWhereTheCalendarEnds) {
    form.theoryChoice(4).choose();
    form.year.setText("40000");
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату");
    EXPECT_EQ(screen.yields, 0) << "no run from a date that is none";
    form.year.setText("32000");
    form.stepDays.setText("200000");
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату");
    EXPECT_EQ(lab.s.kodStop, 1);
}

TEST_F(Form16Test, OneStepAndTypedClocks) {
    form.singleStep.set(true);
    form.typedEt1.set(true);
    form.typedEt2.set(true);
    form.et1MinusUt.setText("1,5");
    form.et2MinusUt.setText("-2");
    form.startRun.press();
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
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, "Выберете имитатор");
    form.tableChoice(10).choose();
    EXPECT_TRUE(screen.onlyMessage().text.starts_with("Не найден файл\r\n"));
    test::writeWorkbook(folder.path() / "Tab/Wing.xls", sheets);
    form.tableChoice(10).choose();
    ASSERT_TRUE(screen.messages.empty()) << screen.messages[0].text;
    form.placeLongitude.setText("0");
    form.day.setText("1,5");  // twelve hours after the noon at which the table's day begins
    form.singleStep.set(true);
    form.typedEt1.set(true);
    form.correctPrecession.set(true);
    form.startRun.press();
    ASSERT_TRUE(screen.messages.empty()) << screen.messages[0].text;
    EXPECT_EQ(form.sunStages(0).text(), "");  // a table gives apparent places: no aberration
    EXPECT_NEAR(toNumber(form.sunStages(6).text()), 10.5, 0.01);
    EXPECT_NEAR(toNumber(form.bodyStages(6).text()), 16, 0.1);
    EXPECT_NEAR(toNumber(form.bodyStages(7).text()), 0.25, 1e-5);
    form.bodyNumber.setText("20");
    form.tableChoice(1).choose();
    EXPECT_TRUE(screen.onlyMessage().text.starts_with("Введите правильно данные"));
    EXPECT_EQ(lab.s.IplSel, 11);
    form.bodyNumber.setText("11");
    lab.s.Diam[0] = 1;
    lab.desk.get<EtUtForm>().sunDiameter.setText("1400");
    form.tableChoice(10).choose();
    EXPECT_EQ(lab.s.Diam[0], 1400e6);  // Form17 takes its fields again
    kill(lab.office.process(), 9);
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка вычислений в таблицах");
    form.tableChoice(10).choose();  // the same choice opens it anew
    form.startRun.press();
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form16Test, RefusalsAndBadInput) {
    const std::string bad = "Введите правильно данные\r\n(целая часть числа отделяется запятой)";
    form.bodyNumber.setText("3");
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, "Землю не наблюдали");
    form.bodyNumber.setText("11");
    form.theoryChoice(0).choose();
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, "Выберете теорию");
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
        const std::string good = field->text();
        field->setText(text);
        form.startRun.press();
        EXPECT_EQ(screen.onlyMessage().text, bad) << field->name() << text;
        field->setText(good);
    }
    form.makeOneStep.press();  // nothing has begun
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
    form.logPlaces.set(true);
    std::filesystem::remove_all(lab.tree.at("\\Dat"));
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, bad);
    // the body spoiled during the run ends it, and nothing but numbers stands in the fields
    form.logPlaces.set(false);
    form.typedEt1.set(true);
    screen.atYield = [&](int) { form.et1MinusUt.setText("?"); };
    form.startRun.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
}

}  // namespace tarvex
