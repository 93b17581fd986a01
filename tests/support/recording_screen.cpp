#include "tests/support/recording_screen.h"

#include <gtest/gtest.h>

#include "runtime/form.h"
#include "tests/support/temp_folder.h"

namespace tarvex::test {

void RecordingCanvas::line(double x1, double y1, double x2, double y2, Color color) {
    drawn.push_back({Drawn::Kind::Line, x1, y1, x2, y2, color, ""});
}

void RecordingCanvas::circle(double x, double y, double radius, Color color, bool filled) {
    drawn.push_back({filled ? Drawn::Kind::Disc : Drawn::Kind::Circle, x, y, radius, 0, color, ""});
}

void RecordingCanvas::text(double x, double y, const std::string& text, Color color, double) {
    drawn.push_back({Drawn::Kind::Text, x, y, 0, 0, color, text});
}

void RecordingCanvas::save(const std::filesystem::path& path) const {
    if (!std::filesystem::is_directory(path.parent_path()))
        throw FileFailure("no folder for " + path.string());
    writeBytes(path, "picture of " + std::to_string(drawn.size()) + " items");
}

bool RecordingScreen::ask(const std::string& question, const std::string& title) {
    questions.push_back({question, title});
    if (answers.empty()) return false;
    const bool yes = answers.front();
    answers.pop_front();
    return yes;
}

void RecordingScreen::yield() {
    ++yields;
    if (atYield) atYield(yields);
}

void RecordingScreen::pointAt(Control& control) {
    pointedAt.push_back(control.form().name() + "." + control.name());
}
void RecordingScreen::formShown(Form& form) { shown.push_back(form.name()); }
void RecordingScreen::formUnloaded(Form& form) { unloaded.push_back(form.name()); }

std::unique_ptr<Canvas> RecordingScreen::makeCanvas(Picture& picture) {
    return std::make_unique<RecordingCanvas>(picture.width(), picture.height());
}

void RecordingScreen::runPosted() {
    while (!posted.empty()) {
        const auto action = std::move(posted.front());
        posted.pop_front();
        action();
    }
}

RecordingScreen::Message RecordingScreen::onlyMessage() {
    EXPECT_EQ(messages.size(), 1u);
    Message last = messages.empty() ? Message{} : messages.back();
    messages.clear();
    return last;
}

RecordingScreen::Message RecordingScreen::told(CommandButton& command) {
    command.press();
    return onlyMessage();
}

std::string RecordingScreen::said(CommandButton& command) {
    command.press();
    return messages.empty() ? "" : onlyMessage().text;
}

RecordingScreen::Message RecordingScreen::told(CommandButton& command, TextField& field,
                                               const std::string& text) {
    const std::string old = field.text();
    field.setText(text);
    Message last = told(command);
    field.setText(old);
    return last;
}

std::string RecordingScreen::said(CommandButton& command, TextField& field, const std::string& text) {
    return told(command, field, text).text;
}

const std::vector<Drawn>& drawnOn(Picture& picture) {
    return static_cast<RecordingCanvas&>(*picture.canvas()).drawn;
}

}  // namespace tarvex::test
