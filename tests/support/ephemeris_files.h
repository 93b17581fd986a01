#pragma once
// The real DE405 files of the source tree for a test's own data tree.

#include "tests/support/testing.h"

namespace tarvex::test {

/// Folder with ascp1960.405 ... ascp2040.405; the build makes them.
std::filesystem::path ephemerisFolder();

/// Gives the folder a JPL with links to the files.
void linkEphemeris(const TempFolder& folder);

}  // namespace tarvex::test
