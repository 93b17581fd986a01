#include "forms/laws_form.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {

/// Stands in for the run's form where only its box of the speed of gravity matters.
class SpeedForm final : public Form {
public:
    explicit SpeedForm(Desk& desk) : Form(desk, "Form2", "") {}
    CheckBox Check13{this, {.name = "Check13", .on = true}};
};

}  // namespace

class Form23Test : public test::LabTest {
protected:
    Form23Test() {
        lab.desk.add("Form2", [this] { return std::make_unique<SpeedForm>(lab.desk); });
    }
    LawsForm& form = lab.desk.get<LawsForm>();
};

TEST_F(Form23Test, OptionsPutTheirCoefficientsAndOnlyTheCommandStores) {
    lab.desk.form("Form2");
    struct Case {
        OptionButton* option;
        int kodPgr;
        const char *k1, *k2;
    };
    const Case cases[] = {{&form.Option2, 2, "0,5", "1"}, {&form.Option3, 3, "3", "6"},
                          {&form.Option4, 4, "3", "6"},   {&form.Option5, 5, "1", "1"},
                          {&form.Option6, 6, "1", "1"},   {&form.Option7, 7, "0", "0"},
                          {&form.Option1, 0, "0", "0"}};
    for (const Case& c : cases) {
        const int before = lab.motion.kodPgr;
        c.option->choose();
        EXPECT_EQ(form.Text1.text(), c.k1);
        EXPECT_EQ(form.Text2.text(), c.k2);
        EXPECT_EQ(lab.motion.kodPgr, before);
        form.Command1.press();
        EXPECT_EQ(lab.motion.kodPgr, c.kodPgr);
    }
    // a coefficient typed after the click stands
    form.Option2.choose();
    form.Text1.setText("0,7");
    form.Option10.choose();
    for (CheckBox* box : {&form.Check2, &form.Check4, &form.Check6}) box->set(true);
    form.Command1.press();
    EXPECT_EQ(lab.motion.kPgr1, 0.7);
    EXPECT_EQ(lab.motion.kodDX, 2);
    EXPECT_EQ(lab.motion.kodDiffurV + lab.motion.kodCMnow + lab.motion.kodLVsimple, 3);

    // opening the form again shows what is stored, also a coefficient that is not the usual one
    form.Command2.press();
    ASSERT_FALSE(lab.desk.isLoaded("Form23"));
    LawsForm& again = lab.desk.get<LawsForm>();
    EXPECT_TRUE(again.Option2.on());
    EXPECT_EQ(again.Text1.text(), "0,7");
    EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Form23Test, PressureNeedsASpeedOfGravity) {
    // retardation may be chosen without it
    form.Option9.choose();
    form.Command1.press();
    EXPECT_EQ(lab.motion.kodDX, 1);
    EXPECT_TRUE(screen.messages.empty());
    form.Option5.choose();
    form.Option11.choose();
    const test::RecordingScreen::Message refusal = {
        "Давление гравитации не может быть задано без скорости гравитации", "Tarvex7"};
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage(), refusal);
    EXPECT_FALSE(lab.desk.isLoaded("Form2"));  // asking does not load the form
    static_cast<SpeedForm&>(lab.desk.form("Form2")).Check13.set(false);
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage(), refusal);
    EXPECT_EQ(lab.motion.kodPgr, 0);
    EXPECT_EQ(lab.motion.kodDX, 1);
    EXPECT_EQ(lab.motion.kPgr1, 0);
    form.Option1.choose();
    form.Text2.setText("шесть");
    form.Command1.press();
    EXPECT_EQ(screen.onlyMessage().text, "Задайте правильно данные");
    EXPECT_EQ(lab.motion.kodDX, 1);
}

}  // namespace tarvex
