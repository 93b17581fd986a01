// The line that tells what a run starts from, and what other forms may do to a run that goes on.

#include "forms/elements_form.h"
#include "forms/run_form.h"
#include "tests/forms/lab_fixture.h"
#include "tests/support/ephemeris_files.h"

namespace tarvex {

using test::readBytes;

namespace {

class GivenTest : public test::LabTest {
protected:
    GivenTest() {
        for (const char* name : {"Plan0/Txt1", "Plan1/Txt1", "Plan4/Txt1"}) folder.makeFolder(name);
        std::filesystem::copy_file(test::ephemerisFolder().parent_path() / "Dat/dL1.dat",
                                   folder.path() / "Dat/dL1.dat");
        lab.desk.show("Form1");
    }
    /// One line of a script: "Form1.Command3", "Form1.Text34 = 1900", "show Form10"; several after "; ".
    void act(std::string lines) {
        while (!lines.empty()) {
            const std::string line = lines.substr(0, lines.find("; "));
            lines.erase(0, line.size() + 2);
            if (line.starts_with("show ")) {
                lab.desk.show(line.substr(5));
                continue;
            }
            const auto dot = line.find('.'), blank = line.find(' ');
            Form& form = lab.desk.form(line.substr(0, dot));
            const std::string value = blank == std::string::npos ? "" : line.substr(blank + 3);
            Control* control = form.find(line.substr(dot + 1, blank - dot - 1));
            ASSERT_NE(control, nullptr) << line;
            lab.desk.turnTo(form);
            if (auto* field = dynamic_cast<TextField*>(control)) field->setText(value);
            if (auto* box = dynamic_cast<CheckBox*>(control)) box->set(value == "on");
            if (auto* option = dynamic_cast<OptionButton*>(control)) option->choose();
            if (auto* command = dynamic_cast<CommandButton*>(control)) command->press();
        }
    }
    /// A year of Mercury with its records; what is done when it gives way for the third time.
    std::string run(const std::string& meanwhile) {
        act("Form2.Check4 = on; Form2.Check20 = on; Form2.Check14 = on; Form2.Text40 = 1801; Form2.Text39 = "
            "10");
        screen.atYield = [&](int count) {
            if (count == 3) act(meanwhile);
        };
        screen.yields = 0;
        act("Form2.Command1");
        screen.atYield = {};
        return readBytes(folder.path() / "Plan0/Txt1/Tarvex1Ras1.txt");
    }
};

}  // namespace

TEST_F(GivenTest, TellsWhatWillRunAndWhatIsNotAsHandedOver) {
    struct Step {
        const char *actions, *form;  ///< done, then looked at on this form
        bool warns;
        std::vector<const char*> told, silent;
    };
    const Step steps[] = {
        {"Form1.Command15",
         "Form1",
         false,
         {"Элементы Ser0 на 1,5.1.1801; начальные данные: форма 1, по элементам; массы Ser0",
          "Классика, 1/R^2, без Vgr; вне плана, эксперимент 1, без записи"},
         {"ВНИМАНИЕ"}},
        {"show Form2", "Form2", true, {"элементы не переданы"}, {}},
        {"Form1.Command1; Form2.Check20 = on; Form2.Text8 = 7; Form2.Check13 = on; Form2.Text35 = 3",
         "Form2",
         false,
         {"Vgr=3 Vsv", "эксперимент 7, файл Plan0/Txt1/Tarvex1Ras7.txt"},
         {"есть", "ВНИМАНИЕ"}},
        {"Form1.Text34 = 1900; Form1.Option5 = on; Form1.Check3 = on; Form1.Text1(3) = 5",
         "Form2",
         true,
         {"Ser0 на 1,5.1.1801", "не загружено: дата, источник JPL0, Земля-Луна, таблица"},
         {}},
        {"Form1.Command3",
         "Form1",
         true,
         {"JPL0 на 1,5.1.1900", "начальные данные старше"},
         {"не загружено"}},
        {"Form1.Command12", "Form1", false, {"Земля и Луна отдельно"}, {}},
        {"Form1.Text34 = 1900", "Form2", true, {"измерение по другим элементам"}, {}},
        {"Form1.Command1", "Form2", false, {}, {}},
        {"Form1.Check6 = on", "Form2", true, {"не загружено: Bary"}, {}},
        {"Form1.Check6 = off; Form20.Command6",
         "Form2",
         true,
         {"начальные данные изменила форма 20", "массы изменила форма 20"},
         {}},
        {"Form1.Command2", "Form2", true, {"начальные данные изменила форма 1"}, {}},
        {"Form1.Check3 = off; Form1.Command3; Form1.Command12; Form1.Command1", "Form2", false, {}, {}},
        {"Form4.Text1 = 19; Form4.Command1", "Form2", false, {"скорость системы 19 0 0 км/с"}, {}},
        {"Form4.Text1 = 0; Form4.Command1; show Form10", "Form2", false, {"вне плана"}, {}},
        {"show Form13", "Form2", true, {"план № 1", "номер плана задала форма 13"}, {}},
        {"Form2.Command4; Form1.Text34 = x; Form1.Command3",
         "Form2",
         true,
         {"загрузка на форме 1 не закончена"},
         {}},
    };
    for (const Step& step : steps) {
        act(step.actions);
        const auto& label = dynamic_cast<Label&>(*lab.desk.form(step.form).find("Given"));
        EXPECT_EQ(label.warning(), step.warns) << step.actions << "\n" << label.caption();
        for (const char* text : step.told)
            EXPECT_NE(label.caption().find(text), std::string::npos) << label.caption();
        for (const char* text : step.silent)
            EXPECT_EQ(label.caption().find(text), std::string::npos) << label.caption();
    }
}

TEST_F(GivenTest, TheHeadOfARecordNamesTheSourceThatWasLoaded) {
    act("Form1.Command1; Form1.Option5 = on");
    EXPECT_NE(run("").find("Классика  Ser0"), std::string::npos);
    EXPECT_NE(lab.desk.get<RunForm>().given.caption().find("(есть, станет .old)"), std::string::npos);
    act("Form1.Command3; Form1.Option4 = on");
    EXPECT_NE(run("").find("Классика  JPL0"), std::string::npos);
}

TEST_F(GivenTest, OpeningAFormChangesNothingThatARunReads) {
    act("Form1.Command1");
    const std::string undisturbed = run("");
    EXPECT_GT(std::count(undisturbed.begin(), undisturbed.end(), '\n'), 7);
    for (const std::string& name : lab.desk.names()) {
        const bool open = lab.desk.isLoaded(name);
        EXPECT_EQ(run("show " + name), undisturbed) << name;
        EXPECT_EQ(lab.s.NPlan, 0) << name;
        EXPECT_TRUE(screen.messages.empty()) << name;
        if (!open) lab.desk.unload(name);
        act("Form2.Text8 = 1");  // the same again, whatever the form has left behind
    }
    EXPECT_EQ(lab.s.Mx, 100000. * 1000 * 3000);
    lab.ephemeris.kodJPLopen = 10;  // as an imitator of DE405 has it
    run("Form2.Command3");
    EXPECT_EQ(lab.ephemeris.kodJPLopen, 10);
    lab.ephemeris.kodJPLopen = 0;
}

TEST_F(GivenTest, ARunKeepsThePlanOfItsStart) {
    act("Form1.Command1; Form2.Check14 = on");
    run("Form6.Text28 = 4; Form6.Command6");  // there is nothing to load, but the number of the plan is taken
    EXPECT_EQ(lab.s.NPlan, 4);
    EXPECT_TRUE(screen.notices.empty());  // no plan was told of the end
    lab.s.NPlan = 0;
    screen.messages.clear();
    act("show Form10");
    run("");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "Plan1/Txt1/Tarvex1Ras1.txt"));
    EXPECT_TRUE(screen.notices.empty());
}

TEST_F(GivenTest, CommandsThatDisturbACalculationAskFirst) {
    act("Form1.Command1");
    const std::string undisturbed = run("");
    screen.disturb = false;
    for (const char* command :
         {"Form1.Command3", "Form1.Command13", "Form2.Command1", "Form20.Command6", "Form24.Command1",
          "Form10.Command1", "Form15.Command8", "Form2.Command8", "Form1.Command9"}) {
        screen.disturbing.clear();
        EXPECT_EQ(run(command), undisturbed) << command;
        ASSERT_EQ(screen.disturbing.size(), 1) << command;
        EXPECT_EQ(screen.disturbing[0].find("Идет расчет (форма 2)"), 0);
    }
    screen.disturbing.clear();
    run("Form5.Command1; Form2.Command4");   // closing another form and stopping are no disturbance
    act("Form24.Command1; Form1.Command3");  // and nothing goes on now
    EXPECT_TRUE(screen.disturbing.empty());
    screen.disturb = true;
    run("Form1.Command9");
    EXPECT_FALSE(lab.desk.anyLoaded());
}

}  // namespace tarvex
