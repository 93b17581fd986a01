#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "core/model_state.h"
#include "core/name_table.h"

namespace tarvex {

/// Every member that model_state.h declares must be known by its name: a variable added without it would be
/// invisible to scripts.
TEST(ModelNames, EveryDeclaredVariableIsKnown) {
    std::ifstream file(TARVEX_SOURCE_DIR "/core/model_state.h");
    std::stringstream all;
    all << file.rdbuf();
    std::string text = all.str();
    text = text.substr(text.find("struct ModelState {"));
    text = text.substr(0, text.find("std::function"));
    text = std::regex_replace(text, std::regex("//[^\n]*"), "");

    ModelState s;
    NameTable table;
    addNames(table, s);
    int found = 0;
    // a name stands before '{', '=', ',' or ';' and after a type or a comma, with its initialiser cut out
    std::string flat = std::regex_replace(text, std::regex("=[^;]*;"), ";");
    flat = std::regex_replace(flat, std::regex("\\{\\}"), "");
    const std::regex declaration(
        "(?:Rows|double|std::int\\d+_t|std::string|Row2<[^;]*?>|std::array<[^;]*?>)\\s+([A-Za-z_0-9, =]+);");
    for (std::sregex_iterator it(flat.begin(), flat.end(), declaration), end; it != end; ++it) {
        std::stringstream names((*it)[1]);
        for (std::string name; std::getline(names, name, ',');) {
            name = std::regex_replace(name, std::regex("[ ]|=.*"), "");
            EXPECT_TRUE(table.knows(name)) << name;
            ++found;
        }
    }
    EXPECT_GT(found, 90);
}

TEST(ModelNames, ReadsCellsAndRefusesBadIndices) {
    ModelState s;
    NameTable table;
    addNames(table, s);
    s.AlfaL[1] = 0.1;
    s.kodPair[0][3] = 1;
    EXPECT_EQ(table.value("AlfaL(1)"), "0.10000000000000001");
    EXPECT_EQ(table.value("kodPair(0, 3)"), "1");
    EXPECT_EQ(table.value("Pi"), "3.1415926535900001");
    EXPECT_EQ(table.value("NameData"), "");
    EXPECT_THROW(table.value("AlfaL"), SubscriptFailure);
    EXPECT_THROW(table.value("AlfaL(40)"), SubscriptFailure);
    EXPECT_THROW(table.value("AlfaL(-1)"), SubscriptFailure);
    EXPECT_THROW(table.value("AlfaL(1,2)"), SubscriptFailure);
    EXPECT_THROW(table.value("AlfaL(x)"), SubscriptFailure);
    EXPECT_THROW(table.value("AlfaL(1"), SubscriptFailure);
    EXPECT_THROW(table.value("NoSuch"), Failure);
}

}  // namespace tarvex
