#include "script/program.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/temp_folder.h"

namespace tarvex {

namespace {

struct ProgramTest : ::testing::Test {
    int run(const std::vector<std::string>& arguments, const std::string& typed = "") {
        std::istringstream in(typed);
        out.str("");
        err.str("");
        return runScriptProgram(arguments, in, out, err);
    }
    test::TempFolder data;
    std::ostringstream out, err;
};

}  // namespace

TEST_F(ProgramTest, PlaysTheRealFormsFromAFileAndFromItsInput) {
    const std::string dir = data.path().string(), file = (data.path() / "a.tvx").string();
    const std::string script = "print Form1.Text34\nprint state.Pi\n";
    test::writeBytes(file, script);
    EXPECT_EQ(run({"--data", dir, file}), 0);
    EXPECT_EQ(out.str(), "Form1.Text34 = 1801\nstate.Pi = 3.1415926535900001\n");
    EXPECT_EQ(run({"-", "--data", dir}, script + "Form1.Command9\nechoes of nothing\n"),
              0);  // Command9 ends the program
    EXPECT_EQ(err.str(), "");
}

TEST_F(ProgramTest, ARunningExperimentIsStoppedContinuedAndLeft) {
    EXPECT_EQ(run({"-", "--data", data.path().string()},
                  "Form1.Command1\n"
                  "at yield 3 Form2.Command4\n"
                  "at yield 2 print Form2.Text1\n"
                  "Form2.Command1\n"
                  "print Form2.Text1\n"
                  "at yield 2 Form2.Command4\n"
                  "Form2.Command5\n"
                  "print Form2.Text1\n"
                  "at yield 1 Form2.Command8\n"
                  "Form2.Command5\n"
                  "print Form2.Text1\n"
                  "at yield 1 Form2.Command6\n"
                  "Form2.Command1\n"
                  "echo после выхода\n"),
              0);
    // A show every thousand hours, 0.11 years; a stop is seen by the show after it.  A closed form opens
    // anew, an exit ends the script.
    EXPECT_EQ(out.str(), "Form2.Text1 = 0,22\nForm2.Text1 = 0,45\nForm2.Text1 = 0,79\nForm2.Text1 = \n");
    EXPECT_EQ(err.str(), "");
}

TEST_F(ProgramTest, TellsWhatIsWrongAndEndsWithTwo) {
    const std::string dir = data.path().string(), file = (data.path() / "a.tvx").string();
    const std::string damaged = (data.path() / "b.tvx").string();
    test::writeBytes(file, "echo первая\n\nForm1.Text999 = 1\necho третья\n");
    const std::string binary = (data.path() / "c.tvx").string();
    test::writeBytes(damaged, "echo x\n" + std::string(3 << 20, '\0'));
    test::writeBytes(binary, std::string(3 << 20, '\0'));
    const struct {
        std::vector<std::string> arguments;
        std::string err;
    } cases[] = {
        {{}, "tarvex-script [--data КАТАЛОГ] СЦЕНАРИЙ|-"},
        {{"--data"}, "tarvex-script [--data КАТАЛОГ] СЦЕНАРИЙ|-"},
        {{"a", "b"}, "tarvex-script [--data КАТАЛОГ] СЦЕНАРИЙ|-"},
        {{"--data", file, file}, "нет каталога данных " + file},
        {{"--data", dir, dir + "/none.tvx"}, "не удалось прочитать " + dir + "/none.tvx"},
        {{"--data", dir, dir}, "не удалось прочитать " + dir},
        {{"--data", dir, damaged}, damaged + ":2: слишком длинная строка"},
        {{"--data", dir, binary}, binary + ":1: слишком длинная строка"},
        {{"--data", dir, file}, file + ":3: на форме Form1 нет элемента «Text999»"},
    };
    for (const auto& [arguments, wrong] : cases) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_EQ(err.str(), wrong + "\n");
    }
    EXPECT_EQ(out.str(), "первая\n");
    out.setstate(std::ios::badbit);  // a full disk below the output
    EXPECT_EQ(run({"-", "--data", dir}, "echo x\n"), 2);
    EXPECT_EQ(err.str(), "не удалось записать вывод\n");
}

}  // namespace tarvex
