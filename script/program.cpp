#include "script/program.h"

#include <filesystem>
#include <istream>
#include <optional>
#include <ostream>

#include "core/data_home.h"
#include "core/failure.h"
#include "core/leftovers.h"
#include "desktop/canvas_image.h"
#include "forms/laboratory.h"
#include "script/player.h"
#include "script/script_screen.h"

namespace tarvex {

namespace {

constexpr int cannotBeDone = 2;

struct Options {
    std::optional<std::filesystem::path> data;
    std::string script;
};

bool parse(const std::vector<std::string>& arguments, Options& options) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (word == "--data" && i + 1 < arguments.size())
            options.data = arguments[++i];
        else if (options.script.empty() && (word == "-" || !word.starts_with('-')))
            options.script = word;
        else
            return false;
    }
    return !options.script.empty();
}

}  // namespace

int runScriptProgram(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                     std::ostream& err) {
    const auto fail = [&](const std::string& text) {
        err << text << std::endl;
        return cannotBeDone;
    };
    Options options;
    if (!parse(arguments, options)) return fail("tarvex-script [--data КАТАЛОГ] СЦЕНАРИЙ|-");
    std::filesystem::path data;
    try {
        data = findDataTree(options.data);
    } catch (const OpenFailure&) {
        return fail("нет каталога данных" + (options.data ? " " + options.data->string() : ""));
    }
    sweepLeftovers(data);
    try {
        const auto lines =
            options.script == "-" ? readScript(in) : readScript(std::filesystem::path(options.script));
        ScriptScreen screen(out);
        screen.draw(savedPictures(lines), makeImageCanvas);
        Laboratory lab(screen, data);
        Player(screen, lab.desk, lab.names).play(lines);
    } catch (const LineFailure& failure) {
        return fail(options.script + ":" + std::to_string(failure.line) + ": " + failure.text);
    } catch (const OpenFailure&) {
        return fail("не удалось прочитать " + options.script);
    }
    if (!out.flush()) return fail("не удалось записать вывод");
    return 0;
}

}  // namespace tarvex
