#include "forms/form_map.h"

#include "tests/forms/lab_fixture.h"

namespace tarvex {

namespace {
using FormMapTest = test::LabTest;
}

TEST_F(FormMapTest, FindsFormsByNumberPurposeAndHints) {
    const FormMap map(lab.desk);
    EXPECT_EQ(map.entries().size(), lab.desk.names().size());
    EXPECT_EQ(map.find(" ").size(), lab.desk.names().size());
    struct Case {
        const char* wanted;
        int first;
    };
    for (const Case& one : {Case{"затмение", 16},
                            {"16", 16},
                            {" 2 ", 2},
                            {"6", 6},
                            {"аберрации", 11},
                            {"Лиенару", 23},
                            {"ДВОЙНОЙ пульсар", 25},
                            {"Опубликованным положениям", 24}}) {
        const auto hits = map.find(one.wanted);
        ASSERT_FALSE(hits.empty()) << one.wanted;
        EXPECT_EQ(hits.front().entry->number, one.first) << one.wanted;
    }
    EXPECT_EQ(lab.desk.describe("Form16")->title().find("атмени"), std::string::npos);
    EXPECT_NE(map.find("Лиенару").front().why.find("Лиенару"), std::string::npos);
    EXPECT_TRUE(map.find("небылица").empty());
    EXPECT_FALSE(lab.desk.anyLoaded());
    for (const Road& road : roads())
        for (const Road::Example& example : road.examples)
            EXPECT_TRUE(std::filesystem::exists(TARVEX_SOURCE_DIR "/examples/" + example.file))
                << example.file;
}

}  // namespace tarvex
