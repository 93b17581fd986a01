// Tools keep to themselves: a run is the same, byte for byte, with any of their commands before its start, in
// the middle of it or between its parts.

#include "script/program.h"
#include "tests/support/ephemeris_files.h"

namespace tarvex {

namespace {

using Lines = std::vector<std::string>;

struct Tool {
    const char* what;
    Lines lines;
};

const Lines observations = {"Form10.Option2 = on", "Form10.Text1 = 4", "Form10.Option9(6) = on"};

Lines operator+(Lines a, const Lines& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

const std::vector<Tool>& tools() {
    static const std::vector<Tool> all = {
        {"bench of two bodies",
         {"Form7.Check3 = on", "Form7.Text3 = 300", "Form7.Command1", "Form7.Command3"}},
        {"its state of the run", {"Form7.Check2 = on", "Form7.Command1"}},
        {"steps of a reduction", observations + Lines{"Form10.Command6", "Form10.Command6"}},
        {"a reduction of the Moon",
         {"Form10.Option2 = on", "Form10.Text1 = 11", "Form10.Option9(6) = on", "at yield 3 Form10.Command4",
          "Form10.Command1"}},
        {"experiments on observations",
         observations + Lines{"Form10.Option10 = on", "Form10.Text65 = 1961", "Form13.Text5 = 300",
                              "Form10.Command7", "Form10.Command10", "Form13.Command3"}},
        {"aberration",
         {"Form11.Check2 = on", "Form11.Text3 = 300", "Form11.Command1", "Form11.Command3",
          "at yield 2 Form11.Command6", "Form11.Command5"}},
        {"converter, by theory",
         {"Form12.Option1(4) = on", "Form12.Command6", "Form12.Option19 = on", "Form12.Command7"}},
        {"converter, typed", {"Form12.Option1(11) = on", "Form12.Command6", "Form12.Command2"}},
        {"ellipse", {"at yield 2 Form14.Command4", "Form14.Command1"}},
        {"eclipses by New0",
         {"Form16.Option9(1) = on", "at yield 2 Form16.Command4", "Form16.Command1", "Form16.Command6"}},
        {"eclipses by the ephemeris", {"Form16.Option9(3) = on", "Form16.Check1 = on", "Form16.Command1"}},
        {"eclipses by Ser0+", {"Form16.Option9(4) = on", "Form16.Check1 = on", "Form16.Command1"}},
        {"ET-UT", {"Form17.Option8(2) = on", "Form17.Command1"}},
        {"plans, notation", {"Form18.Command1", "show Form5"}},
        {"perturbations", {"Form21.Command1", "Form22.Command1"}},
        {"ephemeris", {"Form24.Text11 = 4", "Form24.Command1"}},
    };
    return all;
}

class ToolsAndRun : public ::testing::Test {
protected:
    ToolsAndRun() {
        for (const char* name : {"Dat", "JPL", "NEW", "Obs", "Plan0/Txt1", "Plan0/Txt11", "Plan1/Txt1"})
            folder.makeFolder(name);
        test::linkEphemeris(folder);
        const auto source = test::ephemerisFolder().parent_path() / "Obs";
        for (const char* file : {"SUMM4_G_100.txt", "SUMM11_G_100.txt"})
            std::filesystem::create_symlink(source / file, folder.path() / "Obs" / file);
    }

    /// Bytes of the records after a script; what they were before is gone.
    std::string recordsOf(const Lines& lines, const std::string& what) {
        std::string text;
        for (const std::string& line : lines) text += line + "\n";
        for (const char* record : records) std::filesystem::remove(folder.path() / record);
        std::istringstream in(text);
        std::ostringstream out, err;
        EXPECT_EQ(runScriptProgram({"-", "--data", folder.path().string()}, in, out, err), 0)
            << what << err.str();
        told = out.str().substr(std::min(out.str().find("state."), out.str().size()));
        std::string bytes;
        for (const char* record : records)
            if (std::filesystem::exists(folder.path() / record))
                bytes += test::readBytes(folder.path() / record);
        return bytes;
    }

    /// Refers to the forms of a tool, so that they stand before the run.
    static Lines opened(const Tool& tool) {
        Lines shows;
        for (const std::string& line : tool.lines)
            if (line.starts_with("Form"))
                shows.push_back("print " + line.substr(0, line.find('.')) + ".Command1");
        return shows;
    }

    static constexpr const char* records[] = {"Plan0/Txt1/Tarvex1Ras1.txt", "Plan0/Txt11/Tarvex11Ras1.txt",
                                              "Dat/Tarvex1XYZ1.txt",        "Dat/Tarvex11XYZ1.txt",
                                              "JPL/Tarvex1Nab.txt",         "Plan1/Txt1/Tarvex1Ras1.txt",
                                              "Plan1/Txt1/Tarvex1Ras2.txt"};
    std::string told;  ///< what the last script printed of the state
    test::TempFolder folder;
};

}  // namespace

TEST_F(ToolsAndRun, TheRunIsWhatItWouldHaveBeenWithoutThem) {
    const Lines date = {"Form1.Text34 = 1965"};
    const Lines run = {"Form2.Check4 = on",  "Form2.Check20 = on", "Form2.Check2 = on",
                       "Form2.Check12 = on", "Form2.Text37 = 100", "at yield 9 Form2.Command4"};
    const struct {
        const char* what;
        Lines initial, settings;
    } modes[] = {
        {"retarded gravity",
         date + Lines{"Form4.Text1 = 100", "Form1.Command3", "Form1.Command12", "Form4.Command1"},
         {"Form2.Check13 = on", "Form2.Text35 = 1000", "Form23.Option5 = on", "Form23.Option10 = on",
          "Form23.Command1"}},
        {"Earth and Moon",
         date + Lines{"Form1.Check3 = on", "Form1.Command3", "Form1.Command12"},
         {"Form2.Text13 = 10", "Form2.Check17 = off"}},
        {"imitator",
         date + Lines{"Form1.Option9 = on", "Form1.Command3"},
         {"Form2.Option4 = on", "Form2.Option6 = on", "Form2.Text38 = 36000"}},
    };
    const Lines start = {"Form2.Text8 = 1", "Form2.Command1"},
                goOn = {"at yield 9 Form2.Command4", "Form2.Command5"};
    for (const auto& mode : modes) {
        const Lines toRun = Lines{"Form1.Command1"} + mode.settings + run;
        const std::string alone = recordsOf(mode.initial + toRun + start + goOn, mode.what);
        EXPECT_GT(alone.size(), 3000U) << mode.what;
        for (const Tool& tool : tools()) {
            const Lines plan = {"Form13.Text26 = 0",
                                "Form13.Command1"};  // its plan names another folder of records
            const bool ofPlan = tool.lines.front().starts_with("Form10");
            const Lines used = ofPlan ? tool.lines + plan : tool.lines;
            const std::string where = std::string(mode.what) + ", " + tool.what;
            EXPECT_EQ(recordsOf(mode.initial + used + toRun + start + goOn, where), alone)
                << where << " first";
            EXPECT_EQ(recordsOf(mode.initial + toRun + start + used + goOn, where), alone)
                << where << " between";
            Lines meanwhile;  // but for calculations: theirs is the flag that stops the run
            const auto calculates = [](const std::string& line) {
                return line.starts_with("Form10.Command") || line.ends_with(".Command5") ||
                       line.starts_with("Form14.Command") || line.starts_with("Form16.Command");
            };
            for (const std::string& line : used)
                if (!line.starts_with("at yield") && !calculates(line))
                    meanwhile.push_back("at yield 4 " + line);
            EXPECT_EQ(recordsOf(mode.initial + opened(tool) + (ofPlan ? plan : Lines{}) + toRun + meanwhile +
                                    start + goOn,
                                where),
                      alone)
                << where << " in the middle";
        }
    }
}

TEST_F(ToolsAndRun, ABatchIsWhatItWouldHaveBeenWhateverIsOpenedInItsMiddle) {
    const struct {
        const char* what;
        Lines settings, start;
    } batches[] = {
        {"plan on the model",
         {"Form1.Command3", "Form1.Command12", "Form15.Option6 = on", "Form15.Command5",
          "Form15.Text11(4) = 20", "Form15.Text12(4) = 5", "Form15.Text11(6) = 1047,3486",
          "Form15.Text11(7) = 408523,71", "Form15.Text6 = 2", "Form1.Command1", "Form2.Check4 = on",
          "Form2.Check20 = on", "Form2.Check14 = on", "Form2.Text37 = 100", "Form2.Text40 = 1802"},
         {"Form15.Command8"}},
        {"plan on observations",
         observations + Lines{"Form10.Option10 = on", "Form10.Text65 = 1961", "Form13.Text5 = 300"},
         {"Form10.Command7", "Form10.Command10"}},
    };
    const Lines results = {"print state.Yu(2)", "print state.b(1)", "print state.NPlan",
                           "print state.Xnul(4)", "print state.Nf"};
    for (const auto& [what, settings, start] : batches) {
        const std::string alone = recordsOf(settings + start + results, what), toldAlone = told;
        EXPECT_TRUE(alone.size() > 2000 || told.starts_with("state.Yu(2) = 46")) << what;
        for (const char* opened : {"Form10", "Form13", "Form15"}) {
            const Lines meanwhile = {"at yield 3 show " + std::string(opened)};
            EXPECT_EQ(recordsOf(settings + meanwhile + start + results, what), alone) << what << opened;
            EXPECT_EQ(told, toldAlone) << what << opened;
        }
    }
}

}  // namespace tarvex
