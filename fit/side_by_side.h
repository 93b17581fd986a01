#pragma once
// Independent pieces of work on several cores.

#include <cstddef>
#include <functional>

namespace tarvex {

/// Does work(0) .. work(count - 1) on `jobs` threads (0: one a core), each piece once, in no order.
/// @param wait  called on the caller's thread before the first and now and then while it waits; false ends
/// what has
///              not begun
/// @return      false when it was ended so
/// @throws the first failure of a piece, when all that had begun is over
bool sideBySide(std::size_t count, int jobs, const std::function<void(std::size_t)>& work,
                const std::function<bool()>& wait = {});

}  // namespace tarvex
