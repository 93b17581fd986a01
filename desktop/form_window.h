#pragma once
// The window of one form.

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "desktop/control_view.h"
#include "desktop/window_services.h"
#include "runtime/form.h"

namespace tarvex {

class RunStatus;
class WindowBar;

class FormWindow final : public QMainWindow {
public:
    /// @param services  must outlive the window
    FormWindow(Form& form, const WindowServices& services);
    ~FormWindow() override;

    /// Shows a changed control anew.
    void refresh(Control& control);
    /// Texts still being typed reach their controls.
    void commitEdits();
    /// The form goes: nothing of it is touched any more, the window closes.
    void detach();
    /// Where it stands: "10,20 800x600", or the same with "maximized".
    std::string place() const;
    /// Puts it there, as far as the screen holds it; anything else is passed.
    void setPlace(const std::string& place);
    /// Brings the control into sight and gives it the focus.
    void pointAt(Control& control);
    void showProgress(double share);
    const Form* form() const { return form_; }
    /// The table in which this control stands goes to the clipboard, its cells separated by tabs.
    void copyTable(const Control& control);

    /// What stands in the status line until it is set anew, before all hints; empty for nothing.
    void showStatus(const QString& text);
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
    void showHint(const QString& hint);
    QSize room() const;
    void fitScreen(QSize wanted);
    WindowBar* makeBar();
    void offerTables();
    void showFieldMenu(const Control& field, QPoint at);
    void copyFocusedTable();
    bool pasteCells(const Control& first);
    void callOnForm(const std::function<void(Form&)>& action);
    void openForm(int number);

    Form* form_;
    const WindowServices& services_;
    Layout tree_;  ///< as it is shown
    Density density_;
    std::map<const Control*, std::unique_ptr<ControlView>> views_;
    std::map<std::string, QButtonGroup*> groups_;
    RunStatus* status_;
    QString statusText_;
    WindowBar* bar_;
    bool refreshing_ = false;  ///< what a widget reports meanwhile is not the user's doing
};

/// The windows of all open forms, in the order of the forms.
std::vector<QMainWindow*> openWindows();

}  // namespace tarvex
