#pragma once
// The buttons at the foot of every window: the open windows, the pictures of this one, help.

#include <QWidget>
#include <functional>
#include <vector>

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
    };
    /// Ctrl+Tab, Ctrl+Shift+Tab and Ctrl+1 ... Ctrl+9 turn to other windows; F6 opens their list, F7 the
    /// commands of the pictures, F1 the help; Ctrl+Shift+C copies the table.
    WindowBar(QMainWindow& window, Actions actions);

    /// Hides the button of the pictures where there is none.
    void refresh();

private:
    QToolButton* button(const QString& text, const QString& tip, std::function<void()> action);
    void shortcut(const QString& keys, std::function<void()> action);
    void popup(QMenu* menu, QToolButton& above);
    void listWindows();
    void listPictures();
    void turnTo(int number);
    void turnBy(int steps);

    QMainWindow& window_;
    Actions actions_;
    QToolButton *windowsButton_, *picturesButton_;
};

/// Brings a window to the front.
void bringToFront(QWidget& window);

}  // namespace tarvex
