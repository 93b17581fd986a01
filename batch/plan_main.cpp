// tarvex-plan: the experiments of a plan without windows, on all cores.

#include "batch/batch_options.h"
#include "batch/plan_batch.h"
#include "batch/program.h"

int main(int argc, char** argv) {
    return tarvex::runProgram(argc, argv, [](const std::vector<std::string>& arguments, bool terminal) {
        return tarvex::runBatch(tarvex::parseBatchOptions(arguments), std::cout, std::cerr, terminal);
    });
}
