#include "batch/plan_batch.h"

#include <gtest/gtest.h>

#include <sstream>

#include "core/data_tree.h"
#include "forms/laboratory.h"
#include "script/player.h"
#include "tests/support/temp_folder.h"

namespace tarvex {

namespace fs = std::filesystem;
using test::readBytes;
using test::TempFolder;

namespace {

const std::vector<std::string> makePlan = {"Form15.Text4 = 1",
                                           "Form15.Option6 = on",
                                           "Form15.Command5",
                                           "Form15.Text11(4) = 20",
                                           "Form15.Text12(4) = 5",
                                           "Form15.Text11(6) = 1047,3486",
                                           "Form15.Text11(7) = 408523,71",
                                           "Form15.Command12"};
const std::vector<std::string> settings = {"Form2.Text40 = 1802", "Form2.Text39 = 100", "Form2.Text37 = 5000",
                                           "Form2.Check13 = off"};

void makeTree(const TempFolder& folder) {
    for (const char* name : {"Dat", "JPL", "NEW", "Ser", "Plan1/Txt1", "Plan1/Txt2"}) folder.makeFolder(name);
}

std::string play(const fs::path& tree, std::vector<std::string> lines) {
    std::ostringstream out;
    ScriptScreen screen(out);
    Laboratory lab(screen, tree);
    Player(screen, lab.desk, lab.names).play(lines);
    return out.str();
}

fs::path recordOf(const fs::path& tree, int planet, int experiment) {
    return DataTree(tree).at(files::runRecord(1, planet, experiment));
}

BatchOptions optionsFor(const fs::path& tree) {
    BatchOptions o;
    o.data = tree;
    o.plan = 1;
    o.first = 1;
    o.last = 2;
    o.jobs = 2;
    o.settings = {{"Form2.Text40", "1802"}, {"Form2.Text39", "100"}, {"Form2.Text37", "5000"}};
    return o;
}

}  // namespace

/// The same run files, byte for byte, as the plan's form makes at the desk one after another.
TEST(PlanBatch, WritesWhatTheFormOfThePlanWrites) {
    const TempFolder desk, batch;
    makeTree(desk);
    makeTree(batch);
    EXPECT_EQ(play(desk.path(), makePlan), "");
    fs::copy_file(DataTree(desk.path()).at(files::plan(1)), DataTree(batch.path()).at(files::plan(1)));

    std::vector<std::string> lines = {"Form1.Command1", "Form15.Text4 = 1", "Form15.Option6 = on",
                                      "Form15.Command5", "Form15.Command14"};
    lines.insert(lines.end(), settings.begin(), settings.end());
    for (const char* line : {"Form2.Text13 = 1", "Form15.Text5 = 1", "Form15.Text6 = 2", "Form15.Command8"})
        lines.emplace_back(line);
    play(desk.path(), lines);

    std::ostringstream out, err;
    EXPECT_EQ(runBatch(optionsFor(batch.path()), out, err), 0) << err.str();
    for (const int e : {1, 2}) {
        ASSERT_TRUE(fs::exists(recordOf(batch.path(), 1, e)));
        const std::string atDesk = readBytes(recordOf(desk.path(), 1, e));
        EXPECT_GT(std::count(atDesk.begin(), atDesk.end(), '\n'), 8);
        EXPECT_EQ(readBytes(recordOf(batch.path(), 1, e)), atDesk) << e;
    }
    EXPECT_NE(readBytes(recordOf(batch.path(), 1, 1)), readBytes(recordOf(batch.path(), 1, 2)));
    EXPECT_NE(err.str().find("готово 2 из 2"), std::string::npos);
    // nothing else was left in the plan's folder
    EXPECT_EQ(std::distance(fs::directory_iterator(recordOf(batch.path(), 1, 1).parent_path()), {}), 2);
}

TEST(PlanBatch, ResumeKeepsWhatIsFinishedAndFailuresAreTold) {
    const TempFolder tree;
    makeTree(tree);
    play(tree.path(), makePlan);
    test::writeBytes(recordOf(tree.path(), 1, 1), "finished before");
    BatchOptions o = optionsFor(tree.path());
    o.resume = true;
    std::ostringstream out, err;
    EXPECT_EQ(runBatch(o, out, err), 0) << err.str();
    EXPECT_EQ(readBytes(recordOf(tree.path(), 1, 1)), "finished before");
    EXPECT_TRUE(readBytes(recordOf(tree.path(), 1, 2)).starts_with("эксперимент № 2"));

    o.resume = false;
    o.settings.push_back({"Form2.Text38", "0"});  // a zero step ends every run with its message
    std::ostringstream trouble;
    EXPECT_EQ(runBatch(o, out, trouble), 2);
    EXPECT_NE(trouble.str().find("эксперимент 1: "), std::string::npos);
    EXPECT_EQ(readBytes(recordOf(tree.path(), 1, 1)), "finished before");  // the old file stands
    o.planets = {5};                                                       // no folder for it
    EXPECT_THROW(runBatch(o, out, err), Failure);
}

}  // namespace tarvex
