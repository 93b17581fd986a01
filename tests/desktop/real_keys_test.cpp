// Real keys and clicks of a display server.

#include <gtest/gtest.h>

#include "desktop/picture_view.h"
#include "forms/elements_form.h"
#include "forms/run_form.h"
#include "tests/desktop/every_form.h"
#include "tests/desktop/real_hands.h"

namespace tarvex {

namespace {

using test::clickOn;
using test::hands;
using test::turnTo;

struct RealKeys : test::WindowTest {
    void reachTheForm() {
        window->move(20, 20);
        QTest::qWait(100);
        auto* field = find<QLineEdit>("Text1");
        hands(turnTo(*window) + clickOn(field, field->rect().center()) +
              "xdotool key ctrl+a; xdotool type 25,5");
        EXPECT_EQ(field->text(), "25,5");
        EXPECT_EQ(form->Text1.text(), "19,4");
        hands("xdotool key Return");  // the default command
        EXPECT_EQ(form->seen, "25,5|");

        auto* picture = static_cast<PictureView*>(find<QWidget>("Picture1"));
        hands(clickOn(picture, picture->target().center().toPoint()));
        EXPECT_NEAR(form->mouse.x(), 0, 0.2);
        EXPECT_NEAR(form->mouse.y(), 1, 0.2);

        // From button to button by Tab: the start, and the stop while it runs.
        find<QPushButton>("Command2")->setFocus();
        hands("xdotool key space; sleep 0.3; xdotool key Tab; xdotool key space; sleep 0.2");
        EXPECT_TRUE(form->ended);
        EXPECT_GT(form->passes, 1);

        hands("xdotool key F6; sleep 0.2");
        EXPECT_NE(QApplication::activePopupWidget(), nullptr);
        hands("xdotool key Escape");
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }

    /// From a date on Form1 to an experiment on Form2 and its stop, with keys alone after the first click.
    void reachTheLaboratory() {
        window->hide();
        const test::TempFolder folder;
        test::makeTree(folder);
        Laboratory lab(screen, folder.path());
        lab.desk.show("Form1");
        auto& first = lab.desk.get<ElementsForm>();
        FormWindow* window1 = screen.windowOf(first);
        QTest::qWait(100);
        auto* year = test::find<QLineEdit>(*window1, "Text34");
        hands(turnTo(*window1) + clickOn(year, year->rect().center()) +
              "xdotool key ctrl+a; xdotool type 1900; xdotool key Tab; xdotool type 2; "
              "xdotool key Tab Tab; sleep 0.1; xdotool key space");
        EXPECT_EQ(first.month.text(), "2");
        EXPECT_EQ(first.julianDate.text(), "2415052");  // 1.5 February 1900

        test::find<QPushButton>(*window1, "Command1")->setFocus();
        hands("xdotool key Return; sleep 0.3");
        ASSERT_TRUE(lab.desk.isLoaded("Form2"));
        FormWindow* window2 = screen.windowOf(lab.desk.get<RunForm>());
        EXPECT_TRUE(window2->isVisible());
        test::find<QPushButton>(*window2, "Command1")->setFocus();
        bool running = false;
        QTimer::singleShot(1500, [&] { running = lab.desk.busy(); });
        hands(turnTo(*window2) + "xdotool key space; sleep 2; xdotool key Tab space; sleep 0.2");
        EXPECT_TRUE(running);
        EXPECT_FALSE(lab.desk.busy());
        EXPECT_EQ(lab.s.kodStop, 1);
    }
};

}  // namespace

TEST_F(RealKeys, ReachTheForm) {
    if (test::onRealDisplay())
        reachTheForm();
    else
        test::onVirtualDisplay("RealKeys.ReachTheForm");
}

TEST_F(RealKeys, ReachTheLaboratory) {
    if (test::onRealDisplay())
        reachTheLaboratory();
    else
        test::onVirtualDisplay("RealKeys.ReachTheLaboratory");
}

}  // namespace tarvex
