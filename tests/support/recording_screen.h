#pragma once
// A screen for tests: it keeps every message, answers questions from a queue, calls back at each yield, and
// its canvases record what was drawn.

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "runtime/control.h"
#include "runtime/picture.h"
#include "runtime/screen.h"

namespace tarvex::test {

struct Drawn {
    enum class Kind { Line, Circle, Disc, Text } kind;
    double x, y, x2, y2;  ///< second point of a line; x2 the radius of a circle
    Color color;
    std::string text;
};

class RecordingCanvas final : public Canvas {
public:
    RecordingCanvas(double width, double height) : width_(width), height_(height) {}
    double width() const override { return width_; }
    double height() const override { return height_; }
    void clear(Color) override { drawn.clear(); }
    void line(double x1, double y1, double x2, double y2, Color color) override;
    void circle(double x, double y, double radius, Color color, bool filled) override;
    void text(double x, double y, const std::string& text, Color color, double size) override;
    void save(const std::filesystem::path& path) const override;

    std::vector<Drawn> drawn;

private:
    double width_, height_;
};

class RecordingScreen final : public Screen {
public:
    struct Message {
        std::string text, title;
        bool operator==(const Message&) const = default;
    };

    void message(const tarvex::Message& told) override {
        messages.push_back({told.text, told.title});
        if (told.error) causes.push_back(told.cause);
    }
    void pointAt(Control& control) override;
    bool ask(const std::string& question, const std::string& title) override;
    bool confirmDisturbing(const std::string& question, const std::string&) override {
        disturbing.push_back(question);
        return disturb;
    }
    void notify(const std::string& text) override { notices.push_back(text); }
    void progress(Form&, double share) override { lastProgress = share; }
    void yield() override;
    void pause(int milliseconds) override { paused += milliseconds; }
    void post(std::function<void()> action) override { posted.push_back(std::move(action)); }
    void formShown(Form& form) override;
    void formUnloaded(Form& form) override;
    void controlChanged(Control&) override { ++changes; }
    std::unique_ptr<Canvas> makeCanvas(Picture& picture) override;

    /// Runs what was posted, also what that posts, until nothing is left.
    void runPosted();
    /// Title and text of the only message since the last call; fails the test when there is not exactly one.
    Message onlyMessage();
    /// Presses the command and gives that message; its text, empty where nothing is said.
    Message told(CommandButton& command);
    std::string said(CommandButton& command);
    /// The same while this text stands in the field.
    Message told(CommandButton& command, TextField& field, const std::string& text);
    std::string said(CommandButton& command, TextField& field, const std::string& text);

    std::vector<Message> messages;
    std::vector<std::string> causes;     ///< of the error messages
    std::vector<std::string> pointedAt;  ///< the controls that messages were about
    std::vector<Message> questions;
    std::deque<bool> answers;             ///< none left: the answer is no
    std::vector<std::string> disturbing;  ///< questions before commands that would disturb a calculation
    bool disturb = true;                  ///< the answer to all of them
    std::vector<std::string> notices;
    std::vector<std::string> shown;  ///< names of forms in the order they were shown
    std::vector<std::string> unloaded;
    std::deque<std::function<void()>> posted;
    std::function<void(int count)> atYield;  ///< called at each yield with its number from 1
    int yields = 0, paused = 0, changes = 0;
    double lastProgress = -1;
};

/// A field and its text, a box and its tick, an option that is chosen, a command that is pressed: one after
/// the other.
inline void enter() {}
template <class First, class... Rest>
void enter(First& first, Rest&&... rest) {
    if constexpr (std::is_same_v<First, OptionButton> || std::is_same_v<First, CommandButton>) {
        if constexpr (std::is_same_v<First, OptionButton>)
            first.choose();
        else
            first.press();
        enter(rest...);
    } else {
        [&first](const auto& value, auto&... others) {
            if constexpr (std::is_same_v<First, CheckBox>)
                first.set(value);
            else
                first.setText(value);
            enter(others...);
        }(rest...);
    }
}
/// What fields show, with " | " between.
template <class First, class... Rest>
std::string texts(const First& first, const Rest&... rest) {
    return first.text() + (std::string() + ... + (" | " + rest.text()));
}

/// What a picture has drawn on its recording canvas.
const std::vector<Drawn>& drawnOn(Picture& picture);

}  // namespace tarvex::test
