// What commands leave, and what they tell in the status line, as scripts see it.

#include "script/program.h"
#include "tests/support/ephemeris_files.h"

namespace tarvex {

namespace {

using Lines = std::vector<std::string>;

class Readings : public ::testing::Test {
protected:
    Readings() {
        for (const char* name : {"Dat", "JPL", "Obs", "Ser/Plan1", "Tab", "Plan0/Txt1", "Plan1", "Plan2"})
            folder.makeFolder(name);
        test::linkEphemeris(folder);
        const auto data = test::ephemerisFolder().parent_path();
        std::filesystem::create_symlink(data / "Obs/SUMM4_G_100.txt", folder.path() / "Obs/SUMM4_G_100.txt");
        std::filesystem::copy_file(data / "Dat/dL1.dat", folder.path() / "Dat/dL1.dat");
        std::filesystem::copy_file(data / "Plan1/TarvexPlan1.dat", folder.path() / "Plan1/TarvexPlan1.dat");
    }

    /// What a script prints.
    std::string played(const Lines& lines) {
        std::string text;
        for (const std::string& line : lines) text += line + "\n";
        std::istringstream in(text);
        std::ostringstream out, err;
        EXPECT_EQ(runScriptProgram({"-", "--data", folder.path().string()}, in, out, err), 0) << err.str();
        return out.str();
    }
    std::string file(const char* name) const { return test::readBytes(folder.path() / name); }

    test::TempFolder folder;
};

int count(const std::string& text, const std::string& piece) {
    int found = 0;
    for (std::size_t at = 0; (at = text.find(piece, at)) != std::string::npos; ++at) ++found;
    return found;
}

}  // namespace

TEST_F(Readings, CommandsLeaveWhatTheyAreSaidTo) {
    const Lines shortRun = {"Form1.Command1", "Form2.Text37 = 50", "at yield 3 Form2.Command4"};
    const struct {
        Lines lines;
        std::string printed;  ///< all of it
    } cases[] = {
        {{"Form4.Check1 = on", "Form4.Command2", "print Form4.Text9", "print Form4.Text36"},
         "Form4.Text9 = 15,493528\nForm4.Text36 = 15,493528\n"},
        {{"show Form26", "print Form26.Text4", "Form25.Text22 = 50", "print Form26.Text4",
          "Form25.Text22 = ", "print Form26.Text4"},
         "Form26.Text4 = 0,016666\nForm26.Text4 = 0,02\nForm26.Text4 = 0,02\n"},
        {{"Form17.Option8(2) = on", "Form17.Option2 = on", "Form17.Command1", "Form16.Option1 = on",
          "print Form17.Option8(1)", "print Form17.Option1", "print state.kET(1,1)", "print Form16.Option16"},
         "Form17.Option8(1) = on\nForm17.Option1 = on\nstate.kET(1,1) = 72.319999999999993\nForm16.Option16 "
         "= on\n"},
        {{"Form16.Option9(2) = on", "print state.NameData", "print Form16.Text4",
          "print Form16.Check23.enabled", "Form16.Check13 = on", "print Form16.Check23.enabled"},
         "state.NameData = JPL0\nForm16.Text4 = 2006\nForm16.Check23.enabled = off\nForm16.Check23.enabled = "
         "on\n"},
        {{"Form10.Text65 = 1999", "Form10.Option2 = on", "Form10.Text1 = 4", "print Form10.Text13",
          "Form10.Option9(6) = on", "print Form10.Text65"},
         "Form10.Text13 = \nForm10.Text65 = 1999\n"},
    };
    for (const auto& one : cases) EXPECT_EQ(played(one.lines), one.printed);

    // the centre of mass of the moment, also where no energy is asked for
    const Lines centre = {"Form23.Check3 = on",           "Form23.Check4 = on",           "Form23.Command1",
                          "at yield 1 print state.X(14)", "at yield 2 print state.X(14)", "Form2.Command1"};
    Lines all = shortRun;
    all.insert(all.end(), centre.begin(), centre.end());
    std::istringstream values(played(all));
    std::string first, second;
    std::getline(values, first);
    std::getline(values, second);
    EXPECT_NE(first, second);
}

TEST_F(Readings, ExperimentsOnObservationsGoOnWithAllTheirData) {
    const Lines data = {"Form10.Option2 = on", "Form10.Text1 = 4", "Form10.Option9(6) = on",
                        "print Form10.Text65", "Form13.Command1",  "Form10.Option10 = on",
                        "Form10.Text65 = 1961"};
    Lines lines = data;
    for (const char* line :
         {"Form10.Command7", "print Form10.Text26", "at yield 3 Form10.Command4", "Form10.Command1",
          "Form10.Option9(6) = on", "Form10.Command1", "print Form10.status", "Form10.Text2 = 2",
          "Form10.Command1", "print Form10.status"})
        lines.push_back(line);
    EXPECT_EQ(played(lines),
              "Form10.Text65 = 2059\nForm10.Text26 = 1\nForm10.status = \n"
              "Form10.status = Уровни плана загружены для другой начальной даты (JD 2436935). \n");
}

TEST_F(Readings, FilesKeepWhatWasLoaded) {
    const std::string series = "head\r\nof a\r\nseries\r\n.\r\n 3  245154500 \r\n";
    const auto record = [](int i, const char* days, const char* AlfaP) {
        return " " + std::to_string(i) + "  " + days + "  0  100000000  " + AlfaP +
               "  4800000000  700000000  20500000  5790900000  2608000000000  250000000  0  0 \r\n";
    };
    test::writeBytes(folder.path() / "Ser/Plan1/Tarvex1Nab.txt", series + record(1, "0", "43700000000") +
                                                                     record(2, "36525", "-28300000000") +
                                                                     record(3, "73050", "43780000000"));
    played({"Form6.Option17 = on", "Form6.Text28 = 1", "Form6.Check1 = on", "Form6.Command6",
            "Form6.Text5 = 3", "Form6.Command1", "Form6.Text34 = 2000", "Form6.Text33 = 6",
            "Form6.Text30 = 500", "Form6.Command2"});
    const std::string kept = file("Ser/Plan1/Tarvex1Nab.txt");
    for (const char* value : {" 43700000000 ", " -28300000000 ", " 50000000000 "})
        EXPECT_EQ(count(kept, value), 1) << value << kept;

    const std::string plan = file("Plan1/TarvexPlan1.dat");
    std::string other = plan;
    const std::size_t levels = other.find("\r\n", other.find("\r\n") + 2) + 2;
    other.replace(levels, other.find("\r\n", levels) - levels, " 7000000  7000000  0  0 ");
    test::writeBytes(folder.path() / "Plan2/TarvexPlan2.dat", other);
    EXPECT_EQ(played({"Form19.Command4", "Form15.Text4 = 2", "Form15.Command14", "Form19.Text7 = 2",
                      "Form19.Command5", "print Form19.Text7", "print Form19.status"}),
              "Form19.Text7 = 1\nForm19.status = Записан план № 1, который был загружен\n");
    EXPECT_EQ(file("Plan1/TarvexPlan1.dat"), plan);
    EXPECT_EQ(file("Plan2/TarvexPlan2.dat"), other);

    // logs get their head with the file, and a date by the clock of their line
    const Lines log = {"Form16.Option9(1) = on", "Form16.Check30 = on", "Form16.Check13 = on",
                       "Form16.Check1 = on",     "Form16.Text24 = 180", "Form16.Text2 = 21,2",
                       "Form16.Text3 = 3",       "Form16.Command1"};
    for (int times = 0; times < 2; ++times) played(log);
    EXPECT_EQ(count(file("Dat/Param_data.txt"), "планета"), 1);
    const std::string times = file("Dat/TimeYer_data.txt");
    EXPECT_EQ(count(times, "равноденствия"), 1);
    EXPECT_EQ(count(times, "  21.03.2006  "), 2) << times;  // 16:48 there, and still the 21st
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        EXPECT_TRUE(entry.is_directory()) << "in the root: " << entry.path();
}

TEST_F(Readings, TheStatusLineTellsWhatAUserWouldNotExpect) {
    const Lines run = {"Form1.Command1", "Form2.Text37 = 50", "Form2.Check4 = on", "Form2.Option2 = on",
                       "at yield 1 Form2.Command4"};
    const struct {
        Lines lines;
        const char* form;
        const char* told;  ///< a piece of the line
    } cases[] = {
        {{"Form1.Command1", "Form2.Check4 = on", "Form2.Option2 = on", "at yield 1 Form2.Command4",
          "Form2.Command1"},
         "Form2",
         "Назад"},
        {{"Form1.Command1", "Form2.Check2 = on", "at yield 1 Form2.Command4", "Form2.Command1"},
         "Form2",
         "Rpl"},
        {{"Form1.Text34 = 1965", "Form1.Check3 = on", "Form1.Option9 = on", "Form1.Command3",
          "Form1.Command4"},
         "Form1",
         "X(10)"},
        {{"Form25.Text4 = 1E-8", "Form25.Command8"}, "Form25", "масса m1"},
        {{"Form24.Text11 = 4", "Form24.Command1"}, "Form24", "Ipl"},
        {{"Form18.Check3(1) = on", "Form18.Check3(2) = on", "Form18.Command14", "Form18.Command4",
          "Form18.Command1", "Form18.Command9"},
         "Form18",
         "опыта 1"},
        {{"Form16.Option9(1) = on", "Form16.Check13 = on", "Form16.Check1 = on", "Form16.Command1"},
         "Form16",
         "рефракцию еще раз"},
        {{"Form16.Option9(1) = on", "Form16.Text2 = 14,4", "Form16.Check1 = on", "Form16.Command1"},
         "Form16",
         "350"},
        {{"Form16.Option9(1) = on", "Form16.Option7 = on", "Form16.Check1 = on", "Form16.Command1"},
         "Form16",
         "Египетский"},
        {{"Form15.Check3(4) = on", "Form15.Text6 = 0", "Form15.Command8"}, "Form15", "X4"},
    };
    for (const auto& one : cases) {
        Lines lines = one.lines;
        lines.push_back(std::string("print ") + one.form + ".status");
        const std::string out = played(lines);
        const auto status = out.rfind(std::string(one.form) + ".status = ");
        ASSERT_NE(status, std::string::npos) << one.form;
        EXPECT_NE(out.find(one.told, status), std::string::npos) << out;
    }
}

}  // namespace tarvex
