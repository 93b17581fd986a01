#include "desktop/form_window.h"

#include <QApplication>
#include <QButtonGroup>
#include <QClipboard>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <algorithm>

#include "core/arithmetic.h"
#include "desktop/layout_builder.h"
#include "desktop/picture_view.h"
#include "desktop/run_status.h"
#include "desktop/table_text.h"
#include "desktop/window_bar.h"
#include "desktop/window_places.h"
#include "runtime/desk.h"

namespace tarvex {

namespace {

/// Ways to set a window, tried in turn until its form fits the screen; what fits in none gets scroll bars.
struct Closeness {
    double font;  ///< of the usual size
    int digits, gap, rowWidth;
};
constexpr Closeness closeness[] = {{1, 12, 6, 900}, {0.9, 10, 4, 640}, {0.85, 10, 3, 600}, {0.78, 9, 2, 560}};

/// Usual letters of desktops are not larger.  Who has asked for larger ones gets at least these, and scroll
/// bars where they make a form too large.
constexpr double usualPoints = 11;

double pointsOf(const Closeness& c, double desktop) {
    return desktop <= usualPoints ? desktop * c.font : std::max(desktop * c.font, usualPoints);
}

/// A text is being typed here that has not reached its control.
bool hasOwnUndo(const QObject* widget) {
    const auto* edit = qobject_cast<const QLineEdit*>(widget);
    if (edit != nullptr) return edit->isUndoAvailable() && edit->isModified();
    const auto* box = qobject_cast<const QPlainTextEdit*>(widget);
    return box != nullptr && !box->isReadOnly() && box->document()->isUndoAvailable();
}

}  // namespace

FormWindow::FormWindow(Form& form, const WindowServices& services)
    : form_(&form), services_(services), status_(new RunStatus), bar_(makeBar()) {
    setWindowTitle(QString::fromStdString(form.title()));
    setObjectName(QString::fromStdString(form.name()));
    statusBar()->addPermanentWidget(status_);
    statusBar()->addPermanentWidget(bar_);
    statusBar()->setFixedHeight(fontMetrics().height() + 8);

    QWidget* contents = nullptr;
    for (const Closeness& c : closeness) {
        QFont sized = font();
        sized.setPointSizeF(pointsOf(c, sized.pointSizeF()));
        contents = build({.font = sized, .digits = c.digits, .gap = c.gap, .rowWidth = c.rowWidth});
        const QSize least = contents->minimumSizeHint();
        if (least.width() <= room().width() && least.height() <= room().height()) break;
    }
    bar_->refresh();
    showStatus(QString::fromStdString(form.status()));
    if (!restorePlace(*this)) {
        fitScreen(contents->sizeHint() + QSize(2, 4));
    } else if (!isMaximized()) {
        // a place that was kept before the form grew would hide its commands
        const QSize least = (contents->minimumSizeHint() + QSize(2, 4)).boundedTo(room());
        resize(size().expandedTo(least + QSize(0, statusBar()->minimumHeight())));
    }
}

FormWindow::~FormWindow() = default;

QWidget* FormWindow::build(const Density& density) {
    delete takeCentralWidget();
    views_.clear();
    density_ = density;
    Layout tree = form_->layout();
    if (tree.kind == Layout::Kind::Empty) {
        tree = usualLayout(form_->controls());
    } else if (const auto rest = notPlaced(tree, form_->controls()); !rest.empty()) {
        // Triggers between forms, and whatever a layout has forgotten.
        std::vector<Layout> more(rest.size());
        std::transform(rest.begin(), rest.end(), more.begin(), [](Control* c) { return Layout(*c); });
        tree = column({std::move(tree), row(std::move(more))});
    }
    tree_ = std::move(tree);
    QWidget* contents =
        LayoutBuilder([this](Control& c) -> ControlView& { return viewOf(c); }, density).build(tree_);
    contents->setFont(density.font);
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(contents);
    setCentralWidget(area);
    refreshing_ = true;
    for (const auto& [control, view] : views_) {
        view->refresh();
        view->widget()->installEventFilter(this);
    }
    refreshing_ = false;
    offerTables();

    // Size hints are wanted at once, from the innermost layout outwards, not when the event loop comes to it.
    const auto inside = contents->findChildren<QWidget*>();
    for (auto child = inside.rbegin(); child != inside.rend(); ++child) {
        if (QLayout* layout = (*child)->layout()) layout->activate();
        (*child)->updateGeometry();
    }
    LayoutBuilder::shareRows(*contents);
    contents->layout()->activate();
    return contents;
}

QSize FormWindow::room() const {
    const QSize frame(8, 36);  // what a window manager puts around
    return screen()->availableSize() - frame - QSize(0, statusBar()->minimumHeight());
}

void FormWindow::fitScreen(QSize wanted) {
    if (wanted.height() > room().height())
        wanted.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4;
    resize(wanted.boundedTo(room()) + QSize(0, statusBar()->minimumHeight()));
}

ControlView& FormWindow::viewOf(Control& control) {
    auto& view = views_[&control];
    if (!view)
        view = makeView(
            control, density_, [this](const std::function<void()>& action) { act(action); },
            [this](const std::string& name) {
                auto& group = groups_[name];
                if (group == nullptr) group = new QButtonGroup(this);
                return group;
            });
    return *view;
}

void FormWindow::refresh(Control& control) {
    const auto found = views_.find(&control);
    if (found == views_.end()) return;
    refreshing_ = true;
    found->second->refresh();
    refreshing_ = false;
}

void FormWindow::act(const std::function<void()>& action) {
    if (form_ == nullptr || refreshing_) return;
    form_->desk().turnTo(*form_);  // a window manager may have left the focus with another window
    commitEdits();
    if (form_ != nullptr) action();
}

void FormWindow::commitEdits() {
    for (const auto& [control, view] : views_) {
        if (form_ == nullptr) return;  // a change handler has closed the form
        view->commit();
    }
}

void FormWindow::detach() {
    if (isVisible()) rememberPlace(*this);
    form_ = nullptr;
    for (const auto& [control, view] : views_) view->detach();
    hide();
}

void FormWindow::pointAt(Control& control) {
    const auto found = views_.find(&control);
    if (found == views_.end()) return;
    QWidget* widget = found->second->widget();
    for (QWidget* page = widget; page != nullptr && page->parentWidget() != nullptr;
         page = page->parentWidget())
        if (auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget()))
            tabs->setCurrentWidget(page);
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
}

void FormWindow::showProgress(double share) { status_->set(share); }

void FormWindow::showStatus(const QString& text) {
    statusText_ = text;
    statusBar()->setToolTip(text);  // a narrow window shows its beginning only
    statusBar()->showMessage(text);
}

void FormWindow::showHint(const QString& hint) {
    if (statusText_.isEmpty()) statusBar()->showMessage(hint);
}

void FormWindow::note(const QString& text) { statusBar()->showMessage(text, 60000); }

WindowBar* FormWindow::makeBar() {
    const auto pictures = [this] {
        std::vector<PictureView*> all;
        for (QWidget* child : findChildren<QWidget*>())
            if (auto* view = dynamic_cast<PictureView*>(child)) all.push_back(view);
        return all;
    };
    WindowBar::Actions actions;
    actions.windows = openWindows;
    actions.pictures = pictures;
    actions.help = [this] { callOnForm(services_.help); };
    actions.copyTable = [this] { copyFocusedTable(); };
    if (services_.map) actions.map = [this] { callOnForm(services_.map); };
    actions.open = [this](int number) { openForm(number); };
    actions.session = services_.session;
    actions.call = [this](const WindowCommand& command) { callOnForm(command.action); };
    return new WindowBar(*this, std::move(actions));
}

/// What is still being typed counts.
void FormWindow::callOnForm(const std::function<void(Form&)>& action) {
    if (form_ != nullptr) commitEdits();
    if (form_ == nullptr || !action) return;
    form_->guarded({[this, &action] {
                        const FlagsKept flags;  // a dialog reckons its sizes as it likes
                        action(*form_);
                    },
                    {}});
}

void FormWindow::openForm(int number) {
    callOnForm([number](Form& form) {
        const std::string name = "Form" + std::to_string(number);
        if (form.desk().knows(name)) form.desk().show(name);
    });
}

std::string FormWindow::place() const {
    const QRect at = normalGeometry();
    return QString("%1,%2 %3x%4%5")
        .arg(at.x())
        .arg(at.y())
        .arg(at.width())
        .arg(at.height())
        .arg(isMaximized() ? " maximized" : "")
        .toStdString();
}

void FormWindow::setPlace(const std::string& place) {
    static const QRegularExpression words(R"(^(-?\d{1,5}),(-?\d{1,5}) (\d{1,5})x(\d{1,5})( maximized)?$)");
    const auto match = words.match(QString::fromStdString(place));
    if (!match.hasMatch()) return;
    const auto number = [&](int i) { return match.captured(i).toInt(); };
    const QRect all = screen()->availableVirtualGeometry();
    QRect wanted = QRect(number(1), number(2), number(3), number(4));
    wanted.setSize(wanted.size().expandedTo(minimumSizeHint()).boundedTo(all.size()));
    wanted.moveTo(std::clamp(wanted.left(), all.left(), all.right() - wanted.width() + 1),
                  std::clamp(wanted.top(), all.top(), all.bottom() - wanted.height() + 1));
    setGeometry(wanted);
    if (match.hasCaptured(5)) showMaximized();
}

void FormWindow::offerTables() {
    for (const auto& [control, view] : views_) {
        if (qobject_cast<QLineEdit*>(view->widget()) == nullptr || gridOf(tree_, *control) == nullptr)
            continue;
        view->widget()->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(view->widget(), &QWidget::customContextMenuRequested, this,
                [this, field = control](QPoint at) { showFieldMenu(*field, at); });
    }
}

void FormWindow::showFieldMenu(const Control& field, QPoint at) {
    if (form_ == nullptr) return;
    auto* edit = static_cast<QLineEdit*>(views_.at(&field)->widget());
    QMenu* menu = edit->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    connect(menu->addAction("Копировать таблицу\tCtrl+Shift+C"), &QAction::triggered, this,
            [this, &field] { copyTable(field); });
    QAction* paste = menu->addAction("Вставить ячейки");
    paste->setEnabled(isBlock(QApplication::clipboard()->text().toStdString()));
    connect(paste, &QAction::triggered, this, [this, &field] { pasteCells(field); });
    menu->popup(edit->mapToGlobal(at));
}

void FormWindow::copyTable(const Control& control) {
    if (form_ == nullptr) return;
    commitEdits();
    const Layout* grid = form_ == nullptr ? nullptr : gridOf(tree_, control);
    if (grid == nullptr) return;
    QApplication::clipboard()->setText(QString::fromStdString(tableText(*grid)));
    statusBar()->showMessage("Таблица скопирована");
}

void FormWindow::copyFocusedTable() {
    for (const auto& [control, view] : views_)
        if (view->widget()->hasFocus()) return copyTable(*control);
}

bool FormWindow::event(QEvent* event) {
    if (event->type() == QEvent::StatusTip) {  // the hint of what the mouse is over
        showHint(static_cast<QStatusTipEvent*>(event)->tip());
        return true;
    }
    if (form_ != nullptr && event->type() == QEvent::WindowActivate) form_->desk().turnTo(*form_);
    if (form_ != nullptr && event->type() == QEvent::WindowDeactivate) commitEdits();
    if (event->type() == QEvent::PaletteChange)  // the desktop turns dark or light
        for (const auto& [control, view] : views_) view->takeColors();
    return QMainWindow::event(event);
}

/// Takes cells from the clipboard into the table of a field.  False when there are none to take.
bool FormWindow::pasteCells(const Control& first) {
    const std::string block = QApplication::clipboard()->text().toStdString();
    const Layout* grid = form_ == nullptr || !isBlock(block) ? nullptr : gridOf(tree_, first);
    if (grid == nullptr) return false;
    const auto cells = cellsOf(*grid, first, block);
    if (cells.empty()) return false;
    act([&] {
        for (const auto& [field, text] : cells)
            if (form_ != nullptr) field->setText(text);  // a change handler may have closed the form
    });
    statusBar()->showMessage(QString("Заполнено ячеек: %1").arg(cells.size()));
    return true;
}

bool FormWindow::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste))
        for (const auto& [control, view] : views_)
            if (view->widget() == object && qobject_cast<QLineEdit*>(object) != nullptr &&
                pasteCells(*control))
                return true;
    // Ctrl+Z belongs to a field as long as it has something to take back, and then to all forms.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo) && !hasOwnUndo(object)) {
        event->ignore();
        return true;
    }
    // Who works with the keyboard sees the hint of the control in the status line too.
    if (event->type() == QEvent::FocusIn) showHint(static_cast<QWidget*>(object)->statusTip());
    return QMainWindow::eventFilter(object, event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (form_ == nullptr) return;
    commitEdits();
    if (form_ == nullptr) return;
    Desk& desk = form_->desk();
    if (desk.disturbs(*form_, Disturbs::Own) && !desk.confirmDisturbing("Закрыть форму"))
        return event->ignore();
    if (form_ != nullptr) desk.unload(form_->name());
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || form_ == nullptr) return QMainWindow::keyPressEvent(event);
    if (auto* focused = qobject_cast<QPushButton*>(focusWidget())) return focused->click();
    for (const Control* control : form_->controls())
        if (control->kind() == Control::Kind::Command &&
            static_cast<const CommandButton*>(control)->isDefault())
            return static_cast<QPushButton*>(views_.at(control)->widget())->click();
}

std::vector<QMainWindow*> openWindows() {
    std::vector<QMainWindow*> open;
    const Desk* desk = nullptr;
    for (QWidget* one : QApplication::topLevelWidgets()) {
        auto* window = dynamic_cast<FormWindow*>(one);
        if (window == nullptr || window->form() == nullptr) continue;
        desk = &window->form()->desk();
        open.push_back(window);
    }
    const auto place = [&](QWidget* window) {
        const auto& names = desk->names();
        return std::find(names.begin(), names.end(), window->objectName().toStdString()) - names.begin();
    };
    std::sort(open.begin(), open.end(), [&](QWidget* a, QWidget* b) { return place(a) < place(b); });
    return open;
}

}  // namespace tarvex
