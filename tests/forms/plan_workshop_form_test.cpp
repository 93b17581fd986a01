#include "forms/plan_workshop_form.h"

#include "forms/plan_tests_help_form.h"
#include "stats/stat.h"
#include "stats/test_plan.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

using Message = test::RecordingScreen::Message;

struct Form18Test : test::LabTest {
    Form18Test() : form(lab.desk.get<PlanWorkshopForm>()) {}

    void create(OptionButton& kind, int Nf) {
        kind.choose();
        for (int i = 1; i <= 6; ++i) form.Check3(i).set(i <= Nf);
        form.Command14.press();
    }
    bool printed(const std::string& text) {
        for (const auto& item : test::drawnOn(form.Picture1))
            if (item.text == text) return true;
        return false;
    }
    void expectMessage(const std::string& text) {
        EXPECT_EQ(screen.onlyMessage(), (Message{text, "Tarvex7m"}));
    }

    PlanWorkshopForm& form;
};

}  // namespace

TEST_F(Form18Test, PlanNeedsTwoToSixFactorsInOrder) {
    create(form.Option12, 1);
    expectMessage("К-во факторов должно быть от 2 до 6");
    form.Check3(3).set(true);
    form.Command14.press();
    expectMessage("Факторы должны быть отмечены по порядку");

    form.Check1.set(true);
    form.Text5.setText("13");
    create(form.Option13, 2);
    expectMessage("Ошибка при составление плана");
    form.Command4.press();  // 21 points stand, 20 are filled: no plan to run safely
    EXPECT_LE(screen.messages.size(), 1u);
    screen.messages.clear();
    form.Text5.setText("200");
    form.Command14.press();
    expectMessage("Ошибка при составление плана");
    form.Command4.press();
    expectMessage("Введите правильно нулевые уровни и интервалы");
}

TEST_F(Form18Test, CreatedPlanIsPrintedWithItsCoefficients) {
    create(form.Option14, 2);
    for (const char* text :
         {"табличные коэффициенты  k1= 0,2  k2= 0,1  k3= 0,125  k4= 0,25  k5= 0,1251  k6= 0,0187  k7= 0,1",
          "расчетные коэффициенты  k1= 0,2  k2= 0,1  k3= 0,125  k4= 0,25  k5= 0,125  k6= 0,0187  k7= 0,1",
          "к-во точек ядра=          4", "к-во точек плана=         13", "la2=  0,615384615384615", "   EXi4",
          "1,41"})
        EXPECT_TRUE(printed(text)) << text;
}

TEST_F(Form18Test, CriterionFormsAndTheirDivisor) {
    struct Case {
        OptionButton* form;
        bool relative;
        double atFour, optimum;
    };
    // test 2, Y = X1 + X1^2, of a plan of two factors: Yopt 2; X1 = 1, 0, -1 gives 2, 0, 0
    create(form.Option12, 2);
    form.Option8.choose();
    EXPECT_TRUE(lab.desk.isLoaded("Form8"));
    lab.desk.get<PlanTestsHelpForm>().Option2.choose();
    const Case cases[] = {{&form.Option18, false, 0, 0}, {&form.Option18, true, 0, 0},
                          {&form.Option19, true, -1, 0}, {&form.Option20, true, 2, 0},
                          {&form.Option21, true, 1, 0},  {&form.Option20, false, 4, 0}};
    for (const Case& c : cases) {
        c.form->choose();
        form.Check4.set(c.relative);
        form.Command4.press();
        EXPECT_TRUE(screen.messages.empty());
        EXPECT_DOUBLE_EQ(lab.plan.Yu[4], c.atFour);
        EXPECT_EQ(form.Text6.text(), "2");
    }
    // the optimum divides inside the square and takes the number of terms, 6, for Yopt
    form.Option20.choose();
    form.Check4.set(true);
    lab.plan.b = {3, 0, 0, 0, 1, 1};
    form.Command5.press();
    EXPECT_DOUBLE_EQ(lab.plan.Yu[1], 0.25);
    form.Option21.choose();
    form.Command9.press();
    EXPECT_EQ(form.Text9.text(), "0,5");
}

TEST_F(Form18Test, RefusedStepsSayWhy) {
    create(form.Option15, 3);  // can be created, not fitted
    form.Command1.press();
    expectMessage("D план только для 4-х или 5-и факторов");

    create(form.Option12, 4);
    form.Option8.choose();
    lab.desk.get<PlanTestsHelpForm>().Option5.choose();
    form.Command4.press();
    expectMessage("Деление на ноль в эксперименте  17");
    EXPECT_NE(lab.plan.Yu[16], 0);  // earlier experiments keep their criterion
    for (int i = 1; i <= 6; ++i) form.Text2(i).setText("0");
    form.Option6.choose();
    form.Command4.press();  // a constant criterion has no scale
    expectMessage("Ошибка при расчетах");
    form.Command1.press();
    EXPECT_NE(form.Label1.caption().find("не определен"), std::string::npos);
    screen.messages.clear();
    lab.plan.b = {};
    form.Command5.press();
    expectMessage("Ошибка при решение системы линейных уравнений");
    form.Text20.setText("0");
    form.Command13.press();
    expectMessage("Ошибка при построение графиков");
}

TEST_F(Form18Test, CriterionComesFromTheFileOfTestExperiments) {
    create(form.Option12, 2);
    form.Option7.choose();
    form.Command4.press();
    expectMessage("Не могу найти файл\r\n\\Dat\\NabPlan2.txt");
    PlanBlock p = lab.plan;
    p.Xnul[1] = 0.5;
    p.dXvar[2] = 3;
    writeTestPlanHead(lab.tree, p, false);
    form.Command4.press();
    expectMessage("Ошибка чтения данных из файла\r\n\\Dat\\NabPlan2.txt");
    for (int u = 1; u <= 9; ++u) appendTestExperiment(lab.tree, p, u, u);
    form.Command4.press();
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(form.Text1(1).text(), "0,5");
    EXPECT_EQ(form.Text2(2).text(), "3");
    EXPECT_EQ(lab.plan.Yu[9], 9);
    create(form.Option13, 2);
    form.Command4.press();
    expectMessage("Не верное количество факторов или экспериментов в файле\r\n\\Dat\\NabPlan2.txt");
}

TEST_F(Form18Test, KindOfTheStationaryPointIsTold) {
    form.Command5.press();
    EXPECT_EQ(form.Label2.caption(), " ");  // no plan, nothing to tell
    create(form.Option13, 2);
    struct Case {
        double b11, b22, b12;
        const char* text;
    };
    for (const Case& c : {Case{1, 2, 0.5, "минимум, внутри области плана"},
                          {-1, -2, 0.5, "максимум, внутри области плана"},
                          {1, 1, 3, "седло - не оптимум, внутри области плана"},
                          {1, -1, 0, "седло - не оптимум, внутри области плана"}}) {
        lab.plan.b = {0, 0, 0, c.b12, c.b11, c.b22};
        form.Command5.press();
        EXPECT_EQ(form.Label2.caption(), std::string("Стационарная точка: ") + c.text);
    }
}

}  // namespace tarvex
