#include "desktop/window_bar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QShortcut>
#include <QToolButton>
#include <algorithm>

#include "desktop/picture_menu.h"
#include "desktop/picture_view.h"

namespace tarvex {

namespace {

constexpr int numbered = 9;      ///< windows that have a key of their own
constexpr int longestName = 70;  ///< of a picture in the menu, characters

QString literal(QString text) { return text.replace("&", "&&"); }

}  // namespace

void bringToFront(QWidget& window) {
    if (window.isMinimized()) window.showNormal();
    window.show();
    window.raise();
    window.activateWindow();
}

WindowBar::WindowBar(QMainWindow& window, Actions actions) : window_(window), actions_(std::move(actions)) {
    auto* box = new QHBoxLayout(this);
    box->setContentsMargins(0, 0, 6, 0);
    box->setSpacing(2);
    windowsButton_ = button("Окна F6", "Открытые окна; Ctrl+Tab - следующее, Ctrl+1 ... Ctrl+9 - по номеру",
                            [this] { listWindows(); });
    picturesButton_ =
        button("Рисунки F7", "Копировать или сохранить рисунки этого окна", [this] { listPictures(); });
    button("Подсказка F1", "Подсказка об этой форме", actions_.help);

    shortcut("F6", [this] { listWindows(); });
    shortcut("F7", [this] { listPictures(); });
    shortcut("F1", actions_.help);
    shortcut("Ctrl+Shift+C", actions_.copyTable);
    shortcut("Ctrl+Tab", [this] { turnBy(1); });
    shortcut("Ctrl+Shift+Tab", [this] { turnBy(-1); });
    for (int number = 1; number <= numbered; ++number)
        shortcut(QString("Ctrl+%1").arg(number), [this, number] { turnTo(number - 1); });
}

QToolButton* WindowBar::button(const QString& text, const QString& tip, std::function<void()> action) {
    auto* made = new QToolButton;
    made->setText(text);
    made->setToolTip(tip);
    made->setStatusTip(tip);
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::NoFocus);  // it has a key
    QObject::connect(made, &QToolButton::clicked, this, std::move(action));
    layout()->addWidget(made);
    return made;
}

void WindowBar::shortcut(const QString& keys, std::function<void()> action) {
    auto* made = new QShortcut(QKeySequence(keys), &window_);
    QObject::connect(made, &QShortcut::activated, this, std::move(action));
}

void WindowBar::refresh() { picturesButton_->setVisible(!actions_.pictures().empty()); }

/// Open, and a calculation goes on meanwhile.
void WindowBar::popup(QMenu* menu, QToolButton& above) {
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(above.mapToGlobal(QPoint(0, -menu->sizeHint().height())));
}

void WindowBar::listWindows() {
    auto* menu = new QMenu(this);
    menu->setObjectName("windows");
    int number = 0;
    for (QMainWindow* one : actions_.windows()) {
        const QString keys = ++number <= numbered ? QString("\tCtrl+%1").arg(number) : QString();
        const QString name =
            one->objectName().startsWith("Form") ? one->objectName().mid(4) + ".  " : QString();
        QAction* action = menu->addAction(name + literal(one->windowTitle().simplified()) + keys);
        action->setCheckable(true);
        action->setChecked(one == &window_);
        QObject::connect(action, &QAction::triggered, one, [one] { bringToFront(*one); });
    }
    popup(menu, *windowsButton_);
}

void WindowBar::listPictures() {
    const auto pictures = actions_.pictures();
    if (pictures.empty()) return;
    auto* menu = new QMenu(this);
    menu->setObjectName("pictures");
    for (PictureView* view : pictures) {
        QString name =
            view->picture() == nullptr ? QString() : QString::fromStdString(view->picture()->hint());
        if (name.isEmpty()) name = view->objectName();
        if (name.size() > longestName) name = name.left(longestName - 3) + "...";
        addPictureCommands(pictures.size() == 1 ? *menu : *menu->addMenu(literal(name)), *view);
    }
    popup(menu, *picturesButton_);
}

void WindowBar::turnTo(int number) {
    const auto windows = actions_.windows();
    if (number < static_cast<int>(windows.size())) bringToFront(*windows[number]);
}

void WindowBar::turnBy(int steps) {
    const auto windows = actions_.windows();
    const auto own = std::find(windows.begin(), windows.end(), &window_) - windows.begin();
    const auto count = static_cast<std::ptrdiff_t>(windows.size());
    turnTo(static_cast<int>((own + steps + count) % count));
}

}  // namespace tarvex
