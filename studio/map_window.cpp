#include "studio/map_window.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desktop/qt_text.h"
#include "desktop/window_bar.h"

namespace tarvex {

namespace {

constexpr int numbered = 9;  ///< forms with a key of their own
constexpr QSize usualSize(900, 690);

/// Where a line of the list keeps the name of its form.
constexpr int formRole = Qt::UserRole;

}  // namespace

MapWindow::MapWindow(FormMap map, Actions actions)
    : map_(std::move(map)),
      actions_(std::move(actions)),
      search_(new QLineEdit),
      list_(new QTreeWidget),
      found_(new QLabel) {
    setObjectName("map");
    setWindowTitle("Карта");
    search_->setPlaceholderText("Номер формы или слова: затмение, перигелий, аберрация ...");
    search_->setAccessibleName("Искать форму");
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    list_->setColumnCount(2);
    list_->setHeaderLabels({"Форма", "Назначение"});
    list_->setAccessibleName("Формы");
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->header()->setStretchLastSection(true);

    auto* contents = new QWidget;
    auto* column = new QVBoxLayout(contents);
    column->addWidget(search_);
    column->addWidget(list_, 1);
    column->addWidget(found_);
    column->addWidget(roadsRow());
    setCentralWidget(contents);
    resize(usualSize.boundedTo(screen()->availableSize() * 0.95));

    connect(search_, &QLineEdit::textChanged, this, [this] { fill(); });
    connect(search_, &QLineEdit::returnPressed, this, [this] { openChosen(); });
    connect(list_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { openItem(item); });
    for (const char* keys : {"Escape", "F6", "Ctrl+0"})
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, &QWidget::hide);
    for (int number = 1; number <= numbered; ++number)
        connect(new QShortcut(QKeySequence(QString("Ctrl+%1").arg(number)), this), &QShortcut::activated,
                this, [this, number] { openForm("Form" + std::to_string(number)); });
}

QWidget* MapWindow::roadsRow() {
    auto* row = new QWidget;
    auto* box = new QHBoxLayout(row);
    box->setContentsMargins(0, 0, 0, 0);
    for (const Road& road : roads()) {
        auto* group = new QGroupBox(toQt(road.title));
        auto* column = new QVBoxLayout(group);
        auto* about = new QLabel(toQt(road.about));
        about->setWordWrap(true);
        column->addWidget(about);
        auto* begin = new QPushButton(QString("Начать: форма %1").arg(road.form));
        connect(begin, &QPushButton::clicked, this,
                [this, form = "Form" + std::to_string(road.form)] { openForm(form); });
        column->addWidget(begin);
        for (const Road::Example& example : road.examples) {
            if (!actions_.play) break;
            auto* play = new QPushButton("Пример: " + toQt(example.title));
            play->setToolTip("Проиграть examples/" + toQt(example.file) + " в новом сеансе");
            connect(play, &QPushButton::clicked, this, [this, example] {
                hide();
                actions_.play(example);
            });
            column->addWidget(play);
        }
        column->addStretch();
        box->addWidget(group, 1);
    }
    return row;
}

void MapWindow::open() {
    search_->clear();
    fill();
    bringToFront(*this);
    search_->setFocus();
}

void MapWindow::addEntry(QTreeWidgetItem* group, const FormMap::Hit& hit) {
    const FormMap::Entry& entry = *hit.entry;
    const bool isOpen = actions_.isOpen(entry.form);
    const QString number = QString::number(entry.number) + (isOpen ? "   открыта" : "");
    const QString about = toQt(entry.purpose) + (hit.why.empty() ? "" : "  -  " + toQt(hit.why));
    auto* item = new QTreeWidgetItem({number, about});
    item->setData(0, formRole, toQt(entry.form));
    item->setToolTip(1, about);
    QFont marked = list_->font();
    marked.setBold(isOpen);
    item->setFont(0, marked);
    if (group != nullptr)
        group->addChild(item);
    else
        list_->addTopLevelItem(item);
}

/// By groups where nothing is sought, and the best first where something is.
void MapWindow::fill() {
    list_->clear();
    const auto hits = map_.find(search_->text().toStdString());
    const bool seeking = !search_->text().trimmed().isEmpty();
    QTreeWidgetItem* group = nullptr;
    for (const FormMap::Hit& hit : hits) {
        if (!seeking && (group == nullptr || group->text(0).toStdString() != hit.entry->group)) {
            group = new QTreeWidgetItem({toQt(hit.entry->group)});
            group->setFlags(Qt::ItemIsEnabled);
            list_->addTopLevelItem(group);
            group->setFirstColumnSpanned(true);
        }
        addEntry(seeking ? nullptr : group, hit);
    }
    list_->expandAll();
    list_->resizeColumnToContents(0);
    if (seeking && !hits.empty()) list_->setCurrentItem(list_->topLevelItem(0));
    found_->setText(!seeking ? "Enter - открыть выбранную форму, Escape - закрыть карту"
                    : hits.empty() ? QString("Ничего не найдено")
                                   : QString("Найдено форм: %1; Enter открывает первую").arg(hits.size()));
}

void MapWindow::openItem(QTreeWidgetItem* item) {
    if (item != nullptr && item->data(0, formRole).isValid())
        openForm(item->data(0, formRole).toString().toStdString());
}

/// What is chosen in the list, at first the best hit.
void MapWindow::openChosen() { openItem(list_->currentItem()); }

void MapWindow::openForm(const std::string& form) {
    hide();
    actions_.open(form);
}

bool MapWindow::eventFilter(QObject* object, QEvent* event) {
    // From the search field the arrows move through the list.
    if (object == search_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown || key == Qt::Key_PageUp) {
            if (list_->currentItem() == nullptr && list_->topLevelItemCount() > 0)
                list_->setCurrentItem(list_->topLevelItem(0));
            QCoreApplication::sendEvent(list_, event);
            return true;
        }
    }
    return QMainWindow::eventFilter(object, event);
}

}  // namespace tarvex
