// The windows of every form of the laboratory, in the order of the desk.

#include <gtest/gtest.h>

#include "desktop/picture_view.h"
#include "desktop/table_text.h"
#include "tests/desktop/every_form.h"

namespace tarvex {

namespace {

struct AllForms : test::EveryForm {};

using test::plain, test::textOf;

/// Controls as a layout places them, from left to right and down.
void inLayoutOrder(const Layout& part, std::vector<const Control*>& all) {
    if (part.control != nullptr) all.push_back(part.control);
    for (const Layout& child : part.children) inLayoutOrder(child, all);
}

/// What a widget says about itself, as the control would.
std::string textOn(const QWidget& widget) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) return edit->text().toStdString();
    if (const auto* box = qobject_cast<const QPlainTextEdit*>(&widget))
        return box->toPlainText().toStdString();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return (button->isCheckable() ? button->isChecked() ? "+" : "-" : "") +
               plain(button->text()).toStdString();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return plain(label->text()).toStdString();
    if (const auto* bar = qobject_cast<const QScrollBar*>(&widget)) return std::to_string(bar->value());
    return "picture";
}

}  // namespace

TEST_P(AllForms, ShowsEveryControlWithItsCaptionTextAndHint) {
    EXPECT_EQ(window().windowTitle().toStdString(), form().title());
    EXPECT_FALSE(form().title().empty());
    QStringList captions;
    for (const QLabel* label : window().findChildren<QLabel*>()) captions << label->text();
    for (const Control* control : form().controls()) {
        const QWidget& widget = *test::find<QWidget>(window(), control->name());
        EXPECT_EQ(textOn(widget), textOf(*control)) << control->name();
        EXPECT_EQ(widget.isEnabled(), isOffered(*control)) << control->name();
        EXPECT_EQ(!widget.isHidden(), control->visible()) << control->name();
        EXPECT_TRUE(widget.toolTip().endsWith(QString::fromStdString(control->hint()))) << control->name();
        const Layout* grid = gridOf(form().layout(), *control);
        const bool headed =
            grid != nullptr && grid->kind == Layout::Kind::Table;  // its cells carry no labels
        if (control->kind() == Control::Kind::Text && control->visible() && !headed) {
            EXPECT_TRUE(control->caption().empty() ||
                        captions.contains(QString::fromStdString(control->caption())))
                << control->name();
        }
    }
}

TEST_P(AllForms, TabGoesThroughTheControlsInTheOrderOfTheLayout) {
    std::vector<const Control*> placed;
    inLayoutOrder(form().layout(), placed);
    std::vector<std::string> wanted, seen;
    for (const Control* control : placed)
        if (const auto* widget = test::find<QWidget>(window(), control->name());
            widget->focusPolicy() & Qt::TabFocus)
            wanted.push_back(control->name());
    for (QWidget* at = window().nextInFocusChain(); at != &window(); at = at->nextInFocusChain())
        if (at->focusPolicy() & Qt::TabFocus)
            if (form().find(at->objectName().toStdString()) != nullptr &&
                std::find(wanted.begin(), wanted.end(), at->objectName().toStdString()) != wanted.end())
                seen.push_back(at->objectName().toStdString());
    EXPECT_EQ(seen, wanted);
}

TEST_P(AllForms, InputsDoWhatTheyDoInThePlayer) {
    // Every input in turn, through the widget here and through the control there.
    for (std::size_t i = 0; i < form().controls().size(); ++i) {
        Control& one = *form().controls()[i];
        Control& other = *twin().controls()[i];
        ASSERT_EQ(one.name(), other.name());
        if (!isOffered(one) || !one.visible()) continue;
        if (one.kind() == Control::Kind::Text) {
            auto& field = static_cast<TextField&>(one);
            if (field.readOnly() || field.lines() > 1) continue;
            auto* edit = test::find<QLineEdit>(window(), one.name());
            edit->setText("7");
            emit edit->editingFinished();
            if (other.enabled() && static_cast<TextField&>(other).text() != "7")
                static_cast<TextField&>(other).setText("7");
        } else if (one.kind() == Control::Kind::Check) {
            test::find<QCheckBox>(window(), one.name())->click();
            static_cast<CheckBox&>(other).set(!static_cast<CheckBox&>(other).on());
        } else if (one.kind() == Control::Kind::Scroll) {
            auto& bar = static_cast<ScrollBar&>(other);
            test::find<QScrollBar>(window(), one.name())->setValue(bar.max());
            bar.setValue(bar.max());
        } else if (one.kind() == Control::Kind::Option) {
            test::find<QRadioButton>(window(), one.name())->click();
            static_cast<OptionButton&>(other).choose();
        }
        QCoreApplication::processEvents();
        if (!shown.desk.isLoaded(GetParam())) break;
    }
    for (std::size_t i = 0; i < form().controls().size(); ++i) {
        EXPECT_EQ(test::withoutClock(textOf(*form().controls()[i])),
                  test::withoutClock(textOf(*twin().controls()[i])))
            << form().controls()[i]->name();
        EXPECT_EQ(textOn(*test::find<QWidget>(window(), form().controls()[i]->name())),
                  textOf(*form().controls()[i]));
    }
}

TEST_P(AllForms, PicturesSurviveAResize) {
    std::vector<PictureView*> views;
    for (QWidget* child : window().findChildren<QWidget*>())
        if (auto* view = dynamic_cast<PictureView*>(child)) views.push_back(view);
    for (const QSize size : {QSize(700, 500), QSize(1900, 1000), QSize(1100, 640)}) {
        window().resize(size);
        QCoreApplication::processEvents();
        for (PictureView* view : views) {
            const Picture& picture = *view->picture();
            EXPECT_NEAR(view->target().width() / view->target().height(),
                        static_cast<double>(picture.width()) / picture.height(), 1e-6);
            const auto corner = view->userPoint(view->target().topLeft() + QPointF(1e-9, 1e-9));
            ASSERT_TRUE(corner.has_value());
            EXPECT_NEAR(corner->x(), picture.toUserX(0), 1e-6);
            EXPECT_NEAR(corner->y(), picture.toUserY(0), 1e-6);
            EXPECT_FALSE(view->grab().isNull());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Desk, AllForms, ::testing::ValuesIn(test::allForms()), test::nameOf);

}  // namespace tarvex
