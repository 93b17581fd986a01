// tarvex-plan: the experiments of a plan without windows, on all cores.

#include <iostream>

#include "batch/batch_options.h"
#include "batch/plan_batch.h"

int main(int argc, char** argv) {
    try {
        return tarvex::runBatch(tarvex::parseBatchOptions({argv + 1, argv + argc}), std::cout, std::cerr);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 2;
    }
}
