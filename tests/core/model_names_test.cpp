#include <gtest/gtest.h>

#include "core/model_state.h"
#include "core/name_table.h"
#include "tests/support/declared_names.h"

namespace tarvex {

/// Every member that model_state.h declares must be known by its name: a variable added without it would be
/// invisible to scripts.
TEST(ModelNames, EveryDeclaredVariableIsKnown) {
    ModelState s;
    NameTable table;
    addNames(table, s);
    const auto names = test::declaredNames("core/model_state.h", "ModelState");
    EXPECT_GT(names.size(), 120);
    for (const std::string& name : names) EXPECT_TRUE(table.knows(name)) << name;
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
