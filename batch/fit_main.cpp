// tarvex-fit: the model fitted to places of bodies, on all cores.

#include <unistd.h>

#include <iostream>

#include "batch/fit_options.h"
#include "batch/fit_run.h"
#include "core/failure.h"

int main(int argc, char** argv) {
    try {
        const int status = tarvex::runFit(tarvex::parseFitOptions({argv + 1, argv + argc}), std::cout,
                                          std::cerr, isatty(STDERR_FILENO) != 0);
        if (!std::cout.flush()) throw tarvex::Failure("не удалось записать вывод");
        return status;
    } catch (const std::exception& failure) {
        std::cerr << tarvex::causeOf(failure) << '\n';
        return 2;
    }
}
