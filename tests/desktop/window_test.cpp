#include <gtest/gtest.h>

#include "desktop/picture_view.h"
#include "tests/desktop/window_fixture.h"

namespace tarvex {

using test::BenchForm;
using test::BoxAnswer;

using test::soon;

struct Window : test::WindowTest {};

TEST_F(Window, ShowsEveryControlWithItsExactCaptionAndState) {
    EXPECT_EQ(window->windowTitle(), "Стенд & окно");
    EXPECT_EQ(find<QPushButton>("Command1")->text(), "Q && A");  // one "&" on the screen, no mnemonic
    EXPECT_EQ(find<QCheckBox>("Check1")->text(), "A && B");
    EXPECT_EQ(find<QLineEdit>("Text1")->text(), "19,4");
    EXPECT_EQ(find<QLineEdit>("Text1")->toolTip(), "Скорость, км/с");
    EXPECT_TRUE(find<QLineEdit>("Text2")->isReadOnly());
    EXPECT_FALSE(find<QLineEdit>("Text9")->isVisible());
    EXPECT_TRUE(find<QPlainTextEdit>("Text3")->isVisible());
    EXPECT_EQ(find<QScrollBar>("HScroll1")->value(), 30);
    const auto labels = window->findChildren<QLabel*>();
    EXPECT_TRUE(
        std::any_of(labels.begin(), labels.end(), [](QLabel* l) { return l->text() == "V & W, км/с"; }));

    form->Command3.setEnabled(false);
    form->Text1.setVisible(false);
    form->Text1.setText("7");
    EXPECT_EQ(find<QLineEdit>("Text1")->text(), "19,4");  // shown when the handler has returned
    QCoreApplication::processEvents();
    EXPECT_EQ(find<QLineEdit>("Text1")->text(), "7");
    EXPECT_FALSE(find<QLineEdit>("Text1")->isVisible());
    EXPECT_FALSE(std::any_of(labels.begin(), labels.end(),
                             [](QLabel* l) { return l->text() == "V & W, км/с" && l->isVisible(); }));
    EXPECT_FALSE(find<QPushButton>("Command3")->isEnabled());
}

TEST_F(Window, TypedTextIsInTheControlBeforeACommandRuns) {
    type("Text1", "25,5");
    find<QPlainTextEdit>("Text3")->setPlainText("две\nстроки");
    EXPECT_EQ(form->Text1.text(), "19,4");   // still being typed
    find<QPushButton>("Command1")->click();  // no focus has moved
    QCoreApplication::processEvents();
    EXPECT_EQ(form->seen, "25,5|две\nстроки");
    EXPECT_EQ(find<QLineEdit>("Text2")->text(), "=25,5");
    EXPECT_EQ(form->typed, 1);

    type("Text1", "31");
    QTest::keyClick(find<QLineEdit>("Text1"), Qt::Key_Return);  // takes over and presses the default command
    EXPECT_EQ(form->seen, "31|две\nстроки");
    EXPECT_EQ(form->typed, 2);

    type("Text1", "32");
    find<QLineEdit>("Text1")->clearFocus();
    EXPECT_EQ(form->Text1.text(), "32");
    press("Command1");
    EXPECT_EQ(form->typed, 3);  // an unchanged text is not written again
}

TEST_F(Window, TicksOptionsAndScrollReachTheHandlers) {
    press("Command1");
    QTest::mouseClick(find<QCheckBox>("Check1"), Qt::LeftButton, {},
                      {5, find<QCheckBox>("Check1")->height() / 2});
    EXPECT_TRUE(form->Check1.on());
    QCoreApplication::processEvents();
    EXPECT_EQ(find<QLabel>("Label1")->text(), "да");

    const auto shown = [this] {
        QCoreApplication::processEvents();
        std::string all;
        for (const char* name : {"Option1", "Option2", "Option3"})
            all += find<QRadioButton>(name)->isChecked() ? "1" : "0";
        return all;
    };
    EXPECT_EQ(shown(), "000");
    find<QRadioButton>("Option2")->click();
    EXPECT_EQ(shown(), "010");
    find<QRadioButton>("Option2")->click();  // choosing it once more counts too
    EXPECT_EQ(form->chosen, 2);
    form->Option3.choose();
    EXPECT_EQ(shown(), "001");
    find<QRadioButton>("Option3")->setFocus();
    QTest::keyClick(find<QRadioButton>("Option3"), Qt::Key_Up);
    EXPECT_TRUE(form->Option2.on());

    find<QScrollBar>("HScroll1")->setValue(77);
    EXPECT_EQ(form->scrolled, 77);
    form->HScroll1.setValue(500);
    QCoreApplication::processEvents();
    EXPECT_EQ(find<QScrollBar>("HScroll1")->value(), 500);
}

TEST_F(Window, AStopReachesARunningCalculationAndFieldsMoveMeanwhile) {
    QString meanwhile;
    QTimer watch;
    watch.callOnTimeout([&] {
        meanwhile = find<QLineEdit>("Text2")->text();
        if (meanwhile.toInt() > 0) press("Command3");  // else the run goes on to its own end
    });
    watch.start(10);
    press("Command2");
    EXPECT_TRUE(form->ended);
    EXPECT_LT(form->passes, 100'000'000);
    EXPECT_GT(meanwhile.toInt(), 0);
    EXPECT_EQ(form->Text2.text(), std::to_string(form->passes - 1));
}

TEST_F(Window, ARunWithoutAnEndIsSeenToGoOn) {
    const auto* bar = window->statusBar()->findChild<QProgressBar*>();
    ASSERT_NE(bar, nullptr);
    const auto told = [&](double share) {
        form->progress(share);
        QCoreApplication::processEvents();
        QString all;
        for (const auto* label : window->statusBar()->findChildren<QLabel*>()) all += label->text();
        return all + (bar->isVisible() ? " |" : "");
    };
    EXPECT_TRUE(told(0.5).endsWith(" |"));
    EXPECT_TRUE(told(-1).startsWith("Счет занял"));
    const QString endless = told(Form::endless);
    EXPECT_TRUE(endless.startsWith("идет счет") && !endless.endsWith(" |")) << endless.toStdString();
    EXPECT_TRUE(told(-1).startsWith("Счет занял"));
}

TEST_F(Window, TheCauseOfAFailureStandsInTheStatusLineUntilTheNextAction) {
    const auto line = [&] {
        QCoreApplication::processEvents();
        return window->statusBar()->currentMessage().toStdString();
    };
    bool fails = true;
    form->Command1.onPress([&] {
        if (fails) throw Failure("нет файла a");
    });
    const BoxAnswer seen("OK");
    press("Command1");
    EXPECT_EQ(line(), "нет файла a");
    find<QLineEdit>("Text1")->setFocus();  // hints wait
    QStatusTipEvent hint("подсказка");
    QApplication::sendEvent(window, &hint);
    EXPECT_EQ(line(), "нет файла a");
    fails = false;
    press("Command1");
    EXPECT_NE(line(), "нет файла a");
    QApplication::sendEvent(window, &hint);
    EXPECT_EQ(line(), "подсказка");
}

TEST_F(Window, AResultStandsRightWhenItIsANumberAndLeftWhenItIsWords) {
    const auto side = [&](const char* text) {
        form->Text2.setText(text);
        QCoreApplication::processEvents();
        return find<QLineEdit>("Text2")->alignment() & Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(side("нет"), Qt::AlignLeft);
    EXPECT_EQ(side("1,5"), Qt::AlignRight);
}

TEST_F(Window, ClosingTheLastWindowEndsItsCalculation) {
    soon([&] { window->close(); });
    QString box = "none";
    soon([&] {
        if (auto* open = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box = open->text();
    });
    press("Command2");  // returns, and leaves no message behind
    EXPECT_TRUE(screen.over());
    EXPECT_FALSE(desk.isLoaded("Bench"));
    EXPECT_EQ(box, "none");
    EXPECT_FALSE(desk.busy());
}

TEST_F(Window, AFormMayCloseInItsOwnHandlerAndComeBack) {
    const QPointer<FormWindow> old = window;
    press("Command4");
    EXPECT_FALSE(desk.isLoaded("Bench"));
    desk.show("Bench");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_TRUE(old.isNull());
    EXPECT_FALSE(screen.over());
    auto& again = desk.get<BenchForm>();
    EXPECT_TRUE(screen.windowOf(again)->isVisible());
    EXPECT_EQ(again.Text1.text(), "19,4");
}

TEST_F(Window, PicturesKeepTheirShapeAndTheirScaleWhenResized) {
    form->Picture1.setBackground({0, 0, 0});
    form->Picture1.clear();
    form->Picture1.disc(5, -5, 1.5, {0, 255, 0});
    auto* view = static_cast<PictureView*>(find<QWidget>("Picture1"));
    for (const QSize size : {QSize(700, 900), QSize(1300, 600), QSize(900, 520)}) {
        window->resize(size);
        QCoreApplication::processEvents();
        const QRectF area = view->target();
        EXPECT_NEAR(area.width() / area.height(), 400.0 / 440.0, 1e-9);
        const QPoint spot(qRound(area.left() + 0.75 * area.width()),
                          qRound(area.top() + 17.0 / 22 * area.height()));
        QTest::mouseClick(view, Qt::RightButton, {}, spot);
        EXPECT_TRUE(form->rightButton);
        EXPECT_NEAR(form->mouse.x(), 5, 20 / area.width());
        EXPECT_NEAR(form->mouse.y(), -5, 22 / area.height());
        const QImage look = view->grab().toImage();
        EXPECT_EQ(look.pixel(spot * look.devicePixelRatio()), qRgb(0, 255, 0));
        EXPECT_EQ(look.pixel(area.center().toPoint() * look.devicePixelRatio()), qRgb(0, 0, 0));
    }
    form->mouse = {99, 99};
    QTest::mouseClick(view, Qt::LeftButton, {}, view->target().topLeft().toPoint() - QPoint(0, 3));
    EXPECT_EQ(form->mouse, QPointF(99, 99));  // beside the picture
    form->Picture1.resize(800, 200);
    QCoreApplication::processEvents();
    EXPECT_NEAR(view->target().width() / view->target().height(), 4, 1e-9);
}

TEST_F(Window, MessagesAndQuestionsWaitForTheirAnswer) {
    BoxAnswer yes("Да");
    EXPECT_TRUE(screen.ask("Считать <b>дальше</b>?", "Tarvex7"));
    EXPECT_EQ(yes.text, "Считать <b>дальше</b>?");
    EXPECT_EQ(yes.title, "Tarvex7");
    const BoxAnswer no("Нет");
    EXPECT_FALSE(screen.ask("Считать?", "Tarvex7"));
    const BoxAnswer seen("OK");
    desk.message("Ошибка", "Tarvex7m");
    EXPECT_EQ(seen.text, "Ошибка");
    EXPECT_EQ(seen.title, "Tarvex7m");
}

TEST_F(Window, ResultsStayReadableWhenTheDesktopTurnsDark) {
    form->Text2.setText("25,5");
    QCoreApplication::processEvents();
    const QPalette light = QApplication::palette();
    const auto contrast = [this](const char* name) {
        const QPalette& colors = find<QWidget>(name)->palette();
        return std::abs(colors.color(QPalette::Text).lightness() - colors.color(QPalette::Base).lightness());
    };
    const auto shownAs = [this] {  // a result differs from an input
        return find<QWidget>("Text2")->palette().color(QPalette::Base) !=
               find<QWidget>("Text1")->palette().color(QPalette::Base);
    };
    for (const QPalette& palette : {QPalette(QColor(45, 45, 48), QColor(35, 35, 38)), light}) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        EXPECT_GT(contrast("Text1"), 128);
        EXPECT_GT(contrast("Text2"), 128);
        EXPECT_TRUE(shownAs());
    }
}

TEST_F(Window, PostedWorkWaitsForTheRunningHandler) {
    std::vector<std::string> order;
    soon([&] { press("Command3"); });
    screen.post([&] { order.push_back("first"); });
    QCoreApplication::processEvents();
    form->Command1.onPress([&] {
        screen.post([&] { order.push_back("posted"); });
        form->run();
        screen.pause(1);
        order.push_back("handler");
    });
    press("Command1");
    QCoreApplication::processEvents();
    EXPECT_EQ(order, (std::vector<std::string>{"first", "handler", "posted"}));
}

TEST_F(Window, TurningToAWindowActivatesItsForm) {
    EXPECT_EQ(form->activated, 1);
    QEvent active(QEvent::WindowActivate);
    QApplication::sendEvent(window, &active);
    EXPECT_EQ(form->activated, 1);
    struct Plain final : Form {
        explicit Plain(Desk& d) : Form(d, "Plain", "") {}
        Picture Picture1{this, {.name = "Picture1"}};
        TextField Text1{this, {.name = "Text1", .label = "x"}};
    };
    desk.add("Plain", [this] { return std::make_unique<Plain>(desk); });
    desk.show("Plain");  // a form without a layout shows its controls all the same
    EXPECT_TRUE(screen.windowOf(desk.form("Plain"))->findChild<QLineEdit*>("Text1")->isVisible());
    QApplication::sendEvent(window, &active);
    EXPECT_EQ(form->activated, 2);
}

}  // namespace tarvex
