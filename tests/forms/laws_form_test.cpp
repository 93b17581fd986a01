#include "forms/laws_form.h"

#include "forms/run_form.h"
#include "tests/forms/lab_fixture.h"

namespace tarvex {

class LawsFormTest : public test::LabTest {
protected:
    LawsForm& form = lab.desk.get<LawsForm>();
};

TEST_F(LawsFormTest, OptionsPutTheirCoefficientsAndOnlyTheCommandStores) {
    lab.desk.get<RunForm>().useGravitySpeed.set(true);
    struct Case {
        OptionButton* option;
        int kodPgr;
        const char *k1, *k2;
    };
    const Case cases[] = {{&form.weber, 2, "0,5", "1"},      {&form.gerberFirst, 3, "3", "6"},
                          {&form.gerberSecond, 4, "3", "6"}, {&form.lienardWiechert, 5, "1", "1"},
                          {&form.norin, 6, "1", "1"},        {&form.sukhorukov, 7, "0", "0"},
                          {&form.noPressure, 0, "0", "0"}};
    for (const Case& c : cases) {
        const int before = lab.motion.kodPgr;
        c.option->choose();
        EXPECT_EQ(form.k1.text(), c.k1);
        EXPECT_EQ(form.k2.text(), c.k2);
        EXPECT_EQ(lab.motion.kodPgr, before);
        form.storeChoice.press();
        EXPECT_EQ(lab.motion.kodPgr, c.kodPgr);
    }
    // a coefficient typed after the click stands
    test::enter(form.weber, form.k1, "0,7", form.delayByAcceleration);
    for (CheckBox* box :
         {&form.ratesEachStage, &form.centreNow, &form.shortLienardWiechert, &form.withRelativity})
        box->set(true);
    EXPECT_EQ(lab.motion.kodRelativity, 0);
    form.storeChoice.press();
    EXPECT_EQ(lab.motion.kPgr1, 0.7);
    EXPECT_EQ(lab.motion.kodDX, 2);
    EXPECT_EQ(lab.motion.kodDiffurV + lab.motion.kodCMnow + lab.motion.kodLVsimple + lab.motion.kodRelativity,
              4);

    // opening the form again shows what is stored, also a coefficient that is not the usual one
    form.closeForm.press();
    ASSERT_FALSE(lab.desk.isLoaded("Form23"));
    LawsForm& again = lab.desk.get<LawsForm>();
    EXPECT_TRUE(again.weber.on());
    EXPECT_EQ(again.k1.text(), "0,7");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(LawsFormTest, PressureNeedsASpeedOfGravity) {
    // retardation may be chosen without it
    test::enter(form.delayBySpeed, form.storeChoice);
    EXPECT_EQ(lab.motion.kodDX, 1);
    EXPECT_TRUE(screen.messages.empty());
    test::enter(form.lienardWiechert, form.delayByTrace);
    const test::RecordingScreen::Message refusal = {
        "Давление гравитации не может быть задано без скорости гравитации", "Tarvex7"};
    EXPECT_EQ(screen.told(form.storeChoice), refusal);
    EXPECT_FALSE(lab.desk.isLoaded("Form2"));  // asking does not load the form
    EXPECT_EQ(lab.motion.kodDX, 1);
    lab.desk.get<RunForm>();  // begins without any law, and with its box off
    EXPECT_EQ(screen.told(form.storeChoice), refusal);
    EXPECT_EQ(lab.motion.kodPgr, 0);
    EXPECT_EQ(lab.motion.kodDX, 0);
    EXPECT_EQ(lab.motion.kPgr1, 0);
    test::enter(form.noPressure, form.k2, "шесть");
    EXPECT_EQ(screen.said(form.storeChoice), "Задайте правильно данные");
    EXPECT_EQ(lab.motion.kodDX, 0);
}

}  // namespace tarvex
