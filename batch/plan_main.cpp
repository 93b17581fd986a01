// tarvex-plan: the experiments of a plan without windows, on all cores.

#include <unistd.h>

#include <iostream>

#include "batch/batch_options.h"
#include "batch/plan_batch.h"
#include "core/failure.h"

int main(int argc, char** argv) {
    try {
        const int status = tarvex::runBatch(tarvex::parseBatchOptions({argv + 1, argv + argc}), std::cout,
                                            std::cerr, isatty(STDERR_FILENO) != 0);
        if (!std::cout.flush()) throw tarvex::Failure("не удалось записать вывод");
        return status;
    } catch (const std::exception& failure) {
        std::cerr << tarvex::causeOf(failure) << '\n';
        return 2;
    }
}
