// tarvex-fit: the model fitted to places of bodies, on all cores.

#include "batch/fit_options.h"
#include "batch/fit_run.h"
#include "batch/program.h"

int main(int argc, char** argv) {
    return tarvex::runProgram(argc, argv, [](const std::vector<std::string>& arguments, bool terminal) {
        return tarvex::runFit(tarvex::parseFitOptions(arguments), std::cout, std::cerr, terminal);
    });
}
