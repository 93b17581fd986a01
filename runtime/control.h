#pragma once
// The controls of a form, without any toolkit.  A control is known by its name ("Text31", "Check2(5)");
// writing to it runs its handler at once, inside the writer's call, under the guard of its form.

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

class Form;

/// The fixed message that a handler shows when its body fails.
struct Shown {
    std::string text = "Задайте правильно данные";
    std::string title = "Tarvex7m";
};
inline Shown orShow(std::string text, std::string title) { return {std::move(text), std::move(title)}; }

struct Handler {
    std::function<void()> action;
    Shown message;
};

class Control {
public:
    enum class Kind { Text, Check, Option, Command, Scroll, Label, Picture };

    Control(Form* form, Kind kind, std::string name, std::string caption, std::string hint);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind kind() const { return kind_; }
    Form& form() const { return *form_; }
    const std::string& name() const { return name_; }

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    bool enabled() const { return enabled_; }
    void setEnabled(bool on);
    bool visible() const { return visible_; }
    void setVisible(bool on);
    /// One line: what the control means, its unit, where its value goes.
    const std::string& hint() const { return hint_; }
    void setHint(std::string hint);
    /// Name of the form that this control opens; empty when it opens none.
    const std::string& leadsTo() const { return leadsTo_; }
    void setLeadsTo(std::string formName) { leadsTo_ = std::move(formName); }

protected:
    void changed();            ///< tells the screen that this control must be shown anew
    void run(const Handler&);  ///< runs a handler under the form's guard

private:
    Form* form_;
    Kind kind_;
    std::string name_, caption_, hint_, leadsTo_;
    bool enabled_ = true, visible_ = true;
};

/// A field that holds a text; its change handler runs on every write, also of an equal text.
class TextField final : public Control {
public:
    struct Spec {
        std::string name;
        std::string label = "";  ///< caption beside the field
        std::string text = "";
        std::string hint = "";
        bool readOnly = false;  ///< a result: shown, not typed into
        bool hidden = false;    ///< a trigger between forms
        int lines = 1;          ///< more than one: a box of text lines
        int width = 0;          ///< in digits; 0: the usual width of a number
    };
    TextField(Form* form, Spec spec);

    const std::string& text() const { return text_; }
    void setText(std::string text);
    /// Puts a text there of which no handler hears: a session restores what stood in the field.
    void put(std::string text);
    /// Shows a number with up to 15 digits and a decimal comma; throws ArithmeticFailure for no number.
    void show(double v) { setText(toText(v)); }

    /// What is typed.  Throws ConversionFailure or OverflowFailure, and the message then points at this
    /// field.
    double number() const;
    std::int16_t int16() const;
    std::int32_t int32() const;

    void onChange(std::function<void()> action, Shown message = {}) {
        change_ = {std::move(action), std::move(message)};
    }

    /// A box of text whose lines, counted from 0, may lead somewhere.
    void onFollow(std::function<bool(int line)> leads, std::function<void(int line)> follow) {
        leads_ = std::move(leads);
        follow_ = std::move(follow);
    }
    bool hasLeads() const { return static_cast<bool>(leads_); }
    bool leads(int line) const { return leads_ && leads_(line); }
    void follow(int line);

    bool readOnly() const { return readOnly_; }
    int lines() const { return lines_; }
    int width() const { return width_; }

private:
    template <class Read>
    auto pointedAt(Read read) const;
    std::string meaning() const;

    std::string text_;
    bool readOnly_;
    int lines_, width_;
    Handler change_;
    std::function<bool(int)> leads_;
    std::function<void(int)> follow_;
};

/// A box that is ticked or not; its handler runs when the tick changes.
class CheckBox final : public Control {
public:
    struct Spec {
        std::string name;
        std::string caption = "";
        bool on = false;
        std::string hint = "";
    };
    CheckBox(Form* form, Spec spec);

    bool on() const { return on_; }
    void set(bool on);
    void put(bool on);  ///< without its handler
    void onChange(std::function<void()> action, Shown message = {}) {
        change_ = {std::move(action), std::move(message)};
    }

private:
    bool on_;
    Handler change_;
};

/// One of a group of which exactly one (or, before the first choice, none) is on.
class OptionButton final : public Control {
public:
    struct Spec {
        std::string name;
        std::string caption = "";
        std::string group = "";  ///< options of the same group on a form exclude each other
        bool on = false;
        std::string hint = "";
    };
    OptionButton(Form* form, Spec spec);

    bool on() const { return on_; }
    const std::string& group() const { return group_; }
    /// Switches this option on and the others of its group off, and runs its handler (also when it was on).
    void choose();
    void put();  ///< the same without its handler
    void onChoose(std::function<void()> action, Shown message = {}) {
        choice_ = {std::move(action), std::move(message)};
    }

private:
    void switchOn();

    bool on_;
    std::string group_;
    Handler choice_;
};

/// Calculations that a command would disturb while they go on.
enum class Disturbs {
    Nothing,
    Own,     ///< that of its form: it closes the form
    Others,  ///< those of other forms: it is nothing to its own, which goes on
    All      ///< any: it writes what they work on, or ends the program
};

class CommandButton final : public Control {
public:
    struct Spec {
        std::string name;
        std::string caption = "";
        std::string hint = "";
        bool isDefault = false;  ///< pressed by Enter
        Disturbs disturbs = Disturbs::Nothing;
    };
    CommandButton(Form* form, Spec spec);

    /// Runs the handler to its end; a disabled command does nothing, nor one that would disturb a calculation
    /// and that the user takes back.
    void press();
    void onPress(std::function<void()> action, Shown message = {}) {
        press_ = {std::move(action), std::move(message)};
    }
    bool isDefault() const { return isDefault_; }
    Disturbs disturbs() const { return disturbs_; }

private:
    bool isDefault_;
    Disturbs disturbs_;
    Handler press_;
};

class ScrollBar final : public Control {
public:
    struct Spec {
        std::string name;
        int min = 0, max = 100, value = 0;
        std::string hint = "";
    };
    ScrollBar(Form* form, Spec spec);

    int min() const { return min_; }
    int max() const { return max_; }
    int value() const { return value_; }
    /// Sets the value, held within min..max, and runs the change handler when it differs from the old one.
    void setValue(int value);
    void put(int value);  ///< without its handler
    void onChange(std::function<void()> action, Shown message = {}) {
        change_ = {std::move(action), std::move(message)};
    }

private:
    int min_, max_, value_;
    Handler change_;
};

/// A caption that the program changes.
class Label final : public Control {
public:
    struct Spec {
        std::string name;
        std::string caption = "";
        std::string hint = "";
        int lines = 1;  ///< more than one: a text that is wrapped at the width of the window
    };
    Label(Form* form, const Spec& spec)
        : Control(form, Kind::Label, spec.name, spec.caption, spec.hint), lines_(spec.lines) {}

    int lines() const { return lines_; }
    /// Whether the text stands out: it tells of something that the user would not expect.
    bool warning() const { return warning_; }
    void setWarning(bool on);

private:
    int lines_;
    bool warning_ = false;
};

/// Controls of one name with an index: Text1(0) .. Text1(10).  A bad index is a SubscriptFailure.
template <class T>
class ControlArray {
public:
    /// @param spec  called with each index, gives the Spec of that control without its index in the name
    template <class MakeSpec>
    ControlArray(Form* form, int first, int last, MakeSpec spec) : first_(first) {
        for (int i = first; i <= last; ++i) make(form, i, spec);
    }
    /// An array with gaps: only these indices, growing.
    template <class MakeSpec>
    ControlArray(Form* form, const std::vector<int>& indices, MakeSpec spec) : first_(indices.front()) {
        for (const int i : indices) {
            items_.resize(i - first_);
            make(form, i, spec);
        }
    }
    T& operator()(int i) const {
        if (i < first_ || i > last() || !items_[i - first_])
            throw SubscriptFailure("нет элемента с номером " + std::to_string(i));
        return *items_[i - first_];
    }
    int first() const { return first_; }
    int last() const { return first_ + static_cast<int>(items_.size()) - 1; }

private:
    template <class MakeSpec>
    void make(Form* form, int i, MakeSpec& spec) {
        typename T::Spec one = spec(i);
        one.name += "(" + std::to_string(i) + ")";
        items_.push_back(std::make_unique<T>(form, std::move(one)));
    }

    int first_;
    std::vector<std::unique_ptr<T>> items_;
};

using TextFields = ControlArray<TextField>;
using CheckBoxes = ControlArray<CheckBox>;
using OptionButtons = ControlArray<OptionButton>;

}  // namespace tarvex
