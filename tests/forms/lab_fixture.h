#pragma once
// A laboratory on a recording screen and a data tree of its own.

#include "forms/laboratory.h"
#include "tests/support/recording_screen.h"
#include "tests/support/testing.h"

namespace tarvex::test {

class LabTest : public ::testing::Test {
protected:
    LabTest() : lab(screen, folder.path()) {
        for (const char* name : {"Dat", "JPL", "NEW", "Ser", "Obs", "Tab", "Plan0", "Risunki"})
            folder.makeFolder(name);
    }

    TempFolder folder;
    RecordingScreen screen;
    Laboratory lab;
};

}  // namespace tarvex::test
