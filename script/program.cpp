#include "script/program.h"

#include <filesystem>
#include <istream>
#include <optional>
#include <ostream>

#include "core/data_home.h"
#include "core/failure.h"
#include "core/leftovers.h"
#include "desktop/canvas_image.h"
#include "desktop/report_file.h"
#include "forms/laboratory.h"
#include "script/player.h"
#include "script/script_screen.h"

namespace tarvex {

namespace {

struct Options {
    std::optional<std::filesystem::path> data;
    std::string script;
    bool strict = false, trusted = false;
};

bool parse(const std::vector<std::string>& arguments, Options& options) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (word == "--data" && i + 1 < arguments.size())
            options.data = arguments[++i];
        else if (word == "--strict")
            options.strict = true;
        else if (word == "--trust")
            options.trusted = true;
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
    const auto fail = [&](const std::string& text, int status = LineFailure::cannotBeDone) {
        err << text << std::endl;
        return status;
    };
    Options options;
    if (!parse(arguments, options))
        return fail("tarvex-script [--data КАТАЛОГ] [--strict] [--trust] СЦЕНАРИЙ|-");
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
        if (options.strict) screen.beStrict();
        Player player(screen, lab.desk, lab.names);
        if (options.trusted) player.trust();
        player.attach(lab.session);
        player.onReport([&lab](const auto& file, const auto& forms) {
            writeReport(file, reportHead(givenOn(lab.desk)), forms);
        });
        player.play(lines);
    } catch (const LineFailure& failure) {
        return fail(options.script + ":" + std::to_string(failure.line) + ": " + failure.text,
                    failure.status);
    } catch (const OpenFailure& failure) {
        return fail("не удалось прочитать " + options.script + " (" + failure.what() + ")");
    }
    if (!out.flush()) return fail("не удалось записать вывод");
    return 0;
}

}  // namespace tarvex
