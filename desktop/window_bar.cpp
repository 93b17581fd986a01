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

constexpr int numbered = 9;      ///< forms that have a key of their own
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
    if (!actions_.session.empty())
        sessionButton_ = button("Сеанс", "Сохранить и открыть сеанс, записать сценарий, журнал, отчет",
                                [this] { listSession(); });
    if (actions_.map)
        button("Карта F6", "Все формы по назначению и номеру, поиск; Ctrl+1 ... Ctrl+9 - форма этого номера",
               actions_.map);
    windowsButton_ = button(actions_.map ? "Окна" : "Окна F6", "Открытые окна; Ctrl+Tab - следующее",
                            [this] { listWindows(); });
    picturesButton_ =
        button("Рисунки F7", "Копировать или сохранить рисунки этого окна", [this] { listPictures(); });
    button("Подсказка F1", "Подсказка об этой форме", actions_.help);

    for (const char* keys : {"F6", "Ctrl+0"})
        shortcut(
            keys, actions_.map ? actions_.map : [this] { listWindows(); });
    for (const WindowCommand& command : actions_.session)
        if (!command.keys.isEmpty()) shortcut(command.keys, [this, command] { actions_.call(command); });
    shortcut("F7", [this] { listPictures(); });
    shortcut("F1", actions_.help);
    shortcut("Ctrl+Shift+C", actions_.copyTable);
    shortcut("Ctrl+Tab", [this] { turnBy(1); });
    shortcut("Ctrl+Shift+Tab", [this] { turnBy(-1); });
    for (int number = 1; number <= numbered; ++number)
        shortcut(QString("Ctrl+%1").arg(number), [this, number] { actions_.open(number); });
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
    for (QMainWindow* one : actions_.windows()) {
        const QString number = one->objectName().startsWith("Form") ? one->objectName().mid(4) : QString();
        const QString name = number.isEmpty() ? QString() : number + ".  ";
        const QString keys = number.size() == 1 ? "\tCtrl+" + number : QString();
        QAction* action = menu->addAction(name + literal(one->windowTitle().simplified()) + keys);
        action->setCheckable(true);
        action->setChecked(one == &window_);
        QObject::connect(action, &QAction::triggered, one, [one] { bringToFront(*one); });
    }
    popup(menu, *windowsButton_);
}

void WindowBar::listSession() {
    auto* menu = new QMenu(this);
    menu->setObjectName("session");
    fill(*menu, actions_.session);
    popup(menu, *sessionButton_);
}

void WindowBar::fill(QMenu& menu, const std::vector<WindowCommand>& commands) {
    for (const WindowCommand& command : commands) {
        if (command.text.isEmpty()) {
            menu.addSeparator();
        } else if (command.more) {
            QMenu* inside = menu.addMenu(literal(command.text));
            const auto more = command.more();
            fill(*inside, more);
            inside->setEnabled(!more.empty());
        } else {
            QAction* action = menu.addAction(literal(command.text) + "\t" + command.keys);
            action->setCheckable(static_cast<bool>(command.on));
            if (command.on) action->setChecked(command.on());
            QObject::connect(action, &QAction::triggered, this, [this, command] { actions_.call(command); });
        }
    }
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
