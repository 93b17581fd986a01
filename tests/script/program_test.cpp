#include "script/program.h"

#include "tests/support/testing.h"

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

TEST_F(ProgramTest, AStrictScriptEndsWithThreeAtTheFirstErrorMessage) {
    const std::string dir = data.path().string();
    data.makeFolder("Dat");
    // the theory of the Moon is told in a message that is no error
    const std::string script =
        "Form1.Check3 = on\nForm1.Option4 = on\nForm1.Command3\n"
        "Form1.Option6 = on\nForm1.Text23 = 8\nForm1.Command3\necho дальше\n";
    const std::string told =
        "message \"Tarvex7\": Для расчета параметров орбиты Луны использована \\nтеория Брауна в книге "
        "Чеботарева \nmessage \"Tarvex7m\": Не могу найти файл \\Dat\\Tarvex8.dat\n"
        "cause: нет файла Dat/Tarvex8.dat\n";
    EXPECT_EQ(run({"--strict", "-", "--data", dir}, script), 3);
    EXPECT_EQ(out.str(), told);
    EXPECT_EQ(err.str(), "-:6: сообщение об ошибке: Не могу найти файл \\Dat\\Tarvex8.dat\n");
    EXPECT_EQ(run({"-", "--data", dir}, script), 0);
    EXPECT_EQ(out.str(), told + "дальше\n");

    const test::TempFolder outside;
    const std::string save = "save Form1.Picture1 " + (outside.path() / "a.png").string() + "\n";
    EXPECT_EQ(run({"-", "--data", dir}, save), 2);
    EXPECT_EQ(run({"-", "--trust", "--data", dir}, save), 0);
    EXPECT_FALSE(test::readBytes(outside.path() / "a.png").empty());
}

TEST_F(ProgramTest, TellsWhatIsWrongAndEndsWithTwo) {
    const std::string dir = data.path().string(), file = (data.path() / "a.tvx").string();
    const std::string usage = "tarvex-script [--data КАТАЛОГ] [--strict] [--trust] СЦЕНАРИЙ|-";
    const std::string damaged = (data.path() / "b.tvx").string();
    test::writeBytes(file, "echo первая\n\nForm1.Text999 = 1\necho третья\n");
    const std::string binary = (data.path() / "c.tvx").string();
    test::writeBytes(damaged, "echo x\n" + std::string(3 << 20, '\0'));
    test::writeBytes(binary, std::string(3 << 20, '\0'));
    const struct {
        std::vector<std::string> arguments;
        std::string err;
    } cases[] = {
        {{}, usage},
        {{"--data"}, usage},
        {{"a", "b"}, usage},
        {{"--data", file, file}, "нет каталога данных " + file},
        {{"--data", dir, dir + "/none.tvx"},
         "не удалось прочитать " + dir + "/none.tvx (нет файла " + dir + "/none.tvx)"},
        {{"--data", dir, dir}, "не удалось прочитать " + dir + " (на месте файла папка: " + dir + ")"},
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
