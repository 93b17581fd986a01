#include "desktop/desktop_screen.h"

#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

#include "core/arithmetic.h"
#include "desktop/canvas_image.h"
#include "desktop/form_window.h"
#include "desktop/qt_text.h"
#include "desktop/window_bar.h"

namespace tarvex {

namespace {

using std::chrono::milliseconds;
constexpr milliseconds shortestFrame(16);  ///< events are looked at about 60 times a second
constexpr milliseconds longestFrame(100);
constexpr int showingCost = 3;  ///< a calculation gets at least so many times the time that showing takes

}  // namespace

/// An event loop inside a handler: posted work waits until none is left.
class DesktopScreen::Nested {
public:
    explicit Nested(DesktopScreen& screen) : screen_(screen) { ++screen_.nested_; }
    ~Nested() {
        if (--screen_.nested_ == 0) screen_.runPostedLater();
    }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

private:
    const FlagsKept flags_;
    DesktopScreen& screen_;
};

DesktopScreen::DesktopScreen() = default;

DesktopScreen::~DesktopScreen() {
    for (const auto& [form, window] : windows_) {
        window->detach();
        delete window;
    }
}

FormWindow* DesktopScreen::windowOf(const Form& form) const {
    const auto found = windows_.find(&form);
    return found == windows_.end() ? nullptr : found->second;
}

QWidget* DesktopScreen::front() const {
    QWidget* active = QApplication::activeWindow();
    if (active != nullptr) return active;
    return windows_.empty() ? nullptr : windows_.begin()->second;
}

void DesktopScreen::message(const Message& told) {
    if (over_) return;  // nobody is there to read it
    const Nested nested(*this);
    flush();
    QMessageBox box(QMessageBox::Information, toQt(told.title), toQt(told.text), QMessageBox::Ok, front());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void DesktopScreen::pointAt(Control& control) {
    FormWindow* window = windowOf(control.form());
    if (window == nullptr) return;
    if (!window->isActiveWindow()) bringToFront(*window);
    window->pointAt(control);
}

bool DesktopScreen::ask(const std::string& question, const std::string& title) {
    if (over_) return false;
    const Nested nested(*this);
    flush();
    QMessageBox box(QMessageBox::Question, toQt(title), toQt(question), QMessageBox::NoButton, front());
    box.setTextFormat(Qt::PlainText);
    const QPushButton* yes = box.addButton("Да", QMessageBox::YesRole);
    box.addButton("Нет", QMessageBox::NoRole);
    box.exec();
    return box.clickedButton() == yes;
}

void DesktopScreen::notify(const std::string& text) {
    const FlagsKept flags;
    FormWindow* window = running_ != nullptr ? running_ : dynamic_cast<FormWindow*>(front());
    if (window == nullptr) return;
    window->note(toQt(text));
    QApplication::alert(window);
}

void DesktopScreen::progress(Form& form, double share) {
    shares_[&form] = share;
    flushLater();
}

void DesktopScreen::yield() {
    if (over_) throw Failure("закрыто последнее окно");
    const auto before = Clock::now();
    if (before < nextYield_) return;
    {
        const Nested nested(*this);
        flush();
        QCoreApplication::processEvents();
    }
    const auto after = Clock::now();
    nextYield_ =
        after + std::clamp<Clock::duration>(showingCost * (after - before), shortestFrame, longestFrame);
    if (over_) throw Failure("закрыто последнее окно");
}

void DesktopScreen::pause(int ms) {
    if (over_) return;
    const Nested nested(*this);
    flush();
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

void DesktopScreen::post(std::function<void()> action) {
    posted_.push_back(std::move(action));
    runPostedLater();
}

void DesktopScreen::runPostedLater() {
    if (nested_ == 0 && !posted_.empty())
        QMetaObject::invokeMethod(
            &context_, [this] { runPosted(); }, Qt::QueuedConnection);
}

void DesktopScreen::runPosted() {
    if (nested_ > 0 || posted_.empty()) return;
    const auto action = std::move(posted_.front());
    posted_.pop_front();
    runPostedLater();
    try {
        action();
    } catch (
        const std::exception& failure) {  // forms guard their work; nothing may pass through the event loop
        message({causeOf(failure), "Tarvex7", "", true});
    }
}

void DesktopScreen::formShown(Form& form) {
    const FlagsKept flags;
    FormWindow*& window = windows_[&form];
    over_ = false;
    if (window == nullptr) window = new FormWindow(form, services_);
    bringToFront(*window);
}

void DesktopScreen::formUnloaded(Form& form) {
    const FlagsKept flags;
    std::erase_if(changed_, [&](const Control* control) { return &control->form() == &form; });
    lastChanged_ = nullptr;
    shares_.erase(&form);
    const auto found = windows_.find(&form);
    if (found == windows_.end()) return;
    FormWindow* window = found->second;
    windows_.erase(found);
    if (running_ == window) running_ = nullptr;
    window->detach();
    window->deleteLater();
    // A handler may close one form and open the next: look again when it has given way.
    QMetaObject::invokeMethod(
        &context_,
        [this] {
            if (!windows_.empty() || over_) return;
            over_ = true;
            QCoreApplication::quit();
        },
        Qt::QueuedConnection);
}

void DesktopScreen::statusChanged(Form& form) {
    const FlagsKept flags;
    if (FormWindow* window = windowOf(form)) window->showStatus(toQt(form.status()));
}

void DesktopScreen::controlChanged(Control& control) {
    if (&control == lastChanged_) return;
    const FlagsKept flags;
    if (windowOf(control.form()) == nullptr) return;
    lastChanged_ = &control;
    changed_.insert(&control);
    flushLater();
}

void DesktopScreen::flushLater() {
    if (flushDue_) return;
    flushDue_ = true;
    QMetaObject::invokeMethod(
        &context_, [this] { flush(); }, Qt::QueuedConnection);
}

void DesktopScreen::flush() {
    flushDue_ = false;
    lastChanged_ = nullptr;
    const auto changed = std::exchange(changed_, {});
    for (Control* control : changed)
        if (FormWindow* window = windowOf(control->form())) window->refresh(*control);
    for (const auto& [form, share] : std::exchange(shares_, {})) {
        FormWindow* window = windowOf(*form);
        if (window == nullptr) continue;
        window->showProgress(share);
        running_ = window;
    }
}

std::string DesktopScreen::place(const Form& form) const {
    const FormWindow* window = windowOf(form);
    return window == nullptr ? "" : window->place();
}

void DesktopScreen::setPlace(const Form& form, const std::string& place) {
    if (FormWindow* window = windowOf(form)) window->setPlace(place);
}

void DesktopScreen::note(const Form& form, const std::string& text) {
    if (FormWindow* window = windowOf(form)) window->note(toQt(text));
}

std::unique_ptr<Canvas> DesktopScreen::makeCanvas(Picture& picture) {
    return makeImageCanvas(picture.width(), picture.height());
}

}  // namespace tarvex
