#include "tests/numeric/allocation_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<std::size_t> count = 0;
}

namespace tarvex::test {
std::size_t allocations() { return count; }
}  // namespace tarvex::test

void* operator new(std::size_t size) {
    ++count;
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
