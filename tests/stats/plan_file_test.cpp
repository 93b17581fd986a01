#include "stats/plan_file.h"

#include "core/data_tree.h"
#include "stats/gravity_plan.h"
#include "stats/stat.h"
#include "tests/support/testing.h"

namespace tarvex {

TEST(PlanFile, IsWrittenByteForByteAndReadBack) {
    const test::TempFolder folder;
    folder.makeFolder("Plan1");
    const DataTree tree(folder.path());
    PlanBlock p, read;
    ShiftTables t, weights;
    for (int i = 1; i <= 7; ++i) {
        p.Xnul[i] = i;
        p.dXvar[i] = 0.5;
        p.Xopt[i] = -0.25 * i;
        p.XoptR[i] = 1047.348625;
    }
    for (int i = 1; i <= 10; ++i)
        for (int c = 1; c <= 6; ++c) t.Ves[i][c] = c == 2 ? 0.5 : i;
    writePlanFile(tree, 1, PlanFileHead::of(1, true, 4), p, t);
    const auto path = folder.path() / "Plan1" / "TarvexPlan1.dat";
    const std::string bytes = test::readBytes(path);
    EXPECT_TRUE(
        bytes.starts_with("Уровни варьирования плана № 1\r\nRoto - для  4  факторов \r\n"
                          " 1000000  500000 -250000  1047348625 \r\n"));
    EXPECT_NE(
        bytes.find("\r\nвесовые коэффициенты смещений параметров орбит планет\r\n 1  0.5  1  1  1  1 \r\n"),
        std::string::npos);
    const PlanFileHead head = readPlanFile(tree, 1, read, weights);
    EXPECT_EQ(head.kind, "Roto - для  4  факторов ");
    EXPECT_EQ(head.weights, "весовые коэффициенты смещений параметров орбит планет");
    EXPECT_EQ(read.Xnul, p.Xnul);
    EXPECT_EQ(read.Xopt, p.Xopt);
    EXPECT_EQ(read.XoptR, p.XoptR);
    EXPECT_EQ(weights.Ves, t.Ves);

    test::writeBytes(
        path, bytes.substr(0, bytes.find("весовые") - 5) + "E+2 " + bytes.substr(bytes.find("весовые") - 2));
    readPlanFile(tree, 1, read, weights);  // exponents are numbers too
    EXPECT_DOUBLE_EQ(read.XoptR[7], 1047.3486);
    const PlanBlock kept = read;
    for (const std::string& bad :
         {bytes.substr(0, bytes.size() - 6), bytes.substr(0, 40), std::string(),
          bytes.substr(0, bytes.find("500000")) + "много" + bytes.substr(bytes.find("500000"))}) {
        test::writeBytes(path, bad);
        EXPECT_THROW(readPlanFile(tree, 1, read, weights), FileFailure);
        EXPECT_EQ(read.Xnul, kept.Xnul);
        EXPECT_EQ(weights.Ves, t.Ves);
    }
    EXPECT_THROW(readPlanFile(tree, 2, read, weights), OpenFailure);
    EXPECT_THROW(writePlanFile(tree, 2, head, p, t), OpenFailure);
}

TEST(GravityPlan, NaturalLevelsFollowTheTickedFactors) {
    PlanBlock p;
    p.kodPlan = planOrtho;
    p.Nf = 2;
    p.Nfact = {0, 2, 4};
    p.N0 = 1;
    BuildPlan(p);
    for (int i = 1; i <= 7; ++i) p.Xnul[i] = 10 * i, p.dXvar[i] = i;
    setNaturalLevels(p);
    EXPECT_EQ(p.XU[1][3], 10);
    EXPECT_EQ(p.XU[2][3], 18);  // point 3 is (-, +)
    EXPECT_EQ(p.XU[4][3], 44);
    EXPECT_EQ(p.XU[7][9], 70);
}

TEST(GravityPlan, CriterionSumsTheChosenShifts) {
    ShiftTables t;
    t.dNab[1][1] = -50;
    t.dNab[2][3] = 20;
    t.dRas[1][1][7] = -60;
    t.dRas[2][3][7] = 30;
    t.Ves[1][1] = 2;
    t.Ves[2][3] = 0.5;
    struct Case {
        CriterionForm form;
        double one, both;
    };
    for (const Case& c : {Case{CriterionForm::Y, -1.2, -1.2 + 0.15},
                          {CriterionForm::dY, -0.004, -0.004 + 0.0025},
                          {CriterionForm::dY2, 0.000016, 0.000016 + 0.00000625},
                          {CriterionForm::AbsDY, 0.004, 0.0065}}) {
        EXPECT_DOUBLE_EQ(shiftCriterion(t, {1}, {1}, 7, c.form), c.one);
        t.dNab[1][3] = t.dNab[2][1] = 1;  // with shifts of 0 and no weight: terms of 0
        EXPECT_DOUBLE_EQ(shiftCriterion(t, {1, 2}, {1, 3}, 7, c.form), c.both);
    }
    t.dNab[1][1] = 0;
    EXPECT_DOUBLE_EQ(shiftCriterion(t, {1}, {1}, 7, CriterionForm::Y), -1.2);
    for (const CriterionForm form : {CriterionForm::dY, CriterionForm::dY2, CriterionForm::AbsDY})
        EXPECT_THROW(shiftCriterion(t, {1}, {1}, 7, form), ArithmeticFailure);
}

}  // namespace tarvex
