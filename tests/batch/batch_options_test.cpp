#include "batch/batch_options.h"

#include <iostream>

#include "batch/plan_batch.h"
#include "tests/support/testing.h"

namespace tarvex {

TEST(BatchOptions, ReadsTheWholeLine) {
    const auto o = parseBatchOptions({"--plan", "3", "--experiments", "2-5", "--planets", "1,4-6", "--jobs",
                                      "7", "--lanes", "3", "--resume", "--data", "/tree", "Text38=1800",
                                      "Form15.Check5=on", "Form1.Text34=1900"});
    EXPECT_EQ(o.plan, 3);
    EXPECT_EQ(o.first, 2);
    EXPECT_EQ(o.last, 5);
    EXPECT_EQ(o.planets, (std::vector<int>{1, 4, 5, 6}));
    EXPECT_EQ(o.jobs, 7);
    EXPECT_EQ(o.lanes, 3);
    EXPECT_TRUE(o.resume);
    EXPECT_EQ(o.data, std::filesystem::path("/tree"));
    // Form1 comes first and is formed anew, the plan is made before its levels are loaded, Form2 last
    EXPECT_EQ(settingsScript(o, 4),
              (std::vector<std::string>{"Form1.Text34 = 1900", "Form1.Command3", "Form1.Command12",
                                        "Form1.Command1", "Form15.Text4 = 3", "Form15.Check5 = on",
                                        "Form15.Option6 = on", "Form15.Command5", "Form15.Command14",
                                        "Form2.Text38 = 1800", "Form2.Text13 = 4"}));
}

TEST(BatchOptions, SaysWhatIsWrong) {
    for (const std::vector<std::string>& bad :
         std::vector<std::vector<std::string>>{{},
                                               {"--experiments", "1-2"},
                                               {"--plan", "x", "--experiments", "1"},
                                               {"--plan", "1", "--experiments", "5-2"},
                                               {"--plan", "1", "--experiments", "1,3"},
                                               {"--plan", "1", "--experiments", "1", "--planets", "11"},
                                               {"--plan", "1", "--experiments", "1", "--planets", "1-3,2"},
                                               {"--plan", "1", "--experiments", "1", "--nonsense"},
                                               {"--plan", "1", "--experiments", "1", "--lanes", "0"},
                                               {"--plan", "1", "--experiments", "1", "Text38"},
                                               {"--plan", "1", "--experiments", "1-99999"}})
        EXPECT_THROW(parseBatchOptions(bad), Failure);
}

TEST(BatchOptions, MissingTreeOrPlanIsTold) {
    BatchOptions o;
    o.plan = 1;
    o.first = o.last = 1;
    o.data = "/nowhere";
    try {
        runBatch(o, std::cout, std::cerr);
        ADD_FAILURE() << "a run without a tree";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "нет каталога данных /nowhere");
    }
}

}  // namespace tarvex
