#include "studio/stage_screen.h"

#include "runtime/picture.h"
#include "script/line_failure.h"

namespace tarvex {

StageScreen::Playing::~Playing() {
    stage_.playing_ = stage_.stopping_ = false;
    stage_.forget();
}

void StageScreen::message(const Message& told) {
    if (playing_)
        ScriptScreen::message(told);
    else
        windows_.message(told);
}

void StageScreen::pointAt(Control& control) {
    if (!playing_) windows_.pointAt(control);
}

bool StageScreen::ask(const std::string& question, const std::string& title) {
    return playing_ && hasAnswer() ? ScriptScreen::ask(question, title) : windows_.ask(question, title);
}

void StageScreen::notify(const std::string& text) {
    if (playing_) ScriptScreen::notify(text);
    windows_.notify(text);
}

void StageScreen::yield() {
    if (playing_) ScriptScreen::yield();
    windows_.yield();
    if (stopping_) throw LineFailure{"остановлено"};
}

void StageScreen::post(std::function<void()> action) {
    if (playing_)
        ScriptScreen::post(std::move(action));
    else
        windows_.post(std::move(action));
}

std::unique_ptr<Canvas> StageScreen::makeCanvas(Picture& picture) { return windows_.makeCanvas(picture); }

}  // namespace tarvex
