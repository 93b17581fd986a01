#pragma once
// The widget of one control: it shows the control's state and carries what the user does to the control.

#include <QFont>
#include <QLabel>
#include <QString>
#include <functional>
#include <memory>

#include "runtime/control.h"

class QButtonGroup;

namespace tarvex {

/// Runs what the user has done: texts still being typed reach their controls first, and nothing happens once
/// the form is gone.
using Act = std::function<void(const std::function<void()>&)>;
/// The group of buttons that shows the exclusive options of this name.
using GroupOf = std::function<QButtonGroup*(const std::string&)>;

/// How closely a window is set: a form that does not fit the screen is set more closely.
struct Density {
    QFont font;
    int digits = 12;     ///< of a number field that asks for no width
    int gap = 6;         ///< between the parts of a layout, pixels
    int rowWidth = 900;  ///< a row of commands or ticks that is longer is folded
};

class ControlView {
public:
    virtual ~ControlView() = default;
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    Control& control() const { return control_; }
    QWidget* widget() const { return widget_; }
    /// The caption beside a field, made when a layout asks for it; null for controls that carry their own.
    QLabel* label();

    /// A word beside the control that belongs to it: it is dim when the control is.
    void addWord(QLabel* word) { word_ = word; }

    /// Shows the present state of the control.
    void refresh();
    /// A text that has been typed but not yet taken over reaches the control.
    virtual void commit() {}
    /// The desktop has other colours than before.
    virtual void takeColors() {}
    /// The control is about to go.
    virtual void detach() {}

protected:
    ControlView(Control& control, QWidget* widget, const Density& density);
    virtual void show() = 0;
    virtual QString tip() const;  ///< of the tool tip

    Control& control_;
    QWidget* widget_;
    QLabel *label_ = nullptr, *word_ = nullptr;
};

std::unique_ptr<ControlView> makeView(Control& control, const Density& density, const Act& act,
                                      const GroupOf& groupOf);

/// A caption as a button shows it: "&" is a character like any other, and a very long one is folded at a
/// blank.
QString literal(const std::string& caption);

}  // namespace tarvex
