// The program with windows as its user meets it: the last session, a record, a script in the windows, the
// map.

#include "studio/studio.h"

#include <QtWidgets>
// what simulates keys wants the widgets first
#include <QtTest/QTest>
#include <deque>

#include "desktop/form_window.h"
#include "runtime/control_lines.h"
#include "studio/session_files.h"
#include "tests/desktop/real_hands.h"
#include "tests/support/testing.h"

namespace tarvex {

namespace {

struct StudioTest : ::testing::Test {
    StudioTest() {
        for (const char* name : {"Dat", "JPL", "NEW", "Ser", "Obs", "Tab", "Plan0", "Plan0/Txt1", "Risunki"})
            folder.makeFolder(name);
        isFirstStart();
        hand.setInterval(20);
        QObject::connect(&hand, &QTimer::timeout, [this] { act(); });
    }
    struct Step {
        template <class Action>
        Step(Action action) : act(std::move(action)) {}
        std::function<void(Studio&)> act;
        bool inARun = false;  ///< while something is calculated
    };
    template <class Action>
    static Step inARun(Action action) {
        Step step(std::move(action));
        step.inARun = true;
        return step;
    }
    /// The user's steps, each when the windows have come to rest; then he closes everything.
    void live(std::deque<Step> steps) {
        Studio one(folder.path());
        studio = &one;
        todo = std::move(steps);
        hand.start();
        EXPECT_EQ(one.run(), 0);
        hand.stop();
        EXPECT_TRUE(todo.empty());
    }
    void act() {
        if (acting) return;
        acting = true;
        move();
        acting = false;
    }
    void move() {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            asked << box->text();
            box->buttons().front()->click();
        } else if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            if (awaited && !awaited()) return;
            if (file.isEmpty()) return dialog->reject();
            dialog->findChild<QLineEdit*>()->setText(file);
            QMetaObject::invokeMethod(dialog, "accept");
        } else if (stepping) {
            // its end is waited for
        } else if (todo.empty() && studio->atRest()) {
            studio->laboratory().desk.unloadAll("Form1");
        } else if (!todo.empty() && isDue(todo.front())) {
            // By a timer of its own: a step may open a dialog that is answered here.
            stepping = true;
            QTimer::singleShot(0, [this, step = std::move(todo.front())] {
                step.act(*studio);
                stepping = false;
            });
            todo.pop_front();
        }
    }
    bool isDue(const Step& step) {
        if (studio->atRest()) return !step.inARun;
        return step.inARun && studio->windows().front() != nullptr && studio->laboratory().run.Tmod > 0;
    }
    static FormWindow& window(Studio& of, const char* form) {
        return *of.windows().windowOf(of.laboratory().desk.form(form));
    }
    static void type(Studio& in, const char* form, const char* field, const char* text) {
        auto* edit = window(in, form).findChild<QLineEdit*>(field);
        ASSERT_NE(edit, nullptr) << field;
        window(in, form).activateWindow();
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Tab);
    }
    static void keys(Studio& in, const char* form, Qt::Key key, Qt::KeyboardModifiers with = {}) {
        window(in, form).activateWindow();
        [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(&window(in, form));
        QTest::keyClick(&window(in, form), key, with);
    }
    static std::string value(Studio& in, const char* form, const char* control) {
        return valueOf(*in.laboratory().desk.form(form).find(control));
    }

    test::TempFolder folder;
    Studio* studio = nullptr;
    std::deque<Step> todo;
    QTimer hand;
    bool acting = false, stepping = false;
    QString file;
    std::function<bool()> awaited;  ///< before a dialog is answered
    QStringList asked;
};

}  // namespace

TEST_F(StudioTest, TheLastSessionIsOfferedAndARecordPlaysInTheWindows) {
    live(
        {[](Studio& s) { keys(s, "Form1", Qt::Key_R, Qt::ControlModifier); },
         [](Studio& s) { type(s, "Form1", "Text34", "1850"); },
         [](Studio& s) { keys(s, "Form1", Qt::Key_R, Qt::ControlModifier); },  // no file is named: it goes on
         [this](Studio&) { file = QString::fromStdString((folder.path() / "record.tvx").string()); },
         [](Studio& s) { type(s, "Form1", "Text33", "7"); },
         [](Studio& s) { keys(s, "Form1", Qt::Key_Z, Qt::ControlModifier); },
         [](Studio& s) { EXPECT_EQ(value(s, "Form1", "Text33"), "1"); },
         [this](Studio& s) {
             auto* save = window(s, "Form1").findChild<QPushButton*>("Command4");
             const auto told = [&] { return window(s, "Form1").statusBar()->currentMessage(); };
             save->click();
             EXPECT_EQ(told(), "Сохранено: Dat/Tarvex1.dat");
             test::writeBytes(folder.path() / "Dat/Tarvex1.dat", "of another day\r\n");
             save->click();
             EXPECT_EQ(told(), "Сохранено: Dat/Tarvex1.dat (прежний файл - Dat/Tarvex1.dat.old)");
             EXPECT_EQ(test::readBytes(folder.path() / "Dat/Tarvex1.dat.old"), "of another day\r\n");
         },
         [](Studio& s) { keys(s, "Form1", Qt::Key_2, Qt::ControlModifier); },
         [](Studio& s) { type(s, "Form2", "Text38", "7200"); },
         [](Studio& s) { keys(s, "Form2", Qt::Key_R, Qt::ControlModifier); }});
    EXPECT_EQ(asked.join('|'), "");

    live({[](Studio& s) {
        EXPECT_EQ(value(s, "Form1", "Text34"), "1850");
        EXPECT_EQ(value(s, "Form2", "Text38"), "7200");
        EXPECT_TRUE(window(s, "Form2").isVisible());
    }});
    EXPECT_EQ(asked.join('|'), "Продолжить прошлый сеанс?");

    std::filesystem::remove(lastSessionOf(folder.path()));
    live({[](Studio& s) { EXPECT_EQ(value(s, "Form1", "Text34"), "1801"); },
          [](Studio& s) { keys(s, "Form1", Qt::Key_O, Qt::ControlModifier); },
          [](Studio& s) {
              EXPECT_EQ(value(s, "Form1", "Text34"), "1850");
              EXPECT_EQ(value(s, "Form1", "Text33"), "1");
              EXPECT_EQ(value(s, "Form2", "Text38"), "7200");
          }});
    EXPECT_EQ(asked.size(), 1);
    EXPECT_NE(test::readBytes(folder.path() / "Dat" / "Journal.txt").find("Form2.Text38 = 7200"),
              std::string::npos);
}

TEST_F(StudioTest, AScriptInTheWindowsIsToldAndStopped) {
    const auto script = folder.path() / "run.tvx";
    test::writeBytes(script,
                     "Form1.Command1\nat yield 3 print state.God\nForm2.Text40 = 2900\nForm2.Check10 = on\n"
                     "Form1.Text34 = x\nForm1.Command3\nForm2.Command1\necho дальше\n");
    file = QString::fromStdString(script.string());
    QString told;
    live({[](Studio& s) { keys(s, "Form1", Qt::Key_O, Qt::ControlModifier); }, inARun([](Studio&) {
              for (QWidget* one : QApplication::topLevelWidgets())
                  if (one->objectName() == "script") one->findChild<QPushButton*>()->click();
          }),
          [&](Studio&) {
              for (QWidget* one : QApplication::topLevelWidgets())
                  if (one->objectName() == "script") {
                      told = one->findChild<QPlainTextEdit*>()->toPlainText();
                      for (const QLabel* label : one->findChildren<QLabel*>()) told += label->text();
                  }
          }});
    EXPECT_EQ(asked.join('|'), "");  // what a form says is told by the script, not asked of the user
    EXPECT_TRUE(told.contains("message \"")) << told.toStdString();
    EXPECT_TRUE(told.contains("Строка 7: остановлено")) << told.toStdString();
    EXPECT_FALSE(told.contains("дальше\n"));
}

TEST_F(StudioTest, ARunGoesOnBehindTheDialogs) {
    const auto script = folder.path() / "run.tvx", saved = folder.path() / "saved.tvx";
    test::writeBytes(script, "Form1.Command1\nForm2.Text40 = 2900\nForm2.Check10 = on\nForm2.Command1\n");
    test::writeBytes(saved, "older");
    file = QString::fromStdString(script.string());
    double before = 0;
    bool wentOn = false;  // while a dialog was open
    live({[](Studio& s) { keys(s, "Form1", Qt::Key_O, Qt::ControlModifier); }, inARun([&](Studio& s) {
              file = QString::fromStdString(saved.string());
              before = s.laboratory().run.Tmod;
              awaited = [&, looks = 0]() mutable {
                  wentOn |= studio->laboratory().run.Tmod > before;
                  return wentOn || ++looks > 200;
              };
              keys(s, "Form2", Qt::Key_S, Qt::ControlModifier);
          }),
          inARun([&](Studio& s) { window(s, "Form2").findChild<QPushButton*>("Command4")->click(); })});
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(asked.join('|').toStdString(), "Файл " + saved.string() + " уже есть. Заменить?");
    EXPECT_NE(test::readBytes(saved).find("note Прерван расчет: Form2"), std::string::npos);
}

TEST_F(StudioTest, TheMapOpensWhatIsSought) {
    const auto seek = [](const char* what) {
        return [what](Studio& s) {
            auto* field = s.map().findChild<QLineEdit*>();
            EXPECT_EQ(s.map().focusWidget(), field);
            field->setText(what);
            QTest::keyClick(field, Qt::Key_Return);
        };
    };
    live({[](Studio& s) { keys(s, "Form1", Qt::Key_F6); }, seek("затмение"),
          [](Studio& s) {
              EXPECT_EQ(QApplication::activeWindow(), &window(s, "Form16"));
              EXPECT_FALSE(s.map().isVisible());
              s.laboratory().desk.unload("Form1");
              keys(s, "Form16", Qt::Key_0, Qt::ControlModifier);
          },
          [&](Studio& s) {
              auto* list = s.map().findChild<QTreeWidget*>();
              EXPECT_EQ(list->findItems("16   открыта", Qt::MatchExactly | Qt::MatchRecursive).size(), 1);
              EXPECT_EQ(list->findItems("открыта", Qt::MatchEndsWith | Qt::MatchRecursive).size(), 1);
          },
          seek("1"), [](Studio& s) { EXPECT_EQ(QApplication::activeWindow(), &window(s, "Form1")); }});
}

/// Real keys and clicks: the map by F6, a form by what is typed, a field, the session by Ctrl+S, its file by
/// the dialog; then the map by the mouse.
TEST_F(StudioTest, RealKeysReachTheMapAndTheSession) {
    if (!test::onRealDisplay()) {
        test::onVirtualDisplay("StudioTest.RealKeysReachTheMapAndTheSession");
        return test::onVirtualDisplay("StudioTest.RealKeysReachTheMapAndTheSession", "2560x1440", "2");
    }
    const auto saved = folder.path() / "kept.tvx";
    file = QString::fromStdString(saved.string());
    live({[](Studio& s) { test::hands(test::turnTo(window(s, "Form1")) + "xdotool key F6; sleep 0.3"); },
          [](Studio& s) {
              EXPECT_TRUE(s.map().isVisible());
              test::hands(test::turnTo(s.map()) + "xdotool type 23; xdotool key Return; sleep 0.3");
          },
          [](Studio& s) {
              ASSERT_TRUE(s.laboratory().desk.isLoaded("Form23"));
              auto* field = window(s, "Form23").findChild<QLineEdit*>("Text1");
              test::hands(test::turnTo(window(s, "Form23")) + test::clickOn(field, field->rect().center()) +
                          "xdotool key ctrl+a; xdotool type 4; xdotool key ctrl+s; sleep 0.5");
          },
          [](Studio& s) {
              test::hands(test::turnTo(window(s, "Form23")) + "xdotool key F6; sleep 0.3");
              auto* list = s.map().findChild<QTreeWidget*>();
              auto* item = list->findItems("16", Qt::MatchExactly | Qt::MatchRecursive).value(0);
              ASSERT_NE(item, nullptr);
              list->scrollToItem(item);
              const QPoint spot = list->visualItemRect(item).center();
              test::hands(test::clickOn(list->viewport(), spot) + "xdotool click 1; sleep 0.3");
              EXPECT_TRUE(s.laboratory().desk.isLoaded("Form16"));
          }});
    EXPECT_NE(test::readBytes(saved).find("Form23.Text1 = 4"), std::string::npos);
}

}  // namespace tarvex
