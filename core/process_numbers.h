#pragma once
// The numbers of processes in names of files.

#include <signal.h>

#include <cerrno>
#include <charconv>
#include <string_view>

namespace tarvex {

/// The process number that a name starts with; 0 when it starts with none.
inline pid_t processIn(std::string_view name) {
    pid_t process = 0;
    std::from_chars(name.data(), name.data() + name.size(), process);
    return process;
}

/// True when no process of this machine has the number.
inline bool gone(pid_t process) { return process > 0 && kill(process, 0) != 0 && errno == ESRCH; }

}  // namespace tarvex
