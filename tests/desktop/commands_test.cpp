// Every command of every form, pressed in its window.

#include "desktop/form_window.h"
#include "tests/desktop/every_form.h"

namespace tarvex {

namespace {

std::vector<CommandButton*> commandsOf(const Form& form) {
    std::vector<CommandButton*> all;
    for (Control* control : form.controls())
        if (control->kind() == Control::Kind::Command && control->visible())
            all.push_back(static_cast<CommandButton*>(control));
    return all;
}

struct PressedCommands : ::testing::TestWithParam<std::string> {};
struct Commands : test::EveryForm {
    /// The button of a command, on its page and in sight.
    QPushButton* button(const Control& command) {
        auto* widget = test::find<QPushButton>(window(), command.name());
        for (QWidget* above = widget; above != nullptr; above = above->parentWidget()) {
            auto* tabs = above->parentWidget() == nullptr
                             ? nullptr
                             : qobject_cast<QTabWidget*>(above->parentWidget()->parentWidget());
            if (tabs != nullptr && tabs->indexOf(above) >= 0) tabs->setCurrentWidget(above);
            if (auto* area = qobject_cast<QScrollArea*>(above)) area->ensureWidgetVisible(widget);
        }
        QCoreApplication::processEvents();
        return widget;
    }
};

using Messages = std::vector<test::RecordingScreen::Message>;

/// What a press has done, as far as a user of the form can tell.
struct Outcome {
    Messages messages;
    std::vector<std::string> open, texts;  ///< forms; "Text1 = 5" of the pressed one
};

void look(Desk& desk, const std::string& pressed, Outcome& outcome) {
    for (const std::string& name : desk.names())
        if (desk.isLoaded(name)) outcome.open.push_back(name);
    if (!desk.isLoaded(pressed)) return;
    for (const Control* control : desk.form(pressed).controls())
        outcome.texts.push_back(control->name() + " = " + test::withoutClock(test::textOf(*control)));
}

/// A press in the player; nothing when the command starts a calculation that gives way.
std::optional<Outcome> pressedInThePlayer(const std::string& name, const std::string& command,
                                          const std::filesystem::path& tree) {
    test::RecordingScreen screen;
    Laboratory lab(screen, tree);
    lab.desk.show(name);
    screen.messages.clear();
    screen.atYield = [](int) { throw Failure("runs"); };
    static_cast<CommandButton*>(lab.desk.form(name).find(command))->press();
    screen.runPosted();
    if (screen.yields > 0) return {};
    Outcome outcome{screen.messages, {}, {}};
    look(lab.desk, name, outcome);
    return outcome;
}

Outcome pressedInTheWindow(const std::string& name, const std::string& command,
                           const std::filesystem::path& tree) {
    DesktopScreen screen;
    Laboratory lab(screen, tree);
    Outcome outcome;
    bool pressed = false;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        if (pressed && box->icon() == QMessageBox::Information)
            outcome.messages.push_back({box->text().toStdString(), box->windowTitle().toStdString()});
        box->reject();
    });
    answers.start(1);
    lab.desk.show(name);
    QCoreApplication::processEvents();
    pressed = true;
    test::find<QPushButton>(*screen.windowOf(lab.desk.form(name)), command)->click();
    QCoreApplication::processEvents();
    look(lab.desk, name, outcome);
    return outcome;
}

}  // namespace

TEST_P(Commands, AreReachedByMouseSpaceAndEnter) {
    std::string reached, wanted;
    for (CommandButton* command : commandsOf(form()))
        command->onPress([&reached, command] { reached += command->name() + " "; });
    for (const CommandButton* command : commandsOf(form())) {
        QPushButton* widget = button(*command);
        const QPoint middle = widget->mapTo(&window(), widget->rect().center());
        QWidget* under = window().childAt(middle);
        ASSERT_NE(under, nullptr) << command->name();
        EXPECT_EQ(under, widget) << command->name();
        QTest::mouseClick(under, Qt::LeftButton, {}, under->mapFrom(&window(), middle));
        if (isOffered(*command)) wanted += command->name() + " ";
        if (!isOffered(*command)) continue;
        widget->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        wanted += command->name() + " " + command->name() + " ";
    }
    EXPECT_EQ(reached, wanted);
}

TEST_P(PressedCommands, DoWhatTheyDoInThePlayer) {
    test::RecordingScreen none;
    const Laboratory lab(none, "/nonexistent");
    const auto described = lab.desk.describe(GetParam());
    for (const CommandButton* command : commandsOf(*described)) {
        if (!isOffered(*command)) continue;  // only a script can press it
        const std::string& name = command->name();
        const test::TempFolder tree;
        test::makeTree(tree);
        const auto wanted = pressedInThePlayer(GetParam(), name, tree.path());
        if (!wanted) continue;  // a run: it is stopped in tests of its own
        std::filesystem::remove_all(tree.path());
        test::makeTree(tree);
        const Outcome seen = pressedInTheWindow(GetParam(), name, tree.path());
        EXPECT_EQ(seen.messages, wanted->messages) << name;
        EXPECT_EQ(seen.open, wanted->open) << name;
        ASSERT_EQ(seen.texts.size(), wanted->texts.size()) << name;
        for (std::size_t i = 0; i < seen.texts.size(); ++i)
            EXPECT_EQ(seen.texts[i], wanted->texts[i]) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Desk, Commands, ::testing::ValuesIn(test::allForms()), test::nameOf);

INSTANTIATE_TEST_SUITE_P(Desk, PressedCommands, ::testing::ValuesIn(test::allForms()), test::nameOf);

}  // namespace tarvex
