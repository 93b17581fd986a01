#include "forms/plan_workshop_form.h"

#include "forms/plan_tests_help_form.h"
#include "stats/stat.h"
#include "stats/test_plan.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

using Told = test::RecordingScreen::Message;

struct Form18Test : test::LabTest {
    Form18Test() : form(lab.desk.get<PlanWorkshopForm>()) {}

    void create(OptionButton& kind, int Nf) {
        kind.choose();
        for (int i = 1; i <= 6; ++i) form.useFactor(i).set(i <= Nf);
        form.createPlan.press();
    }
    bool printed(const std::string& text) {
        for (const auto& item : test::drawnOn(form.picture))
            if (item.text == text) return true;
        return false;
    }
    void expectMessage(CommandButton& pressed, const std::string& text) {
        EXPECT_EQ(screen.told(pressed), (Told{text, "Tarvex7m"}));
    }
    void expectMessage(const std::string& text) { EXPECT_EQ(screen.onlyMessage(), (Told{text, "Tarvex7m"})); }

    PlanWorkshopForm& form;
};

}  // namespace

TEST_F(Form18Test, PlanNeedsTwoToSixFactorsInOrder) {
    create(form.orthogonalPlan, 1);
    expectMessage("К-во факторов должно быть от 2 до 6");
    form.useFactor(3).set(true);
    expectMessage(form.createPlan, "Факторы должны быть отмечены по порядку");

    test::enter(form.givenCentrePoints, true, form.centrePoints, "13");
    create(form.rotatablePlan, 2);
    expectMessage("Ошибка при составление плана");
    form.runExperiments.press();  // 21 points stand, 20 are filled: no plan to run safely
    EXPECT_LE(screen.messages.size(), 1u);
    screen.messages.clear();
    form.centrePoints.setText("200");
    expectMessage(form.createPlan, "Ошибка при составление плана");
    expectMessage(form.runExperiments, "Введите правильно нулевые уровни и интервалы");
}

TEST_F(Form18Test, CreatedPlanIsPrintedWithItsCoefficients) {
    create(form.uniformRotatablePlan, 2);
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
    create(form.orthogonalPlan, 2);
    form.additionalTests.choose();
    EXPECT_TRUE(lab.desk.isLoaded("Form8"));
    lab.desk.get<PlanTestsHelpForm>().parabola.choose();
    const Case cases[] = {{&form.criterionIsValue, false, 0, 0},      {&form.criterionIsValue, true, 0, 0},
                          {&form.criterionIsDifference, true, -1, 0}, {&form.criterionIsSquare, true, 2, 0},
                          {&form.criterionIsModulus, true, 1, 0},     {&form.criterionIsSquare, false, 4, 0}};
    for (const Case& c : cases) {
        c.form->choose();
        form.divideByReference.set(c.relative);
        EXPECT_EQ(screen.said(form.runExperiments), "");
        EXPECT_DOUBLE_EQ(lab.plan.Yu[4], c.atFour);
        EXPECT_EQ(form.referenceValue.text(), "2");
    }
    // the optimum divides inside the square and takes the number of terms, 6, for Yopt
    test::enter(form.criterionIsSquare, form.divideByReference, true);
    lab.plan.b = {3, 0, 0, 0, 1, 1};
    form.optimizeFactors.press();
    EXPECT_DOUBLE_EQ(lab.plan.Yu[1], 0.25);
    test::enter(form.criterionIsModulus, form.evaluatePoint);
    EXPECT_EQ(form.pointResult.text(), "0,5");
}

TEST_F(Form18Test, RefusedStepsSayWhy) {
    create(form.dOptimalPlan, 3);  // can be created, not fitted
    expectMessage(form.fitCoefficients, "D план только для 4-х или 5-и факторов");

    create(form.orthogonalPlan, 4);
    form.additionalTests.choose();
    lab.desk.get<PlanTestsHelpForm>().quotient.choose();
    expectMessage(form.runExperiments, "Деление на ноль в эксперименте  17");
    EXPECT_NE(lab.plan.Yu[16], 0);  // earlier experiments keep their criterion
    for (int i = 1; i <= 6; ++i) form.interval(i).setText("0");
    form.standardTest.choose();
    // a constant criterion has no scale
    expectMessage(form.runExperiments, "Ошибка при расчетах");
    form.fitCoefficients.press();
    EXPECT_NE(form.fitQuality.caption().find("не определен"), std::string::npos);
    screen.messages.clear();
    lab.plan.b = {};
    expectMessage(form.optimizeFactors, "Ошибка при решение системы линейных уравнений");
    form.criterionScale.setText("0");
    expectMessage(form.drawPlots, "Ошибка при построение графиков");
}

TEST_F(Form18Test, CriterionComesFromTheFileOfTestExperiments) {
    create(form.orthogonalPlan, 2);
    form.criterionFromFile.choose();
    expectMessage(form.runExperiments, "Не могу найти файл\r\n\\Dat\\NabPlan2.txt");
    PlanBlock p = lab.plan;
    p.Xnul[1] = 0.5;
    p.dXvar[2] = 3;
    writeTestPlanHead(lab.tree, p, false);
    expectMessage(form.runExperiments, "Ошибка чтения данных из файла\r\n\\Dat\\NabPlan2.txt");
    for (int u = 1; u <= 9; ++u) appendTestExperiment(lab.tree, p, u, u);
    EXPECT_EQ(screen.said(form.runExperiments), "");
    EXPECT_EQ(test::texts(form.zeroLevel(1), form.interval(2)), "0,5 | 3");
    EXPECT_EQ(lab.plan.Yu[9], 9);
    create(form.rotatablePlan, 2);
    expectMessage(form.runExperiments,
                  "Не верное количество факторов или экспериментов в файле\r\n\\Dat\\NabPlan2.txt");
}

TEST_F(Form18Test, KindOfTheStationaryPointIsTold) {
    form.optimizeFactors.press();
    EXPECT_EQ(form.stationaryPoint.caption(), " ");  // no plan, nothing to tell
    create(form.rotatablePlan, 2);
    struct Case {
        double b11, b22, b12;
        const char* text;
    };
    for (const Case& c : {Case{1, 2, 0.5, "минимум, внутри области плана"},
                          {-1, -2, 0.5, "максимум, внутри области плана"},
                          {1, 1, 3, "седло - не оптимум, внутри области плана"},
                          {1, -1, 0, "седло - не оптимум, внутри области плана"}}) {
        lab.plan.b = {0, 0, 0, c.b12, c.b11, c.b22};
        form.optimizeFactors.press();
        EXPECT_EQ(form.stationaryPoint.caption(), std::string("Стационарная точка: ") + c.text);
    }
}

TEST_F(Form18Test, QualityIsReportedAndThePlanGrows) {
    expectMessage(form.quality.report, "Ошибка при обработке данных");
    create(form.orthogonalPlan, 2);
    form.additionalTests.choose();
    // the first of them: Y(u) = u, no quadratic
    test::enter(form.runExperiments, form.fitCoefficients);
    form.optimizeFactors.press();  // puts its criterion into the first experiment
    EXPECT_EQ(screen.said(form.quality.report), "");
    EXPECT_NEAR(form.quality.coefficientError(0).number() * form.quality.coefficientT(0).number(),
                lab.plan.b[0], 1e-4);
    EXPECT_EQ(form.quality.coefficientT(6).text(), "");
    EXPECT_LT(form.quality.predictiveR2.number(), form.quality.adjustedR2.number());
    EXPECT_EQ(form.quality.warning.caption(), " ");
    // a response that no quadratic of the levels describes
    const auto linear = lab.plan.Yu;
    for (int u = 1; u <= lab.plan.Nplan; ++u) lab.plan.Yu[u] = u * u % 7;
    test::enter(form.fitCoefficients, form.quality.report);
    EXPECT_EQ(form.quality.warning.caption(), "Внимание: уравнение плохо определено: оптимуму верить нельзя");
    lab.plan.Yu = linear;
    test::enter(form.fitCoefficients, form.quality.addPoints);
    EXPECT_EQ(lab.plan.Nplan, 13);
    form.quality.addedCount.setText("79");
    expectMessage(form.quality.growPlan, "В плане не может быть больше 91 эксперимента");
    test::enter(form.standardTest, form.runExperiments, form.fitCoefficients);
    for (int c = 0; c <= 5; ++c) EXPECT_NEAR(lab.plan.b[c], 1, 1e-9);
    form.quality.report.press();
    EXPECT_EQ(form.quality.warning.caption(), " ");
}

}  // namespace tarvex
