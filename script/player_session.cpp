// The lines of a script that a session needs: restore, save, record, take back, report.

#include "core/data_tree.h"
#include "core/failure.h"
#include "runtime/control_lines.h"
#include "runtime/desk.h"
#include "runtime/session_tools.h"
#include "script/expression.h"
#include "script/player.h"
#include "script/script_text.h"
#include "script/session_script.h"

namespace tarvex {

namespace {

constexpr int scriptsWithin = 8;  ///< scripts that play each other

/// What writes a file; its failure is one of the line.
template <class Write>
void written(std::string_view file, Write write) try {
    write(std::filesystem::path(file));
} catch (const FileFailure& failure) {
    throw LineFailure{"не удалось записать " + quote(file) + " (" + failure.what() + ")"};
}

}  // namespace

bool Player::doSessionLine(std::string_view word, std::string_view argument, std::string_view rest) {
    if (word == "keep") {
        keep(rest);
    } else if (word == "place") {
        place(argument);
    } else if (word == "note") {
        screen_.notify(std::string(argument));
    } else if (word == "undo") {
        if (!session().undo.undo()) throw LineFailure{"отменять нечего"};
    } else if (word == "session") {
        mayWrite(argument);
        const auto lines = session().keeper.lines();
        written(argument, [&](const auto& path) { writeSession(path, lines); });
    } else if (word == "record") {
        record(argument);
    } else if (word == "play") {
        playFile(argument);
    } else if (word == "report") {
        report(argument);
    } else {
        return false;
    }
    return true;
}

SessionTools& Player::session() {
    if (session_ == nullptr) throw LineFailure{"здесь нет сеанса"};
    return *session_;
}

void Player::mayWrite(std::string_view file) const {
    if (!trusted_ && !staysUnder(std::filesystem::current_path(), file))
        throw LineFailure{"вне текущего каталога файлы пишут только с --trust: " + quote(file)};
}

/// "FORM.CONTROL = VALUE": the value stands there and nobody hears of it.
void Player::keep(std::string_view rest) {
    const std::size_t length = referenceLength(rest);
    const std::string_view after = trimLeft(rest.substr(length));
    if (length == 0 || !after.starts_with('=')) throw LineFailure{"ожидается keep ФОРМА.ЭЛЕМЕНТ = значение"};
    Control& kept = control(rest.substr(0, length));
    if (!isInput(kept)) throw LineFailure{"в " + kept.name() + " ничего не вводят"};
    std::string_view value = after.substr(1);
    if (value.starts_with(' ')) value.remove_prefix(1);
    if (kept.kind() != Control::Kind::Text) value = trim(value);
    const bool switched = kept.kind() == Control::Kind::Check || kept.kind() == Control::Kind::Option;
    if (switched && value != "on" && value != "off")
        throw LineFailure{"ожидается on или off, а не " + quote(value)};
    putValue(kept, std::string(value));
}

/// "FORM PLACE": where its window stands, in words of the screen.
void Player::place(std::string_view argument) {
    Form& placed = form(takeWord(argument));
    screen_.setPlace(placed, std::string(argument));
}

/// "FILE" begins a record, "end" writes it.
void Player::record(std::string_view argument) {
    Recorder& recorder = session().recorder;
    if (argument != "end") {
        mayWrite(argument);
        if (recorder.on()) throw LineFailure{"запись уже идет"};
        recordFile_ = argument;
        return recorder.start();
    }
    if (!recorder.on()) throw LineFailure{"запись не идет"};
    const auto lines = recorder.stop();
    written(recordFile_, [&](const auto& path) { writeScript(path, lines); });
}

/// Does the lines of another script, which may stop it at one of them.
void Player::playFile(std::string_view argument) {
    if (within_ == scriptsWithin) throw LineFailure{"слишком много сценариев друг в друге"};
    std::vector<std::string> lines;
    try {
        lines = readScript(std::filesystem::path(argument));
    } catch (const OpenFailure& failure) {
        throw LineFailure{"не удалось прочитать " + quote(argument) + " (" + failure.what() + ")"};
    }
    ++within_;
    int number = 0;
    try {
        for (const std::string& line : lines) {
            if (!desk_.anyLoaded()) break;
            ++number;
            playLine(line);
        }
    } catch (LineFailure& failure) {
        if (failure.line == 0) {
            failure.text = std::string(argument) + ":" + std::to_string(number) + ": " + failure.text;
            failure.line = line_;
        }
        throw;
    }
    --within_;
}

/// "FILE FORM FORM ...": without forms those that are open.
void Player::report(std::string_view argument) {
    const std::string_view file = takeWord(argument);
    mayWrite(file);
    if (!report_) throw LineFailure{"здесь отчеты не пишут"};
    std::vector<const Form*> forms;
    while (!argument.empty()) forms.push_back(&form(takeWord(argument)));
    if (forms.empty())
        for (const std::string& name : session().keeper.shown()) forms.push_back(&desk_.form(name));
    written(file, [&](const auto& path) { report_(path, forms); });
}

}  // namespace tarvex
