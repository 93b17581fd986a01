#include <gtest/gtest.h>

#include "core/name_table.h"
#include "numeric/run_state.h"
#include "tests/support/declared_names.h"

namespace tarvex {

/// Every variable of a run and of its energies must be known by its name, and under that name stand itself.
TEST(RunNames, EveryDeclaredVariableIsKnown) {
    RunState run;
    NameTable table;
    addNames(table, run);
    const auto names = test::declaredNames("numeric/run_state.h", "RunState");
    EXPECT_GE(names.size(), 60);
    for (const std::string& name : names) EXPECT_TRUE(table.knows(name)) << name;
    for (const std::string& name : test::declaredNames("numeric/energy.h", "Energy"))
        EXPECT_TRUE(table.knows(name)) << name;

    run.Uzel2Lo = 1.5;
    run.K3[65] = -2;
    run.FileRas = "ras";
    run.Rsol0[10] = 7;
    EXPECT_EQ(
        table.value("Uzel2Lo") + table.value("K3(65)") + table.value("FileRas") + table.value("Rsol0(10)"),
        "1.5-2ras7");
    EXPECT_THROW(table.value("K3(66)"), SubscriptFailure);
}

}  // namespace tarvex
