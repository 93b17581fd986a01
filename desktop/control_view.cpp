#include "desktop/control_view.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <algorithm>

#include "desktop/number_edit.h"
#include "desktop/picture_view.h"
#include "desktop/qt_text.h"
#include "runtime/resting_commands.h"

namespace tarvex {

namespace {

constexpr int longestLine = 90;                                             ///< of a caption, in characters
constexpr int usualBoxDigits = 70, leastBoxDigits = 40, leastBoxLines = 5;  ///< of a box of text lines
constexpr int mostLeftDigits = 20;  ///< a wider field holds words and starts at the left

bool isNumberOrEmpty(const std::string& text) {
    if (text.empty()) return true;
    try {
        toNumber(text);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

/// Results stand on the colour of the window with a breath of the highlight, inputs on that of a page.
void lookReadOnly(QWidget* widget) {
    const QPalette desktop = QApplication::palette(widget);
    const QColor window = desktop.color(QPalette::Window), tint = desktop.color(QPalette::Highlight);
    const auto blend = [](int a, int b) { return (9 * a + b) / 10; };
    QPalette palette;
    palette.setColor(QPalette::Base,
                     QColor(blend(window.red(), tint.red()), blend(window.green(), tint.green()),
                            blend(window.blue(), tint.blue())));
    widget->setPalette(palette);
}

/// What stands out is set on a strip of amber with black letters, on a light desktop as on a dark one.
void lookWarning(QLabel* label, bool warning) {
    if (label->autoFillBackground() == warning) return;
    label->setAutoFillBackground(warning);
    QPalette palette;
    if (warning) {
        palette.setColor(QPalette::Window, QColor(255, 214, 102));
        palette.setColor(QPalette::WindowText, Qt::black);
    }
    label->setPalette(palette);
}

/// A very long caption on several lines, broken at blanks.
QString folded(QString text) {
    const qsizetype lines = (text.size() + longestLine - 1) / longestLine;
    for (qsizetype line = 1, at = 0; line < lines; ++line) {
        at = text.indexOf(' ', std::max(at + 1, line * text.size() / lines));
        if (at < 0) break;
        text[at] = '\n';
    }
    return text;
}

class LineView final : public ControlView {
public:
    LineView(TextField& field, const Density& density, const Act& act)
        : ControlView(field, new NumberEdit, density), field_(field), act_(act) {
        align();
        const int digits = field.width() > 0 ? field.width() : density.digits;
        edit()->setLayoutWidth(edit()->fontMetrics().horizontalAdvance('0') * (digits + 1) + 12);
        if (field.readOnly()) {
            edit()->setReadOnly(true);
            edit()->setFocusPolicy(Qt::ClickFocus);
        }
        takeColors();
        QObject::connect(edit(), &QLineEdit::editingFinished, edit(), [this] { act_([] {}); });
    }
    void takeColors() override {
        if (field_.readOnly()) lookReadOnly(edit());
    }
    void commit() override {
        if (field_.readOnly() || edit()->text() == shown_) return;
        shown_ = edit()->text();
        edit()->setModified(false);
        field_.setText(shown_.toStdString());
    }

private:
    NumberEdit* edit() const { return static_cast<NumberEdit*>(widget_); }
    /// Numbers right, words left; a result takes the side of what it shows now.
    void align() {
        const bool number = isNumberOrEmpty(field_.text()) && field_.width() <= mostLeftDigits;
        edit()->setAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    void show() override {
        // A text being typed stays as long as the program has not written another one.
        const QString now = toQt(field_.text());
        if (shown_ == now) return;
        shown_ = now;
        edit()->setText(now);
        if (field_.readOnly()) align();
        edit()->setCursorPosition(0);
    }
    QString tip() const override {
        const bool cut = edit()->fontMetrics().horizontalAdvance(edit()->text()) > edit()->width() - 8;
        QString hint = toQt(field_.hint());
        if (!cut) return hint;
        return hint.isEmpty() ? edit()->text() : edit()->text() + "\n" + hint;
    }

    TextField& field_;
    Act act_;
    QString shown_;  ///< the text as the control has it
};

class TextBoxView final : public ControlView {
public:
    TextBoxView(TextField& field, const Density& density, const Act& act)
        : ControlView(field, new Box(act), density), field_(field) {
        const QFontMetrics metrics = box()->fontMetrics();
        box()->setReadOnly(field.readOnly());
        takeColors();
        box()->setTabChangesFocus(true);
        box()->onFollow(field);
        box()->setLineWrapMode(field.width() > 0 ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
        const int digits = field.width() > 0 ? field.width() : usualBoxDigits;
        box()->hint = {metrics.horizontalAdvance('0') * (digits + 1) + 30,
                       metrics.lineSpacing() * field.lines() + 14};
        box()->setMinimumWidth(
            std::min(box()->hint.width(), metrics.horizontalAdvance('0') * leastBoxDigits));
        box()->setMinimumHeight(std::min(box()->hint.height(), metrics.lineSpacing() * leastBoxLines));
    }
    void takeColors() override {
        if (field_.readOnly()) lookReadOnly(box());
    }
    void commit() override {
        if (field_.readOnly() || box()->toPlainText() == shown_) return;
        shown_ = box()->toPlainText();
        field_.setText(shown_.toStdString());
    }

private:
    /// A box of text whose end of editing is the loss of the focus.
    class Box final : public QPlainTextEdit {
    public:
        explicit Box(Act act) : act_(std::move(act)) {}
        QSize sizeHint() const override { return hint; }
        QSize hint;

        /// Lines that lead somewhere are followed by a click or by Enter.
        void onFollow(TextField& field) {
            if (!field.hasLeads()) return;
            field_ = &field;
            viewport()->setMouseTracking(true);
            setTextInteractionFlags(textInteractionFlags() | Qt::TextSelectableByKeyboard);
        }
        void markLeads() {
            if (field_ == nullptr) return;
            QList<QTextEdit::ExtraSelection> marks;
            for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
                if (!field_->leads(block.blockNumber())) continue;
                QTextEdit::ExtraSelection mark;
                mark.cursor = QTextCursor(block);
                mark.cursor.select(QTextCursor::LineUnderCursor);
                mark.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
                mark.format.setForeground(palette().link());
                mark.format.setFontUnderline(true);
                marks << mark;
            }
            setExtraSelections(marks);
        }

    protected:
        void mouseMoveEvent(QMouseEvent* event) override {
            QPlainTextEdit::mouseMoveEvent(event);
            if (field_ == nullptr) return;
            const bool leads = field_->leads(cursorForPosition(event->pos()).blockNumber());
            viewport()->setCursor(leads ? Qt::PointingHandCursor : Qt::IBeamCursor);
        }
        void mouseReleaseEvent(QMouseEvent* event) override {
            QPlainTextEdit::mouseReleaseEvent(event);
            const bool click = event->button() == Qt::LeftButton && !textCursor().hasSelection();
            if (field_ != nullptr && click) follow(cursorForPosition(event->pos()).blockNumber());
        }
        void keyPressEvent(QKeyEvent* event) override {
            const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
            if (field_ != nullptr && enter) return follow(textCursor().blockNumber());
            QPlainTextEdit::keyPressEvent(event);
        }
        void focusOutEvent(QFocusEvent* event) override {
            QPlainTextEdit::focusOutEvent(event);
            act_([] {});
        }

    private:
        void follow(int line) {
            if (field_->leads(line)) act_([field = field_, line] { field->follow(line); });
        }

        Act act_;
        TextField* field_ = nullptr;
    };

    Box* box() const { return static_cast<Box*>(widget_); }
    void show() override {
        QString now = toQt(field_.text());
        now.replace("\r\n", "\n");
        if (now == shown_) return;
        if (field_.readOnly() && !shown_.isEmpty() && now.startsWith(shown_)) {
            // A report that grows: add its new end and keep that in sight.
            box()->moveCursor(QTextCursor::End);
            box()->insertPlainText(now.mid(shown_.size()));
            box()->moveCursor(QTextCursor::End);
        } else {
            box()->setPlainText(now);
        }
        shown_ = now;
        box()->markLeads();
    }

    TextField& field_;
    QString shown_;
};

class CheckView final : public ControlView {
public:
    CheckView(CheckBox& check, const Density& density, const Act& act)
        : ControlView(check, new QCheckBox, density), check_(check) {
        QObject::connect(button(), &QCheckBox::clicked, button(),
                         [this, act](bool on) { act([this, on] { check_.set(on); }); });
    }

private:
    QCheckBox* button() const { return static_cast<QCheckBox*>(widget_); }
    void show() override {
        button()->setText(literal(check_.caption()));
        button()->setChecked(check_.on());
    }
    CheckBox& check_;
};

class OptionView final : public ControlView {
public:
    OptionView(OptionButton& option, const Density& density, const Act& act, QButtonGroup* group)
        : ControlView(option, new QRadioButton, density), option_(option), group_(group) {
        group_->addButton(button());
        QObject::connect(button(), &QRadioButton::clicked, button(),
                         [this, act] { act([this] { option_.choose(); }); });
    }

private:
    QRadioButton* button() const { return static_cast<QRadioButton*>(widget_); }
    void show() override {
        button()->setText(literal(option_.caption()));
        if (button()->isChecked() == option_.on()) return;
        group_->setExclusive(false);  // none may be chosen yet
        button()->setChecked(option_.on());
        group_->setExclusive(true);
    }
    OptionButton& option_;
    QButtonGroup* group_;
};

class CommandView final : public ControlView {
public:
    CommandView(CommandButton& command, const Density& density, const Act& act)
        : ControlView(command, new QPushButton, density), command_(command) {
        button()->setDefault(command.isDefault());
        QObject::connect(button(), &QPushButton::clicked, button(),
                         [this, act] { act([this] { command_.press(); }); });
    }

private:
    QPushButton* button() const { return static_cast<QPushButton*>(widget_); }
    void show() override { button()->setText(literal(command_.caption())); }
    CommandButton& command_;
};

class ScrollView final : public ControlView {
public:
    ScrollView(ScrollBar& bar, const Density& density, const Act& act)
        : ControlView(bar, new QScrollBar(Qt::Horizontal), density), bar_(bar) {
        slider()->setRange(bar.min(), bar.max());
        slider()->setPageStep(std::max(1, (bar.max() - bar.min()) / 20));
        slider()->setFocusPolicy(Qt::StrongFocus);
        slider()->setMinimumWidth(180);
        QObject::connect(slider(), &QScrollBar::valueChanged, slider(),
                         [this, act](int value) { act([this, value] { bar_.setValue(value); }); });
    }

private:
    QScrollBar* slider() const { return static_cast<QScrollBar*>(widget_); }
    void show() override {
        const QSignalBlocker quiet(slider());
        slider()->setValue(bar_.value());
    }
    ScrollBar& bar_;
};

/// A label of so many lines, whatever its width.  Its letters have the usual size, however closely its window
/// is set; where its text needs more lines they become smaller.
class StripLabel final : public QLabel {
public:
    explicit StripLabel(int lines) : lines_(lines) {
        setWordWrap(true);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    QSize sizeHint() const override { return {0, lines_ * QFontMetrics(QApplication::font()).lineSpacing()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
    bool hasHeightForWidth() const override { return false; }
    /// Takes the largest letters in which all is seen.
    void fit() {
        QFont letters;
        for (const double share : {1.0, 0.93, 0.86, 0.8}) {
            letters = QApplication::font();
            letters.setPointSizeF(letters.pointSizeF() * share);
            const QRect room(0, 0, width(), QWIDGETSIZE_MAX);
            if (QFontMetrics(letters).boundingRect(room, Qt::TextWordWrap, text()).height() <= height())
                break;
        }
        if (letters != font()) setFont(letters);
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        fit();
    }

private:
    int lines_;
};

class LabelView final : public ControlView {
public:
    LabelView(Label& label, const Density& density)
        : ControlView(label, label.lines() == 1 ? new QLabel : new StripLabel(label.lines()), density) {
        text()->setTextFormat(Qt::PlainText);
    }

private:
    QLabel* text() const { return static_cast<QLabel*>(widget_); }
    void show() override {
        const auto& label = static_cast<Label&>(control_);
        text()->setText(label.lines() == 1 ? folded(toQt(label.caption())) : toQt(label.caption()));
        lookWarning(text(), label.warning());
        if (label.lines() > 1) static_cast<StripLabel*>(text())->fit();
    }
};

class PictureControlView final : public ControlView {
public:
    PictureControlView(Picture& picture, const Density& density, const Act& act)
        : ControlView(picture, new PictureView(picture, act), density) {}
    void detach() override { picture()->detach(); }

private:
    PictureView* picture() const { return static_cast<PictureView*>(widget_); }
    void show() override { picture()->refresh(); }
};

}  // namespace

QString literal(const std::string& caption) { return folded(toQt(caption)).replace("&", "&&"); }

ControlView::ControlView(Control& control, QWidget* widget, const Density& density)
    : control_(control), widget_(widget) {
    widget_->setFont(density.font);
    widget_->setObjectName(toQt(control.name()));
}

QLabel* ControlView::label() {
    if (label_ == nullptr && control_.kind() == Control::Kind::Text && !control_.caption().empty()) {
        label_ = new QLabel;
        label_->setFont(widget_->font());
        label_->setTextFormat(Qt::PlainText);
        label_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return label_;
}

QString ControlView::tip() const { return toQt(control_.hint()); }

void ControlView::refresh() {
    show();
    widget_->setEnabled(isOffered(control_));
    widget_->setVisible(control_.visible());
    widget_->setToolTip(tip());
    widget_->setStatusTip(toQt(control_.hint()));
    // A screen reader says the caption, or what a cell without one means, and then the hint.
    widget_->setAccessibleName(toQt(control_.caption().empty() ? control_.hint() : control_.caption()));
    widget_->setAccessibleDescription(toQt(control_.hint()));
    if (word_ != nullptr) {
        word_->setEnabled(isOffered(control_));
        word_->setToolTip(tip());
    }
    if (label_ == nullptr) return;
    label_->setText(toQt(control_.caption()));
    label_->setVisible(control_.visible());
    label_->setToolTip(toQt(control_.hint()));
}

std::unique_ptr<ControlView> makeView(Control& control, const Density& density, const Act& act,
                                      const GroupOf& groupOf) {
    switch (control.kind()) {
        case Control::Kind::Text: {
            auto& field = static_cast<TextField&>(control);
            if (field.lines() > 1) return std::make_unique<TextBoxView>(field, density, act);
            return std::make_unique<LineView>(field, density, act);
        }
        case Control::Kind::Check:
            return std::make_unique<CheckView>(static_cast<CheckBox&>(control), density, act);
        case Control::Kind::Option: {
            auto& option = static_cast<OptionButton&>(control);
            return std::make_unique<OptionView>(option, density, act, groupOf(option.group()));
        }
        case Control::Kind::Command:
            return std::make_unique<CommandView>(static_cast<CommandButton&>(control), density, act);
        case Control::Kind::Scroll:
            return std::make_unique<ScrollView>(static_cast<ScrollBar&>(control), density, act);
        case Control::Kind::Label:
            return std::make_unique<LabelView>(static_cast<Label&>(control), density);
        case Control::Kind::Picture:
            break;
    }
    return std::make_unique<PictureControlView>(static_cast<Picture&>(control), density, act);
}

}  // namespace tarvex
