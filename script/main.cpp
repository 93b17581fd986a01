// tarvex-script: the laboratory without a screen.

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "core/failure.h"
#include "forms/laboratory.h"
#include "script/player.h"
#include "script/script_screen.h"

namespace {

constexpr int cannotBeDone = 2;

struct Arguments {
    std::filesystem::path data = "data";
    std::string script;
};

bool parse(int argc, char** argv, Arguments& arguments) {
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--data" && i + 1 < argc) arguments.data = argv[++i];
        else if (arguments.script.empty() && (word == "-" || !word.starts_with('-'))) arguments.script = word;
        else return false;
    }
    return !arguments.script.empty();
}

int fail(const std::string& text) {
    std::cerr << text << std::endl;
    return cannotBeDone;
}

}  // namespace

int main(int argc, char** argv) {
    Arguments arguments;
    if (!parse(argc, argv, arguments)) return fail("tarvex-script [--data КАТАЛОГ] СЦЕНАРИЙ|-");
    std::error_code error;
    if (!std::filesystem::is_directory(arguments.data, error))
        return fail("нет каталога данных " + arguments.data.string());
    try {
        const std::vector<std::string> lines =
            arguments.script == "-" ? tarvex::readScript(std::cin) : tarvex::readScript(arguments.script);
        tarvex::ScriptScreen screen(std::cout);
        tarvex::Laboratory lab(screen, arguments.data);
        tarvex::Player(screen, lab.desk, lab.names).play(lines);
    } catch (const tarvex::LineFailure& failure) {
        return fail(arguments.script + ":" + std::to_string(failure.line) + ": " + failure.text);
    } catch (const tarvex::OpenFailure&) {
        return fail("не удалось прочитать " + arguments.script);
    } catch (const std::exception& failure) {
        return fail(arguments.script + ": " + failure.what());
    }
    return 0;
}
