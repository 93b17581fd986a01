// tarvex-script: the laboratory without a screen.

#include <iostream>

#include "script/program.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return tarvex::runScriptProgram({argv + 1, argv + argc}, std::cin, std::cout, std::cerr);
}
