#include "spreadsheet/spreadsheet.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "tests/support/test_workbook.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

namespace fs = std::filesystem;

const std::vector<Cell> date = {{1, "D9"}, {1, "C9"}, {1, "B9"}, {1, "F9"}};

/// Two sheets: sums of the date cells, a text rule, an error, a number that was typed between the date cells.
void writeTable(const fs::path& path) {
    test::writeWorkbook(path, {{{"D9", "1"},
                                {"C9", "1"},
                                {"B9", "1"},
                                {"F9", "1"},
                                {"E9", "77"},
                                {"C14", "=[.D9]*1000+[.C9]*100+[.B9]+[.F9]/100"},
                                {"C15", "=[.E9]"}},
                               {{"AD61", "=[$'It''s 1'.C14]*2"},
                                {"AE30", "=IF([$'It''s 1'.D9]<0;\"S\";\"N\")"},
                                {"A1", "=1/0"},
                                {"A2", "'text"}}});
}

/// A dead process that nobody has waited for is no living one.
bool processLives(int pid) {
    const std::string stat = test::readBytes("/proc/" + std::to_string(pid) + "/stat");
    const auto name = stat.rfind(')');
    return name != std::string::npos && stat.substr(name + 2, 1) != "Z";
}

bool endsSoon(int pid) {
    for (int i = 0; i < 200 && processLives(pid); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return !processLives(pid);
}

/// The private folders of a program's offices.
std::vector<fs::path> foldersOf(int pid) {
    std::vector<fs::path> all;
    for (const auto& entry : fs::directory_iterator(fs::temp_directory_path()))
        if (entry.path().filename().string().starts_with("tarvex-office-" + std::to_string(pid) + "-"))
            all.push_back(entry.path());
    return all;
}

/// Entries whose names begin and end so.
int countIn(const fs::path& folder, const std::string& begin, const std::string& end) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        count += name.starts_with(begin) && name.ends_with(end);
    }
    return count;
}

struct Office : ::testing::Test {
    Office() {
        writeTable(table);
        folder.makeFolder("profiles");
        setenv("TMPDIR", (folder.path() / "profiles").c_str(), 1);  // no other program sweeps or counts here
    }
    ~Office() override { unsetenv("TMPDIR"); }
    void SetUp() override {
        if (!SpreadsheetOffice::available()) GTEST_SKIP() << "built without LibreOffice";
    }
    test::TempFolder folder;
    fs::path table = folder.path() / "AlBattani.xls";
};

}  // namespace

TEST_F(Office, CellsAreWrittenRecalculatedAndRead) {
    SpreadsheetOffice office;
    std::string marks;
    office.onBusy([&](bool on) { marks += on ? '+' : '-'; });
    EXPECT_EQ(office.process(), 0);
    const std::string before = test::readBytes(table);
    {
        const auto book = office.open(table, 2);
        EXPECT_EQ(marks, "+-");
        const std::vector<Cell> wanted = {{1, "C14"}, {2, "AD61"}, {2, "AE30"}, {1, "C15"}, {2, "Z99"}};
        for (const int year : {900, -5, 901}) {
            const auto values = book->calculate(date, {double(year), 2, 3, 12.5}, wanted);
            const double sum = year * 1000 + 203 + 0.125;
            EXPECT_DOUBLE_EQ(numberIn(values[0]), sum);
            EXPECT_DOUBLE_EQ(numberIn(values[1]), 2 * sum);
            EXPECT_EQ(textIn(values[2]), year < 0 ? "S" : "N");
            EXPECT_EQ(numberIn(values[3]), 77) << "cells between those of the date stay";
            EXPECT_EQ(numberIn(values[4]), 0) << "an empty cell";
        }
        EXPECT_DOUBLE_EQ(numberIn(book->calculate(date, {1, 1, 1, 0}, {{2, "AD61"}})[0]), 2202)
            << "another list";

        EXPECT_THROW(numberIn(book->calculate(date, {1, 1, 1, 0}, {{2, "A2"}})[0]), ConversionFailure);
        for (const Cell& bad : {Cell{2, "A1"}, Cell{3, "A1"}, Cell{0, "A1"}, Cell{1, "no cell"}, Cell{1, ""}})
            EXPECT_THROW(book->calculate(date, {1, 1, 1, 0}, {bad}), Failure) << bad.sheet << bad.name;
        EXPECT_DOUBLE_EQ(numberIn(book->calculate(date, {1, 1, 1, 0}, {{1, "C14"}})[0]), 1101)
            << "after failures";
    }
    EXPECT_EQ(test::readBytes(table), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator{}), 2)
        << "no lock file stays";

    EXPECT_THROW(office.open(folder.path() / "Wing.xls", 1), OpenFailure);
    EXPECT_THROW(office.open(table, 3), FileFailure);
    const int pid = office.process();
    EXPECT_NO_THROW(office.open(table, 1));
    EXPECT_EQ(office.process(), pid) << "started once";
}

TEST_F(Office, AKilledOfficeIsAFailureAndTheNextOpenStartsItAnew) {
    SpreadsheetOffice office;
    auto book = office.open(table, 2);
    const int first = office.process();
    kill(first, SIGKILL);
    EXPECT_THROW(
        {
            for (int i = 0; i < 1000; ++i) book->calculate(date, {1, 1, 1, 0}, {{1, "C14"}});
        },
        Failure);
    book = office.open(table, 2);
    EXPECT_NE(office.process(), first);
    EXPECT_DOUBLE_EQ(numberIn(book->calculate(date, {2, 1, 1, 0}, {{1, "C14"}})[0]), 2101);
}

TEST_F(Office, TheOfficeEndsWithTheProgramAlsoAfterACrash) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t program = fork();
    if (program == 0) {  // a program that opens a table and is killed
        SpreadsheetOffice office;
        const auto book = office.open(table, 1);
        const int pid = office.process();
        if (write(ends[1], &pid, sizeof pid) != sizeof pid) _exit(1);
        raise(SIGKILL);
    }
    int pid = 0;
    ASSERT_EQ(read(ends[0], &pid, sizeof pid), static_cast<ssize_t>(sizeof pid));
    close(ends[0]);
    close(ends[1]);
    waitpid(program, nullptr, 0);
    EXPECT_TRUE(endsSoon(pid));
    ASSERT_EQ(foldersOf(program).size(), 1U);

    int own = 0;
    {
        SpreadsheetOffice office;
        const auto book = office.open(table, 1);
        own = office.process();
        EXPECT_TRUE(foldersOf(program).empty()) << "what the crash left is swept";
        ASSERT_EQ(foldersOf(getpid()).size(), 1U);
        const fs::path place = foldersOf(getpid())[0];
        EXPECT_EQ(fs::status(place).permissions(), fs::perms::owner_all);
        EXPECT_GE(countIn(place, "lu", ".tmp"), 1) << "its passing files lie there";
    }
    EXPECT_FALSE(processLives(own));
    EXPECT_TRUE(foldersOf(getpid()).empty());
}

}  // namespace tarvex
