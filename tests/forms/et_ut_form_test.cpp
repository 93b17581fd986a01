#include "forms/et_ut_form.h"

#include "core/et_ut.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

struct EtUtFormTest : test::LabTest {
    EtUtForm& form = lab.desk.get<EtUtForm>();
    ModelState& s = lab.s;
};

}  // namespace

TEST_F(EtUtFormTest, LoadGivesTheDefaultsAndUnloadKeepsThem) {
    lab.desk.loadAndUnload("Form17");
    EXPECT_EQ(s.JDt01, JD1900 + 1);  // 1 January, day 1,5
    EXPECT_EQ(s.JDt02, 2378497);
    const double century = 36525;
    EXPECT_DOUBLE_EQ(EtUtSelect(s, 1, s.JDt01 + century), 24.35 + 72.32 + 29.95);
    EXPECT_DOUBLE_EQ(EtUtSelect(s, 2, s.JDt02 + 2 * century), -31.5 * 4);
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(EtUtFormTest, ChoicesFillTheirRowsAndTheTriggerTakesThem) {
    struct Case {
        int item;
        const char *a, *b, *c, *T0;
        double kind;
    };
    for (const Case& c : {Case{1, "24,35", "72,32", "29,95", "1900", 1},
                          {4, "0", "0", "31,5", "1800", 1},
                          {5, "0", "0", "0", "1900", 2}}) {
        test::enter(form.planetsA, "77", form.planetsFormula(c.item), form.earthFormula(c.item),
                    form.planetsMinus, form.earthPlus);
        EXPECT_EQ(form.planetsA.text(), "77");  // nothing is taken before the command
        form.setTrigger.setText("12:00");
        EXPECT_EQ(form.planetsA.text(), c.a) << c.item;
        EXPECT_EQ(form.earthB.text(), c.b) << c.item;
        EXPECT_EQ(form.planetsC.text(), c.c) << c.item;
        EXPECT_EQ(form.earthYear.text(), c.T0) << c.item;
        EXPECT_EQ(s.kET[1][4], -c.kind) << c.item;
        EXPECT_EQ(s.kET[2][4], c.kind) << c.item;
    }
}

TEST_F(EtUtFormTest, TypedRowsStayAndBadFieldsEndInTheMessage) {
    test::enter(form.planetsFormula(0), form.planetsA, "1,5");
    form.planetsYear.setText("1600,5");  // half to even
    form.setModel.press();
    EXPECT_EQ(s.kET[1][0], 1.5);
    EXPECT_EQ(form.planetsA.text(), "1,5");
    EXPECT_EQ(s.JDt01, 2305448);
    form.earthFormula(0).choose();
    TextField* const typed[] = {&form.planetsA,    &form.planetsB,      &form.planetsC,    &form.planetsYear,
                                &form.earthA,      &form.earthB,        &form.earthC,      &form.earthYear,
                                &form.sunDiameter, &form.earthDiameter, &form.moonDiameter};
    for (TextField* field : typed) {
        EXPECT_EQ(screen.said(form.setModel, *field, "1e999"), "Задайте правильно данные") << field->name();
    }
    for (TextField* diameter : {&form.sunDiameter, &form.earthDiameter, &form.moonDiameter}) {
        diameter->setText("1e305");  // thousands of km that overflow in metres
        EXPECT_EQ(screen.said(form.setModel), "Задайте правильно данные") << diameter->name();
        for (const double v : s.Diam) EXPECT_TRUE(std::isfinite(v));
        diameter->setText("1");
    }
    form.earthYear.setText("40000");  // a year outside 16 bits
    EXPECT_EQ(screen.said(form.setModel), "Введите правильно дату");
}

}  // namespace tarvex
