#pragma once
// What the programs of the batch have in common: arguments in, output flushed, a failure told with its cause.

#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "core/failure.h"

namespace tarvex {

/// Runs one program of the batch.
/// @param work  takes the arguments without the program's name and whether a terminal follows its progress
/// @return      its status; 2 after a failure, which stands on the error output
template <class Work>
int runProgram(int argc, char** argv, Work work) {
    try {
        const int status = work(std::vector<std::string>(argv + 1, argv + argc), isatty(STDERR_FILENO) != 0);
        if (!std::cout.flush()) throw Failure("не удалось записать вывод");
        return status;
    } catch (const std::exception& failure) {
        std::cerr << causeOf(failure) << '\n';
        return 2;
    }
}

}  // namespace tarvex
