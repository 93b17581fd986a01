#include "batch/plan_batch.h"

#include <unistd.h>

#include "batch/batch_progress.h"
#include "core/data_tree.h"
#include "core/file_lock.h"
#include "experiment/plan_run.h"
#include "forms/laboratory.h"
#include "script/player.h"
#include "stats/gravity_plan.h"
#include "stats/plan_file.h"
#include "tests/support/testing.h"

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

std::string play(const fs::path& tree, const std::vector<std::string>& lines) {
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

/// The plan of makePlan and its experiments without any form.
void runAsValues(const TempFolder& folder) {
    const DataTree tree(folder.path());
    PlanBlock plan;
    ShiftTables weights;
    createGravityPlan(plan, planOrtho, {1, 2, 3, 4});
    readPlanFile(tree, 1, plan, weights);
    setNaturalLevels(plan);
    const auto model = std::make_unique<Model>(tree);
    RunSettings run;
    run.lastYear = 1802;
    run.stepDivider = 100;
    run.stepsPerDisplay = 5000;
    ExperimentPort silent;
    for (const int u : {1, 2}) {
        formInitialData(model->experiment(), {});
        const PlanSettings set{
            .plan = 1, .finiteGravitySpeed = true, .pressure = planHasPressure(plan, false)};
        EXPECT_TRUE(runPlanExperiment(model->experiment(), plan, u, set, run, silent).complete);
    }
    EXPECT_THROW(runPlanExperiment(model->experiment(), plan, 91, {}, run, silent), Refusal);
}

/// The same run files, byte for byte, as the plan's form makes at the desk one after another, and as its
/// experiments make as values.  Their law has a speed of gravity.
TEST(PlanBatch, WritesWhatTheFormOfThePlanWrites) {
    const TempFolder desk, batch, values;
    makeTree(desk);
    makeTree(batch);
    makeTree(values);
    EXPECT_EQ(play(desk.path(), makePlan), "");
    for (const TempFolder* other : {&batch, &values})
        fs::copy_file(DataTree(desk.path()).at(files::plan(1)), DataTree(other->path()).at(files::plan(1)));
    runAsValues(values);

    std::vector<std::string> lines = {"Form1.Command1",      "Form15.Text4 = 1", "Form15.Check6 = on",
                                      "Form15.Option6 = on", "Form15.Command5",  "Form15.Command14"};
    lines.insert(lines.end(), settings.begin(), settings.end());
    for (const char* line : {"Form2.Text13 = 1", "Form15.Text5 = 1", "Form15.Text6 = 2", "Form15.Command8"})
        lines.emplace_back(line);
    play(desk.path(), lines);

    BatchOptions abreast = optionsFor(batch.path());
    abreast.jobs = 1;  // so both go side by side in its lanes
    abreast.settings.push_back({"Form15.Check6", "on"});
    std::ostringstream out, err;
    EXPECT_EQ(runBatch(abreast, out, err), 0) << err.str();
    for (const int e : {1, 2}) {
        ASSERT_TRUE(fs::exists(recordOf(batch.path(), 1, e)));
        const std::string atDesk = readBytes(recordOf(desk.path(), 1, e));
        EXPECT_GT(std::count(atDesk.begin(), atDesk.end(), '\n'), 8);
        EXPECT_EQ(readBytes(recordOf(batch.path(), 1, e)), atDesk) << e;
        EXPECT_EQ(readBytes(recordOf(values.path(), 1, e)), atDesk) << e;
    }
    EXPECT_NE(readBytes(recordOf(batch.path(), 1, 1)), readBytes(recordOf(batch.path(), 1, 2)));
    EXPECT_NE(err.str().find("готово 2 из 2"), std::string::npos);
    // nothing else was left in the plan's folder, nor in that of passing files
    EXPECT_EQ(std::distance(fs::directory_iterator(recordOf(batch.path(), 1, 1).parent_path()), {}), 2);
    for (const auto& entry : fs::directory_iterator(fs::temp_directory_path()))
        EXPECT_FALSE(entry.path().filename().string().starts_with("tarvex-plan-" + std::to_string(getpid())));
}

namespace {

struct Told {
    int status = 0;
    std::string ran;  ///< the experiments that were run, in order of number: "12"
    std::string err;
};

Told runTold(const BatchOptions& options) {
    std::ostringstream out, err;
    Told told;
    told.status = runBatch(options, out, err);
    told.err = err.str();
    for (const int e : {1, 2})
        if (out.str().find("Ras" + std::to_string(e) + ".txt") != std::string::npos)
            told.ran += std::to_string(e);
    return told;
}

void replaceIn(const fs::path& path, const std::string& what, const std::string& by) {
    std::string bytes = readBytes(path);
    ASSERT_NE(bytes.find(what), std::string::npos) << what;
    test::writeBytes(path, bytes.replace(bytes.find(what), what.size(), by));
}

}  // namespace

/// What the journal knows and the record still is stays; all else runs again, to the same bytes.
TEST(PlanBatch, ResumeRunsWhatTheJournalDoesNotKnowAsFinished) {
    const TempFolder tree;
    makeTree(tree);
    play(tree.path(), makePlan);
    const fs::path first = recordOf(tree.path(), 1, 1), journal = tree.path() / "Plan1/TarvexJournal1.txt";
    BatchOptions o = optionsFor(tree.path());
    o.resume = true;
    test::writeBytes(first, "a record of unknown origin");
    ASSERT_EQ(runTold(o).ran, "12");
    const std::string whole = readBytes(first);
    ASSERT_TRUE(whole.starts_with("эксперимент № 1"));

    struct Case {
        const char* what;
        std::function<void()> damage;
        const char* ran;
    };
    const Case cases[] = {
        {"nothing", [] {}, ""},
        {"a record cut short", [&] { fs::resize_file(first, 300); }, "1"},
        {"a record of the same size", [&] { replaceIn(first, "№ 1", "№ 9"); }, "1"},
        {"no record", [&] { fs::remove(first); }, "1"},
        {"a line of the journal lost", [&] { replaceIn(journal, "1 2 ", "1 - "); }, "2"},
        {"no journal", [&] { fs::remove(journal); }, "12"},
        {"an empty journal", [&] { test::writeBytes(journal, ""); }, "12"},
        {"no text", [&] { test::writeBytes(journal, std::string(3 << 20, '\0')); }, "12"},
    };
    for (const Case& c : cases) {
        c.damage();
        EXPECT_EQ(runTold(o).ran, c.ran) << c.what;
        EXPECT_EQ(readBytes(first), whole) << c.what;
    }
    o.settings[0].value = "1801";
    try {
        runTold(o);
        ADD_FAILURE() << "records of other settings were taken";
    } catch (const Failure& failure) {
        const std::string text = failure.what();
        EXPECT_TRUE(text.find("Text40=1801") < text.size() && text.find("Text40=1802") < text.size()) << text;
    }
    EXPECT_EQ(readBytes(first), whole);
    o.again = true;
    EXPECT_EQ(runTold(o).ran, "12");
    EXPECT_EQ(runTold(o).ran, "");
    o.again = false;
    play(tree.path(), {"Form15.Text4 = 1", "Form15.Option6 = on", "Form15.Command5", "Form15.Command12"});
    EXPECT_THROW(runTold(o), Failure) << "another plan";
}

TEST(PlanBatch, FailuresAreToldAndLeaveTheOldFile) {
    const TempFolder tree;
    makeTree(tree);
    play(tree.path(), makePlan);
    const fs::path first = recordOf(tree.path(), 1, 1);
    test::writeBytes(first, "finished before");
    BatchOptions o = optionsFor(tree.path());
    o.lanes = 2;  // one process for both
    {
        const auto other = FileLock::tryLock(first);  // as if the laboratory was writing it
        const Told told = runTold(o);
        EXPECT_EQ(told.status, 2);
        EXPECT_EQ(told.ran, "2");
        EXPECT_NE(told.err.find("пишет другая программа"), std::string::npos) << told.err;
    }
    o.settings.push_back({"Form2.Text38", "0"});  // a zero step ends every run with its message
    const Told told = runTold(o);
    EXPECT_EQ(told.status, 2);
    EXPECT_NE(told.err.find("эксперимент 1: "), std::string::npos);
    EXPECT_EQ(readBytes(first), "finished before");
    o.planets = {5};  // no folder for it
    EXPECT_THROW(runTold(o), Failure);
}

/// In a log a line at each begin and end, and else one a minute; on a terminal one in two seconds.
TEST(BatchProgress, ALogIsToldLittle) {
    using namespace std::chrono_literals;
    for (const bool terminal : {false, true}) {
        std::ostringstream err;
        BatchProgress progress(err, terminal, 7);
        BatchProgress::Clock::time_point now{};
        progress.begin(4, 1, now);
        progress.began({2, 3});
        for (int i = 0; i < 5 * 60 * 5; ++i) progress.tell(1, 0.5, now += 200ms);
        progress.finished({2, 3});
        const std::string text = err.str();
        const auto lines = std::count(text.begin(), text.end(), '\n');
        EXPECT_TRUE(terminal ? lines > 100 && lines <= 150 : lines >= 6 && lines <= 7) << text;
        EXPECT_NE(text.find("план 7: готово 1 из 4, в работе 1, осталось 0:0"), std::string::npos) << text;
        EXPECT_EQ(text.find("планета 2, эксперимент 3: ") < text.size(), !terminal);
    }
}

}  // namespace tarvex
