#pragma once
// The buttons at the foot of every window: the open windows, the pictures of this one, help.

#include <QWidget>
#include <functional>
#include <vector>

#include "desktop/window_services.h"

class QMainWindow;
class QMenu;
class QToolButton;

namespace tarvex {

class PictureView;

class WindowBar final : public QWidget {
public:
    struct Actions {
        std::function<std::vector<QMainWindow*>()> windows;  ///< all that are open, in their order
        std::function<std::vector<PictureView*>()> pictures;
        std::function<void()> help;
        std::function<void()> copyTable;  ///< the one in which the focus is
        std::function<void()> map;        ///< of all forms; empty where there is none
        std::function<void(int)> open;    ///< the form of this number
        std::vector<WindowCommand> session;
        std::function<void(const WindowCommand&)> call;
    };
    /// Ctrl+Tab and Ctrl+Shift+Tab turn to other windows, Ctrl+1 ... Ctrl+9 to the forms of these numbers; F6
    /// and Ctrl+0 open the map of all forms or else the list of windows, F7 the commands of the pictures, F1
    /// the help; Ctrl+Shift+C copies the table.  The commands of the session have keys of their own.
    WindowBar(QMainWindow& window, Actions actions);

    /// Hides the button of the pictures where there is none.
    void refresh();

private:
    QToolButton* button(const QString& text, const QString& tip, std::function<void()> action);
    void shortcut(const QString& keys, std::function<void()> action);
    void popup(QMenu* menu, QToolButton& above);
    void listWindows();
    void listPictures();
    void listSession();
    void fill(QMenu& menu, const std::vector<WindowCommand>& commands);
    void turnTo(int number);
    void turnBy(int steps);

    QMainWindow& window_;
    Actions actions_;
    QToolButton *windowsButton_, *picturesButton_, *sessionButton_ = nullptr;
};

/// Brings a window to the front.
void bringToFront(QWidget& window);

}  // namespace tarvex
