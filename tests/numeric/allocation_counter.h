#pragma once
// Counts every allocation of the test program, so that a run can be asked for its own.

#include <cstddef>

namespace tarvex::test {

std::size_t allocations();

}  // namespace tarvex::test
