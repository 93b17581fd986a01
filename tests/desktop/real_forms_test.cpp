// A calculation of the laboratory in its window: stopped, ended, helped; its picture where it is looked at.

#include "desktop/picture_view.h"
#include "forms/help_form.h"
#include "forms/plan_form.h"
#include "forms/run_form.h"
#include "forms/statistics_form.h"
#include "tests/desktop/every_form.h"

namespace tarvex {

namespace {

/// Form1 and Form2 on real windows, with initial data for a run.
struct RealForms : ::testing::Test {
    RealForms() : lab(screen, folder.path()) {
        test::makeTree(folder);
        QObject::connect(&shutMessages, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                said << box->text();
                box->reject();
            }
        });
        shutMessages.start(10);
        lab.desk.show("Form1");
        press("Form1", "Command1");
    }
    FormWindow& windowOf(const char* form) { return *screen.windowOf(lab.desk.form(form)); }
    void press(const char* form, const char* command) {
        test::find<QPushButton>(windowOf(form), command)->click();
        QCoreApplication::processEvents();
    }
    /// Everything that the status line of a window shows.
    QString status(const char* form) {
        QStringList all{windowOf(form).statusBar()->currentMessage()};
        for (const QLabel* label : windowOf(form).statusBar()->findChildren<QLabel*>()) all << label->text();
        return all.join('|');
    }

    test::TempFolder folder;
    DesktopScreen screen;
    Laboratory lab;
    QTimer shutMessages;
    QStringList said;
};

}  // namespace

TEST_F(RealForms, AMovedPictureOpensWhereItsFormPrintsAndStaysWhereTheUserPutsIt) {
    lab.desk.show("Form15");
    auto& form = lab.desk.get<PlanForm>();
    FormWindow* window = &windowOf("Form15");
    window->resize(1100, 600);
    QTest::qWait(50);
    const auto* view = dynamic_cast<PictureView*>(test::find<QWidget>(*window, "Picture1"));
    const QScrollArea* area = view->scrollArea();
    QScrollBar* bar = area->verticalScrollBar();
    const auto seen = [&](double y) {
        const double share =
            (y - form.picture.toUserY(0)) / (form.picture.toUserY(1) - form.picture.toUserY(0));
        const int at = view->mapTo(area->viewport(), QPoint(0, static_cast<int>(share * view->height()))).y();
        return at >= 0 && at <= area->viewport()->height();
    };
    const double title = form.picture.toUserY(0) - 19.1, lastLine = title - 12.9;
    ASSERT_GT(bar->maximum(), 0);
    EXPECT_TRUE(seen(title));
    EXPECT_TRUE(seen(lastLine));

    bar->setValue(0);
    ASSERT_FALSE(seen(lastLine));
    form.picture.text(1, 1, "далеко внизу");
    QTest::qWait(50);
    EXPECT_EQ(bar->value(), 0);

    form.picture.lookAt(12, -2);
    QTest::qWait(50);
    EXPECT_TRUE(seen(11.9));
    EXPECT_TRUE(seen(-1.9));
}

TEST_F(RealForms, AStopReachesARunningExperiment) {
    auto& form = lab.desk.get<RunForm>();
    test::enter(form.endAtYear, true, form.lastYear, "2900");
    bool running = false;
    QString during;
    QTimer::singleShot(700, [&] {
        running = lab.desk.busy();
        during = status("Form2");
        press("Form2", "Command4");
    });
    press("Form2", "Command1");  // returns only when the run has ended
    EXPECT_TRUE(running) << said.join('|').toStdString();
    EXPECT_EQ(lab.s.kodStop, 1);
    EXPECT_LT(lab.s.God, 2900);
    EXPECT_TRUE(during.contains(QRegularExpression("прошло 0:0.*осталось .*, конец ")))
        << during.toStdString();
    EXPECT_TRUE(status("Form2").contains("Счет занял 0:0")) << status("Form2").toStdString();
    EXPECT_FALSE(lab.desk.busy());
}

TEST_F(RealForms, TheEndOfARunIsToldInItsWindow) {
    auto& form = lab.desk.get<RunForm>();
    test::enter(form.endAtYear, true, form.lastYear, "1802");
    lab.desk.show("Form1");  // the user works elsewhere meanwhile
    QPushButton* start = test::find<QPushButton>(windowOf("Form2"), "Command1");
    start->click();
    EXPECT_EQ(said.join('|'), "");
    screen.notify("Расчет закончен");
    EXPECT_TRUE(status("Form2").contains("Расчет закончен")) << status("Form2").toStdString();
    EXPECT_FALSE(status("Form1").contains("Расчет закончен"));
}

TEST_F(RealForms, F1OpensTheHelpAtTheFormThatAsks) {
    screen.onHelp([this](const Form& asking) { openHelp(lab.desk, asking); });
    for (const char* name : {"Form2", "Form1", "Form3"}) {
        lab.desk.show(name);
        QCoreApplication::processEvents();
        QTest::keyClick(&windowOf(name), Qt::Key_F1);
        QCoreApplication::processEvents();
        ASSERT_TRUE(lab.desk.isLoaded("Form3")) << name;
        EXPECT_EQ(QApplication::activeWindow(), &windowOf("Form3")) << name;
        const std::string text = textOf(pageOfForm(lab.desk, name));
        EXPECT_EQ(test::find<QPlainTextEdit>(windowOf("Form3"), "Text1")->toPlainText().toStdString(), text);
    }
}

TEST_F(RealForms, AMessageBringsTheFieldThatHoldsNoNumberIntoSight) {
    lab.desk.show("Form6");
    FormWindow& window = windowOf("Form6");
    auto* field = test::find<QLineEdit>(window, "Text23");
    ASSERT_FALSE(field->isVisible());  // on a tab that is not in front
    lab.desk.get<StatisticsForm>().epochYear.setText("две");
    lab.desk.get<StatisticsForm>().fitData.press();
    EXPECT_EQ(said.size(), 1);
    EXPECT_TRUE(field->isVisible());
    EXPECT_EQ(window.focusWidget(), field);
}

}  // namespace tarvex
