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
    std::size_t known = 0;
    const std::pair<const char*, const char*> structs[] = {{"numeric/run_state.h", "RunState"},
                                                           {"numeric/orbit_watch.h", "OrbitWatch"},
                                                           {"numeric/energy.h", "Energy"}};
    for (const auto& [header, structure] : structs)
        for (const std::string& name : test::declaredNames(header, structure)) {
            EXPECT_TRUE(table.knows(name)) << name;
            ++known;
        }
    EXPECT_GE(known, 65);

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
