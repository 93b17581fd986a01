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
        form.Option9(3).choose();
        screen.messages.clear();
    }
    void stopAfter(int yields) {
        const int goal = screen.yields + yields;
        screen.atYield = [this, goal](int count) {
            if (count >= goal) form.Command4.press();
        };
    }
    EclipseForm& form = lab.desk.get<EclipseForm>();
};

TEST_F(Form16Test, StepsOverTheEclipseOf2006AndLogsTheOverlap) {
    form.Text2.setText("29,47");
    form.Check5.set(true);  // ET - UT as it was, and the Earth turns by UT
    form.Check6.set(true);
    form.Text14.setText("1,0817");
    form.Text15.setText("0");
    form.Check30.set(true);
    stopAfter(30);
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(form.Text2.text(), "29,485");
    const std::string log = readBytes(lab.tree.at("\\Dat\\Param_data.txt"));
    EXPECT_TRUE(
        log.starts_with("планета  № 11   обсерватория JPL2   данные умножены на 1000 \r\n"
                        "дата наблюдения (день с часами, месяц, год), долгота и широта (Солнца потом "
                        "планеты)\r\n 29470  3000  2006000  "))
        << log.substr(0, 300);
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2 + 30);
    form.Command6.press();
    EXPECT_EQ(form.Text2.text(), "29,4855");
    form.Command18.press();
    EXPECT_EQ(form.Text2.text(), "29,47");
}

TEST_F(Form16Test, EquinoxLog) {
    form.Text2.setText("20,0");
    form.Text26.setText("0,01");
    form.Check13.set(true);
    form.Check10.set(true);
    stopAfter(100);
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
    const std::string log = readBytes(lab.tree.at("\\Dat\\TimeYer_data.txt"));
    EXPECT_TRUE(log.starts_with("равноденствия и солнцестояния по JPL2   ГЕО (ТОПО) координаты Солнца"));
}

TEST_F(Form16Test, TheStepsEndWhereTheCalendarEnds) {
    form.Option9(4).choose();
    form.Text4.setText("40000");
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату");
    EXPECT_EQ(screen.yields, 0) << "no run from a date that is none";
    form.Text4.setText("32000");
    form.Text26.setText("200000");
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Введите правильно дату");
    EXPECT_EQ(lab.s.kodStop, 1);
}

TEST_F(Form16Test, OneStepAndTypedClocks) {
    form.Check1.set(true);
    form.Check5.set(true);
    form.Check6.set(true);
    form.Text14.setText("1,5");
    form.Text15.setText("-2");
    form.Command1.press();
    EXPECT_EQ(screen.yields, 0);
    EXPECT_NEAR((lab.s.JDet - lab.s.JDut0) * 1440, 1.5, 1e-5);
    EXPECT_NEAR((lab.s.JDut - lab.s.JDut0) * 1440, -2, 1e-5);
    EXPECT_EQ(form.Text14.text(), "1,5");
}

/// The table of Wing with a Sun and a Moon that hang on the hour of the local date.
TEST_F(Form16Test, PlacesOfAnAncientTable) {
    if (!SpreadsheetOffice::available()) GTEST_SKIP() << "built without LibreOffice";
    std::vector<test::SheetCells> sheets(10);
    sheets[0] = {{"G47", "=10+[.F14]/2"}, {"G43", "0.25"}};
    sheets[2] = {{"P19", "10.5"}};
    form.Option1.choose();
    form.Option4(9).choose();  // offered, and does nothing
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Выберете имитатор");
    form.Option4(10).choose();
    EXPECT_TRUE(screen.onlyMessage().text.starts_with("Не найден файл\r\n"));
    test::writeWorkbook(folder.path() / "Tab/Wing.xls", sheets);
    form.Option4(10).choose();
    ASSERT_TRUE(screen.messages.empty()) << screen.messages[0].text;
    form.Text24.setText("0");
    form.Text2.setText("1,5");  // twelve hours after the noon at which the table's day begins
    form.Check1.set(true);
    form.Check5.set(true);
    form.Check4.set(true);
    form.Command1.press();
    ASSERT_TRUE(screen.messages.empty()) << screen.messages[0].text;
    EXPECT_EQ(form.StagesSun(0).text(), "");  // a table gives apparent places: no aberration
    EXPECT_NEAR(toNumber(form.StagesSun(6).text()), 10.5, 0.01);
    EXPECT_NEAR(toNumber(form.StagesBody(6).text()), 16, 0.1);
    EXPECT_NEAR(toNumber(form.StagesBody(7).text()), 0.25, 1e-5);
    form.Text1.setText("20");
    form.Option4(1).choose();
    EXPECT_TRUE(screen.onlyMessage().text.starts_with("Введите правильно данные"));
    EXPECT_EQ(lab.s.IplSel, 11);
    form.Text1.setText("11");
    lab.s.Diam[0] = 1;
    lab.desk.get<EtUtForm>().Text6.setText("1400");
    form.Option4(10).choose();
    EXPECT_EQ(lab.s.Diam[0], 1400e6);  // Form17 takes its fields again
    kill(lab.office.process(), 9);
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка вычислений в таблицах");
    form.Option4(10).choose();  // the same choice opens it anew
    form.Command1.press();
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form16Test, RefusalsAndBadInput) {
    const std::string bad = "Введите правильно данные\r\n(целая часть числа отделяется запятой)";
    form.Text1.setText("3");
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Землю не наблюдали");
    form.Text1.setText("11");
    form.Option9(0).choose();
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Выберете теорию");
    form.Option9(3).choose();
    for (const auto& [field, text] :
         std::initializer_list<std::pair<TextField*, const char*>>{{&form.Text1, "12"},
                                                                   {&form.Text1, ""},
                                                                   {&form.Text2, "x"},
                                                                   {&form.Text3, "13"},
                                                                   {&form.Text3, "0"},
                                                                   {&form.Text24, "восток"},
                                                                   {&form.Text26, ""},
                                                                   {&form.Text8, "0"},
                                                                   {&form.Text27, "0"},
                                                                   {&form.Text4, "1e12"}}) {
        const std::string good = field->text();
        field->setText(text);
        form.Command1.press();
        EXPECT_EQ(screen.onlyMessage().text, bad) << field->name() << text;
        field->setText(good);
    }
    form.Command6.press();  // nothing has begun
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
    form.Check30.set(true);
    std::filesystem::remove_all(lab.tree.at("\\Dat"));
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, bad);
    // the body spoiled during the run ends it, and nothing but numbers stands in the fields
    form.Check30.set(false);
    form.Check5.set(true);
    screen.atYield = [&](int) { form.Text14.setText("?"); };
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Ошибка решения уравнений");
}

}  // namespace tarvex
