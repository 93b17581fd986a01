#pragma once
// The window "Карта": all forms by group, number and purpose, found as one types, and the roads with their
// examples.

#include <QMainWindow>
#include <functional>
#include <optional>
#include <vector>

#include "forms/form_map.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace tarvex {

class MapWindow final : public QMainWindow {
public:
    struct Actions {
        std::function<void(const std::string& form)> open;
        std::function<bool(const std::string& form)> isOpen;
        /// Plays an example of a road; empty where there are no examples.
        std::function<void(const Road::Example&)> play;
    };
    MapWindow(FormMap map, Actions actions);

    /// To the front, with nothing sought and the focus in the search field.
    void open();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QWidget* roadsRow();
    void fill();
    void addEntry(QTreeWidgetItem* group, const FormMap::Hit& hit);
    void openItem(QTreeWidgetItem* item);
    void openChosen();
    void openForm(const std::string& form);

    FormMap map_;
    Actions actions_;
    QLineEdit* search_;
    QTreeWidget* list_;
    QLabel* found_;
};

}  // namespace tarvex
