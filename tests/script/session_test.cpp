// A session, a record and an undo: what they write, played in a fresh laboratory, gives the same laboratory.

#include "forms/laboratory.h"
#include "forms/session_steps.h"
#include "runtime/control_lines.h"
#include "script/player.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

/// A laboratory that plays scripts, in a folder that scripts may write to.
struct Played {
    explicit Played(const std::filesystem::path& data) : screen(out), lab(screen, data) {}
    void play(const std::string& script) {
        std::istringstream in(script);
        Player player(screen, lab.desk, lab.names);
        player.attach(lab.session);
        try {
            player.play(readScript(in));
        } catch (const LineFailure& failure) {
            ADD_FAILURE() << failure.line << ": " << failure.text;
        }
    }
    std::string value(const char* form, const char* control) {
        return valueOf(*lab.desk.form(form).find(control));
    }

    std::ostringstream out;
    ScriptScreen screen;
    Laboratory lab;
};

struct SessionTest : ::testing::Test {
    SessionTest() : before(std::filesystem::current_path()) {
        for (const char* name : {"Dat", "JPL", "NEW", "Ser", "Obs", "Tab", "Plan0", "Plan0/Txt1", "Risunki"})
            folder.makeFolder(name);
        std::filesystem::current_path(folder.path());
        first.emplace(folder.path());
        second.emplace(folder.path());
    }
    ~SessionTest() override { std::filesystem::current_path(before); }

    std::filesystem::path before;
    test::TempFolder folder;
    std::optional<Played> first, second;
};

/// What is loaded, handed over, typed afterwards, left by a form that is closed, overwritten by a choice and
/// typed again, and out of use.
constexpr const char* work = R"(Form1.Text34 = 1900
Form1.Option4 = on
Form1.Command3
Form1.Command12
Form1.Check2(4) = off
Form1.Command1
Form2.Check13 = on
Form2.Text35 = 12,5
show Form23
Form23.Option3 = on
Form23.Text1 = 0
Form23.Text2 = 7
Form23.Command1
close Form23
show Form10
Form10.Text1 =  два  слова
show Form2
Form2.Text38 = 7200
Form1.Text34 = 1950
Form1.HScroll1 = 77
show Form2
)";

}  // namespace

TEST_F(SessionTest, ComesBackInAFreshLaboratory) {
    first->play(work);
    first->play("place Form2 10,20 800x600\nsession a.tvx\n");
    second->play("play a.tvx\nsession b.tvx\n");
    EXPECT_EQ(test::readBytes("b.tvx"), test::readBytes("a.tvx"));
    EXPECT_EQ(second->lab.session.keeper.lines(), first->lab.session.keeper.lines());
    EXPECT_EQ(second->out.str(), first->out.str());  // nothing else went wrong on the way

    EXPECT_EQ(second->lab.s.JD0, first->lab.s.JD0);
    EXPECT_EQ(second->lab.s.X0, first->lab.s.X0);
    EXPECT_EQ(second->lab.motion.kodPgr, 3);
    EXPECT_EQ(second->lab.motion.kPgr1, 0);
    EXPECT_EQ(second->lab.motion.kPgr2, 7);
    EXPECT_EQ(second->value("Form1", "Text34"), "1950");
    EXPECT_EQ(second->value("Form10", "Text1"), " два  слова");
    EXPECT_FALSE(second->lab.desk.isLoaded("Form23"));
    for (const std::string& name : first->lab.desk.names()) {
        ASSERT_EQ(second->lab.desk.isLoaded(name), first->lab.desk.isLoaded(name)) << name;
        if (!first->lab.desk.isLoaded(name)) continue;
        for (const Control* control : first->lab.desk.form(name).controls())
            if (isInput(*control)) {
                EXPECT_EQ(second->value(name.c_str(), control->name().c_str()), valueOf(*control))
                    << name << "." << control->name();
            }
    }
    for (const std::string& step : sessionSteps()) {
        const auto dot = step.find('.');
        EXPECT_NE(first->lab.desk.form(step.substr(0, dot)).find(step.substr(dot + 1)), nullptr) << step;
    }
}

TEST_F(SessionTest, ARecordDoesWhatWasDone) {
    first->play(R"(Form1.Text34 = 1850
record a.tvx
Form1.Text34 = 1802
Form1.Command3
Form1.Command12
Form1.Command1
Form2.Text40 = 1803
Form2.Check10 = on
at yield 3 Form2.Check4 = on
at yield 5 Form2.Command4
Form2.Command1
Form2.Command2
show Form6
close Form6
show Form2
record end
)");
    second->play("play a.tvx\n");
    EXPECT_EQ(second->lab.session.keeper.lines(), first->lab.session.keeper.lines());
    EXPECT_EQ(second->lab.s.JD, first->lab.s.JD);
    EXPECT_EQ(second->lab.s.X, first->lab.s.X);
    EXPECT_EQ(second->out.str(), first->out.str());
    EXPECT_NE(test::readBytes("a.tvx").find("at yield 5 Form2.Command4\r\nForm2.Command1\r\n"),
              std::string::npos);
}

TEST_F(SessionTest, EditsAreTakenBackAcrossForms) {
    first->play(R"(show Form23
Form23.Text1 = 5
Form23.Option3 = on
Form2.Text38 = 7200
Form2.Check13 = on
Form2.Check13 = on
Form2.HScroll1 = 40
Form2.HScroll1 = 41
undo
undo
undo
)");
    EXPECT_EQ(first->value("Form2", "Text38"), "3600");
    EXPECT_EQ(first->value("Form2", "Check13"), "off");
    EXPECT_EQ(first->value("Form23", "Text1"), "3");  // by the choice of the law
    first->play("undo\n");
    EXPECT_EQ(first->value("Form23", "Option1"), "on");
    EXPECT_EQ(first->value("Form23", "Text1"), "5");
    first->play("undo\n");
    EXPECT_EQ(first->value("Form23", "Text1"), "0");
    EXPECT_FALSE(first->lab.session.undo.undo());
}

TEST_F(SessionTest, ARunThatGoesOnIsNoted) {
    first->play("Form1.Command1\nat yield 2 session a.tvx\nat yield 3 Form2.Command4\nForm2.Command1\n");
    EXPECT_NE(test::readBytes("a.tvx").find("note Прерван расчет: Form2, \"Начать\""), std::string::npos);
    second->play("play a.tvx\n");
    EXPECT_EQ(second->out.str(), "notice: Прерван расчет: Form2, \"Начать\"\n");
}

}  // namespace tarvex
