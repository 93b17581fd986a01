#pragma once
// The window of one form.

#include <QMainWindow>
#include <map>
#include <memory>
#include <vector>

#include "desktop/control_view.h"
#include "runtime/form.h"

namespace tarvex {

class RunStatus;

class FormWindow final : public QMainWindow {
public:
    explicit FormWindow(Form& form);
    ~FormWindow() override;

    /// Shows a changed control anew.
    void refresh(Control& control);
    /// Texts still being typed reach their controls.
    void commitEdits();
    /// The form goes: nothing of it is touched any more, the window closes.
    void detach();
    void showProgress(double share);
    /// A line for the user that asks for no answer.
    void note(const QString& text);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void act(const std::function<void()>& action);
    ControlView& viewOf(Control& control);
    QWidget* build(const Density& density);
    QSize room() const;
    void fitScreen(QSize wanted);

    Form* form_;
    Density density_;
    std::map<const Control*, std::unique_ptr<ControlView>> views_;
    std::map<std::string, QButtonGroup*> groups_;
    RunStatus* status_;
    bool refreshing_ = false;  ///< what a widget reports meanwhile is not the user's doing
};

}  // namespace tarvex
